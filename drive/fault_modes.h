#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace krt550 {

/// What a simulated drive can be told to do wrong; FaultModeHelp tells the effect of each.
enum class FaultModeKind {
    NoAnswer,
    ReadFails,
    WriteRefused,
    LateAnswer,
    ReplyLost,
    OtherControl,
    OtherControlFor,
    StartRefused,
    EmergencyStop,
    ContactorStuck,
    ContactorDrops,
    ContactorWelded,
    Trip,
    MainsLost,
    MainsDip,
    PhaseMissing,
    PhaseOrder,
    MainsUnsteady,
    FuseBlown,
    EarthFault,
    FieldBroken,
    FieldSwapped,
    ArmatureBroken,
    ArmatureSwapped,
    MotorLocked,
    Load,
    HangingLoad,
    FeedbackBroken,
    FeedbackReversed,
    EncoderPulses,
    EncoderChannel,
    TachoVoltage,
    TachoNoisy,
    MotorFanLost,
    ConverterFanLost,
    FieldbusLost,
    LinkLost,
    SlaveLost,
    SlaveWeak,
    SlaveBridge,
    ProgressStuck,
    ModeStays,
    ShortRecord,
    TruncatedRecord,
    RecordError,
    MissingRegister
};

/// A fault mode with what it is about: a register, milliseconds, percent, a code or another number;
/// 0 for the modes that need nothing.
struct FaultMode {
    FaultModeKind kind = FaultModeKind::NoAnswer;
    quint32 number = 0;
    bool operator==(const FaultMode&) const = default;
};

/// Reads "no-answer", "read-fails:9906", "late-answer:300" and so on. Nothing for a name that is not known or a
/// number that is missing or does not fit; `error` then says what there is.
std::optional<FaultMode> ParseFaultMode(const QString& text, QString& error);
/// All names with what they need: "no-answer, read-fails:REG, ...".
QString FaultModeNames();
/// A line for each mode, its name and its effect, for help texts.
QString FaultModeHelp();

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
