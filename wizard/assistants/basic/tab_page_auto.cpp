#include "wizard/assistants/basic/tab_page_auto.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/assistants/basic/speed_feedback_owner.h"
#include "wizard/diagnosis/fault_record.h"
#include "wizard/motor/make_safe.h"
#include "wizard/motor/motor_run.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/start_condition.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/focus.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"

#include <QProgressBar>
#include <QScopedValueRollback>

#include <algorithm>
#include <limits>

namespace krt550 {
namespace {

constexpr int kConfirmation = 370;

} // namespace

CTabPageAuto::CTabPageAuto(CSpeedFeedbackOwner& page) : CRowTabPage(kSpeedFeedbackAutoRows), m_page(page) {
    Handle(kIdAutotuningStart, ControlEvent::Clicked, [this] { OnButtonStart(); });
    Handle(kIdAutotuningDiagnosis, ControlEvent::Clicked,
           [this] { ShowDiagnosis(m_page.GetHostDrive(), MessageIcon::None); });
}

bool CTabPageAuto::LoadParameters() {
    // Leaving the other tab gives local control back.
    MakeSafe(m_page.GetHostDrive(), {});
    const bool bound = CRowTabPage::LoadParameters();
    if (CParameterGroup* root = GetParameterRoot()) {
        m_serviceMode = FindParameter(root, 9906);
        m_progress = FindParameter(root, 424);
        m_diagnosis = FindParameter(root, 911);
        EvaluateStartCondition();
        EnableControl(GetDlgItem(kIdAutotuningDiagnosis), false);
        m_page.OnTabLoaded(GetFeedback(), bound);
    }
    ShowProgress(0);
    return bound;
}

bool CTabPageAuto::ApplyParameters() {
    if (!isVisible())
        return true;
    const bool written = CRowTabPage::ApplyParameters();
    // While the motor runs, Start stays as the run has left it.
    if (!IsRunning())
        EvaluateStartCondition();
    return written;
}

void CTabPageAuto::EvaluateStartCondition() {
    if (CParameterGroup* root = GetParameterRoot())
        EnableControl(GetDlgItem(kIdAutotuningStart), StartConditionHolds(m_page.GetStep(), root));
}

quint16 CTabPageAuto::GetFeedback() const {
    const CParameter* feedback = GetRows().GetParameter(0);
    return feedback ? feedback->GetValue() : std::numeric_limits<quint16>::max();
}

bool CTabPageAuto::OnKillActive() {
    return !IsRunning() && CRowTabPage::OnKillActive();
}

void CTabPageAuto::AddReads(std::vector<quint16>& registers) {
    CRowTabPage::AddReads(registers);
    AddStartConditionReads(m_page.GetStep(), registers);
}

void CTabPageAuto::LookForFaults() {
    if (m_looking)
        return;
    const QScopedValueRollback<bool> looking(m_looking, true);
    CHostDrive* drive = m_page.GetHostDrive();
    if (drive && drive->CheckDiagnosisCondition() && m_run && m_run->Read(m_diagnosis) && m_diagnosis->GetValue() != 0)
        ReadFaultAfterRun(drive, GetDlgItem(kIdAutotuningDiagnosis));
}

void CTabPageAuto::OnButtonStart() {
    if (m_phase == Phase::Tuning)
        FinishFineTuning();
    if (m_phase != Phase::Idle || IsMotorUnderControl() || !m_page.GetHostDrive())
        return;
    const LossMemory::Scope told(LossMemory::Since::Now);
    // Before the question: whoever leaves the page behind it does not want the run.
    CMotorRun run(*m_page.GetHostDrive(), m_serviceMode);
    const QScopedValueRollback<CMotorRun*> current(m_run, &run);
    const QScopedValueRollback<Phase> phase(m_phase, Phase::Asking);
    ShowProgress(0);
    m_page.ShowNotice({});
    if (!ShowMessageBox(LoadText(kConfirmation), MessageIcon::Exclamation, MessageButtons::OkCancel)) {
        if (m_serviceMode && m_serviceMode->SetValue(0, false))
            WriteParameter(m_serviceMode);
        return;
    }
    const CFocusReturn focus(GetDlgItem(kIdAutotuningStart));
    EnableControl(GetDlgItem(kIdAutotuningStart), false);
    EnableControl(GetDlgItem(kIdAutotuningDiagnosis), false);
    const Ending ending = RunTest(run);
    run.MakeSafe(ServiceModeEnd::First); // does nothing unless the run was left in the middle
    // The timer may have enabled it on the way.
    EnableControl(GetDlgItem(kIdAutotuningDiagnosis), false);
    if (ending == Ending::Failed && run.IsWanted()) {
        ShowRunFailure(GetSheet());
        ReadFaultAfterRun(m_page.GetHostDrive(), GetDlgItem(kIdAutotuningDiagnosis));
    }
    if (run.IsWanted())
        m_page.ShowSpeeds(GetFeedback());
    EnableControl(GetDlgItem(kIdAutotuningStart), true);
    ShowProgress(0);
}

void CTabPageAuto::Cancel() {
    AbortMotorRun();
    MakeSafe(m_page.GetHostDrive(), {.serviceMode = m_serviceMode});
}

void CTabPageAuto::ShowProgress(int percent) {
    if (auto* bar = GetControl<QProgressBar>(kIdAutotuningProgress)) {
        bar->setRange(0, 100);
        bar->setValue(std::clamp(percent, 0, 100));
    }
}

} // namespace krt550
