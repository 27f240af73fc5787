#pragma once

#include "drive/dc_motor.h"
#include "drive/drive_settings.h"
#include "drive/emf_measurement.h"
#include "drive/pi_controller.h"
#include "drive/six_pulse_converter.h"
#include "drive/speed_control.h"

#include <random>

namespace krt550 {

/// What the armature converter does.
enum class ArmatureMode {
    Blocked, ///< no firing pulses
    Braking, ///< no firing pulses, a resistor across the armature
    Current, ///< controls a current
    Speed,   ///< controls the speed
    Pulse    ///< fires one valve pair once, at a given angle, and waits
};

/// What the field exciter does.
enum class FieldMode {
    Off,
    Voltage,  ///< gives a voltage
    Current,  ///< controls a current
    Regulated ///< full field, or what the EMF controller wants, in the direction of the current
};

/// Which speed the speed controller goes by.
enum class SpeedGuide {
    Chosen, ///< the chosen feedback's
    Emf     ///< the EMF's, whatever is chosen
};

/// What converter and exciter are told for a step.
struct MotorCommand {
    ArmatureMode armature = ArmatureMode::Blocked;
    double current = 0;    ///< [A]
    double resistance = 0; ///< of the braking resistor [Ohm]
    double speed = 0;      ///< [rad/s]
    TorqueWindow torque;
    SpeedGuide guide = SpeedGuide::Chosen;
    double firingAngle = 0; ///< of a pulse [rad]
    FieldMode field = FieldMode::Off;
    double fieldVoltage = 0; ///< [V]
    double fieldCurrent = 1; ///< relative
};

/// What flows, turns and is asked for at the end of a step.
struct MotorState {
    double armatureVoltage = 0;  ///< mean [V]
    double armatureCurrent = 0;  ///< [A]
    double fieldVoltage = 0;     ///< [V]
    double fieldCurrent = 0;     ///< [A]
    double speed = 0;            ///< of the shaft [rad/s]
    SpeedSignals signals;        ///< what the speed inputs make of it [rad/s]
    double flux = 0;             ///< that the drive takes the field current for, relative
    double emf = 0;              ///< as measured [V]
    double torque = 0;           ///< [N*m]
    double currentReference = 0; ///< [A]
    double currentWanted = 0;    ///< the same before its limits and its slope [A]
    double torqueReference = 0;  ///< relative
    bool torqueLimited = false;  ///< it is at one of the speed controller's limits
    double speedReference = 0;   ///< at the speed controller [rad/s]
    double fieldReference = 0;   ///< relative
    double cosine = 0;           ///< of the firing angle
    int bridge = 0;              ///< 1, -1, or 0 when no current can flow
    bool continuous = false;     ///< the armature current has no gaps
};

/// Armature converter, field exciter and their controllers around a motor, in steps of fixed length.
class CMotorControl {
public:
    /// Length of a step [s].
    static constexpr double kStep = 1e-4;

    explicit CMotorControl(MotorData data) : m_motor(std::move(data)) {}

    CDcMotor& GetMotor() { return m_motor; }
    const CDcMotor& GetMotor() const { return m_motor; }
    const MotorState& GetState() const { return m_state; }
    const CSixPulseConverter& GetConverter() const { return m_converter; }

    /// What is mounted at the shaft end.
    FeedbackEquipment& GetFeedback() { return m_feedback; }

    /// Supply of the armature converter at 50 Hz: line to line [V], inductance of its chokes a phase [H]; `twoPulse`:
    /// only two phases get through.
    void SetMains(double voltage, double lineInductance, bool twoPulse = false) {
        m_converter.SetSupply(voltage, 50, lineInductance);
        m_converter.SetTwoPulse(twoPulse);
    }
    void Step(const MotorCommand& command, const DriveSettings& settings);
    /// A long time switched off, for a motor that stands.
    void Rest(double seconds);
    /// A pulse has been fired and is over.
    bool IsPulseOver() const { return m_pulseOver; }

private:
    double StepField(const MotorCommand& command, const DriveSettings& settings);
    void StepCurrent(double reference, double fieldVoltage, const DriveSettings& settings);
    double ReferenceFor(const MotorCommand& command, const DriveSettings& settings);
    void StartBridge(const DriveSettings& settings);
    bool HandsOver(double reference, const DriveSettings& settings);
    void StepPulse(double firingAngle, double fieldVoltage);
    void StepOpen(double fieldVoltage, double brakeResistance = 0);
    void Feed(ArmatureSupply supply, double fieldVoltage);
    void Observe(SpeedGuide guide, const DriveSettings& settings);

    CDcMotor m_motor;
    FeedbackEquipment m_feedback;
    CEmfMeasurement m_emf;
    CSixPulseConverter m_converter;
    MotorState m_state;
    ArmatureMode m_mode = ArmatureMode::Blocked;

    CSpeedControl m_speedControl;
    CFluxControl m_fluxControl;
    CPiController m_currentController;
    CPiController m_fieldController;
    CLag m_exciter;      ///< field voltage [V]
    CLag m_firing;       ///< cosine of the firing angle
    CLag m_expected;     ///< current that the reference asks for, through the closed loop's lag [A]
    double m_slope = 0;  ///< current reference behind its slope [A]
    double m_cosine = 0; ///< commanded
    int m_bridge = 1;
    double m_pause = 0;      ///< of a hand-over between the bridges [s]
    double m_pulseAngle = 0; ///< [rad]
    bool m_pulseOver = false;
    std::minstd_rand m_random{550}; ///< for noisy signals
};

} // namespace krt550
