// Layouts 101 and 134: step 2, the application macro, and the I/O assistant; what the terminals do is shown by both.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"
#include "wizard/resources/string_table.h"
#include "wizard/resources/terminal_overview.h"

namespace krt550 {
namespace {

constexpr int kTop = 4;
constexpr int kHeight = 107; // of what lies above the overview

constexpr RowColumns kDependentColumns{.label = 179,
                                       .labelWidth = 156,
                                       .value = 337,
                                       .valueWidth = 48,
                                       .unit = 389,
                                       .unitWidth = 22,
                                       .minimum = 413,
                                       .maximum = 454,
                                       .limitWidth = 40};
constexpr int kDependentListWidth = 117;
constexpr int kDependentStep = 14;

/// The k-th row; its register depends on the macro.
constexpr RowDef DependentRow(int k) {
    const int id = kIdFirstDependentRow + 10 * k;
    return {
        .kind = RowKind::EditOrList,
        .label = "Macro dependent parameter",
        .hidden = true,
        .ids = {.label = id, .value = id + 1, .unit = id + 2, .minimum = id + 3, .maximum = id + 4, .list = id + 5}};
}

constexpr RowDef kMacro[] = {{.reg = 9908, .kind = RowKind::List, .label = "Application macro"}};
constexpr RowDef kDependent[] = {DependentRow(0), DependentRow(1), DependentRow(2),
                                 DependentRow(3), DependentRow(4), DependentRow(5)};
static_assert(std::size(kDependent) == kDependentRows);
constexpr RowGroupDef kGroups[] = {{.caption = "Set general parameter", .headings = false, .rows = kMacro},
                                   {.caption = "Macro dependent parameters", .rows = kDependent}};
static_assert(IsSound(kGroups));

QString Caption(const RowGroupDef& group) {
    return QString::fromLatin1(group.caption);
}

void AddMacro(CLayoutBuilder& layout) {
    constexpr int kX = 13, kWidth = 151;
    layout.Group(0, {7, kTop, 163, kHeight}, Caption(kGroups[0]));
    layout.Add({.id = LabelId(9908),
                .rect = {kX, kTop + 11, kWidth, 10},
                .text = QString::fromLatin1(kMacro[0].label),
                .buddy = ValueId(9908)});
    layout.Add({.id = ValueId(9908), .kind = ControlKind::DropDown, .rect = {kX, kTop + 21, kWidth, 14}, .reg = 9908});
    layout.Add({.id = kIdMacroDescriptionLabel,
                .rect = {kX, kTop + 40, 100, 10},
                .text = QStringLiteral("Description of selected macro:"),
                .buddy = kIdMacroDescription});
    layout.Add({.id = kIdMacroView,
                .kind = ControlKind::PushButton,
                .rect = {kX + kWidth - 48, kTop + 38, 48, 14},
                .text = StringTableText(14).value_or(QString())});
    layout.Add(
        {.id = kIdMacroDescription, .kind = ControlKind::MultilineText, .rect = {kX, kTop + 54, kWidth, kHeight - 57}});
}

void AddDependentRows(CLayoutBuilder& layout) {
    layout.Group(1, {173, kTop, 325, kHeight}, Caption(kGroups[1]));
    layout.Headings(1, kTop + 10, kDependentColumns);
    int y = kTop + 21;
    for (const RowDef& row : kDependent) {
        layout.Row(row, y, kDependentColumns, kDependentListWidth);
        y += kDependentStep;
    }
}

} // namespace

constinit const PageRows kMacroRows{.layout = 101, .groups = kGroups};

DialogLayout MacroLayout() {
    CLayoutBuilder layout(101, kPageWidth, kPageHeight);
    AddMacro(layout);
    AddDependentRows(layout);
    AddTerminalOverview(layout, {.top = kTop + kHeight + 2, .line = 9, .header = 14, .pictures = 0});
    return layout.BottomRow(true).Take();
}

DialogLayout TerminalsLayout() {
    CLayoutBuilder layout(134, kPageWidth, kPageHeight);
    AddTerminalOverview(layout, {.top = kTop, .line = 17, .header = 17, .pictures = 42});
    return layout.BottomRow(false).Take();
}

} // namespace krt550
