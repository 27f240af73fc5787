// Every run, asserted by its whole log of drive calls.
#include "tests/assistants/tuning_fixture.h"

#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"

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
    QString results; ///< registers, blank-separated
    bool judgesFirst = false;
    bool showsProgress = true; ///< and ends when the drive does not answer
};

const PageCase kPages[] = {
    {3, 165, 2, kMightTurn, "Autotuning field current controller successful", true, false, "4402 4403 4502 9408"},
    {4, 166, 1, kMightTurn, "Autotuning armature current controller successful", true, true,
     "4306 4307 4308 4309 4310"},
    {6, 168, 4, kRunsUp, "Autotuning speed controller successful", true, true, "2403 2409", true},
    {7, 169, 3, kRunsUp, "Autotuning field weakening assistant successful", false, true, "4409 4410 4412 4413 4414"},
    {11, 175, 9, kMightTurn, "Autotuning field reversal successful", false, true, "", false, false},
};

void PrintTo(const PageCase& page, std::ostream* out) {
    *out << "step " << page.page;
}

class Autotuning : public TuningFixture<TuningDrive>, public testing::WithParamInterface<PageCase> {
protected:
    Autotuning() : TuningFixture("ENABLESTART\t9\t801\t1\n") {}

    void OnPage(const std::function<void()>& script) {
        TuningFixture::OnPage(GetParam().box, [&] {
            m_drive.TakeLog();
            script();
        });
    }
    static QStringList Looks(int count) {
        QStringList looks = krt550::Looks(count);
        if (!GetParam().showsProgress)
            looks.removeAll("read 424");
        return looks;
    }
    static void ExpectStep(StepState state) {
        if (GetParam().page <= kStepCount) {
            EXPECT_EQ(GetStepState(GetParam().page), state);
            const QWidget* icon = Robot::Control(kStepIconIds[GetParam().page - 1]);
            EXPECT_EQ(icon->toolTip().endsWith(": done"), state == StepState::Done);
        }
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
        QStringList calls = GetParam().judgesFirst ? judge + Stop() : Stop() + judge;
        for (const QString& reg : GetParam().results.split(' ', Qt::SkipEmptyParts))
            calls.append("read " + reg);
        return calls;
    }
    /// What a failed run reads for its box, and the fault record where the page reads it.
    static QStringList Report() {
        QStringList report = {"read 911"};
        if (GetParam().readsFaultRecord)
            report += {"read fault buffer", "write 9906=0"};
        return report;
    }
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
        ExpectStep(StepState::Done);
        if (GetParam().showsProgress) {
            EXPECT_EQ(qobject_cast<QProgressBar*>(Robot::Control(kProgress))->value(), 100);
            EXPECT_EQ(Robot::Text(20000 + GetParam().results.left(4).toInt()), "77") << "the results are shown";
        }
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
            ExpectStep(StepState::Pending);
            ExpectIdle();
        });
    }
}

TEST_P(Autotuning, DoesNothingWhenSomebodyElseControlsTheDriveOrNobodyConfirms) {
    struct {
        const char* name;
        quint16 status;
        bool held, granted;
        QStringList log;
    } const cases[] = {{"ready to run", 2, false, true, {"refresh", "read 801"}},
                       {"running", 4, false, true, {"refresh", "read 801"}},
                       {"local control held", 1, true, true, {"refresh"}},
                       {"local control refused", 1, false, false, Permission()}};
    for (const auto& c : cases) {
        OnPage([&] {
            m_drive.words[801] = c.status;
            m_drive.localControl = c.held;
            m_drive.grantsLocalControl = c.granted;
            m_boxes.Expect(GetParam().confirmation);
            m_boxes.Expect(kDenied).WithIcon(QMessageBox::Critical);
            Robot::Press(kStartRun);
            EXPECT_EQ(m_drive.TakeLog(), c.log) << c.name;
            ExpectIdle();
            m_drive.localControl = false;
        });
    }
    OnPage([this] {
        m_boxes.Expect(GetParam().confirmation, Answer::Cancel);
        Robot::Press(kStartRun);
        EXPECT_EQ(m_drive.TakeLog(), QStringList());
        ExpectIdle();
    });
}

// What fails is told when the drive is safe. That it is safe, whatever fails at whichever call, is the fault matrix's.
TEST_P(Autotuning, TellsOfAFailureOnceTheDriveIsSafe) {
    const QString refused = "Writing parameter 99.06 Service mode failed: simulated failure";
    const QStringList launched = Permission() + Launch();
    struct Case {
        const char* name;
        std::function<void()> prepare;
        QStringList boxes;
        QStringList log;
        bool boxForTheRecord = false; ///< reading the fault record ends the mode, too
    };
    std::vector<Case> cases = {
        {"service mode refused",
         [this] { m_drive.unwritable = {9906}; },
         {refused},
         launched.mid(0, Permission().size() + 1) + EndMode() + QStringList{"read 9906"},
         true},
        {"no end",
         [this] { m_drive.looksUntilDone = 0; },
         {},
         launched + Looks(GetParam().readsOnceMore ? 5002 : 5001) + EndMode() + Stop()},
    };
    if (GetParam().showsProgress)
        cases.push_back({"progress not read",
                         [this] { m_drive.unreadable = {424}; },
                         {"Reading parameter 4.24*"},
                         launched + Looks(1) + EndMode() + Stop()});
    m_drive.faultBufferError = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        OnPage([&] {
            c.prepare();
            m_boxes.Expect(GetParam().confirmation);
            for (const QString& box : c.boxes)
                m_boxes.Expect(box).Then([this](QMessageBox&) { EXPECT_FALSE(m_drive.localControl); });
            m_boxes.Expect(FailureText("No message"));
            if (c.boxForTheRecord && GetParam().readsFaultRecord)
                m_boxes.Expect(refused);
            const qint64 before = m_clock.Now();
            Robot::Press(kStartRun);
            EXPECT_EQ(m_drive.TakeLog(), c.log + Report());
            EXPECT_LE(m_clock.Now() - before, 200 + 5001 * 50);
            ExpectIdle();
            m_drive.unwritable.clear();
            m_drive.unreadable.clear();
        });
    }
}

INSTANTIATE_TEST_SUITE_P(Steps, Autotuning, testing::ValuesIn(kPages),
                         [](const auto& page) { return "Step" + std::to_string(page.param.page); });

} // namespace
} // namespace krt550
