// A random walk over a form of all classes. Whatever operator, script, documents and host do to it, after each step
// node, property, screen and document of every control agree, what was typed has arrived, each change of the operator's
// and of a node's has its mark, and each control is shown and enabled as it was told.
//
// ORBEL_WALK_STEPS says how many steps, ORBEL_WALK_SEED which walk: under the same seed it is the same again. A walk of
// more than five minutes wants QTEST_FUNCTION_TIMEOUT, in milliseconds.

#include "delegatefactory.h"
#include "liveform.h"
#include "valueselection.h"
#include "vclineedit.h"
#include "vcnumericfloatspin.h"

#include <cmath>

namespace
{

// The controls bear the names of their classes.
const QStringList Spins{"SpinBox", "DoubleSpinBox", "BaudRateSpinBox", "BandwidthEdit", "FrequencyOffsetEdit"};
const QStringList Lists{"SpinBoxList", "DoubleSpinBoxList", "ShiftList"};
const QStringList Frequencies{"FrequencyEdit", "MainFrequency"};
const QString Range = "FrequencyRangeEdit", Group = "Headline";
// What a script sets there counts as a change.
const QStringList MarkedByScripts = Lists
    + QStringList{"ChannelSpacingTable", "TableWidget", "HiddenParameter", "HiddenList", "HiddenMap", "HiddenTable"};

const QStringList Rows{"One", "Two", "Three", "Four"};
const QStringList Values{"0", "1", "-1", "7", "0.5", "-2.25", "59", "5001", "1e3", "500000", "500000.0000001",
    "2400000000", "1e15", "'abc'", "'12'", "NaN"};
const QStringList Entries{"5", "-", "123", "0.5", "abc", "300 k", "2.4 G", "7000", "-3"};
const QStringList Strokes{"Ctrl+A", "Ctrl+A", "Ctrl+Z", "Up", "Down", "PgUp", "PgDown", "Home", "End", "Space",
    "Backspace", "Del", "Esc", "Return", "Return", "Tab", "Finish"};

/// The rows in an order of their own, each with its number as value.
QString Enumeration(int first)
{
    QString rows;
    for (int i = first; i < first + Rows.size(); ++i)
        rows += QString("<EnumValue><DisplayName>%1</DisplayName><Value>%2</Value></EnumValue>")
                    .arg(Rows.at(i % Rows.size()))
                    .arg(i % Rows.size());
    return "<Enums><Enum name='e'>" + rows + "</Enum></Enums>";
}

/// Every class once, in groups, and the second face of a frequency. Every third control leaves out whether it shows.
QString Body()
{
    const QStringList common{"generateParameterXml=Bool:true", "labelText=String:l", "text=String:t", "value=String:7",
        "minimum=String:-50", "maximum=String:5000", "decimals=Int:2", "enumName=String:e", "itemCount=Int:3",
        "rowCount=Int:2", "columnCount=Int:2", "spacingsCount=Int:3", "parameterListItemTag=String:i",
        "startFrequency=String:7", "stopFrequency=String:9", "startFrequencyParameterXmlTag=String:From",
        "stopFrequencyParameterXmlTag=String:To"};
    const QStringList stated{"visible=Bool:true", "enabled=Bool:true"};
    QString body = Widget("MainFrequency", "FrequencyEdit", common + stated + QStringList{"MainFreqEdit=Bool:true"});
    int count = 0;
    for (const QString &name : DelegateClassNames()) {
        if (name != Group)
            body += Widget(name, name, common + (count % 3 ? stated : QStringList()));
        if (count++ % 8 == 0)
            body += Widget(Group + QString::number(count), Group, {"visible=Bool:true", "text=String:Group"});
    }
    return body + "</Sheet>" + Enumeration(0) + "<Sheet name='sheet'>";
}

/// Where a number stands: its control, node and field, its property, and its place in what the control writes.
struct Place {
    QString Control, Node, Field;
    const char *Property;
    int Index;
};
QVector<Place> Places()
{
    QVector<Place> places{{"FrequencyEdit", "FrequencyEdit", "FrequencyEdit", "value", 0},
        {"MainFrequency", "MainFrequency", "frequency", "value", 0},
        {Range, Range + "_1", Range + "_StartFrequency", "startFrequency", 0},
        {Range, Range + "_2", Range + "_StopFrequency", "stopFrequency", 1}};
    for (const QString &name : Spins)
        places.append({name, name, name, "value", 0});
    // The property of a list is what its items begin with.
    for (const QString &name : Lists)
        for (int i = 0; i < 3; ++i)
            places.append({name, name + '_' + QString::number(i), name + '_' + QString::number(i), nullptr, i});
    return places;
}

/// Who took a step, which decides what it may leave behind.
enum class Road { Operator, Host, Switch, Limits, Script, Document };

class Walk
{
public:
    explicit Walk(quint32 seed) : live(Body()), Dice(seed)
    {
        live.window->resize(900, 2500);
        for (int i = 0; i < live.form->GetSheet().GetWidgetCount(); ++i) {
            const auto control = live.form->GetSheet().GetWidgetAt(i);
            Controls << control->GetName();
            Delegates[control->GetName()] = control->GetDelegate();
            Written[control->GetName()] = WrittenBy(control->GetName());
        }
        for (QWidget *child : live.window->findChildren<QWidget *>())
            Fields.insert(child->objectName(), child);
        CollectScripts();
    }

