#include "orbelwidget.h"

#include "delegatefactory.h"
#include "elementnames.h"
#include "externalwidget.h"
#include "orbelformular.h"
#include "orbelsheet.h"
#include "propertynames.h"

#include <QXmlStreamReader>

namespace KV218
{

OrbelWidget::OrbelWidget(OrbelSheet *sheet) : Sheet(sheet) {}

OrbelWidget::OrbelWidget(const OrbelWidget &other) = default;

OrbelWidget::~OrbelWidget()
{
    // A copy may go on holding the delegate.
    if (Delegate && Delegate->OwnerWidget == this)
        Delegate->OwnerWidget = nullptr;
}

OrbelFormular *OrbelWidget::GetFormular() const
{
    return Sheet ? Sheet->GetFormular() : nullptr;
}

const QString &OrbelWidget::GetXmlTagName() const
{
    return Delegate->GetXmlTagName();
}

bool OrbelWidget::isModified() const
{
    return Delegate->isModified();
}

void OrbelWidget::resetModified()
{
    Delegate->resetModified();
}

void OrbelWidget::ParseORBEL(QXmlStreamReader &reader, int index)
{
    Name = reader.attributes().value(attribute::Name).toString();
    Class = reader.attributes().value(attribute::Class).toString();
    if (Name.isEmpty())
        Name = QStringLiteral("%1_%2").arg(Class, QString::number(index));
    createDelegate();
    if (OrbelFormular *formular = GetFormular())
        formular->SetScriptValue(Name, Delegate.get());
    Delegate->setObjectName(Name);
    Delegate->ParseProperties(reader, false);
}

void OrbelWidget::createDelegate()
{
    Delegate.reset(NewDelegate(Class, this));
}

void OrbelWidget::SetExtWidget(QString name, QString labelText, QWidget *widget)
{
    Name = name;
    Class = QString::fromLatin1(widget->metaObject()->className());
    Delegate = std::make_shared<ExternalWidget>(this, widget);
    Delegate->setProperty(prop::LabelText.data(), labelText);
    Delegate->setProperty(prop::Visible.data(), true);
    Delegate->setProperty(prop::Enabled.data(), true);
}

void OrbelWidget::CreateValueTree(const QString &path)
{
    if (!Delegate)
        return;
    Delegate->SetVTPath(path);
    Delegate->CreateValueTree();
}

void OrbelWidget::ResyncValueTree()
{
    if (Delegate)
        Delegate->ResyncValueTree();
}

void OrbelWidget::CreateGUI(FloatGroupLayout *layout)
{
    Delegate->CreateGUI(layout);
}

void OrbelWidget::GetXml(QXmlStreamWriter &writer, bool onlyModified) const
{
    if (!Selected)
        return;
    const bool modified = Delegate->isModified();
    if (modified || !onlyModified)
        Delegate->GetXml(writer);
    if (modified)
        Delegate->resetModified();
}

void OrbelWidget::ReadXml(QXmlStreamReader &reader)
{
    Delegate->ReadXml(reader);
    Delegate->resetModified();
}

} // namespace KV218
