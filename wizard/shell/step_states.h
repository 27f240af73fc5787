#pragma once

namespace krt550 {

/// State of a basic commissioning step, as its digit shows it.
enum class StepState : unsigned char {
    NotChosen = 0, ///< grey
    Done = 1,      ///< green
    Pending = 2    ///< red: chosen and not, or no longer, done
};

inline constexpr int kStepCount = 7;

/// Makes the module-wide array of seven step states, all grey. Does nothing when it is there: the states outlive a run.
void EnsureStepStates();

/// Stores a step's state; does nothing for steps outside 1 to 7.
void SetStepState(int step, StepState state);

/// State of step 1 to 7; NotChosen for any other.
StepState GetStepState(int step);

} // namespace krt550
