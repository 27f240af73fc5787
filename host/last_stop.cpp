#include "host/last_stop.h"

#include "host/tool.h"
#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/parameter_link.h"

#include <QScopeGuard>

#include <atomic>
#include <cstdlib>

namespace krt550 {
namespace {

constexpr quint16 kServiceMode = 9906;
constexpr qint64 kPollMs = 50;
constexpr qint64 kTellAgainMs = 10'000;
constexpr const char* kWaitsForStandstill = "the stop has been sent; waiting until the motor stands still";

CLastStop* g_current = nullptr;
std::atomic<const char*> g_waitsFor = nullptr;

qint64 Now() {
    return CClock::Current().Now();
}

/// The windows, the wizard and the stack of whoever called exit() are still there: nothing of it is safe to destroy.
void OnExit() {
    if (!g_current)
        return;
    CLastStop::FinishNow();
    std::_Exit(kExitFailure);
}

} // namespace

CLastStop::CLastStop(CHostDrive& drive, CParameterLink& link, std::function<void(const QString&)> complain)
    : m_drive(drive), m_link(link), m_crashDrive(&drive), m_crashLink(&link), m_complain(std::move(complain)) {
    [[maybe_unused]] static const bool registered = std::atexit(OnExit) == 0;
    Q_ASSERT(!g_current);
    g_current = this;
}

CLastStop::~CLastStop() {
    g_current = nullptr;
}

const char* CLastStop::WaitsFor() {
    return g_waitsFor;
}

void CLastStop::FinishNow() {
    if (g_current)
        g_current->Finish();
}

void CLastStop::StopFromCrash() {
    if (!g_current || !g_current->m_crashDrive->IsLocalControlActive())
        return;
    g_current->m_crashLink->WriteWord(kServiceMode, 0);
    g_current->m_crashDrive->StopMotor();
}

bool CLastStop::Stop() {
    if (!IsHeld())
        return true;
    if (!m_lastStop)
        SendStop();
    const bool answers = Hear(m_drive.RefreshState());
    if (!m_drive.IsLocalControlActive())
        return true;
    if (answers && (m_drive.GetStatusWord() & kStatusStopped))
        return true;
    if (Now() - *m_lastStop >= kRepeatMs)
        SendStop();
    return IsSilent();
}

bool CLastStop::Finish() {
    if (m_isFinishing)
        return true;
    m_isFinishing = true;
    const auto done = qScopeGuard([this] {
        g_waitsFor = nullptr;
        m_isFinishing = false;
    });
    BeginAnew();
    g_waitsFor = kWaitsForStandstill;
    const qint64 since = Now();
    m_toldAt = 0;
    while (!Stop()) {
        TellOfWaiting(since);
        CClock::Current().Sleep(kPollMs);
    }
    return HandBack();
}

void CLastStop::BeginAnew() {
    m_lastStop.reset();
    m_silentSince.reset();
}

bool CLastStop::HandBack() {
    const qint64 standing = Now();
    while (m_drive.IsLocalControlActive() && !IsSilent() && Now() - standing < kSilenceMs) {
        GiveBack();
        if (m_drive.IsLocalControlActive())
            CClock::Current().Sleep(kRepeatMs);
    }
    if (!m_drive.IsLocalControlActive())
        return true;
    m_complain(IsSilent()
                   ? QStringLiteral("the drive does not answer, and the stop is not confirmed: use the E-stop if "
                                    "the motor turns. The drive stops by itself once it has not heard this "
                                    "program for the time in 30.29")
                   : QStringLiteral("the motor stands still, but the drive does not give up local control"));
    return false;
}

bool CLastStop::IsHeld() {
    // The state that was fetched last may be old: nobody may have asked since something changed.
    return m_drive.IsLocalControlActive() || (Hear(m_drive.RefreshState()) && m_drive.IsLocalControlActive());
}

bool CLastStop::Hear(bool succeeded) {
    if (succeeded)
        m_silentSince.reset();
    else if (!m_silentSince)
        m_silentSince = Now();
    return succeeded;
}

bool CLastStop::IsSilent() const {
    return m_silentSince && Now() - *m_silentSince >= kSilenceMs;
}

void CLastStop::SendStop() {
    m_lastStop = Now();
    m_inNormalMode = m_link.WriteWord(kServiceMode, 0);
    m_drive.StopMotor();
}

void CLastStop::GiveBack() {
    if (!m_inNormalMode)
        m_inNormalMode = m_link.WriteWord(kServiceMode, 0);
    m_drive.OpenContactor();
    m_drive.ReleaseLocalControl();
    Hear(m_drive.RefreshState());
}

void CLastStop::TellOfWaiting(qint64 since) {
    if (m_toldAt != 0 && Now() - m_toldAt < kTellAgainMs)
        return;
    m_toldAt = Now();
    const qint64 seconds = (Now() - since) / 1000;
    m_complain(QLatin1String(kWaitsForStandstill) +
               (seconds > 0 ? QStringLiteral(" (%1 s so far)").arg(seconds) : QString()));
}

} // namespace krt550
