#pragma once

#include "orbeldelegate.h"
#include "propertynames.h"

#include <functional>
#include <memory>
#include <QCheckBox>
#include <QPoint>
#include <QPushButton>
#include <QTimer>

class QAction;
class QMenu;
class QScrollArea;

namespace KV218
{

class FormChanges;
class LockLine;
class OpeningFocus;

/// The delegate of the sheet itself, which scripts reach under the sheet's name. It builds the frame in which the
/// controls live, with or without an apply row, keeps the modified state of the form, and tells the host of parameters
/// to fetch: on the apply button, and by itself some time after the last finished change. It writes the root element of
/// parameter documents.
///
/// The frame is not deleted here: it belongs to its parent, or to whoever shows it, and may go before or after this.
class OrbelSheetUi : public OrbelDelegate
{
    Q_OBJECT

public:
    /// `changes` is not owned; null for none.
    explicit OrbelSheetUi(FormChanges *changes = nullptr);
    ~OrbelSheetUi() override;

    /// Builds the frame; nothing when there is one.
    void CreateFrame(bool applyUi);
    /// The controls stand in the frame: the apply row comes behind them in the order of the Tab key, and the first one
    /// has the focus when the form is shown.
    void FinishFrame();
    /// Writes the root element's start and its attributes; the caller writes its end.
    void WriteRootStart(QXmlStreamWriter &writer) const;
    /// The widget that the host shows; null before CreateFrame() and once it is gone.
    QWidget *GetGUI() const { return Gui; }
    /// The layout to which controls add themselves; null when there is no frame.
    FloatGroupLayout *GetLayout() const;
    /// Scrolls to the control that has the focus, when the layout has come to rest.
    void ScrollToFocus();
    /// Why the input is locked; stands in the apply row, and where that has no room, or is none, before the controls.
    void SetLockReason(const QString &reason);
    const QString &GetLockReason() const { return LockReason; }
    /// What the controls are scrolled in; null when there is no frame.
    QScrollArea *GetArea() const;
    /// Has all controls stand where they will, as far as the window is shown.
    void LayOut();
    /// What had the focus when ParkFocus() took it; null for nothing.
    QWidget *GetParked() const { return Parked; }
    /// Takes over the widget that the host shows from the frame of another form, which has ended, so that CreateFrame()
    /// builds in it. What stood in it goes. Must come before CreateFrame().
    void TakeWidget(OrbelSheetUi &former);
    /// Takes over what the operator has to apply there, if `isModified`, and whether it applies by itself.
    void TakeChanges(const OrbelSheetUi &former, bool isModified);
    bool isAutoApplyEnabled() const { return AutoApplyEnabled; }
    /// Called when the frame hears that the language has changed, before the controls do.
    void SetLanguageListener(const std::function<void()> &listener) { Listener = listener; }

    void ParseProperties(QXmlStreamReader &reader, bool custom) override;
    /// Locks or frees the apply row, and gives the focus back to the control from which ParkFocus() took it, if that
    /// can take it and nothing else has taken it meanwhile.
    void EnableInput(bool enable, bool partial) override;
    /// Keeps the focus in the frame itself, so that no other control gets what the operator types on; a text that is
    /// being typed is taken back and told.
    void ParkFocus();
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// There are parameters for the host to fetch.
    void si_parametersModified();
    /// For the host; never emitted here.
    void si_translationsChanged();
    /// The operator picked a text size, in points.
    void si_chooseFontSize(int size);

public Q_SLOTS:
    /// Announces the parameters if there are modified ones, and resets nothing.
    void applyNow();
    /// Announces the parameters in any case.
    void emitParametersXml();
    /// The same as applyNow(), whatever the argument.
    void emitParametersXml(bool onlyModified);
    /// Drops an announcement that is due.
    void killAutoApplyTimer();
    void setApplyUiVisible(bool visible) { ChangeProperty(prop::ApplyUiVisible, visible); }
    void setAutoApplyEnabled(bool enable) { ChangeProperty(prop::AutoApplyEnabled, enable); }
    /// The same, of the operator's or the host's own accord, who want it so in the next form in this one's place, too.
    void ChooseAutoApply(bool enable);
    /// In milliseconds; counts for a frame that is built later.
    void setAutoApplyTimeout(int timeout) { ChangeProperty(prop::AutoApplyTimeout, timeout); }
    void setEmitOnlyModifiedParameters(bool onlyModified)
    {
        ChangeProperty(prop::EmitOnlyModifiedParameters, onlyModified);
    }
    void setErrorHighlightingXmlRootTag(QString rootTag) { ChangeProperty(prop::ErrorHighlightingXmlRootTag, rootTag); }
    /// Whether the wheel tunes the digit under the mouse in large frequency fields without the focus, too.
    void setHoverTuning(bool tune) { ChangeProperty(prop::HoverTuning, tune); }
    void setQMBaseName(QString qmBaseName) { ChangeProperty(prop::QMBaseName, qmBaseName); }
    void setTranslationsSubDir(QString subDir) { ChangeProperty(prop::TranslationsSubDir, subDir); }
    /// Shows or hides the frame.
    void setVisible(bool visible);
    void setModified(bool autoApply) override;
    void resetModified() override;
    /// Lets the operator pick a text size from a menu at `pt`, in coordinates of the frame. Returns when the menu
    /// closes.
    void showContextMenu(QPoint pt);

private Q_SLOTS:
    void chooseFont(QAction *pAction);

public:
    /// Does nothing.
    Q_INVOKABLE void resetModifiedParameter(QObject *sheetObject);

protected:
    void Retranslate() override;
    void PropertyChanged(const QString &name, const QVariant &value) override;

private:
    QWidget *BuildApplyBox(QWidget *parent);
    void KeepTabPlace() const;
    void BuildTimer();
    void FillTextSizeMenu(QMenu *sizes);

    const QPointer<FormChanges> Changes;
    // All null without a frame, and the middle three without an apply row.
    QPointer<QWidget> Gui;
    QPointer<QScrollArea> Area;
    QPointer<FloatGroupLayout> Layout;
    QPointer<QWidget> ApplyBox;
    QPointer<QPushButton> ApplyButton;
    QPointer<QCheckBox> AutoApplyBox;
    // Null while there is no reason.
    QPointer<LockLine> Line;
    QString LockReason;
    QPointer<OpeningFocus> Opening;
    bool IsLocked = false;
    // What had the focus when it was parked.
    QPointer<QWidget> Parked;
    // That of another form, in which the frame is to be built.
    QPointer<QWidget> Taken;
    // The form waits to be shown for the first time.
    bool IsNew = true;
    bool AutoApplyChosen = false;
    std::function<void()> Listener;
    // Null when nothing can ever apply by itself.
    std::unique_ptr<QTimer> AutoApplyTimer;
    bool AutoApplyEnabled = false;
    // Names of the custom properties that declare attributes of the root element.
    QStringList RootAttributes;
};

} // namespace KV218
