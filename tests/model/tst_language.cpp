// A change of the language while a form lives: what it shows follows, and nothing else changes.

#include "liveform.h"
#include "translationcenter.h"

namespace
{

/// While it lives, every text but Qt's own reads «text».
class Quoting : public QTranslator
{
public:
    Quoting() { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return *context == 'Q' ? QString() : QString(QStringLiteral("«%1»")).arg(text);
    }
};

QStringList HeaderTexts(const QTableWidget &table)
{
    QStringList texts;
    for (int column = 0; column < table.columnCount(); ++column)
        texts << table.horizontalHeaderItem(column)->text();
    return texts;
}

/// All that a window tells its operator, except values: "place: text".
QStringList TextsOf(const QWidget *window)
{
    QStringList all;
    const auto add = [&](const QObject *object, const QStringList &texts) {
        for (const QString &text : texts) {
            if (text.contains(QRegularExpression("[a-z]{3}")) && !text.contains("...</"))
                all << object->objectName() + ": " + text;
        }
    };
    for (const QWidget *widget : window->findChildren<QWidget *>()) {
        add(widget, {widget->toolTip(), widget->accessibleName()});
        if (const auto *label = qobject_cast<const QLabel *>(widget))
            add(label, {label->text()});
        else if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
            add(button, {button->text()});
        else if (const auto *group = qobject_cast<const QGroupBox *>(widget))
            add(group, {group->title()});
        else if (const auto *table = qobject_cast<const QTableWidget *>(widget))
            add(table, HeaderTexts(*table));
        else if (const auto *box = qobject_cast<const QComboBox *>(widget))
            for (int i = 0; i < box->count(); ++i)
                add(box, {box->itemText(i)});
        for (const QAction *action : widget->actions())
            add(action, {action->text(), action->statusTip()});
    }
    return all;
}

QStringList Unquoted(const QStringList &texts)
{
    QStringList plain;
    for (const QString &text : texts) {
        if (!text.contains("«"))
            plain << text;
    }
    return plain;
}

/// What has nothing to do with the language: nodes, properties, marks.
QString StateOf(const Form &form)
{
    QString state;
    QTextStream out(&state);
    const OrbelSheet &sheet = form->GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const OrbelDelegate *delegate = sheet.GetWidgetAt(i)->GetDelegate();
        const ValueBase *node = delegate->GetVTValue();
        out << sheet.GetWidgetAt(i)->GetName() << (delegate->isModified() ? "*" : "")
            << (node ? node->GetStringValue() : "");
        for (const QByteArray &name : delegate->dynamicPropertyNames())
            out << ' ' << name << '=' << delegate->property(name).toString();
    }
    return state;
}

} // namespace

