// The page that the configurable assistant's text file makes, with the file as it is shipped.
#include "tests/assistants/special_fixture.h"

#include "host/hands/input.h"
#include "wizard/resources/control_ids.h"

#include <malloc.h>

namespace krt550 {
namespace {

constexpr int kBox = 180;
constexpr int kPopup = 10000;

QString Label(int n) {
    return Robot::Text(ConfigurableLabelId(n));
}
QString Value(int n) {
    return Robot::Text(ConfigurableValueId(n));
}

class Configurable : public SpecialFixture {
protected:
    void OnPage(const std::function<void()>& script) { SpecialFixture::OnPage(kBox, script); }

    static void Choose(int n, const QString& text) { Robot::PickFromMenu(ConfigurableValueId(n), text); }
    /// Presses the "?" of a row; `look` sees its window before that is closed.
    static void AskFor(int n, const std::function<void()>& look) {
        QTimer::singleShot(0, qApp, [&look] {
            EXPECT_EQ(Robot::Layout(), kPopup);
            look();
            Robot::CloseWindow();
        });
        Robot::Press(ConfigurableHelpId(n));
    }
};

TEST_F(Configurable, ShowsTheRowsOfItsFile) {
    OnPage([this] {
        EXPECT_EQ(Robot::Text(kIdConfigurableGroup), "Ramps, reference and stopping");
        EXPECT_EQ(Label(1) + ": " + Value(1), "2201 Acceleration time: 20.00");
        EXPECT_EQ(Label(21) + ": " + Value(21), "1101 Reference 1 from: AI1");
        EXPECT_TRUE(Robot::Control(ConfigurableLabelId(1))->toolTip().contains("from standstill to 100 %"));
        EXPECT_EQ(Robot::Control(ConfigurableHelpId(1))->accessibleName(), "Help on 2201 Acceleration time");
        const auto* choices = qobject_cast<QComboBox*>(Robot::Control(ConfigurableValueId(21)));
        EXPECT_EQ(choices->findText("AI4"), -1) << "the file offers fewer than the drive knows";
        const QList<int> used = {1, 2, 3, 4, 6, 7, 9, 10, 12, 13, 15, 21, 22, 23, 24, 26, 28, 29};
        for (int n = 1; n <= kConfigurableRowCount; ++n) {
            EXPECT_EQ(Robot::IsEnabled(ConfigurableValueId(n)), used.contains(n)) << n;
            EXPECT_EQ(Robot::IsEnabled(ConfigurableHelpId(n)), used.contains(n)) << n;
            EXPECT_EQ(Label(n).isEmpty(), !used.contains(n)) << n;
        }
        m_drive->words[2202] = 500;
        LetAnUpdatePass();
        EXPECT_EQ(Value(2), "5.00") << "follows the drive";
    });
}

TEST_F(Configurable, FillsInItsPresetsAndWritesThemWhenApplied) {
    OnPage([this] {
        m_drive->TakeLog();
        Choose(2, "Change to preset value");
        EXPECT_EQ(Value(2), "10.00");
        EXPECT_EQ(Value(1), "20.00");
        Choose(21, "Change all to preset value");
        EXPECT_EQ(Value(1) + Value(22) + Value(23), "10.00Motor potentiometerDI4");
        EXPECT_EQ(m_drive->TakeLog({"write"}), QStringList());
        Robot::Press(kApply);
        EXPECT_EQ(m_drive->TakeLog({"write"}).join(' '),
                  "write 2201=1000 write 2202=1000 write 2203=50 write 2204=300 write 2206=3000 write 2207=3000 "
                  "write 1204=175 write 1205=875 write 1208=90 write 1209=65446 write 1106=0 write 1101=1 "
                  "write 1102=6 write 1103=4 write 2205=0 write 1201=0 write 2102=0 write 2104=0");
        Robot::Press(kApply);
        EXPECT_EQ(m_drive->TakeLog({"write"}), QStringList());
        Choose(2, "Set value and apply");
        EXPECT_EQ(m_drive->TakeLog({"write"}), QStringList{"write 2202=1000"}) << "forced: the row was not marked";
        Robot::Choose(ConfigurableValueId(23), "DI7");
        Choose(23, "Set value and apply");
        EXPECT_EQ(m_drive->TakeLog({"write"}), QStringList{"write 1103=7"}) << "that row alone, by the file's words";
    });
}

TEST_F(Configurable, ShowsARowsHelpAtItsButton) {
    OnPage([] {
        for (const int n : {1, 29}) {
            const QPoint button = Robot::Control(ConfigurableHelpId(n))->mapToGlobal(QPoint());
            AskFor(n, [&] {
                auto* text = qobject_cast<QPlainTextEdit*>(Robot::Control(kIdHelpText));
                EXPECT_TRUE(text->isReadOnly() && text->toPlainText().size() > 60) << n;
                EXPECT_TRUE(text->textCursor().atStart() && !text->textCursor().hasSelection());
                const QRect screen = text->screen()->availableGeometry();
                const QRect wanted(button, Robot::Front()->frameGeometry().size());
                EXPECT_TRUE(Robot::Front()->pos() == button || !screen.contains(wanted)) << n;
            });
            EXPECT_EQ(Robot::Layout(), 147);
        }
    });
}

TEST_F(Configurable, GrowsByNothingHoweverOftenItIsOpened) {
    OnPage([this] {
        const auto open = [this](int times) {
            for (int i = 0; i < times; ++i) {
                for (const int button : {kBack, kNext})
                    qobject_cast<QPushButton*>(Robot::Find(button))->click();
                if (i % 20 == 0)
                    AskFor(1, [] {});
                m_drive->TakeLog();
            }
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return mallinfo2().uordblks;
        };
        const std::size_t before = open(60);
        const std::size_t after = open(150);
        EXPECT_LT(after, before + 64 * 1024);
    });
}

} // namespace
} // namespace krt550
