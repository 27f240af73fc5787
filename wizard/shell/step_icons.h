#pragma once

#include "wizard/shell/step_states.h"

class QLabel;

namespace krt550 {

/// Shows the digit of step 1 to 7 in the colour of its state.
void ShowStepIcon(QLabel& icon, int step, StepState state);

} // namespace krt550
