#include "host/simulated_connection.h"

namespace krt550 {

QString CSimulatedConnection::SwitchFault(const QString& name) {
    QString error;
    if (name == QLatin1String("none"))
        m_drive->ClearFaultModes();
    else
        m_drive->SetFaultMode(name, error);
    return error;
}

const ParameterDescription* CSimulatedConnection::FindParameter(DriveSide side, quint16 reg) {
    const CRegisterFile* registers = FindRegisters(side);
    return registers ? registers->FindDescription(reg) : nullptr;
}

std::optional<quint16> CSimulatedConnection::PeekWord(DriveSide side, quint16 reg) {
    const CRegisterFile* registers = FindRegisters(side);
    return registers ? std::optional(registers->GetWord(reg)) : std::nullopt;
}

QString CSimulatedConnection::PokeWord(DriveSide side, quint16 reg, quint16 word) {
    CRegisterFile* registers = FindRegisters(side);
    if (!registers)
        return QStringLiteral("the drive has no partner: see --drive sim,partner=MOTOR");
    registers->SetWord(reg, word);
    return {};
}

QString CSimulatedConnection::SetTerminal(const Terminal& terminal, double value) {
    return m_drive->GetDrive().SetTerminal(terminal, value) ? QString()
                                                            : QStringLiteral("an output gives what it gives");
}

std::optional<double> CSimulatedConnection::TerminalValue(const Terminal& terminal) {
    return m_drive->GetDrive().GetTerminal(terminal);
}

std::optional<double> CSimulatedConnection::TrueValue(quint16 reg) {
    return m_drive->GetDrive().GetTrueValue(reg);
}

CRegisterFile* CSimulatedConnection::FindRegisters(DriveSide side) {
    m_drive->GetDrive().Advance(); // the partner lives by its time
    CSimulatedDrive* drive = side == DriveSide::Own ? &m_drive->GetDrive() : m_drive->GetPartner();
    return drive ? &drive->GetRegisters() : nullptr;
}

QString CSimulatedConnection::SendFromPlc(int number, quint16 word) {
    const bool carried = m_drive->GetDrive().SendFromPlc(number, word);
    return carried ? QString()
                   : QStringLiteral("the fieldbus does not carry word %1 to the drive: see 98.02, 51.05, 51.18")
                         .arg(number);
}

} // namespace krt550
