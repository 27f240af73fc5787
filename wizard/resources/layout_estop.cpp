// Layout 135: the E-stop / electrical disconnect assistant.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"

namespace krt550 {
namespace {

constexpr int kHeadingsHeight = 12;

constexpr RowDef kGeneral[] = {
    {.reg = 2104, .kind = RowKind::List, .ids = {.label = 723, .value = 624}},
    {.reg = 1008, .kind = RowKind::List, .ids = {.label = 725, .value = 727}},
    {.reg = 1009, .kind = RowKind::List, .ids = {.label = 729, .value = 731}},
    // below the headings, which are for this row alone
    {.reg = 2204,
     .above = kHeadingsHeight,
     .ids = {.label = 722, .value = 733, .unit = 734, .minimum = 735, .maximum = 737}},
};
constexpr RowGroupDef kGroups[] = {{.caption = "Set general parameters", .headings = false, .rows = kGeneral}};
static_assert(IsSound(kGroups));

struct Hint {
    int label;
    const char* text;
    int value;
    int unit;
};
constexpr Hint kHints[] = {
    {kIdEStopDelayLabel, "Proposed delay time for E-stop relay >=:", kIdEStopDelay, kIdEStopDelayUnit},
    {kIdDisconnectDelayLabel, "Proposed delay time for el. disconnect relay >=:", kIdDisconnectDelay,
     kIdDisconnectDelayUnit}};
constexpr int kHintsHeight = 48;

} // namespace

constinit const PageRows kEStopRows{.layout = 135, .groups = kGroups};

DialogLayout EStopLayout() {
    static constexpr int kPictures[] = {10028};
    CLayoutBuilder layout(135, kPageWidth, kPageHeight);
    layout.Pictures(kPictures);
    CRowStack stack(layout, kEStopRows, kPageStyle, kRowsTop, kRowsBottom, kHintsHeight + kPageStyle.gap);
    stack.AddGroup([&layout](int above) { layout.Headings(0, above, kPageColumns); });
    int y = stack.AddFrame(kHintsHeight, QStringLiteral("Relay settings")) + 12;
    for (const auto& [label, text, value, unit] : kHints) {
        layout.Add({.id = label, .rect = {kPageColumns.label, y, 200, 14}, .text = QString::fromLatin1(text)});
        layout.Add({.id = value, .rect = {kPageColumns.unit, y, kPageColumns.unitWidth, 14}, .bold = true});
        layout.Add({.id = unit, .rect = {kPageColumns.minimum, y, kPageColumns.limitWidth, 14}});
        y += kPageStyle.step;
    }
    return layout.BottomRow(false).Take();
}

} // namespace krt550
