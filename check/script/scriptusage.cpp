#include "scriptusage.h"

#include <QRegularExpression>

namespace Orbel
{

namespace
{

bool IsDot(const QVector<ScriptToken> &tokens, int at)
{
    return at >= 0 && at < tokens.size() && tokens.at(at).What == ScriptToken::Mark
        && tokens.at(at).Text == QLatin1Char('.');
}

} // namespace

ScriptUsage::ScriptUsage(
    const QString &code, const QVector<ScriptToken> &tokens, const ScriptTree &tree, const ScriptBindings &bindings)
    : IsOpaque(!tree.IsWhole())
{
    FindStart(tree, bindings);
    for (int i = 0; i < tokens.size(); ++i) {
        const ScriptToken &token = tokens.at(i);
        if (token.What == ScriptToken::Mark || token.Text.isEmpty())
            continue;
        const bool isName = token.What == ScriptToken::Name;
        if (isName && (token.Text == QLatin1String("eval") || token.Text == QLatin1String("with")))
            AddWords(code);
        if (!isName || IsDot(tokens, i - 1))
            Members.insert(token.Text);
        if (!isName || !IsDot(tokens, i + 1))
            PassedOn.insert(token.Text);
        else if (i + 2 < tokens.size())
            Pairs.insert(token.Text + QLatin1Char('.') + tokens.at(i + 2).Text);
    }
}

bool ScriptUsage::MayCall(const QString &owner, const QString &member) const
{
    return Pairs.contains(owner + QLatin1Char('.') + member) || (PassedOn.contains(owner) && Members.contains(member));
}

bool ScriptUsage::MayCallAtStart(const QString &owner, const QString &member) const
{
    if (IsOpaque)
        return MayCall(owner, member);
    return StartPairs.contains(owner + QLatin1Char('.') + member)
        || (PassedOn.contains(owner) && StartMembers.contains(member));
}

void ScriptUsage::FindStart(const ScriptTree &tree, const ScriptBindings &bindings)
{
    for (int i = 0; i < tree.All().size(); ++i) {
        const bool isMember = tree.Is(i, ScriptNode::Member);
        if ((!isMember && !tree.Is(i, ScriptNode::QuotedText)) || !bindings.RunsAtStart(tree.At(i).Function))
            continue;
        StartMembers.insert(tree.At(i).Text);
        if (isMember && tree.Is(tree.Part(i, 0), ScriptNode::Name))
            StartPairs.insert(tree.At(tree.Part(i, 0)).Text + QLatin1Char('.') + tree.At(i).Text);
    }
}

void ScriptUsage::AddWords(const QString &code)
{
    IsOpaque = true;
    static const QRegularExpression word(QStringLiteral("[\\w$]+"), QRegularExpression::UseUnicodePropertiesOption);
    auto match = word.globalMatch(code);
    while (match.hasNext()) {
        const QString text = match.next().captured();
        Members.insert(text);
        PassedOn.insert(text);
    }
}

} // namespace Orbel
