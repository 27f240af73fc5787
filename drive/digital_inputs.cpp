#include "drive/digital_inputs.h"

#include "drive/register_file.h"
#include "drive/registers.h"

namespace krt550 {
namespace {

struct Selector {
    InputFunction function;
    quint16 reg;
    quint16 otherwise = 0; ///< of a drive description without it
};

constexpr quint16 kEmergencyStopTerminal = 5;

constexpr Selector kSelectors[] = {
    {InputFunction::On, reg::kOnInput},
    {InputFunction::Run, reg::kRunInput},
    {InputFunction::Reverse, reg::kDirectionInput},
    {InputFunction::Automatic, reg::kAutomaticInput},
    {InputFunction::EmergencyStop, reg::kEmergencyStopInput, kEmergencyStopTerminal},
    {InputFunction::Disconnect, reg::kDisconnectInput},
    {InputFunction::Reset, reg::kResetInput},
    {InputFunction::Jog1, reg::kJog1Input},
    {InputFunction::Jog2, reg::kJog2Input},
    {InputFunction::Reference2, reg::kReferenceInput},
    {InputFunction::ConstantSpeed1, reg::kConstantSpeedInput1},
    {InputFunction::ConstantSpeed2, reg::kConstantSpeedInput2},
    {InputFunction::PotUp, reg::kPotUpInput},
    {InputFunction::PotDown, reg::kPotDownInput},
    {InputFunction::PotMinimum, reg::kPotMinimumInput},
    {InputFunction::Ramp2, reg::kRampInput},
    {InputFunction::RampHold, reg::kRampHoldInput},
    {InputFunction::TorqueControl, reg::kTorqueControlInput},
    {InputFunction::ContactorAcknowledge, reg::kContactorInput},
    {InputFunction::ConverterFan, reg::kConverterFanInput},
    {InputFunction::MotorFan, reg::kMotorFanInput},
    {InputFunction::ThermalSwitch, reg::kThermalSwitchInput},
    {InputFunction::ExternalFault, reg::kExternalFaultInput},
    {InputFunction::ExternalAlarm, reg::kExternalAlarmInput},
    {InputFunction::FieldHeating, reg::kFieldHeatingInput},
    {InputFunction::FieldReversal, reg::kFieldReversalInput},
};

constexpr quint32 kFreeControlBits = 0xF800; ///< 11 to 15

} // namespace

void CDigitalInputs::Read(const CRegisterFile& registers) {
    for (const auto& [function, reg, otherwise] : kSelectors)
        m_selectors[static_cast<std::size_t>(function)] = std::min<quint16>(registers.GetWord(reg, otherwise), 15);
    m_inverted = 0;
    for (quint16 i = 0; i < kInputs; ++i)
        if (registers.GetWord(reg::kInvertFirstInput + i) != 0)
            m_inverted |= static_cast<quint16>(1U << i);
}

void CDigitalInputs::Sample(quint16 terminals, quint16 controlWord) {
    m_states = static_cast<quint16>(terminals ^ m_inverted);
    m_outside = (quint32{terminals} << 1) | (controlWord & kFreeControlBits);
    m_sources = (quint32{m_states} << 1) | (controlWord & kFreeControlBits);
}

int CDigitalInputs::TerminalOf(InputFunction function) const {
    const quint16 selector = SelectorOf(function);
    return selector <= kInputs ? selector : 0;
}

} // namespace krt550
