// Measures forms against other ways to the same, and prints a table of ratios in Markdown.
//
//     bench [--repeats R] [--sizes N,N,...] [--only TEXT] [--check] [--here]     TEXT: a part of the rows' titles
//
// With --check it ends with status 1 when a row breaks its must by more than its turns spread. Each cell is measured in
// a process of its own, with --here in this one, as profilers want it.

#include "measure.h"
#include "memory.h"
#include "orbelform.h"
#include "ownprocess.h"
#include "peers.h"
#include "startup.h"
#include "work.h"

#include "floatgrouplayout.h"
#include "orbelcheck.h"
#include "orbeldelegate.h"
#include "session.h"
#include "valuenumeric.h"
#include "vcnumericfloatspin.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextStream>

#include <algorithm>
#include <array>

using measure::Cell;
using measure::Compare;
using measure::TimeOf;

namespace
{

int Repeats = 7;

/// How often a piece of work that grows with the form is done in one turn, so that a turn is not too short to measure.
int Rounds(int controls)
{
    return qMax(2, 2000 / controls);
}

/// Measurement is worth nothing when a side does not do its work.
void Require(bool done, const char *what)
{
    if (!done)
        qFatal("not comparable: %s", what);
}

// ---- from text to window

/// A turn of ours, from a form on. A form that ended is destroyed when the event loop comes round; until then the next
/// turn would work in memory that no turn had before, unlike its peer's.
double TurnOf(const std::function<double(OrbelForm &)> &turn)
{
    const double taken = turn(*std::make_unique<OrbelForm>());
    peer::RunToIdle();
    return taken;
}

double LoadOurs(const QString &text)
{
    return TurnOf([&](OrbelForm &form) {
        return TimeOf([&] {
            form.Build(text);
            peer::Show(form.Window());
        });
    });
}

double LoadUi(const QByteArray &text)
{
    std::unique_ptr<QWidget> window;
    return TimeOf([&] {
        window = peer::LoadUi(text);
        peer::Show(window.get());
    });
}

double LoadByHand(int controls)
{
    std::unique_ptr<peer::HandForm> form;
    return TimeOf([&] {
        form = std::make_unique<peer::HandForm>(controls);
        peer::Show(form->Window());
    });
}

Cell AgainstUiLoader(int controls)
{
    const QString text = work::Definition(controls);
    const QByteArray uiText = work::UiText(controls);
    return Compare([&] { return LoadOurs(text); }, [&] { return LoadUi(uiText); }, Repeats);
}

Cell AgainstFormLayout(int controls)
{
    const QString text = work::Definition(controls);
    return Compare([&] { return LoadOurs(text); }, [&] { return LoadByHand(controls); }, Repeats);
}

Cell LoadGrowth(int controls)
{
    const QString text = work::Definition(controls);
    const QString tenth = work::Definition(controls / 10);
    return Compare([&] { return LoadOurs(text); }, [&] { return LoadOurs(tenth); }, Repeats);
}

/// How ours grows with the form, beside how the peer grows.
Cell LoadGrowthAgainstUiLoader(int controls)
{
    struct Side {
        double Large;
        double Small;
        double Growth() const { return Large / Small; }
    };
    const QString text = work::Definition(controls);
    const QString tenth = work::Definition(controls / 10);
    const QByteArray uiText = work::UiText(controls);
    const QByteArray uiTenth = work::UiText(controls / 10);
    return Compare(
        [&] {
            return Side{LoadOurs(text), LoadOurs(tenth)}.Growth();
        },
        [&] {
            return Side{LoadUi(uiText), LoadUi(uiTenth)}.Growth();
        },
        Repeats);
}

Cell ParseStage(int controls)
{
    const QString text = work::Definition(controls);
    const auto parse = [&](OrbelForm &form) { return TimeOf([&] { form.Parse(text); }); };
    return Compare([&] { return TurnOf(parse); }, [&] { return TimeOf([&] { peer::WalkXml(text); }); }, Repeats);
}

Cell NodesAndScript(int controls)
{
    const QString text = work::Definition(controls);
    const auto ours = [&](OrbelForm &form) {
        form.Parse(text);
        return TimeOf([&] { form.MakeNodes(); });
    };
    const auto bare = [&] {
        peer::RawScript script(controls);
        return TimeOf([&] { script.Run(); });
    };
    return Compare([&] { return TurnOf(ours); }, bare, Repeats);
}

Cell ControlsStage(int controls)
{
    const QString text = work::Definition(controls);
    const auto ours = [&](OrbelForm &form) {
        form.Parse(text);
        form.MakeNodes();
        return TimeOf([&] { form.MakeControls(); });
    };
    const auto raw = [&] {
        std::unique_ptr<peer::HandForm> form;
        return TimeOf([&] { form = std::make_unique<peer::HandForm>(controls, false); });
    };
    return Compare([&] { return TurnOf(ours); }, raw, Repeats);
}

Cell ShowStage(int controls)
{
    const QString text = work::Definition(controls);
    const auto ours = [&](OrbelForm &form) {
        form.Build(text);
        return TimeOf([&] { peer::Show(form.Window()); });
    };
    const auto byHand = [&] {
        const peer::HandForm form(controls);
        return TimeOf([&] { peer::Show(form.Window()); });
    };
    return Compare([&] { return TurnOf(ours); }, byHand, Repeats);
}

/// A session's reload that changes one label, shown in place; the checker has had its say.
Cell ReloadOneProperty(int controls)
{
    const QString text = work::Definition(controls);
    const QByteArray one = text.toUtf8();
    const QString label = QStringLiteral("<Property name=\"labelText\"><String>");
    QString changed = text;
    changed.insert(changed.indexOf(label, changed.size() / 2) + label.size(), QStringLiteral("New "));
    const QByteArray other = changed.toUtf8();
    const Orbel::Opening opened = Orbel::Session::OpenText(one);
    peer::Show(opened.Opened->GetWidget());
    const KV218::OrbelFormular *const form = opened.Opened->GetForm();
    bool isChanged = false;
    const Cell cell = Compare(
        [&] {
            isChanged = !isChanged;
            return TimeOf([&] {
                opened.Opened->Reload(isChanged ? other : one);
                peer::RunToIdle();
            });
        },
        [&] { return LoadOurs(text); }, Repeats);
    Require(opened.Opened->GetForm() == form, "the form was made anew");
    return cell;
}

// ---- layout

FloatGroupLayout *LayoutOf(const OrbelForm &form)
{
    auto *layout = form.Window()->findChild<FloatGroupLayout *>();
    Require(layout, "the form has no layout");
    return layout;
}

double ResizeSteps(QWidget *window)
{
    constexpr int steps = 20;
    window->setUpdatesEnabled(false);
    const double taken = TimeOf([&] {
        for (int step = 0; step < steps; ++step) {
            window->resize(500 + 20 * step, 800);
            peer::RunToIdle();
        }
    });
    window->resize(500, 800);
    peer::RunToIdle();
    return taken / steps;
}

Cell Resize(int controls)
{
    OrbelForm form;
    form.Build(work::Definition(controls));
    peer::Show(form.Window());
    const peer::HandForm byHand(controls);
    peer::Show(byHand.Window());
    return Compare([&] { return ResizeSteps(form.Window()); }, [&] { return ResizeSteps(byHand.Window()); }, Repeats);
}

QVector<peer::ItemSize> SizesOf(const FloatGroupLayout *layout)
{
    QVector<peer::ItemSize> sizes;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        const QWidget *widget = item->widget();
        const auto what = qobject_cast<const QGroupBox *>(widget) ? peer::ItemSize::Title
            : qobject_cast<const QLabel *>(widget)                ? peer::ItemSize::Label
                                                                  : peer::ItemSize::Control;
        sizes.append({what, item->sizeHint(), widget->contentsMargins().top()});
    }
    return sizes;
}

