// How an open emergency stop stops the motor, and what it takes to start it again; which field exciters it runs with.
#include "drive/fault_codes.h"
#include "tests/drive/whole_drive.h"

namespace krt550 {
namespace {

using test::WholeDrive;

/// From 800 rpm; base speed to standstill is set to 4 s, rated current is 21.2 A.
TEST(EmergencyStop, StopsByItsMode) {
    const struct {
        const char* name;
        int mode;
        int state;                   ///< that 8.07 shows meanwhile
        double soonest, latest;      ///< at standstill [s]
        double mostMotor, mostBrake; ///< current that drives, and that brakes [A], once the stop has begun
    } cases[] = {
        {"ramp", 0, 6, 1.6, 2.4, 3, 0.8},
        {"torque limit", 1, 6, 0.05, 0.4, 3, 22},
        {"coast", 2, 7, 2.5, 6, 0, 0},
        {"dynamic braking", 3, 7, 0.4, 2.4, 0, 8},
    };
    for (const auto& c : cases) {
        WholeDrive drive("S2");
        CSimulatedDrive& inside = drive.Drive();
        drive.KnowArmature();
        drive.SetValue(reg::kEmergencyStopMode, c.mode);
        drive.SetValue(reg::kQuickStopRamp, 4);
        drive.RunUp(800);
        drive.Disturb("e-stop");
        EXPECT_EQ(drive.Value(reg::kDriveState), c.state) << c.name;
        double seconds = 0;
        double high = 0;
        double low = 0;
        for (; seconds < 10 && !inside.IsStopped(); seconds += 0.01) {
            drive.Silence(0.01);
            high = std::max(high, inside.GetMotorState().armatureCurrent);
            low = std::min(low, inside.GetMotorState().armatureCurrent);
        }
        EXPECT_GT(seconds, c.soonest) << c.name;
        EXPECT_LT(seconds, c.latest) << c.name;
        EXPECT_LE(high, c.mostMotor) << c.name;
        EXPECT_GE(low, -c.mostBrake) << c.name;
        EXPECT_LE(low, -c.mostBrake / 2) << c.name;

        drive.Seconds(0.1);
        EXPECT_FALSE(inside.IsContactorClosed()) << c.name;
        EXPECT_FALSE(inside.CloseContactor()) << c.name << ": it is open";
        drive.Repair();
        EXPECT_FALSE(inside.CloseContactor()) << c.name << ": the command to switch on has not been taken back";
        EXPECT_TRUE(inside.OpenContactor()) << c.name;
        EXPECT_TRUE(inside.CloseContactor() && inside.StartMotor()) << c.name << inside.GetLastError().toStdString();
    }
}

/// The resistor must be off the armature before the converter comes back.
TEST(EmergencyStop, BrakesToStandstillWhateverIsReleasedMeanwhile) {
    WholeDrive drive("S2");
    drive.SetValue(reg::kEmergencyStopMode, 3);
    drive.RunUp(800);
    drive.Disturb("e-stop");
    drive.Repair();
    drive.Drive().OpenContactor();
    EXPECT_FALSE(drive.Drive().CloseContactor());
    EXPECT_TRUE(drive.Drive().GetLastError().contains(QLatin1String("braked")))
        << drive.Drive().GetLastError().toStdString();
    drive.Seconds(0.1);
    EXPECT_LT(drive.Drive().GetMotorState().armatureCurrent, -2);
    drive.Seconds(3);
    EXPECT_TRUE(drive.Drive().IsStopped());
    drive.Drive().OpenContactor();
    EXPECT_TRUE(drive.Drive().CloseContactor()) << drive.Drive().GetLastError().toStdString();
}

TEST(FieldExciterFound, LetsTheDriveBeSwitchedOn) {
    const struct {
        const char* name;
        const char* mounted;
        const char* registers;
        int found;     ///< 4.06
        quint32 nodes; ///< that answer, 4.18 and 4.19
        bool switchesOn;
    } cases[] = {
        {"on its board", "onboard", "9912=1", 1, 0x1, true},
        {"none, and none used", "none", "9912=0", 0, 0x1, true},
        {"none", "none", "9912=1", 0, 0x1, false},
        {"another type", "external35", "9912=3", 2, 0x100001, false},
        {"on its board, an external one used", "onboard", "9912=2", 1, 0x1, false},
        {"external", "external35", "9912=2", 2, 0x100001, true},
        {"second converter", "second2@32", "9912=6 9408=32", 6, 0x80000001, true},
        {"at another node", "external450@22", "9912=4", 0, 0x200001, false},
        {"found there", "external450@22", "9912=4 9408=22", 4, 0x200001, true},
        {"at the converter's node", "external450@1", "9912=4 9408=1", 0, 0x1, false},
    };
    for (const auto& c : cases) {
        WholeDrive drive("S2");
        ASSERT_TRUE(ParseExciter(QString::fromLatin1(c.mounted), drive.Drive().GetExciter())) << c.name;
        drive.Disturb(c.registers);
        ASSERT_TRUE(drive.Drive().TakeLocalControl());
        EXPECT_EQ(drive.Value(reg::kExciterFound), c.found) << c.name;
        EXPECT_EQ(drive.Value(reg::kLinkNodesLow) + 65536 * drive.Value(reg::kLinkNodesHigh), c.nodes) << c.name;
        EXPECT_EQ(drive.Drive().CloseContactor(), c.switchesOn) << c.name;
        EXPECT_EQ(drive.Drive().IsContactorClosed(), c.switchesOn) << c.name;
        EXPECT_EQ(drive.Drive().GetFaults().GetActive(), c.switchesOn ? 0 : kFaultExciter) << c.name;
        EXPECT_EQ(drive.Drive().GetLastError().contains(QLatin1String("exciter")), !c.switchesOn) << c.name;
    }
}

} // namespace
} // namespace krt550
