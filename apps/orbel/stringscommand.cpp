#include "stringscommand.h"

#include "commandoptions.h"
#include "formfile.h"
#include "formtexts.h"
#include "textcatalogue.h"

#include <climits>
#include <cstdio>
#include <QCommandLineParser>
#include <QFileInfo>

namespace Orbel
{

namespace
{

QString OutputPath(const QCommandLineParser &parser)
{
    const QString path = parser.value(Option::Output);
    if (!path.endsWith(QLatin1String(".ts")))
        throw UsageFailure(QStringLiteral("a file of translations is wanted: -o FILE.ts"));
    return path;
}

/// A name that ends as "_de.ts" tells the language; empty for another.
QString LanguageOf(const QString &path)
{
    const QString name = QFileInfo(path).completeBaseName();
    for (int from = name.indexOf(QLatin1Char('_')); from >= 0; from = name.indexOf(QLatin1Char('_'), from + 1)) {
        const QString language = name.mid(from + 1);
        if (IsLanguage(language))
            return language;
    }
    return QString();
}

} // namespace

void StringsCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral(
        "Writes the texts that forms show into a file for Qt Linguist. Translations that the file has already stay;\n"
        "those of texts that are gone are marked as vanished. A name as FORM_de.ts tells the language."));
    parser.addPositionalArgument(QStringLiteral("FILE..."),
        QStringLiteral("Form definitions, whose names end in \".orbel\", and component lists."),
        QStringLiteral("FILE..."));
    parser.addOption(
        {{QStringLiteral("o"), Option::Output}, QStringLiteral("The file to write."), QStringLiteral("FILE.ts")});
}

int StringsCommand::Run(const QCommandLineParser &parser)
{
    const QStringList forms = Arguments(parser, INT_MAX);
    const QString path = OutputPath(parser);
    TextCatalogue catalogue(path);
    catalogue.SetLanguage(LanguageOf(path));
    for (const QString &form : forms) {
        // Half of a form would take the texts of the other half for gone.
        const FormFile file(form);
        if (file.GetStatus() != ekFine)
            throw InputFailure(form, QStringLiteral("it must be whole; nothing is written"));
        for (const FormText &text : TextsOf(file.GetBytes(), file.IsList()))
            catalogue.Add(text.Context, text.Source, form, text.Line);
    }
    catalogue.Write();
    std::printf("%s: %s\n", qPrintable(path), qPrintable(catalogue.Summary()));
    return ekFine;
}

} // namespace Orbel
