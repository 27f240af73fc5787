// The main window on the simulated drive, on the stepped clock: whichever way somebody wants the motor to stop, or
// leaves it, the stop is sent first.
#include "drive/registers.h"
#include "host/connected_drive.h"
#include "host/session.h"
#include "host/workbench/connect_form.h"
#include "host/workbench/motor_commands.h"
#include "host/workbench/stop_strip.h"
#include "host/workbench/tuning_dialog.h"
#include "host/workbench/workbench.h"
#include "modbus/register_map.h"

#include <QDockWidget>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace krt550 {
namespace {

class Workbench : public testing::Test {
protected:
    Workbench() { QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_directory.path()); }

    /// Does `work` in a main window with the simulated drive.
    void Run(const std::function<void(CWorkbench&)>& work) {
        ToolOptions options;
        options.recordFile = QStringLiteral("none");
        options.logFile = m_directory.filePath(QStringLiteral("log"));
        const int status = CSession(options).Run([&work](CSession& session) {
            CSteppedClock clock;
            const ClockScope scope(clock);
            CWorkbench bench(session);
            bench.show();
            EXPECT_EQ(bench.Connect(QStringLiteral("sim")), QString());
            work(bench);
            bench.EndFromOutside();
            WaitUntil([&bench] { return !bench.isVisible(); });
            EXPECT_TRUE(bench.HasGoneWell());
            return 0;
        });
        EXPECT_EQ(status, 0);
    }

    static void WaitUntil(const std::function<bool()>& isSo) {
        const qint64 end = CClock::Current().Now() + 60'000;
        while (!isSo() && CClock::Current().Now() < end)
            CClock::Current().WaitForEvents(10);
        EXPECT_TRUE(isSo());
    }

    static QPushButton* Button(const QWidget& window, const QString& text) {
        for (QPushButton* button : window.findChildren<QPushButton*>())
            if (button->text().remove(u'&') == text)
                return button;
        return nullptr;
    }

    /// By the buttons of the drive panel, up to 100 rpm.
    static void TurnMotor(CWorkbench& bench) {
        for (const char* step : {"Take local control", "Close contactor", "Start"}) {
            QPushButton* button = Button(bench, QString::fromLatin1(step));
            const bool isDone = Has(bench, *step == 'T' ? wire_status::kLocalControl : wire_status::kContactorClosed);
            if (isDone && *step != 'S')
                continue;
            WaitUntil([button] { return button->isEnabled(); });
            bench.findChild<QLineEdit*>()->setText(QStringLiteral("500"));
            button->click();
        }
        WaitUntil([&bench] { return Speed(bench) > 100; });
    }
    static int Speed(CWorkbench& bench) {
        return bench.ConnectedDrive()->Connection().PeekWord(DriveSide::Own, reg::kSpeed).value_or(0);
    }
    static bool Has(CWorkbench& bench, quint32 bit) {
        return bench.ConnectedDrive()->PlainDrive().GetStatusWord() & bit;
    }
    static bool Stands(CWorkbench& bench) { return Has(bench, wire_status::kStopped); }

    /// Changes from the last start on, each with its time.
    std::vector<std::pair<QString, qint64>> Calls() const {
        QFile file(m_directory.filePath(QStringLiteral("log")));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        std::vector<std::pair<QString, qint64>> calls;
        for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
            const QStringList parts = line.split(u'\t');
            if (parts[1] == QLatin1String("StartMotor"))
                calls.clear();
            for (const char* change : {"WriteWord", "StopMotor", "OpenContactor", "ReleaseLocalControl"})
                if (parts[1] == QLatin1String(change))
                    calls.emplace_back(parts[1] + parts[2], parts[0].toLongLong());
        }
        return calls;
    }

    void ExpectStopFirst() const {
        const auto calls = Calls();
        ASSERT_GE(calls.size(), 2U);
        EXPECT_EQ(calls[0].first, QLatin1String("WriteWord9906"));
        EXPECT_EQ(calls[1].first, QLatin1String("StopMotor"));
    }

    QTemporaryDir m_directory;
};

TEST_F(Workbench, EscapeAndTheStripStopFromEverywhere) {
    const auto escape = [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); };
    Run([&](CWorkbench& bench) {
        TurnMotor(bench);
        QTest::keyClick(bench.findChild<QLineEdit*>(), Qt::Key_Escape);
        WaitUntil([&] { return Stands(bench); });
        ExpectStopFirst();
        TurnMotor(bench);
        QTimer::singleShot(0, escape);
        bench.OpenConnectDialog();
        WaitUntil([&] { return Stands(bench); });
        ExpectStopFirst();
        CMotorCommands hand;
        hand.SetDrive(bench.ConnectedDrive());
        QTimer::singleShot(0, &bench, [&] {
            // As a run of the wizard has the motor turn.
            hand.TakeControl();
            hand.CloseContactor();
            EXPECT_EQ(hand.Start(QStringLiteral("300")), QString());
            WaitUntil([&] { return Speed(bench) > 100; });
            QWidget* wizard = QApplication::activeModalWidget();
            QTest::keyClick(bench.findChild<QLineEdit*>(), Qt::Key_Escape); // the wizard's own key now
            EXPECT_EQ(Calls().size(), 0U);
            QWindow* strip = nullptr;
            for (QWindow* window : QGuiApplication::topLevelWindows())
                if (window->isVisible() && window->title() == QLatin1String("Stop the motor"))
                    strip = window;
            ASSERT_TRUE(strip);
            QTest::mousePress(strip, Qt::LeftButton, {}, {strip->width() / 2, strip->height() / 3});
            ExpectStopFirst();
            WaitUntil([&] { return Stands(bench); });
            EXPECT_EQ(hand.ReleaseControl(), QString());
            wizard->close();
        });
        bench.OpenWizard();
    });
}

