#include "delegatefactory.h"

#include "orbelaudioobject.h"
#include "orbelchannelspacingtable.h"
#include "orbelcheckbox.h"
#include "orbelcombobox.h"
#include "orbeldelegate.h"
#include "orbeldoublespinbox.h"
#include "orbeldoublespinboxlist.h"
#include "orbeldscobject.h"
#include "orbelfftobject.h"
#include "orbelfhpobject.h"
#include "orbelfrequencyedit.h"
#include "orbelfrequencyrangeedit.h"
#include "orbelheadline.h"
#include "orbelhidden.h"
#include "orbelhiddenlist.h"
#include "orbelhiddenmap.h"
#include "orbelhiddentable.h"
#include "orbelint64spinbox.h"
#include "orbellabel.h"
#include "orbellineedit.h"
#include "orbelpushbutton.h"
#include "orbelscriptcontrol.h"
#include "orbelseparator.h"
#include "orbelspinbox.h"
#include "orbelspinboxlist.h"
#include "orbeltable.h"
#include "orbeltunerobject.h"

#include <QMap>

namespace KV218
{

namespace
{

using Creator = OrbelDelegate *(*)(OrbelWidget *);

struct Row {
    const char *className;
    Creator creator;
};

template <class Delegate> OrbelDelegate *Make(OrbelWidget *widget)
{
    // The script engine looks this type up for each object that it is given, and searches long for an unknown one.
    static const int known = qRegisterMetaType<Delegate *>();
    Q_UNUSED(known)
    return new Delegate(widget);
}

template <bool isHeadline> OrbelDelegate *MakeSeparator(OrbelWidget *widget)
{
    return new OrbelSeparator(widget, isHeadline);
}

// clang-format off
constexpr Row Table[] = {
    {"ComboBox",              Make<OrbelComboBox>},
    {"CheckBox",              Make<OrbelCheckBox>},
    {"Headline",              Make<OrbelHeadline>},
    {"FrequencyEdit",         Make<OrbelFrequencyEdit>},
    {"FrequencyRangeEdit",    Make<OrbelFrequencyRangeEdit>},
    {"SpinBox",               Make<OrbelSpinBox>},
    {"DoubleSpinBox",         Make<OrbelDoubleSpinBox>},
    {"BandwidthEdit",         Make<OrbelInt64SpinBox>},
    {"BaudRateSpinBox",       Make<OrbelDoubleSpinBox>},
    {"ChannelSpacingTable",   Make<OrbelChannelSpacingTable>},
    {"DoubleSpinBoxList",     Make<OrbelDoubleSpinBoxList>},
    {"FrequencyOffsetEdit",   Make<OrbelInt64SpinBox>},
    {"HiddenList",            Make<OrbelHiddenList>},
    {"ScriptControl",         Make<OrbelScriptControl>},
    {"HiddenMap",             Make<OrbelHiddenMap>},
    {"HiddenParameter",       Make<OrbelHidden>},
    {"HiddenTable",           Make<OrbelHiddenTable>},
    {"IPEdit",                Make<OrbelLineEdit>},
    {"LineEdit",              Make<OrbelLineEdit>},
    {"PushButton",            Make<OrbelPushButton>},
    {"Label",                 Make<OrbelLabel>},
    {"Separator",             MakeSeparator<true>},
    {"FixedSpacer",           MakeSeparator<false>},
    {"ShiftList",             Make<OrbelDoubleSpinBoxList>},
    {"SpinBoxList",           Make<OrbelSpinBoxList>},
    {"TableWidget",           Make<OrbelTable>},
    {"SpecialObject_Audio",   Make<OrbelAudioObject>},
    {"SpecialObject_DSC",     Make<OrbelDSCObject>},
    {"SpecialObject_FFT",     Make<OrbelFFTObject>},
    {"SpecialObject_Generic", Make<OrbelDelegate>},
    {"SpecialObject_Tuner",   Make<OrbelTunerObject>},
    {"SpecialObject_WDE",     Make<OrbelDelegate>},
    {"SpecialObject_FHP",     Make<OrbelFHPObject>},
};
// clang-format on

/// Built on first use and kept for the life of the process.
const QMap<QString, Creator> &Creators()
{
    static const QMap<QString, Creator> creators = [] {
        QMap<QString, Creator> map;
        for (const Row &row : Table)
            map.insert(QLatin1String(row.className), row.creator);
        return map;
    }();
    return creators;
}

} // namespace

OrbelDelegate *NewDelegate(const QString &className, OrbelWidget *widget)
{
    return Creators().value(className, Make<OrbelDelegate>)(widget);
}

QStringList DelegateClassNames()
{
    QStringList names;
    for (const Row &row : Table)
        names.append(QLatin1String(row.className));
    return names;
}

} // namespace KV218
