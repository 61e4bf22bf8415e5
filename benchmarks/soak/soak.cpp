// Opens, edits, applies and closes form after form in one process: soak [FORMS]. Prints a line each hundred forms, and
// fails when a form leaves something behind, or when memory goes on growing. As many windows with the same controls in
// a QFormLayout come behind, opened, edited and closed in the same way.
//
// Memory is what the process occupies, without the pictures that Qt keeps for a while, up to ten megabytes. What Qt and
// the script engine keep for good is there after the first forms; from then on it must stay within two hundredths. What
// a form leaves allocated must be no more than what such a window does.

#include "handmade.h"
#include "orbelformular.h"
#include "orbelparser.h"
#include "orbelsheetui.h"
#include "translationcenter.h"
#include "tree.h"

#include <cstdio>
#include <malloc.h>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFont>
#include <QLocale>
#include <QMetaMethod>
#include <QPixmapCache>
#include <QScrollArea>
#include <QStyleFactory>
#include <QTimer>
#include <QtTest/qtestkeyboard.h>
#include <unistd.h>

namespace
{

constexpr int Warm = 100;
constexpr double Growth = 0.02;
constexpr double Rounding = 16; // bytes a form that a table grown once may come to

/// An application that tells how many are connected to it.
class Application : public QApplication
{
public:
    using QApplication::QApplication;
    int Connections() const
    {
        int count = 0;
        for (int i = 0; i < metaObject()->methodCount(); ++i) {
            const QMetaMethod method = metaObject()->method(i);
            if (method.methodType() == QMetaMethod::Signal)
                count += receivers('2' + method.methodSignature());
        }
        return count;
    }
};

struct Memory {
    double Used;
    double Resident;
};

/// Has the cache of pictures drop them. Their names it forgets in a timer of its own, each half minute; clear() would
/// stop that.
void EmptyPictureCache()
{
    const int limit = QPixmapCache::cacheLimit();
    QPixmapCache::setCacheLimit(0);
    QPixmapCache::setCacheLimit(limit);
}

void AwaitPictureCache()
{
    constexpr int halfMinute = 30000;
    EmptyPictureCache();
    QEventLoop loop;
    QTimer::singleShot(halfMinute + 1000, &loop, &QEventLoop::quit);
    loop.exec();
}

/// In megabytes: what is allocated, and what the process occupies.
Memory MemoryNow()
{
    constexpr double megabyte = 1024 * 1024;
    malloc_trim(0);
    const struct mallinfo2 heap = mallinfo2();
    QFile file(QStringLiteral("/proc/self/statm"));
    const bool known = file.open(QIODevice::ReadOnly);
    const double pages = known ? file.readAll().split(' ').value(1).toDouble() : 0;
    return {double(heap.uordblks + heap.hblkhd) / megabyte, pages * double(sysconf(_SC_PAGESIZE)) / megabyte};
}

/// What the operator's keys do to every control, the apply button among them.
void Type(QWidget *window)
{
    QList<QPointer<QWidget>> controls;
    for (QWidget *control : window->findChildren<QWidget *>())
        controls.append(control);
    for (const QPointer<QWidget> &control : qAsConst(controls)) {
        // A menu or a dialog would wait for somebody.
        if (!control || control->focusPolicy() == Qt::NoFocus || !control->isEnabled() || !control->isVisible())
            continue;
        control->setFocus();
        for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Up, Qt::Key_1, Qt::Key_Down, Qt::Key_Return}) {
            if (control)
                QTest::keyClick(control.data(), key);
        }
    }
}

/// One form's life. Gives how often its parameters were fetched.
int Live(const QByteArray &definition, int number)
{
    QExplicitlySharedDataPointer<KV218::OrbelFormular> form(KV218::OrbelParser().ParseORBEL(definition));
    form->SetName(QStringLiteral("Soak"));
    form->CreateValueTree(QStringLiteral("/Soak"));
    form->CreateGUI(true);
    int fetched = 0;
    QObject::connect(form.data(), &KV218::OrbelFormular::si_parametersModified,
        [&] { fetched += !form->GetXmlString(true).isEmpty(); });
    std::unique_ptr<QWidget> window(form->GetGUI());
    window->resize(500, 600);
    window->show();
    window->activateWindow();
    QCoreApplication::processEvents();
    Type(window.get());
    form->applyNow();
    form->SetXmlString(form->GetXmlString(false));
    form->SetChangedORBEL(QString::fromUtf8(definition));
    QCoreApplication::processEvents();
    // Either may go first.
    if (number % 2 == 0)
        window.reset();
    form.reset();
    window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    return fetched;
}

