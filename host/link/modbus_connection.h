#pragma once

#include "host/connection.h"
#include "host/link/modbus_drive.h"

namespace krt550 {

/// A drive on a wire as the tool connects it. What only a simulated drive has, faults to switch, terminals and
/// a PLC to be worked from here and a motor that can be looked into, is refused.
class CModbusConnection : public CConnection {
public:
    CModbusConnection(WirePlace place, std::vector<ParameterDescription> parameters, QString wizardFile)
        : m_drive(std::move(place), std::move(parameters), std::move(wizardFile)) {}

    CHostDrive& GetDrive() override { return m_drive; }
    bool Open(QString& error) override { return m_drive.Connect(error); }
    CParameterLink& GetLink() override { return m_drive.GetLink(); }
    void SetTreeLink(CParameterLink* link) override { m_drive.SetTreeLink(link); }
    const ParameterDescription* FindParameter(DriveSide side, quint16 reg) override {
        return side == DriveSide::Own ? m_drive.FindParameter(reg) : nullptr;
    }
    std::optional<quint16> PeekWord(DriveSide side, quint16 reg) override;
    QString PokeWord(DriveSide side, quint16 reg, quint16 word) override;
    QString SendFromPlc(int number, quint16 word) override;
    std::optional<quint16> ReceivedByPlc(int) override { return std::nullopt; }
    QString SwitchFault(const QString& name) override;
    QString SetTerminal(const Terminal& terminal, double value) override;
    std::optional<double> TerminalValue(const Terminal&) override { return std::nullopt; }
    std::optional<double> TrueValue(quint16) override { return std::nullopt; }

private:
    CModbusDrive m_drive;
};

} // namespace krt550
