// The physics behind the drive: converter, magnetisation, motor, tuning rules, against their textbook values.
#include "drive/dc_motor.h"
#include "drive/monotone_curve.h"
#include "drive/motor_sets.h"
#include "drive/six_pulse_converter.h"
#include "drive/tuning_rules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

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

TEST(SixPulseConverter, FindsTheFiringAngleOfAVoltage) {
    CSixPulseConverter converter;
    converter.SetSupply(400, 50);
    for (const double share : {0.1, 0.5, 1.5}) {
        const double current = share * converter.DiscontinuousLimit(0, 0.01);
        for (double wanted = -300; wanted <= 400; wanted += 50) {
            double cosine = 0;
            for (int i = 0; i < 5; ++i)
                cosine = converter.CosineFor(wanted, current, 0.01, cosine);
            if (std::abs(cosine) < 0.95) {
                EXPECT_NEAR(converter.MeanVoltage(cosine, current, 0.01).voltage, wanted, 8) << share;
            }
        }
    }
    converter.SetSupply(0, 50);
    EXPECT_EQ(converter.MeanVoltage(0.8, 1, 0.01).voltage, 0) << "dead supply";
}

TEST(MonotoneCurve, MagnetisationGivesTheFieldOfAFlux) {
    const std::vector<std::pair<double, double>> points = {{0, 0},        {0.2, 89.74},  {0.4, 172.18}, {0.6, 231.2},
                                                           {0.8, 263.74}, {1.0, 279.74}, {1.2, 287.3}};
    const CMonotoneCurve emf(points);
    for (const auto& [current, voltage] : points)
        EXPECT_NEAR(emf(current), voltage, 1e-9);
    double former = -1;
    for (double current = 0; current < 1.5; current += 0.005) {
        EXPECT_GT(emf(current), former);
        former = emf(current);
    }
    const struct {
        double flux;
        double field;
    } cases[] = {{0.4, 29.4}, {0.7, 54.4}, {0.9, 78.7}};
    for (const auto& c : cases)
        EXPECT_NEAR(emf(c.field / 100 * 0.8) / 263.74, c.flux, 0.005) << "rated field current 0.8 A";
}

TEST(DcMotor, FollowsItsTimeConstants) {
    for (const MotorSet& set : MotorSets()) {
        CDcMotor motor(DataOf(set));
        motor.SetLocked(true);
        const double field = set.lf / set.rf;
        const double armature = set.la / set.ra;
        constexpr int kSteps = 1000;
        for (int i = 0; i < kSteps; ++i)
            motor.Step(field / kSteps, {}, 10);
        EXPECT_NEAR(motor.GetFieldCurrent(), 10 / set.rf * (1 - std::exp(-1)), 1e-6 / set.rf) << set.name;
        for (int i = 0; i < kSteps; ++i)
            motor.Step(armature / kSteps, {Conduction::Both, 5, 0}, 10);
        EXPECT_NEAR(motor.GetArmatureCurrent(), 5 / set.ra * (1 - std::exp(-1)), 1e-6 / set.ra) << set.name;
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

TEST(DcMotor, CurrentFlowsOnlyWhereTheBridgeLetsIt) {
    CDcMotor motor(DataOf(DefaultMotorSet()));
    motor.SetLocked(true);
    for (int i = 0; i < 100; ++i)
        motor.Step(1e-3, {Conduction::Forward, -100, 0}, 0);
    EXPECT_EQ(motor.GetArmatureCurrent(), 0);
    for (int i = 0; i < 100; ++i)
        motor.Step(1e-3, {Conduction::Backward, -100, 0}, 0);
    EXPECT_LT(motor.GetArmatureCurrent(), -30);
    motor.SetArmatureBroken(true);
    motor.Step(1e-3, {Conduction::Backward, -100, 0}, 0);
    EXPECT_EQ(motor.GetArmatureCurrent(), 0);
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
