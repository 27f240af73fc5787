#pragma once

#include "modbus/register_map.h"

#include <QByteArray>

#include <vector>

namespace krt550 {

using Words = std::vector<quint16>;

/// How values lie in registers: high word first, text as its number of bytes and then UTF-8, two bytes a register, the
/// first one in the high byte, zeros behind. Readers take what is missing as zero, so that a short answer cannot hurt.
void Put32(std::span<quint16> words, std::size_t at, quint32 value);
quint32 Get32(std::span<const quint16> words, std::size_t at);

/// Puts number of bytes and bytes at `at`; bytes beyond `most` are left out.
void PutBytes(std::span<quint16> words, std::size_t at, const QByteArray& bytes, quint16 most);
/// The same of a text, cut between characters.
void PutText(std::span<quint16> words, std::size_t at, const QString& text, quint16 most);
QByteArray GetBytes(std::span<const quint16> words, std::size_t at);
QString GetText(std::span<const quint16> words, std::size_t at);

/// Speed on the wire: hundredths of rpm. Nothing when it does not fit, or is no number.
std::optional<qint32> HundredthsOf(double rpm);
constexpr double RpmOf(qint32 hundredths) {
    return hundredths / 100.0;
}

/// The state block.
struct WireState {
    quint32 status = 0;
    WireControlPlace place = WireControlPlace::Remote;
    double reference = 0; ///< [rpm]
    quint16 activeFault = 0;
    quint16 commandCount = 0;
    quint16 lastCommand = 0;
    WireException lastResult = WireException::None;
    QString reason;
};

/// wire::kStateSize registers.
Words EncodeState(const WireState& state);
/// From registers read at wire::kState; with the head alone the reason is empty.
WireState DecodeState(std::span<const quint16> words);

/// The fault record's block.
struct WireFaultRecord {
    quint16 error = 0; ///< a CommunicationError
    quint32 header = 0;
    QByteArray record;
};

/// wire::kFaultRecordSize registers.
Words EncodeFaultBlock(const WireFaultRecord& record);
WireFaultRecord DecodeFaultBlock(std::span<const quint16> words);

} // namespace krt550
