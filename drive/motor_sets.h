#pragma once

#include "drive/dc_motor.h"

#include <QString>

#include <span>

namespace krt550 {

class CRegisterFile;

/// A motor with its name plate and the supply that fits it.
struct MotorSet {
    const char* name;                                      ///< "S2"
    const char* text;                                      ///< "5 hp"
    double voltage;                                        ///< armature [V]
    double current;                                        ///< armature [A]
    double baseSpeed;                                      ///< [rpm]
    double fieldCurrent;                                   ///< [A]
    double fieldVoltage;                                   ///< [V]
    double mains;                                          ///< line to line, of the armature converter [V]
    double fieldSupply;                                    ///< line voltage of the field exciter [V]
    double converterCurrent;                               ///< nominal [A]
    double exciterCurrent;                                 ///< nominal [A]
    quint16 exciterType;                                   ///< number in the value list of 4.06
    double ra, la, rf, lf, laf, inertia, viscous, coulomb; ///< as in MotorData
    double load = 0;                                       ///< against the rotation, whichever way it goes [N*m]
    double hanging = 0;                                    ///< against positive rotation, at standstill too [N*m]

    double GetRatedTorque() const { return laf * fieldCurrent * current; } ///< [N*m]
};

/// The motors that can be chosen by name.
std::span<const MotorSet> MotorSets();
/// Null when there is no such motor; capital or small letters alike.
const MotorSet* FindMotorSet(const QString& name);
/// The motor of a drive that names none.
const MotorSet& DefaultMotorSet();
/// "S1, S2, S3, S5".
QString MotorSetNames();

MotorData DataOf(const MotorSet& set);
/// Of the commutation chokes before the converter, a phase [H]: 4 % short-circuit voltage at 50 Hz.
double LineInductanceOf(const MotorSet& set);

/// Gives a motor the mains, the converter and the exciter that fit its name plate: the armature voltage is 1.05 of the
/// mains, the converter bears one and a half times its current, the exciter a third more than its field voltage.
void FitSupply(MotorSet& motor);

/// Puts the name plate and what follows from it (speed limits, overspeed, supply, ratings) into the registers.
void ApplyNamePlate(const MotorSet& set, CRegisterFile& registers);

} // namespace krt550
