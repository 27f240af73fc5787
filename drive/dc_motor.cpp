#include "drive/dc_motor.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

/// Current after a step through L*di/dt = u - R*i: i + (u/R - i)*(1 - exp(-R/L*t)), with u - R*i as `excess`.
double AfterStep(double current, double excess, double resistance, double inductance, double seconds,
                 CSettling& settling) {
    return current + excess / resistance * settling.ShareOf(resistance, inductance, seconds);
}

double HeldToBridge(double current, Conduction conduction) {
    switch (conduction) {
    case Conduction::Open:
        return 0;
    case Conduction::Forward:
        return std::max(0.0, current);
    case Conduction::Backward:
        return std::min(0.0, current);
    case Conduction::Both:
        break;
    }
    return current;
}

} // namespace

void CDcMotor::SetFieldCurrent(double current) {
    m_fieldCurrent = current;
    if (std::abs(current) > m_data.remanenceField)
        m_magnetised = current < 0 ? -1 : 1;
    const double flux = m_data.magnetisation.IsEmpty()
                            ? m_data.mutualInductance * current
                            : std::copysign(m_data.magnetisation(std::abs(current)), current);
    const double bare = 1 - std::abs(current) / std::max(m_data.remanenceField, 1e-9);
    m_flux = flux + (bare > 0 ? m_magnetised * m_data.remanence * bare * bare : 0);
}

void CDcMotor::Step(double seconds, const ArmatureSupply& armature, double fieldVoltage) {
    const double fieldExcess = fieldVoltage - m_data.fieldResistance * m_fieldCurrent;
    SetFieldCurrent(m_fieldBroken ? 0
                                  : AfterStep(m_fieldCurrent, fieldExcess, m_data.fieldResistance,
                                              m_data.fieldInductance, seconds, m_fieldSettling));
    StepArmature(seconds, armature);
    StepShaft(seconds);
}

void CDcMotor::StepArmature(double seconds, const ArmatureSupply& armature) {
    if (m_armatureBroken || armature.conduction == Conduction::Open) {
        m_armatureCurrent = 0;
        return;
    }
    const bool forward = m_armatureCurrent > 0 || (m_armatureCurrent == 0 && armature.voltage > GetEmf());
    const double brushes = forward ? m_data.brushDrop : -m_data.brushDrop;
    const double excess = armature.voltage - GetEmf() - brushes - m_data.armatureResistance * m_armatureCurrent;
    const double next = AfterStep(m_armatureCurrent, excess, m_data.armatureResistance - armature.slope,
                                  m_data.armatureInductance, seconds, m_armatureSettling);
    m_armatureCurrent = HeldToBridge(next, armature.conduction);
}

void CDcMotor::StepShaft(double seconds) {
    if (m_locked) {
        m_speed = 0;
        return;
    }
    const double torque = GetTorque() - m_load;
    const double friction = GetFriction();
    if (m_speed == 0 && std::abs(torque) <= friction)
        return;
    const double direction = m_speed != 0 ? std::copysign(1.0, m_speed) : std::copysign(1.0, torque);
    const double next =
        m_speed + seconds / m_data.inertia * (torque - m_data.viscousFriction * m_speed - direction * friction);
    // Friction brakes, it does not turn a motor back.
    m_speed = next * direction < 0 && std::abs(torque) <= friction ? 0 : next;
}

void CDcMotor::Rest(double seconds) {
    m_armatureCurrent = 0;
    SetFieldCurrent(m_fieldCurrent * std::exp(-m_data.fieldResistance / m_data.fieldInductance * seconds));
}

bool CDcMotor::IsAtRest() const {
    return m_speed == 0 && (m_locked || std::abs(m_load) <= GetFriction());
}

} // namespace krt550
