#include "drive/fault_modes.h"

#include "drive/fault_codes.h"
#include "drive/fault_record.h"

#include <QStringList>

#include <algorithm>

namespace krt550 {
namespace {

struct ModeName {
    FaultModeKind kind;
    const char* name;
    const char* argument; ///< null: the mode needs none
    quint32 minimum;
    quint32 maximum;
    quint32 preset; ///< number when the text gives none; 0: it must give one
    const char* effect;
};

constexpr ModeName kModeNames[] = {
    {FaultModeKind::NoAnswer, "no-answer", nullptr, 0, 0, 0, "the link is dead"},
    {FaultModeKind::ReadFails, "read-fails", "REG", 100, 65535, 0, "reading that register fails"},
    {FaultModeKind::WriteRefused, "write-refused", "REG", 100, 65535, 0, "writing that register is refused"},
    {FaultModeKind::LateAnswer, "late-answer", "MS", 1, 60000, 0, "every reply comes late; after 2 s it is given up"},
    {FaultModeKind::ReplyLost, "reply-lost", "N", 1, 1000, 0,
     "every Nth reply is lost; the drive has done what it was asked"},
    {FaultModeKind::OtherControl, "other-control", nullptr, 0, 0, 0, "another control place holds the drive"},
    {FaultModeKind::OtherControlFor, "other-control-for", "MS", 1, 600000, 0,
     "another control place takes the drive and gives it back"},
    {FaultModeKind::StartRefused, "start-refused", nullptr, 0, 0, 0, "an interlock refuses every start"},
    {FaultModeKind::EmergencyStop, "e-stop", nullptr, 0, 0, 0, "the emergency stop is pressed: stop as 21.04 says"},
    {FaultModeKind::ContactorStuck, "contactor-stuck", nullptr, 0, 0, 0, "the main contactor stays where it is"},
    {FaultModeKind::ContactorDrops, "contactor-drops", nullptr, 0, 0, 0,
     "it opens by itself and does not close: trip 108"},
    {FaultModeKind::ContactorWelded, "contactor-welded", nullptr, 0, 0, 0, "it closes, but does not open: trip 108"},
    {FaultModeKind::Trip, "trip", "CODE", 1, 3999, kFaultExternal, "the drive trips, and the cause stays"},
    {FaultModeKind::MainsLost, "mains-lost", nullptr, 0, 0, 0, "no supply: trip 103"},
    {FaultModeKind::MainsDip, "mains-dip", "MS", 1, 60000, 0, "no supply for that time: trip 103, or a pause by 30.20"},
    {FaultModeKind::PhaseMissing, "phase-missing", nullptr, 0, 0, 0, "a mains phase is gone: trip 119"},
    {FaultModeKind::PhaseOrder, "phase-order", nullptr, 0, 0, 0, "left-hand mains: trip 120"},
    {FaultModeKind::MainsUnsteady, "mains-unsteady", "DEGREES", 1, 60, 0,
     "the phase of the mains strays by so much: trip 127 by 97.19"},
    {FaultModeKind::FuseBlown, "fuse-blown", nullptr, 0, 0, 0, "a branch fuse is gone: gaps in the current, trip 121"},
    {FaultModeKind::EarthFault, "earth-fault", "PERCENT", 1, 100, 0,
     "current to earth, of rated current: trip 113 by 30.04"},
    {FaultModeKind::FieldBroken, "field-broken", nullptr, 0, 0, 0, "no current can flow in the field circuit"},
    {FaultModeKind::FieldSwapped, "field-swapped", nullptr, 0, 0, 0,
     "field cables swapped: the shaft turns the other way"},
    {FaultModeKind::ArmatureBroken, "armature-broken", nullptr, 0, 0, 0, "no current can flow in the armature circuit"},
    {FaultModeKind::ArmatureSwapped, "armature-swapped", nullptr, 0, 0, 0,
     "armature cables swapped: the shaft turns the other way"},
    {FaultModeKind::MotorLocked, "motor-locked", nullptr, 0, 0, 0, "the shaft does not turn"},
    {FaultModeKind::Load, "load", "PERCENT", 1, 300, 0, "a machine brakes with that share of rated torque"},
    {FaultModeKind::HangingLoad, "hanging-load", "PERCENT", 1, 300, 0,
     "a load pulls against positive rotation, also at standstill"},
    {FaultModeKind::FeedbackBroken, "feedback-broken", nullptr, 0, 0, 0, "encoder or tacho give no signal"},
    {FaultModeKind::FeedbackReversed, "feedback-reversed", nullptr, 0, 0, 0, "they are wired the wrong way round"},
    {FaultModeKind::EncoderPulses, "encoder-pulses", "N", 1, 20000, 0, "the encoder has another number of pulses"},
    {FaultModeKind::EncoderChannel, "encoder-channel", nullptr, 0, 0, 0, "its channel B is missing"},
    {FaultModeKind::TachoVoltage, "tacho-voltage", "V", 1, 500, 0, "the tacho gives another voltage at 1000 rpm"},
    {FaultModeKind::TachoNoisy, "tacho-noisy", "PERCENT", 1, 100, 0, "its signal jumps by so much either way"},
    {FaultModeKind::MotorFanLost, "motor-fan-lost", nullptr, 0, 0, 0, "no acknowledge of the motor fan: 30.26"},
    {FaultModeKind::ConverterFanLost, "converter-fan-lost", nullptr, 0, 0, 0,
     "no acknowledge of the converter fan: 30.36"},
    {FaultModeKind::FieldbusLost, "fieldbus-lost", nullptr, 0, 0, 0, "the fieldbus that commands falls silent: 30.28"},
    {FaultModeKind::LinkLost, "link-lost", nullptr, 0, 0, 0,
     "the drive-to-drive link that commands falls silent: 30.30"},
    {FaultModeKind::SlaveLost, "slave-lost", nullptr, 0, 0, 0, "the 12-pulse slave does not answer: trip 129 by 94.03"},
    {FaultModeKind::SlaveWeak, "slave-weak", "PERCENT", 1, 100, 0,
     "a slave in parallel carries so much less: trip 128 by 47.02"},
    {FaultModeKind::SlaveBridge, "slave-bridge", nullptr, 0, 0, 0,
     "the slave does not change its bridge: trip 130 by 47.05"},
    {FaultModeKind::ProgressStuck, "progress-stuck", nullptr, 0, 0, 0, "service runs stand still and never end"},
    {FaultModeKind::ModeStays, "mode-stays", nullptr, 0, 0, 0, "a service mode outlives the stop of its run"},
    {FaultModeKind::ShortRecord, "short-record", nullptr, 0, 0, 0, "the fault record is a short one"},
    {FaultModeKind::TruncatedRecord, "truncated-record", "BYTES", 0, kFaultRecordSize, 0,
     "the fault record ends early"},
    {FaultModeKind::RecordError, "record-error", "CODE", 1, 65535, 0,
     "reading the fault record ends in a communication error"},
    {FaultModeKind::MissingRegister, "missing", "REG", 100, 65535, 0, "the drive has no such register"},
};

/// The mode as a person would type it: "read-fails:REG", "trip" or "trip:CODE" as "trip[:CODE]".
QString Usage(const ModeName& mode) {
    const QString name = QString::fromLatin1(mode.name);
    if (!mode.argument)
        return name;
    const QString argument = QLatin1Char(':') + QString::fromLatin1(mode.argument);
    return name + (mode.preset ? QStringLiteral("[%1]").arg(argument) : argument);
}

bool IsAboutRegister(FaultModeKind kind) {
    return kind == FaultModeKind::ReadFails || kind == FaultModeKind::WriteRefused ||
           kind == FaultModeKind::MissingRegister;
}

} // namespace

std::optional<FaultMode> ParseFaultMode(const QString& text, QString& error) {
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    const QString name = colon < 0 ? text : text.left(colon);
    const auto* const mode = std::find_if(std::begin(kModeNames), std::end(kModeNames),
                                          [&name](const ModeName& known) { return name == QLatin1String(known.name); });
    if (mode == std::end(kModeNames)) {
        error = QStringLiteral("There is no fault mode \"%1\". Known are: %2.").arg(text, FaultModeNames());
        return std::nullopt;
    }
    if (colon < 0 && (!mode->argument || mode->preset))
        return FaultMode{mode->kind, mode->preset};
    bool isNumber = false;
    const quint32 number = colon < 0 ? 0 : text.mid(colon + 1).toUInt(&isNumber);
    if (!mode->argument || !isNumber || number < mode->minimum || number > mode->maximum) {
        const QString range = mode->argument ? QStringLiteral(" with %1 from %2 to %3")
                                                   .arg(QString::fromLatin1(mode->argument))
                                                   .arg(mode->minimum)
                                                   .arg(mode->maximum)
                                             : QString();
        error = QStringLiteral("Fault mode \"%1\" must read %2%3.").arg(text, Usage(*mode), range);
        return std::nullopt;
    }
    return FaultMode{mode->kind, number};
}

QString FaultModeNames() {
    QStringList names;
    for (const ModeName& mode : kModeNames)
        names.append(Usage(mode));
    return names.join(QLatin1String(", "));
}

QString FaultModeHelp() {
    QString text;
    for (const ModeName& mode : kModeNames)
        text += QStringLiteral("  %1%2\n").arg(Usage(mode).leftJustified(24), QLatin1String(mode.effect));
    return text;
}

void CFaultModes::Add(const FaultMode& mode) {
    std::erase_if(m_modes, [&mode](const FaultMode& other) {
        return other.kind == mode.kind && (!IsAboutRegister(mode.kind) || other.number == mode.number);
    });
    m_modes.push_back(mode);
}

void CFaultModes::Remove(const FaultMode& mode) {
    std::erase(m_modes, mode);
}

bool CFaultModes::Has(FaultModeKind kind, quint32 number) const {
    return std::ranges::find(m_modes, FaultMode{kind, number}) != m_modes.end();
}

std::optional<quint32> CFaultModes::Find(FaultModeKind kind) const {
    const auto found = std::ranges::find(m_modes, kind, &FaultMode::kind);
    return found == m_modes.end() ? std::nullopt : std::optional<quint32>(found->number);
}

} // namespace krt550
