#pragma once

#include "drive/pi_controller.h"

#include <limits>

namespace krt550 {

struct DriveSettings;

/// What a torque demand leaves to the speed controller, relative to rated torque.
struct TorqueWindow {
    double low = -std::numeric_limits<double>::infinity();
    double high = std::numeric_limits<double>::infinity();
    double added = 0;
};

/// Speed controller: PI by the symmetrical optimum, with a reference filter that takes the overshoot away. Its output
/// is torque relative to rated current at full flux.
class CSpeedControl {
public:
    /// Starts from the motor's speed [rad/s] without a jerk.
    void Start(double speed);
    /// `reference` and `speed` in rad/s; `reach` is the relative torque that the currents' limits leave, both ways.
    /// `lag` [s] is what this speed is late beyond the feedback that the controller has been tuned for.
    double Step(double seconds, double reference, double speed, double reachHigh, double reachLow,
                const DriveSettings& settings, double lag = 0, const TorqueWindow& window = {});
    double GetReferenceUsed() const { return m_reference.GetOutput(); } ///< [rad/s]
    /// The torque is as large as its limits let it.
    bool IsLimited() const { return m_limited; }

private:
    CLag m_reference;
    CLag m_feedback;
    CLag m_error;
    CPiController m_controller;
    bool m_limited = false;
};

/// EMF controller: the flux reference that keeps the EMF within its limit above base speed.
class CFluxControl {
public:
    /// `emf` [V], `speed` [rad/s]; gives the flux relative to full flux.
    double Step(double seconds, double emf, double speed, const DriveSettings& settings);

private:
    CPiController m_controller;
};

} // namespace krt550
