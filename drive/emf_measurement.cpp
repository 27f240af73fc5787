#include "drive/emf_measurement.h"

#include "drive/drive_settings.h"

#include <cmath>

namespace krt550 {

void CEmfMeasurement::Step(double seconds, double voltage, double current, double flux, const DriveSettings& settings) {
    constexpr double kLeastFlux = 0.05;
    m_voltage.Step(voltage - settings.resistance * current, seconds, settings.emfFilter);
    // What is left of a current when its bridge is blocked goes out without a trace in the mean voltage.
    if (current == 0)
        m_current.Preset(m_current.GetOutput() - m_former);
    m_former = current;
    // The filtered current's derivative is (i - filtered i)/T, so both parts come through the same lag.
    const double rise = settings.emfFilter > seconds ? (current - m_current.GetOutput()) / settings.emfFilter : 0;
    m_current.Step(current, seconds, settings.emfFilter);
    m_emf = m_voltage.GetOutput() - settings.inductance * rise;
    // The flux through the same lag as the EMF: a field that changes fast must not look like another speed.
    m_flux.Step(flux, seconds, settings.emfFilter);
    const bool tells = std::abs(m_flux.GetOutput()) >= kLeastFlux;
    m_speed = tells ? m_emf / (settings.ratedEmf * m_flux.GetOutput()) * settings.baseSpeed : 0;
}

void CEmfMeasurement::Reset() {
    *this = {};
}

} // namespace krt550
