// Layouts 133, 144 and 145: the protection and limit assistant and its two tabs.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"

namespace krt550 {
namespace {

constexpr RowDef kProtections[] = {
    {.reg = 3001},
    {.reg = 3002},
    {.reg = 3003},
    {.reg = 3008},
    {.reg = 3009},
    {.reg = 3010},
    {.reg = 3012},
    {.reg = 3013},
    {.reg = 3014},
    {.reg = 3015},
    {.reg = 3016},
    {.reg = 3017, .kind = RowKind::List},
    {.reg = 3027, .kind = RowKind::List},
    {.reg = 3028, .kind = RowKind::List, .bindRank = 1, .writeRank = 1},
    {.reg = 3030, .kind = RowKind::List},
    {.reg = 3036, .kind = RowKind::List},
};
constexpr RowDef kLimits[] = {{.reg = 2001}, {.reg = 2002}, {.reg = 2003}, {.reg = 2005}, {.reg = 2006},
                              {.reg = 2012}, {.reg = 2013}, {.reg = 2014}, {.reg = 2015}, {.reg = 4304}};
constexpr RowGroupDef kProtectionGroups[] = {{.rows = kProtections}};
constexpr RowGroupDef kLimitGroups[] = {{.rows = kLimits}};
static_assert(IsSound(kProtectionGroups) && IsSound(kLimitGroups));

DialogLayout Tab(const PageRows& rows, const char* caption) {
    CLayoutBuilder layout(rows.layout, kWideTabWidth, kWideTabHeight, QString::fromLatin1(caption));
    // A single group needs no frame.
    RowGroupStyle style = kWideTabStyle;
    style.headings = 3;
    style.firstRow = 14;
    CRowStack(layout, rows, style, 0, kWideTabHeight).AddGroup();
    return layout.Take();
}

} // namespace

constinit const PageRows kProtectionRows{.layout = 144, .groups = kProtectionGroups};
constinit const PageRows kLimitRows{.layout = 145, .groups = kLimitGroups};

DialogLayout ProtectionLayout() {
    static constexpr int kPictures[] = {10049, 10050, 10051};
    return CLayoutBuilder(133, kPageWidth, kPageHeight)
        .Pictures(kPictures)
        .Add({.id = kIdProtectionTabs, .kind = ControlKind::Placeholder, .rect = kTabsPlaceholder})
        .BottomRow(false)
        .Take();
}

DialogLayout ProtectionsTabLayout() {
    return Tab(kProtectionRows, "Protections");
}

DialogLayout LimitsTabLayout() {
    return Tab(kLimitRows, "Limits");
}

} // namespace krt550
