// Trips and the supervision of the tool that holds local control.
#include "drive/fault_codes.h"
#include "tests/drive/whole_drive.h"

#include <cmath>

namespace krt550 {
namespace {

using test::WholeDrive;

struct Cause {
    const char* name;
    void (*happen)(WholeDrive& drive);
    double within; ///< [s]
    quint16 code;
};

void PrintTo(const Cause& cause, std::ostream* out) {
    *out << cause.name;
}

const Cause kCauses[] = {
    {"Overcurrent",
     [](WholeDrive& d) {
         d.SetValue(reg::kOvercurrentLevel, 50);
         d.Motor().SetLoad(19);
     },
     2, kFaultOvercurrent},
    {"Overvoltage", [](WholeDrive& d) { d.SetValue(reg::kOvervoltageLevel, 30); }, 1, kFaultOvervoltage},
    {"MainsLost", [](WholeDrive& d) { d.Drive().GetMains().SetVoltage(100); }, 1, kFaultMains},
    {"FieldLost", [](WholeDrive& d) { d.Motor().SetFieldBroken(true); }, 1, kFaultFieldLoss},
    {"Overspeed", [](WholeDrive& d) { d.Motor().SetLoad(-60); }, 5, kFaultOverspeed},
    {"Overtemperature",
     [](WholeDrive& d) {
         d.SetValue(reg::kThermalModel, 1);
         d.SetValue(reg::kThermalTime, 30);
         d.SetValue(reg::kThermalTripLevel, 60);
         d.Motor().SetLoad(19);
     },
     60, kFaultOvertemperature},
    {"Contactor",
     [](WholeDrive& d) {
         d.Drive().GetContactor().SetDefect(ContactorDefect::Stuck);
         d.Drive().SetOtherControl(true);
     },
     40, kFaultMainContactor},
};

class TripOf : public testing::TestWithParam<Cause> {};

TEST_P(TripOf, RunningMotorBlocksTheConverter) {
    const Cause& cause = GetParam();
    WholeDrive drive("S2");
    drive.SetValue(reg::kRampUp, 3);
    ASSERT_EQ(drive.Tune(1), 0);
    drive.Seconds(1);
    drive.Run(1000);
    drive.Seconds(8);
    ASSERT_NEAR(drive.Value(reg::kSpeed), 1000, 5);
    ASSERT_EQ(drive.Drive().GetFaults().GetActive(), 0);
    cause.happen(drive);
    drive.Seconds(cause.within);
    EXPECT_EQ(drive.Drive().GetFaults().GetActive(), cause.code);
    EXPECT_EQ(drive.Drive().GetMotorState().armatureCurrent, 0);
    EXPECT_EQ(drive.Value(reg::kLastFaultCode), cause.code);
    EXPECT_NE(drive.Drive().GetRegisters().GetWord(reg::kStatusWord) & 8, 0);
}

INSTANTIATE_TEST_SUITE_P(Causes, TripOf, testing::ValuesIn(kCauses),
                         [](const auto& cause) { return std::string(cause.param.name); });

TEST(ActualValues, AreAliveWhileTheMotorTurns) {
    WholeDrive drive("S2");
    drive.SetValue(reg::kRampUp, 3);
    drive.SetValue(reg::kSpeedSource, 1);
    drive.Tune(1);
    drive.Seconds(1);
    drive.Run(1200);
    drive.Seconds(5);
    drive.Motor().SetLoad(10);
    drive.Seconds(10);
    const MotorData& motor = drive.Motor().GetData();
    const double flux = motor.mutualInductance * 1.0664;
    const double speed = 1200 * M_PI / 30;
    const double current = (10 + motor.viscousFriction * speed + motor.coulombFriction) / flux;
    const struct {
        quint16 reg;
        double value;
        double tolerance;
    } values[] = {
        {reg::kSpeedEmf, 1200, 15},
        {reg::kSpeedEncoder, 1200, 5},
        {reg::kSpeed, 1200, 5},
        {reg::kSpeedTacho, 0, 0},
        {reg::kArmatureVoltage, flux * speed + current * motor.armatureResistance, 2},
        {reg::kArmatureCurrent, current, 0.2},
        {reg::kFieldRelative, 100, 1},
        {reg::kFieldCurrent, 1.07, 0.02},
        {reg::kSpeedReference, 1200, 1},
        {reg::kSpeedReferenceSum, 1200, 1},
        {reg::kFieldReference, 100, 0.1},
        {reg::kTorque, flux * current, 0.3},
    };
    for (const auto& v : values)
        EXPECT_NEAR(drive.Value(v.reg), v.value, v.tolerance) << v.reg;
    const auto word = [&](quint16 reg) { return drive.Drive().GetRegisters().GetWord(reg); };
    EXPECT_EQ(word(reg::kDigitalInputs), 0b10111) << "acknowledges of fans and contactor, emergency stop released";
    EXPECT_EQ(word(reg::kLinkNodesLow), 1);
    EXPECT_EQ(word(reg::kLinkNodesHigh), 0) << "the exciter is on the converter's board";
    drive.SetValue(reg::kExciterFound, 2);
    ASSERT_TRUE(drive.Drive().OpenContactor());
    drive.Seconds(40);
    EXPECT_EQ(word(reg::kDigitalInputs), 0b10000);
    EXPECT_EQ(word(reg::kLinkNodesHigh), 1 << 4) << "node 21";
}

TEST(FieldLoss, IsNotSeenInAFieldThatIsStillDecayingFromBefore) {
    WholeDrive drive("S2");
    drive.Run(200);
    drive.Seconds(6);
    ASSERT_TRUE(drive.Drive().OpenContactor());
    for (int i = 0; i < 600 && drive.Drive().IsContactorClosed(); ++i)
        drive.Seconds(0.05);
    drive.Seconds(0.25);
    ASSERT_GT(drive.Value(reg::kFieldRelative), drive.Value(reg::kLeastField));
    drive.Run(200);
    drive.Seconds(6);
    EXPECT_EQ(drive.Drive().GetFaults().GetActive(), 0);
    EXPECT_GT(drive.Drive().GetSpeed(), 150);
}

TEST(SpeedFeedback, LostOneTripsOrGivesWayToTheEmf) {
    for (const auto& [reaction, fault] : {std::pair{1, int(kFaultFeedback)}, {2, 0}, {3, 0}}) {
        WholeDrive drive("S2");
        drive.KnowArmature();
        drive.SetValue(reg::kRampUp, 3);
        drive.SetValue(reg::kSpeedSource, 1);
        drive.SetValue(reg::kFeedbackReaction, reaction);
        drive.Run(1000);
        drive.Seconds(8);
        drive.Drive().GetFeedback().broken = true;
        drive.Seconds(8);
        EXPECT_EQ(drive.Drive().GetFaults().GetActive(), fault) << reaction;
        if (!fault) {
            EXPECT_EQ(drive.Value(reg::kSpeedSource), 0);
            EXPECT_NEAR(drive.Drive().GetSpeed(), 1000, 20);
        }
    }
}

TEST(SpeedFeedback, ReversedOneRunsAwayIntoATrip) {
    WholeDrive drive("S2");
    drive.SetValue(reg::kSpeedSource, 1);
    drive.Drive().GetFeedback().reversed = true;
    drive.Run(500);
    drive.Seconds(20);
    EXPECT_EQ(drive.Drive().GetFaults().GetActive(), kFaultOverspeed);
    EXPECT_TRUE(drive.Drive().GetMotorState().armatureCurrent == 0);
}

TEST(ToolSupervision, StopsADriveWhoseToolFallsSilent) {
    for (const int reaction : {0, 1, 2}) {
        WholeDrive drive("S2");
        drive.KnowArmature();
        drive.SetValue(reg::kLocalSupervision, 2);
        drive.SetValue(reg::kLocalLossReaction, reaction);
        drive.SetValue(reg::kRampUp, 3);
        drive.SetValue(reg::kRampDown, 5);
        drive.Run(1000);
        drive.Seconds(10);
        drive.Silence(1.9);
        EXPECT_NEAR(drive.Drive().GetSpeed(), 1000, 20) << "not yet";
        drive.Silence(0.6);
        EXPECT_LT(drive.Drive().GetSpeed(), 980) << "slows down, reaction " << reaction;
        drive.Silence(20);
        EXPECT_TRUE(drive.Drive().IsStopped());
        EXPECT_FALSE(drive.Drive().IsContactorClosed());
        EXPECT_EQ(drive.Drive().GetFaults().GetActive(), kFaultConnection);
    }
}

TEST(ToolSupervision, LeavesATalkingToolAndASwitchedOffSupervisionAlone) {
    WholeDrive drive("S2");
    drive.KnowArmature();
    drive.SetValue(reg::kLocalSupervision, 1);
    drive.SetValue(reg::kRampUp, 3);
    drive.Run(500);
    drive.Seconds(10);
    EXPECT_NEAR(drive.Drive().GetSpeed(), 500, 10);
    drive.SetValue(reg::kLocalSupervision, 0);
    drive.Silence(10);
    EXPECT_NEAR(drive.Drive().GetSpeed(), 500, 10);
}

} // namespace
} // namespace krt550
