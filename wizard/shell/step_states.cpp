#include "wizard/shell/step_states.h"

#include <vector>

namespace krt550 {
namespace {

std::vector<StepState> g_states;

bool IsStep(int step) {
    return step >= 1 && step <= static_cast<int>(g_states.size());
}

} // namespace

void EnsureStepStates() {
    if (g_states.size() != kStepCount)
        g_states.assign(kStepCount, StepState::NotChosen);
}

void SetStepState(int step, StepState state) {
    if (IsStep(step))
        g_states[static_cast<std::size_t>(step - 1)] = state;
}

StepState GetStepState(int step) {
    return IsStep(step) ? g_states[static_cast<std::size_t>(step - 1)] : StepState::NotChosen;
}

} // namespace krt550
