#pragma once

#include "bounddelegate.h"
#include "propertynames.h"
#include "vclineedit.h"

namespace KV218
{

/// A field for text. Class names: `LineEdit` and, for the same control, `IPEdit`. Value property: `text`; what the
/// operator types reaches it when the edit ends. Keystrokes and changes from the node mark the control modified without
/// starting automatic apply, and Return pushes the form's parameters out.
class OrbelLineEdit : public BoundDelegate<ValueString, VCLineEdit>
{
    Q_OBJECT

public:
    explicit OrbelLineEdit(OrbelWidget *widget);

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;
    void GetXml(QXmlStreamWriter &writer) const override;
    void ReadXml(QXmlStreamReader &reader) override;
    void PutEdits(const QVariantList &values) override;

Q_SIGNALS:
    void editingFinished();
    void returnPressed();
    void textChanged(QString);
    void textEdited(QString);

public Q_SLOTS:
    void setInputMask(QString inputMask) { ChangeProperty(prop::InputMask, inputMask); }
    void setMaxLength(int maxLength) { ChangeProperty(prop::MaxLength, maxLength); }
    void setText(QString text) { ChangeProperty(prop::Text, text); }
    void setFocus() override { FocusControl(); }
    void forceFinishEditing() override;

protected:
    void PropertyChanged(const QString &name, const QVariant &value) override;
    void NodeChanged(Observable *subject, TChangeCode code) override;
    QVariant HeldNumber(const QString &name) const override;

private Q_SLOTS:
    void SlotTextEdited(QString text);
    void SlotTextFinallyChanged(QString value);
    void SlotReturnPressed();

private:
    // What a parameter document asks for at each writing.
    QString Text;
};

} // namespace KV218
