#include "memory.h"

#include "orbelform.h"
#include "ownprocess.h"
#include "peers.h"
#include "work.h"

#include <malloc.h>
#include <QFile>
#include <QTextStream>

namespace memory
{

namespace
{

constexpr int WarmUpControls = 20;

double AnonymousBytes()
{
    malloc_trim(0);
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = status.readAll();
    const QByteArray line = text.mid(text.indexOf("RssAnon:") + int(sizeof("RssAnon:")));
    return line.left(line.indexOf("kB")).trimmed().toDouble() * 1024;
}

double TakenBy(const std::function<void()> &build)
{
    const double before = AnonymousBytes();
    build();
    return AnonymousBytes() - before;
}

double TakenByOurs(int controls)
{
    const QString text = work::Definition(controls);
    OrbelForm warmUp;
    warmUp.Build(work::Definition(WarmUpControls));
    OrbelForm form;
    return TakenBy([&] { form.Build(text); });
}

double TakenByUiLoader(int controls)
{
    const QByteArray text = work::UiText(controls);
    const auto warmUp = peer::LoadUi(work::UiText(WarmUpControls));
    std::unique_ptr<QWidget> form;
    return TakenBy([&] { form = peer::LoadUi(text); });
}

} // namespace

double InChild(Who who, int controls)
{
    const QString side = who == Who::Ours ? QStringLiteral("ours") : QStringLiteral("uiloader");
    return ownprocess::OutputOf({QStringLiteral("--memory"), side, QString::number(controls)}).toDouble();
}

bool RunAsChild(const QStringList &arguments)
{
    if (arguments.value(1) != QLatin1String("--memory"))
        return false;
    const int controls = arguments.value(3).toInt();
    const bool ours = arguments.value(2) == QLatin1String("ours");
    QTextStream(stdout) << QString::number(ours ? TakenByOurs(controls) : TakenByUiLoader(controls), 'f', 0) << '\n';
    return true;
}

} // namespace memory
