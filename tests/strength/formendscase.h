#pragma once

#include "liveform.h"
#include "orbelformularmanager.h"
#include "translationcenter.h"
#include "valueselection.h"

/// Hears signals, nodes, events and scripts, and acts once: when it hears what is wanted.
class Ears : public QObject, public IObserver
{
    Q_OBJECT

public:
    Ears()
    {
        connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget *, QWidget *now) { hear("the focus goes to " + (now ? now->objectName() : "none")); });
    }
    /// Hears the signals that not every object has.
    void Listen(QObject *sender)
    {
        const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("hearSignal()"));
        const QMetaObject *meta = sender->metaObject();
        for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
            if (meta->method(i).methodType() == QMetaMethod::Signal)
                connect(sender, meta->method(i), this, slot);
        }
    }
    /// Hears each node at these paths from its entry on, as the first to be told.
    void Await(const QStringList &paths)
    {
        Awaited = paths;
        for (const QString &path : paths)
            Tree::Instance()->ObservePath(path, this);
    }
    ~Ears() override
    {
        for (const QString &path : qAsConst(Awaited))
            Tree::Instance()->StopObservingPath(path, this);
    }
    /// Once it has acted.
    bool IsOver() const { return !ActedOn.isEmpty(); }

    void Update(Observable *subject, TChangeCode code) override
    {
        if (dynamic_cast<ValueBase *>(subject)) {
            HearNode(subject, code, "first");
            return;
        }
        for (const QString &path : qAsConst(Awaited)) {
            ValueBase *node = IsOver() ? nullptr : Tree::Instance()->GetNode(path);
            if (node && node->AddObserver(this))
                hear(path + " is entered");
        }
    }
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
            hear(object->objectName() + (event->type() == QEvent::Show ? " is shown" : " is hidden"));
        else if (event->type() == QEvent::DynamicPropertyChange)
            hear(object->objectName() + " is changed");
        else if (event->type() == QEvent::ToolTipChange)
            hear(object->objectName() + " gets a tooltip");
        return false;
    }

    bool event(QEvent *event) override
    {
        const bool isSet = event->type() == QEvent::DynamicPropertyChange;
        return (isSet && hear("a script sets a property of the host's")) || QObject::event(event);
    }

    /// The last whom a node tells, when added last.
    struct LastEar : IObserver {
        explicit LastEar(Ears *ears) : Owner(ears) { }
        void Update(Observable *subject, TChangeCode code) override { Owner->HearNode(subject, code, "last"); }
        Ears *Owner;
    } Last{this};
    /// Null while nothing is to be heard.
    std::function<void()> Act;
    QString Wanted, ActedOn;
    /// On a road on which one thing is heard at several steps: at which it is.
    int Step = 0;
    /// What was heard until then, each once, and the signals that came afterwards.
    QStringList Heard, Late;

Q_SIGNALS:
    void told();

public Q_SLOTS:
    bool hear(const QString &sound)
    {
        if (IsOver() || !Act)
            return IsOver();
        const QString what = Step > 0 ? QString("%1: %2").arg(Step).arg(sound) : sound;
        if (!Heard.contains(what))
            Heard << what;
        if (what != Wanted)
            return false;
        ActedOn = what;
        Act();
        return true;
    }
    void hearSignal()
    {
        const QString signal = ' ' + sender()->metaObject()->method(senderSignalIndex()).name();
        // Whoever is to be told of one signal is told to the last. One comes by an event of its own, which the loop may
        // bring before it drops the form.
        if (IsOver() && !ActedOn.endsWith(signal) && signal != " si_changesChanged")
            Late << sender()->objectName() + signal;
        hear(sender()->objectName() + signal);
    }

private:
    void HearNode(Observable *subject, TChangeCode code, const char *when)
    {
        const auto *node = dynamic_cast<ValueBase *>(subject);
        const bool ends = node->GetState() == ekStateDeleted;
        hear(node->GetPathName() + " tells the " + when + (ends ? " its end" : QString(" code %1").arg(code)));
    }

    QStringList Awaited;
};

enum class Stage { Parsed, Bound, Built, BuiltWithApplyRow, Managed };

/// A form with a control "subject" of some class, a line edit "z" and a control "guest" of the host's. All ears
/// are open.
class Scene
{
public:
    Scene(const QString &className, Stage stage) : Class(className), Fresh(NodesOf(className))
    {
        config.setObjectName("config");
        config.installEventFilter(&ears);
        ears.Await(Fresh);
        Make(stage);
    }
    ~Scene()
    {
        TakeWindow();
        delete window;
        manager.reset();
        form.reset();
        // What calls have kept goes while those are there who hear of it.
        QTest::qWait(0);
        if (guest && !guest->parent())
            delete guest;
    }
    /// The form; once all is over one that nobody hears of.
    KV218::OrbelFormular *operator->() { return ears.IsOver() ? &SpareForm : form.data(); }
    KV218::OrbelFormularManager *Manager()
    {
        ++ears.Step;
        return ears.IsOver() ? &SpareManager : manager.get();
    }

