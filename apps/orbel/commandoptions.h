#pragma once

#include <QString>

class QCommandLineParser;

/// What several subcommands have on their command lines.

/// Adds the argument FILE.
void DefineFile(QCommandLineParser &parser);
/// FILE and the words behind it. Throws a Failure unless there are one to `most`.
QStringList Arguments(const QCommandLineParser &parser, int most);

/// Adds the option --component, whose value ComponentName() gives, empty without it.
void DefineComponent(QCommandLineParser &parser);
QString ComponentName(const QCommandLineParser &parser);
