#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace krt550 {

/// What a simulated drive can be told to do wrong.
enum class FaultModeKind {
    NoAnswer,         ///< the link is dead
    ReadFails,        ///< reading one register fails
    WriteRefused,     ///< writing one register is refused
    LateAnswer,       ///< every reply comes late
    OtherControl,     ///< another control place holds the drive
    ContactorStuck,   ///< the main contactor stays where it is
    Trip,             ///< the drive trips, and its cause stays
    MainsLost,        ///< no supply
    FieldBroken,      ///< no current can flow in the field circuit
    ArmatureBroken,   ///< nor in the armature circuit
    MotorLocked,      ///< the shaft does not turn
    FeedbackBroken,   ///< encoder or tacho give no signal
    FeedbackReversed, ///< they are wired the wrong way round
    EncoderPulses,    ///< the encoder has another number of pulses
    TachoVoltage,     ///< the tacho gives another voltage
    ShortRecord,      ///< the fault record is a short one
    TruncatedRecord,  ///< the fault record ends early
    RecordError,      ///< reading the fault record ends in a communication error
    MissingRegister   ///< the drive has no such register
};

/// A fault mode with what it is about: a register, milliseconds, a fault code, a number of bytes or an error code;
/// 0 for the modes that need nothing.
struct FaultMode {
    FaultModeKind kind = FaultModeKind::NoAnswer;
    quint32 number = 0;
    bool operator==(const FaultMode&) const = default;
};

/// Reads "no-answer", "read-fails:9906", "late-answer:300" and so on. Nothing for a name that is not known or a
/// number that is missing or does not fit; `error` then says what there is.
std::optional<FaultMode> ParseFaultMode(const QString& text, QString& error);
/// The text that ParseFaultMode reads.
QString FaultModeText(const FaultMode& mode);
/// All names with what they need, for help texts: "no-answer, read-fails:REG, ...".
QString FaultModeNames();

/// The fault modes that are switched on.
class CFaultModes {
public:
    /// Modes about registers stand side by side; of any other kind the latest counts.
    void Add(const FaultMode& mode);
    void Remove(const FaultMode& mode);
    void Clear() { m_modes.clear(); }

    bool Has(FaultModeKind kind) const { return Find(kind).has_value(); }
    bool Has(FaultModeKind kind, quint32 number) const;
    /// Number of the mode, when a mode of this kind is on.
    std::optional<quint32> Find(FaultModeKind kind) const;
    const std::vector<FaultMode>& GetModes() const { return m_modes; }

private:
    std::vector<FaultMode> m_modes;
};

} // namespace krt550
