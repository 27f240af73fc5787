#pragma once

#include "drive/service_run.h"

namespace krt550 {

class CTestBench;

/// The service runs. Each needs the bench for as long as it lives; the identification runs end with the motor at
/// standstill when they succeed.
CServiceRun RunArmature(CTestBench& bench);
CServiceRun RunField(CTestBench& bench);
CServiceRun RunWeakening(CTestBench& bench);
CServiceRun RunSpeed(CTestBench& bench);
/// Sends the field current the way that it is told, again and again, until it is told to end.
CServiceRun RunReversal(CTestBench& bench);
/// Keeps the motor turning once it has found the feedback, until it is stopped.
CServiceRun RunFeedbackTest(CTestBench& bench);
/// Turns the motor on its tacho and takes in what a hand-held one shows, until it is stopped.
CServiceRun RunTachoTuning(CTestBench& bench);

/// A hand-held tacho that shows `shown` while the drive reads `tacho` has been read right, as far as one can tell.
bool IsHandTachoPlausible(double shown, double tacho);

/// Peak [A] of the current in R and L after firing at `alpha` [rad] against no EMF.
double PulsePeak(double peakVoltage, double frequency, double alpha, double resistance, double inductance);
/// Inductance [H] at which that peak comes out; 0 when there is none.
double InductanceOfPeak(double peakVoltage, double frequency, double alpha, double resistance, double current);

} // namespace krt550
