// The way out: its stubbornness, and what it tells. Its order stands in the logs of the runs.
#include "tests/motor/motor_fixture.h"

namespace krt550 {
namespace {

using WayOutTest = MotorFixture;

const QString kRunningDown = "The motor is running down.*";
const QString kNotConfirmed = "THE DRIVE DOES NOT CONFIRM THE STOP.*";
const QStringList kStopSteps = {"stop motor", "open contactor", "refresh"};

QStringList Times(int n, const QStringList& steps) {
    QStringList all;
    for (int i = 0; i < n; ++i)
        all += steps;
    return all;
}

// Whatever fails: every step is tried, none of them without end, and each failure is told once, after the stop.
TEST_F(WayOutTest, TriesEveryStepAndTellsAfterTheLast) {
    const struct {
        const char* call;
        int fails; ///< how often in a row
        QStringList told;
    } cases[] = {
        {"write 9906=0", 1, {"Writing parameter 99.06 Service mode failed: simulated failure"}},
        {"write 9906=0", 99, {"Writing parameter 99.06 Service mode failed: simulated failure"}},
        {"stop motor", 1, {}},
        {"stop motor", 7, {}},
        {"refresh", 3, {}},
        {"open contactor", 2, {}},
        {"open contactor", 99, {"The drive has not opened its main contactor.*"}},
        {"release local control", 2, {}},
        {"release local control", 99, {"The drive has not taken local control back."}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.call) + " " + std::to_string(c.fails));
        const auto run = Turn();
        if (c.fails == 1) // a motor that has not begun to turn yet is no stopped one
            drive.statusWord = kStatusStopped;
        int left = c.fails;
        drive.fails = [&](const QString& call) { return call == QLatin1String(c.call) && left-- > 0; };
        for (const QString& text : c.told)
            boxes.Expect(text).Then([&](QMessageBox&) { EXPECT_EQ(drive.statusWord, kStatusStopped); });
        MakeSafe(&drive, {.serviceMode = drive.Mode()});
        run->MakeSafe(ServiceModeEnd::Over);
        boxes.Verify();
        const QStringList log = drive.TakeLog();
        EXPECT_GE(log.count("stop motor"), QLatin1String(c.call) == "stop motor" ? 2 : 1);
        for (const char* step : {"stop motor", "open contactor", "release local control"})
            EXPECT_TRUE(log.contains(QLatin1String(step))) << step;
        EXPECT_EQ(log.last(), left < 0 || c.fails < 99 ? "release local control" : log.last());
        drive.fails = {};
        drive.localControl = false;
        drive.words[9906] = 0;
    }
}

TEST_F(WayOutTest, RepeatsTheStopUntilTheDriveConfirmsIt) {
    const auto run = Turn();
    drive.looksToStand = 5;
    const qint64 began = clock.Now();
    EXPECT_TRUE(run->MakeSafe(ServiceModeEnd::Over));
    EXPECT_EQ(clock.Now() - began, 5 * 250);
    EXPECT_EQ(drive.TakeLog(), Times(6, kStopSteps) + QStringList{"release local control"})
        << "nothing else is asked, and control stays until the motor stands";
}

TEST_F(WayOutTest, PointsToTheEStopAfterTwoSecondsAndGoesOnBehindTheBox) {
    for (const bool answers : {true, false}) {
        const auto run = Turn();
        drive.looksToStand = 20;
        int refused = 20;
        drive.fails = [&](const QString& call) { return !answers && call == "stop motor" && refused-- > 0; };
        qint64 shown = -1;
        const qint64 began = clock.Now();
        boxes.Expect(answers ? kRunningDown : kNotConfirmed).Then([&](QMessageBox& box) {
            shown = clock.Now() - began;
            EXPECT_TRUE(box.text().contains("E-stop", Qt::CaseInsensitive));
        });
        EXPECT_TRUE(run->MakeSafe(ServiceModeEnd::Over));
        EXPECT_EQ(shown, 2000);
        boxes.Verify();
        EXPECT_FALSE(qApp->activeModalWidget()) << "the box goes with the stop";
        EXPECT_FALSE(drive.localControl);
        drive.fails = {};
    }
}

TEST_F(WayOutTest, EndsWithSomebodyElseInControl) {
    const auto run = Turn();
    drive.looksToStand = 9999;
    drive.onCall = [this, looks = 0](const QString& call) mutable {
        if (call == "refresh" && ++looks == 3)
            drive.localControl = false;
    };
    EXPECT_TRUE(run->MakeSafe(ServiceModeEnd::Over));
    EXPECT_EQ(drive.TakeLog(), Times(3, kStopSteps)) << "not ours any more: nothing is given back";
}

// With the window closed the wait has an end, and then the wizard is silent: the drive stops by itself.
TEST_F(WayOutTest, FallsSilentWhenTheLinkStaysDead) {
    const auto run = Turn();
    drive.fails = [](const QString&) { return true; };
    boxes.Expect(kNotConfirmed).Then([](QMessageBox&) { EndMotorSession(); });
    EXPECT_FALSE(run->MakeSafe(ServiceModeEnd::First));
    EXPECT_GE(clock.Now(), 25000);
    EXPECT_LE(clock.Now(), 30000);
    drive.TakeLog();
    MakeSafe(&drive, {.serviceMode = drive.Mode()});
    run->MakeSafe(ServiceModeEnd::First);
    EXPECT_EQ(drive.TakeLog(), QStringList());
    EXPECT_TRUE(drive.localControl) << "never given back over a motor that may turn";
}

} // namespace
} // namespace krt550
