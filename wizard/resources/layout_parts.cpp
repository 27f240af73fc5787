#include "wizard/resources/layout_parts.h"

#include "wizard/resources/control_ids.h"
#include "wizard/resources/string_table.h"

#include <algorithm>
#include <utility>

namespace krt550 {
namespace {

constexpr int kFirstPictureId = 60011;

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

CLayoutBuilder& CLayoutBuilder::Pictures(std::span<const int> pictures) {
    constexpr DialogRect kRoom{7, 6, 102, 272};
    constexpr int kGap = 6;
    const int count = static_cast<int>(pictures.size());
    const int height = (kRoom.height - kGap * (count - 1)) / count;
    for (int i = 0; i < count; ++i)
        Add({.id = kFirstPictureId + i,
             .kind = ControlKind::Picture,
             .rect = {kRoom.x, kRoom.y + i * (height + kGap), kRoom.width, height},
             .picture = pictures[static_cast<std::size_t>(i)]});
    return *this;
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

CLayoutBuilder& CLayoutBuilder::Row(const RowDef& row, int y, const RowColumns& columns, int listWidth, int height) {
    const RowIds ids = IdsOf(row);
    const bool display = row.kind == RowKind::Display;
    const char* text = *row.caption ? row.caption : row.label;
    const QString label = *text ? QString::fromLatin1(text) : row.reg ? QString::number(row.reg) : QString();
    const auto part = [&](int id, ControlKind kind, int x, int width) {
        const bool value = id == ids.value || id == ids.list;
        if (id != 0)
            Add({.id = id,
                 .kind = kind,
                 .rect = {x, y, width, height},
                 .text = id == ids.label ? label : QString(),
                 .buddy = id == ids.label && !display ? ids.value : 0,
                 .reg = value ? row.reg : quint16{0},
                 .name = id == ids.list ? label : QString()});
    };
    const bool wide = row.kind == RowKind::List || (display && !HasUnit(row));
    const ControlKind valueKind = display                     ? ControlKind::Label
                                  : row.kind == RowKind::List ? ControlKind::DropDown
                                                              : ControlKind::Edit;
    part(ids.label, ControlKind::Label, columns.label, columns.labelWidth);
    part(ids.value, valueKind, columns.value, wide ? listWidth : columns.valueWidth);
    part(ids.list, ControlKind::DropDown, columns.value, listWidth);
    part(ids.unit, ControlKind::Label, columns.unit, columns.unitWidth);
    part(ids.minimum, ControlKind::Label, columns.minimum, columns.limitWidth);
    part(ids.maximum, ControlKind::Label, columns.maximum, columns.limitWidth);
    return *this;
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

CLayoutBuilder& CLayoutBuilder::DialogButtons(int y) {
    const auto button = [&](int id, int x, int text, ControlKind kind = ControlKind::PushButton) {
        Add({.id = id,
             .kind = kind,
             .rect = {x, y, 50, 14},
             .text = StringTableText(text).value_or(QString()),
             .mnemonic = id != kIdCloseDialog}); // Alt+C is Cancel, as on the pages
    };
    button(kIdHelp, 18, 30);
    button(kIdApply, 338, 32, ControlKind::DefaultButton);
    button(kIdCloseDialog, 393, 35);
    button(kIdCancelDialog, 448, 36);
    return *this;
}

CRowStack::CRowStack(CLayoutBuilder& layout, const PageRows& rows, const RowGroupStyle& style, int top, int bottom,
                     int others)
    : m_layout(layout), m_rows(rows), m_style(style), m_y(top), m_step(style.step) {
    int fixed = others;
    int count = 0;
    for (const RowGroupDef& group : rows.groups) {
        fixed += FirstRow(group) + style.bottom + style.gap;
        count += static_cast<int>(group.rows.size());
        for (const RowDef& row : group.rows)
            fixed += row.above;
    }
    if (count > 0)
        m_step = std::min(style.step, (bottom - top + style.gap - fixed) / count);
}

int CRowStack::FirstRow(const RowGroupDef& group) const {
    return group.headings ? m_style.firstRow : m_style.firstRowAlone;
}

void CRowStack::AddGroup(const std::function<void(int y)>& addAbove) {
    const RowGroupDef& group = m_rows.groups[m_nextGroup++];
    const int number = m_number++;
    int height = FirstRow(group) + m_style.bottom + static_cast<int>(group.rows.size()) * m_step;
    for (const RowDef& row : group.rows)
        height += row.above;
    if (*group.caption)
        m_layout.Group(number, {m_style.x, m_y, m_style.width, height}, QString::fromLatin1(group.caption));
    if (group.headings)
        m_layout.Headings(number, m_y + m_style.headings, m_style.columns);
    int y = m_y + FirstRow(group);
    for (const RowDef& row : group.rows) {
        if (row.above > 0 && addAbove)
            addAbove(y);
        y += row.above;
        m_layout.Row(row, y, m_style.columns, m_style.listWidth);
        y += m_step;
    }
    m_y += height + m_style.gap;
}

void CRowStack::AddGroups(std::size_t count) {
    while (count-- > 0)
        AddGroup();
}

int CRowStack::AddSpace(int height) {
    return std::exchange(m_y, m_y + height);
}

int CRowStack::AddFrame(int height, const QString& caption) {
    m_layout.Group(m_number++, {m_style.x, m_y, m_style.width, height}, caption);
    return AddSpace(height + m_style.gap);
}

} // namespace krt550
