#pragma once

#include "host/report/findings.h"

class QPainter;

namespace krt550 {

/// Size of a chart in points: the width of a page.
inline constexpr int kChartWidth = 500;
inline constexpr int kChartHeight = 235;

/// Draws the trace of a run: speed and its reference, armature current, field current and progress one below the
/// other over one axis of time, each with its unit. The painter's units are points.
void DrawChart(QPainter& painter, const RunFinding& run);

/// The same as an SVG element for a page of HTML.
QString ChartSvg(const RunFinding& run);

} // namespace krt550
