#include "orbelsheet.h"

#include "assistive.h"
#include "exceptionstop.h"
#include "floatgrouplayout.h"
#include "formchanges.h"
#include "formlife.h"
#include "formlimits.h"
#include "layoutpause.h"
#include "orbelelement.h"
#include "orbelformular.h"
#include "orbelsheetui.h"
#include "propertynames.h"
#include "textsize.h"
#include "xmlwalk.h"

#include <QScopedValueRollback>
#include <QXmlStreamWriter>

namespace KV218
{

static QSharedPointer<OrbelSheetUi> NewUi(const std::shared_ptr<FormLife> &life, FormChanges *changes)
{
    auto *ui = new OrbelSheetUi(changes);
    ui->SetLife(life);
    return QSharedPointer<OrbelSheetUi>(ui, &OrbelDelegate::End);
}

static bool IsHeadline(const OrbelWidget &widget)
{
    return widget.GetClass() == widgetclass::Headline;
}

OrbelSheet::OrbelSheet(OrbelFormular *formular)
    : Life(std::make_shared<FormLife>()), Changes(new FormChanges(Life.get())), Root(new OrbelElement),
      Formular(formular), Ui(NewUi(Life, Changes.data()))
{
}

OrbelSheet::OrbelSheet(const OrbelSheet &other) = default;

OrbelSheet &OrbelSheet::operator=(const OrbelSheet &other) = default;

OrbelSheet::~OrbelSheet() = default;

OrbelFormular *OrbelSheet::GetFormular() const
{
    return Formular;
}

void OrbelSheet::Close()
{
    const CallScope call(GetLife());
    if (std::exchange(Closed, true))
        return;
    Formular = nullptr;
    Place.Clear();
    Changes->Close();
    Ui->Close();
    for (const Widget &widget : Snapshot()) {
        if (OrbelDelegate *delegate = widget->GetDelegate())
            delegate->Close();
    }
}

OrbelSheet::Widget OrbelSheet::GetWidget(const QString &name) const
{
    const Widget widget = Root->FindWidget(name);
    if (widget || name.contains(QLatin1Char('/')))
        return widget;
    return Index.FindTag(Widgets, name);
}

QList<OrbelSheet::Widget> OrbelSheet::FindWidgetsOfClass(const QString &className) const
{
    QList<Widget> found;
    for (const Widget &widget : Widgets) {
        if (widget->GetClass() == className)
            found.append(widget);
    }
    return found;
}

OrbelWidget *OrbelSheet::FindWidget(const QString &className) const
{
    for (const Widget &widget : Widgets) {
        if (widget->GetClass() == className)
            return widget.data();
    }
    return nullptr;
}

OrbelWidget *OrbelSheet::FindHeadline(const QString &name) const
{
    const auto isIt = [&](const Widget &widget) { return IsHeadline(*widget) && widget->GetName() == name; };
    const auto found = std::find_if(Widgets.cbegin(), Widgets.cend(), isIt);
    return found == Widgets.cend() ? nullptr : found->data();
}

int OrbelSheet::IndexOfWidget(Widget widget) const
{
    return Widgets.indexOf(widget);
}

int OrbelSheet::IndexOfWidget(const QString &name) const
{
    const Widget widget = GetWidget(name);
    return widget ? IndexOfWidget(widget) : -1;
}

OrbelSheet::Widget OrbelSheet::InsertWidget(QString name, QString labelText, QWidget *widget, int index)
{
    const Widget element(new OrbelWidget(this));
    if (index < 0)
        Widgets.append(element);
    else
        Widgets.insert(index, element);
    element->SetExtWidget(name, labelText, widget);
    Root->AddWidget(element);
    Index.Drop();
    return element;
}

void OrbelSheet::ParseORBEL(QXmlStreamReader &reader)
{
    Name = reader.attributes().value(attribute::Name).toString();
    if (Formular)
        Formular->SetScriptValue(Name, Ui.data());
    ForEachStart(reader, [&](const QStringRef &name) {
        if (name == element::Properties)
            Ui->ParseProperties(reader, false);
        else if (name == element::CustomProperties)
            Ui->ParseProperties(reader, true);
        else if (name == element::Widget)
            ParseWidget(reader);
        else
            reader.skipCurrentElement();
    });
}

void OrbelSheet::ParseWidget(QXmlStreamReader &reader)
{
    const Widget widget(new OrbelWidget(this));
    Widgets.append(widget);
    widget->ParseORBEL(reader, Widgets.size() - 1);
    Root->AddWidget(widget);
    Index.Drop();
}

void OrbelSheet::ParseChangedORBEL(QXmlStreamReader &reader)
{
    const CallScope call(GetLife());
    ForEachStart(reader, [&](const QStringRef &name) {
        if (name != element::Widget) {
            reader.skipCurrentElement();
            return;
        }
        // Meant: a widget of an unknown name is entered, so its end tag ends the reading of the sheet.
        const QString widgetName = reader.attributes().value(attribute::Name).toString();
        if (const Widget widget = Index.FindName(Widgets, widgetName))
            widget->GetDelegate()->ParseProperties(reader, false);
        // An error ends all walks over the document.
        if (Closed)
            reader.raiseError(QStringLiteral("The form is gone"));
    });
}

void OrbelSheet::CreateGUI(bool applyUi)
{
    CreateGUI(applyUi, QStringList(), true);
}

void OrbelSheet::CreateGUI(bool applyUi, const QStringList &list, bool exclude)
{
    if (GetGUI())
        return;
    const CallScope call(GetLife());
    Ui->CreateFrame(applyUi);
    Ui->SetLanguageListener([place = Place.Of(this)] {
        if (*place)
            (*place)->Retranslate();
    });
    // A control's handler may delete the window.
    const QPointer<Assistive> assistive(new Assistive(GetGUI()));
    const QSet<QString> names(list.cbegin(), list.cend());
    for (const Widget &widget : Snapshot()) {
        // A handler may have ended the form, or deleted the window.
        if (Closed || !Ui->GetLayout())
            break;
        const bool listed = names.contains(widget->GetName()) || names.contains(widget->GetXmlTagName());
        if (listed == exclude) {
            widget->SetSelected(false);
            continue;
        }
        widget->CreateGUI(Ui->GetLayout());
        if (assistive)
            assistive->Add(widget->GetDelegate());
    }
    if (!Closed) {
        Ui->FinishFrame();
        Switches.TellAtStart(TellControls());
    }
    // The form ended in here, so that nobody was given the window; a handler that took it shows it, or has made it a
    // child.
    QWidget *const window = Closed ? GetGUI() : nullptr;
    if (window && !window->parent() && !window->isVisible())
        GetLife()->EndControl(window);
}

QWidget *OrbelSheet::GetGUI() const
{
    return Ui->GetGUI();
}

OrbelDelegate *OrbelSheet::GetDelegate() const
{
    return Ui.data();
}

void OrbelSheet::CreateValueTree(const QString &path)
{
    const CallScope call(GetLife());
    VTPath = path;
    // Whoever watches a path may end the form; the rest would take the places of the form that comes next.
    for (const Widget &widget : Snapshot()) {
        if (!Closed)
            widget->CreateValueTree(path);
    }
}

void OrbelSheet::ResyncValueTree()
{
    const CallScope call(GetLife());
    for (const Widget &widget : Snapshot())
        widget->ResyncValueTree();
}

void OrbelSheet::SelectWidgets(const QStringList &list, bool select)
{
    const QSet<QString> paths(list.cbegin(), list.cend());
    for (const Widget &widget : qAsConst(Widgets)) {
        const bool listed = paths.isEmpty() || paths.contains(widget->GetDelegate()->GetXmlPath());
        widget->SetSelected(listed ? select : !select);
        if (widget->isModified())
            Changes->Note(widget->GetDelegate());
    }
}

/// Has `act` take the delegates of groups: of each widget that `begins` answers true for and of those behind it, up to
/// the next headline.
template <class Begins, class Act> void OrbelSheet::ForGroups(Begins begins, Act act)
{
    const CallScope call(GetLife());
    const Orbel::ExceptionStop::Zone
        zone; // it would come through the hide events of Qt and leave the group in two halves
    const LayoutPause pause(Ui->GetLayout());
    bool inGroup = false;
    for (const Widget &widget : Snapshot()) {
        inGroup = begins(widget.data()) || (inGroup && !IsHeadline(*widget));
        if (inGroup)
            act(widget->GetDelegate());
    }
}

void OrbelSheet::ShowGroup(const QString &name, bool show)
{
    ForGroups([headline = FindHeadline(name)](const OrbelWidget *widget) { return widget == headline; },
        [show](OrbelDelegate *delegate) { delegate->SetPropertyAlways(prop::Visible, show); });
}

void OrbelSheet::setGroupVisible(OrbelWidget *headline, bool visible)
{
    ForGroups([headline](const OrbelWidget *widget) { return widget == headline; },
        [visible](OrbelDelegate *delegate) { delegate->setGroupVisible(visible); });
}

void OrbelSheet::SetCollapsed(const QStringList &names)
{
    const QSet<QString> collapsed(names.cbegin(), names.cend());
    bool visible = true;
    const auto begins = [&](const OrbelWidget *widget) {
        if (!IsHeadline(*widget))
            return false;
        visible = !collapsed.contains(widget->GetName());
        return true;
    };
    ForGroups(begins, [&visible](OrbelDelegate *delegate) { delegate->setGroupVisible(visible); });
}

void OrbelSheet::ShowWidget(OrbelWidget *widget)
{
    const CallScope call(GetLife());
    OrbelWidget *headline = nullptr;
    for (const Widget &each : Snapshot()) {
        if (IsHeadline(*each))
            headline = each.data();
        if (each.data() == widget)
            break;
    }
    if (headline && !widget->GetDelegate()->isGroupVisible()) {
        setGroupVisible(headline, true);
        if (Formular)
            Formular->ApplyConfiguration();
    }
    widget->GetDelegate()->setFocus();
    Ui->ScrollToFocus();
}

QStringList OrbelSheet::GetCollapsed() const
{
    QStringList names;
    for (const Widget &widget : Widgets) {
        if (IsHeadline(*widget) && !widget->GetDelegate()->isGroupVisible())
            names.append(widget->GetName());
    }
    return names;
}

void OrbelSheet::GetXml(QXmlStreamWriter &writer, bool withParameters, bool onlyModified, bool keepsMarks) const
{
    const CallScope call(GetLife());
    const bool effective = onlyModified && Ui->GetBool(prop::EmitOnlyModifiedParameters, true);
    Ui->WriteRootStart(writer);
    if (withParameters)
        Root->GetXml(writer, effective, keepsMarks);
    writer.writeEndElement();
}

void OrbelSheet::ReadXml(QXmlStreamReader &reader)
{
    const CallScope call(GetLife());
    const QScopedValueRollback<bool> inactive(Active, false);
    Root->ReadXml(reader);
}

void OrbelSheet::setModified(bool autoApply)
{
    if (Active)
        Ui->setModified(autoApply);
}

void OrbelSheet::resetModified()
{
    Ui->resetModified();
}

bool OrbelSheet::isModified() const
{
    return Ui->isModified();
}

bool OrbelSheet::isWidgetModified() const
{
    if (!Ui->isModified())
        return false;
    return std::any_of(Widgets.cbegin(), Widgets.cend(),
        [](const Widget &widget) { return widget->IsSelected() && widget->isModified(); });
}

bool OrbelSheet::isAutoApplyEnabled() const
{
    return Ui->isAutoApplyEnabled();
}

void OrbelSheet::setAutoApplyEnabled(bool enable)
{
    Ui->ChooseAutoApply(enable);
}

void OrbelSheet::killAutoApplyTimer()
{
    Ui->killAutoApplyTimer();
}

void OrbelSheet::applyNow()
{
    Ui->applyNow();
}

void OrbelSheet::TagAdded(const OrbelWidget *widget, const QString &tag)
{
    Root->AddTag(widget, tag);
}

void OrbelSheet::FinishEditing()
{
    const CallScope call(GetLife());
    for (const Widget &widget : Snapshot())
        widget->GetDelegate()->FinishEditing();
}

void OrbelSheet::SetFontSize(int size)
{
    const CallScope call(GetLife());
    if (size > 0 && size <= limit::TextSize && GetGUI())
        SetTextSize(GetGUI(), size);
}

void OrbelSheet::Retranslate()
{
    const CallScope call(GetLife());
    const LayoutPause pause(Ui->GetLayout());
    Ui->LanguageChanged();
    for (const Widget &widget : Snapshot())
        widget->GetDelegate()->LanguageChanged();
}

void OrbelSheet::EnableInput(bool enable, eEnableScope scope)
{
    const CallScope call(GetLife());
    Switches.Turn(InputSwitches::Switch(scope), enable, TellControls());
}

InputSwitches::Tell OrbelSheet::TellControls()
{
    return [this](bool enable, bool partial) { SetEnableInput(enable, partial); };
}

void OrbelSheet::SetEnableInput(bool enable, bool partial)
{
    // It would come through the focus events of Qt and leave the sheet half locked.
    const Orbel::ExceptionStop::Zone zone;
    if (!enable)
        Ui->ParkFocus();
    for (const Widget &widget : Snapshot())
        widget->GetDelegate()->EnableInput(enable, partial);
    Ui->EnableInput(enable, partial);
}

} // namespace KV218
