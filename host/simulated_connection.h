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
    CRegisterFile* FindRegisters(DriveSide side) override;
    QString SendFromPlc(int number, quint16 word) override;
    std::optional<quint16> ReceivedByPlc(int number) override { return m_drive->GetDrive().ReceivedByPlc(number); }
    QString SetTerminal(const Terminal& terminal, double value) override;
    std::optional<double> TerminalValue(const Terminal& terminal) override;
    QString SwitchFault(const QString& name) override;
    std::optional<double> TrueValue(quint16 reg) override;

private:
    std::unique_ptr<CSimulatedHostDrive> m_drive;
};

} // namespace krt550
