// Every run, asserted by its whole log of drive calls.
#include "tests/assistants/tuning_drive.h"
#include "tests/shell/wizard_fixture.h"
#include "tests/support/application_end.h"

#include "hostlib/tolvbo32/clock.h"
#include "wizard/platform/row_ids.h"

#include <QApplication>
#include <QProgressBar>
#include <QTest>

namespace krt550 {
namespace {

const QString kMightTurn = "Attention:\nThe motor might turn during autotuning!\nMake sure everything is safe!\n";

struct PageCase {
    int page;
    int box; ///< its check box on the start page
    int mode;
    QString confirmation;
    QString success;
    bool readsOnceMore;
    bool readsFaultRecord;
    QStringList results;
    bool judgesFirst = false;
};

const PageCase kPages[] = {
    {3,
     165,
     2,
     kMightTurn,
     "Autotuning field current controller successful",
     true,
     false,
     {"read 4402", "read 4403", "read 4502", "read 9408"}},
    {4,
     166,
     1,
     kMightTurn,
     "Autotuning armature current controller successful",
     true,
     true,
     {"read 4306", "read 4307", "read 4308", "read 4309", "read 4310"}},
    {6, 168, 4, kRunsUp, "Autotuning speed controller successful", true, true, {"read 2403", "read 2409"}, true},
    {7,
     169,
     3,
     kRunsUp,
     "Autotuning field weakening assistant successful",
     false,
     true,
     {"read 4409", "read 4410", "read 4412", "read 4413", "read 4414"}},
};

void PrintTo(const PageCase& page, std::ostream* out) {
    *out << "step " << page.page;
}

class Autotuning : public testing::TestWithParam<PageCase> {
protected:
    Autotuning() {
        // No update periods: only the run itself talks to the drive.
        static const WizardFiles files("ENABLESTART\t9\t801\t1\n");
        m_drive.wizardPath = files.WizardPath();
        EnsureStepStates();
    }

    /// Opens the page as the only one of a chain and runs the script on it.
    void OnPage(const std::function<void()>& script) {
        RunWizardWith(m_drive, [&] {
            Robot::Press(GetParam().box);
            Robot::Press(kNext);
            m_drive.TakeLog();
            script();
        });
    }
    void ExpectIdle() {
        for (const int id : {kStartRun, kNext, kBack})
            EXPECT_TRUE(Robot::IsEnabled(id)) << id;
    }

    static QStringList Launch() {
        return {"write 9906=" + QString::number(GetParam().mode), "refresh", "take local control", "close contactor",
                "start motor"};
    }
    /// The drive has finished.
    static QStringList Close() {
        const QStringList judge = {"read 911"};
        return (GetParam().judgesFirst ? judge + Stop() : Stop() + judge) + GetParam().results;
    }
    /// What a failed run reads for its box, and the fault record where the page reads it.
    static QStringList Report() {
        QStringList report = {"read 911"};
        if (GetParam().readsFaultRecord)
            report += {"read fault buffer", "write 9906=0"};
        return report;
    }

