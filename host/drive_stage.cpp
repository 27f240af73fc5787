#include "host/drive_stage.h"

#include "host/call_log.h"
#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <cmath>

namespace krt550 {
namespace {

QString NoSuchText(quint16 reg) {
    return QStringLiteral("the drive has no parameter %1").arg(reg);
}

/// A parameter and its word.
struct Held {
    const ParameterDescription* parameter = nullptr;
    quint16 word = 0;
};

Held Find(CConnection& connection, DriveSide side, quint16 reg) {
    const CRegisterFile* registers = connection.FindRegisters(side);
    return registers ? Held{registers->FindDescription(reg), registers->GetWord(reg)} : Held{};
}

} // namespace

QString CDriveStage::ChangeDrive(DriveSide side, quint16 reg, const QString& text) {
    CRegisterFile* registers = m_connection.FindRegisters(side);
    if (!registers)
        return QStringLiteral("the drive has no partner: see --drive sim,partner=MOTOR");
    const ParameterDescription* parameter = registers->FindDescription(reg);
    if (!parameter)
        return NoSuchText(reg);
    QString error;
    const std::optional<quint16> word = WordOfText(*parameter, text, error);
    if (word)
        registers->SetWord(reg, *word);
    return error;
}

std::optional<QString> CDriveStage::DriveText(DriveSide side, quint16 reg) {
    const auto [parameter, word] = Find(m_connection, side, reg);
    return parameter ? std::optional(ShownText(*parameter, word)) : std::nullopt;
}

QString CDriveStage::DescribeDrive(quint16 reg) {
    const auto [parameter, word] = Find(m_connection, DriveSide::Own, reg);
    return parameter ? QStringLiteral("%1: %2 %3")
                           .arg(parameter->displayName(), ShownText(*parameter, word), parameter->unit)
                           .trimmed()
                     : NoSuchText(reg);
}

QString CDriveStage::CompareWithMotor(quint16 reg, int percent, bool& isNear) {
    isNear = false;
    const auto [parameter, word] = Find(m_connection, DriveSide::Own, reg);
    if (!parameter)
        return NoSuchText(reg);
    const std::optional<double> truth = m_connection.TrueValue(reg);
    if (!truth || *truth == 0)
        return QStringLiteral("nobody knows what the motor itself has for %1").arg(reg);
    const double away = (ShownNumber(*parameter, word) - *truth) / *truth * 100;
    isNear = std::abs(away) <= percent;
    return QStringLiteral("%1, the motor's own: %2 %3 (%4 %)")
        .arg(DescribeDrive(reg), dtoa(*truth, parameter->decimals), parameter->unit, dtoa(away, 1));
}

std::optional<QString> CDriveStage::MeasureText(quint16 reg) {
    const ParameterDescription* parameter = Find(m_connection, DriveSide::Own, reg).parameter;
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
