#pragma once

#include "fieldnote.h"
#include "liveform.h"

/// A form in which things happen one after the other. Each step is "act => what is heard of it", or of a question
/// "question => answer"; without the arrow nothing is compared. What is heard are the signals of sheet and controls and
/// the values of nodes, as a log has them.
///
///     script CODE         document INSIDE     node NAME=TEXT (by a host)     input on/off     wait (for automatic
///     apply) focus NAME          click NAME          cell TABLE ROW COLUMN (opens)  fetch (what changed) press KEYS
///     type TEXT           enter TEXT (over what is there, with Return) ask EXPRESSIONS     hold NODES          see
///     WIDGET.PROPERTY ...        shown WIDGETS     cells TABLE written             modified NAME       focused note
///     WIDGET       stack (of undo)
class Story : public LiveForm
{
public:
    explicit Story(const QString &body, bool applyUi = true) : LiveForm(body, applyUi)
    {
        const OrbelSheet &sheet = form->GetSheet();
        for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
            OrbelDelegate *delegate = sheet.GetWidgetAt(i)->GetDelegate();
            log.Watch(sheet.GetWidgetAt(i)->GetName(), delegate);
            if (ValueBase *node = delegate->GetVTValue())
                log.Watch(sheet.GetWidgetAt(i)->GetName(), node);
        }
    }
    void Play(const QStringList &steps)
    {
        for (const QString &step : steps) {
            const QString act = step.section(" =>", 0, 0), found = Do(act.section(' ', 0, 0), act.section(' ', 1));
            if (act != step)
                QCOMPARE(QString(act + " => " + found).trimmed(), step);
        }
    }

private:
    QString Do(const QString &verb, const QString &rest)
    {
        const QStringList words = rest.split(' ');
        if (const auto answer = Answers(words).value(verb))
            return answer();
        const QHash<QString, std::function<void()>> acts{
            {"script", [&] { form->EvaluateScript(rest); }},
            {"document", [&] { form->SetXmlString("<Parameters>" + rest + "</Parameters>"); }},
            {"node", [&] { NodeAt(rest.section('=', 0, 0))->SetStringValue(rest.section('=', 1), nullptr); }},
            {"input", [&] { form->EnableInput(rest == "on"); }},
            {"wait", [] { PassTime(200); }},
            {"focus", [&] { Find(rest)->setFocus(); }},
            {"click", [&] { Click(rest); }},
            {"cell", [&] { OpenCell(Find<QTableWidget>(words[0]), words[1].toInt(), words[2].toInt()); }},
            {"fetch", [&] { form->GetXmlString(true); }},
            {"type", [&] { TypeOn(rest); }},
            {"enter",
                [&] {
                    TypeOver(window->focusWidget(), rest);
                    Press("Return");
                }},
            {"press", [&] { Press(rest); }},
        };
        acts.value(verb, [&] { qFatal("no act is called %s", qPrintable(verb)); })();
        Orbel::Settle();
        return log.Take();
    }
    QHash<QString, std::function<QString()>> Answers(const QStringList &words)
    {
        const auto each = [words](const std::function<QString(const QString &)> &answer) {
            QStringList texts;
            std::transform(words.begin(), words.end(), std::back_inserter(texts), answer);
            return texts.join('|');
        };
        return {
            {"ask",
                [=] {
                    form->EvaluateScript("answer = '' + [" + words.join(' ') + ']');
                    return form->GetScriptValues().value("answer").toString();
                }},
            {"hold", [=] { return each([](const QString &name) { return NodeAt(name)->GetStringValue(); }); }},
            {"see",
                [=] {
                    return each([this](const QString &place) {
                        return Find(place.section('.', 0, 0))->property(place.section('.', 1).toLatin1()).toString();
                    });
                }},
            {"shown",
                [=] { return each([this](const QString &name) { return Find(name)->isHidden() ? "-" : name; }); }},
            {"cells",
                [=] {
                    QStringList cells;
                    const QAbstractItemModel *model = Find<QTableWidget>(words[0])->model();
                    for (int i = 0; i < model->rowCount() * model->columnCount(); ++i)
                        cells << model->index(i / model->columnCount(), i % model->columnCount()).data().toString();
                    return cells.join('|');
                }},
            {"written",
                [=] {
                    const QString inside = form->GetXmlString(false).section("<Parameters>", 1);
                    return inside.section("</Parameters>", 0, 0).simplified();
                }},
            {"modified", [=] { return QString(Get(words[0])->isModified() ? "yes" : "no"); }},
            {"focused", [=] { return window->focusWidget()->objectName(); }},
            {"note", [=] { return Orbel::FieldNote::TextOf(Find(words[0])); }},
            {"stack",
                [=] {
                    Orbel::Settle(); // the entries are spelled late
                    return QString::number(form->GetUndoStack()->count()) + ' ' + form->GetUndoStack()->undoText();
                }},
        };
    }
    static ValueBase *NodeAt(const QString &name) { return Tree::Instance()->GetNode("/Form/" + name); }
};

/// Stories as rows of a table, and the test that plays each.
inline auto Stories()
{
    return Columns<QString, QStringList>({"body", "steps"});
}
inline void PlayStory()
{
    const auto [body, steps] = Fetch<QString, QStringList>({"body", "steps"});
    Story(body).Play(steps);
}
