#pragma once

#include "receivermodel.h"
#include "scpiline.h"

#include <functional>

/// What one client says to a receiver, and what it hears: carries lines out, and keeps the client's errors and the rate
/// of its reports.
class CommandSet
{
public:
    /// Whether a command is refused although it is right; gets it as it was sent.
    using Refusal = std::function<bool(const QByteArray &command)>;

    /// Does not own the receiver, which has to outlive it.
    explicit CommandSet(ReceiverModel &receiver, Refusal refusal = nullptr);

    /// Carries out a line without its end. Returns the answers to its queries, parted by ';', without a line's end;
    /// empty when it asked nothing. After a command that was not understood the rest of the line is left out; one that
    /// is refused keeps nothing behind it from being carried out.
    QByteArray Execute(const QByteArray &line);
    /// Remembers an error that came to light before the line could be read.
    void AddError(ScpiError error) { Errors.Add(error); }

    /// Reports a second of the receiver's time; 0 for none.
    double ReportRate() const { return Rate; }
    void SetReportRate(double rate) { Rate = rate; }
    /// All settings and measurements, as "!FREQ 98500000,BAND 120000,...,MEAS:LEV 54.2,MEAS:OPEN 1".
    QByteArray Report() const;

private:
    struct SettingRow;
    struct OtherRow;
    using Parameters = QVector<ScpiParameter>;

    static const QVector<SettingRow> &SettingRows();
    static const QVector<OtherRow> &OtherRows();
    ScpiError Run(const ScpiUnit &unit, QByteArrayList &answers);
    ScpiError Set(const SettingRow &row, const ScpiUnit &unit);
    ScpiError Ask(const SettingRow &row, const Parameters &parameters, QByteArrayList &answers) const;
    ScpiError Read(const SettingRow &row, const ScpiParameter &parameter, double &value) const;
    ScpiError SetRate(const Parameters &parameters);
    QByteArray Level() const { return QByteArray::number(Receiver.Level(), 'f', 1); }
    QByteArray IsOpen() const { return Receiver.IsOpen() ? "1" : "0"; }

    ReceiverModel &Receiver;
    Refusal IsRefused;
    ScpiErrorQueue Errors;
    double Rate = 0;
};
