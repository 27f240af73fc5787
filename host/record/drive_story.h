#pragma once

#include "host/record/recorder.h"

#include <QHash>
#include <QSet>

#include <functional>
#include <span>
#include <vector>

namespace krt550 {

inline constexpr quint16 kLastFaultCode = 910;

class CHostDrive;

/// What is known of the drive's values, and what is done to them: turns the calls that pass the decorators into events.
class CDriveStory {
public:
    /// Both borrowed; `drive` is the one behind the decorators.
    CDriveStory(CRecorder& recorder, CHostDrive& drive) : m_recorder(recorder), m_drive(drive) {}

    /// Asks the drive what it has and records that; done before when somebody asks for it.
    void Describe();
    const std::vector<ParameterDescription>& Parameters();
    /// Null for a register that the drive does not have.
    const ParameterDescription* Find(quint16 reg);

    /// A value was read. One that nobody has written so is noted as changed by the drive itself, or by somebody else.
    void Seen(quint16 reg, quint16 word);
    std::optional<quint16> Known(quint16 reg) const;
    /// When a register was last read, or nothing [ms].
    std::optional<qint64> SeenAt(quint16 reg) const;

    /// The record has the write before it is sent; returns its number.
    qint64 BeforeWrite(quint16 reg, quint16 word);
    /// `number` empty: a stop, which nobody notes before it is sent.
    void AfterWrite(std::optional<qint64> number, quint16 reg, quint16 word, const QString& error);

    /// Somebody is about to read these, and the line may have fetched them already.
    void Announced(std::span<const quint16> registers);
    /// Nobody has announced anything that is still to be read.
    bool IsLineFree() const { return m_announced.isEmpty(); }

    /// Called when the drive shows another last fault.
    std::function<void()> onFault;

private:
    RecordEvent WriteEvent(quint16 reg, quint16 word) const;

    CRecorder& m_recorder;
    CHostDrive& m_drive;
    bool m_isDescribed = false;
    std::vector<ParameterDescription> m_parameters;
    QHash<quint16, std::size_t> m_places;
    QHash<quint16, quint16> m_known;
    QHash<quint16, qint64> m_seenAt;
    QSet<quint16> m_announced;
};

} // namespace krt550
