#pragma once

#include <QMainWindow>

namespace KV218
{

/// The window of the form viewer. Closing it ends the application.
class OrbelTestMain : public QMainWindow
{
    Q_OBJECT

public:
    OrbelTestMain() = default;

    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};

} // namespace KV218
