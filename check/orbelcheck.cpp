#include "orbelcheck.h"

#include "changecheck.h"
#include "codeexamples.h"
#include "elementnames.h"
#include "filetext.h"
#include "formcheck.h"
#include "formrun.h"
#include "parameterdocumentcheck.h"
#include "scriptscanner.h"
#include "structurecheck.h"
#include "templateexpansion.h"
#include "xmlcheck.h"

#include <algorithm>

namespace Orbel
{

namespace
{

namespace element = KV218::element;
namespace attribute = KV218::attribute;

/// Does `act` with the value of each definition in a component list and the name of its component, until it answers
/// true.
template <class Act> void ForEachDefinition(const Document &list, Act act)
{
    QString component;
    for (int i = 0; i < list.Elements().size(); ++i) {
        if (list.At(i).Name == element::Component)
            component = list.AttributeOf(i, attribute::Name);
        const bool isForm
            = list.At(i).Name == element::ValueString && list.AttributeOf(i, attribute::Id) == QLatin1String("ORBEL");
        if (isForm && act(i, component))
            return;
    }
}

/// The element of the form that counts; -1 without one.
int FormOf(const Document &document)
{
    FindingSink ignored;
    StructureCheck reading(document, ignored);
    reading.Run();
    return reading.Form();
}

/// How a definition is looked at: on paper, or by running it.
class Examination
{
public:
    /// Without a time, the definition is only read.
    explicit Examination(int milliseconds = 0, const Check::RunWatch &watch = Check::RunWatch())
        : Milliseconds(milliseconds), Watch(watch)
    {
    }

    bool IsRun() const { return Milliseconds > 0; }

    void Definition(const Document &document, FindingSink &sink) const
    {
        FindingSink structure;
        StructureCheck reading(document, Milliseconds ? structure : sink);
        reading.Run();
        if (reading.Form() < 0)
            return;
        const FormModel form(document, reading.Form());
        if (Milliseconds && !document.IsWhole())
            return;
        if (!Milliseconds)
            CheckForm(form, sink);
        else if (reading.IsCut())
            sink.Add(Code::ScriptNotRun, document.PlaceOf(form.Script < 0 ? form.Form : form.Script),
                QStringLiteral("The script is not run before the definition can be read to its end"));
        else
            RunForm(form, Milliseconds, Watch, sink);
    }

    void ComponentList(const Document &list, FindingSink &sink) const
    {
        bool found = false;
        QSet<QString> names;
        ForEachDefinition(list, [&](int value, const QString &component) {
            found = true;
            if (names.contains(component) && !component.isEmpty() && !Milliseconds)
                sink.Add(Code::ComponentDoubled, list.PlaceOf(value),
                    QStringLiteral("Another form stands under the name \"%1\"").arg(component));
            names.insert(component);
            Component(list, value, component, sink);
            return false;
        });
        if (!Milliseconds)
            CheckIds(list, sink);
        if (!found && !Milliseconds)
            sink.Add(Code::FormMissing, 0, QStringLiteral("There is no ValueString with the id \"ORBEL\" in the list"));
    }

private:
    static void CheckIds(const Document &list, FindingSink &sink)
    {
        for (int i = 0; i < list.Elements().size(); ++i) {
            const QString id = list.AttributeOf(i, attribute::Id);
            const bool isOther = list.At(i).Name != element::ValueString && list.FindAttribute(i, attribute::Value);
            if (isOther && id == QLatin1String("ORBEL"))
                sink.Add(Code::ComponentId, list.PlaceOf(i),
                    QStringLiteral("Only a ValueString holds a form, not a \"%1\"").arg(list.At(i).Name));
            if (list.At(i).Name != element::ValueString || id == QLatin1String("ORBEL")
                || id.trimmed().compare(QLatin1String("ORBEL"), Qt::CaseInsensitive) != 0)
                continue;
            const int place = list.PlaceAt(list.FindAttribute(i, attribute::Id)->ValueFrom);
            sink.Add(Code::ComponentId, place, QStringLiteral("The id \"%1\" is not \"ORBEL\"").arg(id),
                {place, id, QStringLiteral("ORBEL")});
        }
    }

    /// Comments that end with a line in the file, but not where the script's own line does.
    static void CheckComments(const Document &list, const Document &definition, FindingSink &sink)
    {
        const FormModel form(definition, FormOf(definition));
        const ScriptSourceMap &script = form.GetScriptSource();
        const QString &code = script.Code();
        for (const int comment : LineComments(code)) {
            const int end
                = code.indexOf(QLatin1Char('\n'), comment) < 0 ? code.size() : code.indexOf(QLatin1Char('\n'), comment);
            for (int i = comment; i < end; ++i) {
                const QChar written = list.Text().at(script.PlaceOf(i));
                if (written != QLatin1Char('\n') || code.mid(i, end - i).trimmed().isEmpty())
                    continue;
                sink.Add(Code::ScriptSwallowed, script.PlaceOf(comment),
                    QStringLiteral("This comment does not end with its line, and swallows what stands behind"));
                break;
            }
        }
    }

    void Component(const Document &list, int element, const QString &component, FindingSink &sink) const
    {
        if (component.isEmpty() && !Milliseconds)
            sink.Add(Code::ComponentUnnamed, list.PlaceOf(element),
                QStringLiteral("The form stands in no Component with a name"));
        const Attribute *value = list.FindAttribute(element, attribute::Value);
        const Document definition(value ? list.ValueOf(*value) : PlacedText::AllAt(QString(), list.PlaceOf(element)));
        if (!definition.IsWhole() && !Milliseconds)
            TellMalformed(definition.PlaceOfError(), definition.ErrorText(), sink);
        else if (value)
            Definition(definition, sink);
        if (value && definition.IsWhole() && !Milliseconds)
            CheckComments(list, definition, sink);
    }

