#pragma once

class QWidget;

namespace krt550 {

class CHostDrive;

/// Closes the contactor, then starts the motor whatever the first answered. Returns the contactor's answer; false for
/// null.
bool CloseContactorAndStart(CHostDrive* drive);

/// Stops the motor, then opens the contactor.
void StopAndOpenContactor(CHostDrive* drive);

/// Waits until the drive reports its motor stopped, at most 250 times 100 ms, and keeps `page` alive meanwhile (null:
/// no messages are pumped). False when it never did, and for a null drive.
bool WaitForStatusBit(CHostDrive* drive, const QWidget* page);

/// Drains the thread's message queue. Does nothing for null.
void PumpMessages(const QWidget* page);

} // namespace krt550
