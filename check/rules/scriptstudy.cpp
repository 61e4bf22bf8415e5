#include "scriptstudy.h"

#include "elementnames.h"
#include "propertynames.h"

#include <algorithm>

namespace Orbel
{

namespace prop = KV218::prop;

namespace
{

/// How many names stand behind each other that are only other names of a control.
constexpr int MostAliases = 4;

ScriptKind KindOfSum(ScriptKind left, ScriptKind right)
{
    if (left == ScriptKind::Number && right == ScriptKind::Number)
        return ScriptKind::Number;
    return left == ScriptKind::Text || right == ScriptKind::Text ? ScriptKind::Text : ScriptKind::Any;
}

bool AreNumbers(const EnumEntry &rows)
{
    return !rows.Rows.isEmpty() && std::all_of(rows.Rows.cbegin(), rows.Rows.cend(), [](const EnumRow &row) {
        bool isNumber = false;
        row.Value.toDouble(&isNumber);
        return isNumber;
    });
}

} // namespace

bool IsAny(const QString &text, std::initializer_list<const char *> words)
{
    return std::any_of(words.begin(), words.end(), [&](const char *word) { return text == QLatin1String(word); });
}

ScriptKind KindOfType(const QByteArray &type)
{
    if (type == "bool")
        return ScriptKind::Bool;
    if (type == "QString")
        return ScriptKind::Text;
    for (const char *number : {"int", "uint", "qlonglong", "qulonglong", "double"}) {
        if (type == number)
            return ScriptKind::Number;
    }
    return type == "void" ? ScriptKind::Nothing : ScriptKind::Any;
}

QString SetterOf(const QString &property)
{
    return property.isEmpty() ? QString() : QLatin1String("set") + property.at(0).toUpper() + property.mid(1);
}

ScriptStudy::ScriptStudy(const FormModel &form, FindingSink &sink)
    : Form(form), Sink(sink), Script(form.GetScriptSource()), Tree(form.GetScriptTree()),
      Bindings(form.GetScriptBindings())
{
    FindConnections();
    FindAssignments();
    FindTests();
    FindKinds();
}

/// The value of a variable that gets only one.
int ScriptStudy::SingleValueOf(int name) const
{
    const ScriptVariable &variable = Bindings.At(name);
    const int set = variable.IsMade && variable.Sets.size() == 1 ? variable.Sets.constFirst() : -1;
    return Tree.Is(set, Node::Declarator) ? Tree.Part(set, 0) : -1;
}

const WidgetEntry *ScriptStudy::WidgetOf(int node) const
{
    for (int i = 0; i < MostAliases && Tree.Is(node, Node::Name); ++i) {
        if (Bindings.IsForeign(node)) {
            const WidgetEntry *widget = Form.FindWidget(Tree.At(node).Text);
            return widget && widget->Info && Bindings.At(node).Sets.isEmpty() ? widget : nullptr;
        }
        node = SingleValueOf(node);
    }
    return nullptr;
}

const ScriptClass *ScriptStudy::ClassOf(int node) const
{
    if (const WidgetEntry *widget = WidgetOf(node))
        return &ScriptClass::Of(widget->Class);
    const bool isSheet = Tree.Is(node, Node::Name) && Bindings.IsForeign(node) && Form.Sheets.size() == 1
        && Form.Doc.AttributeOf(Form.Sheets.constFirst(), KV218::attribute::Name) == Tree.At(node).Text
        && !Form.FindWidget(Tree.At(node).Text) && !Form.FindEnum(Tree.At(node).Text);
    return isSheet ? &ScriptClass::Of(QString()) : nullptr;
}

const EnumEntry *ScriptStudy::EnumOf(int node) const
{
    const bool isGlobal = Tree.Is(node, Node::Name) && Bindings.IsForeign(node)
        && (!Form.FindWidget(Tree.At(node).Text) || !Form.FindWidget(Tree.At(node).Text)->IsNamed);
    return isGlobal ? Form.FindEnum(Tree.At(node).Text) : nullptr;
}

const ScriptMethod *ScriptStudy::MethodOf(int member) const
{
    const ScriptClass *known = Tree.Is(member, Node::Member) ? ClassOf(Tree.Part(member, 0)) : nullptr;
    return known ? known->Find(Tree.At(member).Text) : nullptr;
}

const PropertyEntry *ScriptStudy::PropertyOf(int member) const
{
    const WidgetEntry *widget = Tree.Is(member, Node::Member) ? WidgetOf(Tree.Part(member, 0)) : nullptr;
    const QByteArray name = widget ? Tree.At(member).Text.toLatin1() : QByteArray();
    return widget ? widget->Find(QLatin1String(name)) : nullptr;
}

void ScriptStudy::FindConnections()
{
    for (int i = 0; i < Tree.All().size(); ++i) {
        const int connect = Tree.Is(i, Node::Call) ? Tree.Part(i, 0) : -1;
        const int signal = Tree.Is(connect, Node::Member, "connect") ? Tree.Part(connect, 0) : -1;
        if (!Tree.Is(signal, Node::Member) || Tree.At(i).Parts.size() < 2)
            continue;
        const int handler = Tree.At(i).Parts.constLast();
        All.append({i, Tree.Part(signal, 0), Tree.At(signal).Text, Bindings.FunctionOf(handler)});
        ByFunction[All.constLast().Function].append(All.constLast());
    }
}

ScriptStudy::Sources ScriptStudy::SourcesOf(int name) const
{
    constexpr int mostCalls = 20;
    Sources sources;
    const ScriptVariable &variable = Bindings.At(name);
    if (!variable.IsParameter || !variable.Sets.isEmpty() || Bindings.IsPassedOn(variable.Function))
        return sources;
    const QVector<int> &parts = Tree.At(variable.Function).Parts;
    for (int i = 0; i < parts.size(); ++i) {
        if (Tree.Is(parts.at(i), Node::Parameter) && Tree.At(parts.at(i)).Text == variable.Name)
            sources.Place = i;
    }
    const QVector<int> calls = Bindings.CallsOf(variable.Function);
    if (calls.size() > mostCalls)
        return sources;
    sources.Signals = ConnectionsOf(variable.Function);
    for (const int call : calls)
        sources.Arguments.append(Tree.Part(call, sources.Place + 1));
    return sources;
}

ScriptKind ScriptStudy::KindOfParameter(int node) const
{
    const Sources sources = SourcesOf(node);
    QVector<ScriptKind> kinds;
    for (const ScriptConnection &connection : sources.Signals) {
        const ScriptClass *known = ClassOf(connection.Control);
        const ScriptMethod *signal = known ? known->Find(connection.Signal) : nullptr;
        kinds.append(signal ? KindOfType(signal->TypeOf(sources.Place, signal->Most())) : ScriptKind::Any);
    }
    for (const int argument : sources.Arguments)
        kinds.append(KindOf(argument));
    return !kinds.isEmpty() && kinds.count(kinds.constFirst()) == kinds.size() ? kinds.constFirst() : ScriptKind::Any;
}

const EnumEntry *ScriptStudy::ChoicesOf(int node) const
{
    if (Tree.Is(node, Node::Member) && Tree.At(node).Text == prop::CurrentValue) {
        const WidgetEntry *widget = WidgetOf(Tree.Part(node, 0));
        const bool isFixed = widget && widget->States(prop::EnumName) && !MaySet(*widget, prop::EnumName);
        const EnumEntry *rows = isFixed ? Form.FindEnum(widget->TextOf(prop::EnumName)) : nullptr;
        return rows && !rows->Rows.isEmpty() ? rows : nullptr;
    }
    if (!Tree.Is(node, Node::Name))
        return nullptr;
    if (const int value = SingleValueOf(node); value >= 0)
        return Tree.Is(value, Node::Member) ? ChoicesOf(value) : nullptr;
    const QVector<Source> sources = ChoicesGivenTo(node);
    const EnumEntry *rows = sources.isEmpty() ? nullptr : sources.constFirst().Rows;
    const bool isOne = rows
        && std::all_of(sources.cbegin(), sources.cend(), [rows](const Source &each) { return each.Rows == rows; });
    return isOne && !rows->Rows.isEmpty() ? rows : nullptr;
}

const WidgetEntry *ScriptStudy::ValueOf(int node, int depth) const
{
    constexpr int mostDepth = 6;
    if (node < 0 || depth > mostDepth)
        return nullptr;
    if (Tree.Is(node, Node::Member) && Tree.At(node).Text == prop::Value)
        return WidgetOf(Tree.Part(node, 0));
    const int function = Tree.Is(node, Node::Call) ? Tree.Part(node, 0) : -1;
    if (Tree.Is(function, Node::Name, "Number") || Tree.Is(function, Node::Name, "parseInt")
        || Tree.Is(function, Node::Name, "parseFloat"))
        return ValueOf(Tree.Part(node, 1), depth + 1);
    if (!Tree.Is(node, Node::Name))
        return nullptr;
    if (const int value = SingleValueOf(node); value >= 0)
        return ValueOf(value, depth + 1);
    const Sources sources = SourcesOf(node);
    QVector<const WidgetEntry *> widgets;
    for (const ScriptConnection &connection : sources.Signals) {
        const bool isValue = connection.Signal == QLatin1String("valueChanged") && sources.Place == 0;
        const WidgetEntry *widget = isValue ? WidgetOf(connection.Control) : nullptr;
        widgets.append(widget && !widget->Has(ekItems) ? widget : nullptr);
    }
    for (const int argument : sources.Arguments)
        widgets.append(ValueOf(argument, depth + 1));
    return !widgets.isEmpty() && widgets.count(widgets.constFirst()) == widgets.size() ? widgets.constFirst() : nullptr;
}

QVector<ScriptStudy::Source> ScriptStudy::ChoicesGivenTo(int parameter) const
{
    QVector<Source> given;
    const Sources sources = SourcesOf(parameter);
    for (const ScriptConnection &connection : sources.Signals) {
        const WidgetEntry *widget = WidgetOf(connection.Control);
        const bool isChoice = widget && connection.Signal == QLatin1String("currentValueChanged");
        given.append({Tree.At(connection.Call).Parts.constLast(),
            isChoice ? Form.FindEnum(widget->TextOf(prop::EnumName)) : nullptr});
    }
    for (const int argument : sources.Arguments)
        given.append({argument, Tree.Is(argument, Node::Member) ? ChoicesOf(argument) : nullptr});
    return given;
}

QString ScriptStudy::ConstantOf(int node) const
{
    if (Tree.Is(node, Node::QuotedText))
        return Tree.At(node).Text.contains(QLatin1Char('\\')) ? QString() : Tree.At(node).Text + QLatin1String("");
    const EnumEntry *rows = Tree.Is(node, Node::Member) ? EnumOf(Tree.Part(node, 0)) : nullptr;
    for (int i = rows ? rows->Rows.size() - 1 : -1; i >= 0; --i) {
        if (rows->Rows.at(i).Identifier == Tree.At(node).Text)
            return rows->Rows.at(i).Value + QLatin1String("");
    }
    return QString();
}

bool ScriptStudy::NumberOf(int node, double *number) const
{
    const bool isNegative = Tree.Is(node, Node::Prefix, "-");
    const int digits = isNegative ? Tree.Part(node, 0) : node;
    if (!Tree.Is(digits, Node::Number))
        return false;
    bool isNumber = false;
    const QString &text = Tree.At(digits).Text;
    *number = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive) ? double(text.toLongLong(&isNumber, 16))
                                                                        : text.toDouble(&isNumber);
    *number = isNegative ? -*number : *number;
    return isNumber;
}

