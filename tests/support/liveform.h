#pragma once

#include "forms.h"

/// Everything that some objects emit and some nodes tell, in one order: "name.signal(arguments)" and "name=text".
class EventLog : public QObject, public IObserver
{
public:
    void Watch(const QString &name, QObject *sender)
    {
        const QMetaObject *meta = sender->metaObject();
        for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
            if (meta->method(i).methodType() != QMetaMethod::Signal)
                continue;
            QMetaObject::connect(sender, i, this, QObject::staticMetaObject.methodCount() + Signals.size());
            Signals.append({name, meta->method(i)});
        }
    }
    void Watch(const QString &name, ValueBase *node)
    {
        Nodes.insert(node, name);
        node->AddObserver(this);
    }
    /// Does something once, when the next event comes that begins with the text.
    void On(const QString &text, const std::function<void()> &action)
    {
        Text = text;
        Action = action;
    }
    /// What came since the last Take(), joined with blanks.
    QString Seen() const { return Entries.join(' '); }
    QString Take() { return std::exchange(Entries, {}).join(' '); }

    void Update(Observable *subject, TChangeCode code) override
    {
        auto *node = dynamic_cast<ValueBase *>(subject);
        if (code == ekChangeValue)
            Add(Nodes.value(node) + '=' + node->GetStringValue());
    }
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        id = QObject::qt_metacall(call, id, arguments);
        if (id < 0 || call != QMetaObject::InvokeMetaMethod)
            return id;
        const QMetaMethod &method = Signals.at(id).second;
        QStringList texts;
        for (int i = 0; i < method.parameterCount(); ++i)
            texts << QVariant(method.parameterType(i), arguments[i + 1]).toString();
        Add(Signals.at(id).first + '.' + method.name() + '(' + texts.join(", ") + ')');
        return -1;
    }

private:
    void Add(const QString &entry)
    {
        Entries << entry;
        if (Action && entry.startsWith(Text))
            std::exchange(Action, nullptr)();
    }

    QList<QPair<QString, QMetaMethod>> Signals;
    QHash<ValueBase *, QString> Nodes;
    QStringList Entries;
    QString Text;
    std::function<void()> Action;
};

/// A form with its window on the screen and a log that watches the sheet as "sheet". Automatic apply waits 100 ms.
struct LiveForm {
    explicit LiveForm(const QString &body, bool applyUi = true, const QString &path = "/Form")
        : form(Parse(
            Definition("<Properties><Property name='autoApplyTimeout'><Int>100</Int></Property></Properties>" + body)))
    {
        form->CreateValueTree(path);
        form->CreateGUI(applyUi);
        window.reset(form->GetGUI());
        window->resize(400, 400);
        window->show();
        QApplication::setActiveWindow(window.get());
        log.Watch("sheet", form->GetSheet().GetUi());
    }
    template <class Delegate = KV218::OrbelDelegate> Delegate *Get(const QString &name) const
    {
        return qobject_cast<Delegate *>(forms::Delegate(form, name));
    }
    template <class Widget = QWidget> Widget *Find(const QString &name) const
    {
        return window->findChild<Widget *>(name);
    }

    /// The text of a node.
    QString Node(const QString &name) const { return form->GetVTValue(name)->GetStringValue(); }

    // The first to come and the last to go: it does not let go of the nodes it watches.
    EventLog log;
    Form form;
    std::unique_ptr<QWidget> window;
};

/// Presses a key in what has the focus of the form, or else in its window.
inline void Press(const LiveForm &live, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QWidget *focus = live.window->focusWidget();
    QTest::keyClick(focus ? focus : live.window.get(), key, modifiers);
}

/// Types a text over what a field holds.
inline void TypeOver(QWidget *field, const QString &text)
{
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
}

/// The same, and ends with Return.
inline void Enter(QWidget *field, const QString &text)
{
    TypeOver(field, text);
    QTest::keyClick(field, Qt::Key_Return);
}

/// Opens the editor of a cell, as an operator does; gives it.
inline QWidget *OpenCell(QTableWidget *table, int row, int column = 0)
{
    table->setFocus();
    table->setCurrentCell(row, column);
    QTest::keyClick(table, Qt::Key_F2);
    return table->indexWidget(table->currentIndex());
}

/// Lets go what waits for the event loop: closed editors, ended forms.
inline void PassEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Types a text over what a cell holds, and ends with Return.
inline void EnterCell(QTableWidget *table, int row, const QString &text, int column = 0)
{
    Enter(OpenCell(table, row, column), text);
    PassEvents();
}

/// Lets all timers go off that are due within these milliseconds: timers go off in the order in which they are due,
/// however late that is.
inline void PassTimersBelow(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Closes modal dialogs and menus, which wait for the operator.
struct DialogCloser : QTimer {
    explicit DialogCloser(const std::function<void()> &opened = [] {})
    {
        connect(this, &QTimer::timeout, this, [opened] {
            QWidget *menu = QApplication::activePopupWidget();
            const QPointer<QWidget> open = menu ? menu : QApplication::activeModalWidget();
            if (open)
                opened();
            if (open)
                open->close();
        });
        start(0);
    }
};

/// While it lives, every text of one context reads "context:text".
class ContextTranslator : public QTranslator
{
public:
    explicit ContextTranslator(const QString &context) : Context(context) { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return context == Context ? Context + ':' + text : QString();
    }

private:
    QString Context;
};
