// The gate: what happens between two steps of a start decides whether the next one happens.
#include "tests/motor/motor_fixture.h"
#include "tests/support/test_window.h"

namespace krt550 {
namespace {

using Gate = MotorFixture;

// Aborted at any moment, in a call or by an event that comes meanwhile, nothing makes the drive more alive afterwards,
// and nothing is asked but what the way out asks.
TEST_F(Gate, LetsNothingThroughOnceNobodyWantsTheRun) {
    const QStringList alive = {"write 9906=1", "take local control", "close contactor", "start motor", "read 801"};
    drive.words[801] = 1;
    for (const bool byEvent : {false, true})
        for (int n = 1;; ++n) {
            int calls = 0;
            bool aborted = false;
            QStringList afterwards;
            {
                CMotorRun run(drive, drive.Mode());
                drive.onCall = [&](const QString& call) {
                    if (aborted && alive.contains(call))
                        afterwards.append(call);
                    if (++calls != n)
                        return;
                    aborted = true;
                    if (byEvent)
                        QMetaObject::invokeMethod(qApp, AbortMotorRun, Qt::QueuedConnection);
                    else
                        run.Abort();
                };
                if (run.IsPermitted() && run.Start(1, 200))
                    run.Wait(50);
            }
            EXPECT_EQ(afterwards, QStringList()) << "aborted in call " << n;
            EXPECT_FALSE(drive.localControl) << n;
            EXPECT_EQ(drive.words[9906], 0) << n;
            drive.onCall = {};
            QCoreApplication::sendPostedEvents();
            if (!aborted)
                break;
        }
}

// Input comes before timers: what has fallen due waits for the end of a cycle, and for whoever wants out.
TEST_F(Gate, ServesTimersAfterACycleOnly) {
    int ticks = 0;
    CTestWindow window;
    window.onTimer = [&] { ++ticks; };
    window.SetTimer(1, 10);
    auto run = Turn();
    clock.Sleep(100);
    EXPECT_TRUE(run->Look());
    EXPECT_TRUE(run->Wait(50));
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(run->PassCycle(50));
    EXPECT_EQ(ticks, 1) << "once, however often it fell due";
    clock.Sleep(20);
    QMetaObject::invokeMethod(qApp, AbortMotorRun, Qt::QueuedConnection);
    EXPECT_FALSE(run->PassCycle(0));
    EXPECT_EQ(ticks, 1);
    run.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(ticks, 2) << "when the event loop is back";
    window.KillAllTimers();
}

TEST_F(Gate, SeesTheAbortWhileTimePasses) {
    CMotorRun run(drive, drive.Mode());
    CClockTimer click([&] { run.Abort(); });
    click.StartOnce(120);
    EXPECT_FALSE(run.Start(1, 200));
    EXPECT_EQ(clock.Now(), 120) << "at once, not at the end of the wait";
    EXPECT_FALSE(drive.TakeLog().contains("start motor"));
}

TEST_F(Gate, AdmitsOneRunAtATime) {
    {
        CMotorRun asks(drive, drive.Mode());
        EXPECT_TRUE(asks.IsWanted());
        EXPECT_FALSE(CMotorRun(drive, drive.Mode()).IsWanted());
    }
    const auto first = Turn();
    CMotorRun second(drive, drive.Mode());
    EXPECT_FALSE(second.IsWanted());
    EXPECT_FALSE(second.Start(1, 0));
    EXPECT_EQ(drive.TakeLog(), QStringList());
    EXPECT_TRUE(first->IsWanted());
}

TEST_F(Gate, KeepsBoxesBackUntilTheMotorStands) {
    const auto run = Turn();
    ShowMessageBox("kept", MessageIcon::Stop);
    ShowMessageBox("kept", MessageIcon::Stop);
    EXPECT_FALSE(ShowMessageBox("asked", MessageIcon::Exclamation, MessageButtons::OkCancel));
    drive.unreadable = {801};
    EXPECT_FALSE(run->Read(drive.Root().FindChildByRegister("801")));
    boxes.Expect("kept").Then([&](QMessageBox&) { EXPECT_FALSE(drive.localControl); });
    boxes.Expect("Reading parameter 8.01 Status failed: simulated failure");
    run->MakeSafe(ServiceModeEnd::Over);
    boxes.Verify();
}

TEST_F(Gate, HandsTextsOverAtOnceWhereThereIsAPlaceForThem) {
    QStringList told;
    CMotorRun run(drive, nullptr);
    run.TellAtOnce([&](const QString& text) { told.append(text); });
    run.TakeLocalControl();
    run.CloseContactor();
    ShowMessageBox("refused", MessageIcon::Stop);
    EXPECT_EQ(told, QStringList{"refused"});
    run.MakeSafe(ServiceModeEnd::Over);
}

} // namespace
} // namespace krt550
