#include "commandset.h"

#include <algorithm>
#include <cmath>

namespace
{

enum class Unit { None, Hertz, Seconds, Decibels, Microvolts, Percent };

struct SuffixRow {
    Unit Of;
    const char *Suffix;
    double Factor;
};

const SuffixRow Suffixes[] = {
    {Unit::Hertz, "HZ", 1},
    {Unit::Hertz, "KHZ", 1e3},
    {Unit::Hertz, "MHZ", 1e6},
    {Unit::Hertz, "GHZ", 1e9},
    {Unit::Seconds, "S", 1},
    {Unit::Seconds, "MS", 1e-3},
    {Unit::Decibels, "DB", 1},
    {Unit::Microvolts, "DBUV", 1},
    {Unit::Percent, "PCT", 1},
};

const double HighestRate = 100;

/// The number in the unit that the receiver counts in.
ScpiError ReadNumber(const ScpiParameter &parameter, Unit unit, double &number)
{
    number = parameter.Value;
    if (parameter.Suffix.isEmpty())
        return ScpiError::None;
    if (unit == Unit::None)
        return ScpiError::SuffixNotAllowed;
    for (const SuffixRow &row : Suffixes) {
        if (row.Of == unit && parameter.Suffix == row.Suffix) {
            number *= row.Factor;
            return ScpiError::None;
        }
    }
    return ScpiError::InvalidSuffix;
}

ScpiError ReadSwitch(const ScpiParameter &parameter, double &value)
{
    if (parameter.What == ScpiParameter::String)
        return ScpiError::StringNotAllowed;
    if (!parameter.Suffix.isEmpty())
        return ScpiError::SuffixNotAllowed;
    if (parameter.What == ScpiParameter::Word && parameter.Text != "ON" && parameter.Text != "OFF")
        return ScpiError::IllegalParameterValue;
    const bool isOn = parameter.What == ScpiParameter::Word ? parameter.Text == "ON" : std::round(parameter.Value) != 0;
    value = isOn ? 1 : 0;
    return ScpiError::None;
}

ScpiError ReadName(const ScpiParameter &parameter, const QByteArrayList &names, double &index)
{
    if (parameter.What == ScpiParameter::String)
        return ScpiError::StringNotAllowed;
    if (parameter.What == ScpiParameter::Number)
        return ScpiError::NumberNotAllowed;
    index = names.indexOf(parameter.Text);
    return index < 0 ? ScpiError::IllegalParameterValue : ScpiError::None;
}

/// The limit or preset that a word names.
bool IsLimit(const QByteArray &word, ReceiverModel::Setting setting, double &value)
{
    if (word == "MIN" || word == "MINIMUM")
        value = ReceiverModel::Lowest(setting);
    else if (word == "MAX" || word == "MAXIMUM")
        value = ReceiverModel::Highest(setting);
    else if (word == "DEF" || word == "DEFAULT")
        value = ReceiverModel::Preset(setting);
    else
        return false;
    return true;
}

ScpiError ErrorFor(ReceiverModel::Answer answer)
{
    switch (answer) {
    case ReceiverModel::Answer::Done:
        break;
    case ReceiverModel::Answer::OutOfRange:
        return ScpiError::DataOutOfRange;
    case ReceiverModel::Answer::NoChoice:
        return ScpiError::IllegalParameterValue;
    case ReceiverModel::Answer::Conflict:
        return ScpiError::SettingsConflict;
    }
    return ScpiError::None;
}

enum class Kind { Number, Switch, Name };

ScpiError ExpectOne(const QVector<ScpiParameter> &parameters)
{
    if (parameters.isEmpty())
        return ScpiError::MissingParameter;
    return parameters.size() > 1 ? ScpiError::ParameterNotAllowed : ScpiError::None;
}

QByteArray BandwidthCatalog()
{
    QByteArrayList texts;
    for (double bandwidth : ReceiverModel::Choices(ReceiverModel::Bandwidth))
        texts << QByteArray::number(bandwidth, 'f', 0);
    return texts.join(',');
}

QByteArray Spelled(double value, int decimals)
{
    return QByteArray::number(value, 'f', decimals);
}

} // namespace

