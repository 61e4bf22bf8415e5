#pragma once

#include "idllinstance.h"

#include <QObject>

namespace KV218
{

class OrbelFormular;
class OrbelTestMain;

/// The form viewer: shows one definition file in a window with an apply row, or all definitions of a component list in
/// tabs. What the operator applies, exceptions of a single form's script with their line in the file, and a file that
/// cannot be loaded are told as Qt debug messages of the category "orbel.viewer", so an application frame sees it
/// through its message handler.
class OrbelTest : public QObject, public IDllInstance
{
    Q_OBJECT

public:
    explicit OrbelTest(QString name);

    /// The frame's own arguments are the first four; behind them come the path and, for a single definition, the option
    /// "debug", which attaches the script debugger. With fewer nothing is shown. Always true.
    bool Init(int argc, const char **argv) override;

    /// The form of a single definition, null without one. It and the window live on when the viewer goes.
    OrbelFormular *GetFormular() const { return CurrentFormular; }
    OrbelTestMain *GetWindow() const { return MainWindow; }

public Q_SLOTS:
    void sl_parametersModified();

private:
    void LoadOrbel(const QString &path, const QString &option);
    void LoadComponents(const QString &path);

    OrbelFormular *CurrentFormular = nullptr;
    OrbelTestMain *MainWindow;
};

} // namespace KV218