/// The life of a window written by hand.
void LivePeer(const QLayout &form)
{
    const std::unique_ptr<QWidget> window = HandMade(form);
    window->resize(500, 600);
    window->show();
    window->activateWindow();
    QCoreApplication::processEvents();
    Type(window.get());
    QCoreApplication::processEvents();
}

/// What each form leaves allocated behind the first ones, in bytes.
double LeftByEach(const Memory &warm, const Memory &now, int forms)
{
    return (now.Used - warm.Used) * 1024 * 1024 / (forms - Warm);
}

/// The same of windows written by hand.
double LeftByEachPeer(const QByteArray &definition, int windows)
{
    QExplicitlySharedDataPointer<KV218::OrbelFormular> form(KV218::OrbelParser().ParseORBEL(definition));
    form->CreateValueTree(QStringLiteral("/Soak"));
    form->CreateGUI(true);
    const std::unique_ptr<QWidget> gui(form->GetGUI());
    const QLayout *const layout = gui->findChild<QScrollArea *>()->widget()->layout();
    Memory warm = {0, 0};
    Memory now = {0, 0};
    for (int number = 1; number <= windows; ++number) {
        LivePeer(*layout);
        if (number != Warm && number != windows)
            continue;
        AwaitPictureCache();
        (number == Warm ? warm : now) = MemoryNow();
    }
    return LeftByEach(warm, now, windows);
}

/// Nodes, widgets and registered translations.
QStringList Standing()
{
    QStringList standing = Tree::Instance()->GetPaths();
    for (const QWidget *widget : QApplication::allWidgets())
        standing.append(QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName());
    return standing + TranslationCenter::Instance().GetRegistered();
}

int Fail(const char *what, const QString &detail)
{
    std::fprintf(stderr, "soak: %s: %s\n", what, qPrintable(detail));
    return 1;
}

} // namespace

int main(int argc, char **argv)
{
    const int forms = argc > 1 ? QByteArray(argv[1]).toInt() : 1000;
    QLocale::setDefault(QLocale::c());
    const Application application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    QFile file(QStringLiteral(ORBEL_EXAMPLES_DIR "/forms/all_controls.orbel"));
    if (!file.open(QIODevice::ReadOnly))
        return Fail("cannot open", file.fileName());
    const QByteArray definition = file.readAll();

    const QStringList before = Standing();
    int connections = 0;
    std::printf("%6s %14s %14s %10s\n", "forms", "allocated, MB", "resident, MB", "time, s");
    QElapsedTimer clock;
    clock.start();
    Memory warm = {0, 0};
    Memory now = {0, 0};
    double most = 0;
    for (int number = 1; number <= forms; ++number) {
        if (Live(definition, number) == 0)
            return Fail("the operator's edits changed nothing", QString::number(number));
        const QStringList after = Standing();
        if (after != before)
            return Fail("left behind", after.join(QStringLiteral(", ")));
        // The first form makes Qt connect some things of its own to the application.
        if (number == 1)
            connections = application.Connections();
        if (application.Connections() != connections)
            return Fail("connections to the application", QString::number(application.Connections()));
        if (number % 100 != 0 && number != forms)
            continue;
        EmptyPictureCache();
        if (number == Warm || number == forms)
            AwaitPictureCache();
        now = MemoryNow();
        std::printf("%6d %14.2f %14.2f %10.1f\n", number, now.Used, now.Resident, double(clock.elapsed()) / 1000);
        std::fflush(stdout);
        if (number == Warm)
            warm = now;
        if (number > Warm)
            most = std::max(most, now.Resident / warm.Resident - 1);
    }
    if (forms <= Warm)
        return 0;
    std::printf("most growth since form %d: %.2f %%\n", Warm, 100 * most);
    if (most > Growth)
        return Fail("memory grows", QString::number(100 * most) + QLatin1Char('%'));
    const double left = LeftByEach(warm, now, forms);
    const double peers = LeftByEachPeer(definition, forms);
    std::printf("left allocated by each form: %.0f bytes, by each window with a QFormLayout: %.0f\n", left, peers);
    return left <= peers + Rounding ? 0 : Fail("a form leaves more than its peer", QString::number(left));
}
