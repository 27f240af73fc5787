#include "wizard/resources/pointer_parts.h"

#include "wizard/resources/control_ids.h"
#include "wizard/resources/string_table.h"

namespace krt550 {

void AddPointerHeadings(CLayoutBuilder& layout, int y, const PointerColumns& columns, const QString& actual) {
    constexpr int kHeight = 10;
    layout.Add({.id = kIdPointerHeading,
                .rect = {columns.row.value, y, columns.row.valueWidth, kHeight},
                .text = QStringLiteral("Index")});
    layout.Add({.id = kIdActualHeading, .rect = {columns.actual, y, columns.actualWidth, kHeight}, .text = actual});
    layout.Add({.id = kIdUnitHeading,
                .rect = {columns.row.unit, y, columns.row.unitWidth, kHeight},
                .text = StringTableText(224).value_or(QString())});
}

void AddPointerRow(CLayoutBuilder& layout, const RowDef& row, int number, int y, const PointerColumns& columns,
                   int height) {
    layout.Row(row, y, columns.row, columns.listWidth, height);
    layout.Add({.id = PointerId(number, kPointerValue), .rect = {columns.actual, y, columns.actualWidth, height}});
    layout.Add({.id = PointerId(number, kPointerUnit), .rect = {columns.row.unit, y, columns.row.unitWidth, height}});
}

void AddPointerView(CLayoutBuilder& layout, const DialogRect& rect) {
    layout.Add({.id = kIdPointerView,
                .kind = ControlKind::PushButton,
                .rect = rect,
                .text = StringTableText(14).value_or(QString())});
}

} // namespace krt550
