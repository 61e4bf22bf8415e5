#include "fuzzsupport.h"

#include "orbelparser.h"
#include "tree.h"

#include <cstdio>
#include <cstdlib>
#include <QApplication>
#include <QFile>
#include <QLocale>
#include <QStyleFactory>
#include <QWidget>
#include <utility>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    QLocale::setDefault(QLocale::c());
    // Not deleted: the fuzzer ends the process in the middle of everything.
    new QApplication(*argc, *argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    return 0;
}

namespace fuzz
{

namespace
{

constexpr int InputsPerForm = 100;

/// How many nodes and windows there are.
int Count()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return Tree::Instance()->GetPaths().size() + QApplication::topLevelWidgets().size();
}

void TellWhatIsLeft()
{
    for (const QString &node : Tree::Instance()->GetPaths())
        std::fprintf(stderr, "node %s\n", qPrintable(node));
    for (const QWidget *window : QApplication::topLevelWidgets())
        std::fprintf(stderr, "window %s %s\n", window->metaObject()->className(), qPrintable(window->objectName()));
}

// Not deleted when the process ends: by then there is no application any more.
LiveForm *Kept = nullptr;
QByteArray KeptDefinition;
int InputsToGo = 0;

} // namespace

LiveForm::LiveForm(KV218::OrbelFormular *form, bool applyUi) : Before(Count()), Form(form)
{
    if (!Form)
        return;
    Form->GetScript() = KV218::OrbelScript();
    Form->CreateValueTree(QStringLiteral("/Fuzz"));
    Form->CreateGUI(applyUi);
    Window.reset(Form->GetGUI());
    Window->setAttribute(Qt::WA_DontShowOnScreen);
    Window->resize(400, 300);
    Window->show();
}

LiveForm::~LiveForm()
{
    Window.reset();
    Form.reset();
    if (Count() == Before)
        return;
    TellWhatIsLeft();
    std::abort();
}

LiveForm &KeptForm(const QByteArray &definition)
{
    if (InputsToGo == 0 || definition != KeptDefinition) {
        EndKeptForm();
        Kept = new LiveForm(KV218::OrbelParser().ParseORBEL(definition));
        KeptDefinition = definition;
        InputsToGo = InputsPerForm;
    }
    --InputsToGo;
    return *Kept;
}

LiveForm &AllControls()
{
    static const QByteArray example = [] {
        QFile file(QStringLiteral(ORBEL_EXAMPLES_DIR "/forms/all_controls.orbel"));
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }();
    return KeptForm(example);
}

void EndKeptForm()
{
    delete std::exchange(Kept, nullptr);
    InputsToGo = 0;
}

} // namespace fuzz
