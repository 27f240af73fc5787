#include "host/report/drive_values.h"

#include "hostlib/tolvbo32/value_codec.h"

namespace krt550 {
namespace {

/// What is known at the end of a session: what it has read then, or what follows from all that happened.
RegisterWords LeftBy(const RecordedSession& session) {
    RegisterWords left = session.asFound;
    for (const RecordedEvent& event : session.events) {
        const bool isChange = event.kind == QLatin1String("change");
        const bool isWrite = event.kind == QLatin1String("write") && event.ok.value_or(false);
        if (event.newWord && (isChange || isWrite))
            left[event.reg] = *event.newWord;
    }
    for (const auto& [reg, word] : session.asLeft)
        left[reg] = word;
    return left;
}

} // namespace

CDriveValues::CDriveValues(const std::vector<RecordedSession>& sessions) {
    for (const RecordedSession& session : sessions) {
        for (const auto& [reg, parameter] : session.parameters)
            m_parameters[reg] = parameter;
        m_found.insert(session.asFound.begin(), session.asFound.end()); // what an earlier one has found stays
        for (const auto& [reg, word] : LeftBy(session))
            m_left[reg] = word;
        m_areLeftRead = !session.asLeft.empty();
    }
}

const ParameterDescription* CDriveValues::Find(quint16 reg) const {
    const auto found = m_parameters.find(reg);
    return found == m_parameters.end() ? nullptr : &found->second;
}

QString CDriveValues::LeftText(quint16 reg) const {
    const ParameterDescription* parameter = Find(reg);
    const auto left = m_left.find(reg);
    if (!parameter || left == m_left.end())
        return {};
    return QStringLiteral("%1 %2").arg(ShownText(*parameter, left->second), parameter->unit).trimmed();
}

QList<Fact> CDriveValues::Facts(std::span<const quint16> registers) const {
    QList<Fact> facts;
    for (const quint16 reg : registers)
        if (const QString text = LeftText(reg); !text.isEmpty())
            facts.append({Find(reg)->name, text});
    return facts;
}

std::optional<ValueLine> CDriveValues::Line(quint16 reg, std::optional<quint16> from, std::optional<quint16> to) const {
    const ParameterDescription* parameter = Find(reg);
    if (!parameter)
        return std::nullopt;
    const auto text = [parameter](std::optional<quint16> word) {
        return word ? ShownText(*parameter, *word) : QStringLiteral("?");
    };
    return ValueLine{RegisterText(reg), parameter->name, text(from), text(to), parameter->unit};
}

bool CDriveValues::IsDefault(quint16 reg) const {
    const ParameterDescription* parameter = Find(reg);
    const auto left = m_left.find(reg);
    return !parameter || left == m_left.end() || left->second == NearestWord(*parameter, parameter->defaultValue);
}

std::vector<ValueLine> CDriveValues::Changed() const {
    std::vector<ValueLine> lines;
    for (const auto& [reg, word] : m_left) {
        const ParameterDescription* parameter = Find(reg);
        const auto found = m_found.find(reg);
        if (parameter && !parameter->readOnly && found != m_found.end() && found->second != word)
            lines.push_back(*Line(reg, found->second, word));
    }
    return lines;
}

std::vector<ValueLine> CDriveValues::NotDefault() const {
    std::vector<ValueLine> lines;
    for (const auto& [reg, word] : m_left) {
        const ParameterDescription* parameter = Find(reg);
        if (parameter && !parameter->readOnly && !IsDefault(reg))
            lines.push_back(*Line(reg, NearestWord(*parameter, parameter->defaultValue), word));
    }
    return lines;
}

} // namespace krt550