bool IsPlaced(const FloatGroupLayout *layout, const QVector<QRect> &rectangles)
{
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        QRect place = item->geometry();
        // A label takes the height that its text needs, whatever it was arranged with.
        if (qobject_cast<RowLabel *>(item->widget()))
            place.setHeight(rectangles.at(i).height());
        if (place != rectangles.at(i))
            return false;
    }
    return true;
}

Cell Rearrange(int controls)
{
    const int rounds = 20 * Rounds(controls);
    OrbelForm form;
    form.Build(work::Definition(controls));
    peer::Show(form.Window());
    FloatGroupLayout *layout = LayoutOf(form);
    const int width = layout->geometry().width();
    const QVector<peer::ItemSize> sizes = SizesOf(layout);
    QVector<QRect> rectangles(sizes.size());
    int height = 0;
    const auto ours = [&] {
        return TimeOf([&] {
            for (int i = 0; i < rounds; ++i) {
                layout->invalidate();
                height = layout->heightForWidth(width);
            }
        });
    };
    int plainHeight = 0;
    const auto plain = [&] {
        return TimeOf([&] {
            for (int i = 0; i < rounds; ++i)
                plainHeight = peer::Arrange(sizes, width, rectangles);
        });
    };
    const Cell cell = Compare(ours, plain, Repeats);
    Require(height == plainHeight && IsPlaced(layout, rectangles), "the arithmetic gives another arrangement");
    return cell;
}

