#pragma once

#include "orbeldelegate.h"
#include "propertynames.h"

#include <QGroupBox>

namespace KV218
{

/// The title of a group, which a click on its indicator collapses: everything up to the next headline. Class name:
/// `Headline`. Without a `text` there is nothing to see. It stays usable when input is locked, has no row label and no
/// node, and writes no parameters.
class OrbelHeadline : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelHeadline(OrbelWidget *widget);

    void CreateGUI(FloatGroupLayout *layout) override;
    QVector<Face> GetFaces() const override
    {
        return {{GroupBox.data(), [this] { return GroupBox ? GroupBox->title() : QString(); }}};
    }
    void EnableInput(bool enable, bool partial) override;

public Q_SLOTS:
    void setText(QString text) { ChangeProperty(prop::Text, text); }
    void setMargin(int value) { ChangeProperty(prop::Margin, value); }
    void setGroupVisible(bool flag) override;

protected:
    void Retranslate() override;
    void PropertyChanged(const QString &name, const QVariant &value) override;

private Q_SLOTS:
    void slotClicked(bool clicked);

private:
    void RefreshToolTip();

    QPointer<QGroupBox> GroupBox;
    // What the box shows, as the definition has it, and the tooltip that it was given here.
    QString Title;
    QString ToolTip;
};

} // namespace KV218
