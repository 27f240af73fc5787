#pragma once

#include "drive/drive_link.h"
#include "drive/simulated_host_drive.h"
#include "host/connection.h"

#include <memory>
#include <utility>

namespace krt550 {

/// The simulated drive as the tool connects it.
class CSimulatedConnection : public CConnection {
public:
    explicit CSimulatedConnection(std::unique_ptr<CSimulatedHostDrive> drive) : m_drive(std::move(drive)) {}

    CHostDrive& GetDrive() override { return *m_drive; }
    CParameterLink& GetLink() override { return m_drive->GetLink(); }
    void SetTreeLink(CParameterLink* link) override { m_drive->SetTreeLink(link); }
    const ParameterDescription* FindParameter(DriveSide side, quint16 reg) override;
    std::optional<quint16> PeekWord(DriveSide side, quint16 reg) override;
    QString PokeWord(DriveSide side, quint16 reg, quint16 word) override;
    QString SendFromPlc(int number, quint16 word) override;
    std::optional<quint16> ReceivedByPlc(int number) override { return m_drive->GetDrive().ReceivedByPlc(number); }
    QString SetTerminal(const Terminal& terminal, double value) override;
    std::optional<double> TerminalValue(const Terminal& terminal) override;
    QString SwitchFault(const QString& name) override;
    std::optional<double> TrueValue(quint16 reg) override;

private:
    /// Registers of this moment: the drive has gone on since it was last asked. Null without such a drive.
    CRegisterFile* FindRegisters(DriveSide side);

    std::unique_ptr<CSimulatedHostDrive> m_drive;
};

} // namespace krt550
