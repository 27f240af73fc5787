#pragma once

#include "hostlib/tolvbo32/clock.h"

#include <functional>

namespace krt550 {

/// The time of a drive that others wait for. It follows the clock it stands on as long as the machine works the drive
/// out in time. What it cannot is lost, and the drive's time falls behind: a drive that made up for all of it would
/// answer nobody meanwhile, and have the more to make up for afterwards. Moves on in Pass only.
class CServedClock : public CClock {
public:
    /// How long one Pass works at most [ms on the wall]: a third of what a host waits for its answer. A piece that has
    /// been begun is finished.
    static constexpr qint64 kMostMs = 100;
    static constexpr qint64 kPieceMs = 100; ///< of the drive's time

    /// `base` is borrowed.
    explicit CServedClock(CClock& base, qint64 mostMs = kMostMs);

    qint64 Now() override { return m_now; }
    void Sleep(qint64 milliseconds) override { m_base.Sleep(milliseconds); }
    int SetAlarm(qint64 milliseconds, std::function<void()> wake) override {
        return m_base.SetAlarm(milliseconds, std::move(wake));
    }
    void ForgetAlarm(int alarm) override { m_base.ForgetAlarm(alarm); }

    /// Lets pass what has passed on the base clock since the last call, in pieces; `advance` brings the drive up to
    /// Now, once at least.
    void Pass(const std::function<void()>& advance);
    /// Whether the drive's time has fallen behind.
    bool HasLost() const { return m_hasLost; }

private:
    CClock& m_base;
    qint64 m_mostMs;
    qint64 m_last; ///< reading of the base clock up to which time has passed or is lost [ms]
    qint64 m_now;
    bool m_hasLost = false;
};

} // namespace krt550