void ScriptStudy::FindKinds()
{
    Kinds.fill(ScriptKind::Any, Tree.All().size());
    // A variable's value may stand behind its use, so that the second look knows more.
    for (int look = 0; look < 2; ++look) {
        for (int i = 0; i < Tree.All().size(); ++i)
            Kinds[i] = FindKind(i);
    }
}

ScriptKind ScriptStudy::FindKind(int node) const
{
    const Node &here = Tree.At(node);
    switch (here.What) {
    case Node::Number:
    case Node::Postfix:
        return ScriptKind::Number;
    case Node::QuotedText:
        return ScriptKind::Text;
    case Node::Word:
        return here.Text == QLatin1String("null") ? ScriptKind::Any : ScriptKind::Bool;
    case Node::Array:
    case Node::Object:
    case Node::Pattern:
    case Node::New:
        return ScriptKind::Object;
    case Node::FunctionExpression:
        return ScriptKind::Function;
    case Node::Prefix:
        return here.Text == QLatin1String("!") || here.Text == QLatin1String("delete") ? ScriptKind::Bool
            : here.Text == QLatin1String("typeof")                                     ? ScriptKind::Text
            : here.Text == QLatin1String("void")                                       ? ScriptKind::Nothing
                                                                                       : ScriptKind::Number;
    case Node::Binary:
        return KindOfBinary(node);
    case Node::Conditional: {
        const ScriptKind yes = KindOf(Tree.Part(node, 1));
        return yes == KindOf(Tree.Part(node, 2)) ? yes : ScriptKind::Any;
    }
    case Node::Assign:
        return here.Text == QLatin1String("=") ? KindOf(Tree.Part(node, 1)) : ScriptKind::Any;
    case Node::Member:
        return KindOfMember(node);
    case Node::Name:
        return KindOfName(node);
    case Node::Call:
        return KindOfCall(node);
    default:
        return ScriptKind::Any;
    }
}

