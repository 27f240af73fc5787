#pragma once

#include "hostlib/tolvbo32/clock.h"
#include "tests/support/fake_drive.h"
#include "tests/support/message_boxes.h"
#include "tests/support/robot.h"
#include "tests/support/wizard_files.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/platform/dialog.h"
#include "wizard/platform/row_ids.h"
#include "wizard/platform/terminal_registers.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/digital_terminals.h"
#include "wizard/resources/module_resources.h"
#include "wizard/texts/wizard_directory.h"

namespace krt550 {

/// What the dialogs of the terminals ask for. On comes from DI1, Reference 1 from AI1.
class WiringDrive : public FakeDrive {
public:
    explicit WiringDrive(const std::set<quint16>& missing = {}) : FakeDrive(Parameters(missing)) {
        for (const auto& [reg, word] :
             std::initializer_list<std::pair<quint16, quint16>>{{1005, 1},
                                                                {1401, 801},
                                                                {1402, 2},
                                                                {1403, quint16(-802)},
                                                                {1404, 1},
                                                                {1405, 555}, // a source without a name
                                                                {805, 9},
                                                                {806, 2},
                                                                {1101, 1},
                                                                {1501, 104},
                                                                {229, 1750}})
            words[reg] = word;
    }
    QStringList TakeWrites() { return TakeLog(QStringList{"write"}); }

private:
    static std::vector<ParameterDescription> Parameters(const std::set<quint16>& missing) {
        std::vector<ParameterDescription> all = {Number(229, "Speed scaling", 0, 0, 0, "rpm"),
                                                 Number(201, "Reference 1", 0, -10000, 10000, "rpm"),
                                                 Number(208, "Torque reference", 0, -400, 400, "%"),
                                                 Number(123, "Motor temperature", 0, -50, 300, "C"),
                                                 Plain(805, 0, 0),
                                                 Plain(806, 0, 0)};
        for (const quint16 selector : std::initializer_list<quint16>{1005, 1006, 1010, 1101, 2503, 3104})
            all.push_back(Number(selector, "selector", 0, 0, 20));
        for (const quint16 terminal : std::initializer_list<quint16>{503, 504, 505, 506, 511, 512})
            all.push_back(Number(terminal, "value at terminals", 2, -11, 11, "V"));
        for (const quint16 mode : std::initializer_list<quint16>{1303, 1307, 1311, 1315, 1503, 1508})
            all.push_back(List(mode, "mode", {{0, "-10 V to 10 V"}, {1, "0 V to 10 V"}, {2, "2 V to 10 V"}}));
        for (int number = 1; number <= kDigitalTerminals; ++number) {
            all.push_back(Plain(DIInversionRegister(number), 0, 1));
            all.push_back(Plain(DOIndexRegister(number), -9999, 9999));
            all.push_back(Plain(DOBitRegister(number), 0, 15));
        }
        all = WizardParameters(std::move(all));
        std::erase_if(all, [&](const ParameterDescription& parameter) { return missing.contains(parameter.reg); });
        return all;
    }
};

/// The dialogs of the terminals in front of a drive of words.
class WiringFixture : public testing::Test {
protected:
    WiringFixture() {
        static const WizardFiles files("UPDATE\t101\t5\nUPDATE\t102\t5\n"
                                       "TOOLTIP\t1403\tSource of the output\nTOOLTIP\t1501\tSignal at AO1\n"
                                       "DI\t1005\t1\t2\t3\t4\t5\t6\t7\t8\t0\tOn\n"
                                       "DI\t1006\t1\t2\t3\t4\t5\t6\t7\t8\t0\tRun\n"
                                       "DI\t1010\t1\t2\t3\t4\t5\t6\t7\t8\t0\tJog\n"
                                       "DI\t1010\t11\t12\t13\t14\t15\t16\t17\t18\t0\tJog slowly\n"
                                       "DO\t0\t0\tNot connected\nDO\t801\t2\tRunning\n"
                                       "DO\t801\t3\tFault\nDO\t802\t1\tContactor\n"
                                       "AI\t1101\t201\t1\t2\t3\t4\t0\tReference 1\n"
                                       "AI\t2503\t208\t1\t2\t3\t4\t0\tTorque reference\n"
                                       "AI\t3104\t123\t\t1\t2\t\t0\tMotor temperature, PTC\n"
                                       "AI\t3104\t123\t\t3\t4\t\t0\tMotor temperature, Pt100\n"
                                       "AO\t0\tNot connected\nAO\t104\tSpeed actual\nAO\t107\tMotor torque\n");
        SetWizardDirectory(files.Directory());
        ClearChanged();
    }

