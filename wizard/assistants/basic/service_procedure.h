#pragma once

#include <QtGlobal>

#include <vector>

class QWidget;

namespace krt550 {

class CHostDrive;
class CParameter;
class CParameterGroup;
class CParameterSet;
enum class MessageIcon;

// What the autotuning runs and the speed feedback test have in common.

/// Whether the text file's start condition of a step holds with the values that the drive has now.
bool StartConditionHolds(int step, CParameterGroup* root);

/// Nobody else runs the drive, and local control of it can be had; it is given back at once.
bool IsStartPermitted(CHostDrive& drive);

/// Says that it is not.
void ShowStartDenied();

/// Puts the drive into a service mode, takes local control, closes the contactor and starts the motor. False when the
/// drive refused the mode or local control; the motor has not been started then.
bool StartInServiceMode(CHostDrive& drive, CParameter& serviceMode, quint16 mode);

/// Ends a service mode from outside, whoever has begun it. Does nothing for null.
void EndServiceMode(CParameter* serviceMode);

/// Gives local control back when it is held.
void GiveBackLocalControl(CHostDrive& drive);

/// The same for a motor that may turn: it is stopped first.
void StopAndGiveBack(CHostDrive& drive);

/// Shows why a run failed, in the drive's words.
void ShowRunFailure(CParameterGroup* root);

/// Reads the fault record and enables the Diagnosis button when it holds an active fault.
void ReadFaultAfterRun(CHostDrive* drive, QWidget* diagnosisButton);

/// What a Diagnosis button does. `icon` is that of the box for a record that cannot be read.
void ShowDiagnosis(CHostDrive* drive, MessageIcon icon);

/// Reads whose failures are shown later: a box would wait for an answer while the motor turns.
class CQuietReads {
public:
    /// False for null and for a failed read.
    bool Read(CParameter* parameter);
    /// Shows each parameter that failed once.
    void ShowFailures();
    void Clear() { m_failed.clear(); }
    bool HasFailures() const { return !m_failed.empty(); }

private:
    std::vector<const CParameterSet*> m_failed;
};

} // namespace krt550