class TestLanguage : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextFollows_data()
    {
        const auto row = Columns<QString>({"script"});
        // clang-format off
        row("as it is made", QString());
        row("groups are collapsed", QString("texts.setGroupVisible(false); comboBox.setGroupVisible(false)"));
        row("controls are locked", QString("lineEdit.setEnabled(false); frequencyEdit.setReadOnly(true)"));
        row("texts of a script", QString("lineEdit.setLabelText('new label'); label.setText('new text');spinBox.setMaximum(7); pushButton.setText('another'); spacings.setHeaderLabel('another header');scriptControl.setCustomProperty('scriptloaded', true)"));
        // clang-format on
    }

    void everyTextFollows()
    {
        const auto [script] = Fetch<QString>({"script"});
        const Form form = Example("all_controls.orbel");
        form->GetSheet().InsertWidget("external", "from the host", new QWidget, -1);
        form->CreateValueTree("/Form");
        form->CreateGUI(true);
        // Never shown: what an operator sees later is right as well.
        const std::unique_ptr<QWidget> window(form->GetGUI());
        form->EvaluateScript("sheet.setAutoApplyEnabled(false);" + script);
        auto *box = window->findChild<QComboBox *>("comboBox");
        form->GetXmlString(false);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Down);
        QCoreApplication::processEvents();
        const QStringList plain = TextsOf(window.get());
        const QString state = StateOf(form);
        EventLog log;
        log.Watch("sheet", form->GetSheet().GetUi());
        for (int i = 0; i < form->GetSheet().GetWidgetCount(); ++i)
            log.Watch(form->GetSheet().GetWidgetAt(i)->GetName(), form->GetSheet().GetWidgetAt(i)->GetDelegate());
        {
            const Quoting language;
            QCoreApplication::processEvents();
            QCOMPARE(TextsOf(window.get()).size(), plain.size());
            QCOMPARE(Unquoted(TextsOf(window.get())).join('\n'), QString());
            QCOMPARE(box->currentText(), QString("«Upper sideband»"));
            const AllControls late;
            QCOMPARE(Unquoted(TextsOf(late.window.get())).join('\n'), QString());
        }
        QCoreApplication::processEvents();
        QCOMPARE(TextsOf(window.get()), plain);
        QCOMPARE(StateOf(form), state);
        QVERIFY(state.contains("comboBox*"));
        QCOMPARE(log.Seen(), QString());
    }

    /// What a host, a script or the definition has put in place of a text of the library's stays.
    void textsOfOthersStay()
    {
        LiveForm live(Widget("h", "Headline", {"text=String:head", "toolTip=String:own"})
            + Widget("l", "LineEdit", {"labelText=String:first", "toolTip=String:lost"})
            + Widget("c", "ComboBox", {"labelText=String:label", "toolTip=String:own"})
            + Widget("p", "PushButton", {"text=String:first"}) + Widget("r", "FrequencyRangeEdit"));
        live.form->EvaluateScript("l.setLabelText('second'); p.setText('second'); h.setText('second');");
        live.Get("r")->setProperty("toolTip", "own");
        const Quoting language;
        QCoreApplication::processEvents();
        const auto toolTip = [&](const QString &name) { return live.Find(name)->toolTip(); };
        QCOMPARE(toolTip("h") + toolTip("c") + toolTip("r_StartFrequency"), QString("ownownown"));
        // Label and text follow the script, while title and tooltips are what the control was made with.
        QCOMPARE(live.Find<QLabel>("labell")->text() + toolTip("l"), QString("«second»«first»"));
        QCOMPARE(live.Find<QPushButton>("p")->text() + toolTip("p"), QString("«second»«first»"));
        QCOMPARE(live.Find<QGroupBox>("h")->title(), QString("«head»"));
    }

    /// Every text of the library's own has its translation, with the same arguments and mnemonics; English has its
    /// plurals.
    void theCatalogueIsComplete_data()
    {
        const auto row = Columns<QStringList, int>({"options", "least"});
        row("de", {}, 30);
        row("en", {"-pluralonly"}, 0);
    }

    void theCatalogueIsComplete()
    {
#ifdef ORBEL_LUPDATE
        const auto [options, least] = Fetch<QStringList, int>({"options", "least"});
        const QString name = QString("orbelparser_%1.ts").arg(QTest::currentDataTag());
        const QTemporaryDir folder;
        const QString catalogue = folder.filePath(name);
        QVERIFY(QFile::copy(ORBEL_SOURCE_DIR "/translations/" + name, catalogue));
        const QStringList arguments{
            "-silent", "-no-obsolete", ORBEL_SOURCE_DIR "/host", ORBEL_SOURCE_DIR "/orbelparser"};
        QCOMPARE(QProcess::execute(ORBEL_LUPDATE, arguments + options + QStringList{"-ts", catalogue}), 0);
        QXmlStreamReader reader(BytesOf(catalogue));
        QStringList wrong;
        QString source;
        int count = 0;
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (reader.name() == QLatin1String("source"))
                source = reader.readElementText();
            if (reader.name() != QLatin1String("translation"))
                continue;
            const bool done = !reader.attributes().hasAttribute("type");
            const QString text = reader.readElementText(QXmlStreamReader::IncludeChildElements);
            const auto marks = [](const QString &of) {
                return QList<int>{of.count("%1"), of.count("%2"), of.count('&')};
            };
            ++count;
            if (!done || text.isEmpty() || marks(source) != marks(text))
                wrong << source + " = " + text;
        }
        // After a change of texts: scripts/translate.
        QCOMPARE(wrong.join('\n'), QString());
        QVERIFY(count >= least);
#else
        QSKIP("built without Qt's linguist tools");
#endif
    }

    /// The library brings its catalogue with it, and names a language that needs none, too.
    void theCatalogueIsFound_data()
    {
        const auto row = Columns<QLocale, QString, QString>({"locale", "apply", "headline"});
        row("German", QLocale("de_AT"), "Übernehmen", "head ausblenden");
        row("English", QLocale("en_GB"), "Apply", "Hide head");
    }

    void theCatalogueIsFound()
    {
        QFETCH(QLocale, locale);
        LiveForm live(Widget("h", "Headline", {"text=String:head"}));
        const auto speak = [](const QLocale &locale) {
            QLocale::setDefault(locale);
            TranslationCenter::Instance().Reload();
            QCoreApplication::processEvents();
        };
        speak(locale);
        const QString apply = live.Find<QPushButton>("applyButton")->text();
        const QString headline = live.Find("h")->toolTip();
        speak(QLocale::c());
        QTEST(apply, "apply");
        QTEST(headline, "headline");
        QCOMPARE(live.Find<QPushButton>("applyButton")->text(), QString("Apply"));
    }
};

ORBEL_TEST_MAIN(TestLanguage)
#include "tst_language.moc"