    void Make(Stage stage)
    {
        form = Parse(DefinitionOf(Class));
        form->SetName("Ends");
        form->setObjectName("form");
        form->GetSheet().GetUi()->setObjectName("sheet");
        Replaced = ears.IsOver();
        if (!Replaced)
            OpenEars();
        if (stage >= Stage::Bound)
            form->CreateValueTree("/Form");
        for (const QString &path : stage >= Stage::Bound && !Replaced ? Fresh : QStringList())
            Tree::Instance()->GetNode(path)->AddObserver(&ears.Last);
        if (stage < Stage::Built)
            return;
        form->CreateGUI(stage > Stage::Built);
        TakeWindow();
        for (const char *name : {"subject", "z"}) {
            if (auto *control = Replaced ? nullptr : window->findChild<QWidget *>(name))
                control->installEventFilter(&ears);
        }
        window->resize(300, 300);
        if (stage == Stage::Managed) {
            manager = std::make_unique<KV218::OrbelFormularManager>();
            ears.Listen(manager.get());
            manager->AddFormular(form.data());
            manager->ShowFormular("Ends");
        }
        // A range that had the focus would tell of leaving it when the window goes.
        window->setFocus();
        window->show();
        window->activateWindow();
        QCoreApplication::processEvents();
    }
    void TakeWindow()
    {
        if (!window && form)
            window = form->GetGUI();
    }
    void CloseWindow()
    {
        if (window)
            window->deleteLater();
        window.clear();
    }
    void Drop()
    {
        // A handler of what goes must not find it.
        std::exchange(manager, nullptr).reset();
        form.reset();
        AtOnce = Wrong();
    }

    bool HasEnded() const { return !form || Replaced; }
    bool IsGone() const
    {
        return std::none_of(Parts.begin(), Parts.end(), [](const QPointer<QObject> &part) { return part; });
    }
    /// What still stands of a form that has ended, and what is missing of its successor.
    QString Wrong() const
    {
        if (!HasEnded() || !AtOnce.isEmpty())
            return AtOnce;
        QStringList paths = Tree::Instance()->GetPaths();
        // A node that goes stands in its place until all have been told.
        if (ears.ActedOn.endsWith(" its end"))
            paths.removeAll(ears.ActedOn.section(": ", -1).section(' ', 0, 0));
        if (paths != (form ? Fresh : QStringList()))
            return "nodes: " + paths.join(' ');
        if (TranslationCenter::Instance().GetRegistered().contains("Ends") != bool(form))
            return "the name's registration";
        return ears.Late.isEmpty() ? QString() : "told afterwards: " + ears.Late.join(", ");
    }
    /// Empty for a form that does its work.
    QString Idle()
    {
        ears.ActedOn.clear();
        const QString before = Replaced ? form->GetVTValue("z")->GetStringValue() : "fresh";
        form->SetXmlString("<Parameters><z>read</z></Parameters>");
        const QString read = form->GetVTValue("z")->GetStringValue();
        form->EvaluateScript("z.setText('called')");
        const bool called = form->GetXmlString(false).contains("<z>called</z>");
        return before + read == "freshread" && called && form->GetSheet().isActive() ? QString()
                                                                                     : "idle " + before + read;
    }

    Ears ears;
    QObject config;
    Form form;
    std::unique_ptr<KV218::OrbelFormularManager> manager;
    QPointer<QWidget> window;
    QPointer<QLabel> guest;

private:
    static QString DefinitionOf(const QString &className)
    {
        const QStringList furnished{"enumName=String:e", "itemCount=Int:2", "rowCount=Int:2", "columnCount=Int:2",
            "spacingsCount=Int:2", "text=String:t", "parameterListItemTag=String:i"};
        const QStringList shown{"visible=Bool:true", "generateParameterXml=Bool:true", "labelText=String:l"};
        return Definition(Widget("h", "Headline", {"visible=Bool:true", "text=String:h"})
                + Widget("subject", className, furnished + shown)
                + Widget("z", "LineEdit", shown + QStringList{"text=String:fresh"}),
            Enum("e", "One=1 Two=2") + "<Script>if (this.hear) hear('runs');</Script>");
    }
    /// The paths of a form that nobody has touched.
    static QStringList NodesOf(const QString &className)
    {
        const Form form = Bind(DefinitionOf(className));
        return Tree::Instance()->GetPaths();
    }
    void OpenEars()
    {
        guest = new QLabel;
        guest->setObjectName("guest");
        guest->installEventFilter(&ears);
        form->GetSheet().InsertWidget("guest", "guest", guest, 1);
        form->SetConfigObject(&config, "k");
        form->SetScriptValue("ears", &ears);
        // The controls of a form that has ended take all that a script still does to them.
        form->EvaluateScript(
            "function hear(what) { if (!ears.hear('a script ' + what)) return;"
            "subject.setVisible(true); subject.setEnabled(true); subject.setModified(true); subject.setFocus();"
            "subject.setCustomProperty('c', 1); z.setText('late'); sheet.setModified(true); sheet.applyNow();"
            "throw 'late'; } ears.told.connect(function () { hear('hears the host'); ears.heard = 1; });");
        Parts = {form->GetScriptValues().value("sheet").engine(), form.data()};
        form->GetUndoStack()->setObjectName("stack");
        // It tells its other signals with this one, or when the loop comes round.
        QObject::connect(form->GetUndoStack(), &QUndoStack::indexChanged, &ears, &Ears::hearSignal);
        ears.Listen(form.data());
        for (const char *name : {"sheet", "subject", "z"}) {
            QObject *object = form->GetScriptValues().value(name).toQObject();
            Parts << object;
            ears.Listen(object);
            const QMetaObject *meta = object->metaObject();
            for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
                const QMetaMethod method = meta->method(i);
                if (method.methodType() == QMetaMethod::Signal)
                    form->EvaluateScript(QString("%1['%2'].connect(function () { hear('hears %1 %3'); });")
                                             .arg(name, QString(method.methodSignature()), QString(method.name())));
            }
        }
    }

    QString Class;
    QStringList Fresh;
    bool Replaced = false;
    QString AtOnce;
    /// What the first form consists of.
    QVector<QPointer<QObject>> Parts;
    KV218::OrbelFormular SpareForm;
    KV218::OrbelFormularManager SpareManager;
};
