#include "host/link/wire_place.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <netdb.h>
#include <sys/socket.h>

namespace krt550 {
namespace {

constexpr int kBauds[] = {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
constexpr int kLastSerialUnit = 247;
constexpr int kLastUnit = 255;

bool ParseNumber(const QString& text, int first, int last, int& number) {
    bool ok = false;
    number = text.toInt(&ok);
    return ok && number >= first && number <= last;
}

/// What the part after the colon says; each gives what is wrong with it, or an empty text.
QString TakeTcp(const QStringList& parts, WirePlace& place) {
    static const QRegularExpression pattern(QStringLiteral("^(\\[([0-9a-fA-F:.]+)\\]|[^:]+):(\\d+)$"));
    const auto match = pattern.match(parts[0]);
    if (parts.size() != 1 || !match.hasMatch() || !ParseNumber(match.captured(3), 1, 65535, place.port))
        return QStringLiteral("it is modbus-tcp:HOST:PORT[,unit=N], with a port from 1 to 65535");
    place.host = match.captured(2).isEmpty() ? match.captured(1) : match.captured(2);
    return {};
}

QString TakeSerial(const QStringList& parts, WirePlace& place) {
    static const QRegularExpression pattern(QStringLiteral("^([78])([NEO])([12])$"));
    if (parts.size() != 3 || parts[0].isEmpty())
        return QStringLiteral("it is modbus-rtu:DEVICE,BAUD,PARITY[,unit=N], as in modbus-rtu:/dev/ttyUSB0,19200,8E1");
    place.device = parts[0];
    bool isNumber = false;
    place.baud = parts[1].toInt(&isNumber);
    if (!isNumber || std::ranges::find(kBauds, place.baud) == std::end(kBauds))
        return QStringLiteral("\"%1\" is not a baud rate from 1200 to 115200").arg(parts[1]);
    const auto match = pattern.match(parts[2]);
    if (!match.hasMatch())
        return QStringLiteral("\"%1\" is not data bits, parity (N, E or O) and stop bits, as in 8E1").arg(parts[2]);
    place.dataBits = match.captured(1).toInt();
    place.parity = match.captured(2).at(0).toLatin1();
    place.stopBits = match.captured(3).toInt();
    return {};
}

} // namespace

QString WirePlace::Describe() const {
    const bool isNumeric6 = host.contains(QLatin1Char(':'));
    const QString where =
        isSerial ? device : QStringLiteral(u"%1:%2").arg(isNumeric6 ? u'[' + host + u']' : host).arg(port);
    return QStringLiteral("drive %1 at %2").arg(unit).arg(where);
}

double WirePlace::TimeOf(int bytes) const {
    if (!isSerial)
        return 0;
    const int bits = 1 + dataBits + (parity == 'N' ? 0 : 1) + stopBits;
    return 1000.0 * bytes * bits / baud;
}

bool IsOnWire(const QString& driveName) {
    return driveName.startsWith(QLatin1String("modbus-"));
}

std::optional<WirePlace> ParseWirePlace(const QString& driveName, QString& error) {
    const QString kind = driveName.section(QLatin1Char(':'), 0, 0);
    QStringList parts = driveName.section(QLatin1Char(':'), 1).split(QLatin1Char(','));
    WirePlace place;
    place.isSerial = kind == QLatin1String("modbus-rtu");
    const int lastUnit = place.isSerial ? kLastSerialUnit : kLastUnit;
    error.clear();
    for (qsizetype i = parts.size() - 1; i > 0 && parts[i].contains(QLatin1Char('=')); --i) {
        const QString option = parts.takeLast();
        if (!option.startsWith(QLatin1String("unit=")))
            error = QStringLiteral("a drive on a wire has no \"%1\"; it has: unit=N").arg(option);
        else if (!ParseNumber(option.section(QLatin1Char('='), 1), 1, lastUnit, place.unit))
            error = QStringLiteral("\"%1\" is not a unit from 1 to %2").arg(option).arg(lastUnit);
    }
    if (error.isEmpty() && !place.isSerial && kind != QLatin1String("modbus-tcp"))
        error = QStringLiteral("there is no such drive; on a wire there are: modbus-tcp, modbus-rtu");
    if (error.isEmpty())
        error = place.isSerial ? TakeSerial(parts, place) : TakeTcp(parts, place);
    return error.isEmpty() ? std::optional(place) : std::nullopt;
}

bool FindAddress(WirePlace& place, QString& error) {
    if (place.isSerial)
        return true;
    addrinfo wanted{};
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    int failure = getaddrinfo(place.host.toLocal8Bit().constData(), nullptr, &wanted, &found);
    std::array<char, NI_MAXHOST> text{};
    if (failure == 0) {
        failure = getnameinfo(found->ai_addr, found->ai_addrlen, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST);
        freeaddrinfo(found);
    }
    place.address = QString::fromLatin1(text.data());
    if (failure != 0)
        error = QStringLiteral("host \"%1\": %2").arg(place.host, QString::fromLocal8Bit(gai_strerror(failure)));
    return failure == 0;
}

} // namespace krt550
