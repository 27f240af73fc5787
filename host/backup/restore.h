#pragma once

#include "host/backup/comparison.h"

namespace krt550 {

class CHostDrive;
class CParameterLink;

/// Puts values back into a drive as one transaction: in an order that keeps the drive consistent, never while something
/// turns, each read back; when one write fails, those before it are taken back in reverse order. Plan says what would
/// be written; then call Step until it answers false.
class CRestore {
public:
    enum class Fate {
        Untouched, ///< holds what it held before
        Written,   ///< holds the new value
        Unknown,   ///< was written, and the drive has not said what became of it
        TakenBack, ///< held the new value, and has its old one again
    };
    struct Value {
        ValueChange change;
        Fate fate = Fate::Untouched;
        QString whyNotTakenBack; ///< of Written and Unknown, when the restore has failed
    };
    struct LeftAlone {
        quint16 reg = 0;
        QString reason;
    };

    /// Drive and link are borrowed. `parameters` are those that the drive has.
    CRestore(CHostDrive& drive, CParameterLink& link, std::vector<ParameterDescription> parameters);

    /// Reads what the drive holds of these registers and finds what has to be written. False, with lines in `problems`,
    /// when a value cannot be read, so that it could not be taken back, or is none of its parameter, or when the values
    /// are those of another kind of drive.
    bool Plan(const std::vector<ParameterValue>& wanted, QStringList& problems);
    /// What differs, in the order of writing, with what has become of it.
    const std::vector<Value>& GetValues() const { return m_values; }
    /// What differs and is not written, and why.
    const std::vector<LeftAlone>& GetLeftAlone() const { return m_leftAlone; }

    /// Looks whether the drive is at rest, then writes and reads back one value, or takes one back. True while there is
    /// more to do.
    bool Step();
    /// From the next step on what has been written is taken back.
    void Stop(const QString& reason);

    bool HasSucceeded() const { return m_phase == Phase::Over && m_failure.isEmpty(); }
    /// Why it has ended early; empty otherwise.
    const QString& GetFailure() const { return m_failure; }
    /// What has become of it, in lines for a person: one when it has succeeded or all was taken back; otherwise the
    /// failure and what every register holds.
    QStringList Describe() const;

private:
    enum class Phase { Writing, TakingBack, Over };

    void WriteNext();
    void TakeBackNext();
    void Fail(const QString& reason);
    QString FateText(const Value& value) const;
    /// Whether the register holds `word` now; nothing when the drive does not say. `error`: why it does not.
    std::optional<bool> Write(quint16 reg, quint16 word, QString& error);

    CHostDrive& m_drive;
    CParameterLink& m_link;
    std::vector<ParameterDescription> m_parameters;
    std::vector<Value> m_values;
    std::vector<LeftAlone> m_leftAlone;
    Phase m_phase = Phase::Writing;
    std::size_t m_next = 0; ///< written next; while taking back: all from here on have been seen to
    QString m_failure;
};

} // namespace krt550
