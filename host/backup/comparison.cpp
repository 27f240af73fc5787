#include "host/backup/comparison.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <map>

namespace krt550 {

std::vector<ValueChange> Compare(const ParameterValues& from, const ParameterValues& to) {
    std::map<quint16, ValueChange> pairs;
    for (const auto& [reg, word] : from.values)
        pairs[reg].from = word;
    for (const auto& [reg, word] : to.values)
        pairs[reg].to = word;
    for (const ParameterValues* side : {&from, &to})
        for (const UnreadValue& unread : side->unread)
            pairs.erase(unread.reg);
    std::vector<ValueChange> changes;
    for (const auto& [reg, pair] : pairs)
        if (pair.from != pair.to)
            changes.push_back({reg, pair.from, pair.to});
    return changes;
}

QString ChangeText(const ValueChange& change, std::span<const ParameterDescription> parameters) {
    const ParameterDescription* parameter = FindParameter(parameters, change.reg);
    const auto text = [parameter](std::optional<quint16> word) {
        if (!word)
            return QStringLiteral("(not there)");
        return parameter ? ValueText(*parameter, *word) : QString::number(*word);
    };
    return QStringLiteral("%1: %2 -> %3").arg(DisplayName(change.reg, parameters), text(change.from), text(change.to));
}

QString DisplayName(quint16 reg, std::span<const ParameterDescription> parameters) {
    const ParameterDescription* parameter = FindParameter(parameters, reg);
    return parameter ? parameter->displayName() : RegisterText(reg);
}

} // namespace krt550
