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
    bool IsEmpty() const { return m_pieces.empty(); }

private:
    /// From `start` on: y + d*(slope + d*(second + d*third)) with d = x - start.
    struct Piece {
        double start = 0;
        double y = 0;
        double slope = 0;
        double second = 0;
        double third = 0;
    };

    std::vector<Piece> m_pieces; ///< one a point; the last one goes on straight
};

} // namespace krt550
