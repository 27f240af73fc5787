#include "wizard/shell/wizard_tab_sheet.h"

#include "wizard/shell/wizard_tab_page.h"

namespace krt550 {

CWizardTabSheet::CWizardTabSheet(CWindow& page, int placeholderId, QPoint offset)
    : m_page(page), m_placeholderId(placeholderId), m_offset(offset) {}

void CWizardTabSheet::AddTab(CWizardTabPage& tab, const QString& label) {
    tab.SetTabText(label);
    m_tabPages.push_back(&tab);
    AddPage(&tab);
}

void CWizardTabSheet::Load(CSheetWizard* sheet, CParameterGroup* root) {
    for (CWizardTabPage* tab : m_tabPages) {
        tab->SetSheet(sheet);
        tab->SetParameterRoot(root);
    }
    if (CWizardTabPage* front = GetFrontTab())
        front->LoadParameters();
    else
        CreateChild(m_page, m_placeholderId, m_offset);
}

bool CWizardTabSheet::Apply() {
    bool success = true;
    for (CWizardTabPage* tab : m_tabPages)
        success = tab->ApplyParameters() && success;
    return success;
}

void CWizardTabSheet::AddReads(std::vector<quint16>& registers) const {
    if (CWizardTabPage* front = GetFrontTab())
        front->AddReads(registers);
    else if (!m_tabPages.empty())
        m_tabPages.front()->AddReads(registers);
}

void CWizardTabSheet::AddUpdate(UpdatePlan& plan) const {
    if (CWizardTabPage* front = GetFrontTab())
        front->AddUpdate(plan);
}

CWizardTabPage* CWizardTabSheet::GetFrontTab() const {
    return static_cast<CWizardTabPage*>(GetActivePage());
}

} // namespace krt550
