#include "host/trends/trend_history.h"

#include "hostlib/tolvbo32/clock.h"

#include <QDateTime>

#include "host/trends/plot.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();
/// The oldest go in bunches: the container moves all that it keeps when it gives their room back.
constexpr double kSecondsBetweenDrops = 60;

std::optional<double> Known(double value) {
    return std::isnan(value) ? std::nullopt : std::optional(value);
}

} // namespace

QString TrendSignal::Title() const {
    const QString name = parameter.displayName();
    return parameter.unit.isEmpty() ? name : QStringLiteral("%1 [%2]").arg(name, parameter.unit);
}

QString TrendSignal::TextOf(double value) const {
    const QString number = QString::number(value, 'f', parameter.decimals);
    return parameter.unit.isEmpty() ? number : number + QLatin1Char(' ') + parameter.unit;
}

CTrendHistory::CTrendHistory() {
    FollowWall();
    m_end = Seconds(CClock::Current().Now());
}

void CTrendHistory::FollowWall() {
    m_offset = std::max(m_offset, QDateTime::currentMSecsSinceEpoch() - CClock::Current().Now());
}

void CTrendHistory::Choose(const std::vector<ParameterDescription>& parameters) {
    std::vector<TrendSignal> former = std::exchange(m_signals, {});
    const auto count = std::min(parameters.size(), kMostTrendSignals);
    for (std::size_t i = 0; i < count; ++i) {
        const auto known = std::ranges::find(former, parameters[i].reg, [](const auto& s) { return s.parameter.reg; });
        m_signals.push_back(known == former.end() ? TrendSignal{{}, {}, kMostTrendSignals} : *known);
        m_signals.back().parameter = parameters[i];
    }
    for (TrendSignal& signal : m_signals)
        if (!signal.curve) {
            signal.color = FreeColor();
            signal.curve.reset(new TrendCurve);
            signal.curve->setAutoSqueeze(false);
        }
}

std::size_t CTrendHistory::FreeColor() const {
    std::size_t color = 0;
    while (std::ranges::any_of(m_signals, [&](const auto& signal) { return signal.color == color; }))
        ++color;
    return color;
}

void CTrendHistory::Add(std::size_t place, qint64 time, std::optional<double> value) {
    const double seconds = Seconds(time);
    m_signals[place].curve->add(QCPGraphData(seconds, value.value_or(kGap)));
    m_end = std::max(m_end, seconds);
    if (m_end >= m_nextDrop)
        DropOld();
}

void CTrendHistory::AddGap(qint64 time) {
    for (std::size_t place = 0; place < m_signals.size(); ++place) {
        const TrendCurve& curve = *m_signals[place].curve;
        if (!curve.isEmpty() && (curve.constEnd() - 1)->key < Seconds(time))
            Add(place, time, std::nullopt);
    }
}

void CTrendHistory::Clear() {
    for (const TrendSignal& signal : m_signals)
        signal.curve->clear();
}

void CTrendHistory::DropOld() {
    m_nextDrop = m_end + kSecondsBetweenDrops;
    for (const TrendSignal& signal : m_signals) {
        signal.curve->removeBefore(m_end - kTrendHistorySeconds);
        signal.curve->squeeze(true, false);
    }
}

std::optional<double> CTrendHistory::ValueAt(const TrendSignal& signal, double seconds) {
    const TrendCurve& curve = *signal.curve;
    if (curve.isEmpty() || seconds < curve.constBegin()->key || seconds > (curve.constEnd() - 1)->key)
        return std::nullopt;
    return Known((curve.findEnd(seconds, false) - 1)->value);
}

std::optional<double> CTrendHistory::LastValue(const TrendSignal& signal) {
    return signal.curve->isEmpty() ? std::nullopt : Known((signal.curve->constEnd() - 1)->value);
}

} // namespace krt550
