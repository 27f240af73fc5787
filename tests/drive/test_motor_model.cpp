// The physics behind the drive against their textbook values. That the motor has the constants it is given, and that
// converter and tuning rules fit it, is seen where the drive identifies it.
#include "drive/dc_motor.h"
#include "drive/motor_sets.h"
#include "drive/six_pulse_converter.h"
#include "drive/tuning_rules.h"

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

TEST(DcMotor, RunsAtItsRatedPointAndCoastsToStandstill) {
    for (const MotorSet& set : MotorSets()) {
        CDcMotor motor(DataOf(set));
        const double speed = set.baseSpeed * pi / 30;
        const double flux = set.laf * set.fieldCurrent;
        motor.SetLoad(flux * set.current - set.coulomb - set.viscous * speed);
        for (int i = 0; i < 600'000; ++i)
            motor.Step(1e-4, {Conduction::Forward, i < 50'000 ? 0 : set.voltage, 0}, set.rf * set.fieldCurrent);
        // What the name plate says and what the constants give lie within a tenth.
        EXPECT_NEAR(motor.GetSpeed(), speed, 0.1 * speed) << set.name;
        EXPECT_NEAR(motor.GetArmatureCurrent(), set.current, 0.1 * set.current) << set.name;
        motor.SetLoad(0);
        for (int i = 0; i < 3'000'000 && motor.GetSpeed() != 0; ++i)
            motor.Step(1e-3, {}, 0);
        EXPECT_EQ(motor.GetSpeed(), 0) << set.name << ": friction ends at standstill";
        EXPECT_TRUE(motor.IsAtRest());
    }
}

TEST(DcMotor, StaysFiniteWhateverFeedsIt) {
    std::minstd_rand random(1);
    std::uniform_real_distribution<double> voltage(-600, 600);
    for (const MotorSet& set : MotorSets()) {
        CDcMotor motor(DataOf(set));
        for (int i = 0; i < 100'000; ++i)
            motor.Step(1e-3, {Conduction::Both, voltage(random), -5}, std::abs(voltage(random)));
        EXPECT_LT(std::abs(motor.GetArmatureCurrent()), 1e6) << set.name;
        EXPECT_LT(std::abs(motor.GetSpeed()), 1e6) << set.name;
    }
}

TEST(TuningRules, GiveTheCheckVector) {
    const PiSetting current = ModulusOptimum(0.0015, 0.05, 0.00125);
    EXPECT_NEAR(current.gain, 0.6, 1e-9);
    EXPECT_NEAR(current.time, 0.030, 1e-9);
    const PiSetting speed = SymmetricalOptimum(0.3, 2 * 0.00125);
    EXPECT_NEAR(speed.gain, 60, 1e-9);
    EXPECT_NEAR(speed.time, 0.010, 1e-9);
}

} // namespace
} // namespace krt550
