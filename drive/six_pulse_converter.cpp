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
constexpr double kCosine30 = std::numbers::sqrt3 / 2;
constexpr double kAtLimit = 0.5 - pi / 6 * kCosine30; ///< sin(h) - h*cos(h) at h = 30 deg
constexpr double kBoundary = 2 * kAtLimit;            ///< 1 - pi/6*cot(pi/6)
constexpr double kNear = 0.04;                        ///< of the current: what is missing then goes by the slope
constexpr int kPasses = 12;
constexpr double kShortest = 1e-3; ///< half a pulse [rad]

/// e at which a pulse that starts at theta0 lasts `length`: the root condition solved for e.
double EmfOf(double theta0, double length) {
    return length < 1e-6 ? std::sin(theta0) : (std::cos(theta0) - std::cos(theta0 + length)) / length;
}

/// Id*w*L/Upeak: the pulse's mean over the 60 degrees between two firings.
double CurrentOf(double theta0, double length, double e) {
    return kIdealOfPeak *
           (std::cos(theta0) * length - (std::sin(theta0 + length) - std::sin(theta0)) - e * length * length / 2);
}

double InRange(double halfPulse) {
    return std::max(kShortest, std::min(kPulse / 2, halfPulse));
}

/// Where a pulse stands: e, and how e changes with the current's share of its limit.
struct PulsePoint {
    double e = 0;
    double rise = 0;
};

/// The pulse fired at 30 degrees or later that carries `share` (above 0, up to 1) of the current at the limit. With h
/// half its length and a = alpha - 30 deg the sums of sines turn into products:
///     e = cos(a + h) * sin(h)/h,  Id*w*L/Upeak = 6/pi * sin(a + h) * (sin(h) - h*cos(h)).
/// The current goes nearly with a power of h, the fourth at a = 0 and the third later: the search begins between these
/// roots of the share, and each pass takes that root of what is missing.
PulsePoint PulseCarrying(double share, double cosine, double sine) {
    const double sineLate = sine * kCosine30 - cosine / 2; // sin(a)
    const double cosineLate = cosine * kCosine30 + sine / 2;
    const double wanted = share * sine * kAtLimit;
    const double root = std::sqrt(std::sqrt(share));
    const double late = sineLate / (sineLate + 0.5 * cosineLate); // fitted, as the factor in the next line
    double h = InRange(kPulse / 2 * root * (1 - 0.48 * late * (1 - root)));
    for (int pass = 0;; ++pass) {
        const double q = h * h;
        // sin(h)/h and (sin(h) - h*cos(h))/h^3 as their series, exact to 1e-9 up to 30 degrees.
        const double sinc = 1 + q * (-1.0 / 6 + q * (1.0 / 120 + q * (-1.0 / 5040 + q * (1.0 / 362880))));
        const double loss = 1.0 / 3 + q * (-1.0 / 30 + q * (1.0 / 840 + q * (-1.0 / 45360)));
        const double sineHalf = h * sinc;
        const double cosineHalf = sinc - q * loss;
        const double across = sineLate * cosineHalf + cosineLate * sineHalf; // sin(a + h)
        const double along = cosineLate * cosineHalf - sineLate * sineHalf;
        const double area = h * q * loss;
        const double given = across * area;
        const double givenRise = along * area + across * h * sineHalf;
        const double ratio = wanted / given;
        const double power = std::max(1.0, givenRise * h / given);
        const double next = InRange(h * (power - 1 + (power + 1) * ratio) / (power + 1 + (power - 1) * ratio));
        if (pass == kPasses || std::abs(ratio - 1) < kNear) {
            const double fall = across * sinc + along * h * loss; // of e over h
            const double rest = next - h;
            const double slope = fall / givenRise * (1 - (power - 1) * rest / h);
            return {along * sinc - fall * rest, -slope * sine * kAtLimit};
        }
        h = next; // beyond 170 degrees there may be no such pulse
    }
}

/// The same at any firing angle. Fired before 30 degrees a valve waits for the EMF to be passed: the curve of 30
/// degrees, drawn together.
PulsePoint PulseAt(double share, double cosine, double sine) {
    if (cosine <= kCosine30)
        return PulseCarrying(share, cosine, sine);
    const double late = kCosine30 * kIdealOfPeak;
    const double here = cosine * kIdealOfPeak;
    const double drawn = (1 - here) / (1 - late);
    const PulsePoint point = PulseCarrying(share, kCosine30, 0.5);
    return {here + (point.e - late) * drawn, point.rise * drawn};
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

double CSixPulseConverter::LimitOf(double sine, double inductance) const {
    return GetIdealVoltage() * kBoundary * sine / (m_frequency * inductance);
}

double CSixPulseConverter::DiscontinuousLimit(double cosine, double inductance) const {
    return LimitOf(SineOf(cosine), inductance);
}

ConverterVoltage CSixPulseConverter::MeanVoltage(double cosine, double current, double inductance) const {
    if (m_twoPulse)
        return {GetIdealVoltage() * cosine * 2 / 3 - m_commutation * current, -m_commutation, false};
    const double sine = SineOf(cosine);
    const double limit = LimitOf(sine, inductance);
    if (current >= limit)
        return {GetIdealVoltage() * cosine - CommutationDrop(current, limit), -m_commutation, true};
    constexpr double kLeast = 8e-6; // the curve stands upright at 0
    const PulsePoint point = PulseAt(std::max(kLeast, current / limit), cosine, sine);
    const double slope = m_peak * point.rise / limit;
    return {m_peak * point.e - CommutationDrop(current, limit),
            std::min(0.0, slope) - 2 * m_commutation * current / limit, false};
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
    constexpr double kClose = 1e-4; // the last answer often does
    double cosine = std::clamp(start, -1.0, 1.0);
    for (int i = 0; i < 3; ++i) {
        const double missing = voltage - MeanVoltage(cosine, current, inductance).voltage;
        if (std::abs(missing) < kClose * ideal)
            break;
        cosine = std::clamp(cosine + missing / ideal, -1.0, 1.0);
    }
    return cosine;
}

} // namespace krt550
