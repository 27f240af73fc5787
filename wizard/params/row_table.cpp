#include "wizard/params/row_table.h"

#include "wizard/params/announcement.h"
#include "wizard/params/failure_pass.h"
#include "wizard/texts/wizard_text_store.h"

#include <algorithm>

namespace krt550 {

CRowTable::CRowTable(CWindow& window, const PageRows& rows, TextSource source) : m_table(rows), m_source(source) {
    for (const RowGroupDef& group : rows.groups)
        for (const RowDef& row : group.rows)
            if (row.kind != RowKind::Index)
                m_rows.push_back(std::make_unique<CRow>(window, row, source));
    std::ranges::transform(m_rows, std::back_inserter(m_written), &std::unique_ptr<CRow>::get);
    std::ranges::stable_sort(m_written, {}, [](const CRow* row) { return row->GetDefinition().writeRank; });
    std::ranges::stable_sort(m_rows, {}, [](const auto& row) { return row->GetDefinition().bindRank; });
}

bool CRowTable::Bind(CParameterGroup* root, QString& errors) {
    return Bind(root, errors, 0, m_rows.size());
}

bool CRowTable::Bind(CParameterGroup* root, QString& errors, std::size_t first, std::size_t count) {
    const FailurePass pass;
    std::vector<quint16> registers;
    for (std::size_t row = first; row < first + count; ++row)
        registers.push_back(m_rows[row]->GetRegister());
    const Announcement announcement(root, registers);
    bool success = true;
    bool wanted = true;
    for (std::size_t row = first; row < first + count; ++row) {
        wanted = wanted && (!m_look || m_look());
        if (!wanted)
            m_rows[row]->Unbind();
        success = wanted && m_rows[row]->Bind(root, errors) && success;
    }
    return success;
}

void CRowTable::Unbind() {
    for (const auto& row : m_rows)
        row->Unbind();
}

void CRowTable::AddReads(std::vector<quint16>& registers) const {
    for (const auto& row : m_rows)
        registers.push_back(row->GetRegister());
}

bool CRowTable::Write() {
    const FailurePass pass;
    bool success = true;
    for (CRow* row : m_written)
        success = row->Write() && success;
    return success;
}

bool CRowTable::Reread(std::size_t first, std::size_t count) {
    const FailurePass pass;
    std::vector<CParameter*> parameters;
    for (std::size_t row = first; row < first + count; ++row)
        parameters.push_back(m_rows[row]->GetParameter());
    const Announcement announcement(parameters);
    bool success = true;
    for (std::size_t row = first; row < first + count; ++row)
        success = m_rows[row]->Reread() && success;
    return success;
}

void CRowTable::Unmark() const {
    for (const auto& row : m_rows)
        row->Unmark();
}

bool CRowTable::StartsUpdate(bool bound, const QString& errors) const {
    return m_table.update == UpdateWhen::Always ||
           (bound && (m_table.update == UpdateWhen::AllRead || errors.isEmpty()));
}

void CRowTable::AttachToolTips(const std::function<void(int labelId, const QString& text)>& addToolTip) const {
    if (m_table.describedByName)
        return;
    for (const auto& row : m_rows)
        addToolTip(row->GetLabelId(), CWizardTextStore::Instance().GetToolTip(row->GetRegister()));
}

std::size_t CRowTable::GetFirstOfLastGroup() const {
    return m_rows.size() - (m_table.groups.empty() ? 0 : m_table.groups.back().rows.size());
}

CRow* CRowTable::Find(quint16 reg) const {
    const auto row = std::ranges::find(m_rows, reg, [](const auto& r) { return r->GetRegister(); });
    return row == m_rows.end() ? nullptr : row->get();
}

} // namespace krt550
