#pragma once

#include "host/report/record_reader.h"

#include <QPainterPath>

#include <functional>

namespace krt550 {

/// Where a value of a trace lies in the picture.
using PlaceOf = std::function<QPointF(const TracePoint& point, double value)>;

/// The curve of a signal. What could not be read leaves a gap. A trace of more points than the eye can tell apart is
/// drawn with the lowest and the highest of neighbours.
QPainterPath CurvePath(const std::vector<TracePoint>& trace, TraceSignal signal, const PlaceOf& place);

} // namespace krt550
