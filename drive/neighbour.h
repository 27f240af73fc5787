#pragma once

#include <QtGlobal>

namespace krt550 {

/// Something beside a simulated drive that lives by the drive's time and moves words between itself and the drive.
class CNeighbour {
public:
    virtual ~CNeighbour() = default;
    /// Nothing moves there: any time may pass in one go.
    virtual bool IsResting() const = 0;
    /// `milliseconds` have passed in the drive; the clock has come to `now`.
    virtual void Pass(qint64 milliseconds, qint64 now) = 0;
};

} // namespace krt550
