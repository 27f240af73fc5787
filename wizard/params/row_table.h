#pragma once

#include <QString>

#include <functional>
#include <span>
#include <string_view>
#include <vector>

class QWidget;

namespace krt550 {

class CParameter;
class CParameterGroup;
class CWindow;

enum class RowKind {
    Edit,   ///< label, edit, unit, minimum, maximum
    List,   ///< label, drop-down, and the same statics where the layout has them
    Display ///< label, value static, unit; never written
};

/// Control ids of a row where a layout gives them; all 0: derived from the register (platform/row_ids.h).
struct RowIds {
    int label = 0;
    int value = 0;
    int unit = 0;
    int minimum = 0;
    int maximum = 0;
};

/// One row of a page's table.
struct RowDef {
    std::string_view reg; ///< register text, "9906"
    RowKind kind = RowKind::Edit;
    RowIds ids = {};
};

/// For static_assert on a page's table: no register stands in it twice.
constexpr bool HasUniqueRegisters(std::span<const RowDef> rows) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        for (std::size_t k = i + 1; k < rows.size(); ++k)
            if (rows[i].reg == rows[k].reg)
                return false;
    return true;
}

/// The parameter rows of one window, from its table: bound and written in the table's order, marked when the user
/// changes them, checked when an edit loses the focus.
class CRowTable {
public:
    /// Sets the window's handlers for its rows. `rows` and `window` outlive the table.
    CRowTable(CWindow& window, std::span<const RowDef> rows);

    /// Binds every row, each attempted whatever became of the others; true when all succeeded.
    bool Bind(CParameterGroup* root, QString& errors);
    /// The same for `count` rows from row `first`.
    bool Bind(CParameterGroup* root, QString& errors, std::size_t first, std::size_t count);
    /// Writes every changed row, each attempted; true when all succeeded.
    bool Write();
    /// The same for `count` rows from row `first`.
    bool Write(std::size_t first, std::size_t count);
    /// Without a drive: no row has a parameter, and nothing can be typed that would be lost.
    void Unbind();
    /// Reads rows from the drive into their controls, in place of what was typed; true when all succeeded.
    bool Reread(std::size_t first, std::size_t count);
    /// Forgets what the user changed on the rows.
    void Unmark() const;
    /// Gives every label the wizard text file's tool tip of its register.
    void AttachToolTips(const std::function<void(int labelId, const QString& text)>& addToolTip) const;

    std::size_t size() const { return m_rows.size(); }
    /// The row's parameter; null until bound and when the drive lacks it.
    CParameter* GetParameter(std::size_t row) const { return m_parameters[row]; }
    QWidget* GetValueControl(std::size_t row) const;

private:
    bool BindRow(CParameterGroup* root, QString& errors, std::size_t row);
    RowIds IdsOf(std::size_t row) const;
    void Validate(std::size_t row) const;

    CWindow& m_window;
    std::span<const RowDef> m_rows;
    std::vector<CParameter*> m_parameters;
};

} // namespace krt550
