#include "formtakeover.h"

#include "exceptionstop.h"
#include "externalwidget.h"
#include "formbody.h"
#include "formchanges.h"
#include "formlife.h"
#include "keptview.h"
#include "orbelsheetui.h"

#include <QHash>
#include <QPointer>
#include <QScopeGuard>
#include <QWidget>

namespace KV218
{

namespace
{

/// The widgets of a sheet by name and class; several of one name and class follow one another.
using Key = QPair<QString, QString>;
QHash<Key, QVector<OrbelSheet::Widget>> ByName(const OrbelSheet &sheet)
{
    QHash<Key, QVector<OrbelSheet::Widget>> widgets;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const OrbelSheet::Widget widget = sheet.GetWidgetAt(i);
        if (widget->GetDelegate())
            widgets[{widget->GetName(), widget->GetClass()}].append(widget);
    }
    return widgets;
}

} // namespace

FormTakeover::FormTakeover(FormBody &heir, FormBody &former) : Heir(heir), Former(former) { }

void FormTakeover::Run(QStringList *told)
{
    const CallScope call(Heir.Sheet.GetLife());
    const CallScope formersCall(Former.Sheet.GetLife());
    // It would leave two halves of forms.
    const Orbel::ExceptionStop::Zone zone;
    const QPointer<QWidget> window(Former.GetGUI());
    const QString path = Former.VTPath;
    const auto shown = Former.Shown;
    const KeptView view(Former.Sheet);
    InsertHostsControls();
    PairControls();
    KeepOrderOfChanges();
    Heir.Configuration = Former.Configuration;
    Heir.TakeHostValues(Former);
    Heir.SetName(Former.Name);

    Former.Close();
    Heir.Sheet.GetUi()->TakeWidget(*Former.Sheet.GetUi());
    if (Heir.IsOpen())
        Heir.CreateValueTree(path);
    if (Heir.IsOpen() && window)
        Heir.CreateGUI(shown.ApplyUi, shown.Names, shown.Exclude);
    PutValues(told);
    if (Heir.IsOpen())
        view.GiveTo(Heir.Sheet);
    TakeLocks();
}

/// The n-th of one name and class is the heir of the n-th.
void FormTakeover::PairControls()
{
    const auto heirs = ByName(Heir.Sheet);
    QHash<Key, int> counts;
    for (int i = 0; i < Former.Sheet.GetWidgetCount(); ++i) {
        const OrbelSheet::Widget former = Former.Sheet.GetWidgetAt(i);
        const Key key(former->GetName(), former->GetClass());
        const OrbelSheet::Widget heir = heirs.value(key).value(counts[key]++);
        if (heir && former->GetDelegate())
            Controls.emplace_back(former, heir);
    }
}

/// Behind the widget that they stood behind, or at the end.
void FormTakeover::InsertHostsControls()
{
    QString before;
    for (int i = 0; i < Former.Sheet.GetWidgetCount(); ++i) {
        const OrbelSheet::Widget widget = Former.Sheet.GetWidgetAt(i);
        auto *const hosts = qobject_cast<ExternalWidget *>(widget->GetDelegate());
        QWidget *const control = hosts ? hosts->GetExternal() : nullptr;
        if (control) {
            int index = i == 0 ? 0 : -1;
            for (int j = 0; j < Heir.Sheet.GetWidgetCount(); ++j) {
                if (Heir.Sheet.GetWidgetAt(j)->GetName() == before)
                    index = j + 1;
            }
            control->setParent(nullptr);
            const QString label = hosts->GetString(prop::LabelText, QString());
            Heir.Sheet.InsertWidget(widget->GetName(), label, control, index);
        }
        before = widget->GetName();
    }
}

void FormTakeover::PutValues(QStringList *told)
{
    Heir.Sheet.setActive(false);
    const auto active = qScopeGuard([this] { Heir.Sheet.setActive(true); });
    for (KeptControl &control : Controls)
        control.PutValues();
    for (KeptControl &control : Controls)
        control.PutValuesAgain();
    PutMarks();
    if (!Heir.IsOpen())
        return;
    for (const KeptControl &control : Controls) {
        const QString other = told ? control.TellOther() : QString();
        if (!other.isEmpty())
            told->append(other);
    }
    const bool isModified = std::any_of(Controls.begin(), Controls.end(),
        [](const KeptControl &control) { return control.GetHeir()->IsSelected() && control.GetHeir()->isModified(); });
    Heir.Sheet.GetUi()->TakeChanges(*Former.Sheet.GetUi(), isModified);
    TakeUndoStack();
}

void FormTakeover::KeepOrderOfChanges()
{
    const QVector<OrbelDelegate *> changed = Former.Sheet.GetChanges()->GetChanged();
    for (int i = 0; i < changed.size(); ++i)
        Changed.insert(changed.at(i), i);
}

/// In the order in which the controls were changed.
void FormTakeover::PutMarks()
{
    const auto place
        = [this](const KeptControl &control) { return Changed.value(control.GetFormer(), Changed.size()); };
    std::vector<const KeptControl *> marked;
    for (const KeptControl &control : Controls)
        marked.push_back(&control);
    std::stable_sort(marked.begin(), marked.end(),
        [&](const KeptControl *one, const KeptControl *other) { return place(*one) < place(*other); });
    for (const KeptControl *control : marked) {
        control->PutMark();
        control->PutDevice();
    }
}

void FormTakeover::TakeUndoStack()
{
    ChangeEntry::Heirs heirs;
    for (const KeptControl &control : Controls)
        heirs.insert(control.GetFormer(), control.AsHeir());
    Heir.Sheet.GetChanges()->TakeStack(*Former.Sheet.GetChanges(), heirs);
}

void FormTakeover::TakeLocks()
{
    for (const auto scope :
        {OrbelSheet::EnableScopeInput, OrbelSheet::EnableScopeSheet, OrbelSheet::EnableScopePartial}) {
        if (Heir.IsOpen())
            Heir.Sheet.EnableInput(Former.Sheet.IsInputEnabled(scope), scope);
    }
    Heir.Sheet.GetUi()->SetLockReason(Former.Sheet.GetUi()->GetLockReason());
}

} // namespace KV218
