// The closed loops with what the drive's own tuning has found.
#include "drive/drive_settings.h"
#include "drive/motor_control.h"
#include "tests/drive/whole_drive.h"

namespace krt550 {
namespace {

using test::WholeDrive;

struct Response {
    double overshoot = 0; ///< [%] of the step
    double rise = 0;      ///< [s] to 90 %
    double settled = 0;   ///< [s] until it stays within 2 %
};

/// Gives `target` to the loop and looks at `actual`, both relative to the step.
template <class Step> Response Watch(double seconds, const Step& step) {
    Response response;
    for (double time = 0; time < seconds; time += CMotorControl::kStep) {
        const double value = step();
        response.overshoot = std::max(response.overshoot, (value - 1) * 100);
        if (response.rise == 0 && value >= 0.9)
            response.rise = time;
        if (std::abs(value - 1) > 0.02)
            response.settled = time;
    }
    return response;
}

/// A step of the speed under half load, small enough for the torque limit, watched for `seconds`.
Response StepSpeed(const MotorSet& set, const DriveSettings& settings, double seconds) {
    CMotorControl control(DataOf(set));
    control.SetMains(set.mains, LineInductanceOf(set));
    MotorCommand command;
    command.field = FieldMode::Current;
    const double start = 0.4 * settings.baseSpeed;
    const double torque = set.laf * set.fieldCurrent * set.current;
    const double step = 0.2 * torque * 4 * settings.SmallLags() / set.inertia;
    const auto speed = [&] {
        control.Step(command, settings);
        return (control.GetState().speed - start) / step;
    };
    Watch(3, speed);
    control.GetMotor().SetLoad(torque / 2);
    command.armature = ArmatureMode::Speed;
    command.speed = start;
    Watch(8, speed);
    EXPECT_NEAR(control.GetState().speed, start, 0.01 * start);
    command.speed = start + step;
    return Watch(seconds, speed);
}

class ControlLoop : public testing::TestWithParam<const char*> {};

TEST_P(ControlLoop, TunedByTheDriveStaysInItsBands) {
    WholeDrive drive(GetParam());
    drive.SetValue(reg::kSpeedSource, 1);
    ASSERT_NO_FATAL_FAILURE(drive.TuneAll({2, 1, 4}, 2));
    const std::pair<quint16, double> found[] = {{reg::kArmatureResistance, 1},
                                                {reg::kArmatureInductance, 5},
                                                {reg::kCurrentTime, 6},
                                                {reg::kFieldTime, 3},
                                                {reg::kInertia, 2}};
    for (const auto& [reg, percent] : found) {
        const double truth = drive.Drive().GetTrueValue(reg).value_or(0);
        EXPECT_NEAR(drive.Value(reg), truth, percent / 100 * truth) << reg;
    }
    const MotorSet& set = *FindMotorSet(QString::fromLatin1(GetParam()));
    DriveSettings settings = ReadSettings(drive.Drive().GetRegisters(), set);
    settings.currentSlope = 1e9; // the loop's own response
    CMotorControl control(DataOf(set));
    control.SetMains(set.mains, LineInductanceOf(set));
    control.GetMotor().SetLocked(true);
    MotorCommand command;

    // Armature current at standstill, where it flows all the time.
    command.armature = ArmatureMode::Current;
    const double low = 0.6 * set.current;
    const double rise = 0.2 * set.current;
    const auto current = [&] {
        control.Step(command, settings);
        return (control.GetState().armatureCurrent - low) / rise;
    };
    command.current = low;
    Watch(0.5, current);
    command.current = low + rise;
    const Response ofCurrent = Watch(0.2, current);
    EXPECT_GT(ofCurrent.overshoot, 2.5);
    EXPECT_LT(ofCurrent.overshoot, 6);
    EXPECT_LT(ofCurrent.settled, 15 * kConverterLag);

    const Response ofSpeed = StepSpeed(set, settings, 1);
    EXPECT_GT(ofSpeed.overshoot, 4);
    EXPECT_LT(ofSpeed.overshoot, 9);
    EXPECT_LT(ofSpeed.settled, 30 * settings.SmallLags());
}

INSTANTIATE_TEST_SUITE_P(Sets, ControlLoop, testing::Values("S1", "S2", "S3"),
                         [](const auto& set) { return std::string(set.param); });

TEST(SpeedResponse, SlowNormalAndFastAreWhatTheirNamesSay) {
    // Filters as the slider of the speed controller's page writes them: error, reference, feedback [ms].
    const struct {
        const char* name;
        double error, reference, feedback;
    } responses[] = {{"slow", 0, 250, 10}, {"normal", 0, 80, 6}, {"fast", 0, 0, 5}};
    double former = 0;
    for (const auto& r : responses) {
        WholeDrive drive("S2");
        drive.SetValue(reg::kSpeedSource, 1);
        ASSERT_EQ(drive.Tune(1), 0);
        drive.Seconds(1);
        drive.SetValue(reg::kErrorFilter, r.error);
        drive.SetValue(reg::kReferenceFilter, r.reference);
        drive.SetValue(reg::kFeedbackFilter, r.feedback);
        ASSERT_EQ(drive.Tune(4), 0) << r.name;
        const DriveSettings settings = ReadSettings(drive.Drive().GetRegisters(), DefaultMotorSet());
        const Response response = StepSpeed(DefaultMotorSet(), settings, 3);
        EXPECT_LT(response.overshoot, 9) << r.name;
        if (former > 0) {
            EXPECT_LT(response.rise, former / 1.5) << r.name;
        }
        former = response.rise;
    }
}

TEST(ControlLoopOnAnExtremeMotor, RunsWhenSetByHand) {
    // Nearly no inductance: the current has gaps always, which the drive says instead of measuring nonsense.
    WholeDrive drive("S5");
    EXPECT_EQ(drive.Tune(1), diagnosis::kNotContinuous);
    drive.SetValue(reg::kCurrentGain, 0.008);
    drive.SetValue(reg::kCurrentTime, 1.2);
    drive.SetValue(reg::kArmatureInductance, 0.02);
    drive.SetValue(reg::kArmatureResistance, 16);
    EXPECT_EQ(drive.Tune(4), 0);
    EXPECT_NEAR(drive.Value(reg::kInertia), drive.Motor().GetData().inertia, 0.001);
    drive.Run(2000);
    drive.Seconds(30);
    EXPECT_NEAR(drive.Value(reg::kSpeed), 2000, 20);
}

TEST(FieldWeakening, HoldsTheVoltageAboveBaseSpeed) {
    WholeDrive drive("S2");
    drive.SetValue(reg::kSpeedSource, 1);
    drive.SetValue(reg::kFieldMode, 1);
    ASSERT_NO_FATAL_FAILURE(drive.TuneAll({2, 1, 4, 3}, 2));
    for (const auto& [reg, flux] : {std::pair{reg::kField40, 40}, {reg::kField70, 70}, {reg::kField90, 90}})
        EXPECT_NEAR(drive.Value(reg), flux, 1) << "without saturation the flux goes with the field current";
    EXPECT_NEAR(drive.Value(reg::kEmfTime), 114, 3) << "what the EMF takes to follow the field";
    drive.SetValue(reg::kSpeedMaximum, 3000);
    drive.SetValue(reg::kOverspeed, 3400);
    drive.SetValue(reg::kLeastField, 30);
    drive.Run(2600);
    drive.Seconds(60);
    EXPECT_NEAR(drive.Value(reg::kSpeed), 2600, 30);
    EXPECT_LT(drive.Value(reg::kArmatureVoltage), 1.02 * 240);
    EXPECT_NEAR(drive.Value(reg::kFieldRelative), 100 * 1750.0 / 2600, 5);
    EXPECT_EQ(drive.Drive().GetFaults().GetActive(), 0);
}

TEST(FieldOfAStart, IsThereBeforeArmatureCurrentFlowsEveryTime) {
    for (const double pause : {0.0, 1.0, 6.0}) {
        WholeDrive drive("S2");
        drive.KnowArmature();
        drive.SetValue(reg::kRampUp, 3);
        drive.SetValue(reg::kRampDown, 3);
        for (int start = 0; start < 2; ++start) {
            drive.Run(250);
            drive.Seconds(5, [&] {
                const MotorState& state = drive.Drive().GetMotorState();
                EXPECT_TRUE(std::abs(state.armatureCurrent) < 0.1 || state.fieldCurrent > 0.4)
                    << state.armatureCurrent << " A at a field of " << state.fieldCurrent << " A, start " << start
                    << " after " << pause << " s";
            });
            EXPECT_TRUE(drive.Drive().GetFaults().GetActive() == 0 || (start == 1 && pause < 6))
                << "start " << start << " after " << pause << " s";
            drive.Drive().StopMotor();
            drive.Seconds(5);
            drive.Drive().OpenContactor();
            drive.Seconds(pause);
        }
    }
}

} // namespace
} // namespace krt550