void Displace(QWidget *widget)
{
    constexpr int heightOfGroup = 400;
    widget->move(widget->x(), widget->y() - heightOfGroup);
}

Cell Expand(int controls)
{
    OrbelForm form;
    form.Build(work::Definition(controls));
    peer::Show(form.Window());
    form.Window()->setUpdatesEnabled(false);
    FloatGroupLayout *layout = LayoutOf(form);
    const auto group = form->GetSheet().GetWidget(QStringLiteral("group1"));
    Require(group, "the form has no second group");
    const auto collapse = [&](bool expanded) {
        form->GetSheet().setGroupVisible(group.data(), expanded);
        peer::RunToIdle();
    };
    const auto expand = [&] {
        collapse(false);
        return TimeOf([&] { collapse(true); });
    };
    // The layout has to place again what an expanded group moves.
    const auto relayout = [&] {
        for (int i = 2 * (2 * work::RowsOfGroup + 1); i < layout->count(); ++i)
            Displace(layout->itemAt(i)->widget());
        return TimeOf([&] {
            layout->invalidate();
            layout->activate();
            peer::RunToIdle();
        });
    };
    return Compare(expand, relayout, Repeats);
}

// ---- parameters and values

Cell WriteDocument(int controls)
{
    OrbelForm form;
    form.Build(work::Definition(controls));
    const peer::RawWriter writer(controls, 1);
    Require(form->GetXmlString(false).trimmed() == writer.Write().trimmed(), "the parameter documents differ");
    const int rounds = Rounds(controls);
    const auto times = [&](const auto &write) {
        return TimeOf([&] {
            for (int i = 0; i < rounds; ++i)
                write();
        });
    };
    return Compare([&] { return times([&] { form->GetXmlString(false); }); },
        [&] { return times([&] { writer.Write(); }); }, Repeats);
}

Cell ReadDocument(int controls)
{
    OrbelForm form;
    form.Build(work::Definition(controls));
    const peer::HandForm byHand(controls);
    const QString documents[] = {peer::RawWriter(controls, 2).Write(), peer::RawWriter(controls, 3).Write()};
    const int rounds = Rounds(controls);
    const auto inTurns = [&](const auto &read) {
        return TimeOf([&] {
            for (int i = 0; i < rounds; ++i)
                read(documents[i % 2]);
        });
    };
    return Compare([&] { return inTurns([&](const QString &text) { form->SetXmlString(text); }); },
        [&] { return inTurns([&](const QString &text) { byHand.Read(text); }); }, Repeats);
}

/// The application's values for the spin boxes of a form.
class Locals
{
public:
    explicit Locals(int controls)
    {
        for (int control = 0; control < controls; ++control) {
            if (work::KindOf(control) != work::Kind::Spin)
                continue;
            numbers.append(control);
            values.push_back(std::make_unique<ValueDouble>(work::NameOf(control)));
        }
    }
    /// Nanoseconds a value.
    double Exchange(const OrbelForm &form)
    {
        ++version;
        for (int i = 0; i < numbers.size(); ++i)
            values[size_t(i)]->SetValue(work::SpinValue(numbers.at(i), version), nullptr);
        int changed = 0;
        const double taken = TimeOf([&] {
            for (const auto &value : values)
                changed += form->SetVTValue(value.get(), nullptr, false);
        });
        Require(changed == numbers.size(), "values did not change");
        return taken / numbers.size();
    }
    double Set(const peer::HandForm &form)
    {
        ++version;
        return TimeOf([&] {
            for (int i = 0; i < numbers.size(); ++i)
                form.Spin(values[size_t(i)]->GetName())->setValue(work::SpinValue(numbers.at(i), version));
        }) / numbers.size();
    }

private:
    QVector<int> numbers;
    std::vector<std::unique_ptr<ValueDouble>> values;
    int version = 1;
};