ScriptKind ScriptStudy::KindOfBinary(int node) const
{
    const QString &text = Tree.At(node).Text;
    const ScriptKind left = KindOf(Tree.Part(node, 0));
    const ScriptKind right = KindOf(Tree.Part(node, 1));
    if (text == QLatin1String(","))
        return right;
    if (text == QLatin1String("&&") || text == QLatin1String("||"))
        return left == right ? left : ScriptKind::Any;
    if (text == QLatin1String("+"))
        return KindOfSum(left, right);
    return IsAny(text, {"-", "*", "/", "%", "<<", ">>", ">>>", "&", "|", "^"}) ? ScriptKind::Number : ScriptKind::Bool;
}

/// `text = text + "a"`
bool ScriptStudy::IsAppended(const ScriptVariable &variable, int set) const
{
    int sum = Tree.Is(set, Node::Assign, "=") ? Tree.Part(set, 1) : -1;
    if (!Tree.Is(sum, Node::Binary, "+"))
        return false;
    while (Tree.Is(sum, Node::Binary, "+"))
        sum = Tree.Part(sum, 0);
    return Tree.Is(sum, Node::Name) && &Bindings.At(sum) == &variable;
}

ScriptKind ScriptStudy::KindOfVariable(const ScriptVariable &variable) const
{
    constexpr int mostSets = 8;
    if (variable.IsParameter || variable.Sets.isEmpty() || variable.Sets.size() > mostSets)
        return ScriptKind::Any;
    ScriptKind kind = ScriptKind::Any;
    for (int i = 0; i < variable.Sets.size(); ++i) {
        const int set = variable.Sets.at(i);
        const Node &node = Tree.At(set);
        const bool isStep = node.What == Node::Prefix || node.What == Node::Postfix
            || (node.What == Node::Assign && node.Text != QLatin1String("+=") && node.Text != QLatin1String("="));
        const bool isTextAppended = kind == ScriptKind::Text && IsAppended(variable, set);
        const ScriptKind each = Tree.IsFunction(set) ? ScriptKind::Function
            : isTextAppended                         ? ScriptKind::Text
            : isStep                                 ? ScriptKind::Number
            : node.What == Node::Declarator          ? KindOf(Tree.Part(set, 0))
            : node.Text == QLatin1String("=")        ? KindOf(Tree.Part(set, 1))
            : node.Text == QLatin1String("+=")       ? KindOfSum(kind, KindOf(Tree.Part(set, 1)))
                                                     : ScriptKind::Any;
        if (i > 0 && each != kind)
            return ScriptKind::Any;
        kind = each;
    }
    return kind;
}

