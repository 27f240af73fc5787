#include "wizard/shell/wizard_tab_sheet.h"

#include "wizard/params/cyclic_update.h"
#include "wizard/shell/wizard_tab_page.h"

#include <QScopedValueRollback>

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

void CWizardTabSheet::Update(int& timerHandle) {
    CWizardTabPage* front = GetFrontTab();
    // A box about a failed refresh keeps the timer running; a second refresh on top of it has nothing to add.
    if (!front || m_refreshing)
        return;
    const QScopedValueRollback<bool> refreshing(m_refreshing, true);
    if (!front->RefreshValues())
        StopFailedUpdate(m_page, timerHandle);
    UpdateParameters(*front, m_page, timerHandle);
}

CWizardTabPage* CWizardTabSheet::GetFrontTab() const {
    return static_cast<CWizardTabPage*>(GetActivePage());
}

} // namespace krt550
