#pragma once

#include "orbeldelegate.h"
#include "propertynames.h"

#include <QIcon>
#include <QPushButton>
#include <QSize>

namespace KV218
{

/// A button that tells the script of its clicks. Class name: `PushButton`. Its `text` is its tooltip too. It has no
/// node and writes no parameters.
class OrbelPushButton : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelPushButton(OrbelWidget *widget);

    void CreateGUI(FloatGroupLayout *layout) override;
    QVector<Face> GetFaces() const override
    {
        return {{Button.data(), [this] { return Button ? Button->text() : QString(); }}};
    }

Q_SIGNALS:
    void clicked();
    void pressed();
    void released();

public Q_SLOTS:
    void animateClick();
    /// Forgets the icon; the button goes on showing it until it gets another one.
    void clearIcon() { ChangeProperty(prop::Icon, QVariant()); }
    void setIcon(QIcon icon) { ChangeProperty(prop::Icon, QVariant::fromValue(icon)); }
    void setIcon(QString iconFilePath) { setIcon(QIcon(iconFilePath)); }
    void setIconSize(QSize size) { ChangeProperty(prop::IconSize, size); }
    void setIconSize(int width, int height) { setIconSize(QSize(width, height)); }
    void setText(QString text) { ChangeProperty(prop::Text, text); }
    void setFocus() override;

protected:
    void Retranslate() override;
    void PropertyChanged(const QString &name, const QVariant &value) override;

private:
    QPointer<QPushButton> Button;
};

} // namespace KV218
