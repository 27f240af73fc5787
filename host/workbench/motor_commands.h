#pragma once

#include <QString>

namespace krt550 {

class CConnectedDrive;

/// What a person commands by hand. Each looks at the drive itself first, so that nothing rests on what was shown, and
/// returns why the command was not carried out, in words; an empty text when it was. Stop is none of these: it has no
/// gate (CStop).
class CMotorCommands {
public:
    /// Borrowed; null: every command says that no drive is connected.
    void SetDrive(CConnectedDrive* drive) { m_drive = drive; }

    QString TakeControl();
    /// Only when the motor stands; opens the contactor before.
    QString ReleaseControl();
    QString CloseContactor();
    /// Only when the motor stands.
    QString OpenContactor();
    /// A speed [rpm] within 20.01 and 20.02, decimal point or comma.
    QString SetReference(const QString& text);
    /// Only with local control and the contactor closed. Sends the reference first.
    QString Start(const QString& reference);
    QString Reset();

private:
    QString Look();
    QString NeedControl();
    QString NeedStandstill(const QString& what);
    QString Outcome(bool succeeded) const;
    QString CheckReference(const QString& text, QString& sent);

    CConnectedDrive* m_drive = nullptr;
};

} // namespace krt550
