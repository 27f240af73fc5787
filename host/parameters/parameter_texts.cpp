#include "host/parameters/parameter_texts.h"

#include "hostlib/text_files/line_reader.h"
#include "hostlib/text_files/regular_file.h"
#include "hostlib/text_files/text_fields.h"

namespace krt550 {
namespace {

constexpr qint64 kLargestFile = 256 * 1024 * 1024;

} // namespace

QString CParameterTexts::Read(const QString& path) {
    m_tables = std::make_unique<Tables>();
    QFile file(path);
    switch (OpenRegularFile(file, kLargestFile)) {
    case FileProblem::None:
        break;
    case FileProblem::Unreadable:
        return QStringLiteral("%1: cannot be read").arg(path);
    case FileProblem::TooLarge:
        return QStringLiteral("%1: is larger than %2 MB").arg(path).arg(kLargestFile / 1024 / 1024);
    }
    CLineReader reader(file);
    for (std::string_view line; reader.NextLine(line);)
        ReadLine(line);
    return reader.HasFailed() ? QStringLiteral("%1: %2").arg(path, file.errorString()) : QString();
}

void CParameterTexts::ReadLine(std::string_view line) {
    CTextTokenizer fields(line, '\t');
    const std::string_view key = fields.NextToken();
    if (!fields.HasMoreTokens())
        return;
    if (key == "VAN")
        return m_tables->values.ReadLine(fields);
    if (key != "TOOLTIP" && key != "GROUP")
        return;
    const quint16 number = WordOfField(fields.NextFilledToken());
    (key == "GROUP" ? m_tables->groups : m_tables->toolTips).Read(number, fields.Rest());
}

QString CParameterTexts::GetToolTip(quint16 reg) const {
    return TextOfField(m_tables->toolTips.Find(reg));
}

QString CParameterTexts::GetGroupName(int group) const {
    const QString name = TextOfField(m_tables->groups.Find(static_cast<quint32>(group)));
    return name.isEmpty() ? QStringLiteral("Group %1").arg(group) : name;
}

std::vector<std::pair<quint16, QString>> CParameterTexts::GetValueTexts(quint16 reg) const {
    std::vector<std::pair<quint16, QString>> texts;
    for (const quint16 value : m_tables->values.ValuesOf(reg))
        texts.emplace_back(value, TextOfField(m_tables->values.Find(reg, value)));
    return texts;
}

} // namespace krt550
