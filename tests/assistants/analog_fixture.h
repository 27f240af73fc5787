#pragma once

#include "tests/support/fake_drive.h"
#include "tests/support/message_boxes.h"
#include "tests/support/robot.h"
#include "tests/support/wizard_files.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/platform/dialog.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/module_resources.h"
#include "wizard/texts/wizard_directory.h"

#include <QListWidget>
#include <QPointer>
#include <QTimer>

namespace krt550 {

inline const WizardFiles& AnalogFiles() {
    static const WizardFiles files("UPDATE\t101\t5\nUPDATE\t102\t5\nTOOLTIP\t1501\tSignal at AO1\n"
                                   "AI\t1101\t201\t1\t2\t3\t4\t0\tReference 1\n"
                                   "AI\t2503\t208\t1\t2\t3\t4\t0\tTorque reference\n"
                                   "AI\t3104\t123\t\t1\t2\t\t0\tMotor temperature, PTC\n"
                                   "AI\t3104\t123\t\t3\t4\t\t0\tMotor temperature, Pt100\n"
                                   "AO\t0\tNot connected\nAO\t104\tSpeed actual\nAO\t107\tMotor torque filtered\n");
    return files;
}

/// Every parameter that the two dialogs ask for, without the ones in `missing`.
inline std::vector<ParameterDescription> AnalogParameters(const std::set<quint16>& missing = {}) {
    std::vector<ParameterDescription> all = {
        Number(229, "Speed scaling", 0, 0, 0, "rpm"),       Number(201, "Reference 1", 0, -10000, 10000, "rpm"),
        Number(208, "Torque reference", 0, -400, 400, "%"), Number(123, "Motor temperature", 0, -50, 300, "C"),
        Number(1101, "Reference 1 selector", 0, 0, 7),      Number(2503, "Torque reference selector", 0, 0, 7),
        Number(3104, "Temperature input", 0, 0, 4)};
    for (const quint16 terminal : std::initializer_list<quint16>{503, 504, 505, 506, 511, 512})
        all.push_back(Number(terminal, "value at terminals", 2, -11, 11, "V"));
    for (const quint16 first : std::initializer_list<quint16>{1301, 1305, 1309, 1313}) {
        for (const quint16 offset : std::initializer_list<quint16>{0, 1, 3})
            all.push_back(Number(quint16(first + offset), "setting", 0, -11000, 11000, "mV"));
        all.push_back(List(quint16(first + 2), "mode", {{0, "-10 V to 10 V"}, {1, "0 V to 10 V"}, {2, "2 V to 10 V"}}));
    }
    for (const quint16 first : std::initializer_list<quint16>{1501, 1506}) {
        for (const quint16 offset : std::initializer_list<quint16>{0, 3, 4})
            all.push_back(Number(quint16(first + offset), "setting", 0, 0, 10000, "mV"));
        all.push_back(List(quint16(first + 2), "mode", {{0, "-10 V to 10 V"}, {1, "0 V to 10 V"}}));
    }
    std::erase_if(all, [&](const ParameterDescription& parameter) { return missing.contains(parameter.reg); });
    return all;
}

inline constexpr int kAnalogApply = kIdApply;
inline constexpr int kAnalogCancel = kIdCancelDialog;
inline constexpr int kAnalogClose = kIdCloseDialog;

class AnalogDrive : public FakeDrive {
public:
    explicit AnalogDrive(const std::set<quint16>& missing = {}) : FakeDrive(AnalogParameters(missing)) {
        words[1101] = 1; // Reference 1 from AI1
        words[1501] = 104;
        words[1506] = 0;
        words[229] = 1750;
    }
    QStringList TakeWrites() { return TakeLog(QStringList{"write"}); }
};

/// The two dialogs in front of a drive of words.
class AnalogFixture : public testing::Test {
protected:
    AnalogFixture() { SetWizardDirectory(AnalogFiles().Directory()); }

    /// Shows the dialog on `drive` and runs `script` in it; what is open afterwards is cancelled. The result is
    /// DoModal's.
    template <class Dialog> int Run(AnalogDrive& drive, const std::function<void()>& script) {
        ClearUpdateList(); // as a page does that comes to the front
        Dialog dialog;
        dialog.SetParameterRoot(drive.hasRoot ? &drive.Root() : nullptr);
        WhenOpen(dialog.GetLayoutNumber(), [&] {
            loading = drive.TakeLog();
            script();
            if (Robot::Layout() == dialog.GetLayoutNumber())
                Robot::Press(kAnalogCancel);
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

    /// Opens the picker of an input, gives each of these functions its other tick, and presses OK or Cancel.
    void Pick(int input, const QStringList& toggled, int button = kAnalogClose) {
        WhenOpen(143, [&] {
            auto* list = qobject_cast<QListWidget*>(Robot::Control(kIdConnectionList));
            for (const QString& name : toggled)
                for (QListWidgetItem* item : list->findItems(name, Qt::MatchExactly))
                    item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
            Robot::Press(button);
        });
        Robot::Press(ChannelId(input, kChannelEdit));
    }

    /// Lets the timer refresh the values a few times; false when it does not run.
    bool WaitForRefresh(AnalogDrive& drive) {
        drive.TakeLog();
        int seen = 0;
        return Robot::WaitUntil([&] { return (seen += int(drive.TakeLog({"read 229"}).size())) > 2; });
    }

    QStringList loading; ///< calls of the drive until the dialog was in front

    CModuleResources m_resources;
    ResourceScope m_scope{m_resources};
    MessageBoxes m_boxes;
    QObject m_context;
};

} // namespace krt550
