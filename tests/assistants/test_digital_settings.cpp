// The settings of digital inputs and outputs: what reaches the drive, and what is shown meanwhile.
#include "tests/support/fake_drive.h"
#include "tests/support/message_boxes.h"
#include "tests/support/robot.h"
#include "tests/support/wizard_files.h"
#include "wizard/assistants/wiring_dialogs/digital_settings.h"
#include "wizard/params/changed_registers.h"
#include "wizard/platform/terminal_registers.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/module_resources.h"
#include "wizard/shell/color_static.h"
#include "wizard/shell/grey_check_box.h"
#include "wizard/texts/wizard_directory.h"

#include <QComboBox>
#include <QListWidget>
#include <QTimer>

#include <gtest/gtest.h>

namespace krt550 {
namespace {

const WizardFiles& Files() {
    static const WizardFiles files(
        "UPDATE\t101\t5\nTOOLTIP\t1403\tSource of the output\n"
        "DI\t1005\t1\t2\t3\t4\t5\t6\t7\t8\t0\tOn\n"
        "DI\t1006\t1\t2\t3\t4\t5\t6\t7\t8\t0\tRun\n"
        "DI\t1010\t1\t2\t3\t4\t5\t6\t7\t8\t0\tJog\n"
        "DI\t1010\t11\t12\t13\t14\t15\t16\t17\t18\t0\tJog slowly\n"
        "DO\t0\t0\tNot connected\nDO\t801\t2\tRunning\nDO\t801\t3\tFault\nDO\t802\t1\tContactor\n");
    return files;
}

std::vector<ParameterDescription> Parameters(const std::set<quint16>& missing) {
    std::vector<ParameterDescription> all = {Number(805, "inputs", 0, 0, 0), Number(806, "outputs", 0, 0, 0)};
    for (const quint16 selector : {quint16{1005}, quint16{1006}, quint16{1010}})
        all.push_back(Number(selector, "selector", 0, 0, 20));
    for (int number = 1; number <= kDigitalTerminals; ++number) {
        all.push_back(Number(DIInversionRegister(number), "inversion", 0, 0, 1));
        all.push_back(Number(DOIndexRegister(number), "index", 0, -9999, 9999));
        all.push_back(Number(DOBitRegister(number), "bit", 0, 0, 15));
    }
    std::erase_if(all, [&](const ParameterDescription& parameter) { return missing.contains(parameter.reg); });
    return all;
}

class DigitalDrive : public FakeDrive {
public:
    explicit DigitalDrive(const std::set<quint16>& missing = {}) : FakeDrive(Parameters(missing)) {
        words[1005] = 1; // On from DI1
        words[1401] = 801;
        words[1402] = 2;
        words[1403] = quint16(-802);
        words[1404] = 1;
        words[1405] = 555; // a source without a name
        words[805] = 0b1001;
        words[806] = 0b0010;
    }
    QStringList TakeWrites() { return TakeLog(QStringList{"write"}); }
};

constexpr int In(int number, DigitalControl control) {
    return DigitalId(DigitalGroup::Inputs, number, control);
}
constexpr int Out(int number, DigitalControl control) {
    return DigitalId(DigitalGroup::Outputs, number, control);
}
constexpr int kViewButton = DigitalId(DigitalGroup::Outputs, kDigitalView);

class DigitalSettings : public testing::Test {
protected:
    DigitalSettings() {
        SetWizardDirectory(Files().Directory());
        ClearChanged();
    }

    /// Shows the dialog and runs `script` in it; what is open afterwards is cancelled.
    int Run(DigitalDrive& drive, const std::function<void()>& script) {
        CDialogDIDOSettings dialog;
        dialog.SetParameterRoot(&drive.Root());
        WhenOpen(141, [&] {
            script();
            if (Robot::Layout() == 141)
                Robot::Press(kIdCancelDialog);
        });
        return dialog.DoModal();
    }

