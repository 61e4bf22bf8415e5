#include "scriptcompleter.h"

#include <QRegularExpression>
#include <QScriptEngine>
#include <QScriptValueIterator>
#include <QStringListModel>

namespace Orbel
{

namespace
{

/// How many prototypes to look at.
constexpr int LongestChain = 10;

/// What stands before the last dot of the line's last expression, and the name behind it.
QPair<QString, QString> LastPartOf(const QString &line)
{
    static const QRegularExpression last(QStringLiteral("((?:[\\w$]+\\.)*)([\\w$]*)$"));
    const QRegularExpressionMatch match = last.match(line);
    return {match.captured(1), match.captured(2)};
}

} // namespace

ScriptCompleter::ScriptCompleter(QObject *parent) : QCompleter(parent), Names(new QStringListModel(this))
{
    setModel(Names);
}

void ScriptCompleter::Look(QScriptEngine *engine, const QString &line)
{
    Line = line;
    const QStringList candidates = engine ? Candidates(*engine, line) : QStringList();
    if (candidates != Names->stringList())
        Names->setStringList(candidates);
}

QStringList ScriptCompleter::Candidates(QScriptEngine &engine, const QString &line)
{
    QScriptValue value = engine.globalObject();
    for (const QString &name : LastPartOf(line).first.split(QLatin1Char('.'), Qt::SkipEmptyParts))
        value = value.property(name);
    static const QRegularExpression rightName(QStringLiteral("^[A-Za-z_$][\\w$]*$"));
    QStringList names;
    for (int i = 0; i < LongestChain && value.isObject(); ++i) {
        QScriptValueIterator member(value);
        while (member.hasNext()) {
            member.next();
            const QString name = member.name().section(QLatin1Char('('), 0, 0);
            if (rightName.match(name).hasMatch())
                names.append(name);
        }
        value = value.prototype();
    }
    names.removeDuplicates();
    names.sort();
    return names;
}

QStringList ScriptCompleter::splitPath(const QString &path) const
{
    return {LastPartOf(path).second};
}

QString ScriptCompleter::pathFromIndex(const QModelIndex &index) const
{
    return Line.chopped(LastPartOf(Line).second.size()) + QCompleter::pathFromIndex(index);
}

} // namespace Orbel
