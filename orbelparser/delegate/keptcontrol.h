#pragma once

#include "changeentry.h"
#include "orbelwidget.h"

#include <QExplicitlySharedDataPointer>
#include <QMap>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace KV218
{

/// What a control of one form has that its heir in another form takes over: the values, if anybody has set them, what
/// handlers and host have set beside them, and the mark of a change that was not applied. Made while the control lives
/// in its form; the form may end before the heir gets it.
class KeptControl
{
public:
    using Widget = QExplicitlySharedDataPointer<OrbelWidget>;

    KeptControl(const Widget &former, const Widget &heir);

    const Widget &GetHeir() const { return HeirWidget; }
    OrbelDelegate *GetFormer() const { return FormerWidget->GetDelegate(); }
    ChangeEntry::Heir AsHeir() const { return {HeirWidget->GetDelegate(), Shape}; }

    /// Gives the values to the heir, whose handlers are notified.
    void PutValues();
    /// Gives them once more where handlers of other controls have made others of them meanwhile.
    void PutValuesAgain();
    /// Marks the heir as its former was marked, and as nothing else.
    void PutMark() const;
    /// Has the heir tell what the device had to say of its former.
    void PutDevice() const;
    /// In the operator's words, what the heir has made of the values; empty where it has them as they were.
    QString TellOther() const;

private:
    void PutStates() const;

    const Widget FormerWidget;
    const Widget HeirWidget;
    const QVariantList Edits;
    const int Shape;
    // A field that loses the focus when the form ends marks its control.
    const bool IsTouched;
    const bool IsModified;
    const bool Shows;
    std::optional<QVariantList> Applied;
    QVariantList Wanted;
    QVariantList Taken;
    QMap<QString, QVariant> States;
    QMap<QString, QVariant> Customs;
};

} // namespace KV218
