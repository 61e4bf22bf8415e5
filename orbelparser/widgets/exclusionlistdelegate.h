#pragma once

#include "orbeldelegate.h"

#include <QCoreApplication>

class ValueCommentedRangeMap;

namespace KV218
{

/// How a list of excluded ranges stands in parameter documents.
struct ExclusionListFormat {
    QLatin1String list; ///< The list's element where custom properties name no other.
    QLatin1String range;
    QLatin1String start;
    QLatin1String stop;
    int decimals;
    bool detailed; ///< Ranges carry their index, and frequencies their unit.
};

/// What objects with a list of excluded frequency ranges have in common: its place in parameter documents and its
/// reading and writing. They show nothing in the form themselves and are written whatever `generateParameterXml` says.
/// The custom property `customXmlTag` names the list's element; without custom properties it is the object name.
class ExclusionListDelegate : public OrbelDelegate
{
    Q_DECLARE_TR_FUNCTIONS(KV218::ExclusionListDelegate)

public:
    /// `format` outlives the object.
    ExclusionListDelegate(OrbelWidget *widget, const ExclusionListFormat &format);

    void GetXml(QXmlStreamWriter &writer) const override;
    /// Replaces the ranges in one transaction; without a node the element is left unread.
    void ReadXml(QXmlStreamReader &reader) override;
    void ParseProperties(QXmlStreamReader &reader, bool custom) override;
    /// One list of texts, a range each with its key, id and comment.
    QVariantList GetEdits() const override;
    void PutEdits(const QVariantList &values) override;
    QString SpellEdit(int index, const QVariant &value) const override;

protected:
    QVector<ValueBase *> GetNodes() const override;
    /// The node with the ranges; null without one, or once it is withdrawn.
    virtual ValueCommentedRangeMap *GetRanges() const = 0;

private:
    void WriteFrequency(QXmlStreamWriter &writer, const QString &name, double frequency) const;

    const ExclusionListFormat &Format;
};

} // namespace KV218
