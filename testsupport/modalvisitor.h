#pragma once

#include "testsupportexport.h"

#include <functional>
#include <QTimer>

class QWidget;

namespace Orbel
{

/// While it lives, it visits each menu and each modal dialog that waits for the operator, and closes it. A test makes
/// one before the act that opens a dialog, since that act returns when the dialog is closed:
///
///     const Orbel::ModalVisitor visitor([](QWidget *dialog) { dialog->findChild<QLineEdit *>()->setText("a"); });
///     form.Click("load");
class ORBEL_TESTSUPPORT_EXPORT ModalVisitor : public QTimer
{
public:
    /// `visit` is called with the menu or dialog before that is closed, and may close or accept it by itself. Without
    /// one it is only closed.
    explicit ModalVisitor(const std::function<void(QWidget *)> &visit = nullptr);

    /// How many were visited.
    int GetCount() const { return Count; }

private:
    void Look();

    const std::function<void(QWidget *)> Visit;
    int Count = 0;
};

} // namespace Orbel
