#pragma once

#include "orbelexport.h"

#include <QScrollArea>

/// A scroll area for a FloatGroupLayout: with every new width the layout of its widget arranges anew, and the widget
/// may become smaller than it was arranged before.
class ORBEL_EXPORT FloatScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit FloatScrollArea(QWidget *parent);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};
