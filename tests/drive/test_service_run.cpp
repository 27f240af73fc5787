// The identification runs: what they measure, and what makes them fail.
#include "drive/fault_codes.h"
#include "tests/drive/whole_drive.h"

#include <cmath>

namespace krt550 {
namespace {

using test::WholeDrive;

constexpr quint16 kArmature = 1;
constexpr quint16 kField = 2;
constexpr quint16 kWeakening = 3;
constexpr quint16 kSpeed = 4;
constexpr quint16 kReversal = 9;

/// How near what is found lies to what the motor really has, in percent.
void ExpectConstants(WholeDrive& drive) {
    const struct {
        quint16 reg;
        double within;
    } results[] = {{reg::kArmatureResistance, 1},
                   {reg::kArmatureInductance, 5},
                   {reg::kCurrentTime, 6},
                   {reg::kFieldTime, 3},
                   {reg::kInertia, 2}};
    for (const auto& [reg, within] : results) {
        const double truth = drive.Drive().GetTrueValue(reg).value_or(0);
        EXPECT_NEAR(drive.Value(reg), truth, within / 100 * truth) << reg;
    }
}

/// Runs the modes in the order of commissioning.
void TuneAll(WholeDrive& drive) {
    drive.SetValue(reg::kFieldMode, 1);
    for (const quint16 mode : {kField, kArmature, kSpeed, kWeakening}) {
        double last = 0;
        EXPECT_EQ(drive.Tune(mode,
                             [&] {
                                 EXPECT_GE(drive.Value(reg::kProgress), last) << "never backwards";
                                 last = drive.Value(reg::kProgress);
                             }),
                  diagnosis::kNone)
            << mode;
        EXPECT_EQ(last, 100) << mode;
        EXPECT_LT(std::abs(drive.Drive().GetSpeed()), 0.05 * drive.Value(reg::kBaseSpeed)) << "comes back to rest";
        drive.Seconds(3);
        EXPECT_TRUE(drive.Drive().IsStopped());
        EXPECT_FALSE(drive.Drive().IsContactorClosed());
    }
}

class Identification : public testing::TestWithParam<const char*> {};

TEST_P(Identification, MeasuresTheMotor) {
    WholeDrive drive(GetParam());
    TuneAll(drive);
    ExpectConstants(drive);
    for (const auto& [reg, flux] : {std::pair{reg::kField40, 40}, {reg::kField70, 70}, {reg::kField90, 90}})
        EXPECT_NEAR(drive.Value(reg), flux, 1) << "without saturation the flux goes with the field current";
}

INSTANTIATE_TEST_SUITE_P(Sets, Identification, testing::Values("S1", "S2", "S3"),
                         [](const auto& set) { return std::string(set.param); });

TEST(IdentificationOf, FluxCurveFollowsTheIronsSaturation) {
    WholeDrive drive("S2");
    MotorData iron = drive.Motor().GetData();
    // The textbook curve at 1200 rpm, its 0.8 A being this motor's rated field current.
    const double scale = 1.0664 / 0.8;
    const double flux = iron.mutualInductance * 1.0664 / 263.74;
    std::vector<std::pair<double, double>> points = {{0, 0}};
    for (const auto& [field, voltage] :
         {std::pair{0.2, 89.74}, {0.4, 172.18}, {0.6, 231.2}, {0.8, 263.74}, {1.0, 279.74}, {1.2, 287.3}})
        points.emplace_back(field * scale, voltage * flux);
    iron.magnetisation = CMonotoneCurve(points);
    drive.Motor().SetData(iron);
    TuneAll(drive);
    EXPECT_NEAR(drive.Value(reg::kField40), 29.4, 1);
    EXPECT_NEAR(drive.Value(reg::kField70), 54.4, 1);
    EXPECT_NEAR(drive.Value(reg::kField90), 78.7, 1);
}

/// What spoils a run: before it begins, or when its progress has come to a percentage.
struct Spoiled {
    const char* name;
    quint16 mode;
    void (*before)(WholeDrive& drive);
    void (*during)(WholeDrive& drive);
    quint16 outcome;
};

void PrintTo(const Spoiled& spoiled, std::ostream* out) {
    *out << spoiled.name;
}

void Nothing(WholeDrive& /*drive*/) {}

const Spoiled kSpoiled[] = {
    {"NoMains", kArmature, [](WholeDrive& d) { d.Drive().GetMains().SetVoltage(0); }, Nothing, diagnosis::kMains},
    {"NoExciter", kField, [](WholeDrive& d) { d.SetValue(reg::kExciterUsed, 0); }, Nothing, diagnosis::kNoExciter},
    {"FieldBroken", kField, [](WholeDrive& d) { d.Motor().SetFieldBroken(true); }, Nothing,
     diagnosis::kFieldNotReached},
    {"FieldSupplyTooLow", kField, [](WholeDrive& d) { d.SetValue(reg::kFieldSupply, 100); }, Nothing,
     diagnosis::kFieldNotReached},
    {"NamePlateOfAnotherField", kField,
     [](WholeDrive& d) {
         d.SetValue(reg::kRatedFieldCurrent, 1.1);
         d.SetValue(reg::kRatedFieldVoltage, 46);
     },
     Nothing, diagnosis::kFieldNotReached},
    {"NamePlateContradictsItself", kSpeed, [](WholeDrive& d) { d.SetValue(reg::kArmatureResistance, 20000); }, Nothing,
     diagnosis::kNamePlate},
    {"ArmatureOpen", kArmature, [](WholeDrive& d) { d.Motor().SetArmatureBroken(true); }, Nothing,
     diagnosis::kNoCurrent},
    {"LimitFarTooLow", kArmature, [](WholeDrive& d) { d.SetValue(reg::kCurrentLimit1, 10); }, Nothing,
     diagnosis::kLimitTooLow},
    {"LimitTooLow", kArmature, [](WholeDrive& d) { d.SetValue(reg::kCurrentLimit1, 16); }, Nothing,
     diagnosis::kNotContinuous},
    {"ShaftLocked", kSpeed, [](WholeDrive& d) { d.Motor().SetLocked(true); }, Nothing, diagnosis::kDoesNotTurn},
    {"BrakeClosed", kSpeed,
     [](WholeDrive& d) {
         MotorData braked = d.Motor().GetData();
         braked.coulombFriction = 30;
         d.Motor().SetData(braked);
     },
     Nothing, diagnosis::kDoesNotTurn},
    {"LoadTooHeavy", kSpeed,
     [](WholeDrive& d) {
         MotorData fan = d.Motor().GetData();
         fan.viscousFriction = 0.2;
         d.Motor().SetData(fan);
     },
     Nothing, diagnosis::kSpeedNotReached},
    {"SpeedLimitTooLow", kSpeed, [](WholeDrive& d) { d.SetValue(reg::kSpeedMaximum, 900); }, Nothing,
     diagnosis::kSpeedLimits},
    {"WeakeningNotSelected", kWeakening, [](WholeDrive& d) { d.SetValue(reg::kFieldMode, 0); }, Nothing,
     diagnosis::kNoWeakening},
    {"FieldLost", kWeakening, Nothing, [](WholeDrive& d) { d.Motor().SetFieldBroken(true); }, diagnosis::kFieldLost},
    {"ContactorStuck", kField, [](WholeDrive& d) { d.Drive().GetContactor().SetDefect(ContactorDefect::Stuck); },
     Nothing, diagnosis::kContactor},
    {"OtherPlaceFromTheStart", kField, [](WholeDrive& d) { d.Drive().TakeLocalControl(); },
     [](WholeDrive& d) { d.Drive().SetOtherControl(true); }, diagnosis::kOtherPlace},
    {"StartTakenAway", kArmature, Nothing, [](WholeDrive& d) { d.Drive().StopMotor(); }, diagnosis::kStartWithdrawn},
    {"StoppedFromOutside", kSpeed, Nothing, [](WholeDrive& d) { d.Drive().WriteRegister(reg::kServiceMode, 0); },
     diagnosis::kStopped},
};

class SpoiledRun : public testing::TestWithParam<Spoiled> {};

TEST_P(SpoiledRun, EndsSafelyAndSaysWhy) {
    const Spoiled& spoiled = GetParam();
    WholeDrive drive("S2");
    drive.SetValue(reg::kFieldMode, 1);
    const double before = drive.Value(reg::kCurrentGain);
    spoiled.before(drive);
    bool done = false;
    const int outcome = drive.Tune(spoiled.mode, [&] {
        if (!done && drive.Value(reg::kProgress) >= 20) {
            done = true;
            spoiled.during(drive);
        }
    });
    EXPECT_EQ(outcome, spoiled.outcome);
    EXPECT_EQ(drive.Value(reg::kServiceMode), 0);
    EXPECT_EQ(drive.Value(reg::kCurrentGain), before) << "no results of a run that failed";
    drive.Motor().SetLoad(0);
    drive.Seconds(40);
    EXPECT_TRUE(drive.Drive().IsStopped()) << "nobody may be surprised by a motor that runs on";
    EXPECT_EQ(drive.Drive().GetMotorState().armatureCurrent, 0);
}

INSTANTIATE_TEST_SUITE_P(Causes, SpoiledRun, testing::ValuesIn(kSpoiled),
                         [](const auto& spoiled) { return std::string(spoiled.param.name); });

/// What somebody commands in turn as soon as the field is where it was sent, and how the test ends.
struct Reversal {
    const char* name;
    quint16 exciter;
    std::vector<int> directions; ///< 1 forward, 2 reverse, 0 ends it
    bool endsMode;               ///< writes 0 into 99.06, too
    bool isBroken;
    int outcome;
};

TEST(FieldReversal, IsJudgedByBothDirections) {
    const Reversal cases[] = {
        {"both", 3, {1, 2, 0}, true, false, diagnosis::kNone},
        {"again and again, and ended by the command alone", 6, {2, 1, 2, 0}, false, false, diagnosis::kNone},
        {"one only", 3, {1, 0}, true, false, diagnosis::kStopped},
        {"one only, ended by the command alone", 3, {2, 0}, false, false, diagnosis::kStopped},
        {"a field that cannot be reversed", 2, {1}, false, false, diagnosis::kCannotReverse},
        {"no field", 3, {1}, false, true, diagnosis::kFieldLost},
        {"nobody commands it", 3, {}, false, false, diagnosis::kTooLong},
    };
    for (const Reversal& c : cases) {
        WholeDrive drive("S2");
        drive.SetValue(reg::kExciterUsed, c.exciter);
        drive.SetValue(reg::kFieldDirection, 2); // from a test before
        drive.Motor().SetFieldBroken(c.isBroken);
        std::size_t next = 0;
        const auto isThere = [&] {
            const double wanted = next == 0 ? 0 : c.directions[next - 1] == 2 ? -100 : 100;
            return std::abs(drive.Value(reg::kFieldRelative) - wanted) < 5;
        };
        const int outcome = drive.Tune(kReversal, [&] {
            EXPECT_EQ(drive.Drive().GetMotorState().armatureCurrent, 0) << c.name;
            EXPECT_EQ(drive.Drive().GetSpeed(), 0) << c.name;
            if (next == c.directions.size() || !isThere())
                return;
            const auto direction = static_cast<quint16>(c.directions[next++]);
            drive.Drive().WriteRegister(reg::kFieldDirection, direction);
            if (direction == 0 && c.endsMode)
                drive.Drive().WriteRegister(reg::kServiceMode, 0);
        });
        EXPECT_EQ(outcome, c.outcome) << c.name;
        EXPECT_EQ(drive.Drive().GetFaults().GetActive() != 0, c.isBroken) << c.name;
        drive.Seconds(10);
        EXPECT_FALSE(drive.Drive().IsContactorClosed()) << c.name;
        EXPECT_NEAR(drive.Value(reg::kFieldRelative), 0, 1) << c.name;
    }
}

// A supply that has become too weak for the other direction.
TEST(FieldReversal, HasItsTime) {
    for (const bool weak : {true, false}) {
        WholeDrive drive("S2");
        drive.SetValue(reg::kExciterUsed, 3);
        int step = 0;
        const int outcome = drive.Tune(kReversal, [&] {
            if (step == 0)
                drive.Drive().WriteRegister(reg::kFieldDirection, 1);
            if (++step == 100) {
                drive.SetValue(reg::kFieldSupply, weak ? 250 : 400);
                drive.Drive().WriteRegister(reg::kFieldDirection, 2);
            }
            if (step == 200 && !weak)
                drive.Drive().WriteRegister(reg::kFieldDirection, 0);
        });
        EXPECT_EQ(outcome, weak ? diagnosis::kReversalTooSlow : diagnosis::kNone);
    }
}

TEST(ServiceMode, WaitsForTheStartAndGivesUpAfterAWhile) {
    WholeDrive drive("S2");
    ASSERT_TRUE(drive.Drive().WriteRegister(reg::kServiceMode, kField));
    drive.Seconds(20);
    EXPECT_EQ(drive.Value(reg::kServiceMode), kField);
    drive.Seconds(15);
    EXPECT_EQ(drive.Value(reg::kServiceMode), 0);
    EXPECT_EQ(drive.Value(reg::kDiagnosis), diagnosis::kTooLong);
}

TEST(ServiceMode, IsRefusedByARunningDrive) {
    WholeDrive drive("S2");
    drive.Run(500);
    drive.Seconds(10);
    drive.Drive().WriteRegister(reg::kServiceMode, kArmature);
    EXPECT_EQ(drive.Value(reg::kServiceMode), 0);
    EXPECT_EQ(drive.Value(reg::kDiagnosis), diagnosis::kDriveRunning);
    drive.Seconds(5);
    EXPECT_NEAR(drive.Value(reg::kSpeed), 500, 5) << "goes on as it was";
}

} // namespace
} // namespace krt550
