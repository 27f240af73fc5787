#pragma once

#include <functional>

namespace krt550 {

class CHostDrive;
class CParameter;

enum class ServiceModeEnd {
    First,  ///< 99.06 is put to 0 before anything else
    IfLeft, ///< the stop ends it; what is left of it when the motor stands is ended
    Over    ///< the drive has ended it
};

/// What may differ from one way out to another.
struct WayOut {
    ServiceModeEnd modeEnd = ServiceModeEnd::First;
    CParameter* serviceMode = nullptr; ///< 99.06, ended whoever has begun it; null: only the mode that a run has begun
    bool stopsAtOnce = false;          ///< stops before it asks for the state: for who knows that the motor turns
    bool asksCancelCondition = false;  ///< stops only when the drive says that a cancelled page has to
    bool keepsControl = false;         ///< keeps local control once the motor stands
};

/// The one way out of whatever the wizard does with a motor: service mode, state, stop, contactor, standstill, local
/// control. Every step is tried whatever became of the one before, and what failed is told after the last. Until the
/// drive confirms standstill the stop is repeated every 250 ms and nothing else is asked of the link; after 2 s a box
/// over everything points to the E-stop. Meanwhile the event loop runs. A call during another one does nothing, and so
/// does one without a drive.
///
/// False when standstill was not confirmed: the window has been closed and the link stays dead, or the call did nothing.
/// From then on the wizard is silent: the drive stops by itself when it is not heard any more.
bool MakeSafe(CHostDrive* drive, const WayOut& way);

/// True while a stop waits to be confirmed.
bool IsMotorStopping();
/// True from taking local control, or closing the contactor, until the way out has ended.
bool IsMotorUnderControl();
/// Has `action` called from the event loop as soon as no stop waits any more; only the last one given counts.
void WhenMotorStands(std::function<void()> action);

/// Nobody wants the run that is on any more; for whoever goes the way out then.
void AbortMotorRun();

/// For who reads something else while a run is on, between two reads: sees input as the run does. False when nobody
/// wants the run any more; true without one.
bool LookDuringRun();

/// A wizard begins: what a former one left does not count.
void BeginMotorSession();
/// The wizard's window is being closed: a stop that is not confirmed is not waited for without an end any more.
void EndMotorSession();

} // namespace krt550
