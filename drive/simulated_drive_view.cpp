// What the drive shows of itself, and how its words and limits come about.
#include "drive/actual_values.h"
#include "drive/control_word.h"
#include "drive/registers.h"
#include "drive/signals.h"
#include "drive/simulated_drive.h"
#include "drive/true_values.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace krt550 {
namespace {

constexpr double kStandstillSpeed = 1; ///< below this the motor stands [rpm]
constexpr double kDefaultBaseSpeed = 1500;
constexpr double kRpm = 30 / std::numbers::pi; ///< per rad/s

} // namespace

void CSimulatedDrive::ShowState() {
    const SwitchInputs inputs = Inputs();
    DriveSignals state;
    state.inputs = inputs;
    state.state = m_logic.GetState();
    state.statusBits = m_logic.GetStatusBits(inputs);
    state.driving = m_logic.IsDriving();
    state.place = m_places.GetPlace();
    state.byLink = m_places.IsByLink();
    state.alarm = m_faults.HasAlarm();
    const MotorState& motor = m_control.GetState();
    state.fieldOn = motor.fieldReference != 0 || motor.fieldVoltage != 0;
    state.reversed = motor.fieldCurrent <= -m_settings.reversedLevel * m_settings.ratedFieldCurrent;
    state.secondBridge = motor.bridge < 0;
    state.tuning = m_service.IsRunning();
    state.weakening = state.driving && m_settings.weakens && std::abs(m_settings.FluxOf(motor.fieldReference)) < 0.995;
    state.speed = UsedSpeed();
    state.speedReference = state.driving ? m_references.GetOutput() : 0;
    state.baseSpeed = BaseSpeed();
    state.milliseconds = m_age;
    state.starts = m_starts;
    state.trips = m_faults.GetTripCount();
    ShowSignals(state, m_registers);
    m_faults.Show(m_registers);
    ShowActualValues(motor, {m_display.GetOutput(), m_mains.GetVoltage(), m_protection.GetTemperatureRise()},
                     m_settings, m_registers);
    ShowLinkNodes(m_exciter, {m_otherNode, m_twelvePulse.GetNode()}, m_registers);
    const std::pair<quint16, double> references[] = {{reg::kReferenceInLimits, GetSpeedReference()},
                                                     {reg::kReferenceBeforeRamp, RampTarget()},
                                                     {reg::kReferenceAfterRamp, state.speedReference}};
    for (const auto& [reg, rpm] : references)
        m_registers.SetNumber(reg, rpm);
    ShowLimits(motor, m_settings, m_board.GetReferences().GetTorque(), AskedSpeed() - GetSpeedReference(), m_registers);
    m_board.Show(m_registers);
    ShowDigitalOutputs(m_registers);
    m_board.StepOutputs(static_cast<double>(m_age - std::exchange(m_shown, m_age)) / 1000, m_settings, m_registers);
}

double CSimulatedDrive::GetSpeed() const {
    return m_control.GetMotor().GetSpeed() * kRpm;
}

double CSimulatedDrive::UsedSpeed() const {
    return m_control.GetState().signals.used * kRpm;
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

/// By the shaft itself, not by what a feedback makes of it: whoever asks may reach for it.
bool CSimulatedDrive::IsStandstill() const {
    return std::abs(GetSpeed()) < kStandstillSpeed;
}

/// What its logic takes for standstill: below 20.03 for 20.04, and never before the shaft nearly stands.
bool CSimulatedDrive::IsZeroSpeed() const {
    return IsStandstill() || (std::abs(GetSpeed()) < m_zeroSpeed && static_cast<double>(m_slow) >= m_zeroSpeedTime);
}

bool CSimulatedDrive::IsEmergencyStopActive() const {
    return !m_board.GetInputs().IsGood(InputFunction::EmergencyStop);
}

bool CSimulatedDrive::IsDisconnected() const {
    return !m_board.GetInputs().IsGood(InputFunction::Disconnect);
}

bool CSimulatedDrive::IsContactorAcknowledged() const {
    const CDigitalInputs& inputs = m_board.GetInputs();
    return inputs.IsConnected(InputFunction::ContactorAcknowledge)
               ? inputs.IsClosed(InputFunction::ContactorAcknowledge)
               : m_contactor.IsClosed();
}

bool CSimulatedDrive::IsFieldHeated() const {
    return m_board.GetInputs().IsClosed(InputFunction::FieldHeating) && !m_logic.IsDriving() && m_service.IsIdle();
}

/// The speed reference before its limits [rpm].
double CSimulatedDrive::AskedSpeed() const {
    if (m_places.IsLocal())
        return m_places.GetLocalReference();
    return m_commanders.WantsConstantSpeed() ? m_registers.GetNumber(reg::kConstantSpeed, 0)
                                             : m_board.GetReferences().GetSpeed();
}

double CSimulatedDrive::GetSpeedReference() const {
    return m_references.Limit(AskedSpeed());
}

double CSimulatedDrive::RampTarget() const {
    constexpr quint16 kNeeded = control::kOn | control::kEnableOperation | control::kEnableSetpoint;
    const bool follows = m_logic.GetState() == DriveState::Operation && (UsedControlWord() & kNeeded) == kNeeded;
    return follows ? GetSpeedReference() : 0;
}

quint16 CSimulatedDrive::UsedControlWord() const {
    constexpr quint16 kCoast = 2;
    quint16 word = m_commanders.GetStopReason() ? control::kIdle : m_places.GetWord(m_registers);
    if (m_board.GetInputs().IsClosed(InputFunction::Reset))
        word |= control::kAcknowledge;
    if (IsDisconnected() || m_braking) // the resistor must be off the armature before the converter is on it
        word &= static_cast<quint16>(~control::kNoCoastStop);
    if (!IsEmergencyStopActive())
        return word;
    const bool coasts = m_registers.GetWord(reg::kEmergencyStopMode) >= kCoast;
    return static_cast<quint16>(word & ~(coasts ? control::kNoCoastStop : control::kNoQuickStop));
}

SwitchInputs CSimulatedDrive::Inputs() const {
    return {UsedControlWord(), IsContactorAcknowledged(), IsZeroSpeed(), m_faults.GetActive() != 0};
}

} // namespace krt550
