#include "modbus/wire_values.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace krt550 {
namespace {

quint16 WordAt(std::span<const quint16> words, std::size_t at) {
    return at < words.size() ? words[at] : quint16{0};
}

} // namespace

void Put32(std::span<quint16> words, std::size_t at, quint32 value) {
    words[at] = static_cast<quint16>(value >> 16);
    words[at + 1] = static_cast<quint16>(value & 0xFFFF);
}

quint32 Get32(std::span<const quint16> words, std::size_t at) {
    return static_cast<quint32>(WordAt(words, at)) << 16 | WordAt(words, at + 1);
}

void PutBytes(std::span<quint16> words, std::size_t at, const QByteArray& bytes, quint16 most) {
    const qsizetype size = std::min<qsizetype>(bytes.size(), most);
    words[at] = static_cast<quint16>(size);
    std::fill_n(words.begin() + static_cast<std::ptrdiff_t>(at) + 1, (most + 1) / 2, quint16{0});
    for (qsizetype i = 0; i < size; ++i) {
        const auto byte = static_cast<quint8>(bytes[i]);
        words[at + 1 + static_cast<std::size_t>(i / 2)] |= static_cast<quint16>(i % 2 ? byte : byte << 8);
    }
}

void PutText(std::span<quint16> words, std::size_t at, const QString& text, quint16 most) {
    QByteArray bytes = text.toUtf8();
    qsizetype end = std::min<qsizetype>(bytes.size(), most);
    while (end > 0 && end < bytes.size() && (static_cast<quint8>(bytes[end]) & 0xC0) == 0x80)
        --end;
    bytes.truncate(end);
    PutBytes(words, at, bytes, most);
}

QByteArray GetBytes(std::span<const quint16> words, std::size_t at) {
    const std::size_t room = words.size() > at ? (words.size() - at - 1) * 2 : 0;
    const std::size_t size = std::min<std::size_t>(WordAt(words, at), room);
    QByteArray bytes;
    for (std::size_t i = 0; i < size; ++i) {
        const quint16 word = words[at + 1 + i / 2];
        bytes.append(static_cast<char>(i % 2 ? word & 0xFF : word >> 8));
    }
    return bytes;
}

QString GetText(std::span<const quint16> words, std::size_t at) {
    return QString::fromUtf8(GetBytes(words, at));
}

std::optional<qint32> HundredthsOf(double rpm) {
    const double hundredths = std::round(rpm * 100);
    if (!(std::abs(hundredths) <= std::numeric_limits<qint32>::max()))
        return std::nullopt;
    return static_cast<qint32>(hundredths);
}

Words EncodeState(const WireState& state) {
    using namespace wire;
    Words words(kStateSize);
    Put32(words, kStatus - kState, state.status);
    words[kControlPlace - kState] = static_cast<quint16>(state.place);
    Put32(words, kReference - kState, static_cast<quint32>(HundredthsOf(state.reference).value_or(0)));
    words[kActiveFault - kState] = state.activeFault;
    words[kCommandCount - kState] = state.commandCount;
    words[kLastCommand - kState] = state.lastCommand;
    words[kLastResult - kState] = static_cast<quint16>(state.lastResult);
    PutText(words, kReason - kState, state.reason, kReasonBytes);
    return words;
}

WireState DecodeState(std::span<const quint16> words) {
    using namespace wire;
    WireState state;
    state.status = Get32(words, kStatus - kState);
    state.place = static_cast<WireControlPlace>(WordAt(words, kControlPlace - kState));
    state.reference = RpmOf(static_cast<qint32>(Get32(words, kReference - kState)));
    state.activeFault = WordAt(words, kActiveFault - kState);
    state.commandCount = WordAt(words, kCommandCount - kState);
    state.lastCommand = WordAt(words, kLastCommand - kState);
    state.lastResult = static_cast<WireException>(WordAt(words, kLastResult - kState));
    state.reason = GetText(words, kReason - kState);
    return state;
}

Words EncodeFaultBlock(const WireFaultRecord& record) {
    using namespace wire;
    Words words(kFaultRecordSize);
    words[kFaultError - kFaultRecord] = record.error;
    Put32(words, kFaultHeader - kFaultRecord, record.header);
    PutBytes(words, kFaultBytes - kFaultRecord, record.record, kFaultMostBytes);
    return words;
}

WireFaultRecord DecodeFaultBlock(std::span<const quint16> words) {
    using namespace wire;
    return {WordAt(words, kFaultError - kFaultRecord), Get32(words, kFaultHeader - kFaultRecord),
            GetBytes(words, kFaultBytes - kFaultRecord)};
}

} // namespace krt550
