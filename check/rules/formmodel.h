#pragma once

#include "document.h"
#include "registry.h"
#include "scriptsourcemap.h"
#include "scriptusage.h"

#include <memory>

namespace Orbel
{

struct ORBEL_CHECK_INTERNAL PropertyEntry {
    QString Name;
    QString Type; ///< Name of the value element; empty without one.
    QString Text;
    int Element;
    int ValueElement; ///< -1 without one.
    bool IsCustom;

    /// What the property is once it is read: a Bool is true for "true" alone, any other text as Qt converts it.
    bool IsTrue() const;
    bool IsBool() const;
};

struct ORBEL_CHECK_INTERNAL WidgetEntry {
    QString Name; ///< Made up by the class and the place when none is stated.
    bool IsNamed;
    QString Class;
    const ClassInfo *Info; ///< Null for an unknown class.
    int Element;
    QVector<PropertyEntry> Properties;
    bool HasCustomList; ///< Also an empty one.

    /// The last statement of a property that is not custom; null without one. A custom toolTip counts.
    const PropertyEntry *Find(QLatin1String name) const;
    bool States(QLatin1String name) const { return Find(name); }
    bool IsTrue(QLatin1String name) const;
    QString TextOf(QLatin1String name) const;
    bool Has(unsigned trait) const { return Info && (Info->delegate->traits & trait); }
    /// Whether it writes a parameter element, as the definition has it.
    bool Writes() const;
    /// Its place in the parameter document.
    QString ParameterPath() const;
    /// The last part of that: the name by which look-ups find it.
    QString ParameterTag() const;
    /// The element names that are read into it, the one that it writes first.
    QStringList ReadTags() const;
};

struct EnumRow {
    QString DisplayName;
    QString Identifier;
    QString Value;
    int Element;
    int IdentifierElement;
    int ValueElement;
};

struct EnumEntry {
    QString Name;
    int Element;
    QVector<EnumRow> Rows;
    QSet<QString> Values;
};

/// A form as its author meant it: all enumerations, widgets and scripts of the definition, also those that the library
/// does not reach because of a mistake before them, so that one mistake does not hide another.
class ORBEL_CHECK_INTERNAL FormModel
{
public:
    /// `form` is the element of the form.
    FormModel(const Document &document, int form);

    const Document &Doc;
    const int Form;
    QVector<WidgetEntry> Widgets;
    QVector<EnumEntry> Enums;
    QVector<PropertyEntry> SheetProperties;
    QVector<int> Sheets;
    int Script = -1; ///< The last one; -1 without any.

    const PropertyEntry *FindSheetProperty(const QString &name, bool custom) const;
    const EnumEntry *FindEnum(const QString &name) const;
    const WidgetEntry *FindWidget(const QString &name) const;
    QStringList EnumNames() const { return EnumIndex.keys(); }
    QStringList WidgetNames() const { return WidgetIndex.keys(); }
    /// Whether the script uses a property or function of the name. What the script speaks of may be made there.
    bool ScriptSpeaksOf(const QString &member) const { return Usage.SpeaksOf(member); }
    /// Whether the script may call `member` on this widget.
    bool ScriptMayCall(const WidgetEntry &widget, const char *member) const;
    /// The same while the script itself runs, and not only in a handler.
    bool ScriptMayCallAtStart(const WidgetEntry &widget, const char *member) const;
    /// The script with the places of its characters, empty without a script.
    const ScriptSourceMap &GetScriptSource() const { return Source; }
    /// The script's tree, empty without a script.
    const ScriptTree &GetScriptTree() const { return *Tree; }
    const ScriptBindings &GetScriptBindings() const { return *Bindings; }
    /// Name of the parameter document's root element.
    QString RootTag() const;

private:
    void AddParts(int form);
    void AddWidget(int element);
    void AddEnum(int element);
    void AddSheet(int element);
    void CollectProperties(int list, QVector<PropertyEntry> &properties) const;
    PropertyEntry ReadProperty(int element, bool custom) const;

    QHash<QString, int> EnumIndex;
    QHash<QString, int> WidgetIndex;
    ScriptSourceMap Source;
    std::shared_ptr<const ScriptTree> Tree;
    std::shared_ptr<const ScriptBindings> Bindings;
    ScriptUsage Usage;
};

} // namespace Orbel
