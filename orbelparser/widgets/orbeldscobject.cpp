#include "orbeldscobject.h"

#include "exclusiondialog.h"
#include "formdoor.h"
#include "newcontrol.h"
#include "propertynames.h"
#include "xmlwalk.h"

namespace KV218
{

namespace
{

constexpr ExclusionListFormat DscListFormat{
    Latin1("ExclusionFrequencyList"), Latin1("ExclusionFrequency"), Latin1("Start"), Latin1("Stop"), 0, true};

/// A band's element in the document of scan ranges, and the label that shows it.
struct Band {
    QLatin1String element;
    QLatin1String label;
};

constexpr Band Bands[] = {
    {Latin1("HFScan"), Latin1("lbScanHF")},
    {Latin1("VUHFScan"), Latin1("lbScanVUHF")},
    {Latin1("SHFScan"), Latin1("lbScanSHF")},
};

constexpr QLatin1String NoRange = Latin1("-");

const Band *FindBand(const QStringRef &element)
{
    for (const Band &band : Bands)
        if (element == band.element)
            return &band;
    return nullptr;
}

} // namespace

OrbelDelegate *NewSpecialObject_DSC(OrbelWidget *widget)
{
    return NewControl<OrbelDSCObject>(widget);
}

OrbelDSCObject::OrbelDSCObject(OrbelWidget *widget) : ExclusionListDelegate(widget, DscListFormat), ExclusionMap(this)
{
}

void OrbelDSCObject::CreateValueTree()
{
    auto *node = new ValueCommentedRangeMap(GetXmlTagName(), ekStateUsable);
    // Meant: where the tree refuses it, a second form on the path say, the object works with a node that nobody finds.
    ExclusionMap.Adopt(node);
    ValueBase *entering = node;
    EnterNode(entering);
}

void OrbelDSCObject::CreateGUI(FloatGroupLayout *)
{
    // Meant: without the base, so a `labelText` makes no row.
    connect(this, &OrbelDSCObject::si_editExclusionRangesBtnClicked, this, &OrbelDSCObject::sl_editExclusionRanges,
        Qt::UniqueConnection);
}

void OrbelDSCObject::NodeChanged(Observable *source, TChangeCode code)
{
    if (ExclusionMap.TakeNotification(source, code))
        setModified(true);
}

void OrbelDSCObject::sl_editExclusionRanges()
{
    const Call call(this);
    EditExclusionRanges(GetRanges(), Form().GetSheetWidget(), staticMetaObject.className(), this);
}

void OrbelDSCObject::sl_setScanRanges(QString value)
{
    // A control that shows a text may tell handlers, and one of them end the form.
    const Call call(this);
    for (const Band &band : Bands)
        ShowScanRange(band.label, NoRange);
    QXmlStreamReader reader(value);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == Latin1("Scan"))
            ReadScan(reader);
    }
}

void OrbelDSCObject::ReadScan(QXmlStreamReader &reader)
{
    ForEachStart(reader, [&](const QStringRef &name) {
        if (const Band *band = FindBand(name))
            ShowScanRange(band->label, ReadBand(reader));
        else
            reader.skipCurrentElement();
        return true;
    });
}

/// The text of the band on whose start the reader stands.
QString OrbelDSCObject::ReadBand(QXmlStreamReader &reader)
{
    QString text;
    int possible = 0;
    const auto appendFrequency = [&] { text += formatHertz(reader.readElementText().toDouble()); };
    ForEachStart(reader, [&](const QStringRef &name) {
        // Meant: the order of the elements is the order of the text, and an unknown one is entered and ends the band.
        if (name == Latin1("ScanPossible")) {
            possible = reader.readElementText().toInt();
        } else if (name == Latin1("ScanStartFrequency")) {
            appendFrequency();
        } else if (name == Latin1("ScanStopFrequency")) {
            text += Latin1("...");
            appendFrequency();
        }
    });
    return possible > 0 ? text : QString(NoRange);
}

void OrbelDSCObject::ShowScanRange(const QString &label, const QString &text)
{
    if (OrbelDelegate *control = Form().FindControl(label))
        control->SetPropertyAlways(prop::Text, text);
}

} // namespace KV218
