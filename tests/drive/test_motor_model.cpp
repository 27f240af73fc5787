// The converter against its textbook values. Motor and tuning rules are seen where the drive identifies and regulates.
#include "drive/six_pulse_converter.h"

namespace krt550 {
namespace {

using std::numbers::pi;

constexpr double kDegree = pi / 180;

TEST(SixPulseConverter, DiscontinuousPulsesAreTheTextbooks) {
    const struct {
        double alpha;
        double current;
        double length;
    } cases[] = {{90, 0.08890, 60}, {95, 0.05188, 50}, {100, 0.02675, 40}, {105, 0.01135, 30}, {110, 0.00337, 20}};
    for (const auto& c : cases) {
        const DiscontinuousPulse pulse = PulseOf(c.alpha * kDegree, 0);
        EXPECT_NEAR(pulse.current, c.current, 1e-5) << c.alpha;
        EXPECT_NEAR(pulse.length / kDegree, c.length, 1e-3) << c.alpha;
    }
}

TEST(SixPulseConverter, MeanVoltageMeetsBothRegionsAtTheLimit) {
    const struct {
        double lines;
        double inductance;
        double limit;
    } cases[] = {{86, 0.0015, 22.8}, {205, 0.028, 2.9}};
    for (const auto& c : cases) {
        CSixPulseConverter converter;
        converter.SetSupply(c.lines, 50);
        EXPECT_NEAR(converter.GetIdealVoltage(), 1.3505 * c.lines, 0.001 * c.lines);
        EXPECT_NEAR(converter.DiscontinuousLimit(0, c.inductance), c.limit, 0.015 * c.limit) << c.lines;
        for (const double alpha : {20.0, 31.0, 60.0, 90.0, 120.0, 140.0, 164.0}) {
            const double cosine = std::cos(alpha * kDegree);
            const double limit = converter.DiscontinuousLimit(cosine, c.inductance);
            const double above = converter.MeanVoltage(cosine, limit * 1.001, c.inductance).voltage;
            const double below = converter.MeanVoltage(cosine, limit * 0.999, c.inductance).voltage;
            EXPECT_NEAR(above, below, 0.01 * converter.GetIdealVoltage()) << alpha;
            EXPECT_NEAR(above, converter.GetIdealVoltage() * cosine, 1e-6) << alpha;
            double former = 1e9;
            for (double share = 0.02; share < 1; share += 0.02) {
                const ConverterVoltage given = converter.MeanVoltage(cosine, share * limit, c.inductance);
                EXPECT_LE(given.voltage, former + 1e-3) << "more current, less voltage";
                EXPECT_FALSE(given.continuous);
                former = given.voltage;
                // The textbook's own pulse against that voltage carries that current, within a thousandth.
                const double exact = PulseOf(alpha * kDegree, given.voltage / converter.GetPeak()).current *
                                     converter.GetPeak() / converter.GetAngularFrequency() / c.inductance;
                if (alpha >= 30) {
                    EXPECT_NEAR(exact, share * limit, 0.001 * limit) << alpha;
                }
            }
        }
    }
}

} // namespace
} // namespace krt550
