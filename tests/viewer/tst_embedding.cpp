// What a form and the widgets of its host do to each other.

#include "floatgrouplayout.h"
#include "forms.h"
#include "orbelsheetui.h"
#include "rows.h"
#include "testmain.h"

#include <QStyleFactory>
#include <QtTest>

using namespace forms;

class TestEmbedding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void textSizeFollows_data()
    {
        const auto row = Columns<bool, QString, QString>({"embeddedFirst", "ownSheet", "parentSheet"});
        row("restored, then embedded", false, "", "");
        row("restored with a style sheet of its own", false, "QWidget { color: red; }", "");
        row("embedded, then restored below a style sheet", true, "", "QWidget { color: red; }");
        row("embedded, then restored below a style sheet with a size", true, "", "QWidget { font-size: 15pt; }");
    }

    void textSizeFollows()
    {
        const auto [embeddedFirst, ownSheet, parentSheet]
            = Fetch<bool, QString, QString>({"embeddedFirst", "ownSheet", "parentSheet"});
        QObject configuration;
        configuration.setProperty("f-fontsize", 20);
        const Form form = Bind(Definition(Widget("b", "CheckBox", {"labelText=String:B", "visible=Bool:true"})));
        form->CreateGUI(true);
        QWidget *gui = form->GetGUI();
        gui->setStyleSheet(ownSheet);
        QWidget window;
        window.setStyleSheet(parentSheet);
        const auto embed = [&] { (new QVBoxLayout(&window))->addWidget(gui); };
        const auto restore = [&] { form->SetConfigObject(&configuration, "f"); };
        embeddedFirst ? (embed(), restore()) : (restore(), embed());
        form->ApplyConfiguration();
        QString seen;
        const auto look = [&] {
            seen += QString("%1 %2 %3, ")
                        .arg(gui->font().pointSize())
                        .arg(gui->findChild<QLabel *>()->font().pointSize())
                        .arg(configuration.property("f-fontsize").toInt());
        };
        window.show();
        look();
        Q_EMIT form->GetSheet().GetUi()->si_chooseFontSize(13);
        look();
        for (const QVariant &kept : {QVariant(), QVariant(16)}) {
            configuration.setProperty("f-fontsize", kept);
            form->RestoreConfiguration();
            look();
        }
        QCOMPARE(seen, QString("20 20 20, 13 13 13, 9 9 0, 16 16 16, "));
    }

    void aControlOfTheHostIsNoWindowOnItsWay()
    {
        struct Dial : QDial {
            void showEvent(QShowEvent *) override { WasWindow |= isWindow(); }
            bool WasWindow = false;
        };
        const Form form = Bind(Definition(""));
        auto *dial = new Dial;
        form->GetSheet().InsertWidget("dial", "Dial", dial, -1);
        form->CreateGUI(false);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        window->show();
        QVERIFY(dial->isVisible() && !dial->WasWindow);
    }
};

ORBEL_TEST_MAIN(TestEmbedding)
#include "tst_embedding.moc"
