#pragma once

#include <QtGlobal>

namespace krt550 {

enum class DriveState {
    Inhibited,     ///< after a coast stop, a quick stop or a fault, until the on command is taken back
    Ready,         ///< contactor open, waiting for the on command
    On,            ///< contactor closed, converter blocked
    Operation,     ///< converter drives the motor
    QuickStopping, ///< quick stop ramp runs
    SwitchingOff   ///< stop ramp runs, then the contactor opens
};

/// What the switch-on logic looks at.
struct SwitchInputs {
    quint16 controlWord = 0;
    bool contactorClosed = false;
    bool standstill = true;
    bool fault = false;
};

/// Switch-on logic of the drive profile: from control word, contactor, speed and fault to the drive's state.
class CSwitchLogic {
public:
    /// Makes one transition at most. True when the state changed; call again until it does not.
    bool Step(const SwitchInputs& inputs);

    DriveState GetState() const { return m_state; }
    /// The converter drives the motor, to a speed or to a stop.
    bool IsDriving() const;
    /// The main contactor is commanded to close.
    bool WantsContactor(const SwitchInputs& inputs) const;
    /// Status word bits 0 to 6.
    quint16 GetStatusBits(const SwitchInputs& inputs) const;

private:
    DriveState NextState(const SwitchInputs& inputs) const;

    DriveState m_state = DriveState::Inhibited;
};

} // namespace krt550