    /// Takes a step and tells what is wrong after it.
    QStringList Step()
    {
        static constexpr Road (Walk::*acts[])()
            = {&Walk::Type, &Walk::Type, &Walk::Type, &Walk::Type, &Walk::Click, &Walk::RunScript, &Walk::RunScript,
                &Walk::SetNode, &Walk::Exchange, &Walk::Change, &Walk::Init, &Walk::Switch};
        ++Steps;
        Faults.clear();
        if (Typed && !HasFocus(Typed))
            Typed = nullptr;
        Last = (this->*acts[Roll(int(std::size(acts)))])();
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
        QApplication::setActiveWindow(live.window.get());
        QCoreApplication::processEvents();
        Check();
        return Faults;
    }
    /// The last steps.
    QString Tail() const { return Notes.join('\n'); }

private:
    int Roll(int count) { return int(Dice.bounded(count)); }
    template <class List> auto Pick(const List &list) { return list.at(Roll(list.size())); }
    QString PickText() { return Pick(Values + Rows).remove('\''); }
    void Note(const QString &what)
    {
        Notes << QString::number(Steps) + ": " + what.left(200);
        if (Notes.size() > 20)
            Notes.removeFirst();
    }
    OrbelDelegate *Get(const QString &name) const { return Delegates.value(name); }
    template <class Field = QWidget> Field *Find(const QString &name) const
    {
        return qobject_cast<Field *>(Fields.value(name));
    }
    static ValueBase *Node(const QString &name) { return Tree::Instance()->GetNode("/Form/" + name); }
    static double Number(const Place &place) { return dynamic_cast<IValueNumeric *>(Node(place.Node))->GetValue(); }

    // What can happen.

