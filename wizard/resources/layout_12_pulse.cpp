// Layouts 139, 149 and 150: the 12-pulse assistant and its two tabs.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"

namespace krt550 {
namespace {

// Written from the link to the general parameters: the service mode, which may start something, last.
constexpr RowDef kGeneral[] = {
    {.reg = 9902, .writeRank = 2},
    {.reg = 9903, .writeRank = 2},
    {.reg = 9910, .writeRank = 2},
    {.reg = 4301, .kind = RowKind::List, .writeRank = 2},
    {.reg = 4701, .kind = RowKind::List, .writeRank = 2},
    {.reg = 9906, .kind = RowKind::List, .writeRank = 2},
};
constexpr RowDef kAdjustments[] = {
    {.reg = 9702, .writeRank = 1}, {.reg = 9703, .writeRank = 1}, {.reg = 9723, .writeRank = 1}};
constexpr RowDef kLink[] = {{.reg = 9401}, {.reg = 9404}};
constexpr RowGroupDef kCommonGroups[] = {{.caption = "Set general parameters", .rows = kGeneral},
                                         {.caption = "Set adjustments", .rows = kAdjustments},
                                         {.caption = "Set 12-pulse communication", .rows = kLink}};
constexpr RowDef kProtections[] = {{.reg = 3009, .writeRank = 5}, {.reg = 4702, .writeRank = 2},
                                   {.reg = 4703, .writeRank = 1}, {.reg = 4705, .writeRank = 0},
                                   {.reg = 4314, .writeRank = 3}, {.reg = 9719, .writeRank = 4}};
constexpr RowGroupDef kProtectionGroups[] = {{.caption = "Set protections", .rows = kProtections}};
static_assert(IsSound(kCommonGroups) && IsSound(kProtectionGroups));

DialogLayout Tab(const PageRows& rows) {
    CLayoutBuilder layout(rows.layout, kWideTabWidth, kWideTabHeight);
    CRowStack(layout, rows, kWideTabStyle, 2, kWideTabHeight).AddGroups(rows.groups.size());
    return layout.Take();
}

} // namespace

constinit const PageRows k12PulseCommonRows{.layout = 149, .groups = kCommonGroups};
constinit const PageRows k12PulseProtectionRows{.layout = 150, .groups = kProtectionGroups};

DialogLayout TwelvePulseLayout() {
    static constexpr int kPictures[] = {10012};
    return CLayoutBuilder(139, kPageWidth, kPageHeight)
        .Pictures(kPictures)
        .Add({.id = kId12PulseTabs, .kind = ControlKind::Placeholder, .rect = kTabsPlaceholder})
        .BottomRow(false)
        .Take();
}

DialogLayout TwelvePulseCommonLayout() {
    return Tab(k12PulseCommonRows);
}

DialogLayout TwelvePulseProtectionsLayout() {
    return Tab(k12PulseProtectionRows);
}

} // namespace krt550