/// A command that sets one setting, and its query.
struct CommandSet::SettingRow {
    SettingRow(const char *pattern, ReceiverModel::Setting setting, Kind kind, Unit unit = Unit::None)
        : Pattern(pattern), Shortest(Pattern.Shortest()), Setting(setting), What(kind), Measure(unit)
    {
    }
    QByteArray Spell(double value) const
    {
        return What == Kind::Name ? ReceiverModel::Demodulations().value(int(value))
                                  : Spelled(value, ReceiverModel::Decimals(Setting));
    }

    ScpiPattern Pattern;
    QByteArray Shortest;
    ReceiverModel::Setting Setting;
    Kind What;
    Unit Measure;
};

/// Any other command, any other query, or both; null for what there is not.
struct CommandSet::OtherRow {
    OtherRow(const char *pattern, void (*act)(CommandSet &), QByteArray (*ask)(CommandSet &))
        : Pattern(pattern), Act(act), Ask(ask)
    {
    }

    ScpiPattern Pattern;
    void (*Act)(CommandSet &);
    QByteArray (*Ask)(CommandSet &);
};

const QVector<CommandSet::SettingRow> &CommandSet::SettingRows()
{
    using Model = ReceiverModel;
    // clang-format off
    static const QVector<SettingRow> rows{
        {"[SENSe:]FREQuency[:CW]",                Model::Frequency,     Kind::Number, Unit::Hertz},
        {"[SENSe:]FREQuency:STEP",                Model::FrequencyStep, Kind::Number, Unit::Hertz},
        {"[SENSe:]BANDwidth|BWIDth[:RESolution]", Model::Bandwidth,     Kind::Number, Unit::Hertz},
        {"[SENSe:]DEModulation",                  Model::Demodulation,  Kind::Name},
        {"[SENSe:]GAIN:AUTO",                     Model::AutoGain,      Kind::Switch},
        {"[SENSe:]GAIN[:MANual]",                 Model::Gain,          Kind::Number, Unit::Decibels},
        {"OUTPut:SQUelch[:STATe]",                Model::Squelch,       Kind::Switch},
        {"OUTPut:SQUelch:THReshold",              Model::SquelchLevel,  Kind::Number, Unit::Microvolts},
        {"SYSTem:AUDio:VOLume",                   Model::Volume,        Kind::Number, Unit::Percent},
        {"[SENSe:]SCAN:STARt",                    Model::ScanStart,     Kind::Number, Unit::Hertz},
        {"[SENSe:]SCAN:STOP",                     Model::ScanStop,      Kind::Number, Unit::Hertz},
        {"[SENSe:]SCAN:STEP",                     Model::ScanStep,      Kind::Number, Unit::Hertz},
        {"[SENSe:]SCAN:DWELl",                    Model::ScanDwell,     Kind::Number, Unit::Seconds},
        {"[SENSe:]SCAN:RUN",                      Model::ScanRun,       Kind::Switch},
    };
    // clang-format on
    return rows;
}

const QVector<CommandSet::OtherRow> &CommandSet::OtherRows()
{
    using Self = CommandSet;
    using Text = QByteArray;
    const auto nothing = [](Self &) {};
    // clang-format off
    static const QVector<OtherRow> rows{
        {"*CLS",                     [](Self &self) { self.Errors.Clear(); }, nullptr},
        {"*IDN",                     nullptr, [](Self &) -> Text { return "Orbel,SimReceiver,1,1.0"; }},
        {"*OPC",                     nothing, [](Self &) -> Text { return "1"; }},
        {"*RST",                     [](Self &self) { self.Receiver.Reset(); }, nullptr},
        {"*TST",                     nullptr, [](Self &) -> Text { return "0"; }},
        {"*WAI",                     nothing, nullptr},
        {"SYSTem:ERRor[:NEXT]",      nullptr, [](Self &self) { return self.Errors.Take(); }},
        {"SYSTem:ERRor:COUNt",       nullptr, [](Self &self) { return Text::number(self.Errors.Count()); }},
        {"SYSTem:VERSion",           nullptr, [](Self &) -> Text { return "1999.0"; }},
        {"[SENSe:]BANDwidth|BWIDth:CATalog", nullptr, [](Self &) { return BandwidthCatalog(); }},
        {"MEASure:LEVel",            nullptr, [](Self &self) { return self.Level(); }},
        {"MEASure:OPEN",             nullptr, [](Self &self) { return self.IsOpen(); }},
        {"REPort:RATE",              nullptr, [](Self &self) { return Text::number(self.Rate); }},
    };
    // clang-format on
    return rows;
}

