#include "host/backup/backup_file.h"

#include "host/backup/keeping.h"
#include "hostlib/tolvbo32/typed_value.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QRegularExpression>
#include <QStringConverter>

#include <algorithm>
#include <set>

namespace krt550 {
namespace {

constexpr int kFormat = 1;
constexpr auto kTitle = "KRT 550 backup, format ";
constexpr auto kColumns = "register\tname\tvalue\tunit";
constexpr auto kEnd = "end";
constexpr auto kUnread = "? not read: ";
constexpr auto kUnusable = "? not usable: ";

constexpr quint16 kIdentity[] = {402, 401, 403, 404, 405};
constexpr quint16 kNamePlate[] = {9902, 9903, 9904, 9905, 9911};

QString Facts(std::span<const quint16> registers, const ParameterValues& values,
              std::span<const ParameterDescription> parameters) {
    QStringList facts;
    for (const quint16 reg : registers) {
        const ParameterDescription* parameter = FindParameter(parameters, reg);
        const std::optional<quint16> word = values.Find(reg);
        if (parameter && word)
            facts.append(parameter->name + QLatin1Char(' ') + ValueText(*parameter, *word));
    }
    return facts.join(QLatin1String(", "));
}

QString OneLine(QString text) {
    return text.replace(QRegularExpression(QStringLiteral("[\\t\\r\\n]+")), QStringLiteral(" "));
}

QString FieldOf(const ParameterDescription& parameter, const ParameterValues& values) {
    const std::optional<quint16> word = values.Find(parameter.reg);
    if (!word) {
        const auto found = std::ranges::find(values.unread, parameter.reg, &UnreadValue::reg);
        return QLatin1String(kUnread) + (found == values.unread.end() ? QString() : OneLine(found->reason));
    }
    // What the drive's description does not know could not be read back.
    QString error;
    const QString text = ShownText(parameter, *word);
    return WordOfTypedText(parameter, text, error) == word ? text : QLatin1String(kUnusable) + text;
}

/// Lines of a backup, one after the other.
class CBackupReader {
public:
    explicit CBackupReader(std::span<const ParameterDescription> parameters) : m_parameters(parameters) {}

    /// What is wrong with the line; empty when nothing is.
    QString Take(const QString& line);
    bool IsAtEnd() const { return m_part == Part::End; }
    /// Nothing that follows can make sense.
    bool IsHopeless() const { return m_part == Part::Title; }
    ParameterValues& GetValues() { return m_values; }

private:
    enum class Part { Title, Header, Values, End };

    QString TakeTitle(const QString& line);
    QString TakeValue(const QStringList& fields);

