#pragma once

#include "drive/motor_sets.h"

#include <QString>

#include <set>

namespace krt550 {

/// Changes a motor of --drive by its options: "R=3.1,L=0.02,J=2" and so on.
class CMotorOptions {
public:
    explicit CMotorOptions(const MotorSet& motor) : m_motor(motor) {}

    static bool Knows(const QString& option);
    /// False, with the option, the value and the range in `error`, for a value that does not fit.
    bool Set(const QString& option, const QString& value, QString& error);
    /// The motor. What was not given and follows from what was is made to fit: the flux constant from the name plate,
    /// mains, converter, exciter and field resistance from the ratings.
    MotorSet GetMotor() const;
    /// A line for each option, with its unit, for help texts.
    static QString Help();

private:
    bool IsGiven(const char* option) const { return m_given.contains(QLatin1String(option)); }

    MotorSet m_motor;
    std::set<QString> m_given;
};

} // namespace krt550