ScriptKind ScriptStudy::KindOfName(int node) const
{
    const QString &text = Tree.At(node).Text;
    const ScriptVariable &variable = Bindings.At(node);
    if (variable.IsMade || !variable.Sets.isEmpty())
        return variable.IsParameter ? KindOfParameter(node) : KindOfVariable(variable);
    if (ClassOf(node))
        return ScriptKind::Control;
    if (EnumOf(node))
        return ScriptKind::Object;
    return text == QLatin1String("undefined")         ? ScriptKind::Nothing
        : IsAny(text, {"NaN", "Infinity"})            ? ScriptKind::Number
        : IsAny(text, {"parseInt", "print", "isNaN"}) ? ScriptKind::Function
                                                      : ScriptKind::Any;
}

ScriptKind ScriptStudy::KindOfMember(int node) const
{
    const Node &here = Tree.At(node);
    const int object = Tree.Part(node, 0);
    if (EnumOf(object))
        return ConstantOf(node).isNull() ? ScriptKind::Any : ScriptKind::Text;
    if (const EnumEntry *rows = ChoicesOf(node))
        return AreNumbers(*rows) ? ScriptKind::NumberText : ScriptKind::Text;
    if (MethodOf(node) && !PropertyOf(node))
        return ScriptKind::Function;
    const WidgetEntry *widget = WidgetOf(object);
    if (!widget && !MakesMember(here.Text)
        && IsAny(here.Text, {"toString", "toFixed", "toUpperCase", "toLowerCase", "indexOf", "charAt", "join"}))
        return ScriptKind::Function;
    if (!widget)
        return here.Text == QLatin1String("length") ? ScriptKind::Number : ScriptKind::Any;
    const PropertyInfo *known = Registry::FindProperty(*widget->Info, here.Text);
    const PropertyEntry *stated = PropertyOf(node);
    const bool isOwn = known && (known->name == widget->Info->delegate->valueProperty) && known->name != prop::Text
        && known->name != prop::Checked;
    if (known && !stated && !isOwn && (known->type == ValueType::Text || known->type == ValueType::Bool)
        && RunsBeforeAll(here.Function) && !MaySet(*widget, known->name))
        return ScriptKind::Nothing;
    if (!known || !stated)
        return ScriptKind::Any;
    switch (known->type) {
    case ValueType::Bool:
        return stated->IsBool() ? ScriptKind::Bool : ScriptKind::Any;
    case ValueType::Text:
        return ScriptKind::Text;
    case ValueType::Int:
    case ValueType::Int64:
    case ValueType::UInt64:
    case ValueType::Double:
        return (MaySet(*widget, known->name) && !IsReadFirst(node, *widget, known->name)) || stated->IsBool()
            ? ScriptKind::Any
            : ScriptKind::NumberText;
    default:
        return ScriptKind::Any;
    }
}

