#include "drive/monotone_curve.h"

#include <cstddef>

namespace krt550 {

CMonotoneCurve::CMonotoneCurve(std::vector<std::pair<double, double>> points) {
    for (const auto& [x, y] : points)
        m_pieces.push_back({x, y});
    const std::size_t count = points.size();
    if (count < 2)
        return;
    std::vector<double> secants(count - 1);
    for (std::size_t i = 0; i + 1 < count; ++i)
        secants[i] = (points[i + 1].second - points[i].second) / (points[i + 1].first - points[i].first);
    m_pieces.front().slope = secants.front();
    m_pieces.back().slope = secants.back();
    for (std::size_t i = 1; i + 1 < count; ++i) {
        const double left = secants[i - 1];
        const double right = secants[i];
        // The harmonic mean keeps the piece monotone; 0 at an extreme point.
        m_pieces[i].slope = left * right <= 0 ? 0 : 2 * left * right / (left + right);
    }
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const double width = m_pieces[i + 1].start - m_pieces[i].start;
        const double from = m_pieces[i].slope;
        const double to = m_pieces[i + 1].slope;
        m_pieces[i].second = (3 * secants[i] - 2 * from - to) / width;
        m_pieces[i].third = (from + to - 2 * secants[i]) / (width * width);
    }
}

double CMonotoneCurve::operator()(double x) const {
    if (m_pieces.empty())
        return 0;
    // The curves here have few points: looking through them is the quickest search.
    const Piece* piece = &m_pieces.front();
    for (const Piece* next = piece + 1; next < m_pieces.data() + m_pieces.size() && x >= next->start; ++next)
        piece = next;
    const double d = x - piece->start;
    if (d < 0)
        return piece->y + piece->slope * d;
    return piece->y + d * (piece->slope + d * (piece->second + d * piece->third));
}

} // namespace krt550
