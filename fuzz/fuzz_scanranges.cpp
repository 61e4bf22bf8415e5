// A document of scan ranges, for the labels of a form.

#include "fuzzsupport.h"

#include "orbeldelegate.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const fuzz::LiveForm &form = fuzz::KeptForm(
        "<ZkParamGui><Sheet><Widget name='scan' class='SpecialObject_DSC'/><Widget name='lbScanHF' class='Label'/>"
        "<Widget name='lbScanVUHF' class='Label'/><Widget name='lbScanSHF' class='Label'/></Sheet></ZkParamGui>");
    const QString text = fuzz::Text(data, size);
    QMetaObject::invokeMethod(form->GetSheet().GetWidget(QStringLiteral("scan"))->GetDelegate(), "sl_setScanRanges",
        Qt::DirectConnection, Q_ARG(QString, text));
    return 0;
}
