#pragma once

#include "drive/service_run.h"

namespace krt550 {

class CTestBench;

/// The identification runs. Each needs the bench for as long as it lives, and ends with the motor at standstill when
/// it succeeds.
CServiceRun RunArmature(CTestBench& bench);
CServiceRun RunField(CTestBench& bench);
CServiceRun RunWeakening(CTestBench& bench);
CServiceRun RunSpeed(CTestBench& bench);

/// Peak [A] of the current in R and L after firing at `alpha` [rad] against no EMF.
double PulsePeak(double peakVoltage, double frequency, double alpha, double resistance, double inductance);
/// Inductance [H] at which that peak comes out; 0 when there is none.
double InductanceOfPeak(double peakVoltage, double frequency, double alpha, double resistance, double current);

} // namespace krt550
