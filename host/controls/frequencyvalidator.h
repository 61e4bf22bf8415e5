#pragma once

#include <QValidator>

/// Tells a field whether the typed text is a frequency; any other may stand there while it is typed. Exported to
/// nobody.
class FrequencyValidator : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString &text, int &position) const override;

    /// What a field shows for a node's text, which is a number in Hz; any other text is shown as it is, and infinity
    /// and NaN not at all.
    static QString Shown(const QString &nodeText, const QLocale &locale, int leastPower = 0);
    /// What the node gets for a typed text; null for one that is no frequency.
    static QString ForNode(const QString &typed, const QLocale &locale);
};
