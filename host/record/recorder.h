#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <optional>

namespace krt550 {

class CRecordWriter;

/// Something that happened. What says nothing about it is left empty.
struct RecordEvent {
    const char* kind; ///< see docs/record.md
    quint16 reg = 0;
    std::optional<quint16> oldWord = {};
    std::optional<quint16> newWord = {};
    QString text = {};
    QString detail = {};
    QByteArray data = {};
};

/// The signals of a trace, in the order of the record's columns.
inline constexpr quint16 kTraceRegisters[] = {104, 218, 116, 130, 424};
/// One moment of a trace in shown units; what could not be read is left out.
using TraceSample = std::array<std::optional<double>, std::size(kTraceRegisters)>;

/// Puts what happens into rows of the record, with the time of the current clock since the session began [ms].
class CRecorder {
public:
    /// Borrowed.
    explicit CRecorder(CRecordWriter& writer);

    /// The record is opened from now on; what is noted before that waits.
    void Begin();
    /// Says so when the record could not be written.
    void TellTrouble();

    qint64 Now() const;

    /// Notes an event and returns its number; never waits.
    qint64 Note(const RecordEvent& event);
    /// The same, and returns when the disk has it; a disk that is too slow for that is noted and not waited for.
    qint64 NoteForCertain(const RecordEvent& event);
    /// What became of an event; `ok` empty: nobody knows.
    void NoteOutcome(qint64 event, std::optional<bool> ok, const QString& text);

    void NoteParameter(const ParameterDescription& parameter);
    /// A value as it was found ("as-found") or left ("as-left"); once a session for each register.
    void NoteValue(const char* moment, quint16 reg, quint16 word);
    void NoteSample(qint64 run, qint64 time, const TraceSample& sample);

    /// Waits until the disk has everything: for half a second at most, with nothing in a hurry 5 s.
    void Settle(bool inHurry);

private:
    CRecordWriter& m_writer;
    qint64 m_start;
    qint64 m_last = 0; ///< number of the last event
    bool m_isLate = false;
};

} // namespace krt550
