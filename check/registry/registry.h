#pragma once

#include "checkexport.h"

#include <QLatin1String>
#include <QString>
#include <QStringList>
#include <QVector>

struct QMetaObject;

namespace Orbel
{

/// How a property's text is read.
enum class ValueType {
    Bool,
    Int,
    Int64,
    UInt64,
    Double,
    Text,
    Other, ///< What a Qt property takes as it is; no text of a definition becomes one.
    AsValue, ///< Like the class's value; in rows only, the registry gives that type.
};

/// "Bool", "Int", "Int64", "UInt64", "Double", "String": the name of the value element that fits; empty for Other.
ORBEL_CHECK_INTERNAL QString NameOf(ValueType type);

/// What the library does with a property.
enum class PropertyUse {
    Read,
    Translated, ///< Read, and shown in the operator's language.
    Stored, ///< Kept for scripts and hosts; nothing in the library reads it.
};

struct PropertyInfo {
    QLatin1String name;
    ValueType type;
    const char *absent; ///< What counts when the definition leaves it out.
    const char *unit; ///< Empty when it has none.
    PropertyUse use;
    const char *meaning; ///< One sentence.
    const char *choices = ""; ///< The only sensible texts, separated by blanks; empty for any.
};

/// A signal, slot or invokable.
struct MemberInfo {
    const char *member; ///< Its name, for all of that name, or one signature as in ClassMembers.
    const char *meaning; ///< One sentence.
};

/// What a class has that mistakes can be made about.
enum Trait : unsigned {
    ekRow = 1, ///< Makes a row label from `labelText`.
    ekShown = 2, ///< Shows something of its own.
    ekWrites = 4, ///< Can write a parameter element.
    ekAlwaysWrites = 8, ///< Writes whatever `generateParameterXml` says.
    ekItems = 16, ///< Writes items, each named by `parameterListItemTag`.
    ekLimits = 32, ///< Has limits, a step and perhaps a factor.
    ekFreeProperties = 64, ///< A holder of properties that hosts and scripts choose.
    ekScriptOnly = 128, ///< Rarely needs a name: nothing refers to it.
    ekScanRanges = 256, ///< Shows scan ranges in labels of the form.
};

/// All control classes that share a delegate are the same control.
struct DelegateInfo {
    const char *delegate; ///< Name of the delegate, without its namespace.
    ValueType valueType;
    QLatin1String valueProperty; ///< Empty when no single property holds the value.
    unsigned traits;
    const char *shows; ///< What the operator sees, one sentence.
    const char *writes; ///< The parameter element it writes; empty when it writes none.
    const char *reads; ///< How that is read back.
    /// The element that is written when there are custom properties and customXmlTag is not one of them.
    const char *customTag = "";
    /// All on top of those of every class.
    QVector<PropertyInfo> properties = {};
    QVector<MemberInfo> members = {};
    QVector<const char *> cannot = {}; ///< What an author would expect in vain, one sentence each, in Markdown.
};

struct ClassInfo {
    const char *name;
    const DelegateInfo *delegate;
    const char *remark; ///< What differs from other names of the same delegate.
};

/// All that is known about the control classes, the sheet and their properties, from the rows of controlclasses.inc.
/// Feeds the checks, the schema, the reference and `orbel classes`.
class ORBEL_CHECK_INTERNAL Registry
{
public:
    /// In the order of the class table.
    static const QVector<ClassInfo> &Classes();
    /// Null for an unknown class.
    static const ClassInfo *FindClass(const QString &name);
    static QStringList ClassNames();

    /// Those that every class has.
    static const QVector<PropertyInfo> &CommonProperties();
    /// All properties of a class, those that every class has first.
    static QVector<PropertyInfo> PropertiesOf(const ClassInfo &info);
    /// Null when the class does not read it.
    static const PropertyInfo *FindProperty(const ClassInfo &info, const QString &name);
    static QStringList PropertyNames(const ClassInfo &info);

    /// What a signal, slot or invokable of a class does, one sentence; `signature` as in ClassMembers. An unknown class
    /// gives those of every control, an empty name those of the sheet. Empty for a member that it does not have.
    static QString MeaningOf(const QString &className, const QString &signature);
    /// What no control can do, and what the sheet cannot.
    static const QVector<const char *> &CommonCannot();
    static const QVector<const char *> &SheetCannot();
    /// Such sentences with the first one in bold.
    static QString Stressed(const char *sentences);

    static const QVector<PropertyInfo> &SheetProperties();
    static const PropertyInfo *FindSheetProperty(const QString &name);
    static QStringList SheetPropertyNames();

    /// Signals, slots and invokables of a class as scripts see them; an unknown name gives those of every control, an
    /// empty one those of the sheet. Needs a QCoreApplication.
    static const QMetaObject *MetaObjectOf(const QString &className);
};

} // namespace Orbel
