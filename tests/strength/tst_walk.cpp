// A random walk over a form of all classes. Whatever operator, script, documents and host do to it, after each step node,
// property, screen and document of every control agree, a change of the document that the operator or a node made has
// its mark, and each control is shown and enabled as it was told.
//
// ORBEL_WALK_STEPS says how many steps, ORBEL_WALK_SEED which walk. A walk is the same again under the same seed.

#include "delegatefactory.h"
#include "frequencytext.h"
#include "liveform.h"
#include "orbelchannelspacingtable.h"
#include "orbelhiddenlist.h"
#include "orbelhiddenmap.h"
#include "orbelhiddentable.h"
#include "orbeltable.h"
#include "testmain.h"
#include "tree.h"
#include "vccomboboxclassic.h"
#include "vcnumericfloatspin.h"

#include <cmath>
#include <QCheckBox>
#include <QGroupBox>
#include <QTableWidget>
#include <QtTest>

using namespace KV218;
using namespace forms;

namespace
{

// The classes, and so the controls named after them, by what their value is.
const QStringList Spins{
    "SpinBox", "DoubleSpinBox", "BaudRateSpinBox", "BandwidthEdit", "FrequencyOffsetEdit"};
const QStringList Frequencies{"FrequencyEdit", "MainFrequency"};
const QStringList Bounds{"startFrequency", "stopFrequency"};
const QStringList Texts{"LineEdit", "IPEdit"};
const QStringList Lists{"SpinBoxList", "DoubleSpinBoxList", "ShiftList"};
const QStringList Cells{"TableWidget", "HiddenTable"};
const QString Range = "FrequencyRangeEdit", Group = "Headline";
// What a script sets there counts as a change.
const QStringList MarkedByScripts
    = Lists + QStringList{"ChannelSpacingTable", "TableWidget", "HiddenParameter", "HiddenList", "HiddenMap", "HiddenTable"};

const QStringList Choices{"One", "Two", "Three", "Four"};
const QStringList Numbers{"0", "1", "-1", "7", "0.5", "-2.25", "59", "5001", "1e3", "8000", "500000", "2400000000",
    "1e15", "500000.0000001", "'abc'", "'12'", "NaN"};
const QStringList Entries{"5", "-", "123", "0.5", "abc", "300 k", "2.4 G", "7000", "-3"};
const QStringList Strokes{"Ctrl+A", "Ctrl+A", "Ctrl+Z", "Up", "Down", "PgUp", "PgDown", "Home", "End", "Space", "Backspace",
    "Del", "Esc", "Return", "Return", "Tab"};

QString Enumeration(int first)
{
    QString rows;
    for (int i = 0; i < Choices.size(); ++i) {
        const int row = (i + first) % Choices.size();
        rows += QString("<EnumValue><DisplayName>%1</DisplayName><Value>%2</Value></EnumValue>").arg(Choices[row]).arg(row);
    }
    return "<Enums><Enum name='e'>" + rows + "</Enum></Enums>";
}

/// Every class once, in groups; every third control leaves out what it is told of showing and input.
QString Body()
{
    QString body;
    QStringList classes = DelegateClassNames();
    classes.removeOne(Group);
    classes << "FrequencyEdit";
    for (int i = 0; i < classes.size(); ++i) {
        QStringList properties{"generateParameterXml=Bool:true", "labelText=String:l", "text=String:t", "value=String:7",
            "minimum=String:-50", "maximum=String:5000", "decimals=Int:2", "enumName=String:e", "itemCount=Int:3",
            "rowCount=Int:2", "columnCount=Int:2", "spacingsCount=Int:3", "parameterListItemTag=String:i",
            "startFrequency=String:7", "stopFrequency=String:9", "startFrequencyParameterXmlTag=String:startFrequency",
            "stopFrequencyParameterXmlTag=String:stopFrequency"};
        const bool isMain = i == classes.size() - 1;
        if (i % 3 != 0 || isMain)
            properties << "visible=Bool:true" << "enabled=Bool:true";
        if (isMain)
            properties << "MainFreqEdit=Bool:true";
        if (i % 8 == 0)
            body += Widget(Group + QString::number(i), Group, {"visible=Bool:true", "text=String:Group"});
        body += Widget(isMain ? "MainFrequency" : classes.at(i), classes.at(i), properties);
    }
    return body + "</Sheet>" + Enumeration(0) + "<Sheet name='sheet'>";
}

/// The texts of a parameter document: by element, and for entries of lists with all their attributes, as "List 1 2".
QMap<QString, QString> TextsOf(const QString &document)
{
    QMap<QString, QString> texts;
    QString control, at;
    int depth = 0;
    QXmlStreamReader reader(document);
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement && ++depth > 1) {
            if (depth == 2)
                control = reader.name().toString();
            else
                texts.remove(control);
            at = control;
            for (const QXmlStreamAttribute &attribute : reader.attributes())
                at += depth == 2 ? QString() : ' ' + attribute.value();
            texts[at] = "";
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
            at.clear();
        } else if (token == QXmlStreamReader::Characters && !at.isEmpty()) {
            texts[at] += reader.text();
        }
    }
    return texts;
}

} // namespace