    /// Runs `script` once the window with this layout is in front: boxes may come before it.
    void WhenOpen(int layout, std::function<void()> script) {
        QTimer::singleShot(1, &m_context, [this, layout, script = std::move(script)] {
            if (Robot::Layout() != layout)
                return WhenOpen(layout, script);
            Robot::Front()->activateWindow();
            script();
        });
    }

    static QListWidgetItem& Item(const QString& name) {
        const auto* list = qobject_cast<QListWidget*>(Robot::Control(kIdConnectionList));
        return *list->findItems(name, Qt::MatchExactly).at(0);
    }

    /// Opens the picker of an input and runs `script` in it; presses `button` then.
    void InPicker(int input, const std::function<void()>& script, int button = kIdCloseDialog) {
        WhenOpen(142, [&] {
            script();
            Robot::Press(button);
        });
        Robot::Press(In(input, kDigitalEdit));
    }

    /// Gives each of these functions its other tick.
    void Pick(int input, const QStringList& toggled, int button = kIdCloseDialog) {
        InPicker(
            input,
            [&] {
                for (const QString& name : toggled)
                    Item(name).setCheckState(Item(name).checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
            },
            button);
    }

    static QString Texts(int (*id)(int, DigitalControl), DigitalControl control) {
        QStringList texts;
        for (int number = 1; number <= kDigitalTerminals; ++number)
            texts.append(Robot::Text(id(number, control)));
        return texts.join('|');
    }

    CModuleResources m_resources;
    ResourceScope m_scope{m_resources};
    MessageBoxes m_boxes;
    QObject m_context;
};

// What a person does, and what the drive gets when the dialog is ended in each of its ways.
TEST_F(DigitalSettings, WritesWhatWasChangedInTheGivenOrder) {
    const struct {
        const char* name;
        std::function<void()> act;
        QStringList writes;
    } cases[] = {
        {"nothing", [] {}, {}},
        {"everything, from the bottom up",
         [this] {
             Robot::Choose(Out(4, kDigitalChoice), "801, 3 Fault");
             Robot::Press(Out(1, kDigitalInvert));
             Pick(7, {"Run"});
             Pick(2, {"Jog"});
             Robot::Press(In(5, kDigitalInvert));
             Robot::Press(In(1, kDigitalInvert));
         },
         {"write 1025=1", "write 1029=1", "write 1010=2", "write 1006=7", "write 1401=64735", "write 1407=801",
          "write 1408=3"}},
        {"inverted and back",
         [] {
             for (const int id : {In(5, kDigitalInvert), Out(1, kDigitalInvert)}) {
                 Robot::Press(id);
                 Robot::Press(id);
             }
         },
         {}},
        {"inversion of an output taken away", [] { Robot::Press(Out(2, kDigitalInvert)); }, {"write 1403=802"}},
        {"a source chosen and the former one again",
         [] {
             Robot::Choose(Out(1, kDigitalChoice), "801, 3 Fault");
             Robot::Choose(Out(1, kDigitalChoice), "801, 2 Running");
         },
         {}},
        {"a source of the same word",
         [] { Robot::Choose(Out(1, kDigitalChoice), "801, 3 Fault"); },
         {"write 1401=801", "write 1402=3"}},
        {"an inverted output keeps its inversion with another source",
         [] { Robot::Choose(Out(2, kDigitalChoice), "801, 2 Running"); },
         {"write 1403=64735", "write 1404=2"}},
        {"Other sets the row back", [] { Robot::Choose(Out(1, kDigitalChoice), "Other"); }, {}},
        {"typed without a name",
         [] {
             Robot::Press(kViewButton);
             Robot::Type(Out(1, kDigitalIndex), "903");
             Robot::Type(Out(1, kDigitalBit), "12");
         },
         {"write 1401=903", "write 1402=12"}},
        {"a typed minus sign is an inversion",
         [] {
             Robot::Press(kViewButton);
             Robot::TypeOnly(Out(1, kDigitalIndex), "-801");
         },
         {"write 1401=64735"}},
        {"emptied",
         [] {
             Robot::Press(kViewButton);
             Robot::Type(Out(1, kDigitalIndex), "");
         },
         {}},
        {"a new function before the old one is taken off",
         [this] {
             Pick(1, {"On", "Run"});
         },
         {"write 1006=1", "write 1005=0"}},
        {"two functions of one selector: the other one takes its place",
         [this] {
             Pick(3, {"Jog", "Jog slowly"});
         },
         {"write 1010=13"}},
        {"moved to another input, and taken off the first one as well",
         [this] {
             Pick(1, {"On"});
             Pick(4, {"On"});
         },
         {"write 1005=0", "write 1005=4"}},
        {"moved to an input before it",
         [this] {
             Pick(3, {"Jog"});
             Pick(2, {"Jog"});
         },
         {"write 1010=2"}},
        {"picked, looked at again, and added to",
         [this] {
             Pick(3, {"Run"});
             Pick(3, {"Jog"});
         },
         {"write 1006=3", "write 1010=3"}},
        {"picked and taken back",
         [this] {
             Pick(3, {"Run"});
             Pick(3, {"Run"});
         },
         {}},
        {"a picker that was cancelled", [this] { Pick(3, {"Run"}, kIdCancelDialog); }, {}},
    };
    for (const auto& c : cases)
        for (const int button : {int{kIdApply}, int{kIdCloseDialog}, int{kIdCancelDialog}, 0}) {
            DigitalDrive drive;
            MarkChanged(9908); // the page's behind the dialog
            const int result = Run(drive, [&] {
                c.act();
                EXPECT_EQ(drive.TakeWrites(), QStringList()) << c.name;
                button ? Robot::Press(button) : Robot::CloseWindow();
            });
            const bool writes = button == kIdApply || button == kIdCloseDialog;
            EXPECT_EQ(drive.TakeWrites(), writes ? c.writes : QStringList()) << c.name << ", button " << button;
            EXPECT_EQ(result, button == kIdCloseDialog ? 1 : 2) << c.name;
            EXPECT_TRUE(IsChanged(9908)) << "the page's choice is lost";
            UnmarkChanged(9908);
            EXPECT_FALSE(AnyChanged()) << c.name << ": the page would take it for its own";
        }
}

// Whatever happens to a selector in the meantime or refuses to happen, no other connection goes.
TEST_F(DigitalSettings, NoConnectionGoesThatWasNotRemoved) {
    const QString failed = "parameter 10.%1 selector failed: simulated failure*";
    const struct {
        const char* name;
        QStringList picks; ///< for DI1, which has "On"
        std::function<void(DigitalDrive&)> meanwhile;
        QStringList boxes;
        QStringList writes;
    } cases[] = {
        {"taken over by another input", {"On"}, [](DigitalDrive& drive) { drive.words[1005] = 6; }, {}, {}},
        {"cannot be looked at",
         {"On"},
         [](DigitalDrive& drive) { drive.unreadable = {1005}; },
         {"Reading " + failed.arg("05")},
         {}},
        {"one that refuses does not hold the next one up",
         {"On", "Run", "Jog"},
         [](DigitalDrive& drive) { drive.unwritable = {1006}; },
         {"Writing " + failed.arg("06")},
         {"write 1006=1", "write 1010=1", "write 1005=0"}},
    };
    for (const auto& c : cases) {
        DigitalDrive drive;
        Run(drive, [&] {
            Pick(1, c.picks);
            c.meanwhile(drive);
            drive.TakeLog();
            for (const QString& box : c.boxes)
                m_boxes.Expect(box);
            Robot::Press(kIdCloseDialog);
        });
        EXPECT_EQ(drive.TakeWrites(), c.writes) << c.name;
        m_boxes.Verify();
    }
}

TEST_F(DigitalSettings, ShowsTheDriveAndAQuestionMarkUntilApply) {
    DigitalDrive drive;
    Run(drive, [&] {
        const QStringList log = drive.TakeLog();
        EXPECT_EQ(QSet<QString>(log.begin(), log.end()).size(), log.size()) << "read twice: " << log.join(", ").toStdString();
        EXPECT_EQ(Texts(In, kDigitalConnection), "On|-|-|-|-|-|-|-");
        EXPECT_EQ(Texts(In, kDigitalStatus), "1|0|0|1|0|0|0|0");
        EXPECT_EQ(Texts(Out, kDigitalStatus), "0|1|0|0|0|0|0|0");
        EXPECT_EQ(Texts(Out, kDigitalChoice), "801, 2 Running|802, 1 Contactor|Other|Not connected|Not connected|"
                                              "Not connected|Not connected|Not connected");
        EXPECT_TRUE(qobject_cast<QAbstractButton*>(Robot::Control(Out(2, kDigitalInvert)))->isChecked());
        EXPECT_TRUE(Robot::Control(Out(2, kDigitalChoice))->toolTip().contains("Source of the output"));

        Pick(2, {"On", "Run"});
        Robot::Choose(Out(2, kDigitalChoice), "801, 3 Fault");
        const auto refreshed = [&drive, seen = 0]() mutable {
            return (seen += int(drive.TakeLog({"read 806"}).size())) > 2;
        };
        EXPECT_TRUE(Robot::WaitUntil(refreshed));
        EXPECT_EQ(Texts(In, kDigitalConnection), "On|?|-|-|-|-|-|-");
        EXPECT_EQ(Texts(In, kDigitalStatus), "1|?|0|1|0|0|0|0");
        EXPECT_EQ(Texts(Out, kDigitalStatus), "0|?|0|0|0|0|0|0");
        Robot::Choose(Out(2, kDigitalChoice), "802, 1 Contactor");
        EXPECT_EQ(Texts(Out, kDigitalStatus), "0|1|0|0|0|0|0|0") << "taken back";
        Robot::Press(kIdApply);
        EXPECT_EQ(Texts(In, kDigitalConnection), "-|Multiple connections|-|-|-|-|-|-");
        EXPECT_EQ(Texts(In, kDigitalStatus), "1|0|0|1|0|0|0|0");
        InPicker(3, [&] {
            EXPECT_TRUE(Item("On").toolTip().contains("Now connected to DI2"));
            EXPECT_EQ(Item("Jog").toolTip(), "");
        });
    });
}

TEST_F(DigitalSettings, HasABasicAndAnAdvancedView) {
    DigitalDrive drive;
    Run(drive, [&] {
        const auto expectView = [&](bool basic) {
            EXPECT_EQ(Robot::Text(kViewButton), basic ? "Advanced" : "Basic");
            for (const int id :
                 {DigitalId(DigitalGroup::Outputs, kDigitalIndexHeading),
                  DigitalId(DigitalGroup::Outputs, kDigitalBitHeading), Out(1, kDigitalIndex), Out(8, kDigitalBit)})
                EXPECT_EQ(Robot::Find(id) != nullptr, !basic) << id;
            EXPECT_EQ(Robot::Find(Out(8, kDigitalChoice)) != nullptr, basic);
        };
        expectView(true);
        Robot::Press(kViewButton);
        expectView(false);
        EXPECT_EQ(Robot::Text(Out(2, kDigitalIndex)) + '.' + Robot::Text(Out(2, kDigitalBit)), "802.1");
        Robot::Type(Out(3, kDigitalIndex), "-801");
        Robot::Type(Out(3, kDigitalBit), "3");
        EXPECT_EQ(Robot::Text(Out(3, kDigitalIndex)), "801");
        Robot::Press(kViewButton);
        expectView(true);
        EXPECT_EQ(Robot::Text(Out(3, kDigitalChoice)), "801, 3 Fault");
        EXPECT_TRUE(qobject_cast<QAbstractButton*>(Robot::Control(Out(3, kDigitalInvert)))->isChecked());
    });
}

// An output never carries a mixture of the old and the new source.
TEST_F(DigitalSettings, ASourceIsWrittenAsAWholeOrNotAtAll) {
    const struct {
        const char* name;
        std::function<void()> act;
        std::set<quint16> unwritable;
        QString box;
        QStringList writes;
    } cases[] = {
        {"index refused",
         [] { Robot::Choose(Out(1, kDigitalChoice), "802, 1 Contactor"); },
         {1401},
         "Writing parameter 14.01*",
         {"write 1401=802"}},
        {"bit refused",
         [] { Robot::Choose(Out(1, kDigitalChoice), "802, 1 Contactor"); },
         {1402},
         "Writing parameter 14.02*",
         {"write 1401=802", "write 1402=1", "write 1401=801"}},
        {"no such bit",
         [] {
             Robot::Press(kViewButton);
             Robot::Type(Out(1, kDigitalIndex), "802");
             Robot::TypeOnly(Out(1, kDigitalBit), "16");
         },
         {},
         "For parameter 1402 given value was invalid.*",
         {}},
        {"no number",
         [] {
             Robot::Press(kViewButton);
             Robot::TypeOnly(Out(1, kDigitalIndex), "8o2");
         },
         {},
         "For parameter 1401 \"8o2\" cannot be used.*",
         {}},
    };
    for (const auto& c : cases) {
        DigitalDrive drive;
        Run(drive, [&] {
            c.act();
            drive.unwritable = c.unwritable;
            drive.TakeLog();
            m_boxes.Expect(c.box);
            Robot::Press(kIdApply);
            EXPECT_EQ(drive.TakeWrites(), c.writes) << c.name;
            EXPECT_EQ(Robot::Text(Out(1, kDigitalStatus)), "0") << c.name << ": the drive's source is shown again";
        });
        m_boxes.Verify();
    }
}

TEST_F(DigitalSettings, WhatTheDriveLacksOrDoesNotSayCannotBeChanged) {
    DigitalDrive lacking({1006, 1026, 1402, 805});
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

    DigitalDrive silent;
    silent.unreadable = {1005, 1025, 1401, 806};
    m_boxes.Expect("Error while uploading AO parameter");
    m_boxes.Expect("Reading parameter 10.05 selector failed: simulated failure\n\nThe same happened with:*");
    Run(silent, [&] {
        EXPECT_FALSE(Robot::IsEnabled(In(1, kDigitalInvert)));
        EXPECT_EQ(Texts(In, kDigitalConnection), "?|?|?|?|?|?|?|?");
        EXPECT_EQ(Texts(Out, kDigitalStatus), "|||||||") << "not the bits of an earlier time";
        EXPECT_EQ(Robot::Text(Out(1, kDigitalChoice)), "");
        m_boxes.Expect("Reading parameter 10.05*");
        InPicker(1, [&] {
            EXPECT_FALSE(Item("On").flags() & Qt::ItemIsUserCheckable);
            EXPECT_TRUE(Item("On").toolTip().contains("1005 could not be read"));
            EXPECT_TRUE(Item("Run").flags() & Qt::ItemIsUserCheckable);
        });
    });
}

TEST_F(DigitalSettings, AFailedRefreshIsToldOnceAndApplyStartsItAgain) {
    DigitalDrive drive;
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
    });
}

TEST_F(DigitalSettings, EveryOtherLineStandsOnABand) {
    DigitalDrive drive;
    Run(drive, [&] {
        for (int number = 1; number <= kDigitalTerminals; ++number)
            for (const int id : {In(number, kDigitalName), In(number, kDigitalConnection), In(number, kDigitalStatus),
                                 Out(number, kDigitalName), Out(number, kDigitalStatus), In(number, kDigitalInvert),
                                 Out(number, kDigitalInvert)}) {
                const QColor at = Robot::Control(id)->grab().toImage().pixelColor(1, 1);
                EXPECT_EQ(at == kLightGrey, number % 2 != 0) << id << ' ' << at.name().toStdString();
            }
    });
}

} // namespace
} // namespace krt550
