// Layout 140: the settings of the analogue outputs.
#include "wizard/resources/analogue_parts.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"
#include "wizard/resources/string_table.h"

namespace krt550 {
namespace {

constexpr RowColumns kColumns{.label = 121,
                              .labelWidth = 104,
                              .value = 226,
                              .valueWidth = 60,
                              .unit = 292,
                              .unitWidth = 30,
                              .minimum = 0,
                              .maximum = 0,
                              .limitWidth = 0};
constexpr int kListWidth = 160;
constexpr RowColumns kActualColumns{.label = 402,
                                    .labelWidth = 84,
                                    .value = 402,
                                    .valueWidth = 34,
                                    .unit = 440,
                                    .unitWidth = 46,
                                    .minimum = 0,
                                    .maximum = 0,
                                    .limitWidth = 0};
constexpr int kHeading = 11;
constexpr int kFirstRow = 23;
constexpr int kRowStep = 25;
constexpr int kHeight = 122;
constexpr int kGap = 4;
constexpr int kTop = 4;
constexpr int kBottom = kTop + kAnalogueOutputs * (kHeight + kGap) - kGap;
constexpr int kButtons = kBottom + 10;

constexpr RowDef IndexRow(int output, quint16 reg) {
    return {.reg = reg,
            .kind = RowKind::Index,
            .statics = StaticsShown::None,
            .ids = {.label = LabelId(reg), .value = ValueId(reg), .list = ChannelId(output, kChannelChoice)}};
}
constexpr RowDef ModeRow(quint16 reg) {
    return {.reg = reg, .kind = RowKind::List};
}
constexpr RowDef SettingRow(quint16 reg) {
    return {.reg = reg, .statics = StaticsShown::Unit};
}
// The actual values and the scale are bound after the settings.
constexpr RowDef TerminalRow(quint16 reg) {
    return {.reg = reg,
            .kind = RowKind::Display,
            .caption = "Value at terminals",
            .statics = StaticsShown::Unit,
            .bindRank = 1,
            .numbered = false};
}
constexpr RowDef kOutput1[] = {IndexRow(1, 1501), ModeRow(1503), SettingRow(1504), SettingRow(1505), TerminalRow(511)};
constexpr RowDef kOutput2[] = {IndexRow(2, 1506), ModeRow(1508), SettingRow(1509), SettingRow(1510), TerminalRow(512)};
constexpr RowDef kScaling[] = {SpeedScalingRow(2)};
constexpr RowGroupDef kGroups[] = {SpeedScalingGroup(kScaling),
                                   {.caption = "AO1", .headings = false, .rows = kOutput1},
                                   {.caption = "AO2", .headings = false, .rows = kOutput2}};
static_assert(IsSound(kGroups));

void AddOutput(CLayoutBuilder& layout, int output, int top) {
    const RowGroupDef& group = kGroups[output];
    layout.Group(output, {kChannelX, top, kChannelWidth, kHeight}, QString::fromLatin1(group.caption));
    layout.Add({.id = ChannelId(output, kChannelHeading),
                .rect = {kColumns.value, top + kHeading, kColumns.valueWidth, 11},
                .text = QStringLiteral("Index")});
    int y = top + kFirstRow;
    for (const RowDef& row : group.rows.first(group.rows.size() - 1)) {
        layout.Row(row, y, kColumns, kListWidth);
        if (row.kind == RowKind::Index)
            layout.Add({.id = ChannelId(output, kChannelView),
                        .kind = ControlKind::PushButton,
                        .rect = {436, y, 56, 14},
                        .text = StringTableText(14).value_or(QString()),
                        .name = QStringLiteral("Advanced view of ") + QLatin1String(group.caption)});
        y += kRowStep;
    }
    const int frame = top + kFirstRow + kRowStep;
    layout.Add({.id = ChannelId(output, kChannelFrame), .kind = ControlKind::GroupBox, .rect = {396, frame, 96, 39}});
    const RowDef& terminal = group.rows.back();
    const RowIds ids = IdsOf(terminal);
    layout.Add({.id = ids.label,
                .rect = {kActualColumns.label, frame + 6, kActualColumns.labelWidth, 12},
                .text = QString::fromLatin1(terminal.caption)});
    layout.Add({.id = ids.value,
                .rect = {kActualColumns.value, frame + 21, kActualColumns.valueWidth, 12},
                .reg = terminal.reg});
    layout.Add({.id = ids.unit, .rect = {kActualColumns.unit, frame + 21, kActualColumns.unitWidth, 12}});
}

} // namespace

constinit const PageRows kAnalogueOutputRows{.layout = 140, .groups = kGroups};

DialogLayout AnalogueOutputsLayout() {
    CLayoutBuilder layout(140, kPageWidth, kButtons + 14 + 13, QStringLiteral("AO settings"));
    AddSpeedScaling(layout, kGroups[0]);
    static constexpr int kPictures[] = {10017, 10018, 10019};
    AddChannelPictures(layout, kPictures, kBottom);
    for (int output = 1; output <= kAnalogueOutputs; ++output)
        AddOutput(layout, output, kTop + (output - 1) * (kHeight + kGap));
    return layout.DialogButtons(kButtons).Take();
}

} // namespace krt550
