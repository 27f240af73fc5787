#include "hostlib/tolvbo32/drive_description.h"

#include "hostlib/tolvbo32/value_codec.h"

#include <QFile>
#include <QSet>
#include <QTextStream>

namespace krt550 {
namespace {

enum Column { Register, Name, Unit, Type, Kind, Decimals, Minimum, Maximum, Default, Access, Values, ColumnCount };

const QStringList kHeader = {QStringLiteral("register"),  QStringLiteral("name"),    QStringLiteral("unit"),
                             QStringLiteral("data type"), QStringLiteral("type"),    QStringLiteral("decimals"),
                             QStringLiteral("minimum"),   QStringLiteral("maximum"), QStringLiteral("default"),
                             QStringLiteral("access"),    QStringLiteral("values")};

/// Reads the fields of one line; remembers the first thing that is wrong.
class CLineReader {
public:
    explicit CLineReader(QStringList fields) : m_fields(std::move(fields)) {}

    QString text(Column column) const { return m_fields[column]; }

    int integer(Column column, std::initializer_list<int> allowed) {
        bool ok = false;
        const int value = m_fields[column].toInt(&ok);
        if (!ok || std::find(allowed.begin(), allowed.end(), value) == allowed.end())
            bad(column);
        return value;
    }

    double number(Column column) {
        bool ok = false;
        const double value = m_fields[column].toDouble(&ok);
        if (!ok)
            bad(column);
        return value;
    }

    void bad(Column column) { fail(QStringLiteral("bad %1 \"%2\"").arg(kHeader[column], m_fields[column])); }

    void fail(const QString& what) {
        if (m_error.isEmpty())
            m_error = what;
    }

    const QString& error() const { return m_error; }

private:
    QStringList m_fields;
    QString m_error;
};

quint16 ReadRegister(CLineReader& line) {
    bool ok = false;
    const quint16 reg = line.text(Register).toUShort(&ok);
    if (!ok || reg < 100 || QString::number(reg) != line.text(Register))
        line.bad(Register);
    return reg;
}

std::vector<std::pair<quint16, QString>> ReadValues(CLineReader& line, DataType dataType) {
    std::vector<std::pair<quint16, QString>> values;
    QSet<quint16> numbers;
    QSet<QString> texts;
    const QStringList entries = line.text(Values).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& entry : entries) {
        const qsizetype equals = entry.indexOf(QLatin1Char('='));
        bool ok = false;
        const quint16 number = entry.left(equals).toUShort(&ok);
        const QString text = entry.mid(equals + 1);
        const bool repeated = numbers.contains(number) || (texts.contains(text) && text != kExcludedValue);
        const bool tooWide = dataType == DataType::Unsigned8 && number > 0xFF;
        if (equals < 0 || !ok || tooWide || text.isEmpty() || repeated) {
            line.fail(QStringLiteral("bad or repeated value \"%1\"").arg(entry));
            break;
        }
        numbers.insert(number);
        texts.insert(text);
        values.emplace_back(number, text);
    }
    return values;
}

void CheckNumbers(const ParameterDescription& parameter, CLineReader& line) {
    if (parameter.minimum > parameter.maximum)
        return line.fail(QStringLiteral("minimum is above maximum"));
    QString error;
    ParameterDescription unlimited = parameter;
    unlimited.minimum = unlimited.maximum = 0;
    unlimited.values.clear();
    for (const double limit : {parameter.minimum, parameter.maximum})
        if (!WordOfNumber(unlimited, limit, error))
            return line.fail(QStringLiteral("limit %1 does not fit the data type").arg(limit));
    const std::optional<quint16> word = WordOfNumber(parameter, parameter.defaultValue, error);
    if (!word || !AcceptsWord(parameter, *word, error))
        line.fail(QStringLiteral("default %1 is not a value of the parameter").arg(parameter.defaultValue));
}

ParameterDescription ReadParameterLine(CLineReader& line) {
    ParameterDescription parameter;
    parameter.reg = ReadRegister(line);
    parameter.name = line.text(Name);
    if (parameter.name.isEmpty())
        line.bad(Name);
    parameter.unit = line.text(Unit);
    parameter.dataType = static_cast<DataType>(line.integer(Type, {1, 2, 4, 8}));
    parameter.type = static_cast<ParameterType>(line.integer(Kind, {1, 2, 3, 4, 5, 6, 8, 10}));
    parameter.decimals = line.integer(Decimals, {0, 1, 2, 3, 4});
    parameter.minimum = line.number(Minimum);
    parameter.maximum = line.number(Maximum);
    parameter.defaultValue = line.number(Default);
    parameter.readOnly = line.text(Access) == QLatin1String("ro");
    if (!parameter.readOnly && line.text(Access) != QLatin1String("rw"))
        line.bad(Access);
    parameter.values = ReadValues(line, parameter.dataType);
    if (line.error().isEmpty())
        CheckNumbers(parameter, line);
    return parameter;
}

} // namespace

std::optional<std::vector<ParameterDescription>> ReadDriveDescription(QIODevice& input, const QString& fileName,
                                                                      QStringList& errors) {
    const qsizetype errorsBefore = errors.size();
    std::vector<ParameterDescription> parameters;
    QSet<quint16> seen;
    bool headerSeen = false;
    QTextStream stream(&input);
    for (int lineNumber = 1; !stream.atEnd(); ++lineNumber) {
        const QString text = stream.readLine();
        if (text.isEmpty() || text.startsWith(QLatin1Char('#')))
            continue;
        const auto report = [&](const QString& what) {
            errors.append(QStringLiteral("%1:%2: %3").arg(fileName, QString::number(lineNumber), what));
        };
        const QStringList fields = text.split(QLatin1Char('\t'));
        if (!headerSeen) {
            if (fields != kHeader) {
                report(QStringLiteral("the header line must read: %1").arg(kHeader.join(QLatin1String(" | "))));
                return std::nullopt;
            }
            headerSeen = true;
            continue;
        }
        if (fields.size() != ColumnCount) {
            report(QStringLiteral("%1 fields instead of %2").arg(fields.size()).arg(int(ColumnCount)));
            continue;
        }
        CLineReader line(fields);
        ParameterDescription parameter = ReadParameterLine(line);
        if (line.error().isEmpty() && seen.contains(parameter.reg))
            line.fail(QStringLiteral("register %1 stands here a second time").arg(parameter.reg));
        if (!line.error().isEmpty()) {
            report(line.error());
            continue;
        }
        seen.insert(parameter.reg);
        parameters.push_back(std::move(parameter));
    }
    if (!headerSeen)
        errors.append(QStringLiteral("%1: no header line, the file is empty").arg(fileName));
    if (errors.size() > errorsBefore)
        return std::nullopt;
    return parameters;
}

std::optional<std::vector<ParameterDescription>> ReadDriveDescriptionFile(const QString& path, QStringList& errors) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        errors.append(QStringLiteral("%1: cannot be read: %2").arg(path, file.errorString()));
        return std::nullopt;
    }
    return ReadDriveDescription(file, path, errors);
}

} // namespace krt550
