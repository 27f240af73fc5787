#pragma once

#include "drive/drive_counters.h"
#include "drive/fault_record.h"
#include "drive/motor_control.h"
#include "drive/motor_sets.h"
#include "drive/protection.h"
#include "drive/register_file.h"
#include "drive/service_mode.h"
#include "drive/signals.h"
#include "drive/speed_ramp.h"
#include "drive/switch_logic.h"

#include <QString>

#include <optional>

namespace krt550 {

/// A DC drive with its motor, as it looks from its terminals and its registers: switch-on logic, control places,
/// main contactor, speed ramp, closed loops, supervision, trips, fault buffer and service modes. Its time is CClock's:
/// every access first brings it up to now. Commands and link accesses answer false when the drive refuses;
/// GetLastError then says why, in words for a person.
class CSimulatedDrive {
public:
    /// With `motor` the name plate registers follow it; null: the default motor, and the registers stay as described.
    explicit CSimulatedDrive(std::vector<ParameterDescription> descriptions, const MotorSet* motor = nullptr);

    // The queries tell the drive's state as of the last access.
    /// The registers as the drive's inside sees them: to look at and to change behind everybody's back.
    CRegisterFile& GetRegisters() { return m_registers; }
    /// Null before the first fault.
    const std::optional<FaultFields>& GetFaultFields() const { return m_faultFields; }
    /// Code of the fault that the drive is tripped with, 0 = none.
    quint16 GetActiveFault() const { return m_fault; }
    int GetTripCount() const { return m_trips; }
    DriveState GetState() const { return m_logic.GetState(); }
    ControlPlace GetControlPlace() const { return m_place; }
    bool IsContactorClosed() const { return m_contactorClosed; }
    /// The motor stands still and is not driven.
    bool IsStopped() const { return IsStandstill() && !m_logic.IsDriving(); }
    double GetSpeed() const; ///< [rpm]
    /// The motor as it is: its true constants, its load, its shaft, for those who look behind the drive.
    CDcMotor& GetMotor() { return m_control.GetMotor(); }
    /// What is mounted at its shaft end.
    FeedbackEquipment& GetFeedback() { return m_control.GetFeedback(); }
    /// What the motor as it is would have in a register that tells about it: see TrueValue, and in those of the speed
    /// what its shaft does [rpm].
    std::optional<double> GetTrueValue(quint16 reg) const;
    /// What flows and turns.
    const MotorState& GetMotorState() const { return m_control.GetState(); }
    /// Speed reference in use, before the ramp and within the speed limits [rpm].
    double GetSpeedReference() const;
    const QString& GetLastError() const { return m_error; }
    const DriveCounters& GetCounters() const { return m_counters; }
    void ResetCounters() { m_counters = {}; }

    /// Lets the time that has passed since the last access pass in the drive.
    void Advance();

    // Accesses over the link. These and the commands are how the drive hears of the tool that holds local control.
    /// The tool asks for the state.
    void Poll();
    bool ReadRegister(quint16 reg, quint16& word);
    bool WriteRegister(quint16 reg, quint16 word);
    /// Complete record of the last fault; before the first one its fields have no values.
    QByteArray ReadFaultRecord();

    // Commands of the commissioning tool. All but TakeLocalControl, ReleaseLocalControl and ResetFault need local
    // control.
    /// Takes over what the drive is doing: a running motor keeps running at its reference, an idle one gets 0.
    bool TakeLocalControl();
    bool ReleaseLocalControl();
    /// False when the contactor has not closed.
    bool CloseContactor();
    /// A turning motor is first ramped down. False when the contactor hangs closed.
    bool OpenContactor();
    bool StartMotor();
    /// Ramps the motor down; the contactor stays closed.
    bool StopMotor();
    bool ResetFault();
    /// Refused outside the speed limits [rpm].
    bool SetSpeedReference(double rpm);

    // What can go wrong around the drive.
    /// Another control place holds the drive, until it is told otherwise. Takes local control away.
    void SetOtherControl(bool holds);
    /// The main contactor stays where it is.
    void SetContactorStuck(bool stuck);
    /// Supply of the armature converter, line to line [V].
    void SetMains(double voltage);
    /// No supply at all, or that of the name plate again.
    void SetMainsLost(bool lost) { SetMains(lost ? 0 : m_set.mains); }
    /// Cause of a trip that is there until it is taken away (0); the drive cannot be reset before.
    void SetTripCause(quint16 code);
    /// Trips the drive now: the converter is blocked, the contactor opens, the motor coasts.
    void Trip(quint16 code);

private:
    bool IsResting() const;
    void Integrate(double seconds);
    void ReadParameters();
    MotorCommand NextCommand();
    void StepRamp();
    bool MayChangeToEmf() const;
    void CheckTrips(const MotorCommand& command);
    void Supervise(double seconds);
    void SuperviseTool(qint64 milliseconds);
    ServiceView GetServiceView() const;
    void Settle();
    void SettleLogic();
    void SuperviseContactor();
    void ShowState();
    void Acknowledge();
    bool TakeHandTacho(quint16 word);
    bool Refuse(const QString& error);
    bool RefuseWithoutLocalControl();
    QString WhyNotOn() const;

    double BaseSpeed() const;
    bool IsStandstill() const;
    bool IsLocal() const { return m_place == ControlPlace::Local; }
    double RampTarget() const;
    quint16 GivenControlWord() const;
    quint16 UsedControlWord() const;
    SwitchInputs Inputs() const;

    CRegisterFile m_registers;
    CSwitchLogic m_logic;
    CSpeedRamp m_ramp;
    const MotorSet& m_set;
    CMotorControl m_control;
    CProtection m_protection;
    CServiceMode m_service;
    quint32 m_settingsVersion = 0; ///< that the next two were read at
    DriveSettings m_settings;
    TripLevels m_levels;
    double m_slopeUp = 0; ///< of the ramp [rpm/s]
    double m_slopeDown = 0;
    double m_slopeQuick = 0;
    double m_mains = 0;          ///< [V]
    CLag m_display;              ///< filtered speed [rad/s]
    bool m_fieldWaited = false;  ///< the field was there since the motor is driven
    bool m_heldAfterRun = false; ///< a start command that is left over from a service run does not count
    DriveCounters m_counters;
    QString m_error;

    ControlPlace m_place = ControlPlace::Remote;
    quint16 m_localWord = 0;
    double m_localReference = 0; ///< [rpm]
    quint16 m_formerControlWord = 0;
    bool m_contactorClosed = false;
    bool m_contactorStuck = false;
    qint64 m_contactorAstray = 0; ///< for how long the contactor has not followed its command [ms]

    qint64 m_silence = 0;          ///< since the tool was heard, while the drive is on [ms]
    bool m_connectionLost = false; ///< the drive stops because of it
    bool m_stopsAtLimit = false;   ///< and does so at the torque limit

    quint16 m_fault = 0;
    quint16 m_tripCause = 0;
    std::optional<FaultFields> m_faultFields;
    quint16 m_lastFault = 0;
    int m_trips = 0;
    int m_starts = 0;

    qint64 m_lastAdvance; ///< clock reading up to which the drive has come [ms]
    qint64 m_age = 0;     ///< since the drive was powered up [ms]
};

} // namespace krt550
