#include "drive/speed_control.h"

#include "drive/drive_settings.h"

#include <algorithm>
#include <cmath>

namespace krt550 {

void CSpeedControl::Start(double speed) {
    m_reference.Preset(speed);
    m_feedback.Preset(speed);
    m_error.Preset(0);
    m_controller.Preset(0);
}

double CSpeedControl::Step(double seconds, double reference, double speed, double reachHigh, double reachLow,
                           const DriveSettings& settings, double lag, const TorqueWindow& window) {
    const double lags = settings.SmallLags();
    const double slower = 1 + lag / lags; // the symmetrical optimum's gain and time go with the lags
    const PiSetting setting{settings.speed.gain / slower, settings.speed.time * slower};
    const double filter = std::max(settings.referenceFilter, 4 * slower * lags);
    m_reference.Step(reference, seconds, filter);
    m_feedback.Step(speed, seconds, settings.feedbackFilter);
    const double error = (m_reference.GetOutput() - m_feedback.GetOutput()) / settings.baseSpeed;
    m_error.Step(error, seconds, settings.errorFilter);
    const double high = std::max(0.0, std::min(settings.torqueHigh, reachHigh));
    const double low = std::min(0.0, std::max(settings.torqueLow, reachLow));
    const double windowHigh = std::clamp(window.high, low, high) - window.added;
    const double windowLow = std::min(windowHigh, std::clamp(window.low, low, high) - window.added);
    const double torque = m_controller.Step(m_error.GetOutput(), seconds, setting, windowLow, windowHigh);
    m_limited = torque <= windowLow || torque >= windowHigh;
    return window.added + torque;
}

double CFluxControl::Step(double seconds, double emf, double speed, const DriveSettings& settings) {
    const double rated = std::max(settings.ratedEmf, 1e-3);
    const double share = std::abs(speed) / settings.baseSpeed * settings.ratedEmf / std::max(settings.emfLimit, 1e-3);
    const double forward = share > 1 ? 1 / share : 1;
    const double error = (settings.emfLimit - std::abs(emf)) / rated;
    const double trim = m_controller.Step(error, seconds, settings.emf, settings.emfLow, settings.emfHigh);
    return std::clamp(forward + trim, std::min(settings.leastFlux, 1.0), 1.0);
}

} // namespace krt550
