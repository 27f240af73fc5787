#include "drive/terminal_board.h"

#include "drive/fault_codes.h"
#include "drive/register_file.h"
#include "drive/registers.h"

namespace krt550 {
namespace {

PlantContacts ContactsOf(const PlantState& plant, const CDigitalInputs& inputs) {
    const std::pair<InputFunction, bool> contacts[] = {
        {InputFunction::ContactorAcknowledge, plant.contactor},
        {InputFunction::ConverterFan, plant.converterFan},
        {InputFunction::MotorFan, plant.motorFan},
        {InputFunction::EmergencyStop, !plant.emergencyStop},
        {InputFunction::Disconnect, true},
        {InputFunction::ThermalSwitch, true},
        {InputFunction::ExternalFault, true},
        {InputFunction::ExternalAlarm, true},
    };
    unsigned wired = 0;
    unsigned open = 0;
    for (const auto& [function, closed] : contacts) {
        const int terminal = inputs.TerminalOf(function);
        const unsigned bit = terminal ? 1U << (terminal - 1) : 0;
        wired |= bit;
        open |= closed ? 0 : bit; // several contacts at one terminal lie in series
    }
    return {static_cast<quint16>(wired), static_cast<quint16>(wired & ~open)};
}

} // namespace

void CTerminalBoard::Read(const CRegisterFile& registers) {
    m_digital.Read(registers);
    m_analog.Read(registers);
    m_temperature.Read(registers);
    m_references.Read(registers);
    m_commands.SetButtons(registers.GetWord(reg::kStartType) != 0);
}

void CTerminalBoard::Sample(const PlantState& plant, const CRegisterFile& registers) {
    m_terminals.SetContacts(ContactsOf(plant, m_digital));
    m_digital.Sample(m_terminals.GetDigitalInputs(), registers.GetWord(reg::kControlWord));
    m_terminals.SetSensor(m_temperature.GetInput(), m_temperature.VoltsAt(plant.winding));
    m_temperature.Sample(m_terminals.GetAnalogInputs());
}

void CTerminalBoard::Step(double seconds, bool running, const TerminalView& view, const CRegisterFile& registers) {
    m_analog.Sample(seconds, m_terminals.GetAnalogInputs());
    m_commands.Step(m_digital, view);
    m_references.Step(seconds, running, m_commands.GetJog(), m_digital, m_analog, registers);
}

Findings CTerminalBoard::GetFindings() const {
    Findings found = m_analog.GetFindings();
    Findings hot = m_temperature.GetFindings();
    found.alarms.merge(hot.alarms);
    if (hot.trip)
        found.Add(hot.trip, Reaction::Trip);
    const struct {
        InputFunction function;
        quint16 code;
        Reaction reaction;
    } inputs[] = {{InputFunction::ExternalFault, kFaultExternal, Reaction::Trip},
                  {InputFunction::ThermalSwitch, kFaultOvertemperature, Reaction::Trip},
                  {InputFunction::ExternalAlarm, kFaultExternal, Reaction::Alarm}};
    for (const auto& [function, code, reaction] : inputs)
        if (!m_digital.IsGood(function))
            found.Add(code, reaction);
    return found;
}

void CTerminalBoard::Show(CRegisterFile& registers) const {
    registers.SetWord(reg::kDigitalInputs, m_terminals.GetDigitalInputs());
    registers.SetWord(reg::kInputsInverted, m_digital.GetStates());
    m_analog.Show(registers);
    m_temperature.Show(registers);
    m_references.Show(registers);
    m_outputs.Show(registers);
}

} // namespace krt550
