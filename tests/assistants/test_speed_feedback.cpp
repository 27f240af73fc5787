// Step 5: the test, the fine tuning and every way out of them, asserted by the drive calls.
#include "tests/assistants/speed_feedback_fixture.h"
#include "tests/support/application_end.h"

#include <QApplication>
#include <QTabBar>
#include <QTest>
#include <QTimer>

namespace krt550 {
namespace {

const QString kAdapted = "Speed feedback was adapted to:\n";
const QString kOffer = kAdapted + "Analogue tacho\n\nIt is recommended to fine tune the tacho.\nDo You want to fine "
                                  "tune the tacho? ";
const QString kInstructions = "Fine tuning procedure:*";
const QString kFinished = "Fine tuning procedure finished";

const QStringList kPermission = {"refresh", "read 801", "take local control", "refresh", "release local control",
                                 "refresh"};
const QStringList kLaunch = {"write 9906=5", "refresh", "take local control", "close contactor", "start motor"};
const QStringList kLooks = {"read 424", "read 424", "read 424"};
const QStringList kJudge = {"read 5003", "read 911"};
const QStringList kStop = {"stop motor", "open contactor", "refresh", "read 9906"};
const QStringList kRelease = {"release local control"};
const QStringList kTune = {"write 9906=14", "refresh", "close contactor", "start motor"};

class SpeedFeedback : public SpeedFeedbackFixture {
protected:
    /// Begins the fine tuning; what happens during it is up to m_drive.onTuning.
    void FineTune() {
        m_drive.found = 2;
        m_boxes.Expect(kRunsUp).WithIcon(QMessageBox::Warning);
        m_boxes.Expect(kOffer).WithIcon(QMessageBox::Warning);
        m_boxes.Expect(kInstructions).WithIcon(QMessageBox::Warning);
        Robot::Press(kIdAutotuningStart);
    }
};

TEST_F(SpeedFeedback, FindsEncoderOrEmfAndLeavesItsRowsToEdit) {
    const struct {
        quint16 found;
        const char* name;
        std::vector<quint16> enabled;
        std::vector<quint16> disabled;
        QStringList more;
    } cases[] = {{1, "Pulse encoder\n\n", {5003, 5004, 5002}, {9902, 9904, 5013, 5012}, {"read 5004"}},
                 {0, "EMF\n\n", {9902, 9904}, {5003, 5004, 5002, 5013, 5012}, {}}};
    for (const auto& c : cases) {
        SetStepState(5, StepState::NotChosen);
        OnPage([&] {
            m_drive.found = c.found;
            m_boxes.Expect(kRunsUp).WithIcon(QMessageBox::Warning);
            m_boxes.Expect(kAdapted + c.name).WithIcon(QMessageBox::Warning).Then([&](QMessageBox&) { ExpectSafe(); });
            m_drive.onLook = [](int) {
                for (const int id : {int(kIdAutotuningStart), kNext, kBack})
                    EXPECT_FALSE(Robot::IsEnabled(id)) << id;
            };
            const qint64 before = m_clock.Now();
            Robot::Press(kIdAutotuningStart);
            EXPECT_EQ(Calls(), kPermission + kLaunch + kLooks + kJudge + kStop + kRelease + c.more);
            EXPECT_EQ(m_clock.Now() - before, 200 + 3 * 50);
            for (const quint16 reg : c.enabled)
                EXPECT_TRUE(Enabled(reg)) << reg;
            for (const quint16 reg : c.disabled)
                EXPECT_FALSE(Enabled(reg)) << reg;
            EXPECT_TRUE(IsDone());
            EXPECT_EQ(Robot::Text(ValueId(5003)), c.found ? "Encoder" : "EMF");
            EXPECT_FALSE(Robot::IsEnabled(kIdAutotuningDiagnosis));
            for (const int id : {int(kIdAutotuningStart), kNext, kBack})
                EXPECT_TRUE(Robot::IsEnabled(id)) << id;
        });
    }
}

TEST_F(SpeedFeedback, TachoWithoutFineTuningIsDoneToo) {
    for (const bool atOnce : {true, false}) {
        SetStepState(5, StepState::NotChosen);
        OnPage([&] {
            m_drive.found = 2;
            m_boxes.Expect(kRunsUp);
            m_boxes.Expect(kOffer, atOnce ? Answer::Cancel : Answer::Ok).Then([&](QMessageBox&) {
                EXPECT_EQ(m_drive.statusWord, kStatusStopped);
                EXPECT_TRUE(m_drive.localControl) << "stays for the fine tuning";
            });
            if (!atOnce)
                m_boxes.Expect(kInstructions, Answer::Cancel);
            Robot::Press(kIdAutotuningStart);
            EXPECT_EQ(Calls(), kPermission + kLaunch + kLooks + kJudge + kStop + Stop());
            EXPECT_TRUE(IsDone());
            ExpectSafe();
            EXPECT_TRUE(Enabled(5012));
            EXPECT_FALSE(Enabled(5004));
            EXPECT_EQ(Robot::Text(kIdAutotuningStart), "Start");
        });
    }
}

TEST_F(SpeedFeedback, FineTuningTakesTheHandHeldSpeedUntilFinish) {
    OnPage([&] {
        m_drive.onTuning = [&](int look) {
            if (look == 2) {
                EXPECT_EQ(Calls(), kPermission + kLaunch + kLooks + kJudge + kStop + kTune +
                                       QStringList({"read 424", "read 424"}));
                EXPECT_EQ(Robot::Text(kIdAutotuningStart), "Finish");
                EXPECT_TRUE(Robot::IsEnabled(kIdAutotuningStart));
                EXPECT_TRUE(Robot::IsEnabled(kNext));
                QTimer::singleShot(0, qApp, [&] {
                    Robot::Type(ValueId(5012), "1480");
                    Robot::Press(kApply);
                });
            }
            if (look == 5) {
                EXPECT_EQ(m_drive.words[5012], 1480);
                EXPECT_TRUE(Robot::IsEnabled(kIdAutotuningStart)) << "Apply leaves Finish alone";
                Calls();
                m_boxes.Expect(kFinished).WithIcon(QMessageBox::Warning).Then([&](QMessageBox&) { ExpectSafe(); });
                QTimer::singleShot(0, qApp, [] { Robot::Press(kIdAutotuningStart); });
            }
        };
        FineTune();
        EXPECT_EQ(Calls(), kStop + kRelease);
        EXPECT_TRUE(IsDone());
        EXPECT_EQ(Robot::Text(kIdAutotuningStart), "Start");
    });
}

// The motor takes its time to stand; somebody presses Finish again meanwhile, or Cancel, which has the last word.
TEST_F(SpeedFeedback, FinishIsOneAlsoWhileTheMotorRunsDown) {
    for (const int pressed : {int(kIdAutotuningStart), kCancel}) {
        const bool cancelled = pressed == kCancel;
        SetStepState(5, StepState::NotChosen);
        OnPage([&] {
            int looksLeft = -1;
            m_drive.onCall = [&](const QString& call) {
                if (call == "refresh" && looksLeft > 0) {
                    m_drive.statusWord = --looksLeft > 0 ? 0 : kStatusStopped;
                    if (looksLeft == 2)
                        QTimer::singleShot(0, qApp, [&] { Robot::Press(pressed); });
                }
            };
            m_drive.onTuning = [&](int look) {
                if (look != 2)
                    return;
                looksLeft = 4;
                if (!cancelled)
                    m_boxes.Expect(kFinished);
                QTimer::singleShot(0, qApp, [] { Robot::Press(kIdAutotuningStart); });
            };
            FineTune();
            Robot::Drain();
            m_boxes.Verify();
            EXPECT_EQ(Robot::Layout(), cancelled ? 107 : 110);
            EXPECT_EQ(IsDone(), !cancelled);
            ExpectSafe();
            m_drive.onTuning = nullptr;
            m_drive.onCall = nullptr;
        });
    }
}

TEST_F(SpeedFeedback, TachoModeSettlesForASecondBeforeTheMotorStarts) {
    OnPage([&] {
        qint64 written = 0;
        qint64 started = 0;
        m_drive.onCall = [&](const QString& call) {
            if (call == "write 9906=14")
                written = m_clock.Now();
            if (call == "start motor")
                started = m_clock.Now();
        };
        m_drive.tuningAt = 101; // the drive ends it at once
        m_drive.found = 2;
        for (const QString& box : {kRunsUp, kOffer, kInstructions, kFinished})
            m_boxes.Expect(box);
        Robot::Press(kIdAutotuningStart);
        EXPECT_EQ(started - written, 1000);
        m_drive.onCall = nullptr;
    });
}

TEST_F(SpeedFeedback, FineTuningEndsByEveryWayOffThePage) {
    const struct {
        const char* name;
        std::function<void()> leave;
        bool finishes; ///< with a box, and the step done
        int layout;    ///< in front afterwards, 0 none
    } cases[] = {
        {"next", [] { Robot::Press(kNext); }, true, 107},          {"back", [] { Robot::Press(kBack); }, true, 107},
        {"cancel", [] { Robot::Press(kCancel); }, true, 107},      {"close", [] { Robot::CloseWindow(); }, false, 0},
        {"application's end", [] { EndApplication(); }, false, 0},
    };
    for (const auto& c : cases) {
        SetStepState(5, StepState::NotChosen);
        OnPage([&] {
            m_drive.onTuning = [&](int look) {
                if (look != 2)
                    return;
                if (c.finishes)
                    m_boxes.Expect(kFinished);
                QTimer::singleShot(0, qApp, c.leave);
            };
            FineTune();
            m_boxes.Verify();
            EXPECT_EQ(Robot::Front() ? Robot::Layout() : 0, c.layout) << c.name;
        });
        ExpectSafe();
        RestartApplication();
        EXPECT_EQ(m_drive.TakeLog({"stop motor"}).count(), 2) << c.name << ": after the test, then at the end";
    }
}

TEST_F(SpeedFeedback, CancelInTheConfirmationEndsTheServiceMode) {
    OnPage([&] {
        m_boxes.Expect(kRunsUp, Answer::Cancel);
        Robot::Press(kIdAutotuningStart);
        EXPECT_EQ(Calls(), QStringList({"write 9906=0"}));
        EXPECT_TRUE(Robot::IsEnabled(kIdAutotuningStart));
    });
}

TEST_F(SpeedFeedback, FailuresStopTheMotorBeforeTheyAreTold) {
    const QStringList report = {"read 911", "read fault buffer", "write 9906=0"};
    const QString failed = " failed: simulated failure";
    const struct {
        const char* name;
        std::function<void()> prepare;
        QStringList boxes;
        QStringList calls;
        bool done;
    } cases[] = {
        {"denied", [&] { m_drive.words[801] = 4; }, {kDenied}, kPermission.mid(0, 2), false},
        {"mode refused",
         [&] { m_drive.unwritable = {9906}; },
         {"Writing parameter 99.06 Service mode" + failed, FailureText("No message"),
          "Writing parameter 99.06 Service mode" + failed},
         kPermission + QStringList{"write 9906=5"} + EndMode() + QStringList{"read 9906"} + report,
         false},
        {"diagnosis",
         [&] { m_drive.outcome = 71; },
         {FailureText("Encoder signal missing")},
         kPermission + kLaunch + kLooks + kJudge + kStop + kRelease + report,
         false},
        {"feedback unreadable",
         [&] { m_drive.onLook = [&](int) { m_drive.unreadable = {5003}; }; },
         {"Reading parameter 50.03 Feedback" + failed, FailureText("No message")},
         kPermission + kLaunch + kLooks + kJudge + kStop + kRelease + report,
         false},
        {"progress unreadable",
         [&] { m_drive.onLook = [&](int) { m_drive.unreadable = {424}; }; },
         {"Reading parameter 4.24 Parameter 424" + failed, kAdapted + "EMF\n\n", FailureText("No message")},
         kPermission + kLaunch + kLooks.mid(0, 1) + EndMode() + Stop() + kJudge + report,
         true},
    };
    for (const auto& c : cases) {
        SetStepState(5, StepState::NotChosen);
        m_drive.words[5003] = 0;
        OnPage([&] {
            m_drive.found = 1;
            m_drive.outcome = 0;
            m_drive.onLook = nullptr;
            c.prepare();
            m_boxes.Expect(kRunsUp);
            for (const QString& box : c.boxes)
                m_boxes.Expect(box).Then([&](QMessageBox&) { EXPECT_EQ(m_drive.statusWord, kStatusStopped); });
            Robot::Press(kIdAutotuningStart);
            EXPECT_EQ(Calls(), c.calls) << c.name;
            m_boxes.Verify();
            EXPECT_EQ(IsDone(), c.done) << c.name;
            EXPECT_TRUE(Robot::IsEnabled(kIdAutotuningStart));
            ExpectSafe();
            m_drive.unreadable.clear();
            m_drive.unwritable.clear();
            m_drive.words[801] = 1;
            m_drive.words[911] = 0;
        });
    }
}

TEST_F(SpeedFeedback, TimeOutNamesTheProgressAfterTheMotorHasStopped) {
    OnPage([&] {
        m_drive.goal = 80;
        m_drive.found = 0;
        m_boxes.Expect(kRunsUp);
        m_boxes.Expect("Parameter 4.24 value 80\nAborting Test").Then([&](QMessageBox&) { ExpectSafe(); });
        m_boxes.Expect(kAdapted + "EMF\n\n");
        m_boxes.Expect(FailureText("No message"));
        Robot::Press(kIdAutotuningStart);
        EXPECT_EQ(Calls().count("read 424"), 5001);
    });
}

// Without anybody who finishes it: the drive does, does not answer, or does not come to an end.
TEST_F(SpeedFeedback, FineTuningThatEndsByItselfStopsTheMotorFirst) {
    const struct {
        const char* name;
        std::function<void()> prepare;
        QStringList boxes;
        bool done;
    } cases[] = {
        {"the drive ends it", [&] { m_drive.tuningAt = 101; }, {kFinished}, true},
        {"time-out", [] {}, {"Parameter 4.24 value 50\nAborting Test", FailureText("No message")}, false},
        {"no answer",
         [&] { m_drive.onTuning = [&](int) { m_drive.unreadable = {424}; }; },
         {"Reading parameter 4.24 Parameter 424 failed: simulated failure", FailureText("No message")},
         false},
    };
    for (const auto& c : cases) {
        SetStepState(5, StepState::NotChosen);
        OnPage([&] {
            m_drive.tuningAt = 50;
            m_drive.found = 2;
            m_boxes.Expect(kRunsUp);
            m_boxes.Expect(kOffer);
            m_boxes.Expect(kInstructions);
            c.prepare();
            for (const QString& box : c.boxes)
                m_boxes.Expect(box).Then([&](QMessageBox&) { ExpectSafe(); });
            Robot::Press(kIdAutotuningStart);
            m_boxes.Verify();
            EXPECT_EQ(Robot::Text(kIdAutotuningStart), "Start") << c.name;
            EXPECT_EQ(IsDone(), c.done) << c.name;
            EXPECT_EQ(m_drive.words[9906], 0) << c.name;
            ExpectSafe();
            m_drive.onTuning = nullptr;
            m_drive.unreadable.clear();
        });
    }
}

TEST_F(SpeedFeedback, RefusedTachoModeDoesNotStartTheMotor) {
    OnPage([&] {
        m_drive.onLook = [&](int look) {
            if (look == 3)
                m_drive.unwritable = {9906};
        };
        m_boxes.Expect(kRunsUp);
        m_drive.found = 2;
        m_boxes.Expect(kOffer);
        m_boxes.Expect(kInstructions);
        m_boxes.Expect("Writing parameter 99.06 Service mode failed: simulated failure");
        m_boxes.Expect(FailureText("No message"));
        m_boxes.Expect("Writing parameter 99.06 Service mode failed: simulated failure");
        Robot::Press(kIdAutotuningStart);
        m_drive.unwritable.clear();
        EXPECT_EQ(Calls().count("start motor"), 1);
        EXPECT_EQ(Robot::Text(kIdAutotuningStart), "Start");
        ExpectSafe();
    });
}

} // namespace
} // namespace krt550
