#pragma once

#include "lateacts.h"
#include "nodebinding.h"
#include "undorecordingcontrolbase.h"
#include "valueselection.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QPointer>
#include <QStringList>

/// A combo box that shows the items of a selection node, translated in the context of the node, and selects among them.
/// Typing searches the items, in the closed box and in the open list; a blank within a name belongs to the search. The
/// wheel turns the box only while it has the focus; otherwise the turn goes on to what lies behind. Without a node the
/// last choice stays.
class ORBEL_HOST_EXPORT VCComboBoxClassic : public QComboBox, public IObserver, public virtual UndoRecordingControlBase
{
    Q_OBJECT

public:
    /// `name`, which may be null, becomes the object name.
    explicit VCComboBoxClassic(QWidget *parent = nullptr, const char *name = nullptr);

    /// Binds to `node`, which is not owned, in place of the one before, and fills the list. False for null, which
    /// unbinds.
    bool SetValueSelection(ValueSelection *node);

    void Update(Observable *subject, TChangeCode code) override;
    /// Opens the list wide enough for its longest text, within the screen.
    void showPopup() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    bool event(QEvent *event) override;

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void WriteNode();
    void ShowNode();
    void Choose(int row);
    void ShowItems();
    int PopupWidth() const;
    template <class Base> QSize Measured(const Base &measure) const;

    Orbel::NodeBinding<ValueSelection> Node{this};
    Orbel::LateActs<VCComboBoxClassic> Late{this};
    // What the list was made of; untranslated.
    QStringList Names;
    QByteArray Context;
    int ShownIndex = -1;
    QElapsedTimer LastLetter;
    // The hints as the base class would remember them, and what it last measured: good while `MeasuredChange` is
    // `Change`, which counts what happened to the list and to the look.
    mutable QSize Hint;
    mutable QSize HintIcons;
    mutable QSize MinimumHint;
    mutable QSize Measure;
    mutable QSize MeasuredIcons;
    mutable int MeasuredChange = -1;
    int Change = 0;
    const QPointer<QAbstractItemModel> WatchedModel;
    bool ShownOnce = false;
};
