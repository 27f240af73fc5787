// Layouts 147 and 10000: the configurable assistant, and the window with the help of one of its rows.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"
#include "wizard/resources/string_table.h"

#include <array>

namespace krt550 {
namespace {

/// Rows `first` to `first + 19`; their registers come from the text file.
constexpr std::array<RowDef, kConfigurableEdits> Column(int first, RowKind kind) {
    std::array<RowDef, kConfigurableEdits> rows{};
    for (int n = first; RowDef & row : rows) {
        row.kind = kind;
        row.statics = StaticsShown::None;
        row.ids = {.label = ConfigurableLabelId(n), .value = ConfigurableValueId(n)};
        ++n;
    }
    return rows;
}

constexpr auto kEdits = Column(1, RowKind::Edit);
constexpr auto kLists = Column(kConfigurableEdits + 1, RowKind::List);
constexpr RowGroupDef kGroups[] = {{.rows = kEdits}, {.rows = kLists}};
static_assert(IsSound(kGroups));

constexpr RowColumns kLeft{.label = 12, .labelWidth = 140, .value = 154, .valueWidth = 62};
constexpr RowColumns kRight{.label = 256, .labelWidth = 128, .value = 386, .valueWidth = 88};
constexpr int kHelpWidth = 14;
constexpr int kHelpGap = 3;
constexpr int kFirstRow = 20;
constexpr int kStep = 13;
/// A gap after every few rows lets the eye count.
constexpr int kBlock = 5;
constexpr int kBlockGap = 3;
constexpr int kRowHeight = 12;

void AddColumn(CLayoutBuilder& layout, std::span<const RowDef> rows, int first, const RowColumns& columns) {
    int y = kFirstRow;
    for (int n = first; const RowDef& row : rows) {
        layout.Row(row, y, columns, columns.valueWidth, kRowHeight);
        layout.Add({.id = ConfigurableHelpId(n),
                    .kind = ControlKind::PushButton,
                    .rect = {columns.value + columns.valueWidth + kHelpGap, y, kHelpWidth, kRowHeight},
                    .text = QStringLiteral("?"),
                    .name = QStringLiteral("Help on row %1").arg(n)});
        ++n;
        y += kStep + ((n - first) % kBlock == 0 ? kBlockGap : 0);
    }
}

} // namespace

constinit const PageRows kConfigurableRows{.layout = 147, .groups = kGroups, .update = UpdateWhen::Always};

DialogLayout ConfigurableLayout() {
    CLayoutBuilder layout(147, kPageWidth, kPageHeight);
    layout.Add({.id = kIdConfigurableGroup, .kind = ControlKind::GroupBox, .rect = {6, 2, 493, 290}});
    layout.Add({.id = ActualHeadingId(0),
                .rect = {kLeft.value, 11, kLeft.valueWidth, 9},
                .text = StringTableText(223).value_or(QString())});
    AddColumn(layout, kEdits, 1, kLeft);
    AddColumn(layout, kLists, kConfigurableEdits + 1, kRight);
    return layout.BottomRow(false).Take();
}

DialogLayout RowHelpLayout() {
    constexpr int kWidth = 182;
    constexpr int kHeight = 41;
    return CLayoutBuilder(10000, kWidth, kHeight, StringTableText(30).value_or(QString()))
        .Add({.id = kIdHelpText,
              .kind = ControlKind::MultilineText,
              .rect = {0, 0, kWidth, kHeight},
              .name = QStringLiteral("Help on the row")})
        .Take();
}

} // namespace krt550
