// A form without a mouse and without a screen: where the focus goes, and what an assistive tool hears.

#include "liveform.h"
#include "rowlabel.h"
#include "testmain.h"
#include "tree.h"

#include <QAccessible>
#include <QtTest>

using namespace forms;

namespace
{

const QStringList Usable{"visible=Bool:true", "enabled=Bool:true"};

[[maybe_unused]] QString Labelled(const QString &name, const QString &className, const QStringList &properties = {})
{
    return Widget(name, className, Usable + QStringList{"labelText=String:" + name} + properties);
}

/// The example with every class once.
struct AllControls {
    AllControls() : form(KV218::OrbelParser().ParseORBELFile(ORBEL_EXAMPLES_DIR "/forms/all_controls.orbel"))
    {
        form->CreateValueTree("/All");
        form->CreateGUI(true);
        window.reset(form->GetGUI());
        window->resize(900, 900);
        window->show();
        window->activateWindow();
    }

    Form form;
    std::unique_ptr<QWidget> window;
};

QAccessibleInterface *Heard(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

[[maybe_unused]] QString Name(QWidget *widget)
{
    return Heard(widget)->text(QAccessible::Name);
}

[[maybe_unused]] QString Description(QWidget *widget)
{
    return Heard(widget)->text(QAccessible::Description);
}

/// What is wrong with a tree as a tool walks it.
void Complain(QAccessibleInterface *parent, QStringList &complaints, QStringList &names)
{
    QStringList ofGroup;
    for (int i = 0; i < parent->childCount(); ++i) {
        QAccessibleInterface *child = parent->child(i);
        const QAccessible::State state = child->state();
        const QString name = child->text(QAccessible::Name);
        const QString description = child->text(QAccessible::Description);
        const QString place = QString("%1 '%2' in '%3'")
                                  .arg(child->object() ? child->object()->metaObject()->className() : "item", name,
                                      parent->text(QAccessible::Name));
        if (state.focusable && child->object()) {
            names << name + (description.isEmpty() ? QString() : ": " + description);
            if (name.isEmpty())
                complaints << "no name: " + place;
            else if (ofGroup.contains(name))
                complaints << "twice: " + place;
            ofGroup << name;
        }
        if (Qt::mightBeRichText(description) || Qt::mightBeRichText(name))
            complaints << "markup: " + place + description;
        Complain(child, complaints, names);
    }
}

} // namespace

class TestKeyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void everythingHasAName()
    {
        AllControls all;
        QStringList complaints;
        QStringList names;
        Complain(Heard(all.window.get()), complaints, names);
        qDebug().noquote() << names.join('\n');
        QCOMPARE(complaints.join('\n'), QString());
    }
};

ORBEL_TEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"
