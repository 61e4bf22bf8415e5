#include "owntooltips.h"

#include "formlimits.h"

#include <QCoreApplication>

#include <utility>

namespace KV218
{

QString TranslateOf(const QString &objectName, const QString &text)
{
    if (text.isEmpty())
        return QString();
    const QByteArray source = text.left(limit::ShownText).toUtf8();
    return QCoreApplication::translate(objectName.toUtf8().constData(), source.constData());
}

QString OwnToolTips::Text::InLanguage(const QString &objectName) const
{
    const QString translated
        = Context ? QCoreApplication::translate(Context, Source.toUtf8().constData()) : TranslateOf(objectName, Source);
    return Head + translated + Tail;
}

OwnToolTips::Text OwnToolTips::WithBounds(const QString &label, const QString &lowest, const QString &highest)
{
    const bool bounded = !lowest.isEmpty() || !highest.isEmpty();
    const QString bounds = bounded ? QLatin1String("<br>") + lowest + QLatin1String("...") + highest : QString();
    // The opening tag makes Qt show it as rich text.
    return {label, QStringLiteral("<html>"), bounds};
}

void OwnToolTips::Set(QWidget *widget, const Text &text, const QString &objectName)
{
    // Given again, it is the only one or the last; an older entry would stand aside, since its text shows no more.
    if (Entries.isEmpty() || Entries.last().Widget != widget)
        Entries.append({widget, {}, {}});
    const QString shown = text.InLanguage(objectName);
    Entries.last().Source = text;
    Entries.last().Shown = shown;
    widget->setToolTip(shown);
}

void OwnToolTips::Replace(const QString &former, const QString &now, const QString &objectName)
{
    for (Entry &entry : Entries) {
        if (entry.Source.Source == former)
            entry.Source.Source = now;
    }
    Retranslate(objectName);
}

void OwnToolTips::Retranslate(const QString &objectName)
{
    // By index: a host that watches a widget's tooltip may change its bounds, and so its tooltip.
    // NOLINTNEXTLINE(modernize-loop-convert)
    for (int i = 0; i < Entries.size(); ++i) {
        const QPointer<QWidget> widget = Entries.at(i).Widget;
        const QString text = Entries.at(i).Source.InLanguage(objectName);
        const QString former = std::exchange(Entries[i].Shown, text);
        if (widget && text != former && widget->toolTip() == former)
            widget->setToolTip(text);
    }
}

} // namespace KV218
