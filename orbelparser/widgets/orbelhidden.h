#pragma once

#include "orbeldelegate.h"
#include "ownednode.h"
#include "propertynames.h"

namespace KV218
{

/// A text that the operator does not see. Class name: `HiddenParameter`. Value property: `value`. Unlike the other
/// controls it emits and marks itself modified for a script's change too; a change of its node emits only.
class OrbelHidden : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelHidden(OrbelWidget *widget);

    void CreateValueTree() override;
    void GetXml(QXmlStreamWriter &writer) const override;
    void ReadXml(QXmlStreamReader &reader) override;
    ValueBase *GetVTValue() const override { return ValueNode.get(); }

Q_SIGNALS:
    void valueChanged(QString);

public Q_SLOTS:
    void setValue(QString value) { ChangeProperty(prop::Value, value); }

protected:
    void PropertyChanged(const QString &name, const QVariant &value) override;
    void NodeChanged(Observable *subject, TChangeCode code) override;
    QVariant HeldNumber(const QString &name) const override;

private:
    Orbel::OwnedNode<ValueString> ValueNode;
};

} // namespace KV218
