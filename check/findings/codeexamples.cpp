#include "codeexamples.h"

#include <QHash>
#include <QRegularExpression>

namespace Orbel
{

namespace
{

/// %1 is the script.
const char FrameOfScripts[] = R"(<ZkParamGui version="1">
  <Enums>
    <Enum name="Mode">
      <EnumValue><DisplayName>AM</DisplayName><EnumIdentifier>AM</EnumIdentifier><Value>am</Value></EnumValue>
      <EnumValue><DisplayName>FM</DisplayName><EnumIdentifier>FM</EnumIdentifier><Value>fm</Value></EnumValue>
    </Enum>
  </Enums>
  <Sheet name="sheet">
    <Widget name="levels" class="Headline"><Property name="text"><String>Levels</String></Property></Widget>
    <Widget name="gain" class="SpinBox">
      <Property name="value"><Int>10</Int></Property>
      <Property name="minimum"><Int>0</Int></Property>
      <Property name="maximum"><Int>60</Int></Property>
      <Property name="generateParameterXml"><Bool>true</Bool></Property>
    </Widget>
    <Widget name="level" class="SpinBox">
      <Property name="value"><Int>20</Int></Property>
    </Widget>
    <Widget name="mute" class="CheckBox">
      <Property name="checked"><Bool>false</Bool></Property>
    </Widget>
    <Widget name="mode" class="ComboBox">
      <Property name="enumName"><String>Mode</String></Property>
    </Widget>
    <Widget name="shifts" class="SpinBoxList">
      <Property name="itemCount"><Int>3</Int></Property>
    </Widget>
  </Sheet>
  <Script><![CDATA[
%1
]]></Script>
</ZkParamGui>
)";

/// Whether a piece is a whole document of whatever kind.
bool IsDocument(const QString &piece)
{
    static const QRegularExpression part(
        QStringLiteral("\\A<(Widget|Properties|CustomProperties|Enums|Script|Repeat|!--)"));
    return piece.startsWith(QLatin1Char('<')) && !part.match(piece).hasMatch();
}

QString Block(const QString &piece)
{
    const QLatin1String language(piece.startsWith(QLatin1Char('<')) ? "xml" : "js");
    return QStringLiteral("```%1\n%2\n```\n").arg(language, piece);
}

} // namespace

CodeExample ExampleOf(Code code)
{
    static const QHash<int, CodeExample> examples = {
#define ORBEL_EXAMPLE(constant, broken, mended) {int(Code::constant), {QStringLiteral(broken), QStringLiteral(mended)}},
#include "codeexamples.inc"
    };
    return examples.value(int(code));
}

QString ExampleForm(const QString &script)
{
    return QString::fromLatin1(FrameOfScripts).replace(QLatin1String("%1"), script);
}

QString ExampleDocument(const QString &piece)
{
    if (!piece.startsWith(QLatin1Char('<')))
        return ExampleForm(piece);
    if (IsDocument(piece))
        return piece;
    static const QRegularExpression besides(
        QStringLiteral("<(Enums|Script)>.*?</\\1>"), QRegularExpression::DotMatchesEverythingOption);
    QString rest;
    for (auto match = besides.globalMatch(piece); match.hasNext();)
        rest += match.next().captured();
    return QStringLiteral("<ZkParamGui version=\"1\"><Sheet name=\"sheet\">%1</Sheet>%2</ZkParamGui>")
        .arg(QString(piece).remove(besides), rest);
}

QString Explain(Code code)
{
    const CodeExample example = ExampleOf(code);
    return QString::fromUtf8(InfoOf(code).explanation) + QStringLiteral("\n\n") + Block(example.Broken)
        + QStringLiteral("\nMended:\n\n") + Block(example.Mended);
}

QString ExplainCodes()
{
    QString page
        = QStringLiteral("# What `orbel check` finds\n\n"
                         "Each finding ends with its code. Errors and warnings give the exit status 1; notes do "
                         "not. Each code has an example with the mistake, and behind it one without; where only "
                         "one thing can be meant, editors offer the mended one.\n\n"
                         "Of the 517 mistakes in `tests/corpus` it finds 507, and blames none of the 175 forms there "
                         "that are odd but right; a test keeps that. Half of them were written down before the "
                         "checker had seen any of that half, and it found 198 of those 258 then (77 %).\n\n"
                         "| Code | Weight |\n|---|---|\n");
    QString sections;
    for (int i = 0; i < AllCodes().size(); ++i) {
        const QLatin1String name(AllCodes().at(i).name);
        page += QStringLiteral("| [`%1`](#%1) | %2 |\n").arg(name, NameOf(AllCodes().at(i).severity));
        sections += QStringLiteral("\n## %1\n\n").arg(name) + Explain(Code(i));
    }
    return page + sections
        + QStringLiteral(
            "\n## The form of the examples\n\n"
            "Scripts, parameter documents and changed definitions of the examples belong to this form:\n\n")
        + Block(ExampleForm(QStringLiteral("// the script")).trimmed());
}

} // namespace Orbel
