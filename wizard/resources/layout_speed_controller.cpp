// Layout 111, the autotuning page of step 6, and 10056 to 10058, its tabs.
#include "wizard/resources/autotuning_parts.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layouts.h"

namespace krt550 {
namespace {

constexpr int kRowStep = 17;
constexpr int kTabWidth = 379;
constexpr int kTabHeight = 18 + 5 * kRowStep;
/// From the page's left edge to the tabs'.
constexpr int kTabX = kAutotuningGroupX + 2;
/// Tabs, page and frame.
constexpr int kSheetHeight = kTabHeight + 16;

/// The page's columns, seen from the tab.
constexpr RowColumns TabColumns() {
    RowColumns columns = kPageColumns;
    for (int* x : {&columns.label, &columns.value, &columns.unit, &columns.minimum, &columns.maximum})
        *x -= kTabX;
    return columns;
}

DialogLayout Tab(int number, std::span<const LayoutRow> rows) {
    CLayoutBuilder layout(number, kTabWidth, kTabHeight);
    layout.Headings(0, 3, TabColumns());
    int y = 14;
    for (const LayoutRow& row : rows) {
        layout.EditRow(row.reg, QString::fromLatin1(row.label), y, TabColumns());
        y += kRowStep;
    }
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

DialogLayout SpeedControllerLayout() {
    static constexpr int kPictures[] = {10024, 10025, 10026};
    static constexpr LayoutRow kChanged[] = {{2403, "P-gain speed controller"}, {2409, "I-time speed controller"}};
    CLayoutBuilder layout(111, kPageWidth, kPageHeight);
    AddAutotuningPictures(layout, kPictures);
    int y = 8;
    layout.Add({.id = kIdTabPlaceholder,
                .kind = ControlKind::Placeholder,
                .rect = {kAutotuningGroupX + 4, y, kAutotuningGroupWidth - 4, kSheetHeight}});
    y += kSheetHeight + 3;
    layout.Group(1, {kAutotuningGroupX, y, kAutotuningGroupWidth, 66},
                 QStringLiteral("Autotuning speed controller step response"));
    AddAutotuningRun(layout, AddSlider(layout, y + 13));
    AddAutotuningRows(layout, 2, y + 69, "Changed parameters", kChanged, kRowStep);
    return layout.BottomRow(true).Take();
}

DialogLayout SpeedGeneralTabLayout() {
    static constexpr LayoutRow kRows[] = {{9904, "Motor 1 base speed"},
                                          {2001, "Motor 1 minimum speed"},
                                          {2002, "Motor 1 maximum speed"},
                                          {2201, "Acceleration time 1"},
                                          {2202, "Deceleration time 1"}};
    return Tab(10056, kRows);
}

DialogLayout SpeedFiltersTabLayout() {
    static constexpr LayoutRow kRows[] = {
        {2306, "Speed error filter time"}, {2311, "Speed reference filter time"}, {5006, "Speed feedback filter time"}};
    return Tab(10057, kRows);
}

DialogLayout SpeedLimitsTabLayout() {
    static constexpr LayoutRow kRows[] = {{2003, "Zero speed limit"},
                                          {2005, "Torque maximum"},
                                          {2006, "Torque minimum"},
                                          {2012, "Motor 1 current limit bridge 1"},
                                          {2013, "Motor 1 current limit bridge 2"}};
    return Tab(10058, kRows);
}

} // namespace krt550
