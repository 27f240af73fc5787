// The run itself. Its order of drive calls is what keeps people safe: the tests assert all of it.
#include "wizard/assistants/basic/autotuning_page.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/motor/make_safe.h"
#include "wizard/motor/motor_run.h"
#include "wizard/platform/control_text.h"
#include "wizard/resources/control_ids.h"
#include "wizard/shell/step_states.h"

#include <QProgressBar>
#include <QScopeGuard>

#include <algorithm>

namespace krt550 {
namespace {


} // namespace

Ending CAutotuningPage::RunAutotuning(CMotorRun& run) {
    EnableNavigation(false);
    const auto enableAgain = qScopeGuard([this] { EnableNavigation(true); });
    if (!m_serviceMode)
        return Ending::Failed;
    if (!AskPermission(run))
        return Ending::Aborted;
    if (!run.Start(m_definition.variant.mode, kSettleMs)) {
        run.MakeSafe(ServiceModeEnd::First);
        return FailedOrAborted(run);
    }
    ShowProgress(0);
    OnRunning(&run);
    const Follow follow = FollowDrive(run);
    OnRunning(nullptr);
    return CloseRun(run, follow);
}

CAutotuningPage::Follow CAutotuningPage::FollowDrive(CMotorRun& run) {
    for (int cycle = 0;; ++cycle) {
        if (!run.Look())
            return Follow::NotWanted;
        if (cycle > kCycles)
            return Follow::TimedOut;
        if (!LookAtDrive(run))
            return run.IsWanted() ? Follow::NoAnswer : Follow::NotWanted;
        if (!run.PassCycle(kCycleMs))
            return Follow::NotWanted;
        if (m_serviceMode->GetValue() == 0)
            return Follow::Finished;
    }
}

Ending CAutotuningPage::CloseRun(CMotorRun& run, Follow follow) {
    // Whoever did not want it any more has gone the way out already.
    if (follow == Follow::NotWanted)
        return Ending::Aborted;
    const AutotuningVariant& variant = m_definition.variant;
    const bool finished = follow == Follow::Finished;
    bool good = finished;
    // A link that does not answer is not asked once more before the stop.
    if (variant.readsOnceMore && follow != Follow::NoAnswer)
        good = ReadProgress(run) && good;
    if (variant.judgesFirst && good)
        good = JudgeRun(run);
    run.MakeSafe(finished ? ServiceModeEnd::Over : ServiceModeEnd::First);
    const bool hasResults = variant.judgesFirst ? finished : good;
    if (!variant.judgesFirst && good)
        good = JudgeRun(run);
    run.MakeSafe(ServiceModeEnd::Over); // nothing is left to stop: what could not be read is told
    if (!run.IsWanted())
        return Ending::Aborted;
    if (hasResults)
        RereadResults();
    return good ? Ending::Succeeded : Ending::Failed;
}

/// One look of the run at how far the drive is.
bool CAutotuningPage::LookAtDrive(CMotorRun& run) {
    if (!m_definition.variant.ridesOutGaps)
        return ReadProgress(run);
    run.TryRead(m_serviceMode);
    return run.IsWanted();
}

bool CAutotuningPage::ReadProgress(CMotorRun& run) {
    const bool modeRead = run.Read(m_serviceMode);
    if (!m_definition.variant.showsProgress)
        return modeRead;
    const bool progressRead = run.Read(m_progress);
    if (modeRead && progressRead)
        ShowProgress(m_progress->GetValue());
    return modeRead && progressRead;
}

bool CAutotuningPage::JudgeRun(CMotorRun& run) {
    if (!run.Read(m_diagnosis) || m_diagnosis->GetValue() != 0)
        return false;
    SetStepState(m_definition.variant.step, StepState::Done);
    UpdateStepIcons();
    return true;
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
