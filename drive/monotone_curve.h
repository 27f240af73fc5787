#pragma once

#include <utility>
#include <vector>

namespace krt550 {

/// A curve through points of rising abscissa that neither overshoots nor swings between them: cubic Hermite pieces
/// with the slopes of Fritsch and Carlson. Beyond its ends it goes on straight.
class CMonotoneCurve {
public:
    CMonotoneCurve() = default;
    explicit CMonotoneCurve(std::vector<std::pair<double, double>> points);

    double operator()(double x) const;
    bool IsEmpty() const { return m_points.empty(); }

private:
    std::vector<std::pair<double, double>> m_points;
    std::vector<double> m_slopes;
};

} // namespace krt550
