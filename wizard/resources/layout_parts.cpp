#include "wizard/resources/layout_parts.h"

#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/string_table.h"

namespace krt550 {
namespace {

constexpr int kRowHeight = 14;
constexpr int kTextHeight = 14;

} // namespace

CLayoutBuilder::CLayoutBuilder(int number, int width, int height, const QString& caption) {
    m_layout.number = number;
    m_layout.width = width;
    m_layout.height = height;
    m_layout.caption = caption;
}

CLayoutBuilder& CLayoutBuilder::Add(ControlLayout control) {
    m_layout.controls.push_back(std::move(control));
    return *this;
}

CLayoutBuilder& CLayoutBuilder::Group(int k, const DialogRect& rect, const QString& caption) {
    return Add({.id = GroupId(k), .kind = ControlKind::GroupBox, .rect = rect, .text = caption});
}

CLayoutBuilder& CLayoutBuilder::Headings(int k, int y, const RowColumns& columns) {
    const auto heading = [&](int id, int x, int width, int text) {
        Add({.id = id, .rect = {x, y, width, 10}, .text = StringTableText(text).value_or(QString())});
    };
    heading(ActualHeadingId(k), columns.value, columns.valueWidth, 223);
    heading(UnitHeadingId(k), columns.unit, columns.unitWidth, 224);
    heading(MinimumHeadingId(k), columns.minimum, columns.limitWidth, 225);
    heading(MaximumHeadingId(k), columns.maximum, columns.limitWidth, 227);
    return *this;
}

CLayoutBuilder& CLayoutBuilder::EditRow(quint16 reg, const QString& label, int y, const RowColumns& columns) {
    Add({.id = LabelId(reg),
         .rect = {columns.label, y, columns.labelWidth, kTextHeight},
         .text = label,
         .buddy = ValueId(reg)});
    Add({.id = ValueId(reg),
         .kind = ControlKind::Edit,
         .rect = {columns.value, y, columns.valueWidth, kRowHeight},
         .reg = reg});
    Add({.id = UnitId(reg), .rect = {columns.unit, y, columns.unitWidth, kTextHeight}});
    Add({.id = MinimumId(reg), .rect = {columns.minimum, y, columns.limitWidth, kTextHeight}});
    return Add({.id = MaximumId(reg), .rect = {columns.maximum, y, columns.limitWidth, kTextHeight}});
}

CLayoutBuilder& CLayoutBuilder::ListRow(quint16 reg, const QString& label, int y, const RowColumns& columns,
                                        int listWidth) {
    Add({.id = LabelId(reg),
         .rect = {columns.label, y, columns.labelWidth, kTextHeight},
         .text = label,
         .buddy = ValueId(reg)});
    return Add({.id = ValueId(reg),
                .kind = ControlKind::DropDown,
                .rect = {columns.value, y, listWidth, kRowHeight},
                .reg = reg});
}

CLayoutBuilder& CLayoutBuilder::DisplayRow(quint16 reg, const QString& label, int y, const RowColumns& columns,
                                           int valueWidth) {
    Add({.id = LabelId(reg), .rect = {columns.label, y, columns.labelWidth, kTextHeight}, .text = label});
    return Add({.id = ValueId(reg), .rect = {columns.value, y, valueWidth, kTextHeight}, .reg = reg});
}

int CLayoutBuilder::RowGroup(int k, int y, const QString& caption, std::span<const LayoutRow> rows,
                             const RowGroupStyle& style) {
    const int height = style.firstRow + static_cast<int>(rows.size()) * style.step + style.bottom;
    Group(k, {style.x, y, style.width, height}, caption);
    Headings(k, y + style.headings, style.columns);
    int rowY = y + style.firstRow;
    for (const LayoutRow& row : rows) {
        const QString label = QString::fromLatin1(row.label);
        if (row.kind == LayoutRowKind::Edit)
            EditRow(row.reg, label, rowY, style.columns);
        else if (row.kind == LayoutRowKind::List)
            ListRow(row.reg, label, rowY, style.columns, style.listWidth);
        else
            DisplayRow(row.reg, label, rowY, style.columns, style.listWidth);
        rowY += style.step;
    }
    return y + height;
}

CLayoutBuilder& CLayoutBuilder::BottomRow(bool withDigits, int resetX) {
    const auto button = [&](int id, int x, int text, ControlKind kind = ControlKind::PushButton) {
        Add({.id = id,
             .kind = kind,
             .rect = {x, 299, 50, 14},
             .text = StringTableText(text).value_or(QString()),
             .mnemonic = true});
    };
    button(kIdHelp, 18, 30);
    if (withDigits) {
        Add({.id = kIdStepsDoneGroup, .kind = ControlKind::GroupBox, .rect = {83, 281, 174, 38}});
        Add({.id = kIdStepsDoneLabel, .rect = {91, 289, 160, 10}, .text = StringTableText(16).value_or(QString())});
        constexpr int kDigitX[7] = {103, 123, 143, 164, 183, 203, 223};
        for (int i = 0; i < 7; ++i)
            Add({.id = kStepIconIds[i], .kind = ControlKind::Icon, .rect = {kDigitX[i], 300, 20, 20}});
    }
    Add({.id = kIdReset, .kind = ControlKind::Custom, .rect = {resetX, 299, 18, 14}});
    button(kIdApply, 288, 32);
    button(kIdBack, 343, 34);
    button(kIdNext, 393, 33, ControlKind::DefaultButton);
    button(kIdCancelPage, 448, 36);
    return *this;
}

} // namespace krt550