    CSteppedClock m_clock;
    ClockScope m_clockScope{m_clock};
    TuningDrive m_drive;
    MessageBoxes m_boxes;
};

TEST_P(Autotuning, SucceedsAndMarksItsStep) {
    OnPage([this] {
        m_boxes.Expect(GetParam().confirmation).WithIcon(QMessageBox::Warning);
        m_boxes.Expect(GetParam().success).WithIcon(QMessageBox::Information);
        m_drive.onLook = [](int) {
            for (const int id : {kStartRun, kNext, kBack})
                EXPECT_FALSE(Robot::IsEnabled(id)) << id;
        };
        Robot::Press(kStartRun);
        EXPECT_EQ(m_drive.TakeLog(), Permission() + Launch() + Looks(GetParam().readsOnceMore ? 4 : 3) + Close());
        EXPECT_EQ(m_clock.Now(), 200 + 3 * 50);
        EXPECT_EQ(GetStepState(GetParam().page), StepState::Done);
        EXPECT_EQ(qobject_cast<QProgressBar*>(Robot::Control(kProgress))->value(), 100);
        EXPECT_EQ(Robot::Text(20000 + GetParam().results[0].mid(5).toInt()), "77") << "the results are shown";
        EXPECT_FALSE(Robot::IsEnabled(kDiagnosis));
        ExpectIdle();
        EXPECT_FALSE(m_drive.localControl);
    });
}

TEST_P(Autotuning, TellsTheDiagnosisAfterAFailure) {
    for (const int code : {0, 5, 4000}) {
        OnPage([&] {
            m_drive.outcome = 7;
            m_drive.faultBufferError = 0;
            m_drive.faultRecord = QByteArray(74, 0);
            m_drive.faultRecord[14] = static_cast<char>(code >> 8);
            m_drive.faultRecord[15] = static_cast<char>(code & 0xFF);
            m_boxes.Expect(GetParam().confirmation);
            m_boxes.Expect(FailureText("Motor turned")).WithIcon(QMessageBox::Critical);
            Robot::Press(kStartRun);
            EXPECT_EQ(m_drive.TakeLog(),
                      Permission() + Launch() + Looks(GetParam().readsOnceMore ? 4 : 3) + Close() + Report());
            EXPECT_EQ(Robot::IsEnabled(kDiagnosis), !GetParam().readsFaultRecord || code == 5) << code;
            EXPECT_EQ(GetStepState(GetParam().page), StepState::Pending);
            ExpectIdle();
        });
    }
}

TEST_P(Autotuning, DoesNothingWhenNotConfirmed) {
    OnPage([this] {
        m_boxes.Expect(GetParam().confirmation, Answer::Cancel);
        Robot::Press(kStartRun);
        EXPECT_EQ(m_drive.TakeLog(), QStringList());
        ExpectIdle();
    });
}

TEST_P(Autotuning, IsDeniedWhileSomebodyElseControlsTheDrive) {
    struct {
        const char* name;
        std::function<void(TuningDrive&)> prepare;
        QStringList log;
    } const cases[] = {
        {"ready to run", [](TuningDrive& d) { d.words[801] = 2; }, {"refresh", "read 801"}},
        {"running", [](TuningDrive& d) { d.words[801] = 4; }, {"refresh", "read 801"}},
        {"local control held", [](TuningDrive& d) { d.localControl = true; }, {"refresh"}},
        {"local control refused", [](TuningDrive& d) { d.grantsLocalControl = false; }, Permission()},
    };
    for (const auto& c : cases) {
        OnPage([&] {
            m_drive.words[801] = 1;
            m_drive.localControl = false;
            m_drive.grantsLocalControl = true;
            c.prepare(m_drive);
            m_boxes.Expect(GetParam().confirmation);
            m_boxes.Expect(kDenied).WithIcon(QMessageBox::Critical);
            Robot::Press(kStartRun);
            EXPECT_EQ(m_drive.TakeLog(), c.log) << c.name;
            ExpectIdle();
            m_drive.localControl = false;
        });
    }
}

TEST_P(Autotuning, EndsWhenTheServiceModeCannotBeWritten) {
    OnPage([this] {
        m_drive.unwritable.insert(9906);
        const QString refused = "Writing parameter 99.06 Service mode failed: simulated failure";
        m_boxes.Expect(GetParam().confirmation);
        m_boxes.Expect(refused);
        m_boxes.Expect(FailureText("No message"));
        if (GetParam().readsFaultRecord)
            m_boxes.Expect(refused); // reading the fault record ends the mode too
        m_drive.faultBufferError = 0;
        Robot::Press(kStartRun);
        EXPECT_EQ(m_drive.TakeLog(),
                  Permission() + QStringList{Launch()[0]} + EndMode() + QStringList{"read 9906"} + Report());
        ExpectIdle();
        m_drive.unwritable.clear();
    });
}

TEST_P(Autotuning, EndsWhenLocalControlIsRefusedAfterThePermission) {
    OnPage([this] {
        m_drive.faultBufferError = 0;
        m_drive.onCall = [this](const QString& call) {
            if (call.startsWith("write 9906="))
                m_drive.grantsLocalControl = false;
        };
        m_boxes.Expect(GetParam().confirmation);
        m_boxes.Expect(FailureText("No message"));
        Robot::Press(kStartRun);
        EXPECT_EQ(m_drive.TakeLog(), Permission() + Launch().mid(0, 3) + EndMode() + Report())
            << "the motor is not started";
        ExpectIdle();
    });
}

// A drive that stops answering is stopped before anybody is asked to read a message.
TEST_P(Autotuning, StopsTheDriveBeforeItTellsOfAFailedRead) {
    for (const quint16 reg : {quint16(9906), quint16(424)}) {
        for (const int look : {1, 2}) {
            OnPage([&] {
                m_drive.faultBufferError = 0;
                m_drive.looksUntilDone = 5;
                m_drive.onLook = [&](int now) {
                    if (now == look)
                        m_drive.unreadable.insert(reg);
                };
                bool stopped = false;
                m_boxes.Expect(GetParam().confirmation);
                m_boxes.Expect("Reading parameter *").Then([&](QMessageBox&) { stopped = !m_drive.localControl; });
                m_boxes.Expect(FailureText("No message"));
                Robot::Press(kStartRun);
                EXPECT_TRUE(stopped) << reg;
                m_drive.unreadable.clear();
                EXPECT_EQ(m_drive.TakeLog(), Permission() + Launch() + Looks(look) + EndMode() + Stop() + Report())
                    << reg << ' ' << look;
                m_drive.onLook = {};
                ExpectIdle();
            });
        }
    }
}

TEST_P(Autotuning, EndsAfter5001CyclesWithoutAnEnd) {
    OnPage([this] {
        m_drive.faultBufferError = 0;
        m_drive.looksUntilDone = 0;
        m_boxes.Expect(GetParam().confirmation);
        m_boxes.Expect(FailureText("No message"));
        Robot::Press(kStartRun);
        EXPECT_EQ(m_drive.TakeLog(), Permission() + Launch() + Looks(5001 + (GetParam().readsOnceMore ? 1 : 0)) +
                                         EndMode() + Stop() + Report());
        EXPECT_EQ(m_clock.Now(), 200 + 5001 * 50);
        ExpectIdle();
    });
}

// Cancel, Escape, the close button and the end of the application, in the middle of a run.
TEST_P(Autotuning, CanBeAbortedAtAnyMoment) {
    struct {
        const char* name;
        std::function<void()> act;
        int layoutAfter;
    } const ways[] = {
        {"cancel", [] { QMetaObject::invokeMethod(Robot::Control(kCancel), "click", Qt::QueuedConnection); }, 107},
        {"escape",
         [] {
             QMetaObject::invokeMethod(
                 qApp, [] { QTest::keyClick(Robot::Front()->focusWidget(), Qt::Key_Escape); }, Qt::QueuedConnection);
         },
         107},
        {"close", [] { QMetaObject::invokeMethod(Robot::Front(), "close", Qt::QueuedConnection); }, 0},
        {"end of the application", EndApplication, 0},
    };
    for (const auto& way : ways) {
        OnPage([&] {
            m_drive.looksUntilDone = 10;
            m_drive.onLook = [&](int look) {
                if (look == 4)
                    way.act();
            };
            m_boxes.Expect(GetParam().confirmation);
            Robot::Press(kStartRun);
            m_drive.onLook = {};
            EXPECT_EQ(Robot::Layout(), way.layoutAfter) << way.name;
            const QStringList log = m_drive.TakeLog();
            const QStringList abort = EndMode() + Stop();
            EXPECT_EQ(log.mid(0, log.indexOf("write 9906=0")),
                      Permission() + Launch() + Looks(3) + QStringList("read 9906"))
                << way.name << ": seen between two calls of a cycle";
            EXPECT_EQ(log.mid(log.indexOf("write 9906=0"), abort.size()), abort) << way.name;
            EXPECT_FALSE(log.mid(log.indexOf("write 9906=0")).contains("start motor")) << way.name;
            EXPECT_EQ(m_drive.words[9906], 0) << way.name;
            EXPECT_FALSE(m_drive.localControl) << way.name;
        });
        RestartApplication();
    }
}

INSTANTIATE_TEST_SUITE_P(Steps, Autotuning, testing::ValuesIn(kPages),
                         [](const auto& page) { return "Step" + std::to_string(page.param.page); });

} // namespace
} // namespace krt550
