#pragma once

#include "valuebase.h"
#include "valueformat.h"

/// A node that holds one `T`. `Stream`, on top of `Format`, spells it as text.
template <class T, class Format, class Stream> class ORBEL_HOST_EXPORT Value : public ValueBase
{
public:
    explicit Value(const QString &name, TValueState state = ekStateUsable) : ValueBase(name, state) { }
    ~Value() override { AnnounceEnd(); }

    void SetStringValue(QString text, IObserver *except) override
    {
        T value = Content;
        if (Stream::Read(text, value))
            SetValue(value, except);
    }
    QString GetStringValue() const override { return Stream::Write(Content); }
    ValueType GetType() const override { return ValueTypeOf<T>::Type; }
    QString GetTypeName() const override { return ValueTypeOf<T>::Name; }
    void Assign(const ValueBase &other) override
    {
        if (const auto *same = dynamic_cast<const Value *>(&other))
            SetValue(same->Content, nullptr);
        else
            SetStringValue(other.GetStringValue(), nullptr);
    }
    bool Compare(const ValueBase *other) const override
    {
        const auto *same = dynamic_cast<const Value *>(other);
        return same && same->Content == Content;
    }

    /// Notifies with ekChangeValue.
    virtual void SetValue(T value, IObserver *except)
    {
        if (value == Content)
            return;
        Content = value;
        Announce({ekChangeValue}, except);
    }
    /// What the node holds.
    virtual T GetValue() const { return Content; }

protected:
    /// Stores without telling anybody.
    void StoreValue(T value) { Content = value; }

private:
    T Content{};
};

using ValueBoolean = Value<bool, FormatBool<bool>, StreamFormat<bool, FormatBool<bool>>>;
using ValueString = Value<QString, FormatString<QString>, StreamFormat<QString, FormatString<QString>>>;

// One instance for all libraries of a process, so that a run-time cast across them works.
extern template class Value<bool, FormatBool<bool>, StreamFormat<bool, FormatBool<bool>>>;
extern template class Value<QString, FormatString<QString>, StreamFormat<QString, FormatString<QString>>>;
