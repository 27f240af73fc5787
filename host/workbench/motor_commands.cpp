#include "host/workbench/motor_commands.h"

#include "drive/registers.h"
#include "host/connected_drive.h"
#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/value_codec.h"
#include "modbus/register_map.h"

#include <QLocale>

#include <cmath>

namespace krt550 {
namespace {

bool Has(CHostDrive& drive, quint32 bit) {
    return drive.GetStatusWord() & bit;
}

} // namespace

QString CMotorCommands::Look() {
    if (!m_drive)
        return QStringLiteral("No drive is connected.");
    return Outcome(m_drive->Drive().RefreshState());
}

QString CMotorCommands::Outcome(bool succeeded) const {
    if (succeeded)
        return {};
    const QString reason = m_drive->PlainLink().LastErrorText();
    return reason.isEmpty() ? QStringLiteral("The drive refuses it.") : reason;
}

QString CMotorCommands::NeedControl() {
    if (const QString error = Look(); !error.isEmpty())
        return error;
    return m_drive->Drive().IsLocalControlActive() ? QString() : QStringLiteral("Take local control first.");
}

QString CMotorCommands::NeedStandstill(const QString& what) {
    if (const QString error = NeedControl(); !error.isEmpty())
        return error;
    return Has(m_drive->Drive(), wire_status::kStopped) ? QString()
                                                        : QStringLiteral("Stop the motor first: %1").arg(what);
}

QString CMotorCommands::TakeControl() {
    const QString error = Look();
    return error.isEmpty() ? Outcome(m_drive->Drive().TakeLocalControl()) : error;
}

QString CMotorCommands::ReleaseControl() {
    QString error = NeedStandstill(QStringLiteral("local control is given back at standstill."));
    if (error.isEmpty() && Has(m_drive->Drive(), wire_status::kContactorClosed))
        error = Outcome(m_drive->Drive().OpenContactor());
    return error.isEmpty() ? Outcome(m_drive->Drive().ReleaseLocalControl()) : error;
}

QString CMotorCommands::CloseContactor() {
    const QString error = NeedControl();
    return error.isEmpty() ? Outcome(m_drive->Drive().CloseContactor()) : error;
}

QString CMotorCommands::OpenContactor() {
    const QString error = NeedStandstill(QStringLiteral("the contactor is opened without current."));
    return error.isEmpty() ? Outcome(m_drive->Drive().OpenContactor()) : error;
}

QString CMotorCommands::SetReference(const QString& text) {
    QString sent;
    QString error = NeedControl();
    if (error.isEmpty())
        error = CheckReference(text, sent);
    return error.isEmpty() ? Outcome(m_drive->Drive().SetReference(sent)) : error;
}

QString CMotorCommands::Start(const QString& reference) {
    QString error = NeedControl();
    if (error.isEmpty() && !Has(m_drive->Drive(), wire_status::kContactorClosed))
        error = QStringLiteral("Close the contactor first.");
    if (error.isEmpty())
        error = SetReference(reference);
    return error.isEmpty() ? Outcome(m_drive->Drive().StartMotor()) : error;
}

QString CMotorCommands::Reset() {
    const QString error = Look();
    return error.isEmpty() ? Outcome(m_drive->Drive().ResetFault()) : error;
}

/// The limits as the drive has them at this moment, not as they were when it was connected.
QString CMotorCommands::CheckReference(const QString& text, QString& sent) {
    bool isNumber = false;
    const double rpm = QLocale::c().toDouble(text.trimmed().replace(QLatin1Char(','), QLatin1Char('.')), &isNumber);
    if (!isNumber || !std::isfinite(rpm))
        return QStringLiteral("\"%1\" is not a speed in rpm.").arg(text.trimmed());
    for (const quint16 limit : {reg::kSpeedMinimum, reg::kSpeedMaximum}) {
        const ParameterDescription* parameter = m_drive->Connection().FindParameter(DriveSide::Own, limit);
        quint16 word = 0;
        if (!parameter)
            continue;
        if (!m_drive->PlainLink().ReadWord(limit, word))
            return Outcome(false);
        const double bound = ShownNumber(*parameter, word);
        if (limit == reg::kSpeedMinimum ? rpm < bound : rpm > bound)
            return QStringLiteral("%1 rpm is %2 the %3 rpm of %4.")
                .arg(dtoa(rpm, 1), limit == reg::kSpeedMinimum ? QStringLiteral("below") : QStringLiteral("above"),
                     dtoa(bound, parameter->decimals), parameter->displayName());
    }
    sent = dtoa(rpm, 2);
    return {};
}

} // namespace krt550
