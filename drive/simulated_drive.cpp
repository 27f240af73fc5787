#include "drive/simulated_drive.h"

#include "drive/actual_values.h"
#include "drive/control_word.h"
#include "drive/fault_capture.h"
#include "drive/fault_codes.h"
#include "drive/registers.h"
#include "drive/true_values.h"
#include "hostlib/tolvbo32/clock.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <utility>

namespace krt550 {
namespace {

constexpr qint64 kSlice = 10;          ///< the drive's logic looks at its inputs this often [ms]
constexpr double kStandstillSpeed = 1; ///< below this the motor stands [rpm]
constexpr double kDefaultBaseSpeed = 1500;
constexpr double kDefaultRampTime = 20; ///< [s]
constexpr double kDefaultContactorTime = 1000;
constexpr double kRpm = 30 / std::numbers::pi; ///< per rad/s

} // namespace

CSimulatedDrive::CSimulatedDrive(std::vector<ParameterDescription> descriptions, const MotorSet* motor)
    : m_registers(std::move(descriptions)), m_set(motor ? *motor : DefaultMotorSet()), m_control(DataOf(m_set)),
      m_mains(m_set.mains), m_lastAdvance(CClock::Current().Now()) {
    if (motor)
        ApplyNamePlate(*motor, m_registers);
    m_control.SetMains(m_mains, LineInductanceOf(m_set));
    Settle();
}

void CSimulatedDrive::Advance() {
    const qint64 now = CClock::Current().Now();
    // Another clock may have taken the place of the one before: time never runs backwards for the drive.
    qint64 left = std::max<qint64>(0, now - m_lastAdvance);
    m_lastAdvance = now;
    while (left > 0) {
        // Nothing moves in a resting drive; one slice does for any time.
        const bool resting = IsResting();
        const qint64 slice = resting ? left : std::min(left, kSlice);
        const double seconds = static_cast<double>(slice) / 1000;
        m_age += slice;
        left -= slice;
        ReadParameters();
        if (resting) {
            m_control.Rest(seconds);
            m_protection.Rest(seconds, m_levels);
            m_ramp.Preset(0);
        } else {
            Integrate(seconds);
        }
        m_display.Step(m_control.GetState().signals.used, seconds, m_registers.GetNumber(reg::kDisplayFilter, 500) / 1000);
        if (m_contactorClosed != m_logic.WantsContactor(Inputs()))
            m_contactorAstray += slice;
        SettleLogic();
        Supervise(seconds);
        SuperviseTool(slice);
    }
    ShowState();
}

bool CSimulatedDrive::IsResting() const {
    return IsStopped() && !m_contactorClosed && m_contactorAstray == 0 && m_service.IsIdle() &&
           m_control.GetMotor().IsAtRest();
}

void CSimulatedDrive::ReadParameters() {
    if (std::exchange(m_settingsVersion, m_registers.GetSettingsVersion()) == m_registers.GetSettingsVersion())
        return;
    m_settings = ReadSettings(m_registers, m_set);
    m_levels = ReadTripLevels(m_registers, m_settings);
    m_slopeUp = RampSlope(BaseSpeed(), m_registers.GetNumber(reg::kRampUp, kDefaultRampTime));
    m_slopeDown = RampSlope(BaseSpeed(), m_registers.GetNumber(reg::kRampDown, kDefaultRampTime));
    m_slopeQuick = RampSlope(BaseSpeed(), m_registers.GetNumber(reg::kQuickStopRamp, kDefaultRampTime));
}

/// The drive's continuous part.
void CSimulatedDrive::Integrate(double seconds) {
    const int steps = static_cast<int>(std::lround(seconds / CMotorControl::kStep));
    for (int i = 0; i < steps; ++i) {
        const MotorCommand command = NextCommand();
        m_control.Step(command, m_settings);
        m_service.Step(CMotorControl::kStep, m_control.GetState(), m_control.IsPulseOver());
        CheckTrips(command);
    }
}

MotorCommand CSimulatedDrive::NextCommand() {
    MotorCommand command;
    if (m_service.IsRunning()) {
        m_ramp.Preset(m_control.GetState().signals.used * kRpm);
        m_fieldWaited = true;
        return m_service.GetCommand();
    }
    if (m_contactorClosed && !m_service.KeepsFieldOff())
        command.field = FieldMode::Regulated;
    if (!m_logic.IsDriving())
        m_fieldWaited = false;
    constexpr double kFieldThere = 0.8; // of its reference; until then there is no torque
    const MotorState& state = m_control.GetState();
    const double wanted = std::max(0.05, state.fieldReference) * m_settings.ratedFieldCurrent;
    m_fieldWaited = m_fieldWaited || std::abs(state.fieldCurrent) >= kFieldThere * wanted;
    if (!m_logic.IsDriving() || !m_fieldWaited) {
        m_ramp.Preset(m_control.GetState().signals.used * kRpm); // a motor that still turns is caught where it is
        return command;
    }
    StepRamp();
    command.armature = ArmatureMode::Speed;
    command.speed = m_ramp.GetOutput() / kRpm;
    return command;
}

void CSimulatedDrive::StepRamp() {
    const quint16 word = UsedControlWord();
    const bool running = m_logic.GetState() == DriveState::Operation && (word & control::kEnableOperation);
    const bool quickStop = m_logic.GetState() == DriveState::QuickStopping;
    if ((running && !(word & control::kEnableRamp)) || (!running && m_connectionLost && m_stopsAtLimit))
        m_ramp.Preset(0);
    else if (!running || (word & control::kUnfreezeRamp))
        m_ramp.Step(CMotorControl::kStep, RampTarget(), {m_slopeUp, quickStop ? m_slopeQuick : m_slopeDown});
}

void CSimulatedDrive::CheckTrips(const MotorCommand& command) {
    Surroundings around;
    around.mains = m_mains;
    around.driving = m_logic.IsDriving();
    around.fieldNeeded = command.field == FieldMode::Regulated || command.field == FieldMode::Current;
    around.feedbackUsed = command.armature == ArmatureMode::Speed && command.guide == SpeedGuide::Chosen &&
                          m_settings.speedSource != SpeedSource::Emf;
    around.fieldReference = m_control.GetState().fieldReference;
    const quint16 code = m_protection.Step(CMotorControl::kStep, m_control.GetState(), around, m_settings, m_levels);
    if (code == kFaultFeedback && MayChangeToEmf()) {
        m_registers.SetWord(reg::kSpeedSource, 0);
        ReadParameters();
    } else if (code) {
        Trip(code);
    }
}

bool CSimulatedDrive::MayChangeToEmf() const {
    constexpr quint16 kUnlessWeakened = 2;
    constexpr quint16 kAlways = 3;
    const quint16 reaction = m_registers.GetWord(reg::kFeedbackReaction);
    const bool weakened = m_control.GetState().fieldReference < 0.98;
    return reaction == kAlways || (reaction == kUnlessWeakened && !weakened);
}

ServiceView CSimulatedDrive::GetServiceView() const {
    const quint16 word = UsedControlWord();
    constexpr quint16 kStart = control::kOn | control::kEnableOperation;
    return {m_logic.IsDriving(), (word & kStart) == kStart, m_fault, m_place, m_mains, m_levels.mains};
}

/// Lets the service mode begin or end its run.
void CSimulatedDrive::Supervise(double seconds) {
    m_service.Supervise(seconds, GetServiceView(), m_settings, m_control.GetConverter(), m_registers);
    if (m_service.TakeEnd()) {
        // The start command of a run is used up: nobody may be surprised by a motor that runs on.
        m_localWord &= static_cast<quint16>(~control::kRun);
        m_heldAfterRun = true;
        SettleLogic();
    }
}

/// Stops a drive that is on when the tool that holds local control has fallen silent.
void CSimulatedDrive::SuperviseTool(qint64 milliseconds) {
    if (m_connectionLost && !m_logic.IsDriving()) {
        m_connectionLost = false;
        Trip(kFaultConnection);
    }
    m_silence = IsLocal() && m_contactorClosed ? m_silence + milliseconds : 0;
    const double limit = m_registers.GetNumber(reg::kLocalSupervision, 0) * 1000;
    if (limit <= 0 || static_cast<double>(m_silence) < limit || m_connectionLost || m_fault)
        return;
    constexpr quint16 kCoast = 2;
    const quint16 reaction = m_registers.GetWord(reg::kLocalLossReaction);
    if (reaction == kCoast) {
        Trip(kFaultConnection);
        return;
    }
    m_connectionLost = true;
    m_stopsAtLimit = reaction == 1;
    m_localWord = control::kIdle;
    SettleLogic();
}

void CSimulatedDrive::Settle() {
    ReadParameters();
    SettleLogic();
    Supervise(0);
    ShowState();
}

/// Lets the logic come to rest with its inputs as they are.
void CSimulatedDrive::SettleLogic() {
    if (!(GivenControlWord() & control::kEnableOperation))
        m_heldAfterRun = false;
    const quint16 word = UsedControlWord();
    if ((word & control::kAcknowledge) && !(m_formerControlWord & control::kAcknowledge))
        Acknowledge();
    m_formerControlWord = word;

    bool changed = true;
    while (changed) {
        const DriveState former = m_logic.GetState();
        changed = m_logic.Step(Inputs());
        if (m_logic.GetState() == DriveState::Operation && former == DriveState::On)
            ++m_starts;
        const bool wanted = m_logic.WantsContactor(Inputs());
        if (!m_contactorStuck && m_contactorClosed != wanted) {
            m_contactorClosed = wanted;
            changed = true;
        }
    }
    SuperviseContactor();
}

void CSimulatedDrive::SuperviseContactor() {
    if (m_contactorClosed == m_logic.WantsContactor(Inputs()))
        m_contactorAstray = 0;
    else if (!m_fault && static_cast<double>(m_contactorAstray) >=
                             m_registers.GetNumber(reg::kContactorTime, kDefaultContactorTime))
        Trip(kFaultMainContactor);
}

void CSimulatedDrive::ShowState() {
    const SwitchInputs inputs = Inputs();
    DriveSignals state;
    state.inputs = inputs;
    state.state = m_logic.GetState();
    state.statusBits = m_logic.GetStatusBits(inputs);
    state.driving = m_logic.IsDriving();
    state.place = m_place;
    const MotorState& motor = m_control.GetState();
    state.fieldOn = motor.fieldReference > 0 || motor.fieldVoltage > 0;
    state.secondBridge = motor.bridge < 0;
    state.tuning = m_service.IsRunning();
    state.weakening = state.driving && m_settings.weakens && motor.fluxReference < 0.995;
    state.speed = motor.signals.used * kRpm;
    state.speedReference = state.driving ? m_ramp.GetOutput() : 0;
    state.baseSpeed = BaseSpeed();
    state.milliseconds = m_age;
    state.starts = m_starts;
    state.trips = m_trips;
    state.lastFault = m_lastFault;
    ShowSignals(state, m_registers);

    ShowActualValues(motor, {m_display.GetOutput(), m_mains, m_protection.GetTemperatureRise()}, m_settings,
                     m_registers);
    ShowDigitalInputs(m_contactorClosed, m_registers);
    ShowDigitalOutputs(m_registers);
    ShowLinkNodes(m_registers);
}

void CSimulatedDrive::Trip(quint16 code) {
    if (m_fault)
        return;
    ShowState(); // the record holds what the registers show at this moment
    m_fault = m_lastFault = code;
    ++m_trips;
    m_faultFields = CaptureFault(m_registers, code, m_age);
    Settle();
}

void CSimulatedDrive::Acknowledge() {
    if (!m_tripCause)
        m_fault = 0;
}

double CSimulatedDrive::GetSpeed() const {
    return m_control.GetMotor().GetSpeed() * kRpm;
}

std::optional<double> CSimulatedDrive::GetTrueValue(quint16 reg) const {
    constexpr quint16 kSpeeds[] = {reg::kSpeed, reg::kSpeedEmf, reg::kSpeedEncoder, reg::kSpeedTacho, reg::kHandTacho};
    if (std::ranges::find(kSpeeds, reg) != std::end(kSpeeds))
        return GetSpeed();
    return TrueValue(reg, m_control.GetMotor().GetData(), m_settings.ratedFieldCurrent);
}

double CSimulatedDrive::BaseSpeed() const {
    return std::max(1.0, m_registers.GetNumber(reg::kBaseSpeed, kDefaultBaseSpeed));
}

bool CSimulatedDrive::IsStandstill() const {
    return std::abs(GetSpeed()) < kStandstillSpeed;
}

double CSimulatedDrive::GetSpeedReference() const {
    const double wanted = IsLocal() ? m_localReference : m_registers.GetNumber(reg::kRemoteReference, 0);
    const double high = m_registers.GetNumber(reg::kSpeedMaximum, BaseSpeed());
    const double low = m_registers.GetNumber(reg::kSpeedMinimum, -BaseSpeed());
    return std::min(high, std::max(low, wanted)); // crossed limits: the upper one counts
}

double CSimulatedDrive::RampTarget() const {
    constexpr quint16 kNeeded = control::kOn | control::kEnableOperation | control::kEnableSetpoint;
    const bool follows = m_logic.GetState() == DriveState::Operation && (UsedControlWord() & kNeeded) == kNeeded;
    return follows ? GetSpeedReference() : 0;
}

quint16 CSimulatedDrive::UsedControlWord() const {
    const quint16 word = GivenControlWord();
    return m_heldAfterRun ? static_cast<quint16>(word & ~control::kEnableOperation) : word;
}

quint16 CSimulatedDrive::GivenControlWord() const {
    if (IsLocal())
        return m_localWord;
    const quint16 word = m_registers.GetWord(reg::kControlWord);
    return word & control::kByOverridingControl ? word : control::kIdle;
}

SwitchInputs CSimulatedDrive::Inputs() const {
    return {UsedControlWord(), m_contactorClosed, IsStandstill(), m_fault != 0};
}

} // namespace krt550
