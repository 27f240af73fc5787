#pragma once

#include "wizard/platform/dialog_layout.h"

#include <span>

namespace krt550 {

/// Size of every page, in dialog units.
inline constexpr int kPageWidth = 505;
inline constexpr int kPageHeight = 326;

/// Columns of the parameter rows of a page: left edges and widths in dialog units.
struct RowColumns {
    int label;
    int labelWidth;
    int value;
    int valueWidth;
    int unit;
    int unitWidth;
    int minimum;
    int maximum;
    int limitWidth;
};

/// Columns of a page with pictures on its left.
inline constexpr RowColumns kPageColumns = {.label = 122,
                                            .labelWidth = 136,
                                            .value = 262,
                                            .valueWidth = 60,
                                            .unit = 330,
                                            .unitWidth = 32,
                                            .minimum = 366,
                                            .maximum = 432,
                                            .limitWidth = 60};

enum class LayoutRowKind { Edit, List, Display };

/// One parameter row of a layout.
struct LayoutRow {
    quint16 reg;
    const char* label;
    LayoutRowKind kind = LayoutRowKind::Edit;
};

/// Where the parts of a group of rows lie.
struct RowGroupStyle {
    RowColumns columns;
    int x;
    int width;
    int listWidth;
    int headings; ///< y of the headings, from the group's top
    int firstRow; ///< y of the first row
    int step;     ///< from row to row
    int bottom;   ///< below the last row's step
};

/// Builds the layout of a page from parts.
class CLayoutBuilder {
public:
    CLayoutBuilder(int number, int width, int height, const QString& caption = {});

    CLayoutBuilder& Add(ControlLayout control);
    /// Group box number `k` of the page, with its caption.
    CLayoutBuilder& Group(int k, const DialogRect& rect, const QString& caption);
    /// Headings "Actual", "Unit", "Min", "Max" of group `k`.
    CLayoutBuilder& Headings(int k, int y, const RowColumns& columns);
    /// Label, edit, unit, minimum and maximum of a register.
    CLayoutBuilder& EditRow(quint16 reg, const QString& label, int y, const RowColumns& columns);
    /// Label and drop-down list of a register.
    CLayoutBuilder& ListRow(quint16 reg, const QString& label, int y, const RowColumns& columns, int listWidth);
    /// Label and value static of a register that is only shown.
    CLayoutBuilder& DisplayRow(quint16 reg, const QString& label, int y, const RowColumns& columns, int valueWidth);
    /// Group box number `k` with headings and rows; returns the y of its bottom.
    int RowGroup(int k, int y, const QString& caption, std::span<const LayoutRow> rows, const RowGroupStyle& style);
    /// Bottom row of every page; the digits of the steps only where `withDigits`.
    CLayoutBuilder& BottomRow(bool withDigits, int resetX = 266);

    DialogLayout Take() { return std::move(m_layout); }

private:
    DialogLayout m_layout;
};

} // namespace krt550
