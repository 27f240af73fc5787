#include "wizard/resources/analogue_parts.h"

#include "wizard/resources/control_ids.h"

namespace krt550 {
namespace {

constexpr int kLeft = 7;
constexpr int kWidth = 102;
constexpr int kScalingTop = 4;
constexpr int kScalingHeight = 36;
constexpr int kFirstPictureId = 60011;
constexpr int kPictureGap = 6;

} // namespace

void AddSpeedScaling(CLayoutBuilder& layout, const RowGroupDef& group) {
    layout.Add({.id = kIdSpeedScalingGroup,
                .kind = ControlKind::GroupBox,
                .rect = {kLeft, kScalingTop, kWidth, kScalingHeight},
                .text = QString::fromLatin1(group.caption)});
    const RowDef& row = group.rows.front();
    const RowIds ids = IdsOf(row);
    layout.Add({.id = ids.label, .rect = {13, kScalingTop + 11, 90, 11}, .text = QString::fromLatin1(row.caption)});
    layout.Add({.id = ids.value, .rect = {13, kScalingTop + 22, 28, 11}, .reg = row.reg});
    layout.Add({.id = ids.unit, .rect = {44, kScalingTop + 22, 50, 11}});
}

void AddChannelPictures(CLayoutBuilder& layout, std::span<const int> pictures, int bottom) {
    const int top = kScalingTop + kScalingHeight + kPictureGap;
    const int count = static_cast<int>(pictures.size());
    const int height = (bottom - top - kPictureGap * (count - 1)) / count;
    for (int i = 0; i < count; ++i)
        layout.Add({.id = kFirstPictureId + i,
                    .kind = ControlKind::Picture,
                    .rect = {kLeft, top + i * (height + kPictureGap), kWidth, height},
                    .picture = pictures[static_cast<std::size_t>(i)]});
}

} // namespace krt550
