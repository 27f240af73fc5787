#pragma once

#include <QString>

#include <algorithm>
#include <array>

namespace krt550 {

/// A trip of the drive: its code (1 to 3999) and what it means.
struct FaultCode {
    quint16 code;
    const char* text;
};

inline constexpr quint16 kFaultOvercurrent = 101;
inline constexpr quint16 kFaultOvervoltage = 102;
inline constexpr quint16 kFaultMains = 103;
inline constexpr quint16 kFaultFieldLoss = 104;
inline constexpr quint16 kFaultOverspeed = 105;
inline constexpr quint16 kFaultOvertemperature = 106;
inline constexpr quint16 kFaultFeedback = 107;
inline constexpr quint16 kFaultMainContactor = 108;
inline constexpr quint16 kFaultConnection = 109;
inline constexpr quint16 kFaultExternal = 110;
inline constexpr quint16 kFaultCurrentRise = 111;
inline constexpr quint16 kFaultFieldOvercurrent = 112;
inline constexpr quint16 kFaultEarth = 113;
inline constexpr quint16 kFaultStall = 114;
inline constexpr quint16 kFaultMotorFan = 115;
inline constexpr quint16 kFaultConverterFan = 116;
inline constexpr quint16 kFaultFieldbus = 117;
inline constexpr quint16 kFaultLink = 118;
inline constexpr quint16 kFaultPhaseMissing = 119;
inline constexpr quint16 kFaultPhaseOrder = 120;
inline constexpr quint16 kFaultRipple = 121;
inline constexpr quint16 kFaultAnalogInput = 122;
inline constexpr quint16 kFaultSynchronisation = 127;
inline constexpr quint16 kFaultSharing = 128;
inline constexpr quint16 kFaultSlave = 129;
inline constexpr quint16 kFaultSlaveBridge = 130;
inline constexpr quint16 kFaultSlaveWiring = 131;
inline constexpr quint16 kFaultZeroCurrent = 132;
inline constexpr quint16 kFaultExciter = 133;
inline constexpr quint16 kFirstFault = 101;
/// An alarm's code is that of the fault that it could have been, and this.
inline constexpr quint16 kAlarmOffset = 4000;

inline constexpr auto kFaultCodes = std::to_array<FaultCode>({
    {kFaultOvercurrent, "armature overcurrent"},
    {kFaultOvervoltage, "armature overvoltage"},
    {kFaultMains, "mains voltage lost"},
    {kFaultFieldLoss, "field current lost"},
    {kFaultOverspeed, "motor overspeed"},
    {kFaultOvertemperature, "motor overtemperature"},
    {kFaultFeedback, "speed feedback lost"},
    {kFaultMainContactor, "main contactor does not follow its command"},
    {kFaultConnection, "connection lost in local control"},
    {kFaultExternal, "external trip"},
    {kFaultCurrentRise, "armature current rises too fast"},
    {kFaultFieldOvercurrent, "field overcurrent"},
    {kFaultEarth, "earth current"},
    {kFaultStall, "motor stalled"},
    {kFaultMotorFan, "motor fan acknowledge missing"},
    {kFaultConverterFan, "converter fan acknowledge missing"},
    {kFaultFieldbus, "fieldbus lost"},
    {kFaultLink, "drive-to-drive link lost"},
    {kFaultPhaseMissing, "mains phase missing"},
    {kFaultPhaseOrder, "mains phases in the wrong order"},
    {kFaultRipple, "armature current ripple"},
    {kFaultAnalogInput, "analogue input below its range"},
    {kFaultSynchronisation, "synchronisation with the mains lost"},
    {kFaultSharing, "12-pulse current difference"},
    {kFaultSlave, "12-pulse slave does not answer"},
    {kFaultSlaveBridge, "12-pulse reversal too slow"},
    {kFaultSlaveWiring, "12-pulse mode and wiring differ"},
    {kFaultZeroCurrent, "armature current does not become zero"},
    {kFaultExciter, "field exciter missing or not the type in use"},
});

/// "fault 110 (external trip)".
inline QString FaultText(quint16 code) {
    const auto* const found = std::find_if(kFaultCodes.begin(), kFaultCodes.end(),
                                           [code](const FaultCode& fault) { return fault.code == code; });
    const QString text = QStringLiteral("fault %1").arg(code);
    return found == kFaultCodes.end() ? text : QStringLiteral("%1 (%2)").arg(text, QString::fromLatin1(found->text));
}

} // namespace krt550
