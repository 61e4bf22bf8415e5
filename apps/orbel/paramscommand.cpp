#include "paramscommand.h"

#include "commandoptions.h"
#include "elementnames.h"
#include "inputfile.h"
#include "messages.h"
#include "nearestnames.h"
#include "orbeldelegate.h"

#include <QCommandLineParser>
#include <QScriptEngine>
#include <QWidget>
#include <QXmlStreamReader>

#include <memory>

namespace Orbel
{

namespace
{

const QLatin1String Params("params");
const QLatin1String SetOption("set");
const QLatin1String Changed("changed");
const QLatin1String OnlyModified("only-modified");

/// The parameter paths of the controls that hold a value.
QStringList ValuePaths(const KV218::OrbelSheet &sheet)
{
    QStringList paths;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const KV218::OrbelDelegate *delegate = sheet.GetWidgetAt(i)->GetDelegate();
        if (delegate->GetVTValue())
            paths.append(delegate->GetXmlPath());
    }
    return paths;
}

QString RootTag(const KV218::OrbelFormular &form)
{
    QXmlStreamReader empty(form.GetEmptyXmlElement());
    empty.readNextStartElement();
    return empty.name().toString();
}

/// Tells of exceptions in the script's handlers, which go nowhere by themselves.
void TellScriptExceptions(const KV218::OrbelFormular &form, const QString &path)
{
    const QScriptEngine *engine = form.GetScriptValues().value(QStringLiteral("Object")).engine();
    QObject::connect(engine, &QScriptEngine::signalHandlerException, &form, [path](const QScriptValue &exception) {
        Complain(QStringLiteral("%1: script: %2").arg(path, exception.toString()));
    });
}

} // namespace

void ParamsCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral(
        "Prints the parameter document of a form: reads the definition, runs its script, builds the controls,\n"
        "reads a parameter document, sets values one after the other, applies a changed definition, and prints\n"
        "what the form then holds. What the form's script prints goes to standard error."));
    DefineFile(parser);
    parser.addOptions({
        {Params, QStringLiteral("A parameter document to read first."), QStringLiteral("DOC.xml")},
        {SetOption,
            QStringLiteral(
                "Gives the control at a parameter path, or with that element name, a value; may be repeated."),
            QStringLiteral("PATH=TEXT")},
        {Changed, QStringLiteral("A changed definition to apply then."), QStringLiteral("FILE")},
        {OnlyModified, QStringLiteral("Prints just what was modified, and nothing when nothing was.")},
    });
    DefineComponent(parser);
}

int ParamsCommand::Run(const QCommandLineParser &parser)
{
    Path = Arguments(parser, 1).constFirst();
    const FormFile file(Path);
    const FormFile::Form form = file.Parse(ComponentName(parser));
    TellScriptExceptions(*form, Path);
    form->CreateValueTree(QStringLiteral("/Form"));
    form->CreateGUI(true);
    const std::unique_ptr<QWidget> gui(form->GetGUI());
    if (parser.isSet(Params))
        form->SetXmlString(ReadDocument(parser.value(Params), RootTag(*form)));
    for (const QString &assignment : parser.values(SetOption))
        Set(*form, assignment);
    if (parser.isSet(Changed))
        form->SetChangedORBEL(ReadDocument(parser.value(Changed), KV218::element::Form));
    WriteDocument(form->GetXmlString(parser.isSet(OnlyModified)));
    return file.GetStatus();
}

void ParamsCommand::Set(KV218::OrbelFormular &form, const QString &assignment) const
{
    const int equals = assignment.indexOf(QLatin1Char('='));
    if (equals < 0)
        throw UsageFailure(QStringLiteral("--set wants PATH=TEXT, not \"%1\"").arg(assignment));
    const QString path = assignment.left(equals);
    if (form.GetVTValue(path)) {
        form.SetVTValue(path, assignment.mid(equals + 1), nullptr, false);
        return;
    }
    throw UsageFailure(QStringLiteral("%1: there is no value at \"%2\"; nearest: %3")
                           .arg(Path, path, QuotedNames(NearestNames(path, ValuePaths(form.GetSheet()), 3))));
}

} // namespace Orbel
