#pragma once

#include "formsource.h"

#include <QStringList>
#include <QVariant>

namespace KV218
{
class OrbelDelegate;
}

namespace Orbel
{

/// Elements as they stand in documents.
class ElementText
{
public:
    /// The control as a definition states it, with those properties that have been tried out since: all that is stated,
    /// and of `tried` what the control has now.
    static QString OfDefinition(
        const FormSource::Widget &widget, const KV218::OrbelDelegate &control, const QStringList &tried);
    /// What the control writes into parameter documents; empty for nothing.
    static QString OfParameter(const KV218::OrbelDelegate &control);
    /// A value as definitions spell it.
    static QString Spell(const QVariant &value);
};

} // namespace Orbel
