// Members of enumerations, texts and arrays that these do not have.

#include "editdistance.h"
#include "scriptstudy.h"

namespace Orbel
{

namespace
{

class MemberCheck
{
public:
    explicit MemberCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::Item))
                CheckEnumItem(i);
            else if (Tree.Is(i, Node::Member))
                CheckBuiltin(i);
        }
    }

private:
    void CheckEnumItem(int item)
    {
        const EnumEntry *rows = Study.EnumOf(Tree.Part(item, 0));
        const int key = Tree.Part(item, 1);
        const QString name = rows && Tree.Is(key, Node::QuotedText) ? Study.ConstantOf(key) : QString();
        QStringList names;
        for (const EnumRow &row : rows ? rows->Rows : QVector<EnumRow>())
            names.append(row.Identifier);
        if (!name.isNull() && !names.contains(name) && !Study.IsAssigned(item))
            Study.Sink.AddMisspelt(Code::ScriptChoice, Study.PlaceOf(key) + 1,
                QStringLiteral("\"%1\" has no \"%2\"").arg(rows->Name, name), name, names);
    }

    /// Misspelt members of texts and arrays, where the script makes no such name itself.
    void CheckBuiltin(int member)
    {
        const int object = Tree.Part(member, 0);
        const QString &name = Tree.At(member).Text;
        static const QStringList known{QStringLiteral("length"), QStringLiteral("indexOf"), QStringLiteral("charAt"),
            QStringLiteral("substring"), QStringLiteral("substr"), QStringLiteral("replace"), QStringLiteral("split"),
            QStringLiteral("toFixed"), QStringLiteral("toString"), QStringLiteral("toUpperCase"),
            QStringLiteral("toLowerCase"), QStringLiteral("concat"), QStringLiteral("forEach"),
            QStringLiteral("filter"), QStringLiteral("slice"), QStringLiteral("splice"), QStringLiteral("reverse")};
        if (name.size() < 4 || known.contains(name) || Study.ClassOf(object) || Study.EnumOf(object)
            || Study.IsGuarded(member) || Study.IsAssigned(member) || Study.MakesMember(name))
            return;
        const auto asked = Meant.constFind(name);
        const QString meant = asked != Meant.constEnd() ? *asked : *Meant.insert(name, NearestName(name, known));
        const bool isKnown = Tree.Is(object, Node::Name) && !Study.Bindings.At(object).IsMade;
        // Data have their filters and lengths.
        const bool isMany = name == meant + QLatin1Char('s');
        if (!meant.isEmpty() && EditDistance(name.toLower(), meant.toLower()) <= 1 && !isKnown && !isMany)
            Study.Sink.AddMisspelt(Code::ScriptMember, Study.PlaceOf(member),
                QStringLiteral("Neither texts nor arrays have \"%1\"").arg(name), name, known);
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    QHash<QString, QString> Meant; ///< The nearest builtin to each name: a script says the same ones over and over.
};

} // namespace

void CheckScriptMembers(const ScriptStudy &study)
{
    MemberCheck(study).Run();
}

} // namespace Orbel
