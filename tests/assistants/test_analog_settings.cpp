// The settings of analogue inputs and outputs: what reaches the drive, and what is shown meanwhile.
#include "tests/assistants/wiring_fixture.h"
#include "wizard/assistants/wiring_dialogs/analog_inputs.h"
#include "wizard/assistants/wiring_dialogs/analog_outputs.h"
#include "wizard/platform/row_ids.h"

namespace krt550 {
namespace {

constexpr quint16 kTerminals[] = {503, 504, 505, 506};

/// What stands beside an input: connection, value at its terminals, converted value, unit of that.
QString Shown(int input) {
    return QStringList{Robot::Text(ChannelId(input, kChannelConnection)), Robot::Text(ValueId(kTerminals[input - 1])),
                       Robot::Text(ChannelId(input, kChannelConverted)),
                       Robot::Text(ChannelId(input, kChannelConvertedUnit))}
        .join('|');
}

class AnalogSettings : public WiringFixture {
protected:
    /// Lets the timer refresh the values a few times; false when it does not run.
    static bool WaitForRefresh(WiringDrive& drive) {
        drive.TakeLog();
        int seen = 0;
        return Robot::WaitUntil([&] { return (seen += int(drive.TakeLog({"read 229"}).size())) > 2; });
    }
};

TEST_F(AnalogSettings, InputsWriteWhatWasChangedInTheGivenOrder) {
    WritesWhat<CDialogAISettings>({
        {"nothing", "", {}},
        {"rows, from the bottom up",
         "1316=4; 1304=7; 1302=-5000; 1301=8000; 1303=2 V to 10 V; 1307=0 V to 10 V",
         {"write 1303=2", "write 1301=8000", "write 1302=60536", "write 1304=7", "write 1307=1", "write 1316=4"}},
        {"taken off before another one is made, and both before the rows",
         "1304=7; pick AI1 Reference 1 + Torque reference",
         {"write 1101=0", "write 2503=1", "write 1304=7"}},
        {"two of one selector", "pick AI2 Motor temperature, PTC + Motor temperature, Pt100", {"write 3104=3"}},
        {"inputs in turn, each with its own",
         "pick AI4 Torque reference; pick AI2 Motor temperature, PTC",
         {"write 3104=1", "write 2503=4"}},
        {"moved, and taken off the first one as well",
         "pick AI1 Reference 1; pick AI2 Reference 1",
         {"write 1101=0", "write 1101=2"}},
        {"the last one who asks gets it", "pick AI2 Reference 1; pick AI3 Reference 1", {"write 1101=3"}},
        {"and backwards", "pick AI3 Reference 1; pick AI2 Reference 1", {"write 1101=2"}},
        {"a picker that was cancelled", "cancel AI1 Reference 1", {}},
        {"a picker left as it was", "pick AI1 ", {}},
        {"looked at again, and added to",
         "pick AI3 Torque reference; pick AI3 Motor temperature, PTC",
         {"write 2503=3", "write 3104=2"}},
        {"picked and taken back", "pick AI1 Reference 1; pick AI1 Reference 1", {}},
    });
}

// Somebody else ties the function to another input while the dialog is open.
TEST_F(AnalogSettings, AConnectionThatWasNotRemovedHereIsKept) {
    WiringDrive drive;
    Run<CDialogAISettings>(drive, [&] {
        Do("pick AI1 Reference 1");
        drive.words[1101] = 3;
        drive.TakeLog();
        Robot::Press(kIdApply);
        EXPECT_EQ(drive.TakeWrites(), QStringList());
        EXPECT_EQ(Robot::Text(ChannelId(3, kChannelConnection)), "Reference 1");
    });
}

TEST_F(AnalogSettings, InputsShowWhatTheyFeedAndAQuestionMarkUntilItIsApplied) {
    WiringDrive drive;
    drive.words[503] = 500;
    drive.words[201] = 875;
    drive.words[2503] = drive.words[3104] = 2;
    Run<CDialogAISettings>(drive, [&] {
        EXPECT_EQ(Shown(1), "Reference 1|5.00|875|rpm");
        EXPECT_EQ(Shown(2), "Torque reference|0.00|0|%");
        EXPECT_EQ(Shown(4), "-|0.00||");
        drive.words[503] = 600;
        ASSERT_TRUE(WaitForRefresh(drive));
        EXPECT_EQ(Shown(1), "Reference 1|6.00|875|rpm");

        Do("pick AI1 Torque reference");
        drive.words[503] = 700;
        drive.words[504] = 100;
        ASSERT_TRUE(WaitForRefresh(drive));
        EXPECT_EQ(Shown(1), "?|?|?|?");
        EXPECT_EQ(Shown(2), "Torque reference|1.00|0|%") << "the others follow the drive";
        Do("pick AI1 Torque reference");
        EXPECT_EQ(Robot::Text(ChannelId(1, kChannelConnection)), "Reference 1") << "nothing is picked any more";

        Do("pick AI1 Torque reference");
        Robot::Press(kIdApply);
        EXPECT_EQ(Shown(1), "Multiple connections|7.00|Multiple connections|");
        EXPECT_EQ(Shown(2), "-|1.00||");
        EXPECT_EQ(Shown(3), "Motor temperature, PTC|0.00|0|C");
        ASSERT_TRUE(WaitForRefresh(drive));
        EXPECT_EQ(Shown(1), "Multiple connections|7.00|Multiple connections|");
    });
}

// A timer may have ticked before somebody looks: what it reads comes behind.
TEST_F(AnalogSettings, ALoadReadsEverythingOnceInTheGivenOrder) {
    WiringDrive drive;
    const auto loads = [&drive](QList<int> registers) {
        const QStringList log = drive.TakeLog();
        QStringList reads;
        for (const int reg : registers)
            reads.append(QStringLiteral("read %1").arg(reg));
        EXPECT_EQ(log.first(std::min(log.size(), reads.size())), reads);
    };
    Run<CDialogAISettings>(drive, [&] {
        loads({229,  1303, 1301, 1302, 1304, 1307, 1305, 1306, 1308, 1311, 1309, 1310, 1312,
               1315, 1313, 1314, 1316, 503,  504,  505,  506,  1101, 2503, 3104, 201});
    });
    Run<CDialogAOSettings>(drive, [&] { loads({1501, 1503, 1504, 1505, 1506, 1508, 1509, 1510, 511, 512, 229}); });
}

TEST_F(AnalogSettings, OutputsWriteWhatWasChangedInTheGivenOrder) {
    WritesWhat<CDialogAOSettings>({
        {"nothing", "", {}},
        {"one setting", "1504=20", {"write 1504=20"}},
        {"everything, from the bottom up",
         "1510=6000; 1509=9; 1508=0 V to 10 V; source AO2 107 Motor torque; 1505=5000; 1504=8; 1503=0 V to 10 V; "
         "view AO1; 1501=1234",
         {"write 1501=1234", "write 1503=1", "write 1504=8", "write 1505=5000", "write 1506=107", "write 1508=1",
          "write 1509=9", "write 1510=6000"}},
        {"an index that was typed and typed back", "view AO1; 1501=107; 1501=104", {}},
    });
}

TEST_F(AnalogSettings, OutputsRefreshAfterApplyButNotBesideAChangedIndex) {
    WiringDrive drive;
    drive.words[511] = 500;
    Run<CDialogAOSettings>(drive, [&] {
        const auto shown = [] {
            return Robot::Text(ValueId(511)) + Robot::Text(UnitId(511)) + Robot::Text(ValueId(512));
        };
        EXPECT_EQ(shown(), "5.00V0.00");
        Robot::Choose(ChannelId(1, kChannelChoice), "107 Motor torque");
        EXPECT_EQ(shown(), "??0.00");
        drive.words[511] = 600;
        drive.words[512] = 700;
        ASSERT_TRUE(WaitForRefresh(drive));
        EXPECT_EQ(shown(), "??7.00");
        drive.words[511] = 800;
        Robot::Press(kIdApply);
        EXPECT_EQ(shown(), "8.00V7.00") << "at once";
        EXPECT_EQ(drive.TakeWrites(), QStringList{"write 1501=107"});
    });
}

TEST_F(AnalogSettings, FailuresOfAnApplyAreToldAndTheRestIsWritten) {
    WiringDrive drive;
    Run<CDialogAISettings>(drive, [&] {
        Do("pick AI1 Reference 1 + Torque reference");
        Do("1301=8000; 1304=7");
        drive.unwritable = {1101, 1301};
        drive.TakeLog();
        m_boxes.Expect("Writing parameter 11.01*");
        Robot::Press(kIdApply);
        EXPECT_EQ(drive.TakeWrites(), (QStringList{"write 1101=0", "write 2503=1", "write 1301=8000", "write 1304=7"}));
        EXPECT_EQ(Shown(1).section('|', 0, 0), "Multiple connections") << "what the drive has";
        EXPECT_TRUE(IsChanged(1301)) << "a later Apply tries again";
        EXPECT_FALSE(IsChanged(1304));
    });
}

TEST_F(AnalogSettings, WhatTheDriveLacksIsDisabledAndOnlyToldWithAFailure) {
    const QString none = "Parameters that should be updated did not found\nCan not start parameter update!";
    struct {
        std::set<quint16> missing;
        std::set<quint16> unreadable;
        QStringList inputs, outputs; ///< boxes
    } const cases[] = {
        {{1304, 1504}, {}, {}, {}},
        {{1304, 1504},
         {1302, 1509},
         {"Reading parameter 13.02*", "- Parameter 1304 not found*"},
         {"Reading parameter 15.09*", "- Parameter 1504 not found*"}},
        {{229, 511, 512, 503, 504, 505, 506}, {}, {}, {none}},
        {{1501}, {}, {}, {}},
    };
    for (const auto& c : cases) {
        WiringDrive drive(c.missing);
        drive.unreadable = c.unreadable;
        const auto boxes = [&](const QStringList& texts) {
            for (const QString& text : texts)
                m_boxes.Expect(text).WithIcon(text == none ? QMessageBox::NoIcon : QMessageBox::Critical);
        };
        const auto disabled = [&](quint16 reg) { return !Robot::IsEnabled(ValueId(reg)); };
        boxes(c.inputs);
        Run<CDialogAISettings>(drive, [&] { EXPECT_EQ(disabled(1304), c.missing.contains(1304)); });
        boxes(c.outputs);
        Run<CDialogAOSettings>(drive, [&] {
            EXPECT_EQ(disabled(1504), c.missing.contains(1504));
            EXPECT_EQ(!Robot::IsEnabled(ChannelId(1, kChannelChoice)), c.missing.contains(1501));
        });
    }
}

TEST_F(AnalogSettings, AFailedRefreshStopsTheTimerAndIsToldOnce) {
    for (const quint16 reg : {quint16(229), quint16(503)}) { // the scale, terminals
        WiringDrive drive;
        drive.words[2503] = 4;
        Run<CDialogAISettings>(drive, [&] {
            ASSERT_TRUE(WaitForRefresh(drive));
            drive.unreadable = {reg};
            m_boxes.Expect(QStringLiteral("Reading parameter %1*").arg(reg / 100));
            m_boxes.Expect("Error while updating parameters\n Stopping parameter update.")
                .WithIcon(QMessageBox::Critical);
            Robot::LetPass(40);
            m_boxes.Verify();
            drive.TakeLog();
            Robot::LetPass(40);
            EXPECT_EQ(drive.TakeLog(), QStringList()) << reg;
        });
    }
}

} // namespace
} // namespace krt550
