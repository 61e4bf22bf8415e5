#pragma once

#include "lateacts.h"
#include "nodebinding.h"
#include "undorecordingcontrolbase.h"
#include "value.h"

#include <QCheckBox>

/// A check box that shows and sets a boolean node. Without a node it keeps its last state and cannot be clicked over.
class ORBEL_HOST_EXPORT VCCheckBox : public QCheckBox, public IObserver, public virtual UndoRecordingControlBase
{
    Q_OBJECT

public:
    /// `name`, which may be null, becomes the object name.
    explicit VCCheckBox(QWidget *parent = nullptr, const char *name = nullptr);

    /// Binds to `node`, which is not owned, in place of the one before. False for null, which unbinds.
    bool SetBoolean(ValueBoolean *node);

    void Update(Observable *subject, TChangeCode code) override;
    /// At least as high as a line of text, also without one, so that it stands level with a label.
    QSize sizeHint() const override { return QCheckBox::sizeHint().expandedTo({0, fontMetrics().height()}); }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void nextCheckState() override;
    void checkStateSet() override;

private:
    void WriteNode();
    void SetChecked(bool checked);
    void ShowNode();

    Orbel::NodeBinding<ValueBoolean> Node{this};
    Orbel::LateActs<VCCheckBox> Late{this};
};