    std::span<const ParameterDescription> m_parameters;
    Part m_part = Part::Title;
    ParameterValues m_values;
    std::set<quint16> m_seen;
};

QString CBackupReader::Take(const QString& line) {
    if (m_part == Part::Title)
        return TakeTitle(line);
    if (line.trimmed().isEmpty() || line.startsWith(QLatin1Char('#')))
        return {};
    QStringList fields = line.split(QLatin1Char('\t'));
    for (QString& field : fields)
        field = field.trimmed();
    if (m_part == Part::Header) {
        if (fields.join(QLatin1Char('\t')) == QLatin1String(kColumns))
            m_part = Part::Values;
        return {};
    }
    if (m_part == Part::End)
        return QStringLiteral("there is something behind the end");
    if (fields.size() == 1 && fields.first() == QLatin1String(kEnd)) {
        m_part = Part::End;
        return {};
    }
    // Without its tab a line that has no unit is as good.
    if (fields.size() == 3)
        fields.append(QString());
    return fields.size() == 4 ? TakeValue(fields) : QStringLiteral("%1 fields instead of 4").arg(fields.size());
}

QString CBackupReader::TakeTitle(const QString& line) {
    if (!line.startsWith(QLatin1String(kTitle)))
        return QStringLiteral("it is no backup: the first line must read \"%1%2\"")
            .arg(QLatin1String(kTitle))
            .arg(kFormat);
    const QString format = line.mid(int(qstrlen(kTitle))).trimmed();
    if (format != QString::number(kFormat))
        return QStringLiteral("it is a backup of format %1; this program knows format %2").arg(format).arg(kFormat);
    m_part = Part::Header;
    return {};
}

QString CBackupReader::TakeValue(const QStringList& fields) {
    const std::optional<quint16> reg = ParseRegister(fields[0]);
    if (!reg)
        return QStringLiteral("\"%1\" is no register").arg(fields[0]);
    const ParameterDescription* parameter = FindParameter(m_parameters, *reg);
    if (!parameter)
        return QStringLiteral("the drive has no parameter %1").arg(RegisterText(*reg));
    if (!m_seen.insert(*reg).second)
        return QStringLiteral("%1 stands here a second time").arg(RegisterText(*reg));
    if (QString reason; KeepingOf(*parameter, &reason) == Keeping::Left)
        return QStringLiteral("%1 does not belong into a backup: %2").arg(parameter->displayName(), reason);
    if (fields[3] != parameter->unit)
        return QStringLiteral("%1 has the unit \"%2\", not \"%3\"")
            .arg(parameter->displayName(), parameter->unit, fields[3]);
    if (fields[2].startsWith(QLatin1Char('?'))) {
        m_values.unread.push_back({*reg, fields[2].mid(1).trimmed()});
        return {};
    }
    QString error;
    if (const std::optional<quint16> word = WordOfTypedText(*parameter, fields[2], error))
        m_values.values.push_back({*reg, *word});
    return error;
}

} // namespace

QByteArray BackupText(const ParameterValues& values, std::span<const ParameterDescription> parameters,
                      const BackupOrigin& origin) {
    qsizetype widestName = 0;
    qsizetype widestValue = 0;
    for (const ParameterDescription& parameter : parameters) {
        widestName = std::max(widestName, parameter.name.size());
        if (values.Find(parameter.reg))
            widestValue = std::max(widestValue, FieldOf(parameter, values).size());
    }
    QStringList lines{
        QLatin1String(kTitle) + QString::number(kFormat),
        QStringLiteral("drive: ") + Facts(kIdentity, values, parameters),
        QStringLiteral("motor: ") + Facts(kNamePlate, values, parameters),
        QStringLiteral("read: %1, %2").arg(origin.read.toString(Qt::ISODate), OneLine(origin.drive)),
        QStringLiteral("program: ") + origin.program,
        QString(),
        QLatin1String(kColumns),
    };
    for (const ParameterDescription& parameter : parameters)
        lines.append(QStringList{RegisterText(parameter.reg), OneLine(parameter.name).leftJustified(widestName),
                                 FieldOf(parameter, values).leftJustified(widestValue), parameter.unit}
                         .join(QLatin1Char('\t')));
    lines.append(QLatin1String(kEnd));
    return lines.join(QLatin1Char('\n')).toUtf8() + '\n';
}

std::optional<ParameterValues> ParseBackup(const QByteArray& text, const QString& fileName,
                                           std::span<const ParameterDescription> parameters, QStringList& errors) {
    const qsizetype errorsBefore = errors.size();
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString decoded = decoder(text);
    if (decoder.hasError()) {
        errors.append(QStringLiteral("%1: it is not UTF-8 text").arg(fileName));
        return std::nullopt;
    }
    CBackupReader reader(parameters);
    int number = 0;
    for (const QString& line : decoded.split(QLatin1Char('\n'))) {
        ++number;
        if (const QString error = reader.Take(line); !error.isEmpty())
            errors.append(QStringLiteral("%1:%2: %3").arg(fileName).arg(number).arg(error));
        if (reader.IsHopeless())
            return std::nullopt;
    }
    if (!reader.IsAtEnd())
        errors.append(QStringLiteral("%1: its end is missing: the last line must read \"%2\"")
                          .arg(fileName, QLatin1String(kEnd)));
    if (errors.size() > errorsBefore)
        return std::nullopt;
    std::ranges::sort(reader.GetValues().values, {}, &ParameterValue::reg);
    return std::move(reader.GetValues());
}

} // namespace krt550
