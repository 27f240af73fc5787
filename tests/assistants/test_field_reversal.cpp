// The field reversal assistant: what was refused is told, and what the drive has found is compared. That the field is
// sent forward and back by hand is a play.
#include "tests/assistants/tuning_fixture.h"

#include "wizard/resources/control_ids.h"
#include "wizard/shell/color_static.h"

#include <QTest>

namespace krt550 {
namespace {

const QString kCommandRefused = "Writing parameter 45.07 Field reversal command failed: simulated failure";
const QString kModeRefused = "Writing parameter 99.06 Service mode failed: simulated failure";

/// Its exciter reverses the field.
class ExciterDrive : public TuningDrive {
public:
    ExciterDrive()
        : TuningDrive(Parameters({List(406, "Exciter found", {{0, "Off"}, {6, "On"}}),
                                  List(9912, "Exciter", {{3, "Another"}, {6, "On"}})})) {
        words[4401] = 2;
    }
};

class FieldReversal : public TuningFixture<ExciterDrive> {
protected:
    FieldReversal() : TuningFixture(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550Wizard.so")) {
        m_drive.faultBufferError = 0;
        m_drive.looksUntilDone = 0;
        m_drive.onLook = [this](int look) {
            // A click comes through the event queue, between two calls.
            if (const auto click = m_clicks.find(look); click != m_clicks.end())
                QTimer::singleShot(0, qApp, click->second);
        };
    }

    void OnPage(const std::function<void()>& script) {
        TuningFixture::OnPage(175, [&] {
            m_drive.TakeLog();
            script();
        });
    }
    /// Which of Forward, Reverse and Stop can be pressed.
    static QString Buttons() {
        QString buttons;
        for (const auto& [id, letter] : {std::pair{kIdFieldForward, 'F'}, {kIdFieldReverse, 'R'}, {kIdFieldStop, 'S'}})
            buttons += Robot::IsEnabled(id) ? letter : '-';
        return buttons;
    }
    /// Presses a button at this look of the run.
    void At(int look, int button, const QString& before, const QString& after) {
        m_clicks[look] = [=] {
            EXPECT_EQ(Buttons(), before) << "before look " << look;
            Robot::Press(button);
            EXPECT_EQ(Buttons(), after) << "after look " << look;
        };
    }

    std::map<int, std::function<void()>> m_clicks;
};

TEST_F(FieldReversal, SaysWhatWasRefusedOnceTheMotorStands) {
    OnPage([this] {
        At(2, kIdFieldForward, "F-S", "F-S");
        m_clicks[4] = [this] {
            m_drive.unwritable = {9906};
            Robot::Press(kIdFieldStop);
            m_drive.unwritable = {};
        };
        m_drive.unwritable = {4507};
        m_boxes.Expect("Attention:*");
        m_boxes.Expect(kCommandRefused).Then([this](QMessageBox&) { EXPECT_FALSE(m_drive.localControl); });
        m_boxes.Expect(kModeRefused);
        Robot::Press(kStartRun);
        const QStringList log = m_drive.TakeLog();
        EXPECT_EQ(log.mid(log.lastIndexOf("write 9906=0")), EndMode() + Stop()) << "a Stop stops, whatever is refused";
        EXPECT_EQ(m_drive.words[9906], 0);
    });
}

// The drive's own words decide, and what is there only after an update.
TEST_F(FieldReversal, ComparesTheExciterFoundWithTheOneInUse) {
    struct {
        quint16 found, used;
        const char* text;
        QColor color;
    } const cases[] = {{6, 6, "On", Qt::green}, {6, 3, "On", Qt::red}, {0, 3, "", QColor()}, {0, 6, "", QColor()}};
    OnPage([&] {
        auto* shown = static_cast<CColorStatic*>(Robot::Control(kIdActualConverter));
        Robot::Control(kHelp)->setFocus(); // a row in use is not refreshed
        for (const auto& [found, used, text, color] : cases) {
            m_drive.words[406] = found;
            m_drive.words[9912] = used;
            Robot::LetPass(1100);
            EXPECT_EQ(shown->text(), text) << found << used;
            const QColor face = shown->palette().color(QPalette::Button);
            EXPECT_EQ(shown->GetColors().behindRest.value_or(face), color.isValid() ? color : face) << found << used;
        }
    });
}

} // namespace
} // namespace krt550
