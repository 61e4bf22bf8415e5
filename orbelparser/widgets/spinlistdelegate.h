#pragma once

#include "orbeldelegate.h"
#include "ownednode.h"
#include "valuenumeric.h"

#include <QPointer>
#include <QVector>
#include <vector>

class VCNumericFloatSpin;

namespace KV218
{

/// What the lists of spin controls have in common: a stack of controls in one row of the form, each with a node of its
/// own. Items count from 0, and those behind a withdrawn node move up by one. `Node` is ValueInt or ValueDouble.
template <class Node> class SpinListDelegate : public OrbelDelegate
{
public:
    explicit SpinListDelegate(OrbelWidget *widget);

    void GetXml(QXmlStreamWriter &writer) const override;
    void ReadXml(QXmlStreamReader &reader) override;
    QVector<Face> GetFaces() const override;
    void forceFinishEditing() override;
    QString SpellEdit(int index, const QVariant &value) const override;

protected:
    using Number = decltype(std::declval<const Node &>().GetValue());

    bool HasSeveralValues() const override { return true; }
    /// Must emit the signals of an item's new number.
    virtual void EmitNumber(int index, Number number) = 0;
    /// Spells an item for a parameter document.
    virtual QString ItemText(const Node &node) const = 0;

    void NodeChanged(Observable *subject, TChangeCode code) override;
    QVector<ValueBase *> GetNodes() const override;
    void LeaveWindow() override;
    bool IsNumber(const QString &name) const override;

    /// Makes the nodes of `count` items, none for a negative count; limit::ListItems at most.
    void CreateNodes(int count);
    /// Builds the row and gives its controls by item; they belong to the container.
    QVector<VCNumericFloatSpin *> CreateControls(FloatGroupLayout *layout);
    /// 0 for an index out of range.
    Number GetNumber(int index) const;
    /// Sets an item as if the operator had; an index out of range and a number that is infinite or none are ignored.
    void SetNumber(int index, Number number);

private:
    QList<VCNumericFloatSpin *> Spins() const;
    bool IsItem(int index) const { return index >= 0 && size_t(index) < ValueNodes.size(); }

    std::vector<Orbel::OwnedNode<Node>> ValueNodes;
    /// Ends with the form, or with the window if that goes first.
    QPointer<QWidget> Container;
};

extern template class SpinListDelegate<ValueInt>;
extern template class SpinListDelegate<ValueDouble>;

} // namespace KV218
