#include "hostlib/tolvbo32/clock.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <thread>

namespace krt550 {
namespace {

class CRealClock : public CClock {
public:
    qint64 Now() override {
        const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count();
    }
    void Sleep(qint64 milliseconds) override { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }
};

CClock* g_current = nullptr;

} // namespace

CClock::CClock() = default;
CClock::~CClock() = default;

CClock& CClock::Current() {
    static CRealClock real;
    return g_current ? *g_current : real;
}

int CClock::SetAlarm(qint64 milliseconds, std::function<void()> wake) {
    const int handle = ++m_lastAlarm;
    auto timer = std::make_unique<QTimer>();
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), [this, handle, wake = std::move(wake)] {
        // The timer is at work in this call: it goes when the event loop is back.
        const auto found = m_alarms.find(handle);
        found->second.release()->deleteLater();
        m_alarms.erase(found);
        const std::function<void()> call = wake;
        call();
    });
    timer->start(std::chrono::milliseconds(OnTheWall(milliseconds)));
    m_alarms.emplace(handle, std::move(timer));
    return handle;
}

void CClock::ForgetAlarm(int alarm) {
    m_alarms.erase(alarm);
}

void CClock::WaitForEvents(qint64 milliseconds) {
    if (!QCoreApplication::instance()) {
        Sleep(milliseconds);
        return;
    }
    const int alarm = SetAlarm(std::max<qint64>(0, milliseconds), [] {});
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    // What has ended the wait may only have been posted. The next wait would handle it and then go on waiting.
    QCoreApplication::sendPostedEvents();
    ForgetAlarm(alarm);
}

CSteppedClock::CSteppedClock() {
    if (auto* dispatcher = QAbstractEventDispatcher::instance())
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &m_receiver, [this] { OnIdle(); });
}

CSteppedClock::~CSteppedClock() = default;

int CSteppedClock::SetAlarm(qint64 milliseconds, std::function<void()> wake) {
    const int handle = ++m_lastAlarm;
    m_alarms.emplace(handle, Alarm{m_now + milliseconds, std::move(wake)});
    return handle;
}

void CSteppedClock::ForgetAlarm(int alarm) {
    m_alarms.erase(alarm);
}

void CSteppedClock::Sleep(qint64 milliseconds) {
    m_now += std::max<qint64>(0, milliseconds);
    for (auto next = NextAlarm(); next != m_alarms.end() && next->second.due <= m_now; next = NextAlarm())
        Post(next);
}

void CSteppedClock::OnIdle() {
    if (&Current() != this)
        return;
    const auto next = NextAlarm();
    if (next == m_alarms.end())
        return;
    m_now = std::max(m_now, next->second.due);
    Post(next);
}

/// The one that is due first among those that are not on their way.
std::map<int, CSteppedClock::Alarm>::iterator CSteppedClock::NextAlarm() {
    auto next = m_alarms.end();
    for (auto alarm = m_alarms.begin(); alarm != m_alarms.end(); ++alarm)
        if (!alarm->second.posted && (next == m_alarms.end() || alarm->second.due < next->second.due))
            next = alarm;
    return next;
}

void CSteppedClock::Post(std::map<int, Alarm>::iterator alarm) {
    alarm->second.posted = true;
    QMetaObject::invokeMethod(
        &m_receiver, [this, handle = alarm->first] { GoOff(handle); }, Qt::QueuedConnection);
}

void CSteppedClock::GoOff(int handle) {
    const auto found = m_alarms.find(handle);
    if (found == m_alarms.end())
        return;
    const std::function<void()> wake = std::move(found->second.wake);
    m_alarms.erase(found);
    wake();
}

ClockScope::ClockScope(CClock& clock) : m_former(g_current) {
    g_current = &clock;
}

ClockScope::~ClockScope() {
    g_current = m_former;
}

void CClockTimer::Start(qint64 milliseconds) {
    StartOnce(milliseconds);
    m_period = milliseconds;
}

void CClockTimer::StartOnce(qint64 milliseconds) {
    Stop();
    m_clock = &CClock::Current();
    m_alarm = m_clock->SetAlarm(milliseconds, [this] { GoOff(); });
}

void CClockTimer::Stop() {
    m_period = 0;
    if (m_alarm != 0)
        m_clock->ForgetAlarm(std::exchange(m_alarm, 0));
}

void CClockTimer::GoOff() {
    m_alarm = 0;
    const std::weak_ptr<bool> alive = m_alive;
    const std::function<void()> due = m_due;
    due();
    if (!alive.expired() && m_period > 0 && m_alarm == 0)
        Start(m_period);
}

} // namespace krt550
