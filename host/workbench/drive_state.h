#pragma once

#include <QDateTime>
#include <QHash>
#include <QString>

#include <optional>

namespace krt550 {

/// Registers that the drive panel follows.
namespace watched {
inline constexpr quint16 kSpeed = 104;
inline constexpr quint16 kArmatureCurrent = 116;
inline constexpr quint16 kFieldCurrent = 130;
inline constexpr quint16 kReference = 218;
inline constexpr quint16 kDriveState = 807;
inline constexpr quint16 kControlPlace = 808;
inline constexpr quint16 kLastFault = 910;
} // namespace watched

/// What a drive was seen to be like last.
struct SeenState {
    std::optional<QDateTime> silentSince; ///< it does not answer
    QString silence;                      ///< why not
    quint32 status = 0;                   ///< bits of wire_status
    QHash<quint16, quint16> words;        ///< of the watched registers that could be read

    bool Has(quint32 bits) const { return (status & bits) == bits; }
    bool Answers() const { return !silentSince; }
    /// Ready, running, tripped and so on, in words.
    QString Text() const;
    /// Whose control word counts.
    QString ControlText() const;
};

} // namespace krt550
