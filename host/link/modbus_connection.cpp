#include "host/link/modbus_connection.h"

namespace krt550 {

std::optional<quint16> CModbusConnection::PeekWord(DriveSide, quint16 reg) {
    quint16 word = 0;
    return GetLink().ReadWord(reg, word) ? std::optional(word) : std::nullopt;
}

QString CModbusConnection::PokeWord(DriveSide, quint16 reg, quint16 word) {
    return GetLink().WriteWord(reg, word) ? QString() : GetLink().LastErrorText();
}

QString CModbusConnection::SwitchFault(const QString& name) {
    return QStringLiteral("\"%1\": only a simulated drive in this program (--drive sim) has faults to switch")
        .arg(name);
}

QString CModbusConnection::SendFromPlc(int, quint16) {
    return QStringLiteral("only a simulated drive in this program (--drive sim) has a PLC to be worked from here");
}

QString CModbusConnection::SetTerminal(const Terminal&, double) {
    return QStringLiteral(
        "only the terminals of a simulated drive in this program (--drive sim) can be worked from here");
}

} // namespace krt550
