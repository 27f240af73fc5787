#pragma once

#include <QtGlobal>

#include <array>

namespace krt550 {

class CRegisterFile;

/// What an input can be wired for; each has its selector.
enum class InputFunction {
    On,             ///< with 10.20 = 1 the start button
    Run,            ///< with 10.20 = 1 the stop button, open when it is pressed
    Reverse,        ///< the reference counts backwards
    Automatic,      ///< commands by 7.01 instead of the terminals
    EmergencyStop,  ///< open: stops as 21.04 says
    Disconnect,     ///< open: coast stop
    Reset,          ///< closing acknowledges a fault
    Jog1,           ///< as long as it is closed and run is not given
    Jog2,           ///< the same
    Reference2,     ///< instead of reference 1
    ConstantSpeed1, ///< see 12.01
    ConstantSpeed2, ///< see 12.01
    PotUp,
    PotDown,
    PotMinimum,
    Ramp2,    ///< instead of ramp 1
    RampHold, ///< the ramp stays where it is
    TorqueControl,
    ContactorAcknowledge,
    ConverterFan,  ///< its acknowledge
    MotorFan,      ///< its acknowledge
    ThermalSwitch, ///< open: the motor is too hot
    ExternalFault, ///< open: trips
    ExternalAlarm, ///< open: warns
    FieldHeating,  ///< the field stays warm while the motor is not driven
    FieldReversal, ///< the field is reversed
    Count
};

/// The digital inputs as the drive uses them: behind their inversion (10.25 to 10.32), and by what their selectors have
/// wired them for. A selector names a digital input (1 to 8) or a bit of the main control word (11 to 15).
class CDigitalInputs {
public:
    static constexpr int kInputs = 8;

    /// Selectors and inversion. A drive description without the E-stop's selector has it at DI5, others at nothing.
    void Read(const CRegisterFile& registers);
    /// `terminals` from bit 0 for DI1.
    void Sample(quint16 terminals, quint16 controlWord);

    /// Behind the inversion, from bit 0 for DI1.
    quint16 GetStates() const { return m_states; }
    bool IsConnected(InputFunction function) const { return SelectorOf(function) != 0; }
    /// False for what is not connected.
    bool IsClosed(InputFunction function) const {
        return IsConnected(function) && ((m_sources >> SelectorOf(function)) & 1) != 0;
    }
    /// For inputs that are closed in good order; true for what is not connected.
    bool IsGood(InputFunction function) const { return !IsConnected(function) || IsClosed(function); }
    /// Terminal that a function is wired to, 1 to 8; 0: to none.
    int TerminalOf(InputFunction function) const;
    /// Terminals and free bits of the control word as they come: another number means that something outside has moved.
    quint32 GetOutside() const { return m_outside; }

private:
    quint16 SelectorOf(InputFunction function) const { return m_selectors[static_cast<std::size_t>(function)]; }

    std::array<quint16, static_cast<std::size_t>(InputFunction::Count)> m_selectors{};
    quint16 m_inverted = 0;
    quint16 m_states = 0;
    quint32 m_outside = 0;
    quint32 m_sources = 0; ///< bit n is what a selector with the value n chooses
};

} // namespace krt550
