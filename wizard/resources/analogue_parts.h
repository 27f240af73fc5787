#pragma once

#include "wizard/resources/layout_parts.h"

#include <span>

/// What the settings of analogue inputs and those of analogue outputs have in common. Measures in dialog units.
namespace krt550 {

inline constexpr int kAnalogueInputs = 4;
inline constexpr int kAnalogueOutputs = 2;

/// The speed that 100 % stands for: a table's first group, bound first.
inline constexpr RowDef kSpeedScaling[] = {{.reg = 229,
                                            .kind = RowKind::Display,
                                            .caption = "100 % speed ==",
                                            .statics = StaticsShown::Unit,
                                            .bindRank = -1,
                                            .numbered = false}};
inline constexpr RowGroupDef kSpeedScalingGroup{.caption = "Speed scaling", .headings = false, .rows = kSpeedScaling};

/// Frames of the channels.
inline constexpr int kChannelX = 115;
inline constexpr int kChannelWidth = 383;

/// That group, at the top left.
void AddSpeedScaling(CLayoutBuilder& layout);
/// The pictures below it, down to `bottom`.
void AddChannelPictures(CLayoutBuilder& layout, std::span<const int> pictures, int bottom);

} // namespace krt550
