#include "host/drive_stage.h"

#include "host/call_log.h"
#include "hostlib/tolvbo32/value_codec.h"

namespace krt550 {
namespace {

QString NoSuchText(quint16 reg) {
    return QStringLiteral("the drive has no parameter %1").arg(reg);
}

} // namespace

CDriveStage::CDriveStage(CConnection& connection, CCallLog& log) : m_connection(connection), m_log(log) {
    for (const ParameterDescription& parameter : connection.GetParameters())
        m_parameters.insert(parameter.reg, parameter);
}

QString CDriveStage::ChangeDrive(quint16 reg, const QString& text) {
    const auto parameter = m_parameters.constFind(reg);
    if (parameter == m_parameters.constEnd())
        return NoSuchText(reg);
    QString error;
    const std::optional<quint16> word = WordOfText(*parameter, text, error);
    if (!word)
        return error;
    return m_connection.PokeWord(reg, *word) ? QString()
                                             : QStringLiteral("the drive does not let %1 be changed").arg(reg);
}

std::optional<QString> CDriveStage::DriveText(quint16 reg) {
    const auto parameter = m_parameters.constFind(reg);
    quint16 word = 0;
    if (parameter == m_parameters.constEnd() || !m_connection.PeekWord(reg, word))
        return std::nullopt;
    return ShownText(*parameter, word);
}

QString CDriveStage::DescribeDrive(quint16 reg) {
    const std::optional<QString> text = DriveText(reg);
    if (!text)
        return NoSuchText(reg);
    const ParameterDescription& parameter = m_parameters[reg];
    return QStringLiteral("%1: %2 %3").arg(parameter.displayName(), *text, parameter.unit).trimmed();
}

const QStringList& CDriveStage::LogLines() const {
    return m_log.Lines();
}

void CDriveStage::ClearLog() {
    m_log.Clear();
}

} // namespace krt550
