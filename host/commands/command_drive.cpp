#include "host/commands/command_drive.h"

#include "drive/named_drive.h"
#include "host/backup/comparison.h"
#include "host/connect_drive.h"
#include "host/connector.h"
#include "host/tool.h"
#include "hostlib/tolvbo32/drive_description.h"
#include "hostlib/tolvbo32/parameter_tree.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

namespace krt550 {

std::optional<int> CCommandDrive::Describe() {
    QStringList errors;
    auto parameters =
        ReadDriveDescriptionFile(OrBesideProgram(m_line.Value("parameters"), KRT550_PARAMETER_PATH), errors);
    if (!parameters)
        return m_line.Complain(errors.join(QLatin1Char('\n')), kExitUsage);
    m_described = *std::move(parameters);
    return std::nullopt;
}

std::optional<int> CCommandDrive::Connect() {
    if (const auto end = Describe())
        return end;
    QStringList errors;
    auto files = ReadDriveFiles(OrBesideProgram(m_line.Value("parameters"), KRT550_PARAMETER_PATH),
                                m_line.Value("macros"), errors);
    if (!files)
        return m_line.Complain(errors.join(QLatin1Char('\n')), kExitUsage);
    QString error;
    m_connection = ConnectDrive(Name(), *std::move(files), {}, error);
    if (!m_connection)
        return m_line.Complain(error, kExitUsage);
    if (!m_connection->Open(error))
        return m_line.Complain(error, kExitFailure);
    CParameterGroup* root = nullptr;
    if (Drive().GetParameterRoot(&root) && root)
        m_parameters = DescriptionsIn(*root);
    return std::nullopt;
}

std::optional<int> CCommandDrive::ConnectRecorded() {
    const QString path = m_line.Value(kRecordOption.name);
    QString error;
    if (!path.isEmpty())
        m_record = OpenRecord(
            path, Name(), [this](const QString& text) { m_line.Complain(text, 0); }, error);
    if (!error.isEmpty())
        return m_line.Complain(error, kExitUsage);
    if (const auto end = Connect())
        return end;
    if (m_record)
        m_recording.emplace(m_record.get(), m_connection->GetDrive(), m_connection->GetLink());
    return std::nullopt;
}

int CCommandDrive::End(int status) {
    if (!m_recording)
        return status;
    m_recording->End();
    return status == 0 && m_record->HasGaps() ? kExitFailure : status;
}

QString CCommandDrive::Name() const {
    const QString name = m_line.Value("drive");
    return name.isEmpty() ? QStringLiteral("sim") : name;
}

ParameterValues CCommandDrive::Read(std::span<const ParameterDescription> parameters) {
    ParameterValues values = ReadValues(Drive(), Link(), parameters, [this] { return IsInterrupted(); });
    // A drive that has gone is told once.
    for (std::size_t i = 0, next = 0; i < values.unread.size(); i = next) {
        const auto& [reg, reason] = values.unread[i];
        while (next < values.unread.size() && values.unread[next].reason == reason)
            ++next;
        const QString more = next - i > 1 ? QStringLiteral(" and %1 more").arg(next - i - 1) : QString();
        m_line.Complain(QStringLiteral("%1%2 could not be read: %3").arg(DisplayName(reg, parameters), more, reason),
                        0);
    }
    return values;
}

std::optional<std::vector<ParameterDescription>> CCommandDrive::Find(const QStringList& arguments) {
    std::vector<ParameterDescription> found;
    bool areGood = true;
    for (const QString& argument : arguments) {
        const std::optional<quint16> reg = ParseRegister(argument);
        const ParameterDescription* parameter = reg ? FindParameter(m_parameters, *reg) : nullptr;
        if (parameter)
            found.push_back(*parameter);
        else
            m_line.Complain(reg ? QStringLiteral("the drive has no parameter %1").arg(RegisterText(*reg))
                                : QStringLiteral("\"%1\" is no register: it is 99.06 or 9906").arg(argument),
                            0);
        areGood = areGood && parameter;
    }
    return areGood ? std::optional(std::move(found)) : std::nullopt;
}

QJsonObject ValueJson(const ParameterDescription& parameter, std::optional<quint16> word) {
    QJsonObject object{{QStringLiteral("register"), RegisterText(parameter.reg)},
                       {QStringLiteral("name"), parameter.name},
                       {QStringLiteral("unit"), parameter.unit},
                       {QStringLiteral("value"), QJsonValue::Null},
                       {QStringLiteral("word"), QJsonValue::Null}};
    if (word) {
        object[QStringLiteral("value")] = parameter.isValueList() ? QJsonValue(ShownText(parameter, *word))
                                                                  : QJsonValue(ShownNumber(parameter, *word));
        object[QStringLiteral("word")] = *word;
    }
    return object;
}

void PrintJson(const QJsonArray& array) {
    std::fputs(QJsonDocument(array).toJson().constData(), stdout);
}

} // namespace krt550
