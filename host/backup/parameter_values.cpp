#include "host/backup/parameter_values.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter_link.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QRegularExpression>

#include <algorithm>

namespace krt550 {

std::optional<quint16> ParameterValues::Find(quint16 reg) const {
    const auto found = std::ranges::find(values, reg, &ParameterValue::reg);
    return found == values.end() ? std::nullopt : std::optional(found->word);
}

ParameterValues ReadValues(CHostDrive& drive, CParameterLink& link, std::span<const ParameterDescription> parameters,
                           const std::function<bool()>& isStopped) {
    std::vector<quint16> registers;
    for (const ParameterDescription& parameter : parameters)
        registers.push_back(parameter.reg);
    ParameterValues read;
    QString whyNoMore;
    link.Announce(registers);
    for (const quint16 reg : registers) {
        if (whyNoMore.isEmpty() && isStopped && isStopped())
            whyNoMore = QStringLiteral("interrupted");
        quint16 word = 0;
        if (!whyNoMore.isEmpty()) {
            read.unread.push_back({reg, whyNoMore});
        } else if (link.ReadWord(reg, word)) {
            read.values.push_back({reg, word});
        } else {
            read.unread.push_back({reg, link.LastErrorText()});
            // One register that cannot be read is no reason to leave the others; a drive that is gone is.
            if (!drive.RefreshState())
                whyNoMore = read.unread.back().reason;
        }
    }
    link.Announce({});
    return read;
}

const ParameterDescription* FindParameter(std::span<const ParameterDescription> parameters, quint16 reg) {
    const auto found = std::ranges::find(parameters, reg, &ParameterDescription::reg);
    return found == parameters.end() ? nullptr : &*found;
}

std::optional<quint16> ParseRegister(const QString& text) {
    static const QRegularExpression form(QStringLiteral(R"(^([1-9]\d{0,2})\.?(\d\d)$)"));
    const QRegularExpressionMatch match = form.match(text);
    const int reg = match.captured(1).toInt() * 100 + match.captured(2).toInt();
    return match.hasMatch() && reg <= 0xFFFF ? std::optional(static_cast<quint16>(reg)) : std::nullopt;
}

QString ValueText(const ParameterDescription& parameter, quint16 word) {
    const QString text = ShownText(parameter, word);
    return parameter.unit.isEmpty() ? text : text + QLatin1Char(' ') + parameter.unit;
}

} // namespace krt550
