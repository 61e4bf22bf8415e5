#include "orbelwidget.h"

#include "delegatefactory.h"
#include "elementnames.h"
#include "externalwidget.h"
#include "formlife.h"
#include "orbelformular.h"
#include "orbelsheet.h"
#include "propertynames.h"

#include <QXmlStreamReader>

namespace KV218
{

OrbelWidget::OrbelWidget(OrbelSheet *sheet) : Place(sheet ? sheet->Place.Of(sheet) : nullptr) { }

OrbelWidget::OrbelWidget(const OrbelWidget &other) = default;

OrbelWidget::~OrbelWidget()
{
    // A copy, or a call that runs, may go on holding the delegate.
    if (Delegate && Delegate->OwnerWidget == this)
        Delegate->OwnerWidget = nullptr;
}

OrbelFormular *OrbelWidget::GetFormular() const
{
    const OrbelSheet *sheet = GetSheet();
    return sheet ? sheet->GetFormular() : nullptr;
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
    Hold(NewDelegate(Class, this));
}

void OrbelWidget::Hold(OrbelDelegate *delegate)
{
    if (OrbelSheet *sheet = GetSheet())
        delegate->SetLife(sheet->GetLife()->shared_from_this());
    Delegate.reset(delegate, &OrbelDelegate::End);
}

void OrbelWidget::SetExtWidget(QString name, QString labelText, QWidget *widget)
{
    Name = name;
    Class = QString::fromLatin1(widget->metaObject()->className());
    Hold(new ExternalWidget(this, widget));
    Delegate->setProperty(prop::LabelText.data(), labelText);
    Delegate->setProperty(prop::Visible.data(), true);
    Delegate->setProperty(prop::Enabled.data(), true);
}

void OrbelWidget::CreateValueTree(const QString &path)
{
    if (Delegate)
        Delegate->EnterValueTree(path);
}

void OrbelWidget::ResyncValueTree()
{
    if (!Delegate)
        return;
    const OrbelDelegate::Call call(Delegate.get());
    Delegate->ResyncValueTree();
}

void OrbelWidget::CreateGUI(FloatGroupLayout *layout)
{
    const OrbelDelegate::Call call(Delegate.get());
    Delegate->CreateGUI(layout);
}

void OrbelWidget::GetXml(QXmlStreamWriter &writer, bool onlyModified, bool keepsMark) const
{
    if (!Selected)
        return;
    const OrbelDelegate::Call call(Delegate.get());
    OrbelDelegate *const delegate = Delegate.get();
    const bool modified = delegate->isModified();
    if (modified || !onlyModified)
        delegate->GetXml(writer);
    if (modified && !keepsMark)
        delegate->resetModified();
}

void OrbelWidget::ReadXml(QXmlStreamReader &reader)
{
    const OrbelDelegate::Call call(Delegate.get());
    OrbelDelegate *const delegate = Delegate.get();
    delegate->ReadXml(reader);
    delegate->Touched = true;
    delegate->resetModified();
}

} // namespace KV218
