// How long a form of check boxes and line edits takes from text to window, and to scroll from top to bottom. Prints
// medians in milliseconds for a thousand controls and for twice as many.

#include "orbelformular.h"
#include "orbelparser.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextStream>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace
{

constexpr int Repeats = 7;

QString Definition(int controls)
{
    QString text = QStringLiteral("<ZkParamGui><Sheet name='sheet'>");
    for (int i = 0; i < controls; ++i) {
        if (i % 20 == 0)
            text += QStringLiteral("<Widget name='h%1' class='Headline'><Property name='text'><String>Group %1</String>"
                                   "</Property></Widget>")
                        .arg(i);
        text += QStringLiteral("<Widget name='c%1' class='%2'><Property name='labelText'><String>Control %1</String></Property>"
                               "<Property name='visible'><Bool>true</Bool></Property><Property name='enabled'><Bool>true"
                               "</Bool></Property><Property name='generateParameterXml'><Bool>true</Bool></Property></Widget>")
                    .arg(i)
                    .arg(i % 2 ? QLatin1String("CheckBox") : QLatin1String("LineEdit"));
    }
    return text + QStringLiteral("</Sheet></ZkParamGui>");
}

struct Times {
    double build;
    double show;
    double scroll;
};

double Lap(QElapsedTimer &timer)
{
    const double milliseconds = double(timer.nsecsElapsed()) / 1e6;
    timer.restart();
    return milliseconds;
}

Times Measure(const QString &text)
{
    Times times;
    QElapsedTimer timer;
    timer.start();
    const QExplicitlySharedDataPointer<KV218::OrbelFormular> form(KV218::OrbelParser().ParseORBEL(text));
    form->CreateValueTree(QStringLiteral("/Bench"));
    form->CreateGUI(true);
    const std::unique_ptr<QWidget> window(form->GetGUI());
    times.build = Lap(timer);
    window->resize(500, 800);
    window->show();
    QCoreApplication::processEvents();
    times.show = Lap(timer);
    QScrollBar *bar = window->findChild<QScrollArea *>()->verticalScrollBar();
    for (int step = 0; step <= 20; ++step) {
        bar->setValue(bar->maximum() * step / 20);
        QCoreApplication::processEvents();
    }
    times.scroll = Lap(timer) / 21;
    return times;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double Print(int controls)
{
    const QString text = Definition(controls);
    std::vector<double> build;
    std::vector<double> show;
    std::vector<double> scroll;
    std::vector<double> all;
    for (int i = 0; i < Repeats; ++i) {
        const Times times = Measure(text);
        build.push_back(times.build);
        show.push_back(times.show);
        scroll.push_back(times.scroll);
        all.push_back(times.build + times.show);
    }
    QTextStream(stdout) << QStringLiteral("%1 controls: build %2 ms, show %3 ms, together %4 ms, one scroll step %5 ms\n")
                               .arg(controls)
                               .arg(Median(build), 0, 'f', 1)
                               .arg(Median(show), 0, 'f', 1)
                               .arg(Median(all), 0, 'f', 1)
                               .arg(Median(scroll), 0, 'f', 2);
    return Median(all);
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const double thousand = Print(1000);
    const double twoThousand = Print(2000);
    QTextStream(stdout) << QStringLiteral("twice as many take %1 times as long\n").arg(twoThousand / thousand, 0, 'f', 2);
    return 0;
}
