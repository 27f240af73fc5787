#include "host/report/curve_path.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr std::size_t kMostGroups = 1200;

/// Places of the lowest and the highest value between `begin` and `end`, the earlier one first; nothing without values.
std::optional<std::pair<std::size_t, std::size_t>> Extremes(const std::vector<TracePoint>& trace, TraceSignal signal,
                                                            std::size_t begin, std::size_t end) {
    std::optional<std::pair<std::size_t, std::size_t>> found;
    for (std::size_t i = begin; i < end; ++i) {
        const std::optional<double>& value = trace[i].values[signal];
        if (!value)
            continue;
        if (!found)
            found.emplace(i, i);
        if (*value < *trace[found->first].values[signal])
            found->first = i;
        if (*value > *trace[found->second].values[signal])
            found->second = i;
    }
    if (found && found->first > found->second)
        std::swap(found->first, found->second);
    return found;
}

} // namespace

QPainterPath CurvePath(const std::vector<TracePoint>& trace, TraceSignal signal, const PlaceOf& place) {
    QPainterPath path;
    bool isBroken = true;
    const std::size_t together = trace.size() / kMostGroups + 1;
    for (std::size_t begin = 0; begin < trace.size(); begin += together) {
        const auto extremes = Extremes(trace, signal, begin, std::min(begin + together, trace.size()));
        if (!extremes) {
            isBroken = true;
            continue;
        }
        const auto at = [&](std::size_t i) { return place(trace[i], *trace[i].values[signal]); };
        if (std::exchange(isBroken, false))
            path.moveTo(at(extremes->first));
        else
            path.lineTo(at(extremes->first));
        if (extremes->second != extremes->first)
            path.lineTo(at(extremes->second));
    }
    return path;
}

} // namespace krt550
