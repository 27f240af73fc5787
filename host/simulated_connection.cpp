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

QString CSimulatedConnection::PokeWord(quint16 reg, quint16 word) {
    Registers().SetWord(reg, word);
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

CRegisterFile& CSimulatedConnection::Registers() {
    m_drive->GetDrive().Advance();
    return m_drive->GetDrive().GetRegisters();
}

} // namespace krt550
