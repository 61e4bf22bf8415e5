#pragma once

#include "bounddelegate.h"
#include "vcnumericfloatspin.h"

namespace KV218
{

/// What the fields for one number have in common: a node, a spin control, and the roads between both and the property
/// `value`. `Node` is ValueInt or ValueDouble.
template <class Node> class SpinDelegate : public BoundDelegate<Node, VCNumericFloatSpin>
{
public:
    explicit SpinDelegate(OrbelWidget *widget);

    void CreateGUI(FloatGroupLayout *layout) override;
    void GetXml(QXmlStreamWriter &writer) const override;
    QVector<Face> GetFaces() const override;
    QString SpellEdit(int index, const QVariant &value) const override;

protected:
    using Number = decltype(std::declval<const Node &>().GetValue());

    /// The object name of the control. The base gives the name of the widget element.
    virtual QString ControlName() const;
    /// Gives the control, which may be null, the tooltip that tells the bounds.
    virtual void ShowBounds() = 0;
    /// The same for a control just made.
    virtual void ShowFirstBounds() { ShowBounds(); }
    /// What a parameter document says.
    virtual QString DocumentText() const = 0;
    /// Must emit the signals of a new number, be it the operator's or the host's.
    virtual void EmitNumber(Number number) = 0;
    /// Gives a changed property to the node, which exists; false when the node has nothing to do with it.
    virtual bool WriteToNode(const QString &name, const QVariant &value) = 0;
    /// Gives a changed property to the control, which exists.
    virtual void WriteToControl(const QString &name, const QVariant &value);

    void PropertyChanged(const QString &name, const QVariant &value) override;
    void NodeChanged(Observable *subject, TChangeCode code) override;
    bool IsNumber(const QString &name) const override;
};

extern template class SpinDelegate<ValueInt>;
extern template class SpinDelegate<ValueDouble>;

} // namespace KV218
