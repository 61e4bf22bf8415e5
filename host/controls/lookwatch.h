#pragma once

#include "hostexport.h"

#include <QObject>

#include <functional>

class QWidget;

namespace Orbel
{

/// Tells whenever the font or the colours of a widget have changed, for what does not follow by itself.
class ORBEL_HOST_EXPORT LookWatch : public QObject
{
    Q_OBJECT

public:
    /// Belongs to `owner`.
    LookWatch(QWidget *watched, QObject *owner, std::function<void()> follow);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void()> Follow;
};

} // namespace Orbel
