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

constexpr int kStartDeniedText = 574;
constexpr int kSettleMs = 200;
constexpr int kCycleMs = 50;
/// The drive gets one cycle more than this.
constexpr int kCycles = 5000;
/// Bits of 8.01 that deny a start: the drive is ready to run, or runs, on another source's command.
constexpr quint16 kStartDeniedBits = 2 | 4;

} // namespace

bool CAutotuningPage::RunAutotuning(bool& aborted) {
    m_abort = false;
    m_failedReads.clear();
    if (!GetDrive())
        return false;
    EnableNavigation(false);
    const auto enableAgain = qScopeGuard([this] { EnableNavigation(true); });
    if (!m_serviceMode)
        return false;
    if (!CheckStartPermission()) {
        ShowMessageBox(LoadText(kStartDeniedText), MessageIcon::Stop);
        aborted = true;
        return true;
    }
    if (!StartDrive())
        return false;
    ShowProgress(0);
    const bool finished = FollowDrive(aborted);
    // After Cancel nothing is left to stop: CancelPage has done it.
    return aborted || CloseRun(finished);
}

bool CAutotuningPage::CheckStartPermission() {
    CHostDrive& drive = *GetDrive();
    drive.RefreshState();
    if (drive.IsLocalControlActive())
        return false;
    if (CParameterGroup* root = GetParameterRoot(&drive)) {
        CParameter* status = root->FindChildByRegister(QStringLiteral("801"));
        if (status && ReadParameter(status) && (status->GetValue() & kStartDeniedBits) != 0)
            return false;
    }
    drive.TakeLocalControl();
    drive.RefreshState();
    const bool permitted = drive.IsLocalControlActive();
    drive.ReleaseLocalControl();
    drive.RefreshState();
    return permitted;
}

bool CAutotuningPage::StartDrive() {
    CHostDrive& drive = *GetDrive();
    m_serviceMode->SetValue(m_definition.variant.mode, false);
    if (!WriteParameter(m_serviceMode))
        return false;
    CClock::Current().Sleep(kSettleMs);
    drive.RefreshState();
    if (!drive.IsLocalControlActive() && !drive.TakeLocalControl())
        return false;
    CloseContactorAndStart(&drive);
    return true;
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
    ShowReadFailures();
    const bool hasResults = variant.judgesFirst ? finished : result;
    if (!variant.judgesFirst && result)
        result = JudgeRun();
    ShowReadFailures();
    if (hasResults)
        RereadResults();
    return result;
}

bool CAutotuningPage::ReadProgress() {
    const bool modeRead = ReadQuietly(m_serviceMode);
    if (!m_definition.variant.showsProgress)
        return modeRead;
    const bool progressRead = ReadQuietly(m_progress);
    if (modeRead && progressRead)
        ShowProgress(m_progress->GetValue());
    return modeRead && progressRead;
}

bool CAutotuningPage::JudgeRun() {
    if (!ReadQuietly(m_diagnosis) || m_diagnosis->GetValue() != 0)
        return false;
    SetStepState(m_definition.variant.step, StepState::Done);
    UpdateStepIcons();
    return true;
}

void CAutotuningPage::StopDrive() {
    StopAndOpenContactor(GetDrive());
    GiveBackLocalControl();
}

void CAutotuningPage::GiveBackLocalControl() {
    GetDrive()->RefreshState();
    if (GetDrive()->IsLocalControlActive())
        GetDrive()->ReleaseLocalControl();
}

// A box about a failed read would wait for an answer while the motor turns: it is shown when the drive has been
// stopped.
bool CAutotuningPage::ReadQuietly(CParameter* parameter) {
    if (!parameter)
        return false;
    const bool read = parameter->ReadFromDrive();
    if (!read && std::ranges::find(m_failedReads, parameter) == m_failedReads.end())
        m_failedReads.push_back(parameter);
    return read;
}

void CAutotuningPage::ShowReadFailures() {
    const std::vector<const CParameterSet*> failed = std::exchange(m_failedReads, {});
    for (const CParameterSet* parameter : failed)
        ShowLastError(parameter);
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
