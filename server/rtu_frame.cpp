#include "server/rtu_frame.h"

#include "server/request_handler.h"

namespace krt550 {
namespace {

constexpr qsizetype kShortest = 4; ///< unit, function code, checksum
constexpr qsizetype kLongest = 256;

/// Length of the frame that begins with these bytes; nothing as long as it cannot be told.
std::optional<qsizetype> LengthOf(const QByteArray& bytes) {
    constexpr qsizetype kFixed = 8; // unit, function code, two words, checksum
    constexpr qsizetype kCountAt = 6;
    if (bytes.size() < 2)
        return std::nullopt;
    switch (static_cast<WireFunction>(bytes[1])) {
    case WireFunction::ReadRegisters:
    case WireFunction::WriteRegister:
        return kFixed;
    case WireFunction::WriteRegisters:
        return bytes.size() > kCountAt ? std::optional<qsizetype>(kFixed + 1 + static_cast<quint8>(bytes[kCountAt]))
                                       : std::nullopt;
    case WireFunction::Encapsulated:
        return kFixed - 1;
    case WireFunction::Diagnostics: // loopback takes any number of bytes
        break;
    }
    return std::nullopt;
}

} // namespace

quint16 RtuChecksum(const QByteArray& bytes) {
    quint16 sum = 0xFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = static_cast<quint16>(sum & 1 ? (sum >> 1) ^ 0xA001 : sum >> 1);
    }
    return sum;
}

QByteArray RtuBytes(quint8 unit, const QByteArray& pdu) {
    QByteArray bytes(1, static_cast<char>(unit));
    bytes += pdu;
    const quint16 sum = RtuChecksum(bytes);
    return bytes.append(static_cast<char>(sum & 0xFF)).append(static_cast<char>(sum >> 8));
}

void CRtuFrames::Append(const QByteArray& bytes) {
    // Longer than any frame is never one, however much more of it comes.
    m_bytes = (m_bytes + bytes).left(kLongest + 1);
}

std::optional<QByteArray> CRtuFrames::Take() {
    const std::optional<qsizetype> length = LengthOf(m_bytes);
    return length ? TakeFirst(*length) : std::nullopt;
}

std::optional<QByteArray> CRtuFrames::TakeAtSilence() {
    const auto request = m_bytes.size() <= kLongest ? TakeFirst(m_bytes.size()) : std::nullopt;
    m_bytes.clear();
    return request;
}

std::optional<QByteArray> CRtuFrames::TakeFirst(qsizetype length) {
    if (length < kShortest || m_bytes.size() < length || static_cast<quint8>(m_bytes[0]) != m_unit)
        return std::nullopt;
    const QByteArray pdu = m_bytes.mid(1, length - 3);
    if (RtuBytes(m_unit, pdu) != m_bytes.left(length))
        return std::nullopt;
    m_bytes.remove(0, length);
    return pdu;
}

} // namespace krt550
