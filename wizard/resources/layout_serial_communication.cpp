// Layouts 146, 7118 and 7119: the serial communication assistant and its tabs.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"
#include "wizard/resources/pointer_parts.h"
#include "wizard/resources/string_table.h"

namespace krt550 {
namespace {

constexpr int kRow = 12; ///< height of the controls of a row on a tab

constexpr RowDef kGeneral[] = {{.reg = 9802, .kind = RowKind::List}, {.reg = 5001}};
constexpr RowGroupDef kGeneralGroups[] = {{.caption = "Set general parameters", .rows = kGeneral}};
// Both rows side by side: the tabs need the height.
constexpr RowColumns kModule{.label = 14, .labelWidth = 76, .value = 92, .valueWidth = 100};
constexpr int kModuleList = 112;
constexpr RowColumns kScaling{.label = 222,
                              .labelWidth = 108,
                              .value = 334,
                              .valueWidth = 44,
                              .unit = 384,
                              .unitWidth = 20,
                              .minimum = 408,
                              .maximum = 450,
                              .limitWidth = 40};

constexpr std::size_t kLeftRows = 17;
constexpr quint16 kFirstAdapterRegister = 5101;

template <std::size_t N> constexpr std::array<RowDef, N> AdapterRows(int first) {
    std::array<RowDef, N> rows{};
    for (int reg = first; RowDef & row : rows) {
        row.reg = static_cast<quint16>(reg++);
        row.statics = StaticsShown::None;
    }
    if (first == kFirstAdapterRegister)
        rows[0].caption = "Module type";
    return rows;
}

constexpr auto kLeft = AdapterRows<kLeftRows>(kFirstAdapterRegister);
constexpr auto kRight = AdapterRows<16>(kFirstAdapterRegister + kLeftRows);
constexpr RowGroupDef kAdapterGroups[] = {{.rows = kLeft}, {.rows = kRight}};
constexpr int kTabWidth = 487;
constexpr int kTabHeight = 220;
constexpr int kAdapterX[] = {6, 248};
constexpr int kAdapterFirstRow = 12;
constexpr RowColumns AdapterColumns(int x) {
    return {.label = x, .labelWidth = 152, .value = x + 154, .valueWidth = 68};
}

constexpr int kDatasetRowCount = 12;
constexpr int kRowsPerDataset = 3;
constexpr auto kWords = PointerRowDefs<kDatasetRowCount>();
constexpr RowGroupDef kWordGroups[] = {{.rows = std::span(kWords).first<3>()},
                                       {.rows = std::span(kWords).subspan<3, 3>()},
                                       {.rows = std::span(kWords).subspan<6, 3>()},
                                       {.rows = std::span(kWords).last<3>()}};
constexpr PointerColumns kWordColumns{
    {.label = 10, .labelWidth = 124, .value = 138, .valueWidth = 50, .unit = 372, .unitWidth = 32}, 162, 304, 64};
static_assert(IsSound(kGeneralGroups) && IsSound(kAdapterGroups) && IsSound(kWordGroups));

} // namespace

constinit const PageRows kSerialRows{.layout = 146, .groups = kGeneralGroups, .update = UpdateWhen::Always};
constinit const PageRows kFieldbusRows{.layout = 7118, .groups = kAdapterGroups, .describedByName = true};
constinit const PageRows kDatasetRows{.layout = 7119, .groups = kWordGroups};

DialogLayout SerialCommunicationLayout() {
    return CLayoutBuilder(146, kPageWidth, kPageHeight)
        .Group(0, {7, 2, 491, 39}, QString::fromLatin1(kGeneralGroups[0].caption))
        .Headings(0, 12, kScaling)
        .Row(kGeneral[0], 23, kModule, kModuleList)
        .Row(kGeneral[1], 23, kScaling, 0)
        .Add({.id = kIdTabPlaceholder, .kind = ControlKind::Placeholder, .rect = {7, 44, 491, 10}})
        .BottomRow(false)
        .Take();
}

DialogLayout FieldbusTabLayout() {
    CLayoutBuilder layout(7118, kTabWidth, kTabHeight);
    int y = 0;
    for (int column = 0; const RowGroupDef& group : kAdapterGroups) {
        const RowColumns columns = AdapterColumns(kAdapterX[column]);
        layout.Add({.id = ActualHeadingId(column),
                    .rect = {columns.value, 1, columns.valueWidth, 10},
                    .text = StringTableText(223).value_or(QString())});
        y = kAdapterFirstRow;
        for (const RowDef& row : group.rows) {
            layout.Row(row, y, columns, 0, kRow);
            y += kRow;
        }
        ++column;
    }
    // The right column has one row less.
    return layout
        .Add({.id = kIdFieldbusDefaults,
              .kind = ControlKind::PushButton,
              .rect = {kAdapterX[1] + 96, y + 1, 126, 14},
              .text = QStringLiteral("Fieldbus adapter configuration")})
        .Take();
}

DialogLayout DatasetTabLayout() {
    constexpr int kFirstGroup = 14;
    constexpr int kGroupHeight = 50;
    constexpr int kGroupStep = 51;
    constexpr int kFirstRow = 10;
    CLayoutBuilder layout(7119, kTabWidth, kTabHeight);
    AddPointerHeadings(layout, 3, kWordColumns, StringTableText(223).value_or(QString()));
    for (int number = 1; const RowDef& row : kWords) {
        const int group = (number - 1) / kRowsPerDataset;
        const int top = kFirstGroup + group * kGroupStep;
        if ((number - 1) % kRowsPerDataset == 0)
            layout.Group(group, {2, top, kTabWidth - 6, kGroupHeight}, {});
        AddPointerRow(layout, row, number, top + kFirstRow + (number - 1) % kRowsPerDataset * (kRow + 1), kWordColumns,
                      kRow);
        ++number;
    }
    AddPointerView(layout, {411, 1, 70, 13});
    return layout.Take();
}

} // namespace krt550
