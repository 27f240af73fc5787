#include "drive/terminals.h"

#include "hostlib/tolvbo32/dtoa.h"

#include <cmath>

namespace krt550 {
namespace {

struct Strip {
    const char* prefix;
    Terminal::Kind kind;
    int count;
};

constexpr Strip kStrips[] = {{"DI", Terminal::Kind::DigitalInput, 8},
                             {"AI", Terminal::Kind::AnalogInput, 4},
                             {"DO", Terminal::Kind::DigitalOutput, 8},
                             {"AO", Terminal::Kind::AnalogOutput, 2}};

constexpr double kBurden = 0.5; ///< of a current input [V/mA]
constexpr double kMostVolts = 30;

} // namespace

std::optional<Terminal> ParseTerminal(const QString& name) {
    for (const auto& [prefix, kind, count] : kStrips) {
        if (!name.startsWith(QLatin1String(prefix), Qt::CaseInsensitive) || name.size() != 3)
            continue;
        const int number = name.back().digitValue();
        if (number >= 1 && number <= count)
            return Terminal{kind, number};
    }
    return std::nullopt;
}

std::optional<double> ParseTerminalValue(const Terminal& terminal, const QString& text, QString& error) {
    if (terminal.IsDigital()) {
        if (text == QLatin1String("on") || text == QLatin1String("off"))
            return text == QLatin1String("on") ? 1 : 0;
        error = QStringLiteral("\"%1\" is neither on nor off").arg(text);
        return std::nullopt;
    }
    QString number = text.simplified();
    const bool current = number.endsWith(QLatin1String("mA"));
    number.chop(current ? 2 : number.endsWith(QLatin1Char('V')) ? 1 : 0);
    bool ok = false;
    const double volts = number.trimmed().toDouble(&ok) * (current ? kBurden : 1);
    if (ok && std::abs(volts) <= kMostVolts)
        return volts;
    error = QStringLiteral("\"%1\" is no voltage from -30 to 30 V, and no current as in \"12 mA\"").arg(text);
    return std::nullopt;
}

QString TerminalText(const Terminal& terminal, double value) {
    if (terminal.IsDigital())
        return value != 0 ? QStringLiteral("on") : QStringLiteral("off");
    return dtoa(value, 2) + QLatin1String(" V");
}

QString TerminalNames() {
    return QStringLiteral("DI1 to DI8, AI1 to AI4, DO1 to DO8, AO1, AO2");
}

quint16 CTerminals::GetDigitalInputs() const {
    const unsigned byContact = m_contacts.wired & m_contacts.closed & ~unsigned{m_off};
    return static_cast<quint16>(byContact | (m_on & ~unsigned{m_contacts.wired}));
}

void CTerminals::SetAnalogInput(int number, double volts) {
    const auto place = static_cast<std::size_t>(number - 1);
    m_byHand.at(place) = true;
    m_analogInputs.at(place) = volts;
}

void CTerminals::SetSensor(int number, double volts) {
    const auto put = [this](int input, double level) {
        const auto place = static_cast<std::size_t>(input - 1);
        if (input != 0 && !m_byHand.at(place))
            m_analogInputs.at(place) = level;
    };
    put(m_sensor, 0);
    put(m_sensor = number, volts);
}

void CTerminals::Choose(quint16& set, quint16& other, int number) {
    const unsigned bit = 1U << (number - 1);
    set = static_cast<quint16>(set | bit);
    other = static_cast<quint16>(other & ~bit);
}

} // namespace krt550
