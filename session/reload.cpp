#include "reload.h"

#include "definitiondiff.h"
#include "orbelcheck.h"
#include "orbeldelegate.h"
#include "orbelformular.h"
#include "propertynames.h"
#include "session.h"
#include "sessionbody.h"

#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QHash>
#include <QXmlStreamReader>

#include <algorithm>
#include <utility>

namespace Orbel
{

using KV218::OrbelDelegate;
using KV218::OrbelSheet;

namespace
{

// How often to look whether a form has come to rest.
constexpr int MillisecondsOfRest = 50;
// How long nobody may write into a file before it is read.
constexpr int MillisecondsOfQuiet = 25;
// How often a file that breaks off is read again before its mistakes are told.
constexpr int MostTries = 40;
// How many links are followed, since they may lead in a circle.
constexpr int MostLinks = 20;

bool HasErrors(const QVector<Finding> &findings)
{
    const auto isError = [](const Finding &finding) { return finding.Level == Severity::Error; };
    return std::any_of(findings.begin(), findings.end(), isError);
}

/// What the definition does not admit of what was kept.
void TellOthers(const QStringList &others, QVector<Finding> &findings)
{
    for (const QString &other : others)
        findings.append({1, 1, Severity::Note, QStringLiteral("value-not-kept"), other});
}

/// The folders in which a change may be one of the file: where it stands or will stand, and where each link that leads
/// to it does.
QStringList PlacesOf(const QString &file)
{
    QStringList places;
    QStringList ways{file};
    for (int i = 0; i < ways.size() && i < MostLinks; ++i) {
        QString folder = QFileInfo(ways.at(i)).absolutePath();
        while (!QFileInfo::exists(folder))
            folder = QFileInfo(folder).absolutePath();
        places.append(folder);
        for (QFileInfo place(ways.at(i)); !place.isRoot(); place.setFile(place.absolutePath())) {
            if (!place.isSymLink())
                continue;
            places.append(place.absolutePath());
            ways.append(place.symLinkTarget());
        }
    }
    places.removeDuplicates();
    return places;
}

bool IsWellFormed(const QByteArray &document)
{
    QXmlStreamReader reader(document);
    while (!reader.atEnd())
        reader.readNext();
    return !reader.hasError();
}

} // namespace

Reload::Reload(SessionBody &body) : Body(body)
{
    Rest.setSingleShot(true);
    Rest.setInterval(MillisecondsOfRest);
    connect(&Rest, &QTimer::timeout, this, &Reload::TakeWaiting);
    Quiet.setSingleShot(true);
    Quiet.setInterval(MillisecondsOfQuiet);
    connect(&Quiet, &QTimer::timeout, this, &Reload::ReadFile);
}

Reload::~Reload() = default;

QVector<Finding> Reload::Take(const QByteArray &document)
{
    const auto self = Body.shared_from_this();
    Refused.clear();
    if (!Waiting && TakeInPlace(document))
        return Body.GetDefinition().GetFindings();
    const Definition next = Body.GetDefinition().OfLater(document);
    if (IsRefused(next.GetFindings())) {
        Tell(next.GetFindings());
        return next.GetFindings();
    }
    Waiting = next;
    IsFiles = false;
    TakeWaiting();
    return next.GetFindings();
}

bool Reload::IsRefused(const QVector<Finding> &told) const
{
    const auto isFormless = [](const Finding &finding) {
        return finding.Code == QLatin1String("xml-malformed") || finding.Code == QLatin1String("form-missing");
    };
    const bool isEnough = Body.GetOptions().ReloadsErrors && std::none_of(told.begin(), told.end(), isFormless);
    return HasErrors(told) && !isEnough;
}

/// False, and nothing has changed, where that is not all that there is to do.
bool Reload::TakeInPlace(const QByteArray &document)
{
    const Definition &now = Body.GetDefinition();
    // A value beyond its limits, say, would be another one in a new form.
    if (now.IsComponent() || now.HasErrors() || !Body.GetForm()->IsAtRest())
        return false;
    const auto diff = DefinitionDiff::Between(now.GetDocument(), document);
    if (!diff || !MayPatch(*diff) || HasErrors(Check::Definition(diff->GetPartAfter())))
        return false;
    QVector<Finding> told = FindingsAfter(*diff);
    Body.SetDefinition(now.OfLater(document, told));
    Patch(*diff, told);
    Tell(told);
    return true;
}

/// A changed definition finds the first widget of a name.
bool Reload::MayPatch(const DefinitionDiff &diff) const
{
    const OrbelSheet &sheet = Body.GetForm()->GetSheet();
    QHash<QString, int> counts;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i)
        ++counts[sheet.GetWidgetAt(i)->GetName()];
    const auto isOne = [&](const auto &changed) { return counts.value(changed.first) == 1; };
    return std::all_of(diff.GetChanged().begin(), diff.GetChanged().end(), isOne);
}

/// Those of before, but for what has gone and come where the two differ.
QVector<Finding> Reload::FindingsAfter(const DefinitionDiff &diff) const
{
    const auto isSame = [](const Finding &one) {
        return [&one](const Finding &other) { return one.Code == other.Code && one.Text == other.Text; };
    };
    const QVector<Finding> before = Check::Definition(diff.GetPartBefore());
    const QVector<Finding> after = Check::Definition(diff.GetPartAfter());
    QVector<Finding> told;
    for (Finding finding : Body.GetDefinition().GetFindings()) {
        const bool isInside = finding.Line >= diff.GetFirstLine() && finding.Line <= diff.GetLastLineBefore();
        const bool isOfPart = isInside && std::any_of(before.begin(), before.end(), isSame(finding));
        const auto *const now = std::find_if(after.begin(), after.end(), isSame(finding));
        if (isOfPart && now == after.end())
            continue;
        if (isOfPart)
            finding.Line = now->Line;
        else if (finding.Line > diff.GetLastLineBefore())
            finding.Line += diff.GetLastLineAfter() - diff.GetLastLineBefore();
        told.append(finding);
    }
    for (const Finding &finding : after) {
        if (std::none_of(before.begin(), before.end(), isSame(finding)))
            told.append(finding);
    }
    std::stable_sort(
        told.begin(), told.end(), [](const Finding &one, const Finding &other) { return one.Line < other.Line; });
    return told;
}

