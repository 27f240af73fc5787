#pragma once

#include "wizard/platform/pointer_ids.h"
#include "wizard/resources/layout_parts.h"

#include <array>

/// What the windows whose rows point to parameters have in common. Measures in dialog units.
namespace krt550 {

/// Rows 1 to N; their registers are given at run time.
template <std::size_t N> constexpr std::array<RowDef, N> PointerRowDefs() {
    std::array<RowDef, N> rows{};
    for (int n = 1; RowDef & row : rows) {
        row.kind = RowKind::Index;
        row.label = "Pointer";
        row.statics = StaticsShown::None;
        row.ids = {.label = PointerId(n, kPointerLabel),
                   .value = PointerId(n, kPointerIndex),
                   .list = PointerId(n, kPointerChoice)};
        ++n;
    }
    return rows;
}

/// Columns of the rows; the unit is that of what a row points to.
struct PointerColumns {
    RowColumns row;
    int listWidth;
    int actual;
    int actualWidth;
};

/// "Index", the heading of the actual values, and "Unit".
void AddPointerHeadings(CLayoutBuilder& layout, int y, const PointerColumns& columns, const QString& actual);
/// Row `number` (from 1).
void AddPointerRow(CLayoutBuilder& layout, const RowDef& row, int number, int y, const PointerColumns& columns,
                   int height);
/// The button for the view.
void AddPointerView(CLayoutBuilder& layout, const DialogRect& rect);

} // namespace krt550
