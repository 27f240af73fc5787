#pragma once

#include <algorithm>
#include <cmath>

namespace krt550 {

/// A range of values with round marks on it.
struct ChartAxis {
    double low = 0;
    double high = 1;
    double step = 1; ///< between two marks
    int decimals = 0;

    double Length() const { return high - low; }
};

/// An axis that holds `low` to `high`, with a mark at each end and no more than `most` steps of 1, 2 or 5 times a power
/// of ten.
inline ChartAxis MakeAxis(double low, double high, int most) {
    const double span = std::max(high - low, 1e-6);
    const double magnitude = std::pow(10, std::floor(std::log10(span / most)));
    double step = magnitude;
    for (const double factor : {1.0, 2.0, 5.0, 10.0}) {
        step = factor * magnitude;
        if (std::ceil(high / step - 1e-9) - std::floor(low / step + 1e-9) <= most)
            break;
    }
    return {std::floor(low / step + 1e-9) * step, std::ceil(high / step - 1e-9) * step, step,
            std::max(0, -int(std::floor(std::log10(step) + 1e-9)))};
}

} // namespace krt550
