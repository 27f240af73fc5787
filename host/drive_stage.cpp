#include "host/drive_stage.h"

#include "host/call_log.h"
#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <cmath>

namespace krt550 {
namespace {

QString NoSuchText(quint16 reg) {
    return QStringLiteral("the drive has no parameter %1, or it cannot be read").arg(reg);
}

} // namespace

QString CDriveStage::ChangeDrive(quint16 reg, const QString& text) {
    const ParameterDescription* parameter = m_connection.FindParameter(reg);
    if (!parameter)
        return NoSuchText(reg);
    QString error;
    const std::optional<quint16> word = WordOfText(*parameter, text, error);
    return word ? m_connection.PokeWord(reg, *word) : error;
}

std::optional<QString> CDriveStage::DriveText(quint16 reg) {
    const ParameterDescription* parameter = m_connection.FindParameter(reg);
    const std::optional<quint16> word = parameter ? m_connection.PeekWord(reg) : std::nullopt;
    return word ? std::optional(ShownText(*parameter, *word)) : std::nullopt;
}

QString CDriveStage::DescribeDrive(quint16 reg) {
    const std::optional<QString> text = DriveText(reg);
    if (!text)
        return NoSuchText(reg);
    const ParameterDescription& parameter = *m_connection.FindParameter(reg);
    return QStringLiteral("%1: %2 %3").arg(parameter.displayName(), *text, parameter.unit).trimmed();
}

QString CDriveStage::CompareWithMotor(quint16 reg, int percent, bool& isNear) {
    isNear = false;
    const ParameterDescription* parameter = m_connection.FindParameter(reg);
    if (!parameter)
        return NoSuchText(reg);
    const std::optional<double> truth = m_connection.TrueValue(reg);
    if (!truth || *truth == 0)
        return QStringLiteral("nobody knows what the motor itself has for %1").arg(reg);
    const std::optional<quint16> word = m_connection.PeekWord(reg);
    if (!word)
        return NoSuchText(reg);
    const double found = ShownNumber(*parameter, *word);
    const double away = (found - *truth) / *truth * 100;
    isNear = std::abs(away) <= percent;
    return QStringLiteral("%1, the motor's own: %2 %3 (%4 %)")
        .arg(DescribeDrive(reg), dtoa(*truth, parameter->decimals), parameter->unit, dtoa(away, 1));
}

std::optional<QString> CDriveStage::MeasureText(quint16 reg) {
    const ParameterDescription* parameter = m_connection.FindParameter(reg);
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
