// The settings of digital inputs and outputs: what reaches the drive, and what is shown meanwhile.
#include "tests/assistants/wiring_fixture.h"
#include "wizard/assistants/wiring_dialogs/digital_settings.h"
#include "wizard/shell/color_static.h"
#include "wizard/shell/grey_check_box.h"

namespace krt550 {
namespace {

constexpr int In(int number, DigitalControl control) {
    return DigitalId(DigitalGroup::Inputs, number, control);
}
constexpr int Out(int number, DigitalControl control) {
    return DigitalId(DigitalGroup::Outputs, number, control);
}

class DigitalSettings : public WiringFixture {
protected:
    int Run(WiringDrive& drive, const std::function<void()>& script) {
        return WiringFixture::Run<CDialogDIDOSettings>(drive, script);
    }
    static QString Texts(int (*id)(int, DigitalControl), DigitalControl control) {
        QStringList texts;
        for (int number = 1; number <= kDigitalTerminals; ++number)
            texts.append(Robot::Text(id(number, control)));
        return texts.join('|');
    }
};

TEST_F(DigitalSettings, WritesWhatWasChangedInTheGivenOrder) {
    WritesWhat<CDialogDIDOSettings>({
        {"nothing", "", {}},
        {"everything, from the bottom up",
         "source DO4 801, 3 Fault; invert DO1; pick DI8 Run; pick DI2 Jog; invert DI5; invert DI1",
         {"write 1025=1", "write 1029=1", "write 1010=2", "write 1006=8", "write 1401=64735", "write 1407=801",
          "write 1408=3"}},
        {"inverted and back", "invert DI5; invert DI5; invert DO1; invert DO1", {}},
        {"inversion of an output taken away", "invert DO2", {"write 1403=802"}},
        {"a source chosen and the former one again", "source DO1 801, 3 Fault; source DO1 801, 2 Running", {}},
        {"a source of the same word", "source DO1 801, 3 Fault", {"write 1401=801", "write 1402=3"}},
        {"keeps its inversion", "source DO2 801, 2 Running", {"write 1403=64735", "write 1404=2"}},
        {"Other sets the row back", "source DO1 Other", {}},
        {"typed without a name", "view DO1; index DO1 903; bit DO1 12", {"write 1401=903", "write 1402=12"}},
        {"a typed minus sign is an inversion", "view DO1; index DO1 -801", {"write 1401=64735"}},
        {"emptied", "view DO1; index DO1 ", {}},
        {"a new function before the old one is taken off", "pick DI1 On + Run", {"write 1006=1", "write 1005=0"}},
        {"two functions of one selector", "pick DI3 Jog + Jog slowly", {"write 1010=13"}},
        {"moved, and taken off the first one as well", "pick DI1 On; pick DI4 On", {"write 1005=0", "write 1005=4"}},
        {"moved to an input before it", "pick DI3 Jog; pick DI2 Jog", {"write 1010=2"}},
        {"looked at again, and added to", "pick DI3 Run; pick DI3 Jog", {"write 1006=3", "write 1010=3"}},
        {"picked and taken back", "pick DI3 Run; pick DI3 Run", {}},
        {"a picker that was cancelled", "cancel DI3 Run", {}},
    });
}

// Whatever happens to a selector in the meantime or refuses to happen, no other connection goes.
TEST_F(DigitalSettings, NoConnectionGoesThatWasNotRemoved) {
    const QString failed = "parameter 10.%1 selector failed: simulated failure*";
    const struct {
        const char* words;
        std::function<void(WiringDrive&)> meanwhile;
        QStringList boxes;
        QStringList writes;
    } cases[] = {
        {"pick DI1 On", [](WiringDrive& drive) { drive.words[1005] = 6; }, {}, {}}, // taken over by another input
        {"pick DI1 On", [](WiringDrive& drive) { drive.unreadable = {1005}; }, {"Reading " + failed.arg("05")}, {}},
        {"pick DI1 On + Run + Jog", // one that refuses does not hold the next one up
         [](WiringDrive& drive) { drive.unwritable = {1006}; },
         {"Writing " + failed.arg("06")},
         {"write 1006=1", "write 1010=1", "write 1005=0"}},
    };
    for (const auto& c : cases) {
        WiringDrive drive;
        Run(drive, [&] {
            Do(c.words);
            c.meanwhile(drive);
            drive.TakeLog();
            for (const QString& box : c.boxes)
                m_boxes.Expect(box);
            Robot::Press(kIdCloseDialog);
        });
        EXPECT_EQ(drive.TakeWrites(), c.writes) << &c - cases;
        m_boxes.Verify();
    }
}

TEST_F(DigitalSettings, ShowsTheDriveAndAQuestionMarkUntilApply) {
    WiringDrive drive;
    Run(drive, [&] {
        const QStringList log = drive.TakeLog();
        EXPECT_EQ(QSet<QString>(log.begin(), log.end()).size(), log.size())
            << "read twice: " << log.join(", ").toStdString();
        EXPECT_EQ(Texts(In, kDigitalConnection), "On|-|-|-|-|-|-|-");
        EXPECT_EQ(Texts(In, kDigitalStatus), "1|0|0|1|0|0|0|0");
        EXPECT_EQ(Texts(Out, kDigitalStatus), "0|1|0|0|0|0|0|0");
        EXPECT_EQ(Texts(Out, kDigitalChoice), "801, 2 Running|802, 1 Contactor|Other|Not connected|Not connected|"
                                              "Not connected|Not connected|Not connected");
        EXPECT_TRUE(qobject_cast<QAbstractButton*>(Robot::Control(Out(2, kDigitalInvert)))->isChecked());
        EXPECT_TRUE(Robot::Control(Out(2, kDigitalChoice))->toolTip().contains("Source of the output"));

        Do("pick DI2 On + Run");
        EXPECT_EQ(Texts(In, kDigitalStatus), "1|?|0|1|0|0|0|0") << "at once";
        Do("source DO2 801, 3 Fault");
        const auto refreshed = [&drive, seen = 0]() mutable {
            return (seen += int(drive.TakeLog({"read 806"}).size())) > 2;
        };
        EXPECT_TRUE(Robot::WaitUntil(refreshed));
        EXPECT_EQ(Texts(In, kDigitalConnection), "On|?|-|-|-|-|-|-");
        EXPECT_EQ(Texts(In, kDigitalStatus), "1|?|0|1|0|0|0|0");
        EXPECT_EQ(Texts(Out, kDigitalStatus), "0|?|0|0|0|0|0|0");
        Do("source DO2 802, 1 Contactor");
        EXPECT_EQ(Texts(Out, kDigitalStatus), "0|1|0|0|0|0|0|0") << "taken back";
        Robot::Press(kIdApply);
        EXPECT_EQ(Texts(In, kDigitalConnection), "-|Multiple connections|-|-|-|-|-|-");
        EXPECT_EQ(Texts(In, kDigitalStatus), "1|0|0|1|0|0|0|0");
        Robot::Press(DigitalId(DigitalGroup::Outputs, kDigitalView));
        Robot::Type(Out(3, kDigitalIndex), "-801");
        EXPECT_EQ(Robot::Text(Out(3, kDigitalIndex)), "801");
        EXPECT_TRUE(qobject_cast<QAbstractButton*>(Robot::Control(Out(3, kDigitalInvert)))->isChecked());
        InPicker("DI3", [&] {
            EXPECT_TRUE(Item("On").toolTip().contains("Now connected to DI2"));
            EXPECT_EQ(Item("Jog").toolTip(), "");
        });
    });
}

// An output never carries a mixture of the old and the new source.
TEST_F(DigitalSettings, ASourceIsWrittenAsAWholeOrNotAtAll) {
    const struct {
        const char* words;
        std::set<quint16> unwritable;
        QString box;
        QStringList writes;
    } cases[] = {
        {"source DO1 802, 1 Contactor", {1401}, "Writing parameter 14.01*", {"write 1401=802"}},
        {"source DO1 802, 1 Contactor",
         {1402},
         "Writing parameter 14.02*",
         {"write 1401=802", "write 1402=1", "write 1401=801"}},
        {"view DO1; index DO1 802; bit DO1 16", {}, "For parameter 1402 given value was invalid.*", {}},
        {"view DO1; index DO1 8o2", {}, "For parameter 1401 \"8o2\" cannot be used.*", {}},
    };
    for (const auto& c : cases) {
        WiringDrive drive;
        Run(drive, [&] {
            Do(c.words);
            drive.unwritable = c.unwritable;
            drive.TakeLog();
            m_boxes.Expect(c.box);
            Robot::Press(kIdApply);
            EXPECT_EQ(drive.TakeWrites(), c.writes) << c.words;
            EXPECT_EQ(Robot::Text(Out(1, kDigitalStatus)), "0") << c.words << ": the drive's source is shown again";
        });
        m_boxes.Verify();
    }
}

TEST_F(DigitalSettings, WhatTheDriveLacksOrDoesNotSayCannotBeChanged) {
    WiringDrive lacking({1006, 1026, 1402, 805});
    m_boxes.Expect("Parameter 805 not found from drive.*");
    m_boxes.Expect("Parameter 1006 not found from drive.*");
    m_boxes.Expect("- Parameter 1402 not found from drive.*");
    Run(lacking, [&] {
        for (const int id : {Out(1, kDigitalChoice), Out(1, kDigitalInvert), In(2, kDigitalInvert)})
            EXPECT_FALSE(Robot::IsEnabled(id)) << id;
        EXPECT_EQ(Texts(In, kDigitalStatus), "|||||||");
        EXPECT_EQ(Robot::Text(Out(2, kDigitalStatus)), "1");
    });
    m_boxes.Verify();

    WiringDrive silent;
    silent.unreadable = {1005, 1025, 1401, 806};
    m_boxes.Expect("Error while uploading AO parameter");
    m_boxes.Expect("Reading parameter 10.05 selector failed: simulated failure\n\nThe same happened with:*");
    Run(silent, [&] {
        EXPECT_FALSE(Robot::IsEnabled(In(1, kDigitalInvert)));
        EXPECT_EQ(Texts(In, kDigitalConnection), "?|?|?|?|?|?|?|?");
        EXPECT_EQ(Texts(Out, kDigitalStatus), "|||||||") << "not the bits of an earlier time";
        EXPECT_EQ(Robot::Text(Out(1, kDigitalChoice)), "");
        m_boxes.Expect("Reading parameter 10.05*");
        InPicker("DI1", [&] {
            EXPECT_FALSE(Item("On").flags() & Qt::ItemIsUserCheckable);
            EXPECT_TRUE(Item("On").toolTip().contains("1005 could not be read"));
            EXPECT_TRUE(Item("Run").flags() & Qt::ItemIsUserCheckable);
        });
    });
}

TEST_F(DigitalSettings, AFailedRefreshIsToldOnceAndApplyStartsItAgain) {
    WiringDrive drive;
    Run(drive, [&] {
        drive.unreadable = {805};
        m_boxes.Expect("Reading parameter 8.05*");
        m_boxes.Expect("Error while updating parameters\n Stopping parameter update.");
        EXPECT_TRUE(Robot::WaitUntil([] { return Robot::Text(In(1, kDigitalStatus)).isEmpty(); }));
        m_boxes.Verify();
        drive.unreadable.clear();
        Robot::Press(kIdApply);
        drive.words[805] = 2;
        EXPECT_TRUE(Robot::WaitUntil([] { return Robot::Text(In(2, kDigitalStatus)) == "1"; }));
        drive.unreadable = {1403};
        m_boxes.Expect("Error while uploading AO parameter");
        m_boxes.Expect("Reading parameter 14.03*");
        Robot::Press(kIdApply);
        EXPECT_FALSE(qobject_cast<QAbstractButton*>(Robot::Control(Out(2, kDigitalInvert)))->isChecked())
            << "not known";
    });
}

} // namespace
} // namespace krt550
