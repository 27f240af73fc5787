#pragma once

#include <QString>

#include <array>
#include <optional>

namespace krt550 {

/// A terminal of the control board: "DI3", "AI1", "DO8", "AO2".
struct Terminal {
    enum class Kind { DigitalInput, AnalogInput, DigitalOutput, AnalogOutput };
    Kind kind = Kind::DigitalInput;
    int number = 1; ///< DI and DO 1 to 8, AI 1 to 4, AO 1 and 2

    bool IsInput() const { return kind == Kind::DigitalInput || kind == Kind::AnalogInput; }
    bool IsDigital() const { return kind == Kind::DigitalInput || kind == Kind::DigitalOutput; }
};

/// Nothing for a name that is no terminal's; capital or small letters alike.
std::optional<Terminal> ParseTerminal(const QString& name);
/// What lies at a terminal: "on" and "off" as 1 and 0 at a digital one; at an analogue one volts ("5", "-2.5 V") or, as
/// it flows through 500 ohms, a current ("12 mA"). Nothing, with the reason in `error`, for anything else and for what
/// exceeds 30 V.
std::optional<double> ParseTerminalValue(const Terminal& terminal, const QString& text, QString& error);
/// "on", "5.00 V".
QString TerminalText(const Terminal& terminal, double value);
/// "DI1 to DI8, AI1 to AI4, DO1 to DO8, AO1, AO2".
QString TerminalNames();

/// Contacts that the plant around a drive has at its digital inputs, by bits from 0 for DI1.
struct PlantContacts {
    quint16 wired = 0;
    quint16 closed = 0;
};

/// The terminals as electrical values. A digital input is off until somebody switches it on. Where the plant has a
/// contact, that one decides, until somebody takes the wire off (off) and puts it back (on).
class CTerminals {
public:
    void SetDigitalInput(int number, bool on) { Choose(on ? m_on : m_off, on ? m_off : m_on, number); }
    void SetContacts(const PlantContacts& contacts) { m_contacts = contacts; }
    /// From bit 0 for DI1.
    quint16 GetDigitalInputs() const;

    /// Takes the wire of a sensor off, for good.
    void SetAnalogInput(int number, double volts);
    /// A sensor of the plant lies at an analogue input (0: at none), unless somebody has put something else there.
    void SetSensor(int number, double volts);
    const std::array<double, 4>& GetAnalogInputs() const { return m_analogInputs; } ///< [V]

private:
    static void Choose(quint16& set, quint16& other, int number);

    quint16 m_on = 0;
    quint16 m_off = 0;
    PlantContacts m_contacts;
    std::array<double, 4> m_analogInputs{};
    std::array<bool, 4> m_byHand{}; ///< somebody has put a voltage there
    int m_sensor = 0;
};

} // namespace krt550
