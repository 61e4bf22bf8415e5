#pragma once

#include "exclusionlistdelegate.h"
#include "ownednode.h"
#include "valuecommentedrangemap.h"

class QXmlStreamReader;

namespace KV218
{

/// Scanning and signal classification of the application: a list of excluded ranges for the operator to edit, the scan
/// ranges of three bands in labels of the form, and buttons that are passed on. Class name: `SpecialObject_DSC`.
class OrbelDSCObject : public ExclusionListDelegate
{
    Q_OBJECT

public:
    explicit OrbelDSCObject(OrbelWidget *widget);

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;

Q_SIGNALS:
    void si_editExclusionRangesBtnClicked();
    void si_editScriptBtnClicked();
    void si_loadProdCriteriaBtnClicked();
    void si_loadSpectralDetectorDataClicked();
    void si_spectralDetectorProcStatusToggled(bool status);

public Q_SLOTS:
    /// Shows the list in a modal dialog. The object may be gone afterwards.
    void sl_editExclusionRanges();
    /// Shows the scan ranges that a document of the application tells, frequencies in Hz, as the text of the labels
    /// `lbScanHF`, `lbScanVUHF` and `lbScanSHF`: "1.5 MHz...30 MHz", or "-" for a band that is not told or where a scan
    /// is not possible. Labels that the form does not have are left out.
    void sl_setScanRanges(QString value);

public:
    /// For the scripts of buttons.
    Q_INVOKABLE void emitEditExclusionRangesBtnClicked()
    {
        const Call call(this);
        Q_EMIT si_editExclusionRangesBtnClicked();
    }
    Q_INVOKABLE void emitEditScriptBtnClicked()
    {
        const Call call(this);
        Q_EMIT si_editScriptBtnClicked();
    }
    Q_INVOKABLE void emitLoadProdCriteriaBtnClicked()
    {
        const Call call(this);
        Q_EMIT si_loadProdCriteriaBtnClicked();
    }
    Q_INVOKABLE void emitLoadSpectralDetectorDataClicked()
    {
        const Call call(this);
        Q_EMIT si_loadSpectralDetectorDataClicked();
    }
    Q_INVOKABLE void emitSpectralDetectorProcStatusToggled(bool status)
    {
        const Call call(this);
        Q_EMIT si_spectralDetectorProcStatusToggled(status);
    }

protected:
    void NodeChanged(Observable *source, TChangeCode code) override;
    ValueCommentedRangeMap *GetRanges() const override { return ExclusionMap.get(); }

private:
    void ReadScan(QXmlStreamReader &reader);
    static QString ReadBand(QXmlStreamReader &reader);
    void ShowScanRange(const QString &label, const QString &text);

    /// Null before CreateValueTree() and once the node is withdrawn.
    Orbel::OwnedNode<ValueCommentedRangeMap> ExclusionMap;
};

} // namespace KV218