    int Milliseconds;
    Check::RunWatch Watch;
};

Findings Examine(const QByteArray &bytes, bool isList, const Examination &examination)
{
    const FileText file(bytes, isList ? FileText::AsBytes : FileText::AsForm);
    // Of bytes in another encoding than the declared one the library reads nothing.
    if (examination.IsRun() && !file.ErrorText().isEmpty())
        return {};
    const Document document(file.Source());
    FindingSink sink;
    if (!examination.IsRun())
        CheckXml(file, document, sink);
    // What is cut off makes much of the rest look wrong.
    if (sink.Has(Code::XmlMalformed))
        return sink.Sorted(file);
    if (isList)
        examination.ComponentList(document, sink);
    else
        examination.Definition(document, sink);
    return sink.Sorted(file);
}

/// Of what is found at one place of a template once for each item, the first.
Findings OncePerPlace(const Findings &findings)
{
    QHash<QString, int> counts;
    Findings first;
    QVector<QString> keys;
    for (const Finding &finding : findings) {
        const QString key = QStringLiteral("%1:%2 %3").arg(finding.Line).arg(finding.Column).arg(finding.Code);
        if (counts[key]++ > 0)
            continue;
        first.append(finding);
        keys.append(key);
    }
    for (int i = 0; i < first.size(); ++i) {
        const int others = counts.value(keys.at(i)) - 1;
        if (others > 0)
            first[i].Text += QStringLiteral(" (and %1 more like it in this repetition)").arg(others);
    }
    return first;
}

Findings ExamineTemplate(const QByteArray &bytes, const Examination &examination)
{
    const FileText file(bytes, FileText::AsForm);
    const Document source(file.Source());
    FindingSink sink;
    CheckXml(file, source, sink);
    if (!sink.Sorted(file).isEmpty())
        return examination.IsRun() ? Findings() : sink.Sorted(file);
    const TemplateExpansion expansion(file.Source(), sink);
    if (!sink.Sorted(file).isEmpty())
        return examination.IsRun() ? Findings() : sink.Sorted(file);
    const Document document(expansion.GetDefinition());
    if (!document.IsWhole() && !examination.IsRun())
        TellMalformed(document.PlaceOfError(), document.ErrorText(), sink);
    examination.Definition(document, sink);
    return OncePerPlace(sink.Sorted(file));
}

int LineOfScriptIn(const Document &document, const FileText &file, int line)
{
    const FormModel form(document, FormOf(document));
    return form.Script < 0 ? 1 : file.LineOf(form.GetScriptSource().PlaceOfLine(line));
}

template <class CheckFunction>
Findings ExamineAgainst(const QByteArray &bytes, const QByteArray &form, CheckFunction check)
{
    const FileText file(bytes);
    const Document document(file.Source());
    FindingSink sink;
    CheckXml(file, document, sink);
    const Document definition(FileText(form, FileText::AsForm).Source());
    const FormModel model(definition, FormOf(definition));
    if (model.Form >= 0)
        check(document, model, sink);
    return sink.Sorted(file);
}

} // namespace

Findings Check::Definition(const QByteArray &document)
{
    return Examine(document, false, Examination());
}

Findings Check::ComponentList(const QByteArray &document)
{
    return Examine(document, true, Examination());
}

Findings Check::Template(const QByteArray &document)
{
    return ExamineTemplate(document, Examination());
}

Findings Check::RunTemplate(const QByteArray &document, int milliseconds, const RunWatch &watch)
{
    return ExamineTemplate(document, Examination(qMax(1, milliseconds), watch));
}

Findings Check::Changed(const QByteArray &changed, const QByteArray &form)
{
    return ExamineAgainst(changed, form, CheckChange);
}

Findings Check::Parameters(const QByteArray &parameters, const QByteArray &form)
{
    return ExamineAgainst(parameters, form, CheckParameterDocument);
}

Findings Check::RunDefinition(const QByteArray &document, int milliseconds, const RunWatch &watch)
{
    return Examine(document, false, Examination(qMax(1, milliseconds), watch));
}

Findings Check::RunComponentList(const QByteArray &document, int milliseconds, const RunWatch &watch)
{
    return Examine(document, true, Examination(qMax(1, milliseconds), watch));
}

int Check::LineOfScript(const QByteArray &definition, int line)
{
    const FileText file(definition, FileText::AsForm);
    return LineOfScriptIn(Document(file.Source()), file, line);
}

int Check::LineOfScript(const QByteArray &list, const QString &component, int line)
{
    const FileText file(list);
    const Document document(file.Source());
    int place = 1;
    ForEachDefinition(document, [&](int value, const QString &name) {
        const Attribute *text = name == component ? document.FindAttribute(value, attribute::Value) : nullptr;
        if (text)
            place = LineOfScriptIn(Document(document.ValueOf(*text)), file, line);
        return text != nullptr;
    });
    return place;
}

bool Check::IsClean(const Findings &findings)
{
    return std::all_of(
        findings.cbegin(), findings.cend(), [](const Finding &finding) { return finding.Level == Severity::Note; });
}

QString Check::Explanations()
{
    return ExplainCodes();
}

} // namespace Orbel