    /// Shows the dialog on `drive` and runs `script` in it; what is open afterwards is cancelled. The result is
    /// DoModal's.
    template <class Dialog> int Run(WiringDrive& drive, const std::function<void()>& script) {
        ClearUpdateList(); // as a page does that comes to the front
        Dialog dialog;
        dialog.SetParameterRoot(drive.hasRoot ? &drive.Root() : nullptr);
        QTimer::singleShot(0, qApp, [&] {
            Robot::WhenInFront(dialog.GetLayoutNumber(), [&] {
                script();
                if (Robot::Layout() == dialog.GetLayoutNumber())
                    Robot::Press(kIdCancelDialog);
            });
        });
        return dialog.DoModal();
    }

    /// What a person does, and what the drive gets when the dialog is ended in each of its ways.
    struct Case {
        const char* name;
        const char* words; ///< see Do
        QStringList writes;
    };
    template <class Dialog> void WritesWhat(const std::vector<Case>& cases) {
        for (const Case& c : cases)
            for (const int button : {int{kIdApply}, int{kIdCloseDialog}, int{kIdCancelDialog}, 0}) {
                SCOPED_TRACE(c.name + (", button " + std::to_string(button)));
                WiringDrive drive;
                MarkChanged(9908); // the page's behind the dialog
                const int result = Run<Dialog>(drive, [&] {
                    Do(c.words);
                    EXPECT_EQ(drive.TakeWrites(), QStringList());
                    button ? Robot::Press(button) : Robot::CloseWindow();
                });
                const bool writes = button == kIdApply || button == kIdCloseDialog;
                EXPECT_EQ(drive.TakeWrites(), writes ? c.writes : QStringList());
                EXPECT_EQ(result, button == kIdCloseDialog ? kIdCloseDialog : kIdCancelDialog);
                EXPECT_TRUE(IsChanged(9908)) << "the page's choice is lost";
                UnmarkChanged(9908);
                EXPECT_FALSE(AnyChanged()) << "the page would take it for its own";
            }
    }

    static QListWidgetItem& Item(const QString& name) {
        const auto* list = qobject_cast<QListWidget*>(Robot::Control(kIdConnectionList));
        return *list->findItems(name, Qt::MatchExactly).at(0);
    }
    /// Opens the picker of an input, such as "DI3", and runs `script` in it; presses `button` then.
    static void InPicker(const QString& input, const std::function<void()>& script, int button = kIdCloseDialog) {
        const bool digital = input.startsWith('D');
        const int number = input.right(1).toInt();
        Robot::WhenInFront(digital ? 142 : 143, [&] {
            script();
            Robot::Press(button);
        });
        Robot::Press(digital ? DigitalId(DigitalGroup::Inputs, number, kDigitalEdit) : ChannelId(number, kChannelEdit));
    }
    /// Does what words with semicolons between them say: "1304=7" in a row, "pick DI3 Jog + Run" gives functions in the
    /// picker their other tick ("cancel" leaves it with Cancel), "source AO1 ..." chooses, "index DO1 801" and
    /// "bit DO1 3" type, "invert DI2" and "view AO1" press what is called so.
    static void Do(const QString& words) {
        for (const QString& word : words.split("; ", Qt::SkipEmptyParts)) {
            const QString verb = word.section(' ', 0, 0), terminal = word.section(' ', 1, 1),
                          rest = word.section(' ', 2);
            const bool digital = terminal.startsWith('D');
            const int number = terminal.right(1).toInt();
            const auto of = [&](DigitalControl control) {
                return DigitalId(terminal[1] == 'I' ? DigitalGroup::Inputs : DigitalGroup::Outputs, number, control);
            };
            if (verb == "pick" || verb == "cancel")
                InPicker(
                    terminal,
                    [&] {
                        for (const QString& name : rest.split(" + ", Qt::SkipEmptyParts))
                            Item(name).setCheckState(Item(name).checkState() == Qt::Checked ? Qt::Unchecked
                                                                                            : Qt::Checked);
                    },
                    verb == "pick" ? kIdCloseDialog : kIdCancelDialog);
            else if (verb == "source")
                Robot::Choose(digital ? of(kDigitalChoice) : ChannelId(number, kChannelChoice), rest);
            else if (verb == "view")
                Robot::Press(digital ? DigitalId(DigitalGroup::Outputs, kDigitalView)
                                     : ChannelId(number, kChannelView));
            else if (verb == "invert")
                Robot::Press(of(kDigitalInvert));
            else if (verb == "index" || verb == "bit")
                Robot::TypeOnly(of(verb == "bit" ? kDigitalBit : kDigitalIndex), rest);
            else
                Robot::Enter(ValueId(word.section('=', 0, 0).toUShort()), word.section('=', 1));
        }
    }

    CSteppedClock m_clock; // or a busy machine would come to the refresh before the script
    ClockScope m_clockScope{m_clock};
    CModuleResources m_resources;
    ResourceScope m_scope{m_resources};
    MessageBoxes m_boxes;
};

} // namespace krt550
