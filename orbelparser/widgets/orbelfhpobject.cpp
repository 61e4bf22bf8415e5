#include "orbelfhpobject.h"

#include "exclusiondialog.h"
#include "formdoor.h"
#include "latin1.h"
#include "newcontrol.h"
#include "trace.h"

namespace KV218
{

namespace
{

constexpr ExclusionListFormat FhpListFormat{
    Latin1("ExclusionRanges"), Latin1("ExclusionRange"), Latin1("StartFreq"), Latin1("StopFreq"), 2, false};

} // namespace

OrbelDelegate *NewSpecialObject_FHP(OrbelWidget *widget)
{
    return NewControl<OrbelFHPObject>(widget);
}

OrbelFHPObject::OrbelFHPObject(OrbelWidget *widget)
    : ExclusionListDelegate(widget, FhpListFormat), ExclusionRanges(this)
{
}

OrbelFHPObject::~OrbelFHPObject()
{
    ExclusionRanges.ReleaseNode();
}

void OrbelFHPObject::CreateValueTree()
{
    const QString path = GetVTNodePath() + QLatin1Char('/') + GetXmlTagName();
    // Nobody would end the list of an earlier path. Whoever is notified of its end may end the form.
    if (ExclusionRanges && ExclusionRanges->GetPathName() != path)
        ExclusionRanges.ReleaseNode();
    if (ExclusionRanges.CreateNode(path))
        return;
    TraceFailure(QStringLiteral("OrbelFHPObject::CreateValueTree: exclusion ranges map already existing in VT"),
        "orbelfhpobject", __LINE__);
    // Meant: this deletes the ranges of the form that was there first.
    ExclusionRanges->Clear(this);
}

void OrbelFHPObject::CreateGUI(FloatGroupLayout *)
{
    // Meant: without the base, so a `labelText` makes no row.
    connect(this, &OrbelFHPObject::si_editEditExclusionRangesBtnClicked, this, &OrbelFHPObject::sl_editExclusionRanges,
        Qt::UniqueConnection);
}

void OrbelFHPObject::NodeChanged(Observable *source, TChangeCode code)
{
    // The code first: a node that goes away cannot be asked for its side.
    if (code == ekChangeValue && ExclusionRanges && source == ExclusionRanges.get())
        setModified(true);
}

void OrbelFHPObject::sl_editExclusionRanges()
{
    const Call call(this);
    EditExclusionRanges(GetRanges(), Form().GetSheetWidget(), staticMetaObject.className(), this);
}

} // namespace KV218
