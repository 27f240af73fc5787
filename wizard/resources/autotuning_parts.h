#pragma once

#include "wizard/resources/layout_parts.h"

/// What the layouts of the autotuning pages have in common. Measures in dialog units.
namespace krt550 {

/// Height of the frame around Start, progress bar and Diagnosis, and where they stand in it.
inline constexpr int kAutotuningRunHeight = 30;
inline constexpr int kAutotuningRunY = 11;
/// Start, progress bar and Diagnosis.
void AddAutotuningRun(CLayoutBuilder& layout, int y);

} // namespace krt550
