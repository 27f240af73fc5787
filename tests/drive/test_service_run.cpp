// The identification runs: the flux curve that they measure, and what makes them fail.
#include "tests/drive/whole_drive.h"

namespace krt550 {
namespace {

using test::WholeDrive;

constexpr quint16 kArmature = 1;
constexpr quint16 kField = 2;
constexpr quint16 kWeakening = 3;
constexpr quint16 kSpeed = 4;
constexpr quint16 kReversal = 9;
constexpr quint16 kTest = 5;

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

/// What spoils a run: before it begins, or when its progress has come to 20 %; see WholeDrive::Disturb.
struct Spoiled {
    const char* name;
    quint16 mode;
    const char* before;
    const char* during;
    quint16 outcome;
    FeedbackDevice device = FeedbackDevice::Encoder;
    void (*act)(CSimulatedDrive& drive) = nullptr; ///< during it, for what is no fault mode
};

void PrintTo(const Spoiled& spoiled, std::ostream* out) {
    *out << spoiled.name;
}

const Spoiled kSpoiled[] = {
    {"NoMains", kArmature, "mains=0", "", diagnosis::kMains},
    {"NoExciter", kField, "9912=0", "", diagnosis::kNoExciter},
    {"FieldBroken", kField, "field-broken", "", diagnosis::kFieldNotReached},
    {"FieldSupplyTooLow", kField, "9913=100", "", diagnosis::kFieldNotReached},
    {"NamePlateOfAnotherField", kField, "9911=1.1 9905=46", "", diagnosis::kFieldNotReached},
    {"NamePlateOfHalfTheFieldVoltage", kField, "9905=150", "", diagnosis::kFieldResistance},
    {"NamePlateContradictsItself", kSpeed, "4310=20000", "", diagnosis::kNamePlate},
    {"ArmatureOpen", kArmature, "armature-broken", "", diagnosis::kNoCurrent},
    {"LimitFarTooLow", kArmature, "2012=10", "", diagnosis::kLimitTooLow},
    {"LimitTooLow", kArmature, "2012=16", "", diagnosis::kNotContinuous},
    {"ShaftLocked", kSpeed, "motor-locked", "", diagnosis::kDoesNotTurn},
    {"BrakeClosed", kSpeed, "load:150", "", diagnosis::kDoesNotTurn},
    {"SpeedLimitTooLow", kSpeed, "2002=900", "", diagnosis::kSpeedLimits},
    {"WeakeningNotSelected", kWeakening, "4401=0", "", diagnosis::kNoWeakening},
    {"ContactorStuck", kField, "contactor-stuck", "", diagnosis::kContactor},
    {"FieldLost", kWeakening, "", "field-broken", diagnosis::kFieldLost},
    {"OtherPlace", kField, "", "other-control", diagnosis::kOtherPlace},
    {"OtherPlaceForAWhile", kSpeed, "", "other-control-for:500", diagnosis::kOtherPlace},
    {"PhaseMissing", kSpeed, "", "phase-missing", diagnosis::kPhaseMissing},
    {"PhaseOrder", kSpeed, "", "phase-order", diagnosis::kPhaseOrder},
    {"MainsDip", kSpeed, "", "mains-dip:300", diagnosis::kMains},
    {"FuseBlown", kArmature, "", "fuse-blown", diagnosis::kRipple},
    {"EarthFault", kSpeed, "", "earth-fault:10", diagnosis::kEarth},
    {"ContactorDrops", kSpeed, "", "contactor-drops", diagnosis::kContactor},
    {"EmergencyStop", kSpeed, "", "e-stop", diagnosis::kEmergencyStop},
    {"FieldSwapped", kTest, "", "field-swapped", diagnosis::kEncoderReversed},
    {"ArmatureSwapped", kTest, "", "armature-swapped", diagnosis::kEncoderReversed},
    {"BothSwapped", kSpeed, "", "field-swapped armature-swapped", diagnosis::kNone},
    {"Load", kSpeed, "", "load:150", diagnosis::kDoesNotTurn},
    {"HangingLoad", kArmature, "", "hanging-load:60", diagnosis::kTurned},
    {"TachoNoisy", kTest, "", "tacho-noisy:10", diagnosis::kTachoNoisy, FeedbackDevice::Tacho},
    {"EncoderChannel", kTest, "5003=1", "encoder-channel", diagnosis::kEncoderMissing},
    {"LoadTooHeavy", kSpeed, "", "", diagnosis::kSpeedNotReached, FeedbackDevice::Encoder,
     [](CSimulatedDrive& d) {
         MotorData fan = d.GetMotor().GetData();
         fan.viscousFriction = 0.2;
         d.GetMotor().SetData(fan);
     }},
    {"StartTakenAway", kArmature, "", "", diagnosis::kStartWithdrawn, FeedbackDevice::Encoder,
     [](CSimulatedDrive& d) { d.StopMotor(); }},
    {"StoppedFromOutside", kSpeed, "", "", diagnosis::kStopped, FeedbackDevice::Encoder,
     [](CSimulatedDrive& d) { d.WriteRegister(reg::kServiceMode, 0); }},
};

class SpoiledRun : public testing::TestWithParam<Spoiled> {};

TEST_P(SpoiledRun, EndsSafelyAndSaysWhy) {
    const Spoiled& spoiled = GetParam();
    WholeDrive drive("S2");
    CSimulatedDrive& simulated = drive.Drive();
    drive.SetValue(reg::kFieldMode, 1);
    drive.KnowArmature();
    simulated.GetFeedback().device = spoiled.device;
    drive.Disturb(spoiled.before);
    const double before = drive.Value(reg::kCurrentGain);
    drive.Begin(spoiled.mode, 20);
    drive.Disturb(spoiled.during);
    if (spoiled.act)
        spoiled.act(simulated);
    drive.Seconds(60);
    EXPECT_EQ(drive.Value(reg::kDiagnosis), spoiled.outcome);
    EXPECT_EQ(drive.Value(reg::kCurrentGain), before) << "no results of a run that failed";
    if (spoiled.mode == kTest) // goes on until it is stopped
        simulated.StopMotor();
    drive.Repair();
    drive.Seconds(40);
    EXPECT_EQ(drive.Value(reg::kServiceMode), 0);
    EXPECT_NEAR(simulated.GetSpeed(), 0, 1) << "nobody may be surprised by a motor that runs on";
    EXPECT_EQ(simulated.GetMotorState().armatureCurrent, 0);
    simulated.GetMains().SetVoltage(simulated.GetMotorSet().mains);
    simulated.ResetFault();
    EXPECT_TRUE(simulated.TakeLocalControl()) << "given back";
    simulated.OpenContactor();
    EXPECT_TRUE(simulated.CloseContactor()) << "and ready again: " << simulated.GetLastError().toStdString();
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
    double supply = 400; ///< of the field, from the second command on
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
        {"a supply too weak for the other direction", 3, {1, 2}, false, false, diagnosis::kReversalTooSlow, 250},
    };
    for (const Reversal& c : cases) {
        WholeDrive drive("S2");
        drive.SetValue(reg::kExciterUsed, c.exciter);
        drive.Drive().GetExciter().type = c.exciter;
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
            drive.SetValue(reg::kFieldSupply, next == 0 ? 400 : c.supply);
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

// Until the motor is stopped, and for its register even longer.
TEST(ServiceMode, ARunThatDoesNotEndLeavesTheMotorToTheStop) {
    for (const char* fault : {"progress-stuck", "mode-stays"}) {
        const bool stays = *fault == 'm';
        WholeDrive drive("S2");
        drive.Begin(kSpeed, 20);
        drive.Disturb(fault);
        const double progress = drive.Value(reg::kProgress);
        if (!stays)
            drive.Seconds(300);
        EXPECT_EQ(drive.Value(reg::kProgress), progress);
        EXPECT_EQ(drive.Value(reg::kServiceMode), kSpeed);
        EXPECT_TRUE(drive.Drive().StopMotor());
        drive.Seconds(30);
        EXPECT_EQ(drive.Value(reg::kServiceMode), stays ? kSpeed : 0);
        EXPECT_TRUE(drive.Drive().IsStopped());
        EXPECT_TRUE(drive.Drive().WriteRegister(reg::kServiceMode, 0));
        EXPECT_EQ(drive.Value(reg::kServiceMode), 0);
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
