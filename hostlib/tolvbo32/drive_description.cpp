#include "hostlib/tolvbo32/drive_description.h"

#include "hostlib/tolvbo32/description_line.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QFile>
#include <QStringConverter>

#include <algorithm>

namespace krt550 {
namespace {

using namespace description;

quint16 ReadRegister(CDescriptionLine& line) {
    quint16 reg = 0;
    if (!Parse(line.text(Register), reg) || reg < 100 || line.text(Register).front() == '0')
        line.bad(Register);
    return reg;
}

std::vector<std::pair<quint16, QString>> ReadValues(CDescriptionLine& line, DataType dataType) {
    std::vector<std::pair<quint16, QString>> values;
    std::string_view left = line.text(Values);
    while (!left.empty()) {
        const std::string_view entry = TakeUpTo(left, ';');
        if (entry.empty())
            continue;
        const std::size_t equals = entry.find('=');
        quint16 number = 0;
        const bool good = equals != entry.npos && equals + 1 < entry.size() && Parse(entry.substr(0, equals), number) &&
                          (dataType != DataType::Unsigned8 || number <= 0xFF);
        const QString text = good ? Text(entry.substr(equals + 1)) : QString();
        const bool repeated = std::ranges::any_of(values, [&](const auto& value) {
            return value.first == number || (value.second == text && text != kExcludedValue);
        });
        if (!good || repeated) {
            line.fail(QStringLiteral("bad or repeated value \"%1\"").arg(Text(entry)));
            break;
        }
        values.emplace_back(number, text);
    }
    return values;
}

void CheckNumbers(const ParameterDescription& parameter, CDescriptionLine& line) {
    if (parameter.minimum > parameter.maximum)
        return line.fail(QStringLiteral("minimum is above maximum"));
    QString error;
    ParameterDescription unlimited;
    unlimited.dataType = parameter.dataType;
    unlimited.decimals = parameter.decimals;
    for (const double limit : {parameter.minimum, parameter.maximum})
        if (!WordOfNumber(unlimited, limit, error))
            return line.fail(QStringLiteral("limit %1 does not fit the data type").arg(limit));
    const std::optional<quint16> word = WordOfNumber(parameter, parameter.defaultValue, error);
    if (!word || !AcceptsWord(parameter, *word, error))
        line.fail(QStringLiteral("default %1 is not a value of the parameter").arg(parameter.defaultValue));
}

ParameterDescription ReadParameterLine(CDescriptionLine& line) {
    ParameterDescription parameter;
    parameter.reg = ReadRegister(line);
    parameter.name = Text(line.text(Name));
    if (parameter.name.isEmpty())
        line.bad(Name);
    parameter.unit = Text(line.text(Unit));
    parameter.dataType = static_cast<DataType>(line.integer(Type, {1, 2, 4, 8}));
    parameter.type = static_cast<ParameterType>(line.integer(Kind, {1, 2, 3, 4, 5, 6, 8, 10}));
    parameter.decimals = line.integer(Decimals, {0, 1, 2, 3, 4});
    parameter.minimum = line.number(Minimum);
    parameter.maximum = line.number(Maximum);
    parameter.defaultValue = line.number(Default);
    parameter.readOnly = line.text(Access) == "ro";
    if (!parameter.readOnly && line.text(Access) != "rw")
        line.bad(Access);
    parameter.values = ReadValues(line, parameter.dataType);
    if (line.error().isEmpty())
        CheckNumbers(parameter, line);
    return parameter;
}

/// UTF-8 without a byte-order mark. Editors that save as UTF-16 mark it.
QByteArray ReadUtf8(QIODevice& input) {
    const QByteArray data = input.readAll();
    const auto marked = QStringConverter::encodingForData(data);
    return marked ? QString(QStringDecoder(*marked)(data)).toUtf8() : data;
}

} // namespace

std::optional<std::vector<ParameterDescription>> ReadDriveDescription(QIODevice& input, const QString& fileName,
                                                                      QStringList& errors) {
    const qsizetype errorsBefore = errors.size();
    const QByteArray data = ReadUtf8(input);
    std::string_view left(data.constData(), static_cast<std::size_t>(data.size()));
    std::vector<ParameterDescription> parameters;
    parameters.reserve(static_cast<std::size_t>(std::ranges::count(left, '\n')) + 1);
    std::vector<bool> seen(0x10000);
    bool headerSeen = false;
    for (int lineNumber = 1; !left.empty(); ++lineNumber) {
        std::string_view text = TakeUpTo(left, '\n');
        if (text.ends_with('\r'))
            text.remove_suffix(1);
        if (text.empty() || text.starts_with('#'))
            continue;
        const auto report = [&](const QString& what) {
            errors.append(QStringLiteral("%1:%2: %3").arg(fileName, QString::number(lineNumber), what));
        };
        CDescriptionLine line(text);
        if (!headerSeen) {
            if (!line.isHeader()) {
                QStringList header;
                for (const std::string_view column : kHeader)
                    header.append(Text(column));
                report(QStringLiteral("the header line must read: %1").arg(header.join(QLatin1String(" | "))));
                return std::nullopt;
            }
            headerSeen = true;
            continue;
        }
        if (line.count() != ColumnCount) {
            report(QStringLiteral("%1 fields instead of %2").arg(line.count()).arg(int(ColumnCount)));
            continue;
        }
        ParameterDescription parameter = ReadParameterLine(line);
        if (line.error().isEmpty() && seen[parameter.reg])
            line.fail(QStringLiteral("register %1 stands here a second time").arg(parameter.reg));
        if (!line.error().isEmpty()) {
            report(line.error());
            continue;
        }
        seen[parameter.reg] = true;
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
