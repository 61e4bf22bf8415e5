#include "formtest.h"

#include "orbeldelegate.h"
#include "orbelformular.h"
#include "testsupport.h"

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <utility>

namespace Orbel
{

/// What has come of the session, and has not been asked for.
class FormTest::Heard : public QObject
{
public:
    Heard(Opening opening, const CallSite &at) : Own(std::move(opening.Opened)), Findings(opening.Told), Made(at)
    {
        if (!Own) {
            FailTest(QStringLiteral("The form does not open:\n") + TextOf(Findings), at);
            Own = OpenEmpty();
        }
        Listen(*Own);
        Show();
    }
    Heard(Session &session, const CallSite &at) : Made(at) { Listen(session); }

    static std::unique_ptr<Session> OpenEmpty()
    {
        return std::move(Session::OpenText("<ZkParamGui version='1'><Sheet name='none'/></ZkParamGui>").Opened);
    }

    std::unique_ptr<Session> Own;
    std::unique_ptr<Session> StandIn;
    QPointer<Session> Of;
    QVector<Finding> Findings;
    CallSite Made;
    QVector<Applied> Sent;
    QStringList Changed;
    QStringList Thrown;

private:
    void Listen(Session &session)
    {
        Of = &session;
        connect(&session, &Session::applied, this, [this](const ChangeList &changes, const QString &document) {
            Sent << Applied{changes, document};
        });
        connect(&session, &Session::changed, this, [this](const QString &path) { Changed << path; });
        connect(&session, &Session::scriptFailed, this, [this](const QString &, int line, const QString &text) {
            Thrown << QStringLiteral("%1: %2").arg(line).arg(text);
        });
    }
    void Show() const
    {
        QWidget *const window = Own->GetWidget();
        window->resize(window->sizeHint().expandedTo({500, 500}));
        window->show();
        QApplication::setActiveWindow(window);
        // Without a window manager it is not told to be exposed; then it is for what follows to find that out.
        (void)QTest::qWaitForWindowExposed(window, 2000);
    }
};

FormTest::FormTest(Opening opening, const CallSite &at)
    : FormOperator(nullptr), All(std::make_unique<Heard>(std::move(opening), at))
{
}

FormTest::FormTest(Session &session, const CallSite &at)
    : FormOperator(nullptr), All(std::make_unique<Heard>(session, at))
{
}

FormTest::~FormTest()
{
    const QStringList thrown = TakeScriptErrors();
    if (!thrown.isEmpty())
        FailTest(QStringLiteral("A script of the form failed at line ") + thrown.join(QStringLiteral("; at line ")),
            All->Made);
}

KV218::OrbelFormular *FormTest::GetForm() const
{
    return All->Of ? All->Of->GetForm() : nullptr;
}

Session *FormTest::GetSession() const
{
    return All->Of;
}

Session *FormTest::operator->() const
{
    if (All->Of)
        return All->Of;
    FailTest(QStringLiteral("The session has ended"), All->Made);
    if (!All->StandIn)
        All->StandIn = Heard::OpenEmpty();
    return All->StandIn.get();
}

const QVector<Finding> &FormTest::Told() const
{
    return All->Findings;
}

void FormTest::EndSession(const CallSite &at)
{
    if (!All->Own && All->Of)
        FailTest(QStringLiteral("The session is the host's to end"), at);
    All->Own.reset();
}

void FormTest::Report(const QString &path, const QVariant &value, const CallSite &at)
{
    Report(QVariantMap{{PathOf(path), value}}, at);
}

void FormTest::Report(const QVariantMap &values, const CallSite &at)
{
    QString error = QStringLiteral("The session has ended");
    if (!All->Of || !All->Of->Report(values, &error))
        FailTest(error, at);
    Settle();
}

QVariant FormTest::Value(const QString &path, const CallSite &at) const
{
    QString error = QStringLiteral("The session has ended");
    const QVariant value = All->Of ? All->Of->Value(PathOf(path), &error) : QVariant();
    if (!value.isValid())
        FailTest(error, at);
    return value;
}

void FormTest::SetAutoApply(int milliseconds, const CallSite &at)
{
    KV218::OrbelFormular *const form = GetForm();
    if (!form) {
        FailTest(QStringLiteral("The session has ended"), at);
        return;
    }
    form->GetSheet().setAutoApplyEnabled(milliseconds >= 0);
    if (milliseconds >= 0)
        form->GetSheet().GetDelegate()->setProperty("autoApplyTimeout", milliseconds);
}

Applied FormTest::WaitForApplied(int milliseconds, const CallSite &at)
{
    if (QTest::qWaitFor([this] { return !All->Sent.isEmpty(); }, milliseconds))
        return All->Sent.takeFirst();
    const QString changes = All->Of ? Changes() : QString();
    const KV218::OrbelFormular *const form = GetForm();
    FailTest(QStringLiteral("Nothing was applied within %1 ms. ").arg(milliseconds)
            + (!form                      ? QStringLiteral("The session has ended.")
                    : changes.isEmpty()   ? QStringLiteral("Nothing is changed.")
                    : All->Of->IsLocked() ? QStringLiteral("It is locked. Changed are ") + changes
                    : form->GetSheet().isAutoApplyEnabled()
                    ? QStringLiteral("Changed are ") + changes
                    : QStringLiteral("Automatic apply is off. Changed are ") + changes),
        at);
    return {};
}

QVector<Applied> FormTest::TakeApplied()
{
    Settle();
    return std::exchange(All->Sent, {});
}

void FormTest::WaitForChange(const QString &path, int milliseconds, const CallSite &at)
{
    const QString control = PathOf(path);
    if (!QTest::qWaitFor([&] { return All->Changed.contains(control); }, milliseconds)) {
        FailTest(QStringLiteral("Control \"%1\" is not changed within %2 ms; ").arg(path).arg(milliseconds)
                + (All->Changed.isEmpty() ? QStringLiteral("no control is") : All->Changed.join(QStringLiteral(", "))),
            at);
        return;
    }
    All->Changed.removeAll(control);
}

QString FormTest::Changes(const CallSite &at) const
{
    if (!All->Of)
        FailTest(QStringLiteral("The session has ended"), at);
    return All->Of ? TextOf(All->Of->Changes()) : QString();
}

QString FormTest::WaitForScriptError(int milliseconds, const CallSite &at)
{
    if (QTest::qWaitFor([this] { return !All->Thrown.isEmpty(); }, milliseconds))
        return All->Thrown.takeFirst();
    FailTest(QStringLiteral("No script has failed within %1 ms").arg(milliseconds), at);
    return QString();
}

QStringList FormTest::TakeScriptErrors()
{
    Settle();
    return std::exchange(All->Thrown, {});
}

} // namespace Orbel