CommandSet::CommandSet(ReceiverModel &receiver, Refusal refusal) : Receiver(receiver), IsRefused(std::move(refusal)) { }

QByteArray CommandSet::Execute(const QByteArray &line)
{
    QByteArrayList answers;
    for (const ScpiUnit &unit : ParseScpiLine(line)) {
        const ScpiError error = unit.Error == ScpiError::None ? Run(unit, answers) : unit.Error;
        if (error != ScpiError::None)
            Errors.Add(error, unit.Text);
        if (IsCommandError(error))
            break;
    }
    return answers.join(';');
}

QByteArray CommandSet::Report() const
{
    QByteArrayList fields;
    for (const SettingRow &row : SettingRows())
        fields << row.Shortest + ' ' + row.Spell(Receiver.Get(row.Setting));
    fields << "MEAS:LEV " + Level() << "MEAS:OPEN " + IsOpen();
    return '!' + fields.join(',');
}

ScpiError CommandSet::Run(const ScpiUnit &unit, QByteArrayList &answers)
{
    for (const SettingRow &row : SettingRows()) {
        if (!row.Pattern.Matches(unit.Header))
            continue;
        return unit.IsQuery ? Ask(row, unit.Parameters, answers) : Set(row, unit);
    }
    static const ScpiPattern rate("REPort:RATE");
    if (rate.Matches(unit.Header) && !unit.IsQuery)
        return SetRate(unit.Parameters);
    for (const OtherRow &row : OtherRows()) {
        if (!row.Pattern.Matches(unit.Header) || !(unit.IsQuery ? bool(row.Ask) : bool(row.Act)))
            continue;
        if (!unit.Parameters.isEmpty())
            return ScpiError::ParameterNotAllowed;
        if (unit.IsQuery)
            answers << row.Ask(*this);
        else
            row.Act(*this);
        return ScpiError::None;
    }
    return ScpiError::UndefinedHeader;
}

ScpiError CommandSet::Set(const SettingRow &row, const ScpiUnit &unit)
{
    const ScpiError counted = ExpectOne(unit.Parameters);
    if (counted != ScpiError::None)
        return counted;
    double value = 0;
    const ScpiError read = Read(row, unit.Parameters.first(), value);
    if (read != ScpiError::None)
        return read;
    if (IsRefused && IsRefused(unit.Text))
        return ScpiError::CommandProtected;
    return ErrorFor(Receiver.Set(row.Setting, value));
}

ScpiError CommandSet::Ask(const SettingRow &row, const Parameters &parameters, QByteArrayList &answers) const
{
    double value = Receiver.Get(row.Setting);
    if (parameters.size() > 1 || (row.What != Kind::Number && !parameters.isEmpty()))
        return ScpiError::ParameterNotAllowed;
    if (!parameters.isEmpty() && !IsLimit(parameters.first().Text, row.Setting, value))
        return ScpiError::IllegalParameterValue;
    answers << row.Spell(value);
    return ScpiError::None;
}

ScpiError CommandSet::Read(const SettingRow &row, const ScpiParameter &parameter, double &value) const
{
    if (row.What == Kind::Switch)
        return ReadSwitch(parameter, value);
    if (row.What == Kind::Name)
        return ReadName(parameter, ReceiverModel::Demodulations(), value);
    if (parameter.What == ScpiParameter::Number)
        return ReadNumber(parameter, row.Measure, value);
    if (parameter.What == ScpiParameter::String)
        return ScpiError::StringNotAllowed;
    if (parameter.Text == "UP" || parameter.Text == "DOWN")
        value = Receiver.Beside(row.Setting, parameter.Text == "UP" ? 1 : -1);
    else if (!IsLimit(parameter.Text, row.Setting, value))
        return ScpiError::InvalidCharacterData;
    return ScpiError::None;
}

ScpiError CommandSet::SetRate(const Parameters &parameters)
{
    const ScpiError counted = ExpectOne(parameters);
    if (counted != ScpiError::None)
        return counted;
    double rate = 0;
    if (parameters.first().What != ScpiParameter::Number)
        return ScpiError::DataTypeError;
    const ScpiError read = ReadNumber(parameters.first(), Unit::Hertz, rate);
    if (read != ScpiError::None)
        return read;
    if (rate < 0 || rate > HighestRate)
        return ScpiError::DataOutOfRange;
    Rate = rate;
    return ScpiError::None;
}
