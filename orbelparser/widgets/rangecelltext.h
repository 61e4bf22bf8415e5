#pragma once

#include <QLocale>
#include <QString>

namespace KV218
{

/// How the cells of a table of frequency ranges are read and spelled. A number without a unit is in the table's own
/// unit; one letter anywhere in a text tells another one.
class RangeCellText
{
public:
    /// `unit` is Hz per unit of the table: a power of 1000 up to 1e9. `locale` is the one that the operator sees.
    RangeCellText(double unit, const QLocale &locale) : UnitHertz(unit), Locale(locale) { }

    /// The frequency in Hz: 0 for a text that holds no number.
    double Read(const QString &text) const;
    /// Whether a field for frequencies would read the text the same way.
    bool IsReadAsMeant(const QString &text) const;
    /// The text of a cell: "1000.5 kHz".
    QString Spell(double hertz) const;
    /// What is drawn and told of it: "1 000.500 kHz".
    QString SpellAsFields(double hertz) const;

private:
    /// The power of ten, in Hz, of the table's own unit.
    int OwnPower() const;

    double UnitHertz;
    QLocale Locale;
};

} // namespace KV218
