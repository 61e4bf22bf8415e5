#pragma once

#include "orbeldelegate.h"
#include "ownednode.h"
#include "propertynames.h"

namespace KV218
{

/// A line of text that the operator reads. Class name: `Label`. Value property: `text`, shown translated, stored and
/// written as it is. It has a node only when it writes parameters; the node feeds the property and never the other way
/// round, and the form is not notified of it.
class OrbelLabel : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelLabel(OrbelWidget *widget);

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;
    void GetXml(QXmlStreamWriter &writer) const override;
    void ReadXml(QXmlStreamReader &reader) override;
    QVector<Face> GetFaces() const override { return {{Control.data()}}; }

public Q_SLOTS:
    void setText(QString text) { ChangeProperty(prop::Text, text); }

protected:
    void Retranslate() override;
    void PropertyChanged(const QString &name, const QVariant &value) override;
    void NodeChanged(Observable *subject, TChangeCode code) override;
    QVector<ValueBase *> GetNodes() const override;

private:
    Orbel::OwnedNode<ValueString> ValueNode;
    QPointer<QLabel> Control;
};

} // namespace KV218
