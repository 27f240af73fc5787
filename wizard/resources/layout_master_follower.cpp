// Layouts 138 and 148: the master-follower assistant and the tab of one of its mailboxes.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"
#include "wizard/resources/pointer_parts.h"

namespace krt550 {
namespace {

constexpr RowDef kNode[] = {{.reg = 9401}};
constexpr RowGroupDef kNodeGroups[] = {{.caption = "Set node ID armature converter", .rows = kNode}};

constexpr RowDef kId[] = {{.label = "Node ID",
                           .ids = {.label = kIdMailBoxLabel,
                                   .value = kIdMailBoxId,
                                   .unit = kIdMailBoxUnit,
                                   .minimum = kIdMailBoxMinimum,
                                   .maximum = kIdMailBoxMaximum}}};
constexpr auto kWords = PointerRowDefs<4>();
constexpr RowGroupDef kMailBoxGroups[] = {{.rows = kId}, {.headings = false, .rows = kWords}};
static_assert(IsSound(kNodeGroups) && IsSound(kMailBoxGroups));

constexpr int kTabWidth = 304;
constexpr int kTabHeight = 122;
constexpr RowColumns kIdColumns{.label = 6,
                                .labelWidth = 82,
                                .value = 90,
                                .valueWidth = 44,
                                .unit = 138,
                                .unitWidth = 26,
                                .minimum = 168,
                                .maximum = 220,
                                .limitWidth = 48};
constexpr PointerColumns kWordColumns{
    {.label = 6, .labelWidth = 82, .value = 90, .valueWidth = 44, .unit = 268, .unitWidth = 34}, 126, 219, 47};

} // namespace

constinit const PageRows kMasterFollowerRows{.layout = 138, .groups = kNodeGroups, .update = UpdateWhen::Always};
constinit const PageRows kMailBoxRows{.layout = 148, .groups = kMailBoxGroups};

DialogLayout MasterFollowerLayout() {
    static constexpr int kPictures[] = {10027};
    CLayoutBuilder layout(138, kPageWidth, kPageHeight);
    layout.Pictures(kPictures);
    CRowStack(layout, kMasterFollowerRows, kPageStyle, kRowsTop, kRowsBottom).AddGroup();
    return layout.Add({.id = kIdTabPlaceholder, .kind = ControlKind::Placeholder, .rect = {119, 54, 310, 10}})
        .Add({.id = kIdMailBoxPicture, .kind = ControlKind::Picture, .rect = {115, 204, 383, 74}, .picture = 10054})
        .BottomRow(false)
        .Take();
}

DialogLayout MailBoxTabLayout() {
    CLayoutBuilder layout(148, kTabWidth, kTabHeight);
    layout.Headings(0, 2, kIdColumns).Row(kId[0], 13, kIdColumns, 0);
    AddPointerHeadings(layout, 31, kWordColumns, QStringLiteral("Actual value"));
    constexpr int kFirstRow = 42;
    constexpr int kStep = 16;
    for (int number = 1; const RowDef& row : kWords) {
        AddPointerRow(layout, row, number, kFirstRow + (number - 1) * kStep, kWordColumns, kRowHeight);
        ++number;
    }
    AddPointerView(layout, {230, 107, 70, 14});
    return layout.Take();
}

} // namespace krt550