    QWidget *PickField(int focusPolicy)
    {
        QVector<QWidget *> fields{live.window.get()};
        for (QWidget *child : live.window->findChildren<QWidget *>())
            if ((child->focusPolicy() & focusPolicy) == focusPolicy && child->isEnabled() && child->isVisible())
                fields << child;
        return Pick(fields);
    }
    Road Type()
    {
        QWidget *field = Roll(2) && live.window->focusWidget() ? live.window->focusWidget() : PickField(Qt::TabFocus);
        Note("go to " + field->objectName());
        field->setFocus();
        QStringList typed = Roll(2) ? QStringList{"Ctrl+A", Pick(Entries), Roll(2) ? "Return" : "Tab"} : QStringList();
        for (int i = Roll(4); i > 0; --i)
            typed << Pick(Roll(2) ? Entries : Strokes);
        for (const QString &stroke : qAsConst(typed)) {
            field = QApplication::focusWidget() ? QApplication::focusWidget() : live.window.get();
            Note("type into " + field->objectName() + ": " + stroke);
            // While a menu is open, the window hears of keys what its field does not.
            const bool commits = stroke == "Finish" || ((stroke == "Return" || stroke == "Tab") && HasFocus(field));
            const std::function<void()> check = commits ? ArrivalOf(field) : nullptr;
            if (stroke == "Finish")
                live.form->FinishEditing();
            else if (Entries.contains(stroke))
                QTest::keyClicks(field, stroke);
            else
                QTest::keySequence(field, QKeySequence(stroke));
            if (check)
                check();
            // What is refused stays typed, and new limits may make it right.
            QWidget *focus = live.window->focusWidget();
            Typed = commits && !IsRefused(focus) ? nullptr : focus;
        }
        return Road::Operator;
    }
    Road Click()
    {
        QWidget *field = PickField(Qt::NoFocus);
        Note(QString("click ") + field->metaObject()->className() + ' ' + field->objectName());
        QTest::mouseClick(field, Qt::LeftButton);
        return Road::Operator;
    }
    Road RunScript()
    {
        QString script = Pick(Scripts);
        while (script.contains('$'))
            script.replace(script.indexOf('$'), 1, Pick(Values));
        while (script.contains('#'))
            script.replace(script.indexOf('#'), 1, QString::number(Roll(5)));
        Note(script);
        live.form->EvaluateScript(script);
        return script.contains("imum") ? Road::Limits : Road::Script;
    }
    Road SetNode()
    {
        const QString path = Pick(Tree::Instance()->GetPaths()), text = PickText();
        Note("node " + path + " = " + text);
        Tree::Instance()->GetNode(path)->SetStringValue(text, nullptr);
        return Road::Host;
    }
    Road Exchange()
    {
        if (Documents.isEmpty() || Roll(2)) {
            Note("fetch");
            Documents << live.form->GetXmlString(Roll(2));
            return Road::Document;
        }
        QString document = Pick(Documents);
        const QStringList parts = document.split(QRegularExpression(">[^<\\s]*</"));
        if (Roll(2)) {
            document = parts.first();
            for (const QString &part : parts.mid(1))
                document += '>' + PickText() + "</" + part;
        }
        Note("read " + document.simplified().remove(' '));
        live.form->SetXmlString(document);
        return Road::Document;
    }
    Road Change()
    {
        const QStringList properties{"value", "minimum", "maximum", "text", "checked", "currentValue", "startFrequency",
            "stopFrequency", "decimals", "suffix", "labelText"};
        const QString name = Pick(Controls), property = Pick(properties), text = PickText();
        // A text that is no integer is one limit to an integer's node, and another one to its control.
        const bool whole = name == "SpinBox" && property.contains("imum");
        const QString value = whole ? QString::number(text.toInt()) : text;
        const QString changed = Widget(name, "", {property + "=String:" + value});
        Note("changed " + changed);
        live.form->SetChangedORBEL(Definition(changed, Enumeration(Roll(4))));
        return Road::Script;
    }
    Road Init()
    {
        ValueDouble number("n");
        const double lowest = Pick(Values).toDouble();
        number.SetMinMax(lowest, lowest + std::pow(10, 4 * Roll(4)) - 1, 1, nullptr);
        ValueSelection choice("n");
        for (int i = Roll(4); i >= 0; --i)
            choice.AddItem(Rows.at(i), i, i + 1, nullptr);
        const QString name = Pick(Spins + Frequencies + QStringList{Range, "ComboBox"});
        Note(QString("init %1: %2...%3").arg(name).arg(number.GetMin()).arg(number.GetMax()));
        live.form->InitVTValue(name, name == "ComboBox" ? static_cast<ValueBase *>(&choice) : &number);
        return Road::Limits;
    }
    Road Switch()
    {
        OrbelSheet &sheet = live.form->GetSheet();
        const int kind = Roll(6), scope = Roll(3);
        const bool on = Roll(4) > 0;
        const QString name = Pick(Controls);
        const auto group = Pick(sheet.FindWidgetsOfClass(Group));
        Note(QString("switch %1 %2: %3, %4, scope %5").arg(kind).arg(on).arg(name, group->GetName()).arg(scope));
        if (kind == 0)
            Get(name)->setEnabled(on);
        else if (kind == 1)
            Get(name)->setVisible(on);
        else if (kind == 2)
            sheet.EnableInput(on, OrbelSheet::eEnableScope(scope));
        else if (kind == 3)
            sheet.setGroupVisible(group.data(), on);
        else if (kind == 4)
            live.form->ShowGroup(group->GetName(), on);
        // So that there is something to type into.
        for (int each = 0; kind == 5 && each < 3; ++each)
            sheet.EnableInput(true, OrbelSheet::eEnableScope(each));
        if (kind == 5)
            sheet.SetCollapsed({});
        return Road::Switch;
    }
    /// What a script can set; $ stands for a value, # for a small number.
    void CollectScripts()
    {
        const auto add = [this](const QStringList &names, const QStringList &scripts) {
            for (const QString &name : names)
                for (const QString &script : scripts)
                    Scripts << name + '.' + script;
        };
        add(Spins + Frequencies, {"setValue($)", "value = $"});
        add(Spins + Frequencies + QStringList{Range},
            {"setMinimum(-($))", "setMaximum($)", "minimum = -($)", "maximum = $"});
        add(Spins, {"setSingleStep($)", "setDecimals(#)", "setDisplayScalingFactor(# / 2 + 0.5)"});
        add({Range}, {"setRange($, $)", "startFrequency = $", "stopFrequency = $"});
        add(Lists, {"setItemValue(#, $)", "setPrefix('p')"});
        add({"LineEdit", "IPEdit", "Label"}, {"setText($)", "text = $"});
        add({"ComboBox"}, {"setCurrentValue(#)", "setCurrentValue($)"});
        add({"TableWidget", "HiddenTable"}, {"setItemValue(#, #, $)", "clear()", "setRowCount(#)"});
        add({"ChannelSpacingTable"}, {"setSpacingValue(#, $)", "setAllSpacingValues($)", "setSpacingsCount(#)"});
        add({"HiddenParameter", "HiddenMap"}, {"setValue($, $)", "setValue($)", "remove($)"});
        add({"HiddenList"}, {"setItemValue(#, $)", "setItemCount(#)"});
        Scripts << "CheckBox.setChecked($)"
                << "BandwidthEdit.setUnitScale(Math.pow(10, 3 * (# % 4)))";
    }

