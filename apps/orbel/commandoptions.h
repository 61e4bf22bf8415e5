#pragma once

#include <QStringList>

class QCommandLineParser;

namespace Orbel
{

/// What several subcommands have on their command lines.

/// Names of options that each defines for itself.
namespace Option
{
constexpr QLatin1String Changed("changed", 7);
constexpr QLatin1String Check("check", 5);
constexpr QLatin1String Json("json", 4);
constexpr QLatin1String Output("output", 6);
constexpr QLatin1String Params("params", 6);
} // namespace Option

/// Adds the argument FILE.
void DefineFile(QCommandLineParser &parser);
/// FILE and the words behind it. Throws a Failure unless there are one to `most`.
QStringList Arguments(const QCommandLineParser &parser, int most);

/// Adds the option --component, whose value ComponentName() gives, empty without it.
void DefineComponent(QCommandLineParser &parser);
QString ComponentName(const QCommandLineParser &parser);

/// Adds the option --format, one of these words.
void DefineFormat(QCommandLineParser &parser, const QStringList &words);
/// Its value, the first word without it. Throws a Failure for any other word.
QString Format(const QCommandLineParser &parser, const QStringList &words);

/// Adds the option --language.
void DefineLanguage(QCommandLineParser &parser);
/// Makes its value the language of the process, or leaves that of the system, and takes catalogues from the folder of
/// the form in `path`, as FORM_de.qm. Throws a Failure for a language that is none.
void SpeakLanguage(const QCommandLineParser &parser, const QString &path);
/// Whether the text names a language, as "de" or "de_CH".
bool IsLanguage(const QString &text);

} // namespace Orbel
