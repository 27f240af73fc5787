#pragma once

#include "drive/supervision.h"

#include <array>

namespace krt550 {

class CRegisterFile;

/// The acknowledges of motor fan (30.26, input by 10.16) and converter fan (30.36, 10.15): while the contactor is
/// closed each must be there after 30.25. A fan without an input is not supervised.
class CFanSupervision {
public:
    void SetMotorFanLost(bool lost) { m_fans[0].lost = lost; }
    void SetConverterFanLost(bool lost) { m_fans[1].lost = lost; }
    bool IsMotorFanLost() const { return m_fans[0].lost; }
    bool IsConverterFanLost() const { return m_fans[1].lost; }

    /// `acknowledged` by the motor fan's and the converter fan's input.
    Findings Step(double seconds, bool contactorClosed, const std::array<bool, 2>& acknowledged,
                  const CRegisterFile& registers);

private:
    struct Fan {
        bool lost = false;
        double missing = 0; ///< [s]
    };
    std::array<Fan, 2> m_fans;
};

} // namespace krt550
