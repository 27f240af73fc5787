#include "wizard/motor/motor_run.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/motor/make_safe.h"
#include "wizard/motor/motor_state.h"
#include "wizard/motor/standstill.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/message_queue.h"
#include "wizard/platform/modal_frame.h"
#include "wizard/platform/timer_hold.h"

#include <utility>

namespace krt550 {

CMotorRun::CMotorRun(CHostDrive& drive, CParameter* serviceMode)
    : m_drive(drive), m_serviceMode(serviceMode), m_aborted(GetMotorState().run != nullptr || IsMotorUnderControl()) {
    if (!m_aborted)
        GetMotorState().run = this;
}

CMotorRun::~CMotorRun() {
    MotorState& state = GetMotorState();
    if (state.run != this)
        return;
    m_aborted = true;
    MakeSafe(ServiceModeEnd::First);
    state.run = nullptr;
}

bool CMotorRun::IsWanted() {
    // The end of the application stops event loops and tells nobody else.
    CModalFrame::CancelStoppedFrames();
    return !m_aborted && !IsMotorStopping();
}

bool CMotorRun::Look() {
    const TimerHold hold;
    DrainMessageQueue();
    return IsWanted();
}

bool CMotorRun::Wait(qint64 milliseconds) {
    const TimerHold hold;
    return WaitInEventLoop(milliseconds, [this] { return IsWanted(); });
}

bool CMotorRun::PassCycle(qint64 milliseconds) {
    if (!Wait(milliseconds))
        return false;
    ServeDueTimers([this] { return Look(); });
    return IsWanted();
}

// Whoever aborts it in between has gone the way out, or the run's end does.
bool CMotorRun::IsPermitted() {
    EndUpdatePass(); // what it has read ahead is older than the run
    if (!Look())
        return false;
    m_drive.RefreshState();
    if (!Look() || m_drive.IsLocalControlActive() || IsSwitchedOn(m_drive).value_or(false) || !Look())
        return false;
    TakeLocalControl();
    if (!Look())
        return false;
    m_drive.RefreshState();
    const bool permitted = m_drive.IsLocalControlActive();
    if (!Look())
        return false;
    GetMotorState().holdsControl = !m_drive.ReleaseLocalControl() && permitted;
    if (!Look())
        return false;
    m_drive.RefreshState();
    return permitted && Look();
}

bool CMotorRun::Start(quint16 mode, int settleMs) {
    if (!m_serviceMode || !Look())
        return false;
    GoLive();
    GetMotorState().serviceMode = m_serviceMode;
    m_serviceMode->SetValue(mode, false);
    if (!WriteParameter(m_serviceMode) || !Wait(settleMs))
        return false;
    m_drive.RefreshState();
    if (!Look() || (!m_drive.IsLocalControlActive() && !TakeLocalControl()))
        return false;
    GetMotorState().holdsControl = true;
    if (Look())
        CloseContactor();
    if (Look())
        StartMotor();
    return Look();
}

bool CMotorRun::TakeLocalControl() {
    if (!IsWanted())
        return false;
    GetMotorState().holdsControl = true;
    return m_drive.TakeLocalControl();
}

bool CMotorRun::CloseContactor() {
    if (!IsWanted())
        return false;
    GoLive();
    return m_drive.CloseContactor();
}

bool CMotorRun::StartMotor() {
    if (!IsWanted())
        return false;
    GoLive();
    return m_drive.StartMotor();
}

bool CMotorRun::SetReference(const QString& reference) {
    return IsWanted() && m_drive.SetReference(reference);
}

bool CMotorRun::Write(CParameter* parameter, quint16 word) {
    return parameter && IsWanted() && parameter->SetValue(word, false) && WriteParameter(parameter);
}

void CMotorRun::EndMode() {
    if (m_serviceMode && m_serviceMode->SetValue(0, false) && WriteParameter(m_serviceMode))
        return;
    Abort();
}

bool CMotorRun::StopMotor() {
    return m_drive.StopMotor();
}

bool CMotorRun::OpenContactor() {
    return m_drive.OpenContactor();
}

bool CMotorRun::Read(CParameter* parameter) {
    if (!parameter || !Look())
        return false;
    const BoxHold afterwards;
    return ReadParameter(parameter);
}

bool CMotorRun::TryRead(CParameter* parameter) {
    if (!parameter || !Look() || !parameter->ReadFromDrive())
        return false;
    LossMemory::NoteAnswer();
    return true;
}

void CMotorRun::TellAtOnce(BoxHold::Tell tell) {
    m_tell = std::move(tell);
    if (m_hold)
        m_hold.emplace(m_tell);
}

void CMotorRun::GoLive() {
    GetMotorState().mayTurn = true;
    if (!m_hold)
        m_hold.emplace(m_tell);
}

bool CMotorRun::MakeSafe(ServiceModeEnd modeEnd, bool keepsControl) {
    const bool isLive = GetMotorState().serviceMode || IsMotorUnderControl();
    const bool stopsAtOnce = modeEnd != ServiceModeEnd::First;
    const bool safe =
        !isLive ||
        krt550::MakeSafe(&m_drive, {.modeEnd = modeEnd, .stopsAtOnce = stopsAtOnce, .keepsControl = keepsControl});
    if (!IsMotorStopping())
        Tell();
    return safe;
}

void CMotorRun::Tell() {
    if (GetMotorState().silent)
        ForgetHeldBoxes();
    m_hold.reset();
    ShowHeldBoxes();
}

} // namespace krt550
