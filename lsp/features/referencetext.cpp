#include "referencetext.h"

#include "propertynames.h"

namespace Orbel
{

namespace
{

QString Utf8(const char *text)
{
    return QString::fromUtf8(text);
}

QString Code(const QString &text)
{
    return QLatin1Char('`') + text + QLatin1Char('`');
}

/// A line of a list, unless there is nothing to tell.
QString Line(const char *title, const QString &text)
{
    return text.isEmpty() ? QString() : QStringLiteral("\n- %1: %2").arg(Utf8(title), text);
}

QString Kind(ScriptMember::Kind kind)
{
    switch (kind) {
    case ScriptMember::Signal:
        return QStringLiteral("Signal");
    case ScriptMember::Slot:
        return QStringLiteral("Slot");
    case ScriptMember::Invokable:
        return QStringLiteral("Invokable");
    case ScriptMember::Property:
        break;
    }
    return QStringLiteral("Property");
}

} // namespace

QString TextOf(const ElementInfo &element)
{
    return QStringLiteral("**%1**\n\n%2").arg(element.name, Utf8(element.meaning));
}

QString TextOf(const ClassInfo &info)
{
    const DelegateInfo &delegate = *info.delegate;
    QString text = QStringLiteral("**%1**\n\n%2 %3\n").arg(Utf8(info.name), Utf8(delegate.shows), Utf8(info.remark));
    if (!delegate.valueProperty.isEmpty())
        text += Line("Value property", Code(delegate.valueProperty));
    text += Line("Writes", Utf8(delegate.writes)) + Line("Reads", Utf8(delegate.reads));
    for (const char *sentence : delegate.cannot)
        text += QLatin1String("\n- ") + Registry::Stressed(sentence);
    return text;
}

QString TextOf(const PropertyInfo &property)
{
    QString choices = Utf8(property.choices);
    if (!choices.isEmpty())
        choices = Code(choices.replace(QLatin1Char(' '), QLatin1String("`, `")));
    const QString type = NameOf(property.type);
    return QStringLiteral("**%1** %2\n\n%3\n").arg(property.name, type, Utf8(property.meaning))
        + Line("When absent", Utf8(property.absent)) + Line("Unit", Utf8(property.unit)) + Line("One of", choices)
        + (property.use == PropertyUse::Stored ? QStringLiteral("\n- Only stored, for scripts and hosts") : QString());
}

QString TextOf(const ScriptMember &member)
{
    return QStringLiteral("%1 %2\n\n%3").arg(Kind(member.What), Code(member.Signature), member.Meaning).trimmed();
}

QString TextOf(const EnumRow &row, const EnumEntry &entry)
{
    return QStringLiteral("%1: %2, shown as \"%3\"")
        .arg(Code(entry.Name + QLatin1Char('.') + row.Identifier), Code(row.Value), row.DisplayName);
}

QString TextOf(const EnumEntry &entry)
{
    constexpr int MostRows = 20;
    QString text = QStringLiteral("Enumeration **%1**\n").arg(entry.Name);
    for (const EnumRow &row : entry.Rows.mid(0, MostRows))
        text += QLatin1String("\n- ") + TextOf(row, entry);
    return entry.Rows.size() > MostRows ? text + QLatin1String("\n- and others") : text;
}

QString TextOf(const WidgetEntry &widget)
{
    const QString label = widget.TextOf(KV218::prop::LabelText);
    QString text = QStringLiteral("**%1** %2\n").arg(widget.Name, Code(widget.Class)) + Line("Label", label);
    if (widget.Writes())
        text += Line("Parameter", Code(widget.ParameterPath()));
    return widget.Info ? text + QStringLiteral("\n\n") + Utf8(widget.Info->delegate->shows) : text;
}

} // namespace Orbel
