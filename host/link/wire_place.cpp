#include "host/link/wire_place.h"

#include <QRegularExpression>

#include <algorithm>

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

QString TakeTcp(const DriveName& name, WirePlace& place) {
    static const QRegularExpression pattern(QStringLiteral("^(\\[([0-9a-fA-F:.]+)\\]|[^:]+):(\\d+)$"));
    const auto match = pattern.match(name.place);
    if (!name.words.isEmpty() || !match.hasMatch() || !ParseNumber(match.captured(3), 1, 65535, place.port))
        return QStringLiteral("it is modbus-tcp:HOST:PORT, with a port from 1 to 65535");
    place.host = match.captured(2).isEmpty() ? match.captured(1) : match.captured(2);
    return {};
}

QString TakeSerial(const DriveName& name, WirePlace& place) {
    static const QRegularExpression pattern(QStringLiteral("^([78])([NEO])([12])$"));
    if (name.words.size() != 2)
        return QStringLiteral("it is modbus-rtu:DEVICE,BAUD,PARITY, as in modbus-rtu:/dev/ttyUSB0,19200,8E1");
    place.device = name.place;
    bool isNumber = false;
    place.baud = name.words[0].toInt(&isNumber);
    if (!isNumber || std::ranges::find(kBauds, place.baud) == std::end(kBauds))
        return QStringLiteral("\"%1\" is not a baud rate from 1200 to 115200").arg(name.words[0]);
    const auto match = pattern.match(name.words[1]);
    if (!match.hasMatch())
        return QStringLiteral("\"%1\" is not data bits, parity (N, E or O) and stop bits, as in 8E1")
            .arg(name.words[1]);
    place.dataBits = match.captured(1).toInt();
    place.parity = match.captured(2).at(0).toLatin1();
    place.stopBits = match.captured(3).toInt();
    return {};
}

} // namespace

QString WirePlace::Describe() const {
    const bool isNumeric6 = host.contains(QLatin1Char(':'));
    const QString where = isSerial ? device : QStringLiteral(u"%1:%2").arg(isNumeric6 ? u'[' + host + u']' : host).arg(port);
    return QStringLiteral("drive %1 at %2").arg(unit).arg(where);
}

double WirePlace::TimeOf(int bytes) const {
    if (!isSerial)
        return 0;
    const int bits = 1 + dataBits + (parity == 'N' ? 0 : 1) + stopBits;
    return 1000.0 * bytes * bits / baud;
}

std::optional<WirePlace> ParseWirePlace(const DriveName& name, QString& error) {
    WirePlace place;
    place.isSerial = name.kind == QLatin1String("modbus-rtu");
    error = place.isSerial ? TakeSerial(name, place) : TakeTcp(name, place);
    const int lastUnit = place.isSerial ? kLastSerialUnit : kLastUnit;
    if (error.isEmpty() && !name.faults.isEmpty())
        error = QStringLiteral("a drive on a wire has no option \"fault\"");
    for (const auto& [option, value] : name.options) {
        if (!error.isEmpty())
            break;
        if (option != QLatin1String("unit"))
            error = QStringLiteral("a drive on a wire has no option \"%1\"; it has: unit").arg(option);
        else if (!ParseNumber(value, 1, lastUnit, place.unit))
            error = QStringLiteral("\"%1\" is not a unit from 1 to %2").arg(value).arg(lastUnit);
    }
    return error.isEmpty() ? std::optional(place) : std::nullopt;
}

} // namespace krt550
