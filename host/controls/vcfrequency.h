#pragma once

#include "control.h"
#include "frequencyhistory.h"
#include "glyphbutton.h"
#include "nodebinding.h"

#include <QPointer>
#include <QWidget>

namespace Orbel
{
class FrequencyField;
} // namespace Orbel
class QLabel;
class VCButton;
class VCMiniFrequency;

/// The full control for one frequency: the large field (FrequencyField), buttons that step its marked digit, one that
/// begins a typed entry, the history (F4 or Alt+Down), a tune button, and under the field the bandwidth of a second
/// node. Its text is half as large again as the font it is given.
class ORBEL_HOST_EXPORT VCFrequency : public QWidget, public Control, public IObserver
{
    Q_OBJECT
    /// As isEnabled() and isReadOnly() tell.
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly)

public:
    /// `name`, which may be null, becomes the object name. With `belowZero` tuning goes on below 0 Hz. The history
    /// opens as a child of `popupParent`, or of this widget when that is null; without `history` there is none to open.
    VCFrequency(QWidget *parent, const char *name, bool belowZero, QWidget *popupParent, bool history);
    ~VCFrequency() override;

    /// Binds to the numeric node at that full path of the tree, in Hz. False, and unbound, when there is none.
    bool SetFrequency_ValuePath(const QString &path);
    /// Shows the node at that full path as bandwidth, from now on and whenever one is entered there later; an empty
    /// path shows none. Whether there is one now.
    bool SetBandwidth_ValuePath(const QString &path);

    /// These belong to this widget.
    VCButton *GetTuneButton() const { return TuneButton; }
    VCMiniFrequency *GetFrequencyButtonCtrl() const { return EntryButton; }
    VCMiniFrequency *GetHistoryButtonCtrl() const { return HistoryButton; }

    /// Disables the step buttons until input is freed again.
    void DisableButtons();
    /// Locks the input, as for a read-only field, or frees it; input is locked, too, without a frequency node. A lock
    /// takes back a text that is being typed, and tells it. The lock ends as well with setEnabled(true) and
    /// setReadOnly(false).
    virtual void EnableInput(bool enable);
    bool isReadOnly() const { return ReadOnly; }
    /// A text that is being typed is committed before.
    void setReadOnly(bool readOnly);
    /// Hides that of the base class, to commit a text that is being typed before, and to end the lock.
    void setEnabled(bool enable);

    /// Rounds typed frequencies to whole hertz; off at the start.
    void SetWholeHertz(bool whole);
    /// Lets the wheel tune the digit under the mouse without the focus, too; off at the start.
    void TuneByHovering(bool tune);

    /// In Hz, most recent first: what the operator set, and what stood there before.
    QVector<double> GetHistory() const { return History.Frequencies(); }

    void Update(Observable *subject, TChangeCode code) override;

public Q_SLOTS:
    /// Sets the frequency, in Hz, clamped to the limits of the node, and puts it into the history.
    virtual void slotSetFrequencyValue(double hertz);
    virtual void slotAddToHistory(double hertz);
    /// Steps the marked digit of the field.
    virtual void slotIncrement();
    virtual void slotDecrement();
    /// Commits a text that is being typed now, with or without the focus.
    void endEdit();

Q_SIGNALS:
    /// The operator types a frequency and goes on with it; tuning is no typing.
    void signalTextEdited(const QString &text);
    /// The tune button was clicked; the frequency in Hz. The observers of the node are told its value again before.
    void signalTune(double hertz);

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Build();
    void ShowTexts();
    QToolButton *StepButton(const QString &name, Orbel::GlyphButton::Glyph glyph, void (VCFrequency::*step)());
    VCMiniFrequency *MiniButton(const QString &name, Orbel::GlyphButton::Glyph glyph, void (VCFrequency::*action)());
    void Step(int steps);
    void BeginEntry();
    void OpenHistory();
    void Tune();
    void ApplyInput();
    void ScaleText();
    void BindBandwidth();
    void ShowBandwidth();

    Orbel::FrequencyField *Field;
    QToolButton *UpButton;
    QToolButton *DownButton;
    VCMiniFrequency *EntryButton;
    VCMiniFrequency *HistoryButton;
    VCButton *TuneButton;
    QLabel *BandwidthLabel;
    QPointer<QWidget> PopupParent;

    Orbel::NodeBinding<ValueBase> Bandwidth{this};
    QString BandwidthPath;
    Orbel::FrequencyHistory History;
    bool Locked = false;
    bool ReadOnly = false;
};