/// The mean of some rounds: a single one is too short to measure.
template <class Round> double MeanOf(const Round &round)
{
    constexpr int rounds = 8;
    double sum = 0;
    for (int i = 0; i < rounds; ++i)
        sum += round();
    return sum / rounds;
}

Cell ExchangeValues(int controls)
{
    OrbelForm form;
    form.Build(work::Definition(controls));
    const peer::HandForm byHand(controls);
    Locals ours(controls);
    Locals raw(controls);
    return Compare([&] { return MeanOf([&] { return ours.Exchange(form); }); },
        [&] { return MeanOf([&] { return raw.Set(byHand); }); }, Repeats);
}

Cell ExchangeGrowth(int controls)
{
    OrbelForm form;
    form.Build(work::Definition(controls));
    OrbelForm tenth;
    tenth.Build(work::Definition(controls / 10));
    Locals many(controls);
    Locals few(controls / 10);
    // One round a turn: in several the small form would stay in the processor's caches, and the large one cannot.
    return Compare([&] { return many.Exchange(form); }, [&] { return few.Exchange(tenth); }, Repeats);
}

Cell Edit(int controls)
{
    constexpr int edits = 500;
    OrbelForm form;
    form.Build(work::Definition(controls));
    peer::Show(form.Window());
    const QString name = work::NameOf(0);
    auto *ourSpin = form.Window()->findChild<VCNumericFloatSpin *>(name);
    Require(ourSpin, "the form has no spin box");
    const peer::HandForm byHand(controls);
    peer::Show(byHand.Window());
    QDoubleSpinBox *spin = byHand.Spin(name);
    double last = 0;
    QObject::connect(
        spin, QOverload<double>::of(&QDoubleSpinBox::valueChanged), spin, [&](double value) { last = value; });

    const auto edit = [&](auto *control) {
        return TimeOf([&] {
            for (int i = 0; i < edits; ++i)
                control->setValue(i + 0.5);
        }) / edits;
    };
    const auto ours = [&] {
        form->GetXmlString(false);
        peer::RunToIdle();
        const double taken = edit(ourSpin);
        Require(form->GetSheet().GetWidget(name)->isModified(), "an edit marks nothing as modified");
        return taken;
    };
    const auto raw = [&] {
        peer::RunToIdle();
        return edit(spin);
    };
    const Cell cell = Compare(ours, raw, Repeats);
    Require(form->GetScriptValues().value(QStringLiteral("last")).toNumber() == last, "the script saw no edit");
    return cell;
}

/// Some controls of a kind, from the first to the last of a form.
QVector<int> Spread(int controls, work::Kind kind, int most)
{
    QVector<int> all;
    for (int control = 0; control < controls; ++control) {
        if (work::KindOf(control) == kind)
            all.append(control);
    }
    const int each = qMax(1, all.size() / most);
    QVector<int> some;
    for (int i = 0; i < all.size() && some.size() < most; i += each)
        some.append(all.at(i));
    return some;
}

/// A frame of a form on the screen in which 400 spin boxes have another value, most of them scrolled out of view.
Cell LiveFrame(int controls)
{
    OrbelForm form;
    form.Build(work::Definition(controls));
    peer::Show(form.Window());
    const peer::HandForm byHand(controls);
    peer::Show(byHand.Window());
    const QVector<int> spins = Spread(controls, work::Kind::Spin, 400);
    int version = 0;
    const auto frame = [&](const auto &put) {
        ++version;
        return TimeOf([&] {
            for (const int control : spins)
                put(work::NameOf(control), work::SpinValue(control, version));
            peer::RunToIdle();
        });
    };
    const auto ours = [&] { return frame([&](const QString &name, double value) { form->Report(name, value); }); };
    const auto raw
        = [&] { return frame([&](const QString &name, double value) { byHand.Spin(name)->setValue(value); }); };
    return Compare(ours, raw, Repeats);
}

