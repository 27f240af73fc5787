#pragma once

#include <QByteArray>

#include <optional>

namespace krt550 {

/// Checksum of an RTU frame, as it is appended: low byte first.
quint16 RtuChecksum(const QByteArray& bytes);
/// Unit, function code and data with their checksum.
QByteArray RtuBytes(quint8 unit, const QByteArray& pdu);

/// Takes requests to one unit out of what comes over a serial line: by their length where the function code tells it,
/// so that a pause inside a frame does no harm; and by the silence behind them otherwise. Whatever else is on the line
/// (noise, damaged frames, frames to other units and their answers) is passed over up to the next silence.
class CRtuFrames {
public:
    explicit CRtuFrames(quint8 unit) : m_unit(unit) {}

    void Append(const QByteArray& bytes);
    /// The next request, function code and data.
    std::optional<QByteArray> Take();
    /// The line has been silent: what lies here is a whole frame or none.
    std::optional<QByteArray> TakeAtSilence();
    bool IsEmpty() const { return m_bytes.isEmpty(); }

private:
    std::optional<QByteArray> TakeFirst(qsizetype length);

    quint8 m_unit;
    QByteArray m_bytes;
};

} // namespace krt550
