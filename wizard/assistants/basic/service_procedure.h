#pragma once

#include <QtGlobal>

#include <vector>

class QWidget;

namespace krt550 {

class CHostDrive;
class CMotorRun;
class CSheetWizard;
enum class MessageIcon;

// What the autotuning runs and the speed feedback test have in common.

inline constexpr int kSettleMs = 200; ///< from a service mode to the start
inline constexpr int kCycleMs = 50;   ///< between two looks at a run
inline constexpr int kCycles = 5000;  ///< the drive gets one more than this

/// How a run ended.
enum class Ending {
    Succeeded,
    Failed, ///< the drive is safe; why is still to be told
    Aborted ///< somebody did not want it any more, or it was denied: nothing is left to say
};

/// Asks for the permission; when the drive denies it, says so. True when the run may begin.
bool AskPermission(CMotorRun& run);

/// Failed, or Aborted when nobody wants the run any more.
Ending FailedOrAborted(CMotorRun& run);

/// Shows why a run failed, in the drive's words; not when asking the drive has made somebody close the wizard.
void ShowRunFailure(const CSheetWizard* sheet);

/// Reads the fault record and enables the Diagnosis button when it holds an active fault.
void ReadFaultAfterRun(CHostDrive* drive, QWidget* diagnosisButton);

/// What a Diagnosis button does. `icon` is that of the box for a record that cannot be read.
void ShowDiagnosis(CHostDrive* drive, MessageIcon icon);

} // namespace krt550
