#include "wizard/motor/make_safe.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/parameter.h"
#include "wizard/motor/motor_run.h"
#include "wizard/motor/motor_state.h"
#include "wizard/motor/stop_alarm.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/message_queue.h"
#include "wizard/platform/resources.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

#include <utility>

namespace krt550 {
namespace {

constexpr int kRepeatMs = 250;
constexpr int kAlarmMs = 2000;
/// With the window closed: how long a drive may leave the stop unanswered, and how long it may take to stand.
constexpr int kUnansweredMs = 25000;
constexpr int kLongestStopMs = 600000;
/// How often contactor and local control are tried once the motor stands.
constexpr int kTries = 8;

constexpr int kContactorText = 2003;
constexpr int kControlText = 2004;

void Pass(int milliseconds) {
    WaitInEventLoop(milliseconds, [] { return true; });
}

/// One stop, from its first command to local control given back.
class CStop {
public:
    explicit CStop(CHostDrive& drive) : m_drive(drive) {}

    /// Looks whether there is anything to stop; false when not.
    bool IsNeeded(const WayOut& way);
    /// False when it was given up.
    bool Run();
    void GiveControlBack();

private:
    void CommandStop();
    bool Stands();
    bool IsGivenUp() const;
    void OpenContactor();

    CHostDrive& m_drive;
    MotorState& m_state = GetMotorState();
    CClock& m_clock = CClock::Current();
    qint64 m_begin = m_clock.Now();
    qint64 m_answered = m_begin; ///< when the drive took stop and state the last time
    bool m_stopTaken = false;    ///< the last one
    bool m_everTaken = false;
    int m_standing = 0; ///< looks in a row that found the motor at a standstill
    bool m_opened = false;
    bool m_refreshed = false;
    bool m_isOurs = true; ///< the drive has not said that somebody else has it
};

bool CStop::IsNeeded(const WayOut& way) {
    if (way.stopsAtOnce)
        return true;
    m_refreshed = m_drive.RefreshState();
    if (way.asksCancelCondition && !m_state.holdsControl && !m_drive.CheckCancelCondition())
        return false;
    const bool active = m_drive.IsLocalControlActive();
    // An old state says nothing about a control that was taken since.
    return active || (m_state.holdsControl && !m_refreshed);
}

void CStop::CommandStop() {
    m_stopTaken = m_drive.StopMotor();
    m_everTaken = m_everTaken || m_stopTaken;
    m_opened = m_drive.OpenContactor();
}

bool CStop::Stands() {
    m_refreshed = m_drive.RefreshState();
    if (m_refreshed && m_stopTaken) {
        m_answered = m_clock.Now();
        LossMemory::NoteAnswer();
    }
    if (!m_refreshed)
        return false;
    m_isOurs = m_drive.IsLocalControlActive();
    m_standing = (m_drive.GetStatusWord() & kStatusStopped) != 0 ? m_standing + 1 : 0;
    // A motor that was told to start a moment ago stands, too: while the drive refuses the stop that is no standstill
    // yet.
    return !m_isOurs || (m_everTaken ? m_standing > 0 : m_standing >= kTries);
}

bool CStop::IsGivenUp() const {
    const qint64 now = m_clock.Now();
    return m_state.windowClosed && (now - m_answered >= kUnansweredMs || now - m_begin >= kLongestStopMs);
}

bool CStop::Run() {
    CommandStop();
    CStopAlarm alarm;
    while (!Stands()) {
        if (IsGivenUp())
            return false;
        const qint64 now = m_clock.Now();
        if (now - m_begin >= kAlarmMs)
            alarm.Show(now - m_answered >= kAlarmMs ? StopAlarm::NotConfirmed : StopAlarm::RunningDown);
        Pass(kRepeatMs);
        CommandStop();
    }
    m_state.mayTurn = false;
    OpenContactor();
    return true;
}

void CStop::OpenContactor() {
    for (int tries = 1; m_isOurs && !m_opened && tries < kTries; ++tries) {
        Pass(kRepeatMs);
        m_opened = m_drive.OpenContactor();
    }
    if (m_isOurs && !m_opened)
        ShowMessageBox(LoadText(kContactorText), MessageIcon::Stop);
}

void CStop::GiveControlBack() {
    bool released = !m_isOurs || m_drive.ReleaseLocalControl();
    for (int tries = 1; !released && tries < kTries; ++tries) {
        Pass(kRepeatMs);
        released = m_drive.ReleaseLocalControl();
    }
    if (!released)
        ShowMessageBox(LoadText(kControlText), MessageIcon::Stop);
    m_state.holdsControl = false;
}

/// Ends a service mode; false when the drive refused, and what it said is kept for later.
bool EndServiceMode(CParameter* serviceMode) {
    if (!serviceMode)
        return true;
    serviceMode->SetValue(0, false);
    return WriteParameter(serviceMode);
}

/// With the motor at a standstill: a mode that is left behind would turn it at somebody's next start.
void EndLeftMode(CParameter& serviceMode) {
    for (int tries = 1; tries <= kTries; ++tries) {
        if (ReadParameter(&serviceMode) && serviceMode.GetValue() == 0)
            return;
        serviceMode.SetValue(0, false);
        if (serviceMode.WriteToDrive(0))
            return;
        Pass(kRepeatMs);
    }
    ShowLastError(&serviceMode);
}

bool GoOut(CHostDrive& drive, const WayOut& way) {
    MotorState& state = GetMotorState();
    CParameter* begun = std::exchange(state.serviceMode, nullptr);
    CParameter* mode = way.serviceMode ? way.serviceMode : way.modeEnd == ServiceModeEnd::Over ? nullptr : begun;
    const bool ended = way.modeEnd != ServiceModeEnd::First || EndServiceMode(mode);
    CStop stop(drive);
    const bool needed = stop.IsNeeded(way);
    if (needed && !stop.Run()) {
        state.silent = true;
        return false;
    }
    if (mode && (way.modeEnd == ServiceModeEnd::IfLeft || !ended))
        EndLeftMode(*mode);
    if (needed && !way.keepsControl)
        stop.GiveControlBack();
    if (!needed)
        state.holdsControl = state.mayTurn = false;
    return true;
}

} // namespace

MotorState& GetMotorState() {
    static MotorState state;
    return state;
}

bool MakeSafe(CHostDrive* drive, const WayOut& way) {
    MotorState& state = GetMotorState();
    if (!drive || state.stopping || state.silent)
        return false;
    bool safe = false;
    const LossMemory::Scope told(LossMemory::Since::Now);
    {
        const QScopedValueRollback<bool> stopping(state.stopping, true);
        const BoxHold hold;
        safe = GoOut(*drive, way);
    }
    if (state.next)
        QMetaObject::invokeMethod(
            qApp,
            [] {
                if (const auto next = std::exchange(GetMotorState().next, {}))
                    next();
            },
            Qt::QueuedConnection);
    if (state.silent) // the alarm has said what there is to say
        ForgetHeldBoxes();
    ShowHeldBoxes();
    return safe;
}

bool IsMotorStopping() {
    return GetMotorState().stopping;
}

bool IsMotorUnderControl() {
    const MotorState& state = GetMotorState();
    return state.stopping || state.holdsControl || state.mayTurn;
}

void AbortMotorRun() {
    if (CMotorRun* run = GetMotorState().run)
        run->Abort();
}

bool LookDuringRun() {
    CMotorRun* run = GetMotorState().run;
    return !run || run->Look();
}

void WhenMotorStands(std::function<void()> action) {
    GetMotorState().next = std::move(action);
}

void BeginMotorSession() {
    ForgetHeldBoxes();
    GetMotorState() = {};
}

void EndMotorSession() {
    GetMotorState().windowClosed = true;
    GetMotorState().next = nullptr;
}

} // namespace krt550
