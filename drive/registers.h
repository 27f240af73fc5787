#pragma once

#include <QtGlobal>

/// The registers that the simulated drive itself reads or keeps up to date. Any of them may be missing from a
/// drive description; the drive then goes by the fallback named at the place of use.
namespace krt550::reg {

// Actual values, read-only.
inline constexpr quint16 kSpeedFiltered = 101;     ///< [rpm]
inline constexpr quint16 kSpeedEmf = 102;          ///< from the armature voltage [rpm]
inline constexpr quint16 kSpeedEncoder = 103;      ///< [rpm]
inline constexpr quint16 kSpeed = 104;             ///< from the chosen feedback [rpm]
inline constexpr quint16 kSpeedTacho = 105;        ///< [rpm]
inline constexpr quint16 kMainsVoltage = 112;      ///< [V]
inline constexpr quint16 kArmatureVoltage = 114;   ///< [V]
inline constexpr quint16 kArmatureCurrent = 116;   ///< [A]
inline constexpr quint16 kFieldCurrent = 130;      ///< motor 1 [A]
inline constexpr quint16 kSpeedReference = 217;    ///< after the ramp [rpm]
inline constexpr quint16 kSpeedReferenceSum = 218; ///< at the speed controller [rpm]

// Times, counters and words.
inline constexpr quint16 kSystemTime = 601;  ///< [min]
inline constexpr quint16 kDaysPowered = 602; ///< [d]
inline constexpr quint16 kStartCount = 605;
inline constexpr quint16 kTripCount = 606;
inline constexpr quint16 kControlWord = 701; ///< from the overriding control
inline constexpr quint16 kUsedControlWord = 704;
inline constexpr quint16 kStatusWord = 801;
inline constexpr quint16 kAuxiliaryStatusWord = 802;
inline constexpr quint16 kDriveState = 807;
inline constexpr quint16 kControlPlace = 808;
inline constexpr quint16 kLastFaultCode = 910;
inline constexpr quint16 kDiagnosis = 911;

// Settings.
inline constexpr quint16 kSpeedMinimum = 2001;    ///< [rpm]
inline constexpr quint16 kSpeedMaximum = 2002;    ///< [rpm]
inline constexpr quint16 kRampUp = 2201;          ///< standstill to base speed [s]
inline constexpr quint16 kRampDown = 2202;        ///< base speed to standstill [s]
inline constexpr quint16 kQuickStopRamp = 2204;   ///< base speed to standstill [s]
inline constexpr quint16 kRemoteReference = 2301; ///< from the overriding control [rpm]
inline constexpr quint16 kContactorTime = 3034;   ///< main contactor must have followed its command [ms]
inline constexpr quint16 kBaseSpeed = 9904;       ///< [rpm]
inline constexpr quint16 kServiceMode = 9906;

} // namespace krt550::reg
