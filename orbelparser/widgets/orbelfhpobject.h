#pragma once

#include "exclusionlistdelegate.h"
#include "valuecommentedrangemap.h"
#include "valueobservingptr.h"

namespace KV218
{

/// The ranges that signal detection leaves out, for the operator to edit. Class name: `SpecialObject_FHP`. Its node
/// belongs to the tree; a second form on the same path takes it over and empties it, and the end of either form
/// removes it.
class OrbelFHPObject : public ExclusionListDelegate
{
    Q_OBJECT

public:
    explicit OrbelFHPObject(OrbelWidget *widget);
    ~OrbelFHPObject() override;

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;

Q_SIGNALS:
    void si_editEditExclusionRangesBtnClicked();

public Q_SLOTS:
    /// Shows the list in a modal dialog. The object may be gone afterwards.
    void sl_editExclusionRanges();

public:
    /// For the script of a button.
    Q_INVOKABLE void emitEditExclusionRangesBtnClicked()
    {
        const Call call(this);
        Q_EMIT si_editEditExclusionRangesBtnClicked();
    }

protected:
    void NodeChanged(Observable *source, TChangeCode code) override;
    ValueCommentedRangeMap *GetRanges() const override { return ExclusionRanges.get(); }

private:
    /// Null before CreateValueTree() and once the node is withdrawn.
    ValueObservingPtr<ValueCommentedRangeMap> ExclusionRanges;
};

} // namespace KV218
