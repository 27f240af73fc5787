#pragma once

#include "wizard/wiring/index_row.h"
#include "wizard/wiring/pointed_parameter.h"

#include <deque>
#include <span>
#include <vector>

namespace krt550 {

struct UpdatePlan;

/// The rows of a window that tie the words of a telegram to parameters: index rows, each with what it points to, and
/// one button for the view of them all. Control ids are those of pointer_ids.h.
class CPointerRows {
public:
    /// One row for each register, from the top. `window` outlives the rows.
    CPointerRows(CWindow& window, std::span<const quint16> registers);
    CPointerRows(const CPointerRows&) = delete;
    CPointerRows& operator=(const CPointerRows&) = delete;

    /// Gives every label the wizard text file's tool tip of its register.
    void AttachToolTips(const std::function<void(int labelId, const QString& text)>& addToolTip) const;
    /// Label of row `row` (from 0) from the next binding on.
    void SetCaption(std::size_t row, const QString& caption) { m_rows[row].index.SetCaption(caption); }

    /// Binds every row to its parameter below `root` (not null) and resolves it. A parameter that the drive lacks adds
    /// a line to `errors` and is no failure; false when a pointer could not be read or the list is unsound (shown).
    bool Bind(CParameterGroup* root, const IndexList& list, QString& errors);
    /// The same for the rows without a change, so that what a drive has refused can be corrected.
    bool BindUnchanged(CParameterGroup* root, const IndexList& list, QString& errors);
    /// Writes the changed rows, each attempted, and resolves them anew. False when one was refused (shown).
    bool Write();
    /// Adds the registers that binding reads, as far as they are known beforehand.
    void AddReads(std::vector<quint16>& registers) const;
    /// Adds to an update, a step a row, that what the rows without a change point to is read again.
    void AddUpdate(UpdatePlan& plan);
    /// Drop-downs, or edits with their heading.
    void ShowView(bool basic);
    bool IsBasicView() const { return m_basic; }

private:
    struct Row {
        Row(CWindow& window, int number, quint16 reg);
        int number; ///< from 1
        CIndexRow index;
        CPointedParameter pointed;
    };

    bool Bind(Row& row, const IndexList& list, QString& errors);
    bool Resolve(Row& row, const QString& failure);
    bool Refresh(Row& row);

    CWindow& m_window;
    std::deque<Row> m_rows;
    CParameterGroup* m_root = nullptr;
    bool m_basic = true;
};

} // namespace krt550