/// Who took a step, which decides what it may leave behind.
enum class Road { Operator, Host, Switch, Limits, Script, Document };

class Walk
{
public:
    explicit Walk(quint32 seed) : live(Body()), Dice(seed)
    {
        live.window->resize(900, 2500);
        for (int i = 0; i < live.form->GetSheet().GetWidgetCount(); ++i)
            Controls << live.form->GetSheet().GetWidgetAt(i)->GetName();
        Written = Document();
        CollectScripts();
    }

    /// Takes a step and tells what is wrong after it.
    QStringList Step()
    {
        using Act = Road (Walk::*)();
        static constexpr Act acts[] = {&Walk::Type, &Walk::Type, &Walk::Type, &Walk::Click, &Walk::RunScript, &Walk::RunScript,
            &Walk::SetNode, &Walk::LimitNode, &Walk::Read, &Walk::Apply, &Walk::Change, &Walk::Init, &Walk::Switch, &Walk::Lock, &Walk::Collapse};
        ++Steps;
        Faults.clear();
        if (Typed && !Typed->hasFocus())
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
    template <class List> auto Pick(const List &list) { return list[Roll(int(std::size(list)))]; }
    void Note(const QString &what)
    {
        Notes << QString::number(Steps) + ": " + what;
        if (Notes.size() > 12)
            Notes.removeFirst();
    }
    OrbelDelegate *Get(const QString &name) const { return live.Get(name); }
    static ValueBase *Node(const QString &name) { return Tree::Instance()->GetNode("/Form/" + name); }
    static double Number(const QString &name) { return dynamic_cast<IValueNumeric *>(Node(name))->GetValue(); }

    // What can happen.

    Road Type()
    {
        QVector<QWidget *> fields;
        for (QWidget *child : live.window->findChildren<QWidget *>())
            if (child->focusPolicy() & Qt::TabFocus && child->isEnabled() && child->isVisible())
                fields << child;
        if (!fields.isEmpty() && (Roll(2) || !live.window->focusWidget()))
            Pick(fields)->setFocus();
        if (!live.window->focusWidget())
            live.window->setFocus();
        QStringList typed = Roll(2) ? QStringList{"Ctrl+A", Pick(Entries), Roll(2) ? "Return" : "Tab"} : QStringList();
        for (int i = Roll(4); i > 0; --i)
            typed << Pick(Roll(2) ? Entries : Strokes);
        Note("type " + live.window->focusWidget()->objectName() + ": " + typed.join(", "));
        for (const QString &stroke : qAsConst(typed)) {
            QWidget *field = QApplication::focusWidget() ? QApplication::focusWidget() : live.window.get();
            const std::function<void()> check = stroke == "Return" || stroke == "Tab" ? CommitCheck(field) : nullptr;
            Entries.contains(stroke) ? QTest::keyClicks(field, stroke) : QTest::keySequence(field, QKeySequence(stroke));
            if (check)
                check();
            Typed = stroke == "Return" ? nullptr : QApplication::focusWidget();
        }
        return Road::Operator;
    }
    /// Checks later that what stands in a field now has reached the node; null when it need not.
    std::function<void()> CommitCheck(const QWidget *field)
    {
        const auto *edit = qobject_cast<const QLineEdit *>(field);
        const auto *spin = qobject_cast<const VCNumericFloatSpin *>(field);
        const QString place = field->objectName() == "frequency" ? "MainFrequency"
            : QString(field->objectName()).replace("_StartFrequency", "_1").replace("_StopFrequency", "_2");
        const QString name = place.section('_', 0, 0);
        auto *node = dynamic_cast<IValueNumeric *>(Node(place));
        bool isNumber = false;
        // Integers and frequencies are whole.
        double wanted = 0, slack = 0.9999;
        if (spin && !spin->isReadOnly()) {
            wanted = qBound(spin->minimum(), spin->cleanText().toDouble(&isNumber), spin->maximum()) / Factor(name);
            if (!name.startsWith("SpinBox"))
                slack = Rounding(spin->decimals()) / Factor(name);
        } else if (edit && !edit->isReadOnly() && edit->hasAcceptableInput()) {
            wanted = FrequencyText::Read(edit->text(), QLocale::c()).value_or(0);
            isNumber = true;
        }
        if (node && isNumber)
            return [=] {
                const double number = qBound(node->GetMin(), wanted, node->GetMax());
                ExpectNear(name, "typed", node->GetValue(), number, slack);
            };
        if (edit && Texts.contains(name) && !edit->isReadOnly())
            return [=, text = edit->text()] { ExpectSame(name, "typed", Node(name)->GetStringValue(), text); };
        return nullptr;
    }
    Road Click()
    {
        QVector<QWidget *> fields;
        for (QWidget *child : live.window->findChildren<QWidget *>())
            if (child->isEnabled() && child->isVisible())
                fields << child;
        QWidget *field = Pick(fields);
        Note(QString("click ") + field->metaObject()->className() + ' ' + field->objectName());
        QTest::mouseClick(field, Qt::LeftButton);
        return Road::Operator;
    }
    Road RunScript()
    {
        QString script = Pick(Scripts);
        while (script.contains('$'))
            script.replace(script.indexOf('$'), 1, Pick(Numbers));
        while (script.contains('#'))
            script.replace(script.indexOf('#'), 1, QString::number(Roll(5)));
        Note(script);
        live.form->EvaluateScript(script);
        return script.contains("imum") ? Road::Limits : Road::Script;
    }
    /// Mostly on, so that there is something to type into.
    bool On() { return Roll(10) > 0; }
    Road Switch()
    {
        const QStringList states{".setEnabled(%1)", ".setVisible(%1)", ".setReadOnly(!%1)", ".forceFinishEditing()"};
        const QString script = Pick(Controls) + QString(Pick(states)).replace("%1", QString::number(On()));
        Note(script);
        live.form->EvaluateScript(script);
        return Road::Switch;
    }
    Road SetNode()
    {
        const QString path = Pick(Tree::Instance()->GetPaths());
        const QString text = Pick(Numbers + Choices);
        Note("node " + path + " = " + text);
        Tree::Instance()->GetNode(path)->SetStringValue(text, nullptr);
        return Road::Host;
    }
    Road LimitNode()
    {
        const QString path = Pick(Tree::Instance()->GetPaths());
        const double limit = Pick(Numbers).toDouble();
        const bool low = Roll(2);
        Note(QString("node %1 limit %2 %3").arg(path).arg(low).arg(limit));
        auto *node = dynamic_cast<IValueNumeric *>(Tree::Instance()->GetNode(path));
        // The limits of a range belong together.
        if (node && !path.contains(Range))
            low ? node->SetMin(limit, nullptr) : node->SetMax(limit, nullptr);
        return Road::Host;
    }
    Road Read()
    {
        QString document = Documents.isEmpty() || Roll(2) ? live.form->GetXmlString(false) : Pick(Documents);
        const QStringList places = document.split(QRegularExpression(">[^<\\s]*</"));
        if (Roll(3) == 0) {
            const int place = Roll(places.size() - 1) + 1;
            document = QStringList(places.mid(0, place)).join(">7</") + '>' + Pick(Numbers + Choices).remove('\'') + "</"
                + QStringList(places.mid(place)).join(">8</");
        }
        Note("read " + document.simplified().remove(' '));
        live.form->SetXmlString(document);
        Documents << document;
        if (Documents.size() > 5)
            Documents.removeFirst();
        return Road::Document;
    }
    Road Apply()
    {
        const bool onlyModified = Roll(2);
        Note(QString("fetch %1").arg(onlyModified));
        const auto fetched = TextsOf(live.form->GetXmlString(onlyModified));
        for (auto text = fetched.cbegin(); text != fetched.cend(); ++text)
            ExpectSame(text.key(), "fetched", text.value(), Written.value(text.key()));
        return Road::Document;
    }
    Road Change()
    {
        const QStringList properties{"value", "minimum", "maximum", "text", "checked", "currentValue", "startFrequency",
            "stopFrequency", "decimals", "suffix", "labelText"};
        const QString name = Pick(Controls), property = Pick(properties), value = Pick(Numbers).remove('\'');
        const QString changed = Widget(name, "", {property + (property == "checked" ? "=Bool:" : "=String:") + value});
        Note("changed " + changed);
        live.form->SetChangedORBEL(Definition(changed, Enumeration(Roll(4))));
        return Road::Script;
    }
    Road Init()
    {
        ValueDouble number("n");
        ValueSelection choice("n");
        number.SetMinMax(Pick(Numbers).toDouble(), Pick(Numbers).toDouble(), 1, nullptr);
        for (int i = Roll(4); i >= 0; --i)
            choice.AddItem(Choices.at(i), i, i + 1, nullptr);
        const QString name = Pick(Spins + Frequencies + QStringList{Range, "ComboBox"});
        Note(QString("init %1: %2...%3, %4").arg(name).arg(number.GetMin()).arg(number.GetMax()).arg(choice.GetItemCount()));
        live.form->InitVTValue(name, name == "ComboBox" ? static_cast<ValueBase *>(&choice) : &number);
        return Road::Limits;
    }
    Road Lock()
    {
        const bool enable = On();
        const auto scope = OrbelSheet::eEnableScope(Roll(3));
        Note(QString("input %1 scope %2").arg(enable).arg(scope));
        live.form->GetSheet().EnableInput(enable, scope);
        return Road::Switch;
    }
    Road Collapse()
    {
        const auto groups = live.form->GetSheet().FindWidgetsOfClass(Group);
        const auto group = Pick(groups);
        const bool show = On(), collapse = Roll(2);
        Note(QString("%1 %2 %3").arg(collapse ? "collapse" : "group", group->GetName()).arg(show));
        if (collapse)
            live.form->GetSheet().setGroupVisible(group.data(), show);
        else
            live.form->ShowGroup(group->GetName(), show);
        return Road::Switch;
    }
    /// What a script can set; $ stands for a value, # for a small number.
    void CollectScripts()
    {
        for (const QString &name : Spins + Frequencies)
            Scripts << name + ".setValue($)" << name + ".value = $";
        for (const QString &name : Spins + Frequencies + QStringList{Range})
            Scripts << name + ".setMinimum($)" << name + ".setMaximum($)" << name + ".minimum = $" << name + ".maximum = $";
        for (const QString &name : Spins)
            Scripts << name + ".setSingleStep($)" << name + ".setDecimals(#)" << name + ".setDisplayScalingFactor(# / 2 + 0.5)";
        for (const QString &name : Lists)
            Scripts << name + ".setItemValue(#, $)" << name + ".setPrefix('p')";
        for (const QString &name : Cells)
            Scripts << name + ".setItemValue(#, #, $)" << name + ".clear()" << name + ".setRowCount(#)"
                    << name + ".setColumnCount(#)";
        for (const QString &name : Texts + QStringList{"Label"})
            Scripts << name + ".setText($)" << name + ".text = $";
        Scripts << "FrequencyRangeEdit.setRange($, $)" << "FrequencyRangeEdit.startFrequency = $"
                << "FrequencyRangeEdit.stopFrequency = $" << "BandwidthEdit.setUnitScale(Math.pow(10, 3 * (# % 4)))"
                << "CheckBox.setChecked($)" << "ComboBox.setCurrentValue(#)" << "ComboBox.setCurrentValue($)"
                << "HiddenParameter.setValue($)" << "HiddenList.setItemValue(#, $)" << "HiddenList.setItemCount(#)"
                << "HiddenMap.setValue($, $)" << "HiddenMap.remove($)" << "ChannelSpacingTable.setSpacingValue(#, $)"
                << "ChannelSpacingTable.setAllSpacingValues($)" << "ChannelSpacingTable.setSpacingsCount(#)";
    }

    // What must be true after each step.

    void Check()
    {
        CheckMarks();
        for (const QString &name : Spins)
            CheckSpin(name);
        CheckFrequency("FrequencyEdit", "FrequencyEdit", "value", "FrequencyEdit");
        CheckFrequency("MainFrequency", "MainFrequency", "value", "frequency");
        CheckFrequency(Range, Range + "_1", "startFrequency", Range + "_StartFrequency");
        CheckFrequency(Range, Range + "_2", "stopFrequency", Range + "_StopFrequency");
        // A script or document sets each bound as it is.
        Expect(Number(Range + "_1") < Number(Range + "_2"), Range, "inverted", true);
        for (const QString &name : Texts)
            CheckText(name, "text", live.Find<QLineEdit>(name));
        CheckText("HiddenParameter", "value", nullptr);
        CheckLists();
        CheckChoices();
        CheckStores();
        for (const QString &name : qAsConst(Controls))
            CheckState(name);
        std::swap(Standing, StandingBefore);
        Standing.clear();
    }

    /// Notes a fault unless the truth holds. One that is told may come from a script or a document, and stays then.
    void Expect(bool truth, const QString &name, const QString &fault, bool told = false)
    {
        const bool fresh = Last == Road::Script || Last == Road::Document;
        if (truth)
            return;
        if (told && (fresh || StandingBefore.contains(name)))
            Standing << name;
        else
            Faults << name + ": " + fault;
    }
    void ExpectSame(const QString &name, const QString &what, const QString &found, const QString &wanted)
    {
        Expect(found == wanted, name, QString("%1 '%2' is not '%3'").arg(what, found, wanted));
    }
    void ExpectNear(const QString &name, const QString &what, double found, double wanted, double slack)
    {
        Expect(std::fabs(found - wanted) <= slack + std::fabs(wanted) * 1e-14, name, QString("%1 %2 is not %3").arg(what).arg(found, 0, 'g', 17).arg(wanted, 0, 'g', 17));
    }
    /// What is lost at most in a text of so many decimal places.
    static double Rounding(int places) { return 0.5001 * std::pow(10, -places); }
    bool IsPending(const QWidget *field) const
    {
        const auto *edit = qobject_cast<const QLineEdit *>(field);
        return field->hasFocus() && (field == Typed || (edit && !edit->hasAcceptableInput()));
    }
    /// A text that is no number stays in the property as it was told.
    bool IsNumber(const QString &name, const char *property) const
    {
        bool ok = false;
        Get(name)->property(property).toDouble(&ok);
        return ok;
    }

    /// What the controls write, without taking their marks as a fetched document does.
    QMap<QString, QString> Document() const
    {
        QString text;
        QXmlStreamWriter writer(&text);
        writer.writeStartElement("Parameters");
        for (const QString &name : Controls)
            Get(name)->GetXml(writer);
        writer.writeEndElement();
        return TextsOf(text);
    }
    void CheckMarks()
    {
        QSet<QString> marked;
        for (const QString &name : qAsConst(Controls))
            if (Get(name)->isModified())
                marked << name;
        std::swap(Marked, marked);
        Expect(!live.form->GetSheet().isModified() || !Marked.isEmpty(), "sheet", "Apply is lit for nothing");
        const auto before = std::exchange(Written, Document());
        for (auto text = Written.cbegin(); text != Written.cend(); ++text) {
            const QString name = Bounds.contains(text.key()) ? Range : text.key().section(' ', 0, 0);
            // A node's change of a hidden parameter is nobody's edit.
            const bool mustMark = Last <= Road::Switch && name != "HiddenParameter";
            if (mustMark && before.value(text.key()) != text.value())
                Expect(Marked.contains(name), name, "changed to '" + text.value() + "' without a mark");
        }
        for (const QString &name : Marked - marked)
            Expect(Last <= Road::Switch || (Last == Road::Script && MarkedByScripts.contains(name)), name, "marked");
    }

    void CheckSpin(const QString &name)
    {
        if (!IsNumber(name, "value"))
            return;
        const bool isDouble = name == "DoubleSpinBox" || name == "BaudRateSpinBox";
        const int whole = Get(name)->GetInt("value", 0);
        const double property = name == "SpinBox" && whole == Number(name) ? whole : Get(name)->GetDouble("value", 0);
        Expect(property == Number(name), name, QString("property %1, node %2").arg(property, 0, 'g', 17).arg(Number(name), 0, 'g', 17));
        ExpectNear(name, "document", Written[name].toDouble(), Number(name), isDouble ? Rounding(Get(name)->GetInt("decimals", 0)) : 0);
        CheckSpinShows(name, name, Number(name) * Factor(name));
    }
    /// The integer's control, and those of a list, take it only when they are built.
    double Factor(const QString &name) const
    {
        const bool follows = Spins.contains(name) && name != "SpinBox";
        return follows ? Get(name)->GetDouble("displayScalingFactor", 1) : 1;
    }
    void CheckSpinShows(const QString &name, const QString &field, double number)
    {
        const auto *spin = live.Find<VCNumericFloatSpin>(field);
        if (!IsPending(spin))
            ExpectNear(name, "screen", spin->cleanText().toDouble(), number, Rounding(spin->decimals()));
    }

    void CheckFrequency(const QString &name, const QString &node, const char *property, const QString &field)
    {
        const auto *edit = live.Find<QLineEdit>(field);
        const double hertz = Number(node);
        if (!IsPending(edit))
            Expect(FrequencyText::Read(edit->text(), QLocale::c()).value_or(qQNaN()) == hertz, name, "screen " + edit->text() + ", node " + FrequencyText::Plain(hertz));
        if (!IsNumber(name, property))
            return;
        // Property and document tell whole hertz of a node that may have fractions.
        const QString whole = QString::number(std::trunc(hertz), 'f', 0);
        ExpectSame(name, "property", QString::number(std::trunc(Get(name)->property(property).toDouble()), 'f', 0), whole);
        ExpectSame(name, "document", Written.value(name == Range ? property : name), whole);
    }

    void CheckText(const QString &name, const char *property, const QLineEdit *field)
    {
        const QString text = Get(name)->property(property).toString();
        ExpectSame(name, "node", Node(name)->GetStringValue(), text);
        ExpectSame(name, "document", Written.value(name), text);
        if (field && !IsPending(field))
            ExpectSame(name, "screen", field->text(), text);
    }

    void CheckLists()
    {
        for (const QString &list : Lists) {
            for (int i = 0; i < 3; ++i) {
                const QString item = QString("%1_%2").arg(list).arg(i);
                const QString written = Written.value(QString("%1 %2").arg(list).arg(i));
                ExpectNear(list, "document", written.toDouble(), Number(item), Rounding(Get(list)->GetInt("decimals", 0)));
                CheckSpinShows(list, item, Number(item));
            }
        }
    }

    void CheckChoices()
    {
        const QString value = Get("ComboBox")->property("currentValue").toString();
        const QString name = Node("ComboBox")->GetStringValue();
        ExpectSame("ComboBox", "document", Written.value("ComboBox"), value);
        ExpectSame("ComboBox", "screen", live.Find<QComboBox>("ComboBox")->currentText(), name);
        // A value that no item has leaves the choice alone.
        Expect(Choices.value(value.toInt(), "?") == name, "ComboBox", "property " + value + ", node " + name, true);
        const QString checked = Get("CheckBox")->property("checked").toBool() ? "true" : "false";
        ExpectSame("CheckBox", "node", Node("CheckBox")->GetStringValue(), checked);
        ExpectSame("CheckBox", "screen", live.Find<QCheckBox>("CheckBox")->isChecked() ? "true" : "false", checked);
        ExpectSame("CheckBox", "document", Written.value("CheckBox"), checked);
    }

    /// What has no node, or does not listen to it.
    void CheckStores()
    {
        // Meant one way: a label's node feeds its text, and a text does not go into the node.
        const QString text = Get("Label")->property("text").toString();
        ExpectSame("Label", "screen", live.Find<QLabel>("Label")->text(), text);
        ExpectSame("Label", "document", Written.value("Label"), text);

        QMap<QString, QString> held;
        auto *map = live.Get<OrbelHiddenMap>("HiddenMap");
        for (const QString &key : map->keys())
            held["HiddenMap " + key] = map->value(key);
        // The table shows only cells that were edited, and those anywhere.
        auto *table = live.Get<OrbelTable>("TableWidget");
        auto *cells = live.Get<OrbelHiddenTable>("HiddenTable");
        for (int row = 0; row < 5; ++row) {
            for (int column = 0; column < 5; ++column) {
                const QString place = QString(" %1 %2").arg(row).arg(column);
                if (Written.contains("TableWidget" + place))
                    held["TableWidget" + place] = table->itemValue(row, column).toString();
                if (Written.contains("HiddenTable" + place))
                    held["HiddenTable" + place] = cells->itemValue(row, column);
            }
            if (Written.contains(QString("HiddenList %1").arg(row)))
                held[QString("HiddenList %1").arg(row)] = live.Get<OrbelHiddenList>("HiddenList")->itemValue(row);
        }
        for (auto item = held.cbegin(); item != held.cend(); ++item)
            ExpectSame(item.key(), "document", Written.value(item.key(), "nothing"), item.value());

        auto *spacings = live.Get<OrbelChannelSpacingTable>("ChannelSpacingTable");
        const auto *rows = live.Find<QTableWidget>("ChannelSpacingTable");
        for (int i = 0; i < rows->rowCount(); ++i) {
            const double spacing = spacings->spacingValue(i);
            ExpectNear("ChannelSpacingTable", "screen", rows->item(i, 0)->text().toDouble(), spacing, 0);
            ExpectNear("ChannelSpacingTable", "document", Written[QString("ChannelSpacingTable %1").arg(i)].toDouble(), spacing, Rounding(spacings->GetInt("decimals", 0)));
        }
    }

    /// A control is shown and enabled as it was told, except while its group is collapsed and the input is locked.
    void CheckState(const QString &name)
    {
        const QVariant visible = Get(name)->property("visible"), enabled = Get(name)->property("enabled");
        const bool isHeadline = name.startsWith(Group);
        const bool shown = (isHeadline || Get(name)->isGroupVisible()) && (!visible.isValid() || visible.toBool());
        const OrbelSheet &sheet = live.form->GetSheet();
        const bool free = sheet.IsInputEnabled(OrbelSheet::EnableScopeInput)
            && sheet.IsInputEnabled(OrbelSheet::EnableScopeSheet) && sheet.IsInputEnabled(OrbelSheet::EnableScopePartial)
            && (!enabled.isValid() || enabled.toBool());
        if (const auto *label = live.Find<QLabel>("label" + name))
            Expect(label->isHidden() != (shown && visible.toBool()), name, "label");
        // The script row's container, and the integer list's controls, hear nothing.
        if (name == "ScriptControl" || name == "SpinBoxList")
            return;
        const QWidget *control = live.Find(name == "MainFrequency" ? "FrequencyControl" : name == Range ? name + "_StopFrequency" : Lists.contains(name) ? name + "_1" : name);
        if (!control)
            return;
        Expect(control->isHidden() != shown, name, shown ? "hidden" : "shown");
        // A headline stays usable, and the items of a list have their own state.
        if (!isHeadline && !Lists.contains(name))
            Expect(control->isEnabled() == free, name, free ? "disabled" : "enabled");
    }

    LiveForm live;
    QRandomGenerator Dice;
    QStringList Controls, Scripts, Documents, Notes, Faults;
    QSet<QString> Standing, StandingBefore, Marked;
    QMap<QString, QString> Written;
    Road Last = Road::Document;
    QPointer<QWidget> Typed;
    int Steps = 0;
};

class TestWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void everythingAgreesAfterEachStep()
    {
        bool stated = false;
        const int steps = qEnvironmentVariableIntValue("ORBEL_WALK_STEPS", &stated);
        const quint32 seed = qEnvironmentVariableIsSet("ORBEL_WALK_SEED") ? quint32(qEnvironmentVariableIntValue("ORBEL_WALK_SEED")) : 1;
        Walk walk(seed);
        for (int step = 1; step <= (stated ? steps : 1500); ++step) {
            const QStringList faults = walk.Step();
            QVERIFY2(faults.isEmpty(), qPrintable(QString("seed %1, step %2\n%3\n%4").arg(seed).arg(step).arg(walk.Tail(), faults.join('\n'))));
        }
    }
};

ORBEL_TEST_MAIN(TestWalk)
#include "tst_walk.moc"
