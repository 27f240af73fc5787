#pragma once

#include "server/identification.h"
#include "server/served_drive.h"

#include <QByteArray>

#include <span>

namespace krt550 {

enum class WireFunction : quint8 {
    ReadRegisters = 3,
    WriteRegister = 6,
    Diagnostics = 8,
    WriteRegisters = 16,
    Encapsulated = 43
};

inline constexpr int kMostPduBytes = 253; ///< function code and data

QByteArray ExceptionPdu(WireFunction function, WireException exception);

/// What goes back to the master.
struct Reply {
    QByteArray pdu;   ///< empty: silence
    qint64 delay = 0; ///< [ms] before it is sent
};

/// Answers requests, function code and data, whatever line they came by. Any bytes will do: what is no request is
/// answered with an exception.
class CRequestHandler {
public:
    CRequestHandler(CServedDrive& drive, Identification identification)
        : m_drive(drive), m_identification(std::move(identification)) {}

    Reply Answer(Master& master, std::span<const quint8> request);
    /// The connection is gone.
    void Forget(const Master& master) { m_drive.Forget(master); }

private:
    QByteArray Handle(Master& master, std::span<const quint8> request);
    QByteArray ReadRegisters(Master& master, std::span<const quint8> data);
    QByteArray WriteRegister(Master& master, std::span<const quint8> data);
    QByteArray WriteRegisters(Master& master, std::span<const quint8> data);
    Reply Disturb(QByteArray pdu, bool writes);

    CServedDrive& m_drive;
    Identification m_identification;
    quint32 m_replies = 0;
};

} // namespace krt550
