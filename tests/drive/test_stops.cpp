// How an open emergency stop stops the motor, and what it takes to start it again; which field exciters it runs with.
#include "drive/fault_codes.h"
#include "tests/drive/whole_drive.h"

namespace krt550 {
namespace {

using test::WholeDrive;

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
