#pragma once

#include "drive/pi_controller.h"

namespace krt550 {

/// Modulus optimum for a current loop: the controller's zero cancels the circuit, the closed loop becomes
/// 1/(1 + 2*T*s + 2*T^2*s^2) with 4.3 % overshoot. `lag` T [s] is the feeding converter's. Source: the usual rule,
/// Ti = L/R, Kp = L/(2*T) [Ohm].
inline PiSetting ModulusOptimum(double inductance, double resistance, double lag) {
    return {inductance / (2 * lag), inductance / resistance};
}

/// Symmetrical optimum with a = 2 for a speed loop: Ti = a^2*T, Kp = J/(a*T) [N*m*s], for the sum T [s] of the loop's
/// small lags. Its reference needs a filter with the time Ti.
inline PiSetting SymmetricalOptimum(double inertia, double lags) {
    return {inertia / (2 * lags), 4 * lags};
}

} // namespace krt550
