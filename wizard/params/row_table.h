#pragma once

#include "wizard/params/row.h"

#include <functional>
#include <memory>
#include <vector>

namespace krt550 {

/// The parameter rows of one window, from its table. The rows are numbered in the order in which they are bound.
class CRowTable {
public:
    /// `rows` and `window` outlive the table. `source` is where lists and values get their texts from.
    CRowTable(CWindow& window, const PageRows& rows, TextSource source = TextSource::WizardFile);

    /// Binds every row, each attempted whatever became of the others; true when all succeeded.
    bool Bind(CParameterGroup* root, QString& errors);
    /// The same for `count` rows from row `first`.
    bool Bind(CParameterGroup* root, QString& errors, std::size_t first, std::size_t count);
    /// Has `look` called before each row is bound. False ends the binding: the rows that are left show nothing.
    void SetLook(std::function<bool()> look) { m_look = std::move(look); }
    /// Without a drive: no row has a parameter, and nothing can be typed that would be lost.
    void Unbind();
    /// Adds the registers that binding reads.
    void AddReads(std::vector<quint16>& registers) const;
    /// Writes every changed row in the table's order of writing, each attempted; true when all succeeded.
    bool Write();
    /// Reads rows from the drive into their controls, in place of what was typed; true when all succeeded.
    bool Reread(std::size_t first, std::size_t count);
    /// Forgets what the user changed on the rows.
    void Unmark() const;
    /// Whether a load that went so starts the cyclic update.
    bool StartsUpdate(bool bound, const QString& errors) const;
    /// Gives every label the wizard text file's tool tip of its register; none where the rows are
    /// described by their names.
    void AttachToolTips(const std::function<void(int labelId, const QString& text)>& addToolTip) const;

    std::size_t size() const { return m_rows.size(); }
    /// Number of the rows above the last group.
    std::size_t GetFirstOfLastGroup() const;
    CRow& operator[](std::size_t row) const { return *m_rows[row]; }
    /// The row of a register; null when there is none.
    CRow* Find(quint16 reg) const;
    CParameter* GetParameter(std::size_t row) const { return m_rows[row]->GetParameter(); }
    QWidget* GetValueControl(std::size_t row) const { return m_rows[row]->GetValueControl(); }
    TextSource GetSource() const { return m_source; }

private:
    const PageRows& m_table;
    TextSource m_source;
    std::vector<std::unique_ptr<CRow>> m_rows; ///< as they are bound
    std::vector<CRow*> m_written;              ///< as they are written
    std::function<bool()> m_look;
};

} // namespace krt550
