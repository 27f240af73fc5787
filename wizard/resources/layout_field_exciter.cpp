// Layout 137: the field exciter assistant.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"

namespace krt550 {
namespace {

constexpr int kNoteHeight = 17;
constexpr int kStatusHeight = 32;

constexpr RowDef kConverter[] = {
    {.reg = 9401, .ids = {.label = 755, .value = 757, .unit = 759, .minimum = 761, .maximum = 763}},
    {.reg = 9912, .kind = RowKind::List, .ids = {.label = 259, .value = 553}},
    {.reg = 406,
     .kind = RowKind::Display,
     .bindRank = 1,
     .numbered = false,
     .ids = {.label = 557, .value = kIdExciterType}},
};
constexpr RowDef kExciter[] = {
    // below the note
    {.reg = 9408,
     .above = kNoteHeight,
     .ids = {.label = 355, .value = 192, .unit = 295, .minimum = 301, .maximum = 306}},
};
constexpr RowGroupDef kGroups[] = {
    {.caption = "Set node ID armature converter", .rows = kConverter},
    {.caption = "Set node ID of field exciter in armature converter", .headings = false, .rows = kExciter}};
static_assert(IsSound(kGroups));

} // namespace

constinit const PageRows kFieldExciterRows{.layout = 137, .groups = kGroups};

DialogLayout FieldExciterLayout() {
    static constexpr int kPictures[] = {10029};
    CLayoutBuilder layout(137, kPageWidth, kPageHeight);
    layout.Pictures(kPictures);
    CRowStack stack(layout, kFieldExciterRows, kPageStyle, kRowsTop, kRowsBottom, kStatusHeight + kPageStyle.gap);
    const auto label = [&layout](int id, const DialogRect& rect, const char* text, ControlKind kind) {
        layout.Add({.id = id, .kind = kind, .rect = rect, .text = QString::fromLatin1(text)});
    };
    stack.AddGroup();
    stack.AddGroup([&](int above) {
        label(kIdAttention, {kPageColumns.label, above, 44, 12}, "Attention:", ControlKind::Custom);
        label(kIdAttentionText, {kPageColumns.label + 48, above, 300, 12}, "Set the same node ID in the field exciter",
              ControlKind::Label);
    });
    const int y = stack.AddFrame(kStatusHeight, QStringLiteral("Communication status")) + 12;
    label(kIdLinkStatusLabel, {kPageColumns.label, y, kPageColumns.labelWidth, 14},
          "Motor 1 field exciter:", ControlKind::Label);
    label(kIdLinkStatus, {kPageColumns.value, y, kPageColumns.valueWidth, 14}, "", ControlKind::Custom);
    return layout.BottomRow(false).Take();
}

} // namespace krt550
