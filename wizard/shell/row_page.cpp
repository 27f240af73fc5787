#include "wizard/shell/row_page.h"

#include "wizard/params/changed_registers.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/platform/control_text.h"
#include "wizard/resources/control_ids.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/shell/wizard_tab_sheet.h"

namespace krt550 {

CRowPage::CRowPage(const PageRows& rows, QString helpTopic, TextSource source)
    : CWizardPropertyPage(rows.layout, std::move(helpTopic)), m_rows(*this, rows, source) {}

CRowPage::~CRowPage() = default;

CWizardTabSheet& CRowPage::UseTabs(int placeholderId, QPoint offset) {
    m_tabs = std::make_unique<CWizardTabSheet>(*this, placeholderId, offset);
    return *m_tabs;
}

bool CRowPage::ApplyParameters() {
    return WriteRows();
}

bool CRowPage::WriteRows() {
    const bool written = m_rows.Write();
    return (!m_tabs || m_tabs->Apply()) && written;
}

bool CRowPage::LoadParameters() {
    UpdateStepIcons();
    InitResetButton();
    UpdateNextCaption();
    EnableControl(GetDlgItem(kIdNext), true);
    m_rows.AttachToolTips([this](int label, const QString& text) { AddToolTip(label, text); });
    CParameterGroup* root = GetPageParameterRoot(GetSheet());
    if (m_tabs)
        m_tabs->setEnabled(root != nullptr);
    if (!root) {
        m_rows.Unbind();
        return false;
    }
    // Before the rows: a tab that comes to the front empties the update list.
    if (m_tabs)
        m_tabs->Load(GetSheet(), root);
    QString errors;
    const bool bound = BindRows(root, errors);
    // What was typed on a tab that is not in front is given up as well.
    ClearChanged();
    if (!errors.isEmpty())
        ReportLoadErrors(errors);
    StopParameterUpdate(*this, m_updateTimer);
    if (StartsUpdate(bound, errors))
        StartUpdate();
    return bound;
}

bool CRowPage::BindRows(CParameterGroup* root, QString& errors) {
    return m_rows.Bind(root, errors);
}

void CRowPage::ReportLoadErrors(const QString& errors) {
    AppendPendingMessage(errors);
}

bool CRowPage::LeavePage() {
    StopParameterUpdate(*this, m_updateTimer);
    return true;
}

void CRowPage::OnTimer(int id) {
    if (id == GetStepNumber())
        UpdateValues();
}

void CRowPage::AddReads(std::vector<quint16>& registers) {
    if (m_tabs)
        m_tabs->AddReads(registers);
    m_rows.AddReads(registers);
}

void CRowPage::StartUpdate() {
    StopParameterUpdate(*this, m_updateTimer);
    m_updateTimer = StartParameterUpdate(*this, GetStepNumber());
}

void CRowPage::UpdateValues() {
    UpdatePlan plan;
    AddUpdate(plan);
    BeginUpdatePass(*this, m_updateTimer, std::move(plan));
}

void CRowPage::AddUpdate(UpdatePlan& plan) {
    plan.AddRows(*this, m_rows.GetSource());
    plan.AddStep([this] { return RefreshValues(); });
    if (m_tabs)
        m_tabs->AddUpdate(plan);
}

} // namespace krt550
