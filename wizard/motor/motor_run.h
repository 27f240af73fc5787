#pragma once

#include "wizard/platform/message_box.h"

#include <QString>
#include <QtGlobal>

#include <optional>
#include <utility>

namespace krt550 {

class CHostDrive;
class CParameter;
enum class ServiceModeEnd;

/// A run that may turn the motor, from the permission to its end: the one gate before everything that makes the drive
/// more alive. Each of those operations first looks whether the run is still wanted, and does nothing when it is not:
/// when Cancel, Escape, the close button or the end of the application came while messages were drained, a box was open
/// or time passed. From the first of them until the motor stands no box is shown (BoxHold).
///
/// A run whose object goes away leaves the drive safe, whatever happened.
class CMotorRun {
public:
    /// Both are borrowed; `serviceMode` is 99.06, null for a run without one. While another run is on, or a stop waits
    /// to be confirmed, the new one is not wanted.
    CMotorRun(CHostDrive& drive, CParameter* serviceMode);
    ~CMotorRun();
    CMotorRun(const CMotorRun&) = delete;
    CMotorRun& operator=(const CMotorRun&) = delete;

    /// From now on `tell` gets the texts of boxes that would have been shown while the motor may turn; without it they
    /// are shown once it stands.
    void TellAtOnce(BoxHold::Tell tell);

    bool IsWanted();
    // For whoever runs a procedure: between any two drive calls input is seen, and nothing else that asks the drive.
    /// Has the event loop handle what waits, but for timers; false when the run is not wanted any more.
    bool Look();
    /// Lets time pass so; false as soon as the run is not wanted any more.
    bool Wait(qint64 milliseconds);
    /// One cycle of a procedure: lets time pass so, then serves the timers that have fallen due, and looks once more
    /// before each of them.
    bool PassCycle(qint64 milliseconds);
    /// Nobody wants the run any more. Whoever calls it goes the way out.
    void Abort() { m_aborted = true; }

    // The gate. Each is false when the run is not wanted, too. The first two are procedures, and look between their
    // calls.
    /// Nobody else runs the drive, and local control can be had; it is given back at once.
    bool IsPermitted();
    /// Writes the mode into 99.06, lets `settleMs` pass, takes local control unless it is held, closes the contactor
    /// and starts the motor. False when the drive refused the mode or local control; the motor has not been started
    /// then.
    bool Start(quint16 mode, int settleMs);
    bool TakeLocalControl();
    bool CloseContactor();
    bool StartMotor();
    bool SetReference(const QString& reference);
    /// Sets and writes what the running mode goes by. A failure is told once the motor stands.
    bool Write(CParameter* parameter, quint16 word);

    // Always allowed.
    /// Writes 0 into 99.06, for the drive to end its mode itself; a drive that does not take it is left the hard way:
    /// nobody wants the run any more.
    void EndMode();
    bool StopMotor();
    bool OpenContactor();

    /// Looks, and then reads without a word; a failure is told once the motor stands. False also when the run is not
    /// wanted any more.
    bool Read(CParameter* parameter);
    /// The same, for a reading that is repeated anyway: its failure is not told.
    bool TryRead(CParameter* parameter);

    /// The way out (see MakeSafe), and then what failed on the way. Does nothing for a drive that is safe.
    bool MakeSafe(ServiceModeEnd modeEnd, bool keepsControl = false);

private:
    void GoLive();
    void Tell();

    CHostDrive& m_drive;
    CParameter* m_serviceMode;
    BoxHold::Tell m_tell;
    std::optional<BoxHold> m_hold; ///< while the motor may turn
    bool m_aborted;
};

} // namespace krt550
