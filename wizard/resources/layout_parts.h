#pragma once

#include "wizard/platform/dialog_layout.h"
#include "wizard/platform/row_groups.h"

#include <functional>

namespace krt550 {

/// Size of every page, in dialog units.
inline constexpr int kPageWidth = 505;
inline constexpr int kPageHeight = 326;

/// Height of a row's controls.
inline constexpr int kRowHeight = 14;

/// Columns of the parameter rows of a page: left edges and widths in dialog units.
struct RowColumns {
    int label;
    int labelWidth;
    int value;
    int valueWidth;
    int unit = 0;
    int unitWidth = 0;
    int minimum = 0;
    int maximum = 0;
    int limitWidth = 0;
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

/// How the groups of rows of a window are drawn.
struct RowGroupStyle {
    RowColumns columns;
    int x; ///< of the frames
    int width;
    int listWidth;
    int headings;      ///< y of the headings, from the group's top
    int firstRow;      ///< y of the first row below headings
    int firstRowAlone; ///< y of the first row without headings
    int step;          ///< from row to row at most; less where the window is full
    int bottom;        ///< below the last row's step
    int gap;           ///< between groups
};

/// Groups of rows on a page with pictures on its left, and where they may lie above the page's bottom row.
inline constexpr RowGroupStyle kPageStyle{.columns = kPageColumns,
                                          .x = 115,
                                          .width = 383,
                                          .listWidth = 160,
                                          .headings = 10,
                                          .firstRow = 22,
                                          .firstRowAlone = 12,
                                          .step = 17,
                                          .bottom = 4,
                                          .gap = 3};
inline constexpr int kRowsTop = 4;
inline constexpr int kRowsBottom = 279;

/// Pages that are nothing but tabs beside pictures: where the tabs begin, size of a tab, and the rows on it.
inline constexpr DialogRect kTabsPlaceholder{119, 6, 379, 10};
inline constexpr int kWideTabWidth = 376;
inline constexpr int kWideTabHeight = 250;
inline constexpr RowGroupStyle kWideTabStyle{.columns = {.label = 8,
                                                         .labelWidth = 154,
                                                         .value = 164,
                                                         .valueWidth = 52,
                                                         .unit = 220,
                                                         .unitWidth = 28,
                                                         .minimum = 251,
                                                         .maximum = 312,
                                                         .limitWidth = 57},
                                             .x = 2,
                                             .width = 371,
                                             .listWidth = 204,
                                             .headings = 10,
                                             .firstRow = 21,
                                             .firstRowAlone = 12,
                                             .step = 17,
                                             .bottom = 3,
                                             .gap = 3};

/// Builds the layout of a page from parts.
class CLayoutBuilder {
public:
    CLayoutBuilder(int number, int width, int height, const QString& caption = {});

    CLayoutBuilder& Add(ControlLayout control);
    /// Group box number `k` of the page, with its caption.
    CLayoutBuilder& Group(int k, const DialogRect& rect, const QString& caption);
    /// The pictures on the left of a page, evenly spread from top to bottom.
    CLayoutBuilder& Pictures(std::span<const int> pictures);
    /// Headings "Actual", "Unit", "Min", "Max" of group `k`.
    CLayoutBuilder& Headings(int k, int y, const RowColumns& columns);
    /// The controls of one row, all hidden ones included.
    CLayoutBuilder& Row(const RowDef& row, int y, const RowColumns& columns, int listWidth, int height = kRowHeight);
    /// Bottom row of every page; the digits of the steps only where `withDigits`.
    CLayoutBuilder& BottomRow(bool withDigits, int resetX = 266);

    /// Bottom row of a settings dialog as wide as a page: Help, Apply, Close and Cancel.
    CLayoutBuilder& DialogButtons(int y);

    DialogLayout Take() { return std::move(m_layout); }

private:
    DialogLayout m_layout;
};

/// Stacks the groups of a table of rows from top to bottom, with room for other controls in between. Heights, gaps and
/// frames follow from the rows; when there are too many for the style's step, they move together.
class CRowStack {
public:
    /// The stack lies between `top` and `bottom`; `others` is what AddSpace and AddFrame will take of it in all.
    CRowStack(CLayoutBuilder& layout, const PageRows& rows, const RowGroupStyle& style, int top, int bottom,
              int others = 0);

    /// The next group of the table. `addAbove` adds what stands in the free room above a row, given its y.
    void AddGroup(const std::function<void(int y)>& addAbove = {});
    void AddGroups(std::size_t count);
    /// Free room between the groups; returns its y.
    int AddSpace(int height);
    /// The same inside a frame, which counts as a group of its own (GroupId); the gap below comes on top of the height.
    int AddFrame(int height, const QString& caption);

private:
    int FirstRow(const RowGroupDef& group) const;

    CLayoutBuilder& m_layout;
    const PageRows& m_rows;
    const RowGroupStyle& m_style;
    int m_y;
    int m_step;
    int m_number = 0; ///< of the next frame
    std::size_t m_nextGroup = 0;
};

} // namespace krt550
