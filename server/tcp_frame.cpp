#include "server/tcp_frame.h"

#include <QtEndian>

namespace krt550 {
namespace {

// Transaction, protocol (0), number of bytes that follow, unit.
constexpr qsizetype kHeader = 7;
constexpr qsizetype kLengthEnds = 6;
constexpr quint16 kShortestBody = 2; ///< unit and function code
constexpr quint16 kLongestBody = 254;

quint16 WordAt(const QByteArray& bytes, qsizetype at) {
    return qFromBigEndian<quint16>(bytes.constData() + at);
}

} // namespace

FrameStatus TakeTcpFrame(QByteArray& bytes, TcpFrame& frame) {
    if (bytes.size() < kLengthEnds)
        return FrameStatus::Unfinished;
    const quint16 length = WordAt(bytes, 4);
    if (WordAt(bytes, 2) != 0 || length < kShortestBody || length > kLongestBody)
        return FrameStatus::Broken;
    if (bytes.size() < kLengthEnds + length)
        return FrameStatus::Unfinished;
    frame.transaction = WordAt(bytes, 0);
    frame.unit = static_cast<quint8>(bytes[kLengthEnds]);
    frame.pdu = bytes.mid(kHeader, length - 1);
    bytes.remove(0, kLengthEnds + length);
    return FrameStatus::Whole;
}

QByteArray TcpBytes(const TcpFrame& frame) {
    QByteArray bytes(kHeader, '\0');
    qToBigEndian(frame.transaction, bytes.data());
    qToBigEndian(static_cast<quint16>(frame.pdu.size() + 1), bytes.data() + 4);
    bytes[kLengthEnds] = static_cast<char>(frame.unit);
    return bytes + frame.pdu;
}

} // namespace krt550