    // What is true after each step.

    void Check()
    {
        CheckMarks();
        for (const Place &place : qAsConst(Numbers))
            CheckNumber(place);
        // A script or a document sets each bound as it is.
        Expect(Number(Numbers.at(2)) < Number(Numbers.at(3)), Range, "inverted", true);
        CheckTexts();
        for (const QString &name : qAsConst(Controls))
            CheckState(name);
        StandingBefore = std::exchange(Standing, {});
    }

    /// Notes a fault unless the truth holds. One that is told may come from a script or a document, and stays then.
    void Expect(bool truth, const QString &name, const QString &fault, bool told = false)
    {
        if (truth)
            return;
        if (told && (Last >= Road::Script || StandingBefore.contains(name)))
            Standing << name;
        else
            Faults << name + ": " + fault;
    }
    void ExpectNear(const Place &place, const char *what, double found, double wanted, double slack)
    {
        Expect(std::fabs(found - wanted) <= slack + std::fabs(wanted) * 1e-14, place.Control,
            QString("%1 %2 is not %3").arg(what).arg(found, 0, 'g', 17).arg(wanted, 0, 'g', 17));
    }
    void ExpectSame(const QString &name, QStringList texts)
    {
        texts.removeDuplicates();
        Expect(texts.size() == 1, name, texts.join('|'));
    }

    /// The texts that a control writes into a document, of which the rest knows nothing yet.
    QStringList WrittenBy(const QString &name) const
    {
        QString text;
        QXmlStreamWriter writer(&text);
        Get(name)->GetXml(writer);
        QStringList texts;
        static const QRegularExpression leaf("<(\\w+)[^>]*>([^<]*)</\\1>");
        for (auto match = leaf.globalMatch(text); match.hasNext();)
            texts << match.next().captured(2);
        return texts;
    }
    void CheckMarks()
    {
        bool marked = false;
        for (const QString &name : qAsConst(Controls)) {
            const bool before = Marked.contains(name), now = Get(name)->isModified();
            const QStringList former = std::exchange(Written[name], WrittenBy(name));
            marked |= now;
            now ? void(Marked << name) : void(Marked.remove(name));
            // A node's change of a hidden parameter is nobody's edit.
            if (former != Written[name] && Last <= Road::Switch && name != "HiddenParameter")
                Expect(now, name, "changed to " + Written[name].join(' ') + " without a mark");
            if (now && !before)
                Expect(
                    Last <= Road::Switch || (Last == Road::Script && MarkedByScripts.contains(name)), name, "marked");
        }
        Expect(!live.form->GetSheet().isModified() || marked, "sheet", "Apply is lit for nothing");
    }

