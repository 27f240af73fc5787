#pragma once

#include "host/connection.h"
#include "host/play/stage.h"

namespace krt550 {

class CCallLog;

/// A play's way to the connected drive, past the wizard, in the units that people read.
class CDriveStage : public CPlayStage {
public:
    /// Both are borrowed.
    CDriveStage(CConnection& connection, CCallLog& log) : m_connection(connection), m_log(log) {}

    QString ChangeDrive(DriveSide side, quint16 reg, const QString& text) override;
    std::optional<QString> DriveText(DriveSide side, quint16 reg) override;
    QString DescribeDrive(quint16 reg) override;
    QString CompareWithMotor(quint16 reg, int percent, bool& isNear) override;
    std::optional<QString> MeasureText(quint16 reg) override;
    QString SetTerminal(const Terminal& terminal, double value) override {
        return m_connection.SetTerminal(terminal, value);
    }
    std::optional<double> TerminalValue(const Terminal& terminal) override {
        return m_connection.TerminalValue(terminal);
    }
    QString SendFromPlc(int number, quint16 word) override { return m_connection.SendFromPlc(number, word); }
    std::optional<quint16> ReceivedByPlc(int number) override { return m_connection.ReceivedByPlc(number); }
    QString SwitchFault(const QString& name) override { return m_connection.SwitchFault(name); }
    const QStringList& LogLines() const override;
    void ClearLog() override;

private:
    CConnection& m_connection;
    CCallLog& m_log;
};

} // namespace krt550