void Reload::Patch(const DefinitionDiff &diff, QVector<Finding> &told)
{
    struct Before {
        QPointer<OrbelDelegate> Control;
        QVariantList Edits;
        QString Label;
    };
    const SessionBody::Form form = Body.GetForm();
    const KV218::PropertyKey label(KV218::prop::LabelText);
    QVector<Before> before;
    for (int i = 0; i < form->GetSheet().GetWidgetCount(); ++i) {
        const OrbelSheet::Widget widget = form->GetSheet().GetWidgetAt(i);
        OrbelDelegate *const control = widget->GetDelegate();
        const auto isIt = [&](const auto &changed) { return changed.first == widget->GetName(); };
        if (std::any_of(diff.GetChanged().begin(), diff.GetChanged().end(), isIt))
            before.append({control, control->GetEdits(), control->GetString(label, QString())});
    }
    QXmlStreamReader reader(diff.GetPatch());
    if (reader.readNextStartElement())
        form->ProcessChangedORBEL(reader);
    QStringList others;
    for (const Before &one : qAsConst(before)) {
        if (one.Control && one.Control->GetEdits() != one.Edits)
            others.append(one.Control->SpellChange(one.Edits, one.Control->GetEdits()));
        if (one.Control)
            one.Control->RenewToolTips(one.Label);
    }
    TellOthers(others, told);
}

void Reload::TakeWaiting()
{
    const SessionBody::Form form = Body.GetForm();
    if (!Waiting || !form)
        return;
    if (!form->IsAtRest())
        Rest.start();
    else
        Replace(*std::exchange(Waiting, {}));
}

void Reload::Replace(const Definition &definition)
{
    const auto self = Body.shared_from_this();
    const SessionBody::Form former = Body.GetForm();
    const SessionBody::Form form = Body.NewForm(definition);
    QVector<Finding> findings = definition.GetFindings();
    QStringList others;
    if (!form)
        return;
    // The lines of a script that fails at its start are those of the new one.
    const Definition before = Body.GetDefinition();
    Body.SetDefinition(definition);
    if (!form->TakeOver(former.data(), &others)) {
        Body.SetDefinition(before);
        return;
    }
    // A handler may have ended the session, or begun with another definition.
    if (!Body.GetOwner() || Body.GetForm() != former)
        return;
    Body.Bind(form);
    TellOthers(others, findings);
    Tell(findings);
}

void Reload::Tell(const QVector<Finding> &findings)
{
    const auto self = Body.shared_from_this();
    if (Session *owner = Body.GetOwner())
        Q_EMIT owner->reloaded(findings);
}

void Reload::Watch(const QString &path)
{
    Files.reset();
    Quiet.stop();
    File.clear();
    Refused.clear();
    if (path.isEmpty())
        return;
    File = QFileInfo(path).absoluteFilePath();
    Files = std::make_unique<QFileSystemWatcher>();
    connect(Files.get(), &QFileSystemWatcher::fileChanged, this, &Reload::FileChanged);
    connect(Files.get(), &QFileSystemWatcher::directoryChanged, this, &Reload::FileChanged);
    FileChanged();
}

/// An editor may write in pieces, or put another file in the place of this one, or of its folder, or of what a link
/// leads to: that is then to be watched.
void Reload::FileChanged()
{
    const QStringList former = Files->files() + Files->directories();
    if (!former.isEmpty())
        Files->removePaths(former);
    Files->addPaths(PlacesOf(File));
    if (QFileInfo::exists(File))
        Files->addPath(File);
    Tries = 0;
    // In a folder where much comes and goes it would never come to an end.
    if (!Quiet.isActive())
        Quiet.start();
}

void Reload::ReadFile()
{
    QFile file(File);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray document = file.readAll();
    const bool isStill = document == std::exchange(Seen, document);
    if (document.isEmpty())
        return;
    if (document == Body.GetDefinition().GetDocument()) {
        TakeBack();
        return;
    }
    // What else comes and goes in its folder is no news of it.
    if (document == Refused)
        return;
    if (!isStill || (!IsWellFormed(document) && ++Tries < MostTries)) {
        Quiet.start();
        return;
    }
    const auto self = Body.shared_from_this();
    const QVector<Finding> told = Take(document);
    IsFiles = Waiting && Waiting->GetDocument() == document;
    if (IsRefused(told))
        Refused = document;
}

/// The file has again what the form was made of.
void Reload::TakeBack()
{
    const bool isWaiting = Waiting && IsFiles;
    if (isWaiting)
        Waiting.reset();
    if (isWaiting || !std::exchange(Refused, {}).isEmpty())
        Tell(Body.GetDefinition().GetFindings());
}

QVector<Finding> Session::Reload(const QByteArray &document)
{
    const auto body = Body;
    return body->GetReload().Take(document);
}

void Session::Watch(const QString &path)
{
    Body->GetReload().Watch(path);
}

} // namespace Orbel
