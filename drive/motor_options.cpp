#include "drive/motor_options.h"

#include "hostlib/tolvbo32/dtoa.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace krt550 {
namespace {

struct MotorOption {
    const char* name;
    double MotorSet::*value;
    const char* unit;
    double least, most;
    const char* meaning;
};

constexpr MotorOption kOptions[] = {
    {"U", &MotorSet::voltage, "V", 10, 1200, "rated armature voltage"},
    {"I", &MotorSet::current, "A", 0.5, 3000, "rated armature current"},
    {"n", &MotorSet::baseSpeed, "rpm", 50, 6000, "base speed"},
    {"Uf", &MotorSet::fieldVoltage, "V", 5, 700, "rated field voltage"},
    {"If", &MotorSet::fieldCurrent, "A", 0.05, 300, "rated field current"},
    {"R", &MotorSet::ra, "Ohm", 0.0005, 60, "armature resistance"},
    {"L", &MotorSet::la, "H", 1e-5, 0.6, "armature inductance"},
    {"Rf", &MotorSet::rf, "Ohm", 0.05, 20000, "field resistance"},
    {"Lf", &MotorSet::lf, "H", 0.001, 20000, "field inductance"},
    {"Laf", &MotorSet::laf, "H", 1e-5, 100, "flux constant per field current; otherwise from the name plate"},
    {"J", &MotorSet::inertia, "kg m2", 0.0005, 2000, "moment of inertia"},
    {"friction", &MotorSet::coulomb, "Nm", 0, 20000, "friction of the motor"},
    {"load", &MotorSet::load, "Nm", 0, 20000, "torque of a driven machine, against the rotation"},
    {"hanging", &MotorSet::hanging, "Nm", -20000, 20000,
     "load that pulls against positive rotation, at standstill too"},
    {"mains", &MotorSet::mains, "V", 10, 1200, "line voltage; otherwise the armature voltage through 1.05"},
};

const MotorOption* Find(const QString& name) {
    const auto* const found =
        std::ranges::find_if(kOptions, [&](const MotorOption& option) { return name == QLatin1String(option.name); });
    return found == std::end(kOptions) ? nullptr : found;
}

} // namespace

bool CMotorOptions::Knows(const QString& option) {
    return Find(option) != nullptr;
}

bool CMotorOptions::Set(const QString& option, const QString& value, QString& error) {
    const MotorOption* known = Find(option);
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!known || !isNumber || !(number >= known->least && number <= known->most)) {
        error = !known ? QStringLiteral("there is no motor option \"%1\"").arg(option)
                       : QStringLiteral("option %1: \"%2\" is not a number from %3 to %4 %5")
                             .arg(option, value)
                             .arg(known->least)
                             .arg(known->most)
                             .arg(QLatin1String(known->unit));
        return false;
    }
    m_motor.*known->value = number;
    m_given.insert(option);
    return true;
}

MotorSet CMotorOptions::GetMotor() const {
    MotorSet motor = m_motor;
    if (m_given.empty())
        return motor;
    const bool armature = IsGiven("U") || IsGiven("I") || IsGiven("n") || IsGiven("If") || IsGiven("R");
    if (armature && !IsGiven("Laf")) {
        // A motor whose resistance takes more than its voltage keeps a little EMF: its name plate contradicts itself.
        const double emf = std::max(0.05 * motor.voltage, motor.voltage - motor.ra * motor.current);
        motor.laf = emf / (motor.baseSpeed * std::numbers::pi / 30) / motor.fieldCurrent;
    }
    if ((IsGiven("Uf") || IsGiven("If")) && !IsGiven("Rf"))
        motor.rf = motor.fieldVoltage / motor.fieldCurrent;
    FitSupply(motor);
    if (IsGiven("mains"))
        motor.mains = m_motor.mains;
    return motor;
}

QString CMotorOptions::Help() {
    QString text;
    for (const MotorOption& option : kOptions)
        text += QStringLiteral("  %1%2 (%3 to %4)\n")
                    .arg(QStringLiteral("%1=%2")
                             .arg(QLatin1String(option.name), QLatin1String(option.unit))
                             .leftJustified(24),
                         QLatin1String(option.meaning))
                    .arg(option.least)
                    .arg(option.most);
    return text;
}

} // namespace krt550
