#include "host/drive_stage.h"

#include "host/call_log.h"
#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <cmath>

namespace krt550 {
namespace {

QString NoSuchText(quint16 reg, DriveSide side = DriveSide::Own) {
    return side == DriveSide::Own
               ? QStringLiteral("the drive has no parameter %1, or it cannot be read").arg(reg)
               : QStringLiteral("the drive has no partner with a parameter %1: see --drive sim,partner=MOTOR").arg(reg);
}

} // namespace

QString CDriveStage::ChangeDrive(DriveSide side, quint16 reg, const QString& text) {
    const ParameterDescription* parameter = m_connection.FindParameter(side, reg);
    if (!parameter)
        return NoSuchText(reg, side);
    QString error;
    const std::optional<quint16> word = WordOfText(*parameter, text, error);
    return word ? m_connection.PokeWord(side, reg, *word) : error;
}

std::optional<QString> CDriveStage::DriveText(DriveSide side, quint16 reg) {
    const ParameterDescription* parameter = m_connection.FindParameter(side, reg);
    const std::optional<quint16> word = parameter ? m_connection.PeekWord(side, reg) : std::nullopt;
    return word ? std::optional(ShownText(*parameter, *word)) : std::nullopt;
}

QString CDriveStage::DescribeDrive(quint16 reg) {
    const ParameterDescription* parameter = m_connection.FindParameter(DriveSide::Own, reg);
    const std::optional<QString> text = DriveText(DriveSide::Own, reg);
    return text ? QStringLiteral("%1: %2 %3").arg(parameter->displayName(), *text, parameter->unit).trimmed()
                : NoSuchText(reg);
}

QString CDriveStage::CompareWithMotor(quint16 reg, int percent, bool& isNear) {
    isNear = false;
    const ParameterDescription* parameter = m_connection.FindParameter(DriveSide::Own, reg);
    const std::optional<quint16> word = parameter ? m_connection.PeekWord(DriveSide::Own, reg) : std::nullopt;
    if (!word)
        return NoSuchText(reg);
    const std::optional<double> truth = m_connection.TrueValue(reg);
    if (!truth || *truth == 0)
        return QStringLiteral("nobody knows what the motor itself has for %1").arg(reg);
    const double away = (ShownNumber(*parameter, *word) - *truth) / *truth * 100;
    isNear = std::abs(away) <= percent;
    return QStringLiteral("%1, the motor's own: %2 %3 (%4 %)")
        .arg(DescribeDrive(reg), dtoa(*truth, parameter->decimals), parameter->unit, dtoa(away, 1));
}

std::optional<QString> CDriveStage::MeasureText(quint16 reg) {
    const ParameterDescription* parameter = m_connection.FindParameter(DriveSide::Own, reg);
    const std::optional<double> truth = m_connection.TrueValue(reg);
    return parameter && truth ? std::optional(dtoa(*truth, parameter->decimals)) : std::nullopt;
}

const QStringList& CDriveStage::LogLines() const {
    return m_log.Lines();
}

void CDriveStage::ClearLog() {
    m_log.Clear();
}

} // namespace krt550
