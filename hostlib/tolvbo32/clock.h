#pragma once

#include "hostlib/export.h"

#include <QtGlobal>

namespace krt550 {

/// Time as host, simulated drive and wizard see it. The real clock unless a ClockScope put another in its place.
class HOSTLIB_EXPORT CClock {
public:
    virtual ~CClock() = default;
    /// Milliseconds since some fixed moment; never goes backwards.
    virtual qint64 Now() = 0;
    /// Returns after `milliseconds` of this clock's time; at once when 0 or less.
    virtual void Sleep(qint64 milliseconds) = 0;

    static CClock& Current();
};

/// Time that passes only when somebody sleeps, so that minutes of waiting cost nothing.
class HOSTLIB_EXPORT CSteppedClock : public CClock {
public:
    qint64 Now() override { return m_now; }
    void Sleep(qint64 milliseconds) override { m_now += milliseconds > 0 ? milliseconds : 0; }

private:
    qint64 m_now = 0;
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

} // namespace krt550
