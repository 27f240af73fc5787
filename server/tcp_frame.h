#pragma once

#include <QByteArray>

#include <span>

namespace krt550 {

enum class FrameStatus {
    Whole,      ///< taken out of the bytes
    Unfinished, ///< more has to come
    Broken      ///< nothing that comes after can be understood
};

/// A request or an answer on TCP.
struct TcpFrame {
    quint16 transaction = 0;
    quint8 unit = 0;
    QByteArray pdu; ///< function code and data, 1 to 253 bytes
};

/// Takes the first frame out of the bytes that have come.
FrameStatus TakeTcpFrame(QByteArray& bytes, TcpFrame& frame);
QByteArray TcpBytes(const TcpFrame& frame);

/// For what takes plain bytes.
inline std::span<const quint8> BytesOf(const QByteArray& bytes) {
    return {reinterpret_cast<const quint8*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

} // namespace krt550