/// Whether code runs when the script starts, and not because somebody has changed something.
bool ScriptStudy::RunsBeforeAll(int function) const
{
    return function == Tree.Root() || (Bindings.RunsAtStart(function) && ConnectionsOf(function).isEmpty());
}

ScriptKind ScriptStudy::KindOfCall(int node) const
{
    const int function = Tree.Part(node, 0);
    const QString &text = Tree.At(function).Text;
    if (Tree.Is(function, Node::Name) && Bindings.IsForeign(function))
        return IsAny(text, {"Number", "parseInt", "parseFloat"}) ? ScriptKind::Number
            : text == QLatin1String("String")                    ? ScriptKind::Text
            : IsAny(text, {"Boolean", "isNaN", "isFinite"})      ? ScriptKind::Bool
                                                                 : ScriptKind::Any;
    if (!Tree.Is(function, Node::Member))
        return ScriptKind::Any;
    if (const ScriptMethod *method = MethodOf(function))
        return method->IsSignal ? ScriptKind::Any : KindOfType(method->Result);
    if (Tree.Is(Tree.Part(function, 0), Node::Name, "Math"))
        return ScriptKind::Number;
    const bool isText
        = IsAny(text, {"toFixed", "toString", "toUpperCase", "toLowerCase", "substr", "substring", "charAt", "join"});
    return isText && !MakesMember(text) ? ScriptKind::Text : ScriptKind::Any;
}

