#pragma once

#include "drive/monotone_curve.h"

#include <cmath>

namespace krt550 {

/// Constants of a separately excited DC motor.
struct MotorData {
    double armatureResistance = 1;   ///< Ra [Ohm]
    double armatureInductance = 0.1; ///< La [H]
    double fieldResistance = 1;      ///< Rf [Ohm]
    double fieldInductance = 1;      ///< Lf [H]
    double mutualInductance = 1;     ///< Laf [H]: the flux constant is k = Laf*if [V*s] without saturation
    double inertia = 1;              ///< J [kg*m2], above 0
    double viscousFriction = 0;      ///< B [N*m*s]
    double coulombFriction = 0;      ///< [N*m]
    double brushDrop = 0;            ///< both brushes together, against the current [V]
    CMonotoneCurve magnetisation;    ///< k [V*s] over if [A]; empty: without saturation
    double remanence = 0;            ///< k that the iron keeps without field current [V*s]
    double remanenceField = 0;       ///< field current that wipes the remanence out [A]
};

/// Which way the armature circuit lets current through.
enum class Conduction { Open, Forward, Backward, Both };

/// What feeds the armature for a step: u = voltage + slope * (ia - ia at the step's start).
struct ArmatureSupply {
    Conduction conduction = Conduction::Open;
    double voltage = 0; ///< [V]
    double slope = 0;   ///< du/dia [Ohm], not above 0: a converter's voltage gives way under its current
};

/// How far a circuit's current gets in a step on its way to where it settles: 1 - exp(-R/L*t). Worked out anew only
/// when R/L*t is another one than in the step before.
class CSettling {
public:
    double ShareOf(double resistance, double inductance, double seconds) {
        const double exponent = -resistance / inductance * seconds;
        if (exponent != m_exponent) {
            m_exponent = exponent;
            m_share = -std::expm1(exponent);
        }
        return m_share;
    }

private:
    double m_exponent = 0;
    double m_share = 0;
};

/// A separately excited DC motor with its shaft:
///     La*dia/dt = ua - Ra*ia - k(if)*w - brush drop,  Lf*dif/dt = uf - Rf*if,
///     J*dw/dt = k(if)*ia - load - B*w - Coulomb friction.
/// Without field current the iron keeps a remanence in the direction of its last magnetisation, which the field current
/// wipes out: k(if) has (1 - if/remanenceField)^2 of it added.
/// The currents go by the exponential solution over a step, the speed by the current at its end, so that a step may be
/// longer than the electrical time constants. 0.1 ms suits the speed loops of all motors here.
class CDcMotor {
public:
    explicit CDcMotor(MotorData data = {}) : m_data(std::move(data)) { SetFieldCurrent(0); }

    const MotorData& GetData() const { return m_data; }
    /// Other constants from now on, the state stays.
    void SetData(const MotorData& data) {
        m_data = data;
        SetFieldCurrent(m_fieldCurrent);
    }
    /// Torque against positive rotation [N*m]; a hanging load turns a motor that nothing holds.
    void SetLoad(double torque) { m_load = torque; }
    double GetLoad() const { return m_load; }
    /// Torque of a driven machine: against the rotation, whichever way it goes, and never on its own [N*m].
    void SetBrake(double torque) { m_brake = torque; }
    /// A locked shaft does not turn, whatever the torque.
    void SetLocked(bool locked) { m_locked = locked; }
    /// Field or armature cables are swapped: the shaft turns and pushes the other way.
    void SetSwapped(bool swapped) { m_polarity = swapped ? -1 : 1; }
    /// A broken field circuit carries no current.
    void SetFieldBroken(bool broken) { m_fieldBroken = broken; }
    /// A broken armature circuit carries no current.
    void SetArmatureBroken(bool broken) { m_armatureBroken = broken; }

    void Step(double seconds, const ArmatureSupply& armature, double fieldVoltage);
    /// A long time without any supply: the field current decays. For a motor that stands.
    void Rest(double seconds);
    /// Nothing turns or is about to turn by itself.
    bool IsAtRest() const;

    double GetArmatureCurrent() const { return m_armatureCurrent; }            ///< ia [A]
    double GetFieldCurrent() const { return m_fieldCurrent; }                  ///< if [A]
    double GetSpeed() const { return m_speed; }                                ///< w [rad/s]
    double GetFluxConstant() const { return m_polarity * m_flux; }             ///< k [V*s]
    double GetEmf() const { return GetFluxConstant() * m_speed; }              ///< [V]
    double GetTorque() const { return GetFluxConstant() * m_armatureCurrent; } ///< [N*m]

private:
    void SetFieldCurrent(double current);
    double GetFriction() const { return m_data.coulombFriction + m_brake; }
    void StepArmature(double seconds, const ArmatureSupply& armature);
    void StepShaft(double seconds);

    MotorData m_data;
    CSettling m_fieldSettling;
    CSettling m_armatureSettling;
    double m_load = 0;
    double m_brake = 0;
    double m_polarity = 1;
    double m_magnetised = 1; ///< direction that the iron was magnetised in last
    bool m_locked = false;
    bool m_fieldBroken = false;
    bool m_armatureBroken = false;
    double m_armatureCurrent = 0;
    double m_fieldCurrent = 0;
    double m_flux = 0; ///< that the field current makes, whatever the polarity [V*s]
    double m_speed = 0;
};

} // namespace krt550
