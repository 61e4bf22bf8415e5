#pragma once

#include "change.h"
#include "formoperator.h"
#include "session.h"
#include "testprinters.h"

#include <memory>
#include <QVariant>
#include <QVector>

namespace Orbel
{

/// What a session has asked its host to send.
struct Applied {
    /// As in Session::applied().
    ChangeList Changes;
    QString Document;

    /// The changes as one text: TextOf().
    QString Text() const { return TextOf(Changes); }
};

/// A form under test: a session with its window on the screen, an operator at it, and a device.
///
///     Orbel::FormTest form(Orbel::Session::OpenFile("receiver.orbel"));
///     form.Enter("Rx/Gain", "42");
///     QCOMPARE(form.WaitForApplied().Text(), QString("Rx/Gain: 10 dB -> 42 dB"));
///     form.Report("Rx/Gain", 40);
///     QCOMPARE(form.Shown("Rx/Gain"), QString("40 dB"));
///
/// A script that throws fails the test at the end of the object, unless the test has asked for what it threw.
class ORBEL_TESTSUPPORT_EXPORT FormTest : public FormOperator
{
public:
    /// A session of its own, in a window that is shown and active. Where the definition could not be opened the test
    /// fails with the findings, and an empty form stands in for it.
    explicit FormTest(Opening opening, const CallSite &at = CallSite::Here());
    /// The session of a host that runs in the test, with the host's window. It may end before.
    explicit FormTest(Session &session, const CallSite &at = CallSite::Here());
    ~FormTest() override;

    /// The session; null when it has ended.
    Session *GetSession() const;
    /// The same, never null: when it has ended the test fails, and this gives the session of an empty form.
    Session *operator->() const;
    /// What the checker told of the definition; nothing for a session of the host.
    const QVector<Finding> &Told() const;
    /// Ends the session, as a host does. One that the host holds is the host's to end.
    void EndSession(const CallSite &at = CallSite::Here());

    /// The device has these values: Session::Report(). One that is not taken fails the test.
    void Report(const QString &path, const QVariant &value, const CallSite &at = CallSite::Here());
    void Report(const QVariantMap &values, const CallSite &at = CallSite::Here());
    /// Session::Value(), and an unknown path fails the test.
    QVariant Value(const QString &path, const CallSite &at = CallSite::Here()) const;

    /// How long automatic apply waits, in milliseconds; below 0 it is switched off. Definitions often state seconds,
    /// which tests need not wait for.
    void SetAutoApply(int milliseconds, const CallSite &at = CallSite::Here());
    /// Waits for what is applied next, or was applied and not asked for yet. Fails the test when nothing comes within
    /// the time, in milliseconds, and tells what has been changed.
    Applied WaitForApplied(int milliseconds = 5000, const CallSite &at = CallSite::Here());
    /// What was applied and not asked for yet, without waiting.
    QVector<Applied> TakeApplied();
    /// Waits until the operator has changed this control, or did since it was asked for last.
    void WaitForChange(const QString &path, int milliseconds = 5000, const CallSite &at = CallSite::Here());
    /// What is changed and not applied, as text: TextOf().
    QString Changes(const CallSite &at = CallSite::Here()) const;

    /// What the scripts of the form threw since the last call, as "line: text". The lines are those of the definition.
    QStringList TakeScriptErrors();
    /// Waits for the next of these, or takes the first that was not asked for yet.
    QString WaitForScriptError(int milliseconds = 5000, const CallSite &at = CallSite::Here());

protected:
    KV218::OrbelFormular *GetForm() const override;

private:
    class Heard;

    const std::unique_ptr<Heard> All;
};

} // namespace Orbel