bool ScriptStudy::Contains(int node, const std::function<bool(int)> &fits) const
{
    for (int i = Tree.At(node).First; i <= node; ++i) {
        if (fits(i))
            return true;
    }
    return false;
}

bool ScriptStudy::IsIdle(int node) const
{
    return !Contains(node, [this](int i) {
        const Node &here = Tree.At(i);
        return here.What == Node::Call || here.What == Node::New || here.What == Node::Assign
            || here.What == Node::Postfix
            || (here.What == Node::Prefix && IsAny(here.Text, {"++", "--", "delete", "void"}));
    });
}

bool ScriptStudy::Leaves(int loop) const
{
    const int function = Tree.At(loop).Function;
    return Contains(loop, [&](int i) {
        const Node &here = Tree.At(i);
        if (here.Function != function)
            return false;
        if (here.What == Node::Return || here.What == Node::Throw)
            return true;
        if (here.What == Node::Continue && !here.Text.isEmpty())
            return true;
        if (here.What != Node::Break)
            return false;
        // The innermost loop or switch is meant, unless there is a label.
        int around = here.Parent;
        while (around != loop && !Tree.IsLoop(around) && !Tree.Is(around, Node::Switch))
            around = Tree.At(around).Parent;
        return !here.Text.isEmpty() || around == loop;
    });
}

/// undefined or null
bool ScriptStudy::IsNothing(int node) const
{
    return Tree.Is(node, Node::Word, "null") || Tree.Is(node, Node::Prefix, "void")
        || (Tree.Is(node, Node::Name, "undefined") && Bindings.IsForeign(node));
}

/// What the script looks at before it uses it.
void ScriptStudy::FindTests()
{
    for (int i = 0; i < Tree.All().size(); ++i) {
        const Node &outer = Tree.At(qMax(0, Tree.At(i).Parent));
        const bool isFirst = outer.Parts.value(0, -1) == i;
        const bool isJoined = outer.What == Node::Binary && IsAny(outer.Text, {"&&", "||"});
        const bool isAsked = outer.What == Node::Prefix && IsAny(outer.Text, {"!", "typeof"});
        const bool isCompared = outer.What == Node::Binary && IsAny(outer.Text, {"==", "!=", "===", "!=="})
            && IsNothing(outer.Parts.at(isFirst ? 1 : 0));
        const bool isCondition
            = isFirst && (outer.What == Node::If || outer.What == Node::Conditional || outer.What == Node::While);
        if (Tree.Is(i, Node::QuotedText) && isFirst && Tree.Is(Tree.At(i).Parent, Node::Binary, "in"))
            Tested.insert(QLatin1Char('\'') + Tree.At(i).Text);
        else if ((Tree.Is(i, Node::Member) || Tree.Is(i, Node::Name))
            && (isJoined || isAsked || isCompared || isCondition))
            Tested.insert(CodeOf(i));
    }
}

