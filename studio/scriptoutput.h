#pragma once

#include <QObject>

namespace Orbel
{

/// Hears what scripts print, which they do through Qt's debug messages. All messages go where they went before, too.
/// One at a time.
class ScriptOutput : public QObject
{
    Q_OBJECT

public:
    ScriptOutput();
    ~ScriptOutput() override;

Q_SIGNALS:
    void printed(const QString &text);

private:
    static void Hear(QtMsgType type, const QMessageLogContext &context, const QString &text);

    static ScriptOutput *Current;
    QtMessageHandler Former;
};

} // namespace Orbel
