// The drive at its terminals: what comes in there, and what is made of it.
#include "drive/control_word.h"
#include "drive/fault_codes.h"
#include "drive/registers.h"
#include "drive/simulated_drive.h"

#include <algorithm>
#include <numbers>

namespace krt550 {

bool CSimulatedDrive::SetTerminal(const Terminal& terminal, double value) {
    if (!terminal.IsInput())
        return false;
    Advance();
    if (terminal.IsDigital())
        m_board.GetTerminals().SetDigitalInput(terminal.number, value != 0);
    else
        m_board.GetTerminals().SetAnalogInput(terminal.number, value);
    Settle();
    return true;
}

double CSimulatedDrive::GetTerminal(const Terminal& terminal) {
    Advance();
    const auto bit = [&terminal](unsigned word) { return (word >> (terminal.number - 1)) & 1U; };
    switch (terminal.kind) {
    case Terminal::Kind::DigitalInput:
        return bit(m_board.GetTerminals().GetDigitalInputs());
    case Terminal::Kind::DigitalOutput:
        return bit(m_registers.GetWord(reg::kDigitalOutputs));
    case Terminal::Kind::AnalogInput:
        return m_board.GetTerminals().GetAnalogInputs().at(static_cast<std::size_t>(terminal.number - 1));
    case Terminal::Kind::AnalogOutput:
        break;
    }
    return m_board.GetOutputVolts(terminal.number);
}

PlantState CSimulatedDrive::GetPlant() const {
    const bool closed = m_contactor.IsClosed();
    return {closed, closed && !m_fans.IsConverterFanLost(), closed && !m_fans.IsMotorFanLost(), m_emergencyStop,
            m_winding.GetTemperature()};
}

/// Lets the terminals work for `seconds`: commands and references count from now on.
void CSimulatedDrive::ScanTerminals(double seconds) {
    m_board.Sample(GetPlant(), m_registers);
    const CommandSource source = ChooseSource(m_board.GetInputs(), m_registers);
    const bool remote = m_places.GetPlace() == ControlPlace::Remote;
    const TerminalView view{remote && source == CommandSource::Terminals, remote, m_logic.IsDriving(),
                            m_logic.GetState() == DriveState::Inhibited};
    m_board.Step(seconds, m_logic.GetState() == DriveState::Operation, view, m_registers);
    m_places.SetTerminals(source, m_board.GetWord());
    if (!remote)
        m_references.Choose(RampSet::First);
    else if (UsedControlWord() & control::kEnableOperation) // a stop keeps the ramp of the run
        m_references.Choose(m_board.GetReferences().GetRamp());
}

/// Trips for what the inputs report.
void CSimulatedDrive::LookAtInputs() {
    if (const quint16 code = m_board.GetFindings().trip)
        Trip(code);
}

/// Which way the field is to go.
void CSimulatedDrive::LookAtField(double seconds) {
    const MotorState& state = m_control.GetState();
    const FieldView view{m_board.GetInputs().IsClosed(InputFunction::FieldReversal),
                         m_contactor.IsClosed() && m_service.IsIdle(), IsZeroSpeed(), state.fieldCurrent,
                         state.armatureCurrent};
    if (m_fieldDirection.Step(seconds, view, m_settings))
        Trip(kFaultFieldLoss);
}

/// False while the inputs still report the cause of a trip.
bool CSimulatedDrive::AcknowledgeFault() {
    if (m_board.GetFindings().trip)
        return false;
    m_faults.Acknowledge();
    return true;
}

/// Torque control, torque limits from outside and current control, for a motor that runs by a remote place. Its stops
/// are the speed controller's, within the limits.
void CSimulatedDrive::DemandTorque(MotorCommand& command) {
    const TorqueDemand& demand = m_board.GetReferences().GetTorque();
    TorqueWindow& window = command.torque;
    window.low = -demand.limit;
    window.high = demand.limit;
    if (!m_orders.torque)
        return;
    if (demand.current) {
        command.armature = ArmatureMode::Current;
        command.current = *demand.current * m_settings.ratedCurrent;
        m_references.Preset(UsedSpeed());
        return;
    }
    switch (demand.mode) {
    case TorqueMode::Speed:
        break;
    case TorqueMode::Torque: {
        // The speed controller lets the torque pass until the motor comes to its speed limit.
        constexpr double kBeyond = 1e6;
        constexpr double kRpm = 30 / std::numbers::pi;
        command.speed = m_references.Limit(demand.torque < 0 ? -kBeyond : kBeyond) / kRpm;
        window.low = std::max(window.low, std::min(0.0, demand.torque));
        window.high = std::min(window.high, std::max(0.0, demand.torque));
        m_references.Preset(UsedSpeed());
        break;
    }
    case TorqueMode::Smaller:
        window.high = std::min(window.high, demand.torque);
        break;
    case TorqueMode::Larger:
        window.low = std::max(window.low, demand.torque);
        break;
    case TorqueMode::Sum:
        window.added = demand.torque;
        break;
    }
}

/// A macro gives switches another meaning: that is for a drive that is off.
bool CSimulatedDrive::LoadMacro() {
    m_registers.SetWord(reg::kLoadMacro, 0);
    const quint16 macro = m_registers.GetWord(reg::kMacro);
    if (!IsStopped() || m_contactor.IsClosed())
        return Refuse(
            QStringLiteral("The drive loads no macro while it is on: stop the motor and switch it off first."));
    if (!m_macros.Has(macro))
        return Refuse(QStringLiteral("The drive has no application macro %1.").arg(macro));
    m_macros.Load(macro, m_registers);
    return true;
}

} // namespace krt550