    /// The number in a field, in units of the node; NaN for none.
    double Shown(const Place &place) const
    {
        bool isNumber = true;
        const auto *spin = Find<VCNumericFloatSpin>(place.Field);
        const double shown = spin ? spin->cleanText().remove(' ').toDouble(&isNumber) / Factor(place)
                                  : Orbel::NumberReader::OfHertz().Read(Find<QLineEdit>(place.Field)->text()).Number;
        return isNumber ? shown : qQNaN();
    }
    /// The integer's control, and those of a list, take it only when they are built.
    double Factor(const Place &place) const
    {
        return place.Property && place.Control != "SpinBox" ? Get(place.Control)->GetDouble("displayScalingFactor", 1)
                                                            : 1;
    }
    /// What a text of so many decimal places may lose of a number.
    static double Rounding(int places) { return 0.5001 * std::pow(10, -places); }
    double RoundingOnScreen(const Place &place) const
    {
        const auto *spin = Find<VCNumericFloatSpin>(place.Field);
        return spin ? Rounding(spin->decimals()) / Factor(place) : 0;
    }
    /// A menu that is open takes the focus from no field.
    static bool HasFocus(const QWidget *field) { return field->window()->focusWidget() == field; }
    static bool IsRefused(const QWidget *field)
    {
        const auto *edit = qobject_cast<const QLineEdit *>(field);
        const auto *spin = qobject_cast<const VCNumericFloatSpin *>(field);
        return (edit && !edit->hasAcceptableInput()) || (spin && !spin->IsReadable());
    }
    bool IsPending(const QWidget *field) const { return HasFocus(field) && (field == Typed || IsRefused(field)); }
    /// Tells later whether what stands in a field now has reached the node; null where it need not.
    std::function<void()> ArrivalOf(const QWidget *field)
    {
        const QString name = field->objectName();
        if (field->property("readOnly").toBool())
            return nullptr;
        if (name == "LineEdit" || name == "IPEdit")
            return [=, text = field->property("text").toString()] {
                ExpectSame(name, {text, Node(name)->GetStringValue()});
            };
        for (const Place &place : qAsConst(Numbers)) {
            if (place.Field != name || std::isnan(Shown(place)))
                continue;
            const auto *spin = qobject_cast<const VCNumericFloatSpin *>(field);
            const auto *edit = qobject_cast<const VCLineEdit *>(field);
            const double factor = Factor(place);
            const double shown = edit ? edit->GetReader().Read(edit->text()).Number : Shown(place) * factor;
            // What is refused arrives nowhere.
            if (std::isnan(shown) || (spin && !spin->IsReadable()))
                return nullptr;
            const double typed = (spin ? qBound(spin->minimum(), shown, spin->maximum()) : shown) / factor;
            // Integers and frequencies are whole.
            const double slack = spin && !place.Control.startsWith("SpinBox") ? RoundingOnScreen(place) : 1;
            return [=] {
                const auto *node = dynamic_cast<IValueNumeric *>(Node(place.Node));
                ExpectNear(place, "typed", node->GetValue(), qBound(node->GetMin(), typed, node->GetMax()), slack);
            };
        }
        return nullptr;
    }

    void CheckNumber(const Place &place)
    {
        const double node = Number(place);
        if (!IsPending(Find(place.Field)))
            ExpectNear(place, "screen", Shown(place), node, RoundingOnScreen(place));
        const bool isSpin = Find<VCNumericFloatSpin>(place.Field);
        // Of a frequency property and document tell whole hertz.
        const double held = isSpin ? node : std::trunc(node);
        const QVariant property = place.Property ? Get(place.Control)->property(place.Property) : QVariant(held);
        bool isNumber = false, isInteger = false;
        const double stated = property.toDouble(&isNumber);
        property.toString().toInt(&isInteger);
        // A text that is no number stays in the property as it was told.
        if (!isNumber)
            return;
        if (isInteger || place.Control != "SpinBox")
            ExpectNear(place, "property", isSpin ? stated : std::trunc(stated), held, 0);
        const QString text = Written[place.Control].value(place.Index);
        if (isSpin)
            ExpectNear(place, "document", text.toDouble(), node, Rounding(Get(place.Control)->GetInt("decimals", 0)));
        else
            ExpectSame(place.Control, {text, QString::number(held, 'f', 0)});
    }

