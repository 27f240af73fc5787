#include "wizard/shell/wizard_property_page.h"

#include "hostlib/host_drive.h"
#include "wizard/motor/make_safe.h"
#include "wizard/params/announcement.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/push_button.h"
#include "wizard/platform/resources.h"
#include "wizard/platform/tool_tip.h"
#include "wizard/platform/wait_cursor.h"
#include "wizard/resources/control_ids.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/shell/step_icons.h"
#include "wizard/shell/step_states.h"
#include "wizard/shell/strip_bitmap_button.h"
#include "wizard/texts/context_help.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QScopedValueRollback>

namespace krt550 {
namespace {

constexpr int kNextCaption = 33;
constexpr int kFinishCaption = 43;
constexpr int kResetToolTip = 3;
constexpr int kResetStrip = 10066;

// Codes of CSheetWizard::EndWizard.
constexpr int kChainFinished = 1;
constexpr int kChainCancelled = 2;

} // namespace

CWizardPropertyPage::CWizardPropertyPage(int layoutNumber, QString helpTopic)
    : CPropertyPage(layoutNumber), m_helpTopic(std::move(helpTopic)) {
    EnsureStepStates();
    Handle(kIdCancelPage, ControlEvent::Clicked, [this] { CancelByPerson(); });
    HandleButton(kIdBack, &CWizardPropertyPage::OnButtonBack);
    HandleButton(kIdNext, &CWizardPropertyPage::OnButtonNext);
    HandleButton(kIdApply, &CWizardPropertyPage::OnButtonApply);
    HandleButton(kIdReset, &CWizardPropertyPage::OnButtonReset);
    Handle(kIdHelp, ControlEvent::Clicked, [this] { ShowHelp(window(), m_helpTopic); });
    PressByKey(*this, QKeySequence::HelpContents, kIdHelp);
}

CWizardPropertyPage::~CWizardPropertyPage() = default;

void CWizardPropertyPage::HandleButton(int id, void (CWizardPropertyPage::*press)()) {
    Handle(id, ControlEvent::Clicked, [this, press] {
        if (!IsMotorStopping())
            (this->*press)();
    });
}

void CWizardPropertyPage::CancelByPerson() {
    if (m_cancelling)
        return;
    if (!IsMotorStopping()) {
        const QScopedValueRollback<bool> cancelling(m_cancelling, true);
        OnButtonCancel();
        return;
    }
    AbortMotorRun();
    WhenMotorStands([page = QPointer(this)] {
        if (page && page->m_sheet && page->m_sheet->GetActivePage() == page)
            page->CancelByPerson();
    });
}

int CWizardPropertyPage::GetWayOut() const {
    return kIdCancelPage;
}

void CWizardPropertyPage::SetTitle(int stringId) {
    m_title = QLatin1String("[KRT550Wizard] ") + LoadText(stringId);
}

bool CWizardPropertyPage::ShowPendingMessages() {
    if (!m_pendingMessage.isEmpty()) {
        const QString message = std::exchange(m_pendingMessage, QString());
        ShowMessageBox(message, MessageIcon::Information, MessageButtons::Ok, m_title);
    }
    return true;
}

bool CWizardPropertyPage::OnInitDialog() {
    return CPropertyPage::OnInitDialog();
}

bool CWizardPropertyPage::OnSetActive() {
    ClearUpdateList();
    Load();
    if (m_sheet)
        m_sheet->SetTitle(m_title);
    return CPropertyPage::OnSetActive();
}

void CWizardPropertyPage::OnShown() {
    ShowPendingMessages();
}

// Nobody leaves a page whose motor may turn: whoever wants to stops it first.
bool CWizardPropertyPage::OnKillActive() {
    if (IsMotorStopping())
        return false;
    LeavePage();
    if (IsMotorUnderControl())
        return false;
    return CPropertyPage::OnKillActive();
}

QWidget* CWizardPropertyPage::CreateControl(const ControlLayout& control) {
    if (control.id != kIdReset)
        return nullptr;
    m_resetButton = new CStripBitmapButton(this);
    return m_resetButton;
}

// Enter and Escape in a control of an embedded tab neither press the default button nor cancel.
void CWizardPropertyPage::keyPressEvent(QKeyEvent* event) {
    const bool enterOrEscape =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Escape;
    const QWidget* focus = focusWidget();
    if (event->key() == Qt::Key_Escape && IsMotorUnderControl())
        CancelByPerson();
    else if (enterOrEscape && focus && GetDlgCtrlID(focus) == 0)
        event->accept();
    else
        CPropertyPage::keyPressEvent(event);
}

void CWizardPropertyPage::OnButtonNext() {
    if (!m_sheet)
        return;
    const CWaitCursor wait;
    if (!Apply())
        return;
    SetStepState(m_step, StepState::Done);
    if (IsLastPage())
        m_sheet->EndWizard(kChainFinished);
    else
        m_sheet->SetActivePage(m_nextPage);
}

void CWizardPropertyPage::OnButtonBack() {
    if (!m_sheet)
        return;
    const CWaitCursor wait;
    SetStepState(m_step, StepState::Pending);
    m_sheet->SetActivePage(m_previousPage);
}

void CWizardPropertyPage::OnButtonApply() {
    const CWaitCursor wait;
    Apply();
}

bool CWizardPropertyPage::Apply() {
    const FailurePass pass;
    return ApplyParameters();
}

void CWizardPropertyPage::Load() {
    const FailurePass pass;
    std::vector<quint16> registers;
    AddReads(registers);
    const Announcement announcement(registers.empty() ? nullptr : GetParameterRoot(GetDrive()), registers);
    LoadParameters();
}

void CWizardPropertyPage::OnButtonCancel() {
    if (!m_sheet)
        return;
    CancelPage();
    const bool endsWizard = m_step == 0 || m_step == kNoPage;
    m_sheet->EndWizard(endsWizard ? kWizardClosed : kChainCancelled);
    MakeSafe(GetDrive(), {.asksCancelCondition = true});
}

void CWizardPropertyPage::OnButtonReset() {
    const CWaitCursor wait;
    if (CHostDrive* drive = GetDrive())
        drive->ResetFault();
}

CHostDrive* CWizardPropertyPage::GetDrive() const {
    return m_sheet ? m_sheet->GetDriveObject() : nullptr;
}

void CWizardPropertyPage::AddToolTip(int controlId, const QString& text) {
    SetToolTip(GetDlgItem(controlId), text);
}

void CWizardPropertyPage::InitResetButton() {
    if (!m_resetButton || m_resetButton->IsBitmapLoaded())
        return;
    m_resetButton->LoadStripBitmap(kResetStrip);
    m_resetButton->SetToolTipText(LoadText(kResetToolTip), true);
}

void CWizardPropertyPage::UpdateStepIcons() {
    for (int step = 1; step <= kStepCount; ++step)
        if (auto* icon = GetControl<QLabel>(kStepIconIds[step - 1]))
            ShowStepIcon(*icon, step, GetStepState(step));
}

void CWizardPropertyPage::UpdateNextCaption() {
    SetControlTextFromString(GetDlgItem(kIdNext), IsLastPage() ? kFinishCaption : kNextCaption);
}

} // namespace krt550
