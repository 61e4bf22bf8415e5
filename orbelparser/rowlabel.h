#pragma once

#include "orbelexport.h"

#include <QLabel>

/// The label at the start of a row: FloatGroupLayout::addLabel() makes it.
class ORBEL_EXPORT RowLabel : public QLabel
{
public:
    RowLabel(const QString &text, QWidget *parent);

    /// Shows or hides the small mark of a control whose change has not been applied yet. It takes no room.
    void SetMarked(bool marked);
    bool IsMarked() const { return Marked; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool Marked = false;
};
