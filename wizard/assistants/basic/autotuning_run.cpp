// The run itself. Its order of drive calls is what keeps people safe: the tests assert all of it.
#include "wizard/assistants/basic/autotuning_page.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/params/drive_commands.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/shell/step_states.h"

#include <QProgressBar>
#include <QScopeGuard>

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kCycleMs = 50;
/// The drive gets one cycle more than this.
constexpr int kCycles = 5000;

} // namespace

bool CAutotuningPage::RunAutotuning(bool& aborted) {
    m_abort = false;
    m_reads.Clear();
    if (!GetDrive())
        return false;
    EnableNavigation(false);
    const auto enableAgain = qScopeGuard([this] { EnableNavigation(true); });
    if (!m_serviceMode)
        return false;
    if (!IsStartPermitted(*GetDrive())) {
        ShowStartDenied();
        aborted = true;
        return true;
    }
    if (!StartInServiceMode(*GetDrive(), *m_serviceMode, m_definition.variant.mode))
        return false;
    ShowProgress(0);
    const bool finished = FollowDrive(aborted);
    // After Cancel nothing is left to stop: CancelPage has done it.
    return aborted || CloseRun(finished);
}

bool CAutotuningPage::FollowDrive(bool& aborted) {
    for (int cyclesLeft = kCycles;; --cyclesLeft) {
        PumpMessages(this);
        if (m_abort) {
            m_abort = false;
            aborted = true;
            return true;
        }
        if (cyclesLeft < 0 || !ReadProgress())
            return false;
        CClock::Current().Sleep(kCycleMs);
        if (m_serviceMode->GetValue() == 0)
            return true;
    }
}

bool CAutotuningPage::CloseRun(bool result) {
    const AutotuningVariant& variant = m_definition.variant;
    const bool finished = result;
    if (variant.readsOnceMore)
        result = ReadProgress() && result;
    if (variant.judgesFirst && result)
        result = JudgeRun();
    StopDrive();
    m_reads.ShowFailures();
    const bool hasResults = variant.judgesFirst ? finished : result;
    if (!variant.judgesFirst && result)
        result = JudgeRun();
    m_reads.ShowFailures();
    if (hasResults)
        RereadResults();
    return result;
}

bool CAutotuningPage::ReadProgress() {
    const bool modeRead = m_reads.Read(m_serviceMode);
    if (!m_definition.variant.showsProgress)
        return modeRead;
    const bool progressRead = m_reads.Read(m_progress);
    if (modeRead && progressRead)
        ShowProgress(m_progress->GetValue());
    return modeRead && progressRead;
}

bool CAutotuningPage::JudgeRun() {
    if (!m_reads.Read(m_diagnosis) || m_diagnosis->GetValue() != 0)
        return false;
    SetStepState(m_definition.variant.step, StepState::Done);
    UpdateStepIcons();
    return true;
}

void CAutotuningPage::StopDrive() {
    StopAndOpenContactor(GetDrive());
    GiveBackLocalControl(*GetDrive());
}

void CAutotuningPage::EnableNavigation(bool enable) {
    EnableControl(GetDlgItem(kIdBack), enable);
    EnableControl(GetDlgItem(kIdNext), enable);
}

void CAutotuningPage::ShowProgress(int percent) {
    if (auto* bar = GetControl<QProgressBar>(kIdAutotuningProgress))
        bar->setValue(std::clamp(percent, 0, 100));
}

} // namespace krt550
