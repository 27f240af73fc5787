#pragma once

#include "hostlib/tolvbo32/clock.h"

#include <QString>

#include <functional>

namespace krt550 {

class CLastStop;

/// Ends a run of the wizard from outside, as a careful person would: stops the motor, then closes window after window,
/// so that the wizard returns. A wizard that does not is given up 10 s after the motor has come to rest: the program
/// then ends without it.
class CClosing {
public:
    /// `stop` is borrowed.
    CClosing(CLastStop& stop, std::function<void(const QString&)> complain);

    /// The first steps are taken at once, the others from the event loop.
    void Begin();
    bool HasBegun() const { return m_hasBegun; }
    /// The wizard has returned: nothing is left to close.
    void End() { m_timer.Stop(); }

private:
    void Step();

    CLastStop& m_stop;
    std::function<void(const QString&)> m_complain;
    CClockTimer m_timer;
    bool m_hasBegun = false;
    qint64 m_nextStop = 0;
    qint64 m_restsSince = 0; ///< the motor stands, as far as can be known
};

} // namespace krt550
