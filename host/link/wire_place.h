#pragma once

#include <QString>

#include <optional>

namespace krt550 {

/// Where on which wire a drive is, and how fast that wire is.
struct WirePlace {
    bool isSerial = false;
    QString host;    ///< name or address, TCP only, as the two below
    QString address; ///< of the host
    int port = 0;
    QString device; ///< serial only, as the four below
    int baud = 0;
    int dataBits = 8;
    char parity = 'E'; ///< N, E or O
    int stopBits = 1;
    int unit = 1;            ///< 1 to 247; 255 as well with TCP
    int answerTimeout = 300; ///< [ms] until a request counts as unanswered

    /// "drive 1 at 127.0.0.1:1502", as messages name it.
    QString Describe() const;
    /// Time that so many bytes take on a serial wire [ms]; 0 with TCP, where the way there and back counts alone.
    double TimeOf(int bytes) const;
};

/// Whether the name of a drive begins as those of ParseWirePlace do.
bool IsOnWire(const QString& driveName);

/// Reads --drive modbus-tcp:HOST:PORT[,unit=N] and modbus-rtu:DEVICE,BAUD,PARITY[,unit=N]; PARITY is data bits, parity
/// and stop bits, as in 8E1. Nothing, and the reason in `error`, when the name does not say that.
std::optional<WirePlace> ParseWirePlace(const QString& driveName, QString& error);

/// Looks the host's name up, once, so that no name server is in the way when a line is opened again. False, and the
/// reason in `error`, when nobody knows it.
bool FindAddress(WirePlace& place, QString& error);

} // namespace krt550
