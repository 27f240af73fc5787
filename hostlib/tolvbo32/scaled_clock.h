#pragma once

#include "hostlib/tolvbo32/clock.h"

#include <QtGlobal>

namespace krt550 {

/// A clock that runs a number of times faster than the one it stands on, so that a play of several minutes is over
/// in seconds. Everything that asks the clock speeds up alike: the drive, the wizard's procedures, a play's waiting.
class CScaledClock : public CClock {
public:
    /// `base` is borrowed, `factor` is at least 1.
    CScaledClock(CClock& base, int factor) : m_base(base), m_factor(factor), m_start(base.Now()) {}

    qint64 Now() override { return m_start + (m_base.Now() - m_start) * m_factor; }

    void Sleep(qint64 milliseconds) override {
        m_owed += milliseconds;
        m_base.Sleep(m_owed / m_factor);
        m_owed %= m_factor;
    }

protected:
    qint64 OnTheWall(qint64 milliseconds) const override { return (milliseconds + m_factor - 1) / m_factor; }

private:
    CClock& m_base;
    qint64 m_factor;
    qint64 m_start;
    qint64 m_owed = 0; ///< slept here, too short to have been slept on the base clock
};

} // namespace krt550
