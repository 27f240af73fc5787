#pragma once

#include "host/play/action.h"

namespace krt550 {

class CPlayStage;

/// How far the play and the wizard have come.
struct PlayState {
    bool idle = true;    ///< no action of the play is still at work
    bool closed = false; ///< the wizard has returned
};

/// Outcome of looking at a condition.
struct Finding {
    bool holds = false;
    QString found; ///< what was there instead, for a person
};

/// Looks whether a condition holds right now. Waiting for seconds is the player's own matter.
Finding CheckCondition(const Condition& condition, CPlayStage& stage, const PlayState& state);

/// True when a condition can be looked at while a message box is in front.
bool LooksPastBoxes(ConditionKind kind);

/// True when it is about what still moves when the wizard has returned: the drive, its partner, PLC and terminals.
bool MovesByItself(ConditionKind kind);

/// True when a condition is about the window in front.
bool NeedsWindow(ConditionKind kind);

} // namespace krt550