void ScriptStudy::FindAssignments()
{
    for (int i = 0; i < Tree.All().size(); ++i) {
        const int target = Tree.Part(i, 0);
        if (Tree.Is(i, Node::Name, "arguments"))
            WithArguments.insert(Tree.At(i).Function);
        if (Tree.Is(i, Node::Pair) || Tree.Is(i, Node::QuotedText))
            MadeMembers.insert(Tree.At(i).Text);
        else if (Tree.Is(i, Node::Assign, "=") && Tree.Is(target, Node::Member))
            MadeMembers.insert(Tree.At(target).Text);
        const bool isCall = Tree.Is(i, Node::Call) && Tree.Is(target, Node::Member)
            && Tree.At(target).Text.startsWith(QLatin1String("set"));
        if (const WidgetEntry *widget = isCall ? WidgetOf(Tree.Part(target, 0)) : nullptr) {
            const QString name = Tree.At(target).Text.mid(3);
            SetsOf[widget->Name + QLatin1Char('.') + name.left(1).toLower() + name.mid(1)].append(i);
        }
        const bool isSet = Tree.Is(i, Node::Assign) || Tree.Is(i, Node::Postfix) || Tree.Is(i, Node::Prefix, "++")
            || Tree.Is(i, Node::Prefix, "--");
        if (!isSet || !Tree.Is(target, Node::Member))
            continue;
        const WidgetEntry *widget = WidgetOf(Tree.Part(target, 0));
        SetsOf[(widget ? widget->Name : QString()) + QLatin1Char('.') + Tree.At(target).Text].append(i);
        Assigned.insert((widget ? widget->Name : QString()) + QLatin1Char('.') + Tree.At(target).Text);
    }
}

/// Whether a property is read before the script can have set it: all that sets it stands around the reading.
bool ScriptStudy::IsReadFirst(int node, const WidgetEntry &widget, const QString &property) const
{
    const QVector<int> sets = SetsOf.value(widget.Name + QLatin1Char('.') + property);
    const ScriptVariable &name = Bindings.At(Tree.At(node).First);
    constexpr int most = 100;
    if (sets.isEmpty() || sets.size() > most || name.Reads.size() > most
        || Assigned.contains(QLatin1Char('.') + property))
        return false;
    const bool isPlain = std::all_of(name.Reads.cbegin(), name.Reads.cend(),
        [this](int read) { return Tree.Is(Tree.At(read).Parent, Node::Member); });
    return isPlain && std::all_of(sets.cbegin(), sets.cend(), [&](int set) { return Tree.IsInside(node, set); });
}

bool ScriptStudy::MaySet(const WidgetEntry &widget, QLatin1String property) const
{
    return Form.ScriptMayCall(widget, SetterOf(property).toLatin1()) || Assigned.contains(QLatin1Char('.') + property)
        || Assigned.contains(widget.Name + QLatin1Char('.') + property);
}

bool ScriptStudy::Needs(int function, int parameter) const
{
    const QVector<int> &parts = Tree.At(function).Parts;
    for (int i = parameter; i + 1 < parts.size(); ++i) {
        const ScriptVariable &variable = Bindings.At(parts.at(i));
        if (!variable.Reads.isEmpty() && variable.Sets.isEmpty() && !Tested.contains(variable.Name))
            return true;
    }
    return false;
}

bool ScriptStudy::IsGuarded(int node) const
{
    return Tested.contains(CodeOf(node)) || Tested.contains(QLatin1Char('\'') + Tree.At(node).Text) || IsCaught(node);
}

bool ScriptStudy::IsCaught(int node) const
{
    for (int inner = node, outer = Tree.At(node).Parent; outer >= 0; inner = outer, outer = Tree.At(outer).Parent) {
        if (Tree.Is(outer, Node::Try) && Tree.Part(outer, 0) == inner && Tree.Is(Tree.Part(outer, 1), Node::Catch))
            return true;
    }
    return false;
}

} // namespace Orbel
