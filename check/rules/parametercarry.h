#pragma once

#include "checkexport.h"
#include "document.h"
#include "filetext.h"
#include "formmodel.h"

class QXmlStreamWriter;

namespace Orbel
{

/// Something of a parameter document that does not reach the new version of its form.
struct LostParameter {
    int Line; ///< In the document, from 1.
    int Column;
    QString Text; ///< One sentence, without a full stop.
};

/// A parameter document on its way from one version of a form to another. A value goes to the control of the same name,
/// or else to the one at the same place; of a choice, to the row of the same value, identifier or display name.
class ORBEL_CHECK_INTERNAL ParameterCarry
{
public:
    /// All as they stand in files.
    ParameterCarry(const QByteArray &parameters, const QByteArray &before, const QByteArray &after);

    /// The document for the new version.
    QString GetDocument() const;
    /// Told what the new version holds once it has read that: what it made of values is lost, too.
    void Compare(const QString &held);
    /// In the order of the document.
    QVector<LostParameter> GetLost() const;

private:
    /// A version of the form.
    struct Version {
        explicit Version(const QByteArray &bytes);
        FileText File;
        Document Text;
        FormModel Form;
    };
    /// A place in the parameter document: a control, and which of its elements.
    struct Leaf {
        const WidgetEntry *Widget = nullptr;
        int Turn = 0;
    };
    /// What goes to a place of the new document.
    struct Moved {
        QString Path;
        int Element; ///< In the old document.
        QString Text; ///< Of an element without children.
        QString ItemTag; ///< Of one with children what they are called now; empty for what they were called.
    };

    static QHash<QString, Leaf> LeavesOf(const FormModel &form);
    static QString PathOf(const WidgetEntry &widget, int turn);
    void Walk(int root);
    void Move(int element, const QString &path, const Leaf &leaf);
    bool MoveText(int element, const WidgetEntry &from, const WidgetEntry &to, Moved *moved);
    const WidgetEntry *HeirOf(const WidgetEntry &widget, const QString &path) const;
    void Lose(int element, const QString &text);
    void TellOther(int element, const QString &wanted, const QString &held, const QString &path);
    void CompareItems(const Moved &value, const Document &held, int place);
    static void WriteChildren(const Document &document, int element, const QString &itemTag, QXmlStreamWriter &writer);

    const FileText File;
    const Document Old;
    const Version Before;
    const Version After;
    QHash<QString, Leaf> NewLeaves;
    QVector<Moved> Values;
    QVector<QPair<int, LostParameter>> Lost;
};

} // namespace Orbel
