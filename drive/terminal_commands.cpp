#include "drive/terminal_commands.h"

#include "drive/control_word.h"
#include "drive/digital_inputs.h"

#include <utility>

namespace krt550 {
namespace {

int JogOf(const CDigitalInputs& inputs) {
    return inputs.IsClosed(InputFunction::Jog1) ? 1 : inputs.IsClosed(InputFunction::Jog2) ? 2 : 0;
}

} // namespace

/// A single switch does both: on alone runs, run alone switches on, a jog key alone as well.
CTerminalCommands::Wish CTerminalCommands::ReadSwitches(const CDigitalInputs& inputs) const {
    const bool hasOn = inputs.IsConnected(InputFunction::On);
    const bool hasRun = inputs.IsConnected(InputFunction::Run);
    const bool on = inputs.IsClosed(InputFunction::On);
    const bool run = inputs.IsClosed(InputFunction::Run);
    return {hasOn ? on : run || JogOf(inputs) != 0, hasRun ? run : on};
}

CTerminalCommands::Wish CTerminalCommands::ReadButtons(const CDigitalInputs& inputs, const TerminalView& view) {
    const bool button = inputs.IsClosed(InputFunction::On);
    const bool pressed = !std::exchange(m_startButton, button) && button;
    const bool stop = !inputs.IsGood(InputFunction::Run) || view.inhibited || !view.commands;
    m_started = !stop && (m_started || pressed);
    return {m_started || JogOf(inputs) != 0, m_started};
}

void CTerminalCommands::Step(const CDigitalInputs& inputs, const TerminalView& view) {
    const Wish wish = m_buttons ? ReadButtons(inputs, view) : ReadSwitches(inputs);
    const bool unmoved = std::exchange(m_outside, inputs.GetOutside()) == inputs.GetOutside();
    const bool appears = (wish.on && !m_wish.on) || (wish.run && !m_wish.run);
    m_wish = wish;
    if (!wish.on && !wish.run)
        m_blocked = false;
    else if (!view.commands)
        m_blocked = !(view.takesOver && view.driving);
    else if (appears && unmoved && !view.driving)
        m_blocked = true;

    m_word = control::kIdle;
    m_jog = 0;
    if (m_blocked)
        return;
    m_jog = wish.on && !wish.run ? JogOf(inputs) : 0;
    if (wish.on)
        m_word |= control::kOn;
    if (wish.on && (wish.run || m_jog != 0))
        m_word |= control::kRun;
    if (inputs.IsClosed(InputFunction::RampHold))
        m_word &= static_cast<quint16>(~control::kUnfreezeRamp);
}

} // namespace krt550
