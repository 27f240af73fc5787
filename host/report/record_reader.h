#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <map>
#include <optional>
#include <vector>

namespace krt550 {

/// Something that happened, with what became of it.
struct RecordedEvent {
    qint64 number = 0;
    qint64 time = 0; ///< since the session began [ms]
    QString kind;    ///< see docs/record.md
    quint16 reg = 0; ///< 0: none
    std::optional<quint16> oldWord;
    std::optional<quint16> newWord;
    QString text;
    QString detail;
    QByteArray data;
    bool hasOutcome = false;
    qint64 outcomeTime = 0;
    std::optional<bool> ok;
    QString outcome;
};

/// Signals of a trace: speed and its reference [rpm], armature and field current [A], progress [%].
enum TraceSignal { Speed, Reference, ArmatureCurrent, FieldCurrent, Progress, TraceSignalCount };

struct TracePoint {
    qint64 time = 0; ///< since the session began [ms]
    std::array<std::optional<double>, TraceSignalCount> values = {};
};

struct RecordedGap {
    QString noted;
    qint64 entries = 0;
    QString reason;
};

using RegisterWords = std::map<quint16, quint16>; ///< by register

/// One run of the program.
struct RecordedSession {
    qint64 id = 0;
    QString started;
    QString drive;
    QString program;
    std::map<quint16, ParameterDescription> parameters;
    RegisterWords asFound;
    RegisterWords asLeft;
    std::vector<RecordedEvent> events;
    std::map<qint64, std::vector<TracePoint>> traces; ///< by the number of the run's event
    std::vector<RecordedGap> gaps;
};

/// Reads a record without changing it, all of its sessions in their order. Nothing, and the reason in `error`, when
/// there is no such file, it is no record, or a newer program has made it.
std::optional<std::vector<RecordedSession>> ReadRecord(const QString& path, QString& error);

} // namespace krt550
