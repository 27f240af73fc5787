#pragma once

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
    /// What feeds the motor's field, by a text that is one.
    void MountExciter(const QString& text) { ParseExciter(text, m_drive.GetDrive().GetExciter()); }

    CHostDrive& GetDrive() override { return m_drive; }
    CParameterLink& GetLink() override { return m_drive.GetLink(); }
    void SetTreeLink(CParameterLink* link) override { m_drive.SetTreeLink(link); }
    const ParameterDescription* FindParameter(quint16 reg) override { return Registers().FindDescription(reg); }
    quint16 PeekWord(quint16 reg) override { return Registers().GetWord(reg); }
    void PokeWord(quint16 reg, quint16 word) override { Registers().SetWord(reg, word); }
    QString SetTerminal(const Terminal& terminal, double value) override;
    std::optional<double> TerminalValue(const Terminal& terminal) override;
    QString SwitchFault(const QString& name) override;
    std::optional<double> TrueValue(quint16 reg) override;

private:
    /// Registers of this moment: the drive has gone on since it was last asked.
    CRegisterFile& Registers();

    CSimulatedHostDrive m_drive;
};

} // namespace krt550
