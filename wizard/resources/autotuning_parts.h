#pragma once

#include "wizard/resources/layout_parts.h"

#include <span>

/// What the layouts of the autotuning pages have in common. Measures in dialog units.
namespace krt550 {

inline constexpr int kAutotuningGroupX = 115;
inline constexpr int kAutotuningGroupWidth = 383;

/// The pictures on the left, evenly spread.
void AddAutotuningPictures(CLayoutBuilder& layout, std::span<const int> pictures);
/// Group box `group` with rows under their headings, from `y` on, `step` apart; returns the y below it.
int AddAutotuningRows(CLayoutBuilder& layout, int group, int y, const char* caption, std::span<const LayoutRow> rows,
                      int step);
/// Start, progress bar and Diagnosis.
void AddAutotuningRun(CLayoutBuilder& layout, int y);

} // namespace krt550
