#include "drive/macros.h"

#include "drive/register_file.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>

namespace krt550 {
namespace {

const QStringList kHeader = {QStringLiteral("macro"), QStringLiteral("register"), QStringLiteral("value")};

std::optional<quint16> ReadNumber(const QString& field, const char* what, QString& error) {
    bool ok = false;
    const quint16 number = field.toUShort(&ok);
    if (ok)
        return number;
    error = QStringLiteral("bad %1 \"%2\"").arg(QLatin1String(what), field);
    return std::nullopt;
}

std::optional<quint16> ReadValue(const ParameterDescription& parameter, const QString& field, QString& error) {
    bool ok = false;
    const double shown = field.toDouble(&ok);
    const std::optional<quint16> word = ok ? WordOfNumber(parameter, shown, error) : std::nullopt;
    if (word && AcceptsWord(parameter, *word, error))
        return word;
    error = QStringLiteral("\"%1\" is no value of %2").arg(field, parameter.displayName());
    return std::nullopt;
}

/// Nothing, with the reason in `error`, for a bad line.
std::optional<CMacroTable::Line> ReadLine(const QStringList& fields,
                                          const std::vector<ParameterDescription>& parameters, QString& error) {
    if (fields.size() != kHeader.size()) {
        error = QStringLiteral("%1 fields instead of %2").arg(fields.size()).arg(kHeader.size());
        return std::nullopt;
    }
    const auto macro = ReadNumber(fields[0], "macro", error);
    const auto reg = macro ? ReadNumber(fields[1], "register", error) : std::nullopt;
    if (!reg)
        return std::nullopt;
    const auto parameter = std::ranges::find(parameters, *reg, &ParameterDescription::reg);
    if (parameter == parameters.end() || parameter->readOnly) {
        error = parameter == parameters.end()
                    ? UnknownRegisterText(*reg)
                    : QStringLiteral("parameter %1 is read-only").arg(parameter->displayName());
        return std::nullopt;
    }
    const auto word = ReadValue(*parameter, fields[2], error);
    return word ? std::optional<CMacroTable::Line>({*macro, *reg, *word}) : std::nullopt;
}

} // namespace

bool CMacroTable::Has(quint16 macro) const {
    return std::ranges::find(m_lines, macro, &Line::macro) != m_lines.end();
}

void CMacroTable::Load(quint16 macro, CRegisterFile& registers) const {
    for (const Line& line : m_lines)
        if (const ParameterDescription* parameter = registers.FindDescription(line.reg))
            registers.SetWord(line.reg, NearestWord(*parameter, parameter->defaultValue));
    for (const Line& line : m_lines)
        if (line.macro == macro)
            registers.SetWord(line.reg, line.word);
}

std::optional<CMacroTable> ReadMacros(QIODevice& input, const QString& fileName,
                                      const std::vector<ParameterDescription>& parameters, QStringList& errors) {
    const qsizetype errorsBefore = errors.size();
    std::vector<CMacroTable::Line> lines;
    bool headerSeen = false;
    QTextStream stream(&input);
    for (int number = 1; !stream.atEnd(); ++number) {
        const QString text = stream.readLine();
        if (text.isEmpty() || text.startsWith(QLatin1Char('#')))
            continue;
        const QStringList fields = text.split(QLatin1Char('\t'));
        QString error;
        if (!std::exchange(headerSeen, true)) {
            if (fields != kHeader)
                error = QStringLiteral("the header line must read: %1").arg(kHeader.join(QLatin1String(" | ")));
        } else if (const auto line = ReadLine(fields, parameters, error)) {
            const bool again = std::ranges::any_of(lines, [&line](const CMacroTable::Line& other) {
                return other.macro == line->macro && other.reg == line->reg;
            });
            if (again)
                error = QStringLiteral("macro %1 names register %2 twice").arg(line->macro).arg(line->reg);
            lines.push_back(*line);
        }
        if (!error.isEmpty())
            errors.append(QStringLiteral("%1:%2: %3").arg(fileName).arg(number).arg(error));
    }
    if (errors.size() == errorsBefore && lines.empty())
        errors.append(QStringLiteral("%1: there is no macro in it").arg(fileName));
    if (errors.size() > errorsBefore)
        return std::nullopt;
    return CMacroTable(std::move(lines));
}

std::optional<CMacroTable> ReadMacroFile(const QString& path, const std::vector<ParameterDescription>& parameters,
                                         QStringList& errors) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        errors.append(QStringLiteral("%1: %2").arg(path, file.errorString()));
        return std::nullopt;
    }
    return ReadMacros(file, path, parameters, errors);
}

} // namespace krt550