/// A step of the wheel over a form on the screen.
Cell ScrollStep(int controls)
{
    OrbelForm form;
    form.Build(work::Definition(controls));
    peer::Show(form.Window());
    const peer::HandForm byHand(controls);
    peer::Show(byHand.Window());
    const auto steps = [](QWidget *window) {
        constexpr int count = 20;
        const auto areas = window->findChildren<QScrollArea *>();
        auto *area = areas.isEmpty() ? qobject_cast<QScrollArea *>(window) : areas.first();
        QScrollBar *bar = area->verticalScrollBar();
        Require(bar->maximum() > count * 60, "the form does not scroll");
        bar->setValue(0);
        peer::RunToIdle();
        return TimeOf([&] {
            for (int step = 1; step <= count; ++step) {
                bar->setValue(60 * step);
                peer::RunToIdle();
            }
        }) / count;
    };
    return Compare([&] { return steps(form.Window()); }, [&] { return steps(byHand.Window()); }, Repeats);
}

/// What a device reports of all spin boxes in one of its turns, each value another one or the same, on the screen.
/// Nanoseconds a value.
Cell ReportValues(int controls, bool repeats)
{
    OrbelForm form;
    form.Build(work::Definition(controls));
    peer::Show(form.Window());
    const peer::HandForm byHand(controls);
    peer::Show(byHand.Window());
    const QVector<int> spins = Spread(controls, work::Kind::Spin, controls);
    int version = 0;
    const auto turn = [&](const auto &put) {
        version += repeats ? 0 : 1;
        return TimeOf([&] {
            for (const int control : qAsConst(spins))
                put(work::NameOf(control), work::SpinValue(control, version));
            peer::RunToIdle();
        }) / spins.size();
    };
    const auto ours = [&] { return turn([&](const QString &name, double value) { form->Report(name, value); }); };
    const auto raw
        = [&] { return turn([&](const QString &name, double value) { byHand.Spin(name)->setValue(value); }); };
    const Cell cell = Compare(ours, raw, Repeats);
    Require(form->GetChanged().isEmpty(), "a report counts as a change");
    return cell;
}

Cell ReportNews(int controls)
{
    return ReportValues(controls, false);
}

Cell ReportAgain(int controls)
{
    return ReportValues(controls, true);
}

/// A second of a device that reports so many values to a session, 20 times, each time other ones, on the screen.
Cell ReportSecond(int values)
{
    constexpr int rate = 20;
    const int controls = values * 5 / 2;
    const QVector<int> spins = Spread(controls, work::Kind::Spin, controls);
    Require(spins.size() == values, "another count of values");
    const Orbel::Opening opened = Orbel::Session::OpenText(work::Definition(controls).toUtf8());
    peer::Show(opened.Opened->GetWidget());
    const peer::HandForm byHand(controls);
    peer::Show(byHand.Window());
    int version = 0;
    const auto second = [&](const auto &report) {
        return TimeOf([&] {
            for (int turn = 0; turn < rate; ++turn) {
                ++version;
                report();
                peer::RunToIdle();
            }
        });
    };
    const auto ours = [&] {
        QVariantMap values;
        for (const int control : spins)
            values.insert(work::NameOf(control), work::SpinValue(control, version));
        Require(opened.Opened->Report(values), "a value is refused");
    };
    const auto raw = [&] {
        for (const int control : spins)
            byHand.Spin(work::NameOf(control))->setValue(work::SpinValue(control, version));
    };
    // A second of the peer's may take many of the processor's.
    return Compare([&] { return second(ours); }, [&] { return second(raw); }, qMin(Repeats, 5));
}

Cell ReportSecondOf200(int)
{
    return ReportSecond(200);
}

Cell ReportSecondOf2000(int)
{
    return ReportSecond(2000);
}

Cell Memory(int controls)
{
    Cell cell = Compare([&] { return memory::InChild(memory::Who::Ours, controls); },
        [&] { return memory::InChild(memory::Who::UiLoader, controls); }, qMin(Repeats, 5));
    cell.ours /= controls;
    cell.peer /= controls;
    return cell;
}

/// The command draws a form of its own, whatever the size.
Cell FirstPicture(int)
{
    const startup::Pictures pictures;
    return Compare([&] { return pictures.Ours(); }, [&] { return pictures.Peer(); }, Repeats);
}

