// Layout 111, the autotuning page of step 6, and 10056 to 10058, its tabs.
#include "wizard/resources/autotuning_parts.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"

namespace krt550 {
namespace {

constexpr RowDef kGeneral[] = {{.reg = 9904}, {.reg = 2001}, {.reg = 2002}, {.reg = 2201}, {.reg = 2202}};
constexpr RowDef kFilters[] = {{.reg = 2306}, {.reg = 2311}, {.reg = 5006}};
constexpr RowDef kLimits[] = {{.reg = 2003}, {.reg = 2005}, {.reg = 2006}, {.reg = 2012}, {.reg = 2013}};
constexpr RowDef kChanged[] = {{.reg = 2403}, {.reg = 2409}};
constexpr RowGroupDef kGeneralGroups[] = {{.rows = kGeneral}};
constexpr RowGroupDef kFilterGroups[] = {{.rows = kFilters}};
constexpr RowGroupDef kLimitGroups[] = {{.rows = kLimits}};
constexpr RowGroupDef kChangedGroups[] = {{.caption = "Changed parameters", .rows = kChanged}};
static_assert(IsSound(kGeneralGroups) && IsSound(kFilterGroups) && IsSound(kLimitGroups) && IsSound(kChangedGroups));

constexpr int kTabWidth = 379;
constexpr int kTabHeight = 103;
/// From the page's left edge to the tabs'.
constexpr int kTabX = kPageStyle.x + 2;
/// Tabs, page and frame.
constexpr int kSheetHeight = kTabHeight + 16;
constexpr int kSheetTop = 8;
constexpr int kRunHeight = 66;

/// The page's columns, seen from the tab; a tab has no frame of its own.
constexpr RowGroupStyle TabStyle() {
    RowGroupStyle style = kPageStyle;
    for (int* x : {&style.columns.label, &style.columns.value, &style.columns.unit, &style.columns.minimum,
                   &style.columns.maximum})
        *x -= kTabX;
    style.headings = 3;
    style.firstRow = 14;
    return style;
}

DialogLayout Tab(const PageRows& rows) {
    CLayoutBuilder layout(rows.layout, kTabWidth, kTabHeight);
    constexpr RowGroupStyle kStyle = TabStyle();
    CRowStack(layout, rows, kStyle, 0, kTabHeight).AddGroup();
    return layout.Take();
}

/// The slider under the names of its positions; returns the y below it.
int AddSlider(CLayoutBuilder& layout, int y) {
    const auto label = [&](int id, int x, const char* text, Qt::Alignment alignment) {
        layout.Add({.id = id, .rect = {x, y, 90, 10}, .text = QString::fromLatin1(text), .alignment = alignment});
    };
    label(kIdSpeedResponseSlow, 122, "Slow", Qt::AlignLeft);
    label(kIdSpeedResponseNormal, 262, "Normal", Qt::AlignHCenter);
    label(kIdSpeedResponseFast, 402, "Fast", Qt::AlignRight);
    layout.Add({.id = kIdSpeedResponse,
                .kind = ControlKind::Slider,
                .rect = {122, y + 11, 370, 16},
                .name = QStringLiteral("Speed response")});
    return y + 32;
}

} // namespace

constinit const PageRows kSpeedControllerRows{.layout = 111, .groups = kChangedGroups};
constinit const PageRows kSpeedGeneralRows{.layout = 10056, .groups = kGeneralGroups};
constinit const PageRows kSpeedFiltersRows{.layout = 10057, .groups = kFilterGroups};
constinit const PageRows kSpeedLimitsRows{.layout = 10058, .groups = kLimitGroups};

DialogLayout SpeedControllerLayout() {
    static constexpr int kPictures[] = {10024, 10025, 10026};
    CLayoutBuilder layout(111, kPageWidth, kPageHeight);
    layout.Pictures(kPictures);
    const int above = kSheetHeight + kPageStyle.gap;
    CRowStack stack(layout, kSpeedControllerRows, kPageStyle, kSheetTop, kRowsBottom,
                    above + kRunHeight + kPageStyle.gap);
    layout.Add({.id = kIdTabPlaceholder,
                .kind = ControlKind::Placeholder,
                .rect = {kPageStyle.x + 4, stack.AddSpace(above), kPageStyle.width - 4, kSheetHeight}});
    const int run = stack.AddFrame(kRunHeight, QStringLiteral("Autotuning speed controller step response"));
    AddAutotuningRun(layout, AddSlider(layout, run + 13));
    stack.AddGroup();
    return layout.BottomRow(true).Take();
}

DialogLayout SpeedGeneralTabLayout() {
    return Tab(kSpeedGeneralRows);
}

DialogLayout SpeedFiltersTabLayout() {
    return Tab(kSpeedFiltersRows);
}

DialogLayout SpeedLimitsTabLayout() {
    return Tab(kSpeedLimitsRows);
}

} // namespace krt550
