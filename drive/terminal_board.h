#pragma once

#include "drive/analog_inputs.h"
#include "drive/analog_outputs.h"
#include "drive/digital_inputs.h"
#include "drive/motor_temperature.h"
#include "drive/selected_references.h"
#include "drive/terminal_commands.h"
#include "drive/terminals.h"

namespace krt550 {

/// The plant around the drive, as far as it has contacts at the terminals.
struct PlantState {
    bool contactor = false;     ///< closed
    bool converterFan = false;  ///< it blows
    bool motorFan = false;      ///< it blows
    bool emergencyStop = false; ///< pressed
    double winding = 0;         ///< temperature of the motor [°C]
};

/// The control board: terminals, and what the drive makes of them. Contacts of the plant lie where the selectors expect
/// them: what acknowledges, and what is closed in good order; so does the motor's temperature sensor. All else at the
/// terminals is switched by hand.
class CTerminalBoard {
public:
    CTerminals& GetTerminals() { return m_terminals; }
    const CDigitalInputs& GetInputs() const { return m_digital; }
    double GetOutputVolts(int output) const { return m_outputs.GetVolts(output); }

    /// The parameters have changed.
    void Read(const CRegisterFile& registers);
    /// Looks at the digital inputs.
    void Sample(const PlantState& plant, const CRegisterFile& registers);
    /// Makes commands and references of what Sample has seen, after `seconds`; `running` moves the motor potentiometer.
    void Step(double seconds, bool running, const TerminalView& view, const CRegisterFile& registers);
    void StepOutputs(double seconds, const DriveSettings& settings, const CRegisterFile& registers) {
        m_outputs.Step(seconds, settings, registers);
    }

    quint16 GetWord() const { return m_commands.GetWord(); } ///< control word of the terminals
    const CSelectedReferences& GetReferences() const { return m_references; }
    /// External fault and alarm, thermal switch, motor temperature, broken loops.
    Findings GetFindings() const;
    void Show(CRegisterFile& registers) const;

private:
    CTerminals m_terminals;
    CDigitalInputs m_digital;
    CAnalogInputs m_analog;
    CMotorTemperature m_temperature;
    CAnalogOutputs m_outputs;
    CTerminalCommands m_commands;
    CSelectedReferences m_references;
};

} // namespace krt550
