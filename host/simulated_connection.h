#pragma once

#include "drive/drive_link.h"
#include "drive/simulated_host_drive.h"
#include "host/connection.h"

namespace krt550 {

/// The simulated drive as the tool connects it.
class CSimulatedConnection : public CConnection {
public:
    CSimulatedConnection(std::vector<ParameterDescription> parameters, const QString& wizardFile, const MotorSet& motor)
        : m_drive(std::move(parameters), wizardFile, &motor) {}

    /// The wirings that its 99.07 loads.
    void SetMacros(CMacroTable macros) { m_drive.GetDrive().SetMacros(std::move(macros)); }
    /// What is mounted at the motor's shaft end.
    void SetFeedback(FeedbackDevice device) { m_drive.GetDrive().GetFeedback().device = device; }

    /// What is in the slot for the fieldbus adapter.
    void MountAdapter(AdapterType type) { m_drive.GetDrive().MountAdapter(type); }
    /// How a slave converter is wired to the drive.
    void ConnectSlave(SlaveWiring wiring) { m_drive.GetDrive().GetTwelvePulse().GetSlave().wiring = wiring; }
    /// A second drive with a motor of its own at the other end of the drive-to-drive link, set up as a follower.
    void ConnectPartner(const MotorSet& motor);

    CHostDrive& GetDrive() override { return m_drive; }
    CParameterLink& GetLink() override { return m_drive.GetLink(); }
    void SetTreeLink(CParameterLink* link) override { m_drive.SetTreeLink(link); }
    CRegisterFile* FindRegisters(DriveSide side) override;
    QString SendFromPlc(int number, quint16 word) override;
    std::optional<quint16> ReceivedByPlc(int number) override { return m_drive.GetDrive().ReceivedByPlc(number); }
    QString SetTerminal(const Terminal& terminal, double value) override;
    std::optional<double> TerminalValue(const Terminal& terminal) override;
    QString SwitchFault(const QString& name) override;
    std::optional<double> TrueValue(quint16 reg) override;

private:
    CSimulatedHostDrive m_drive;
    std::unique_ptr<CSimulatedDrive> m_partner;
    std::unique_ptr<CDriveLink> m_link;
};

} // namespace krt550
