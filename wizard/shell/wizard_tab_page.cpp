#include "wizard/shell/wizard_tab_page.h"

#include "wizard/motor/make_safe.h"
#include "wizard/params/announcement.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/failure_pass.h"
#include "wizard/platform/tool_tip.h"
#include "wizard/platform/wait_cursor.h"

#include <QPushButton>

namespace krt550 {

void CWizardTabPage::AddToolTip(int controlId, const QString& text) {
    if (QWidget* control = GetDlgItem(controlId))
        AddToolTip(control, text);
}

void CWizardTabPage::AddToolTip(QWidget* control, const QString& text) {
    SetToolTip(control, text);
}

bool CWizardTabPage::OnInitDialog() {
    CPropertyPage::OnInitDialog();
    // Next stays the default button: Enter means nothing inside a tab.
    for (QWidget* control : GetControls())
        if (auto* button = qobject_cast<QPushButton*>(control))
            button->setAutoDefault(false);
    return true;
}

void CWizardTabPage::AddUpdate(UpdatePlan& plan) {
    plan.AddStep([this] { return RefreshValues(); });
    plan.AddRows(*this);
}

bool CWizardTabPage::OnKillActive() {
    return !IsMotorStopping() && CPropertyPage::OnKillActive();
}

bool CWizardTabPage::OnSetActive() {
    const CWaitCursor wait;
    ClearUpdateList();
    {
        const FailurePass pass;
        std::vector<quint16> registers;
        AddReads(registers);
        const Announcement announcement(m_root, registers);
        LoadParameters();
    }
    CPropertyPage::OnSetActive();
    return true;
}

CRowTabPage::CRowTabPage(const PageRows& rows) : CWizardTabPage(rows.layout), m_rows(*this, rows) {
    // Whoever looks at another tab while the motor turns may want to stop it before that is read.
    m_rows.SetLook(LookDuringRun);
}

bool CRowTabPage::LoadParameters() {
    const CWaitCursor wait;
    m_rows.AttachToolTips([this](int label, const QString& text) { AddToolTip(label, text); });
    if (!GetParameterRoot()) {
        m_rows.Unbind();
        return false;
    }
    QString errors;
    const bool bound = BindRows(GetParameterRoot(), errors);
    SetLoaded();
    if (!errors.isEmpty())
        ReportLoadErrors(errors);
    return bound;
}

bool CRowTabPage::ApplyParameters() {
    const CWaitCursor wait;
    return !IsLoaded() || WriteRows();
}

} // namespace krt550
