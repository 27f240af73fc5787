// The gate: what happens between two steps of a start decides whether the next one happens.
#include "tests/motor/motor_fixture.h"

#include <QTimer>

namespace krt550 {
namespace {

using Gate = MotorFixture;

const QStringList kAlive = {"write 9906=1", "take local control", "close contactor", "start motor"};

// Aborted at any moment, nothing makes the drive more alive afterwards.
TEST_F(Gate, LetsNothingThroughOnceNobodyWantsTheRun) {
    drive.words[801] = 1;
    for (int n = 1;; ++n) {
        int calls = 0;
        bool aborted = false;
        QStringList afterwards;
        {
            CMotorRun run(drive, drive.Mode());
            drive.onCall = [&](const QString& call) {
                if (aborted && kAlive.contains(call))
                    afterwards.append(call);
                if (++calls == n) {
                    run.Abort();
                    aborted = true;
                }
            };
            if (run.IsPermitted() && run.Start(1, 200))
                run.Wait(50);
        }
        EXPECT_EQ(afterwards, QStringList()) << "aborted in call " << n;
        EXPECT_FALSE(drive.localControl) << n;
        EXPECT_EQ(drive.words[9906], 0) << n;
        drive.onCall = {};
        if (!aborted)
            break;
    }
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
