// Step 5: the test, the fine tuning and every way out of them. That the drive is safe after whatever fails at whichever
// call is the fault matrix's.
#include "tests/assistants/speed_feedback_fixture.h"

namespace krt550 {
namespace {

const QString kAdapted = "Speed feedback was adapted to:\n";
const QString kOffer = kAdapted + "Analogue tacho\n\nIt is recommended to fine tune the tacho.\nDo You want to fine "
                                  "tune the tacho? ";
const QString kInstructions = "Fine tuning procedure:*";
const QString kFinished = "Fine tuning procedure finished";

const QStringList kPermission = Permission();
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
        QString editable; ///< rows of the result that are enabled afterwards
        QStringList more;
    } cases[] = {{1, "Pulse encoder\n\n", "5003 5004 5002", {"read 5004"}}, {0, "EMF\n\n", "9902 9904", {}}};
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
            const QStringList all = m_drive.TakeLog();
            EXPECT_LT(all.indexOf("read 218"), all.indexOf("read 424")) << "the speeds are shown from the start";
            EXPECT_EQ(WithoutSpeeds(all), kPermission + kLaunch + kLooks + kJudge + kStop + kRelease + c.more);
            EXPECT_EQ(m_clock.Now() - before, 200 + 3 * 50);
            for (const int reg : {5003, 5004, 5002, 9902, 9904, 5013, 5012})
                EXPECT_EQ(Enabled(quint16(reg)), c.editable.contains(QString::number(reg))) << reg;
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
            EXPECT_TRUE(IsDone());
            ExpectSafe();
            EXPECT_TRUE(Enabled(5012));
            EXPECT_FALSE(Enabled(5004));
        });
    }
}

TEST_F(SpeedFeedback, FineTuningTakesTheHandHeldSpeedUntilFinish) {
    OnPage([&] {
        qint64 written = 0;
        m_drive.onCall = [&](const QString& call) {
            if (call == "write 9906=14")
                written = m_clock.Now();
            if (call == "start motor" && m_drive.words[9906] == 14) {
                EXPECT_EQ(m_clock.Now() - written, 1000) << "the tacho mode settles before the motor starts";
            }
        };
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
        m_drive.onCall = nullptr;
    });
}

// The motor takes its time to stand; somebody presses Finish again meanwhile, or wants to the next page, which has to
// wait, or Cancel, which has the last word.
TEST_F(SpeedFeedback, FinishIsOneAlsoWhileTheMotorRunsDown) {
    for (const int pressed : {int(kIdAutotuningStart), kNext, kCancel}) {
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

// Also of a fine tuning that nobody finishes: the drive does, or does not come to an end.
TEST_F(SpeedFeedback, FailuresOfTheTestStopTheMotorBeforeTheyAreTold) {
    const QStringList report = {"read 911", "read fault buffer", "write 9906=0"};
    const QString none = FailureText("No message");
    const QStringList tested = kPermission + kLaunch + kLooks;
    const struct {
        const char* name;
        std::function<void()> prepare;
        QStringList boxes;
        QStringList calls; ///< empty: 5001 looks
        bool done = false;
    } cases[] = {
        {"denied", [&] { m_drive.words[801] = 4; }, {kDenied}, kPermission.mid(0, 2)},
        {"diagnosis",
         [&] { m_drive.outcome = 71; },
         {FailureText("Encoder signal missing")},
         tested + kJudge + kStop + kRelease + report},
        {"time-out",
         [&] {
             m_drive.goal = 80;
             m_drive.found = 0;
         },
         {"Parameter 4.24 value 80\nAborting Test", kAdapted + "EMF\n\n", none},
         {},
         true},
        {"the drive ends the fine tuning",
         [&] { m_drive.tuningAt = 101; },
         {kOffer, kInstructions, kFinished},
         {},
         true},
        {"fine tuning without end",
         [&] { m_drive.tuningAt = 50; },
         {kOffer, kInstructions, "Parameter 4.24 value 50\nAborting Test", none},
         {}},
    };
    OnPage([&] {
        m_boxes.Expect(kRunsUp, Answer::Cancel);
        Robot::Press(kIdAutotuningStart);
        EXPECT_EQ(Calls(), QStringList({"write 9906=0"})) << "not confirmed";
    });
    for (const auto& c : cases) {
        SetStepState(5, StepState::NotChosen);
        m_drive.words[5003] = 0;
        OnPage([&] {
            const bool tunes = c.boxes.contains(kOffer);
            m_drive.found = tunes ? 2 : 1;
            m_drive.goal = 81;
            m_drive.outcome = 0;
            c.prepare();
            m_boxes.Expect(kRunsUp);
            for (const QString& box : c.boxes)
                m_boxes.Expect(box).Then([&, isSafe = box != kOffer && box != kInstructions](QMessageBox&) {
                    EXPECT_TRUE(!isSafe || (!m_drive.localControl && m_drive.statusWord == kStatusStopped)) << c.name;
                });
            Robot::Press(kIdAutotuningStart);
            const QStringList calls = Calls();
            EXPECT_EQ(calls.count("read 424") > 5000, !c.boxes.filter("Aborting Test").isEmpty()) << c.name;
            EXPECT_LE(calls.count("read 424"), (tunes ? 3 : 0) + 5001) << c.name;
            EXPECT_TRUE(c.calls.isEmpty() || calls == c.calls) << c.name << ": " << calls.join(", ").toStdString();
            m_boxes.Verify();
            EXPECT_EQ(IsDone(), c.done) << c.name;
            EXPECT_EQ(Robot::Text(kIdAutotuningStart), "Start") << c.name;
            EXPECT_TRUE(Robot::IsEnabled(kIdAutotuningStart));
            ExpectSafe();
            m_drive.unreadable.clear();
            m_drive.unwritable.clear();
            m_drive.words[801] = 1;
            m_drive.words[911] = 0;
        });
    }
}

} // namespace
} // namespace krt550