Cell CheckForm(int controls)
{
    const QString text = work::Definition(controls);
    const QByteArray document = text.toUtf8();
    Require(Orbel::Check::IsClean(Orbel::Check::Definition(document)), "the form has mistakes");
    const auto parseTwice = [&] {
        OrbelForm first;
        OrbelForm second;
        const double taken = TimeOf([&] {
            first.Parse(text);
            second.Parse(text);
        });
        return taken;
    };
    return Compare([&] { return TimeOf([&] { Orbel::Check::Definition(document); }); }, parseTwice, Repeats);
}

struct Plan {
    Cell (*run)(int controls);
    std::array<measure::Goal, 3> goals;
    const char *title;
};

// Rows that compare a form with a tenth of itself are measured at the greatest size alone, those that have a form of
// their own in the column of 1000 controls. At 300 controls, where the measures are short, the musts are half again
// what is usual: they tell a slip.
// clang-format off
constexpr Plan Plans[] = {
    {AgainstUiLoader,           {{{1000, 0.85, 0.75}, {300, 1.3}}},                    "definition text to visible and idle / QUiLoader load to visible"},
    {AgainstFormLayout,         {{{1000, 1.25, 1.1}, {300, 2}}},                       "the same / hand-written QFormLayout"},
    {LoadGrowth,                {{{10000, 11.5, 10.5}}},                               "growth: time at 10 000 / time at 1000"},
    {LoadGrowthAgainstUiLoader, {{{10000, 1.02, 0.95}}},                               "growth: the same / QUiLoader's own growth"},
    {FirstPicture,              {{{1000, 1.2, 1.0}}},                                  "process start to first picture, `orbel render` / a program with QUiLoader"},
    {ReloadOneProperty,         {{{1000, 0.33, 0.15}, {300, 0.33}}},                   "reload after one changed property / opening"},
    {Resize,                    {{{1000, 0.5, 0.35}, {300, 0.8}}},                     "resize step, updates off / QFormLayout's"},
    {Rearrange,                 {{{1000, 2.5, 2.0}, {10000, 4.0, 2.5}, {300, 4.4}}},   "re-arrangement / layout arithmetic on the same sizes"},
    {WriteDocument,             {{{1000, 1.4, 1.2}, {10000, 1.7, 1.4}, {300, 2}}},     "`GetXmlString(false)` / raw writer of the same text"},
    {ReadDocument,              {{{1000, 1.3, 1.1}, {300, 2.2}}},                      "`SetXmlString` on a hidden form / raw reader plus the controls' own setters"},
    {ExchangeValues,            {{{1000, 1.4, 1.2}, {300, 2.3}}},                      "`SetVTValue` per value, form hidden / hash look-up plus `setValue`"},
    {ExchangeGrowth,            {{{10000, 1.3, 1.1}}},                                 "growth: the same per value at 10 000 / at 1000"},
    {Edit,                      {{{1000, 1.3, 1.1}, {300, 2.9}}},                      "operator's edit, control to modified mark / `setValue` with one slot"},
    {ReportNews,                {{{1000, 2.0, 1.2}, {300, 2}}},                        "reported value of a device, shown, drawn / hash look-up plus `setValue`"},
    {ReportAgain,               {{{1000, 2.0, 1.0}, {300, 0.4}}},                      "the same value again / the same"},
    {ReportSecondOf200,         {{{1000, 2.0, 1.2}}},                                  "a second of 200 values at 20 Hz, to a session / `setValue` in a QFormLayout"},
    {ReportSecondOf2000,        {{{1000, 2.0, 1.2}}},                                  "a second of 2000 values at 20 Hz / the same"},
    {LiveFrame,                 {{{3000, 0.3, 0.15}, {10000, 0.1, 0.05}, {300, 1.7}}}, "live frame, 400 values on a form on the screen / QFormLayout's"},
    {ScrollStep,                {{{10000, 1.1, 0.8}, {300, 1.6}}},                     "scroll step / QFormLayout's in a QScrollArea"},
    {Expand,                    {{{1000, 1.05, 1.0}, {300, 2.4}}},                     "expand a group of 20 rows in a visible form / one re-layout of it"},
    {Memory,                    {{{1000, 1.2, 1.0}, {300, 2.3}}},                      "memory a control, form built / QUiLoader's"},
    {ParseStage,                {{{1000, 1.6, 1.4}, {300, 3.4}}},                      "parse stage / XML walk of the same text"},
    {CheckForm,                 {{{10000, 1.0, 0.7}}},                                 "`orbel check` / two parses of the same text"},
    {NodesAndScript,            {},                                                    "nodes and script / bare script engine"},
    {ControlsStage,             {},                                                    "controls, not shown / raw widgets without a layout"},
    {ShowStage,                 {},                                                    "show to idle / QFormLayout's"},
};
// clang-format on

