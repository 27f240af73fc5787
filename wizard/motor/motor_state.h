#pragma once

#include <functional>

namespace krt550 {

class CMotorRun;
class CParameter;

/// What the wizard has done to the motor. Module-wide: there is one drive, and one run at a time.
struct MotorState {
    CMotorRun* run = nullptr;   ///< the run that may command it
    bool holdsControl = false;  ///< local control was asked for and not yet given back
    bool mayTurn = false;       ///< contactor or motor were commanded and standstill is not confirmed since
    CParameter* serviceMode = nullptr; ///< 99.06 of a mode that was begun and not yet ended
    bool stopping = false;      ///< a way out is at work
    bool windowClosed = false;  ///< nobody can see the wizard any more
    bool silent = false;        ///< a stop was given up: nothing is said to the drive any more
    std::function<void()> next; ///< what somebody wants done once the motor stands
};

MotorState& GetMotorState();

} // namespace krt550
