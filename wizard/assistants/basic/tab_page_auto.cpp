#include "wizard/assistants/basic/tab_page_auto.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/assistants/basic/page_speed_feedback.h"
#include "wizard/diagnosis/fault_record.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/drive_commands.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
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

CTabPageAuto::CTabPageAuto(CPageSpeedFeedback& page) : CRowTabPage(kSpeedFeedbackAutoRows), m_page(page) {
    Handle(kIdAutotuningStart, ControlEvent::Clicked, [this] { OnButtonStart(); });
    Handle(kIdAutotuningDiagnosis, ControlEvent::Clicked,
           [this] { ShowDiagnosis(m_page.GetHostDrive(), MessageIcon::None); });
}

bool CTabPageAuto::LoadParameters() {
    if (CHostDrive* drive = m_page.GetHostDrive())
        StopAndGiveBack(*drive);
    const bool bound = CRowTabPage::LoadParameters();
    if (CParameterGroup* root = GetParameterRoot()) {
        m_serviceMode = FindParameter(root, 9906);
        m_progress = FindParameter(root, 424);
        m_diagnosis = FindParameter(root, 911);
        EvaluateStartCondition();
        EnableControl(GetDlgItem(kIdAutotuningDiagnosis), false);
        StopParameterUpdate(*this, m_updateTimer);
        if (bound)
            StartTimer();
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
        EnableControl(GetDlgItem(kIdAutotuningStart), StartConditionHolds(m_page.GetStepNumber(), root));
}

quint16 CTabPageAuto::GetFeedback() const {
    const CParameter* feedback = GetRows().GetParameter(0);
    return feedback ? feedback->GetValue() : std::numeric_limits<quint16>::max();
}

bool CTabPageAuto::OnKillActive() {
    if (IsRunning())
        return false;
    StopParameterUpdate(*this, m_updateTimer);
    return CRowTabPage::OnKillActive();
}

void CTabPageAuto::StartTimer() {
    StopParameterUpdate(*this, m_updateTimer);
    m_updateTimer = StartParameterUpdate(*this, m_page.GetStepNumber());
}

void CTabPageAuto::OnTimer(int id) {
    if (id != m_page.GetStepNumber()) {
        CRowTabPage::OnTimer(id);
        return;
    }
    UpdateParameters(*this, m_updateTimer);
    if (m_updateTimer != 0)
        m_page.PostRefreshDisplays(GetFeedback());
    if (m_testing && !m_looking)
        LookForFaults();
}

/// The drive may give up in the middle of the test.
void CTabPageAuto::LookForFaults() {
    const QScopedValueRollback<bool> looking(m_looking, true);
    CHostDrive* drive = m_page.GetHostDrive();
    if (drive && drive->CheckDiagnosisCondition() && m_reads.Read(m_diagnosis) && m_diagnosis->GetValue() != 0)
        ReadFaultAfterRun(drive, GetDlgItem(kIdAutotuningDiagnosis));
}

void CTabPageAuto::OnButtonStart() {
    if (m_fineTuning) {
        FinishFineTuning();
        return;
    }
    if (m_running)
        return;
    ShowProgress(0);
    const QScopedValueRollback<bool> running(m_running, true);
    m_abort = false;
    if (!ShowMessageBox(LoadText(kConfirmation), MessageIcon::Exclamation, MessageButtons::OkCancel)) {
        EndServiceMode(m_serviceMode);
        return;
    }
    EnableControl(GetDlgItem(kIdAutotuningStart), false);
    EnableControl(GetDlgItem(kIdAutotuningDiagnosis), false);
    bool aborted = false;
    const bool success = RunTest(aborted);
    // The timer may have enabled it on the way.
    EnableControl(GetDlgItem(kIdAutotuningDiagnosis), false);
    if (!success && !aborted) {
        ShowRunFailure(GetParameterRoot());
        ReadFaultAfterRun(m_page.GetHostDrive(), GetDlgItem(kIdAutotuningDiagnosis));
    }
    if (!m_abort) {
        m_page.ShowReadFailures();
        m_page.PostRefreshDisplays(GetFeedback());
    }
    EnableControl(GetDlgItem(kIdAutotuningStart), true);
    ShowProgress(0);
}

void CTabPageAuto::Cancel() {
    m_abort = true;
    m_testing = false;
    m_fineTuning = false;
    CHostDrive* drive = m_page.GetHostDrive();
    if (!drive)
        return;
    EndServiceMode(m_serviceMode);
    drive->RefreshState();
    if (drive->IsLocalControlActive())
        StopAndRelease();
}

void CTabPageAuto::ShowProgress(int percent) {
    if (auto* bar = GetControl<QProgressBar>(kIdAutotuningProgress)) {
        bar->setRange(0, 100);
        bar->setValue(std::clamp(percent, 0, 100));
    }
}

} // namespace krt550