/// Options of the program for one cell of the table: the number of its row, and the size.
const char *const CellOption = "--cell";

Cell InChild(const Plan &plan, int size)
{
    const QStringList numbers = ownprocess::OutputOf(
        {QLatin1String(CellOption), QString::number(&plan - Plans), QString::number(size), QString::number(Repeats)})
                                    .split(QLatin1Char(' '));
    Require(numbers.size() == 4, "a cell of the table without its numbers");
    return {numbers.at(0).toDouble(), numbers.at(1).toDouble(), numbers.at(2).toDouble(), numbers.at(3).toDouble()};
}

/// The child's part. False when the arguments of the program ask for none.
bool RunAsChild(const QStringList &arguments)
{
    if (arguments.value(1) != QLatin1String(CellOption))
        return false;
    Repeats = arguments.value(4).toInt();
    const Cell cell = Plans[arguments.value(2).toInt()].run(arguments.value(3).toInt());
    QTextStream(stdout) << cell.ours << ' ' << cell.peer << ' ' << cell.ratio << ' ' << cell.spread << '\n';
    return true;
}

measure::Row Run(const Plan &plan, const QVector<int> &sizes, bool here)
{
    const measure::Unit unit = plan.run == Memory ? measure::Unit::Bytes
        : plan.run == LoadGrowthAgainstUiLoader   ? measure::Unit::Times
                                                  : measure::Unit::Nanoseconds;
    measure::Row row{QString::fromUtf8(plan.title), {}, unit, {}};
    for (const measure::Goal &goal : plan.goals) {
        if (row.goals.isEmpty() || goal.must > 0)
            row.goals.append(goal);
    }
    const auto isOneOf = [&](std::initializer_list<Cell (*)(int)> rows) {
        return std::find(rows.begin(), rows.end(), plan.run) != rows.end();
    };
    const bool isOfOneSize = isOneOf(
        {LoadGrowth, LoadGrowthAgainstUiLoader, ExchangeGrowth, ReportSecondOf200, ReportSecondOf2000, FirstPicture});
    for (int size : sizes) {
        if (!isOfOneSize || size == row.goals.constFirst().size)
            row.cells.append({size, here ? plan.run(size) : InChild(plan, size)});
    }
    return row;
}

QVector<int> Sizes(const QString &list)
{
    QVector<int> sizes;
    for (const QString &size : list.split(QLatin1Char(','))) {
        // The expanded group is the second one.
        if (size.toInt() >= 2 * work::RowsOfGroup)
            sizes.append(size.toInt());
    }
    return sizes;
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (memory::RunAsChild(application.arguments()) || RunAsChild(application.arguments()))
        return 0;

    QCommandLineParser options;
    const QCommandLineOption repeats("repeats", "How often each side is measured, at least 5.", "count", "7");
    const QCommandLineOption sizeList("sizes", "Counts of controls.", "list", "100,1000,5000,10000");
    const QCommandLineOption only("only", "Only rows with this text in their title.", "text");
    const QCommandLineOption check("check", "Ends with status 1 when a row breaks its must by more than its spread.");
    const QCommandLineOption here("here", "Measures in this process, as profilers want it.");
    options.addOptions({repeats, sizeList, only, check, here});
    options.addHelpOption();
    options.process(application);
    Repeats = qMax(5, options.value(repeats).toInt());
    const QVector<int> sizes = Sizes(options.value(sizeList));

    QTextStream out(stdout);
    QStringList broken;
    out << measure::Heading(sizes);
    for (const Plan &plan : Plans) {
        if (!QString::fromUtf8(plan.title).contains(options.value(only)))
            continue;
        const measure::Row row = Run(plan, sizes, options.isSet(here));
        broken += measure::Broken(row);
        out << measure::Line(row, sizes);
        out.flush();
    }
    if (!options.isSet(check) || broken.isEmpty())
        return 0;
    QTextStream(stderr) << broken.join(QLatin1Char('\n')) << '\n';
    return 1;
}
