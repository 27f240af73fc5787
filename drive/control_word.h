#pragma once

#include <QtGlobal>

/// Bits of the drive's control and status words.
namespace krt550 {

namespace control {
inline constexpr quint16 kOn = 1U << 0;          ///< 0: ramp stop, then the contactor opens
inline constexpr quint16 kNoCoastStop = 1U << 1; ///< 0: coast stop
inline constexpr quint16 kNoQuickStop = 1U << 2; ///< 0: quick stop
inline constexpr quint16 kEnableOperation = 1U << 3;
inline constexpr quint16 kEnableRamp = 1U << 4;           ///< 0: ramp output is 0 at once
inline constexpr quint16 kUnfreezeRamp = 1U << 5;         ///< 0: ramp output stays where it is
inline constexpr quint16 kEnableSetpoint = 1U << 6;       ///< 0: ramp input is 0
inline constexpr quint16 kAcknowledge = 1U << 7;          ///< 0 to 1: fault acknowledged
inline constexpr quint16 kByOverridingControl = 1U << 10; ///< 0: the overriding control's word does not count

/// Switched off, no stop commanded.
inline constexpr quint16 kIdle = kNoCoastStop | kNoQuickStop;
/// What a running motor needs beside kOn and kIdle.
inline constexpr quint16 kRun = kEnableOperation | kEnableRamp | kUnfreezeRamp | kEnableSetpoint;
} // namespace control

namespace status {
inline constexpr quint16 kReadyToSwitchOn = 1U << 0;
inline constexpr quint16 kReadyToOperate = 1U << 1;
inline constexpr quint16 kOperationEnabled = 1U << 2;
inline constexpr quint16 kFault = 1U << 3;
inline constexpr quint16 kNoCoastStop = 1U << 4;
inline constexpr quint16 kNoQuickStop = 1U << 5;
inline constexpr quint16 kInhibited = 1U << 6;
inline constexpr quint16 kWarning = 1U << 7;
inline constexpr quint16 kSpeedInTolerance = 1U << 8;
inline constexpr quint16 kControlRequested = 1U << 9; ///< the drive takes its commands from outside, not locally
inline constexpr quint16 kSpeedThreshold = 1U << 10;
} // namespace status

} // namespace krt550
