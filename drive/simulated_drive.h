#pragma once

#include "drive/command_supervision.h"
#include "drive/control_places.h"
#include "drive/drive_counters.h"
#include "drive/fan_supervision.h"
#include "drive/fault_memory.h"
#include "drive/macros.h"
#include "drive/main_contactor.h"
#include "drive/mains_supply.h"
#include "drive/motor_control.h"
#include "drive/motor_sets.h"
#include "drive/protection.h"
#include "drive/reference_chain.h"
#include "drive/register_file.h"
#include "drive/service_mode.h"
#include "drive/switch_logic.h"
#include "drive/terminal_board.h"

#include <QString>

#include <optional>

namespace krt550 {

/// A DC drive with its motor, as it looks from its terminals and its registers, composed of its parts: switch-on logic,
/// control places, main contactor, reference chain, closed loops, supervisions, fault memory and service modes. Its
/// time is CClock's: every access first brings it up to now. Commands and link accesses answer false when the drive
/// refuses; GetLastError then says why, in words for a person.
class CSimulatedDrive {
public:
    /// With `motor` the name plate registers follow it; null: the default motor, and the registers stay as described.
    explicit CSimulatedDrive(std::vector<ParameterDescription> descriptions, const MotorSet* motor = nullptr);

    // The queries tell the drive's state as of the last access.
    /// The registers as the drive's inside sees them: to look at and to change behind everybody's back.
    CRegisterFile& GetRegisters() { return m_registers; }
    const CFaultMemory& GetFaults() const { return m_faults; }
    DriveState GetState() const { return m_logic.GetState(); }
    ControlPlace GetControlPlace() const { return m_places.GetPlace(); }
    bool IsContactorClosed() const { return m_contactor.IsClosed(); }
    /// The motor stands still and is not driven.
    bool IsStopped() const { return IsStandstill() && !m_logic.IsDriving(); }
    double GetSpeed() const; ///< of the shaft [rpm]
    /// The motor as it is: its true constants, its load, its shaft, for those who look behind the drive.
    CDcMotor& GetMotor() { return m_control.GetMotor(); }
    const MotorSet& GetMotorSet() const { return m_set; }
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
    /// Whether the one who accesses the drive from now on is the tool that holds local control; true to begin with.
    void SetToolSpeaks(bool speaks) { m_toolSpeaks = speaks; }
    bool ReadRegister(quint16 reg, quint16& word);
    bool WriteRegister(quint16 reg, quint16 word);
    /// Complete record of the last fault; before the first one its fields have no values.
    QByteArray ReadFaultRecord();

    // Terminals.
    /// Switches a digital input (0 or not 0) or puts a voltage on an analogue one [V]. False for an output.
    bool SetTerminal(const Terminal& terminal, double value);
    /// What lies at a terminal, inputs and outputs alike.
    double GetTerminal(const Terminal& terminal);
    /// The wirings that 99.07 loads. Without any the drive refuses to load one.
    void SetMacros(CMacroTable macros) { m_macros = std::move(macros); }

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

    // What can go wrong around the drive. Settle has the drive look at what has been changed in its parts.
    CMainContactor& GetContactor() { return m_contactor; }
    CMainsSupply& GetMains() { return m_mains; }
    CFanSupervision& GetFans() { return m_fans; }
    CCommandSupervision& GetCommanders() { return m_commanders; }
    CServiceMode& GetServiceMode() { return m_service; }
    void Settle();
    /// Another control place holds the drive, until it is told otherwise. Takes local control away.
    void SetOtherControl(bool holds);
    /// Another control place holds the drive for `milliseconds`.
    void SetOtherControlFor(qint64 milliseconds);
    /// The emergency stop is pressed.
    void SetEmergencyStop(bool pressed);
    /// An interlock outside the drive refuses every start.
    void SetStartRefused(bool refused) { m_startRefused = refused; }
    /// Current to earth that flows while the converter is live, of rated current.
    void SetEarthCurrent(double share) { m_earthCurrent = share; }
    /// Cause of a trip that is there until it is taken away (0); the drive cannot be reset before.
    void SetTripCause(quint16 code);
    /// Trips the drive now: the converter is blocked, the contactor opens, the motor coasts.
    void Trip(quint16 code);

private:
    bool IsResting() const;
    void Pass(qint64 milliseconds);
    void Integrate(double seconds, std::set<quint16>& alarms);
    void ListenToCommanders(qint64 milliseconds, std::set<quint16>& alarms);
    void ReadParameters();
    void ScanTerminals(double seconds);
    void LookAtInputs();
    void DemandTorque(MotorCommand& command);
    bool LoadMacro();
    bool AcknowledgeFault();
    MotorCommand NextCommand();
    RampMode NextRampMode() const;
    bool MayChangeToEmf() const;
    void CheckMotor(const MotorCommand& command, std::set<quint16>& alarms);
    void Supervise(double seconds);
    ServiceView GetServiceView() const;
    CommandView GetCommandView() const;
    void SettleLogic();
    void ShowState();
    bool TakeHandTacho(quint16 word);
    bool IsCurrentTooLarge(quint16 word);
    bool Refuse(const QString& error);
    bool RefuseWithoutLocalControl();
    QString WhyNotOn() const;

    double BaseSpeed() const;
    double UsedSpeed() const;
    bool IsStandstill() const;
    bool IsEmergencyStopActive() const;
    bool IsDisconnected() const;
    bool IsContactorAcknowledged() const;
    bool IsFieldHeated() const;
    PlantState GetPlant() const;
    double RampTarget() const;
    quint16 UsedControlWord() const;
    SwitchInputs Inputs() const;

    CRegisterFile m_registers;
    const MotorSet m_set;
    CSwitchLogic m_logic;
    CControlPlaces m_places;
    CTerminalBoard m_board;
    CMacroTable m_macros;
    CMainContactor m_contactor;
    CMainsSupply m_mains;
    CReferenceChain m_references;
    CMotorControl m_control;
    CProtection m_protection;
    CFanSupervision m_fans;
    CCommandSupervision m_commanders;
    CFaultMemory m_faults;
    CServiceMode m_service;

    quint32 m_settingsVersion = 0; ///< that the next two were read at
    DriveSettings m_settings;
    TripLevels m_levels;
    CLag m_display;             ///< filtered speed [rad/s]
    double m_fieldHeating = 0;  ///< field current that keeps it warm, relative
    bool m_fieldWaited = false; ///< the field was there since the motor is driven
    quint16 m_formerControlWord = 0;
    bool m_emergencyStop = false;
    bool m_startRefused = false;
    double m_earthCurrent = 0;
    qint64 m_otherLeft = 0; ///< another place holds the drive for so long [ms]

    DriveCounters m_counters;
    bool m_toolSpeaks = true;
    QString m_error;
    int m_starts = 0;
    qint64 m_lastAdvance; ///< clock reading up to which the drive has come [ms]
    qint64 m_age = 0;     ///< since the drive was powered up [ms]
    qint64 m_shown = 0;   ///< age at which it was shown last [ms]
};

} // namespace krt550
