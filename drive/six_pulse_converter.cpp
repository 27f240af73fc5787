#include "drive/six_pulse_converter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace krt550 {
namespace {

using std::numbers::pi;

constexpr double kPulse = pi / 3;
constexpr double kIdealOfPeak = 3 / pi;
const double kBoundary = 1 - pi / 6 / std::tan(pi / 6);

/// e at which a pulse that starts at theta0 lasts `length`: the root condition solved for e.
double EmfOf(double theta0, double length) {
    return length < 1e-6 ? std::sin(theta0) : (std::cos(theta0) - std::cos(theta0 + length)) / length;
}

/// Id*w*L/Upeak: the pulse's mean over the 60 degrees between two firings.
double CurrentOf(double theta0, double length, double e) {
    return kIdealOfPeak *
           (std::cos(theta0) * length - (std::sin(theta0 + length) - std::sin(theta0)) - e * length * length / 2);
}

/// e over the cosine of the firing angle and the current relative to its limit. The columns are even in the cube root
/// of the current, which nearly goes with the conduction angle.
class CEmfTable {
public:
    CEmfTable() {
        for (int row = 0; row < kRows; ++row)
            for (int column = 0; column < kColumns; ++column)
                m_values[Place(row, column)] =
                    Solve(std::acos(2.0 * row / (kRows - 1) - 1), double(column) / (kColumns - 1));
    }

    double Look(double cosine, double root) const {
        const double x = std::clamp((cosine + 1) / 2, 0.0, 1.0) * (kRows - 1);
        const double y = std::clamp(root, 0.0, 1.0) * (kColumns - 1);
        const int row = std::min(static_cast<int>(x), kRows - 2);
        const int column = std::min(static_cast<int>(y), kColumns - 2);
        const double down = x - row;
        const double right = y - column;
        return (m_values[Place(row, column)] * (1 - right) + m_values[Place(row, column + 1)] * right) * (1 - down) +
               (m_values[Place(row + 1, column)] * (1 - right) + m_values[Place(row + 1, column + 1)] * right) * down;
    }

private:
    static constexpr int kRows = 257;
    static constexpr int kColumns = 41;

    static std::size_t Place(int row, int column) { return static_cast<std::size_t>(row * kColumns + column); }

    static double Solve(double alpha, double root) {
        // Fired before 30 degrees a valve waits for the EMF to be passed: the curve of 30 degrees, drawn together.
        if (alpha < pi / 6) {
            const double late = std::cos(pi / 6) * kIdealOfPeak;
            const double here = std::cos(alpha) * kIdealOfPeak;
            return here + (Solve(pi / 6, root) - late) * (1 - here) / (1 - late);
        }
        const double theta0 = kPulse + alpha;
        const double limit = CurrentOf(theta0, kPulse, EmfOf(theta0, kPulse));
        const double wanted = root * root * root * limit;
        double low = 0;
        double high = kPulse;
        for (int i = 0; i < 50; ++i) {
            const double middle = (low + high) / 2;
            (CurrentOf(theta0, middle, EmfOf(theta0, middle)) < wanted ? low : high) = middle;
        }
        return EmfOf(theta0, low);
    }

    std::array<double, std::size_t{kRows} * kColumns> m_values{};
};

const CEmfTable& EmfTable() {
    static const CEmfTable table;
    return table;
}

double SineOf(double cosine) {
    return std::sqrt(std::max(0.0, 1 - cosine * cosine));
}

} // namespace

DiscontinuousPulse PulseOf(double alpha, double e) {
    const double theta0 = kPulse + alpha;
    double low = 0;
    double high = kPulse;
    if (EmfOf(theta0, kPulse) >= e)
        low = high;
    for (int i = 0; i < 60 && low < high; ++i) {
        const double middle = (low + high) / 2;
        (EmfOf(theta0, middle) > e ? low : high) = middle; // the longer the pulse, the lower the EMF it fits
    }
    return {low, std::max(0.0, CurrentOf(theta0, low, low < kPulse ? e : EmfOf(theta0, kPulse)))};
}

void CSixPulseConverter::SetSupply(double lineVoltage, double frequency, double lineInductance) {
    m_peak = std::numbers::sqrt2 * lineVoltage;
    m_frequency = 2 * pi * frequency;
    m_commutation = 3 / pi * m_frequency * lineInductance;
}

double CSixPulseConverter::CommutationDrop(double current, double limit) const {
    return m_commutation * current * std::min(1.0, current / limit);
}

double CSixPulseConverter::GetIdealVoltage() const {
    return kIdealOfPeak * m_peak;
}

double CSixPulseConverter::DiscontinuousLimit(double cosine, double inductance) const {
    return GetIdealVoltage() * SineOf(cosine) / (m_frequency * inductance) * kBoundary;
}

ConverterVoltage CSixPulseConverter::MeanVoltage(double cosine, double current, double inductance) const {
    if (m_twoPulse)
        return {GetIdealVoltage() * cosine * 2 / 3 - m_commutation * current, -m_commutation, false};
    const double limit = DiscontinuousLimit(cosine, inductance);
    if (current >= limit)
        return {GetIdealVoltage() * cosine - CommutationDrop(current, limit), -m_commutation, true};
    constexpr double kLeast = 0.02; // the curve stands upright at 0
    constexpr double kStep = 1.0 / 64;
    const double root = std::max(kLeast, std::cbrt(current / limit));
    const CEmfTable& table = EmfTable();
    const double e = table.Look(cosine, root);
    const double rise = (table.Look(cosine, root + kStep) - table.Look(cosine, root - kStep)) / (2 * kStep);
    const double slope = m_peak * rise / (3 * root * root) / limit;
    return {m_peak * e - CommutationDrop(current, limit), std::min(0.0, slope) - 2 * m_commutation * current / limit,
            false};
}

double CSixPulseConverter::CosineFor(double voltage, double current, double inductance, double start) const {
    const double ideal = GetIdealVoltage();
    if (ideal <= 0)
        return -1;
    const double continuous = (voltage + m_commutation * current) / ideal;
    if (std::abs(continuous) >= 1)
        return std::clamp(continuous, -1.0, 1.0);
    if (current >= DiscontinuousLimit(continuous, inductance))
        return continuous;
    double cosine = std::clamp(start, -1.0, 1.0);
    for (int i = 0; i < 3; ++i) {
        const double missing = voltage - MeanVoltage(cosine, current, inductance).voltage;
        cosine = std::clamp(cosine + missing / ideal, -1.0, 1.0);
    }
    return cosine;
}

} // namespace krt550
