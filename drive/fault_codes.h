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

inline constexpr std::array<FaultCode, 10> kFaultCodes = {{
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
}};

/// "fault 110 (external trip)".
inline QString FaultText(quint16 code) {
    const auto* const found = std::find_if(kFaultCodes.begin(), kFaultCodes.end(),
                                           [code](const FaultCode& fault) { return fault.code == code; });
    const QString text = QStringLiteral("fault %1").arg(code);
    return found == kFaultCodes.end() ? text : QStringLiteral("%1 (%2)").arg(text, QString::fromLatin1(found->text));
}

} // namespace krt550
