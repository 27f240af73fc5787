#pragma once

#include <QtGlobal>

namespace krt550 {

class CDigitalInputs;

/// Who may command and what the drive does, as far as commands from the terminals depend on it.
struct TerminalView {
    bool commands = false;  ///< the terminals' commands count
    bool takesOver = false; ///< when they come to count, the motor may go on: the place before gives it up running
    bool driving = false;
    bool inhibited = false; ///< switching on is inhibited
};

/// Control word of the digital inputs: switches (10.20 = 0) or push buttons (10.20 = 1) for on and run, jogging, ramp
/// hold.
///
/// No motor starts because somebody has turned to the terminals, or has given an input another meaning, while its
/// switch was closed: the switches must then be opened once.
class CTerminalCommands {
public:
    void SetButtons(bool buttons) { m_buttons = buttons; }
    void Step(const CDigitalInputs& inputs, const TerminalView& view);

    quint16 GetWord() const { return m_word; }
    /// Jog speed 1 or 2 is wanted; 0: none.
    int GetJog() const { return m_jog; }

private:
    struct Wish {
        bool on = false;
        bool run = false;
        bool operator==(const Wish&) const = default;
    };
    Wish ReadSwitches(const CDigitalInputs& inputs) const;
    Wish ReadButtons(const CDigitalInputs& inputs, const TerminalView& view);

    bool m_buttons = false;
    bool m_started = false;     ///< by its button
    bool m_startButton = false; ///< pressed
    bool m_blocked = true;
    Wish m_wish;
    quint32 m_outside = 0;
    quint16 m_word = 0;
    int m_jog = 0;
};

} // namespace krt550