    /// The hidden stores and the free table have nothing beside what they write.
    void CheckTexts()
    {
        const auto property = [this](const char *name, const char *key) { return Get(name)->property(key).toString(); };
        const auto written = [this](const char *name) { return Written[name].value(0); };
        const auto node = [](const char *name) { return Node(name)->GetStringValue(); };
        for (const char *name : {"LineEdit", "IPEdit"}) {
            const auto *field = Find<QLineEdit>(name);
            const QString text = property(name, "text");
            ExpectSame(name, {node(name), text, written(name), IsPending(field) ? text : field->text()});
        }
        ExpectSame("HiddenParameter",
            {node("HiddenParameter"), property("HiddenParameter", "value"), written("HiddenParameter")});
        // A label's node feeds its text, and no text goes into the node.
        ExpectSame("Label", {property("Label", "text"), written("Label"), Find<QLabel>("Label")->text()});
        ExpectSame("CheckBox",
            {node("CheckBox"), Get("CheckBox")->property("checked").toBool() ? "true" : "false", written("CheckBox"),
                Find<QCheckBox>("CheckBox")->isChecked() ? "true" : "false"});
        const QString value = property("ComboBox", "currentValue"), row = node("ComboBox");
        ExpectSame("ComboBox", {value, written("ComboBox")});
        ExpectSame("ComboBox", {row, Find<QComboBox>("ComboBox")->currentText()});
        // A value that no item has leaves the choice alone.
        Expect(Rows.value(value.toInt(), "?") == row, "ComboBox", value + " is not " + row, true);

        const auto *table = Find<QTableWidget>("ChannelSpacingTable");
        const auto *cells = qobject_cast<QStyledItemDelegate *>(table->itemDelegate());
        for (int i = 0; i < table->rowCount(); ++i)
            ExpectSame("ChannelSpacingTable",
                {Written["ChannelSpacingTable"].value(i),
                    cells->displayText(table->item(i, 0)->data(Qt::DisplayRole), QLocale::c())});
    }

    /// A control is shown and enabled as it was told, unless its group is collapsed or the input is locked.
    void CheckState(const QString &name)
    {
        const QVariant visible = Get(name)->property("visible"), enabled = Get(name)->property("enabled");
        const bool isGroup = name.startsWith(Group);
        const bool shown = (isGroup || Get(name)->isGroupVisible()) && (!visible.isValid() || visible.toBool());
        if (const auto *label = Find<QLabel>("label" + name))
            Expect(label->isHidden() != (shown && visible.toBool()), name, "label");
        QString field = name == "MainFrequency" ? "FrequencyControl" : name;
        if (Lists.contains(name) || name == Range)
            field += name == Range ? "_StopFrequency" : "_1";
        const QWidget *control = Find(field);
        // The script row's container hears nothing, nor do the controls of an integer list.
        if (!control || name == "ScriptControl" || name == "SpinBoxList")
            return;
        Expect(control->isHidden() != shown, name, shown ? "hidden" : "shown");
        bool free = !enabled.isValid() || enabled.toBool();
        for (int scope = 0; scope < 3; ++scope)
            free &= live.form->GetSheet().IsInputEnabled(OrbelSheet::eEnableScope(scope));
        // A headline stays usable, and the items of a list have a state of their own.
        Expect(isGroup || Lists.contains(name) || control->isEnabled() == free, name, free ? "disabled" : "enabled");
    }

    LiveForm live;
    QRandomGenerator Dice;
    const QVector<Place> Numbers = Places();
    QHash<QString, OrbelDelegate *> Delegates;
    QHash<QString, QWidget *> Fields;
    QStringList Controls, Scripts, Documents, Notes, Faults;
    QSet<QString> Marked, Standing, StandingBefore;
    QMap<QString, QStringList> Written;
    // The field in which an edit may be under way.
    QPointer<QWidget> Typed;
    Road Last = Road::Document;
    int Steps = 0;
};

} // namespace

class TestWalk : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everythingAgreesAfterEachStep()
    {
        const int seed = FromEnvironment("ORBEL_WALK_SEED", 1);
        Walk walk{quint32(seed)};
        for (int step = FromEnvironment("ORBEL_WALK_STEPS", 1500); step > 0; --step) {
            const QStringList faults = walk.Step();
            if (!faults.isEmpty())
                qWarning().noquote() << "seed" << seed << "after these steps:\n" + walk.Tail();
            QCOMPARE(faults.join('\n'), QString());
        }
    }
};

ORBEL_TEST_MAIN(TestWalk)
#include "tst_walk.moc"