TEST_F(Workbench, LeavesNoTurningMotor) {
    const std::function<void(CWorkbench&)> ways[] = {
        [](CWorkbench& bench) { bench.Leave(); },
        [](CWorkbench& bench) { bench.close(); },
        [](CWorkbench& bench) { bench.EndFromOutside(); },
        [](CWorkbench& bench) { EXPECT_EQ(bench.Connect(QStringLiteral("sim:S1")), QString()); },
    };
    for (const auto& way : ways) {
        Run([&](CWorkbench& bench) {
            TurnMotor(bench);
            const QString before = bench.windowTitle();
            way(bench);
            WaitUntil([&] { return bench.windowTitle() != before; });
        });
        ExpectStopFirst();
        const auto calls = Calls();
        ASSERT_GE(calls.size(), 4U);
        EXPECT_EQ(calls.back().first, QLatin1String("ReleaseLocalControl"));
        EXPECT_EQ(calls[calls.size() - 2].first, QLatin1String("OpenContactor"));
        EXPECT_GT(calls.back().second, calls.front().second + 1000) << "it did not wait for standstill";
    }
}

TEST_F(Workbench, AsksForADriveInWords) {
    CConnectForm form({QStringLiteral("modbus-tcp:there:5")});
    QString error;
    EXPECT_EQ(form.Name(error), QLatin1String("modbus-tcp:there:5"));
    for (const char* name : {"sim:S3,feedback=tacho", "modbus-tcp:10.0.0.7:1502,unit=3", "modbus-tcp:[::1]:502",
                             "modbus-rtu:/dev/ttyUSB1,57600,8N2,unit=9"}) {
        form.SetName(QString::fromLatin1(name));
        EXPECT_EQ(form.Name(error), QLatin1String(name));
    }
    Run([](CWorkbench& bench) {
        const struct {
            const char* name;
            const char* text;
            bool isWrong;
        } cases[] = {{"sim:S9", "S9", true},
                     {"modbus-tcp:127.0.0.1:1", "no connection", false},
                     {"modbus-tcp:no.such.host.invalid:502", "no.such.host.invalid", true},
                     {"modbus-rtu:/dev/none,19200,8E1", "/dev/none", false}};
        for (const auto& c : cases) {
            bool isWrong = false;
            const QString text = bench.Connect(QString::fromLatin1(c.name), &isWrong);
            EXPECT_TRUE(text.contains(QLatin1String(c.text))) << text.toStdString();
            EXPECT_EQ(isWrong, c.isWrong) << c.name;
            EXPECT_FALSE(bench.ConnectedDrive());
        }
    });
}

TEST_F(Workbench, StartsBehindOneGateOnly) {
    Run([](CWorkbench& bench) {
        CMotorCommands hand;
        EXPECT_EQ(hand.Reset(), QLatin1String("No drive is connected."));
        hand.SetDrive(bench.ConnectedDrive());
        EXPECT_EQ(hand.Start(QStringLiteral("100")), QLatin1String("Take local control first."));
        EXPECT_EQ(hand.TakeControl(), QString());
        EXPECT_EQ(hand.Start(QStringLiteral("100")), QLatin1String("Close the contactor first."));
        EXPECT_EQ(hand.CloseContactor(), QString());
        for (const auto& [text, complaint] :
             {std::pair("1751", "20.02"), {"-1750.5", "20.01"}, {"fast", "not a speed"}, {"", "not a speed"}})
            EXPECT_TRUE(hand.Start(QString::fromLatin1(text)).contains(QLatin1String(complaint))) << text;
        EXPECT_TRUE(Stands(bench));
        EXPECT_EQ(hand.Start(QStringLiteral("300,5")), QString());
        WaitUntil([&bench] { return Speed(bench) > 100; });
        EXPECT_TRUE(hand.ReleaseControl().startsWith(QLatin1String("Stop the motor first")));
        EXPECT_TRUE(hand.OpenContactor().startsWith(QLatin1String("Stop the motor first")));
    });
}

TEST_F(Workbench, FindsItsDocksWhereTheyWere) {
    for (const bool isFirst : {true, false})
        Run([isFirst](CWorkbench& bench) {
            auto* dock = bench.findChild<QDockWidget*>(QStringLiteral("drive"));
            EXPECT_EQ(dock->isFloating(), !isFirst);
            dock->setFloating(true);
        });
}

TEST_F(Workbench, GivesControllerParametersTheirOldValuesBack) {
    Run([](CWorkbench& bench) {
        CConnectedDrive& drive = *bench.ConnectedDrive();
        const auto gain = [&] { return drive.Connection().PeekWord(DriveSide::Own, reg::kSpeedGain).value_or(0); };
        CTuningWatch watch;
        watch.Begin(drive, drive.Parameters());
        const quint16 before = gain();
        drive.Link().WriteWord(reg::kSpeedGain, quint16(before + 7));
        drive.Link().WriteWord(reg::kSpeedMaximum, 1500); // no controller's
        const std::vector<ValueChange> changes = watch.Changes(drive);
        ASSERT_EQ(changes.size(), 1U);
        CTuningDialog dialog(drive, drive.Parameters(), changes, &bench);
        dialog.show();
        Button(dialog, QStringLiteral("Restore marked"))->click();
        WaitUntil([&] { return Button(dialog, QStringLiteral("Close")) != nullptr; });
        EXPECT_EQ(gain(), before);
    });
}

} // namespace
} // namespace krt550
