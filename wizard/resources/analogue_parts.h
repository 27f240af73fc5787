#pragma once

#include "wizard/resources/layout_parts.h"

#include <span>

/// What the settings of analogue inputs and those of analogue outputs have in common. Measures in dialog units.
namespace krt550 {

inline constexpr int kAnalogueInputs = 4;
inline constexpr int kAnalogueOutputs = 2;

/// The speed that 100 % stands for.
constexpr RowDef SpeedScalingRow(int bindRank) {
    return {.reg = 229,
            .kind = RowKind::Display,
            .caption = "100 % speed ==",
            .statics = StaticsShown::Unit,
            .bindRank = bindRank,
            .numbered = false};
}
constexpr RowGroupDef SpeedScalingGroup(std::span<const RowDef> row) {
    return {.caption = "Speed scaling", .headings = false, .rows = row};
}

/// Frames of the channels.
inline constexpr int kChannelX = 115;
inline constexpr int kChannelWidth = 383;

/// A table's group of the speed scaling, at the top left.
void AddSpeedScaling(CLayoutBuilder& layout, const RowGroupDef& group);
/// The pictures below it, down to `bottom`.
void AddChannelPictures(CLayoutBuilder& layout, std::span<const int> pictures, int bottom);

} // namespace krt550
