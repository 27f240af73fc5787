#pragma once

#include "hostlib/export.h"

#include <QObject>
#include <QtGlobal>

#include <functional>
#include <map>
#include <memory>
#include <utility>

class QTimer;

namespace krt550 {

/// Time as host, simulated drive and wizard see it. The real clock unless a ClockScope put another in its place.
/// Alarms and waits belong to the thread of the user interface.
class HOSTLIB_EXPORT CClock {
public:
    CClock();
    virtual ~CClock();
    CClock(const CClock&) = delete;
    CClock& operator=(const CClock&) = delete;

    /// Milliseconds since some fixed moment; never goes backwards.
    virtual qint64 Now() = 0;
    /// Returns after `milliseconds` of this clock's time, with nothing done meanwhile; at once when 0 or less.
    virtual void Sleep(qint64 milliseconds) = 0;

    /// Has `wake` called once, from the event loop, when `milliseconds` (0 or more) have passed. Returns the alarm's
    /// handle, never 0.
    virtual int SetAlarm(qint64 milliseconds, std::function<void()> wake);
    /// Takes an alarm back; does nothing when it has gone off.
    virtual void ForgetAlarm(int alarm);
    /// Handles events until some have been handled, or `milliseconds` have passed.
    void WaitForEvents(qint64 milliseconds);

    static CClock& Current();

protected:
    /// What a span of this clock's time is on the wall [ms].
    virtual qint64 OnTheWall(qint64 milliseconds) const { return milliseconds; }

private:
    std::map<int, std::unique_ptr<QTimer>> m_alarms;
    int m_lastAlarm = 0;
};

/// Time that passes only when somebody sleeps, or when the event loop has nothing to do: then it jumps to the next
/// alarm. Alarms that a sleep has passed go off with the next events that are handled. Minutes of waiting cost nothing,
/// and a busy machine changes nothing. It needs an event dispatcher that tells
/// truly when it is idle, which the one over GLib does not: QT_NO_GLIB=1 before the application starts.
class HOSTLIB_EXPORT CSteppedClock : public CClock {
public:
    CSteppedClock();
    ~CSteppedClock() override;

    qint64 Now() override { return m_now; }
    void Sleep(qint64 milliseconds) override;
    int SetAlarm(qint64 milliseconds, std::function<void()> wake) override;
    void ForgetAlarm(int alarm) override;

private:
    struct Alarm {
        qint64 due;
        std::function<void()> wake;
        bool posted = false; ///< on its way through the event queue
    };

    void OnIdle();
    std::map<int, Alarm>::iterator NextAlarm();
    void Post(std::map<int, Alarm>::iterator alarm);
    void GoOff(int handle);

    qint64 m_now = 0;
    std::map<int, Alarm> m_alarms; ///< by handle, so in the order of setting
    int m_lastAlarm = 0;
    QObject m_receiver;
};

/// Makes a clock the current one for the scope's lifetime.
class HOSTLIB_EXPORT ClockScope {
public:
    explicit ClockScope(CClock& clock);
    ~ClockScope();
    ClockScope(const ClockScope&) = delete;
    ClockScope& operator=(const ClockScope&) = delete;

private:
    CClock* m_former;
};

/// Calls `due` from the event loop, in the time of the clock that is current when it is started.
class HOSTLIB_EXPORT CClockTimer {
public:
    explicit CClockTimer(std::function<void()> due) : m_due(std::move(due)) {}
    ~CClockTimer() { Stop(); }
    CClockTimer(const CClockTimer&) = delete;
    CClockTimer& operator=(const CClockTimer&) = delete;

    /// Every `milliseconds` (> 0) until stopped; a period counts from the end of the call before. The timer may be
    /// stopped and destroyed in the call.
    void Start(qint64 milliseconds);
    /// Once.
    void StartOnce(qint64 milliseconds);
    void Stop();
    bool IsActive() const { return m_alarm != 0; }

private:
    void GoOff();

    std::function<void()> m_due;
    CClock* m_clock = nullptr;
    qint64 m_period = 0; ///< 0: once
    int m_alarm = 0;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true); ///< outlived by a call that destroys the timer
};

} // namespace krt550
