#pragma once

#include "orbeldelegate.h"

#include <QPointer>

class QLabel;
class QPushButton;

namespace KV218
{

/// A lamp and the buttons Load, Edit and Clear, with which an operator handles a script file of the host. Class name:
/// `ScriptControl`. It only reports the clicks; the host tells with the custom property `scriptloaded`, a bool, whether
/// a script is loaded. The definition must state the six properties of the buttons: an absent one counts as false.
class OrbelScriptControl : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelScriptControl(OrbelWidget *widget);

    void CreateGUI(FloatGroupLayout *layout) override;
    QVector<Face> GetFaces() const override;
    void EnableInput(bool enable, bool partial) override;

Q_SIGNALS:
    void clearScriptClicked();
    void editScriptClicked();
    void loadScriptClicked();

public Q_SLOTS:
    /// These act on the buttons alone and leave the properties as they are; before CreateGUI() they do nothing.
    void setEnabledClear(bool flag);
    void setEnabledEdit(bool flag);
    void setEnabledLoad(bool flag);
    void setVisibleClear(bool flag);
    void setVisibleEdit(bool flag);
    void setVisibleLoad(bool flag);
    void setGroupVisible(bool flag) override;

protected:
    void Retranslate() override;
    void PropertyChanged(const QString &name, const QVariant &value) override;

private Q_SLOTS:
    void sl_customPropertyChanged(QString name, QVariant value);

private:
    QPushButton *NewButton(const QString &name, const QString &icon, const QString &verb);
    void ShowLamp();
    void ShowLampToolTip();
    void SetEnabled(int button, bool flag);
    void SetVisible(int button, bool flag);
    void GiveBackStates();
    void ApplyProperties();

    /// All null before CreateGUI() and once the window is gone.
    QPointer<QWidget> Container;
    QPointer<QLabel> StatusLabel;
    enum { Load, Edit, Clear, ButtonCount };
    struct Button {
        QPointer<QPushButton> Control;
        /// What it was told last, by itself; a lock or a collapse takes it from the screen meanwhile.
        bool Enabled = true;
        bool Visible = true;
    };
    Button Buttons[ButtonCount];
    bool ScriptLoaded = false;
};

} // namespace KV218
