#include "paramscommand.h"

#include "commandoptions.h"
#include "elementnames.h"
#include "inputfile.h"
#include "messages.h"
#include "nearestnames.h"
#include "orbeldelegate.h"
#include "parametercarry.h"
#include "propertynames.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QWidget>
#include <QXmlStreamReader>

#include <memory>

namespace Orbel
{

namespace
{

const QLatin1String SetOption("set");
const QLatin1String OnlyModified("only-modified");
const QLatin1String From("from");
const QLatin1String To("to");

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

/// A text as a value of a control: of several, an array of JSON.
QVariant ValueOf(const QString &text)
{
    const QJsonDocument array = QJsonDocument::fromJson(text.toUtf8());
    return array.isArray() ? QVariant(array.array().toVariantList()) : QVariant(text);
}

/// The value behind a row's display name, or behind what a switch writes; a null text when there is none.
QString ValueBehind(const KV218::OrbelFormular &form, const KV218::OrbelDelegate &control, const QString &name)
{
    if (name == control.GetString(KV218::prop::CheckedValue, QString()))
        return QStringLiteral("true");
    if (name == control.GetString(KV218::prop::UncheckedValue, QString()))
        return QStringLiteral("false");
    const QString enumName = control.GetString(KV218::prop::EnumName, QString());
    if (!form.HasEnum(enumName))
        return QString();
    const auto rows = form.GetEnum(enumName);
    for (int i = 0; i < rows->GetValueCount(); ++i) {
        if (rows->GetValueAt(i).GetDisplayName() == name)
            return rows->GetValueAt(i).GetValue();
    }
    return QString();
}

/// Malformed documents say where.
QByteArray ReadWhole(const QString &path)
{
    const QByteArray document = ReadFile(path);
    QXmlStreamReader reader(document);
    while (!reader.atEnd())
        reader.readNext();
    if (reader.hasError())
        throw InputFailure(path, ErrorText(reader));
    return document;
}

} // namespace

void ParamsCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral(
        "Prints the parameter document of a form: reads the definition, runs its script, builds the controls,\n"
        "reads a parameter document, sets values one after the other, applies a changed definition, and prints\n"
        "what the form then holds. What the form's script prints goes to standard error.\n"
        "With --from and --to, FILE is a parameter document of the one version of a form; prints the document of the\n"
        "other, tells on standard error what was lost on the way, and ends with 1 then. Of component lists,\n"
        "--component names the form."));
    DefineFile(parser);
    parser.addOptions({
        {Option::Params, QStringLiteral("A parameter document to read first."), QStringLiteral("DOC.xml")},
        {SetOption,
            QStringLiteral(
                "Gives the control at a parameter path, or with that element name, a value as in documents; of a "
                "choice also its display name, of a list an array as [1,2]. May be repeated."),
            QStringLiteral("PATH=TEXT")},
        {Option::Changed, QStringLiteral("A changed definition to apply then."), QStringLiteral("FILE")},
        {OnlyModified, QStringLiteral("Prints just what was modified, and nothing when nothing was.")},
        {From, QStringLiteral("The version of the form that FILE belongs to."), QStringLiteral("A")},
        {To, QStringLiteral("The version of the form that is to have its values."), QStringLiteral("B")},
    });
    DefineComponent(parser);
}

int ParamsCommand::Run(const QCommandLineParser &parser)
{
    if (parser.isSet(From) || parser.isSet(To))
        return Carry(parser);
    Path = Arguments(parser, 1).constFirst();
    const FormFile file(Path);
    const FormFile::Form form = file.Parse(ComponentName(parser));
    form->CreateValueTree(QStringLiteral("/Form"));
    form->CreateGUI(true);
    const std::unique_ptr<QWidget> gui(form->GetGUI());
    if (parser.isSet(Option::Params))
        form->SetXmlString(ReadDocument(parser.value(Option::Params), RootTag(*form)));
    for (const QString &assignment : parser.values(SetOption))
        Set(*form, assignment);
    if (parser.isSet(Option::Changed))
        form->SetChangedORBEL(ReadDocument(parser.value(Option::Changed), KV218::element::Form));
    WriteDocument(form->GetXmlString(parser.isSet(OnlyModified)));
    return file.GetStatus();
}

int ParamsCommand::Carry(const QCommandLineParser &parser)
{
    if (!parser.isSet(From) || !parser.isSet(To) || parser.isSet(Option::Params) || parser.isSet(SetOption)
        || parser.isSet(Option::Changed) || parser.isSet(OnlyModified))
        throw UsageFailure(QStringLiteral("--from and --to go together, and without other options"));
    const QStringList arguments = parser.positionalArguments();
    const QString path = arguments.value(0, QStringLiteral("-"));
    if (arguments.size() > 1)
        throw UsageFailure(QStringLiteral("there is one argument too many: \"%1\"").arg(arguments.at(1)));
    const QByteArray document = ReadWhole(path);
    const FormFile former(parser.value(From));
    const FormFile later(parser.value(To));
    const QString component = ComponentName(parser);
    ParameterCarry carry(document, former.GetDefinition(component), later.GetDefinition(component));
    const FormFile::Form form = later.Parse(later.IsList() ? component : QString());
    form->CreateValueTree(QStringLiteral("/Form"));
    form->CreateGUI(true);
    const std::unique_ptr<QWidget> gui(form->GetGUI());
    form->SetXmlString(carry.GetDocument());
    const QString held = form->GetXmlString(false);
    carry.Compare(held);
    WriteDocument(held);
    for (const LostParameter &lost : carry.GetLost())
        Complain(PlaceIn(path, lost.Line, lost.Column) + QLatin1String(": ") + lost.Text);
    return carry.GetLost().isEmpty() ? qMax(former.GetStatus(), later.GetStatus()) : ekInputAtFault;
}

void ParamsCommand::Set(KV218::OrbelFormular &form, const QString &assignment) const
{
    const int equals = assignment.indexOf(QLatin1Char('='));
    if (equals < 0)
        throw UsageFailure(QStringLiteral("--set wants PATH=TEXT, not \"%1\"").arg(assignment));
    const QString path = assignment.left(equals);
    const QString text = assignment.mid(equals + 1);
    const auto widget = form.GetSheet().GetWidget(path);
    if (KV218::OrbelDelegate *const control = widget ? widget->GetDelegate() : nullptr) {
        const KV218::OrbelDelegate::Call call(control);
        QString reason;
        const QString behind = ValueBehind(form, *control, text);
        if (control->EnterValue(ValueOf(text), &reason) || control->EnterValue(text, nullptr)
            || (!behind.isNull() && control->EnterValue(behind, nullptr)))
            return;
        throw UsageFailure(QStringLiteral("%1: --set %2: %3").arg(Path, assignment, reason));
    }
    throw UsageFailure(QStringLiteral("%1: there is no value at \"%2\"; nearest: %3")
                           .arg(Path, path, QuotedNames(NearestNames(path, ValuePaths(form.GetSheet()), 3))));
}

} // namespace Orbel
