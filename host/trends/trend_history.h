#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <QSharedPointer>

#include <optional>
#include <vector>

class QCPGraphData;
template <class DataType> class QCPDataContainer;

namespace krt550 {

inline constexpr std::size_t kMostTrendSignals = 8;
inline constexpr int kTrendHistorySeconds = 3600;

/// Samples of a signal, as the chart draws them: time [s since 1970-01-01 UTC] and value in shown units. NaN is a gap.
using TrendCurve = QCPDataContainer<QCPGraphData>;

struct TrendSignal {
    ParameterDescription parameter;
    QSharedPointer<TrendCurve> curve;
    std::size_t color = 0; ///< its place among the colours of the curves, below kMostTrendSignals

    /// "1.04 Speed actual [rpm]"
    QString Title() const;
    /// With unit and the parameter's decimals.
    QString TextOf(double value) const;
};

/// What the chosen signals have been for the last hour. Times come in milliseconds of the current clock.
class CTrendHistory {
public:
    CTrendHistory();

    /// At most kMostTrendSignals, the others are left out. Those that were chosen before keep samples and colour.
    void Choose(const std::vector<ParameterDescription>& parameters);
    const std::vector<TrendSignal>& Signals() const { return m_signals; }

    /// The sample of one signal; nothing: there is none, which leaves a gap.
    void Add(std::size_t place, qint64 time, std::optional<double> value);
    /// A gap in every curve that has nothing since then.
    void AddGap(qint64 time);
    /// Forgets all samples.
    void Clear();
    /// Goes by the clock on the wall from now on, except backwards: it may have gone on without the current clock.
    void FollowWall();

    /// Newest sample or gap [s]; that of the last one before Clear, too.
    double End() const { return m_end; }
    /// What a signal was at a time; nothing in a gap, before the first and after the last sample.
    static std::optional<double> ValueAt(const TrendSignal& signal, double seconds);
    /// The last sample, or nothing when it is a gap.
    static std::optional<double> LastValue(const TrendSignal& signal);

private:
    double Seconds(qint64 time) const { return double(m_offset + time) / 1000; }
    std::size_t FreeColor() const;
    void DropOld();

    std::vector<TrendSignal> m_signals;
    qint64 m_offset = 0; ///< of the wall's milliseconds from the current clock's
    double m_end = 0;
    double m_nextDrop = 0;
};

} // namespace krt550
