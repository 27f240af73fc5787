#pragma once

#include "drive/speed_ramp.h"

#include <array>

namespace krt550 {

class CRegisterFile;

/// How the ramp goes on.
enum class RampMode {
    Follow, ///< to its target
    Stop,   ///< to standstill in the ramp time
    Quick,  ///< to standstill in the quick stop time
    Hold,   ///< stays
    Zero    ///< standstill at once
};

/// From the speed reference to what the speed controller gets: speed limits and ramp.
class CReferenceChain {
public:
    /// Speed limits and ramp times out of the registers; `baseSpeed` [rpm].
    void Read(const CRegisterFile& registers, double baseSpeed);
    /// Within the speed limits [rpm].
    double Limit(double reference) const;

    /// Where the ramp goes on from [rpm].
    void Preset(double speed) { m_ramp.Preset(speed); }
    void Step(double seconds, RampMode mode, double target);
    /// The ramp times that count from now on.
    void Choose(RampSet set) { m_set = static_cast<std::size_t>(set); }
    double GetOutput() const { return m_ramp.GetOutput(); } ///< [rpm]

private:
    CSpeedRamp m_ramp;
    double m_low = 0;
    double m_high = 0;
    std::array<RampSlopes, 3> m_slopes;
    std::size_t m_set = 0;
    double m_slopeQuick = 0; ///< [rpm/s]
};

} // namespace krt550
