#include "commandoptions.h"

#include "failure.h"

#include "translationcenter.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QRegularExpression>

namespace Orbel
{

namespace
{

QCommandLineOption ComponentOption()
{
    return QCommandLineOption(QStringLiteral("component"),
        QStringLiteral("The form of a component list to take, by name or by number; needed when the list has several."),
        QStringLiteral("NAME"));
}

const QLatin1String Language("language");
const QLatin1String FormatOption("format");

} // namespace

void DefineFile(QCommandLineParser &parser)
{
    parser.addPositionalArgument(QStringLiteral("FILE"),
        QStringLiteral("A form definition, when its name ends in \".orbel\", a template (\".orbelt\"), or else a "
                       "component list."));
}

QStringList Arguments(const QCommandLineParser &parser, int most)
{
    QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        throw UsageFailure(QStringLiteral("a FILE is wanted"));
    if (arguments.size() > most)
        throw UsageFailure(QStringLiteral("there is one argument too many: \"%1\"").arg(arguments.at(most)));
    return arguments;
}

void DefineComponent(QCommandLineParser &parser)
{
    parser.addOption(ComponentOption());
}

void DefineLanguage(QCommandLineParser &parser)
{
    parser.addOption({Language,
        QStringLiteral(
            "The language of texts and numbers, as \"de\", in place of the system's. The texts of the form come "
            "from FORM_de.qm beside it."),
        QStringLiteral("LANG")});
}

void DefineFormat(QCommandLineParser &parser, const QStringList &words)
{
    parser.addOption({FormatOption, QStringLiteral("How to print it: %1.").arg(words.join(QLatin1String(", "))),
        QStringLiteral("KIND")});
}

QString Format(const QCommandLineParser &parser, const QStringList &words)
{
    const QString word = parser.isSet(FormatOption) ? parser.value(FormatOption) : words.constFirst();
    if (!words.contains(word))
        throw UsageFailure(
            QStringLiteral("--format is one of %1, not \"%2\"").arg(words.join(QLatin1String(", ")), word));
    return word;
}

bool IsLanguage(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^[a-z]{2,3}([_-][A-Z][A-Za-z]+)*$"));
    return form.match(text).hasMatch() && QLocale(text).language() != QLocale::C;
}

void SpeakLanguage(const QCommandLineParser &parser, const QString &path)
{
    if (parser.isSet(Language)) {
        const QString language = parser.value(Language);
        if (!IsLanguage(language))
            throw UsageFailure(QStringLiteral("there is no language \"%1\"; \"de\" is one").arg(language));
        QLocale::setDefault(QLocale(language));
    }
    const QFileInfo form(path);
    TranslationCenter &center = TranslationCenter::Instance();
    center.Register(form.completeBaseName());
    center.Register(QStringLiteral("qtbase"));
    center.AddDirectory(form.absolutePath());
    center.AddDirectory(QLibraryInfo::location(QLibraryInfo::TranslationsPath));
}

QString ComponentName(const QCommandLineParser &parser)
{
    return parser.value(ComponentOption());
}

} // namespace Orbel
