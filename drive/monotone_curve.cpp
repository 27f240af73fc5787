#include "drive/monotone_curve.h"

#include <algorithm>
#include <cstddef>

namespace krt550 {

CMonotoneCurve::CMonotoneCurve(std::vector<std::pair<double, double>> points)
    : m_points(std::move(points)), m_slopes(m_points.size()) {
    const std::size_t count = m_points.size();
    if (count < 2)
        return;
    std::vector<double> secants(count - 1);
    for (std::size_t i = 0; i + 1 < count; ++i)
        secants[i] = (m_points[i + 1].second - m_points[i].second) / (m_points[i + 1].first - m_points[i].first);
    m_slopes.front() = secants.front();
    m_slopes.back() = secants.back();
    for (std::size_t i = 1; i + 1 < count; ++i) {
        const double left = secants[i - 1];
        const double right = secants[i];
        // The harmonic mean keeps the piece monotone; 0 at an extreme point.
        m_slopes[i] = left * right <= 0 ? 0 : 2 * left * right / (left + right);
    }
}

double CMonotoneCurve::operator()(double x) const {
    if (m_points.empty())
        return 0;
    const auto& [firstX, firstY] = m_points.front();
    const auto& [lastX, lastY] = m_points.back();
    if (x <= firstX)
        return firstY + m_slopes.front() * (x - firstX);
    if (x >= lastX)
        return lastY + m_slopes.back() * (x - lastX);
    const auto next = std::ranges::upper_bound(m_points, x, {}, &std::pair<double, double>::first);
    const auto place = static_cast<std::size_t>(next - m_points.begin()) - 1;
    const auto& [x0, y0] = m_points[place];
    const double width = next->first - x0;
    const double t = (x - x0) / width;
    const double rise = next->second - y0;
    const double inner = t * (1 - t);
    return y0 + rise * t * t * (3 - 2 * t) + width * inner * (m_slopes[place] * (1 - t) - m_slopes[place + 1] * t);
}

} // namespace krt550
