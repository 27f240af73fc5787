// Layout 59: the settings of the analogue inputs.
#include "wizard/resources/analogue_parts.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"

namespace krt550 {
namespace {

constexpr RowColumns kColumns{.label = 121,
                              .labelWidth = 91,
                              .value = 213,
                              .valueWidth = 50,
                              .unit = 266,
                              .unitWidth = 22,
                              .minimum = 0,
                              .maximum = 0,
                              .limitWidth = 0};
constexpr int kListWidth = 109;
/// Columns of the actual values, in a frame beside the rows.
constexpr RowColumns kActualColumns{.label = 298,
                                    .labelWidth = 64,
                                    .value = 364,
                                    .valueWidth = 70,
                                    .unit = 436,
                                    .unitWidth = 50,
                                    .minimum = 0,
                                    .maximum = 0,
                                    .limitWidth = 0};
constexpr int kRowStep = 14;
constexpr int kHeight = 70;
constexpr int kGap = 2;
constexpr int kTop = 4;
constexpr int kBottom = 290;

// Bound in this order: the scale, the settings, the actual values.
constexpr RowDef ModeRow(quint16 reg) {
    return {.reg = reg, .kind = RowKind::List};
}
constexpr RowDef SettingRow(quint16 reg) {
    return {.reg = reg, .statics = StaticsShown::Unit};
}
constexpr RowDef TerminalRow(quint16 reg) {
    return {.reg = reg,
            .kind = RowKind::Display,
            .caption = "Value at terminals:",
            .statics = StaticsShown::Unit,
            .bindRank = 1,
            .numbered = false};
}
constexpr RowDef kInput1[] = {ModeRow(1303), SettingRow(1301), SettingRow(1302), SettingRow(1304), TerminalRow(503)};
constexpr RowDef kInput2[] = {ModeRow(1307), SettingRow(1305), SettingRow(1306), SettingRow(1308), TerminalRow(504)};
constexpr RowDef kInput3[] = {ModeRow(1311), SettingRow(1309), SettingRow(1310), SettingRow(1312), TerminalRow(505)};
constexpr RowDef kInput4[] = {ModeRow(1315), SettingRow(1313), SettingRow(1314), SettingRow(1316), TerminalRow(506)};
constexpr RowDef kScaling[] = {SpeedScalingRow(-1)};
constexpr RowGroupDef kGroups[] = {SpeedScalingGroup(kScaling),
                                   {.caption = "AI1", .headings = false, .rows = kInput1},
                                   {.caption = "AI2", .headings = false, .rows = kInput2},
                                   {.caption = "AI3", .headings = false, .rows = kInput3},
                                   {.caption = "AI4", .headings = false, .rows = kInput4}};
static_assert(IsSound(kGroups));

void AddInput(CLayoutBuilder& layout, int input, int top) {
    const RowGroupDef& group = kGroups[input];
    layout.Group(input, {kChannelX, top, kChannelWidth, kHeight}, QString::fromLatin1(group.caption));
    layout.Add({.id = ChannelId(input, kChannelConnection), .rect = {328, top + 11, 114, 14}, .bold = true});
    layout.Add({.id = ChannelId(input, kChannelEdit),
                .kind = ControlKind::PushButton,
                .rect = {446, top + 11, 46, 14},
                .text = QStringLiteral("Edit"),
                .name = QStringLiteral("Edit the connections of ") + QLatin1String(group.caption)});
    int y = top + 11;
    for (const RowDef& row : group.rows.first(group.rows.size() - 1)) {
        layout.Row(row, y, kColumns, kListWidth);
        y += kRowStep;
    }
    const int frame = top + 29;
    layout.Add({.id = ChannelId(input, kChannelFrame), .kind = ControlKind::GroupBox, .rect = {292, frame, 200, 37}});
    layout.Row(group.rows.back(), frame + 4, kActualColumns, 0);
    const int converted = frame + 19;
    layout.Add({.id = ChannelId(input, kChannelConvertedLabel),
                .rect = {kActualColumns.label, converted, kActualColumns.labelWidth, 14},
                .text = QStringLiteral("Converted value:")});
    layout.Add({.id = ChannelId(input, kChannelConverted),
                .rect = {kActualColumns.value, converted, kActualColumns.valueWidth, 14}});
    layout.Add({.id = ChannelId(input, kChannelConvertedUnit),
                .rect = {kActualColumns.unit, converted, kActualColumns.unitWidth, 14}});
}

} // namespace

constinit const PageRows kAnalogueInputRows{.layout = 59, .groups = kGroups};

DialogLayout AnalogueInputsLayout() {
    CLayoutBuilder layout(59, kPageWidth, kPageHeight, QStringLiteral("AI settings"));
    AddSpeedScaling(layout, kGroups[0]);
    static constexpr int kPictures[] = {10013, 10015, 10016};
    AddChannelPictures(layout, kPictures, kBottom);
    for (int input = 1; input <= kAnalogueInputs; ++input)
        AddInput(layout, input, kTop + (input - 1) * (kHeight + kGap));
    return layout.DialogButtons(299).Take();
}

} // namespace krt550
