#pragma once

#include "wizard/platform/row_ids.h"

#include <span>

namespace krt550 {

/// A window's parameter rows as one table. The layout is built from it (resources), and the row table binds the rows by
/// it (params): groups in their order on the screen, rows from top to bottom.

enum class RowKind {
    Edit,       ///< label, edit, statics
    List,       ///< label, drop-down, and the statics that the table asks for
    EditOrList, ///< edit and drop-down on top of each other: a value list shows the drop-down
    Index,      ///< the same for a pointer and the names of what it can point to; its window binds it itself
    Display     ///< label, value static, and the statics that the table asks for; never written
};

/// Which statics stand behind the value.
enum class StaticsShown : unsigned char {
    ByKind, ///< an edit has all of them, anything else none
    None,
    Unit,
    Limits,
    All
};

/// A parameter that the drive lacks.
enum class WhenMissing {
    Disable, ///< the value control is empty and disabled, the label keeps its text
    Hide     ///< label and value control are hidden
};

/// Control ids of a row; all 0: by its register (row_ids.h).
struct RowIds {
    int label = 0;
    int value = 0;
    int unit = 0;
    int minimum = 0;
    int maximum = 0;
    int list = 0; ///< EditOrList and Index: the drop-down; `value` is the edit

    bool operator==(const RowIds&) const = default;
};

struct RowDef {
    quint16 reg = 0; ///< 0: given at run time (CRow::SetRegister); the ids are given then
    RowKind kind = RowKind::Edit;
    /// Label while the drive lacks the parameter; without one the register. Otherwise the parameter's name is shown.
    const char* label = "";
    const char* caption = ""; ///< shown in place of the parameter's name
    StaticsShown statics = StaticsShown::ByKind;
    /// Rows are bound by their rank, those of one rank from top to bottom; written likewise.
    int bindRank = 0;
    int writeRank = 0;
    bool numbered = true;   ///< the label begins with the register
    bool refreshed = false; ///< Display: follows the drive as the other rows do
    bool hidden = false;    ///< until CRow::Show
    WhenMissing whenMissing = WhenMissing::Disable;
    int above = 0; ///< dialog units kept free above the row, for other controls
    RowIds ids = {};
};

struct RowGroupDef {
    const char* caption = ""; ///< of the frame; none: no frame
    bool headings = true;     ///< "Actual", "Unit", "Min", "Max"
    std::span<const RowDef> rows = {};
};

/// When a load that has bound the rows starts the cyclic update.
enum class UpdateWhen {
    AllRead,  ///< every row that the drive has was read
    AllFound, ///< and the drive lacks none
    Always
};

struct PageRows {
    int layout = 0;
    std::span<const RowGroupDef> groups = {};
    UpdateWhen update = UpdateWhen::AllRead;
    /// The labels' tool tips are the parameters' names: what they mean is up to the module that is mounted.
    bool describedByName = false;
    std::span<const quint16> others = {}; ///< registers whose controls the window binds itself
};

constexpr bool HasUnit(const RowDef& row) {
    return row.statics == StaticsShown::All || row.statics == StaticsShown::Unit ||
           (row.statics == StaticsShown::ByKind && (row.kind == RowKind::Edit || row.kind == RowKind::EditOrList));
}

constexpr bool HasLimits(const RowDef& row) {
    return row.statics == StaticsShown::All || row.statics == StaticsShown::Limits ||
           (row.statics == StaticsShown::ByKind && (row.kind == RowKind::Edit || row.kind == RowKind::EditOrList));
}

/// Ids of a row's controls; 0 for those that it has not.
constexpr RowIds IdsOf(const RowDef& row) {
    if (row.ids != RowIds{})
        return row.ids;
    const quint16 reg = row.reg;
    return {LabelId(reg),
            ValueId(reg),
            HasUnit(row) ? UnitId(reg) : 0,
            HasLimits(row) ? MinimumId(reg) : 0,
            HasLimits(row) ? MaximumId(reg) : 0,
            0};
}

/// For static_assert on a table: no register stands in it twice, and rows without a register have ids.
constexpr bool IsSound(std::span<const RowGroupDef> groups) {
    for (std::size_t g = 0; g < groups.size(); ++g)
        for (std::size_t r = 0; r < groups[g].rows.size(); ++r) {
            const RowDef& row = groups[g].rows[r];
            if (row.reg == 0 && row.ids.value == 0)
                return false;
            if ((row.kind == RowKind::EditOrList || row.kind == RowKind::Index) && row.ids.list == 0)
                return false;
            for (std::size_t h = 0; h <= g; ++h)
                for (std::size_t s = 0; s < (h == g ? r : groups[h].rows.size()); ++s)
                    if (row.reg != 0 && groups[h].rows[s].reg == row.reg)
                        return false;
        }
    return true;
}

} // namespace krt550
