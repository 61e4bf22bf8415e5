// How long one value takes between the application and a form, both ways, for forms of a hundred, a thousand and ten
// thousand controls without a window. Prints medians in microseconds and their growth.

#include "orbelformular.h"
#include "orbelparser.h"
#include "valuenumeric.h"

#include <QApplication>
#include <QElapsedTimer>
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
    for (int i = 0; i < controls; ++i)
        text += QStringLiteral("<Widget name='c%1' class='DoubleSpinBox'><Property name='generateParameterXml'><Bool>true</Bool>"
                               "</Property></Widget>")
                    .arg(i);
    return text + QStringLiteral("</Sheet></ZkParamGui>");
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

struct Cost {
    double get;
    double set;
};

Cost Measure(int controls)
{
    const QExplicitlySharedDataPointer<KV218::OrbelFormular> form(KV218::OrbelParser().ParseORBEL(Definition(controls)));
    form->CreateValueTree(QStringLiteral("/Bench"));
    std::vector<std::unique_ptr<ValueDouble>> locals;
    QList<ValueBase *> list;
    for (int i = 0; i < controls; ++i) {
        locals.push_back(std::make_unique<ValueDouble>(QStringLiteral("c%1").arg(i), ekStateUsable));
        list.append(locals.back().get());
    }
    std::vector<double> get;
    std::vector<double> set;
    for (int repeat = 1; repeat <= Repeats; ++repeat) {
        for (const auto &local : locals)
            local->SetValue(repeat, nullptr);
        QElapsedTimer timer;
        timer.start();
        for (ValueBase *local : qAsConst(list))
            form->SetVTValue(local, nullptr, false);
        set.push_back(double(timer.nsecsElapsed()) / 1e3 / controls);
        for (const auto &local : locals)
            local->SetValue(0, nullptr);
        timer.restart();
        form->GetVTValues(list, nullptr, false);
        get.push_back(double(timer.nsecsElapsed()) / 1e3 / controls);
    }
    return {Median(get), Median(set)};
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QTextStream out(stdout);
    Cost smallest{0, 0};
    for (int controls : {100, 1000, 10000}) {
        const Cost cost = Measure(controls);
        if (smallest.get == 0)
            smallest = cost;
        out << QStringLiteral("%1 controls: GetVTValues %2 us a value (%3 times), SetVTValue %4 us a value (%5 times)\n")
                   .arg(controls)
                   .arg(cost.get, 0, 'f', 2)
                   .arg(cost.get / smallest.get, 0, 'f', 2)
                   .arg(cost.set, 0, 'f', 2)
                   .arg(cost.set / smallest.set, 0, 'f', 2);
    }
    return 0;
}
