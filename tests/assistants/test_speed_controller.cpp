// Step 6: its tabs and its slider.
#include "tests/assistants/tuning_fixture.h"

#include "wizard/platform/property_sheet.h"
#include "wizard/platform/row_ids.h"
#include "wizard/platform/slider.h"

#include <QTest>

namespace krt550 {
namespace {

constexpr int kPageBox = 168;
constexpr int kPlaceholder = 60221;
constexpr int kSlider = 60211;

const QStringList kFiltersRead = {"read 2306", "read 2311", "read 5006"};

class SpeedController : public TuningFixture<TuningDrive> {
protected:
    // 3333 is a register that the drive lacks.
    SpeedController()
        : TuningFixture("SPEEDRESP\t10\t0\t100\n"
                        "SLIDERVAL\t4\t2306\t200\nSLIDERVAL\t10\t2306\t1\nSLIDERVAL\t4\t5006\t150\n"
                        "SLIDERVAL\t5\t3333\t1\nSLIDERVAL\t5\t2306\t60000\nSLIDERVAL\t5\t2311\t7\n") {}

    void OnPage(const std::function<void()>& script) { TuningFixture::OnPage(kPageBox, script); }
    static CSlider* Slider() { return static_cast<CSlider*>(Robot::Control(kSlider)); }
    /// Takes the handle with the mouse and lets it go near a position.
    static void Drag(int position) {
        Slider()->setSliderDown(true);
        Slider()->setSliderPosition(position);
        QTest::mouseRelease(Slider(), Qt::LeftButton);
    }
};

// Whoever looks at another tab while the motor turns does not wait for all of its rows.
TEST_F(SpeedController, ACancelWhileATabIsReadComesBeforeItsNextRead) {
    OnPage([this] {
        const auto post = [](const std::function<void()>& act) {
            QMetaObject::invokeMethod(qApp, act, Qt::QueuedConnection);
        };
        m_drive.TakeLog();
        m_drive.looksUntilDone = 0;
        m_drive.onLook = [&](int look) {
            if (look == 2)
                post([] { Robot::ShowTab(2); });
        };
        m_drive.onCall = [&](const QString& call) {
            if (call == kFiltersRead[0])
                post([] { Robot::Press(kCancel); });
        };
        m_boxes.Expect(kRunsUp);
        Robot::Press(kStartRun);
        const QStringList log = m_drive.TakeLog();
        EXPECT_EQ(log.mid(log.indexOf(kFiltersRead[0]) + 1, 4), EndMode() + Stop().first(2))
            << log.join(", ").toStdString();
        EXPECT_FALSE(log.contains(kFiltersRead[1]));
    });
}

TEST_F(SpeedController, WritesPageTabsAndSliderInOrder) {
    OnPage([this] {
        Robot::Type(ValueId(2403), "6");
        Robot::Type(ValueId(2202), "12");
        Robot::Type(ValueId(9904), "1500");
        Robot::ShowTab(1);
        Robot::Type(ValueId(2013), "8");
        Robot::ShowTab(2);
        Robot::Type(ValueId(5006), "9");
        m_drive.TakeLog();
        Robot::Press(kApply);
        EXPECT_EQ(m_drive.TakeLog(), (QStringList{"write 2403=6", "read 2403", "write 9904=1500", "read 9904",
                                                  "write 2202=12", "read 2202", "write 2013=8", "read 2013",
                                                  "read 2306", "write 2306=1", "write 5006=9", "read 5006"} +
                                      kFiltersRead));
        EXPECT_EQ(Robot::Text(ValueId(2306)), "1") << "what the slider has set";
        Robot::Press(kApply);
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList()) << "the drive has the slider's values";
        m_drive.words[2306] = 2;
        m_drive.unwritable.insert(2306);
        m_boxes.Expect("Writing parameter 23.06 Parameter 2306 failed: simulated failure");
        Robot::Press(kNext);
        EXPECT_EQ(Robot::Layout(), 111) << "a refused value keeps the page";
    });
}

// What a slider would say wrongly an Apply would write.
TEST_F(SpeedController, OpensWithItsSliderWhereTheDriveIs) {
    const struct {
        quint16 error, feedback;
        int position;
    } drives[] = {{200, 150, 45}, {200, 151, 100}, {1, 150, 100}};
    for (const auto& drive : drives) {
        m_drive.words[2306] = drive.error;
        m_drive.words[5006] = drive.feedback;
        OnPage([&] {
            EXPECT_EQ(Slider()->value(), drive.position);
            m_drive.TakeLog();
            Robot::Press(kApply);
            EXPECT_EQ(m_drive.TakeLog({"write"}).size(), drive.position == 45 || drive.error == 1 ? 0 : 1);
        });
    }
}

TEST_F(SpeedController, WritesTheSlidersValuesWhenItIsReleased) {
    OnPage([this] {
        EXPECT_EQ(Slider()->minimum(), 0);
        EXPECT_EQ(Slider()->maximum(), 100);
        EXPECT_EQ(Slider()->value(), 100);
        m_drive.TakeLog();
        Drag(47);
        EXPECT_EQ(m_drive.TakeLog(), (QStringList{"write 2306=200", "write 5006=150"})) << "the tab is not loaded";
        Robot::ShowTab(2);
        Robot::Type(ValueId(2311), "3");
        m_drive.TakeLog();
        Drag(49);
        EXPECT_EQ(m_drive.TakeLog(),
                  (QStringList{"write 2306=200", "write 5006=150", "write 2311=3", "read 2311"} + kFiltersRead));
        EXPECT_EQ(Robot::Text(ValueId(5006)), "150");
    });
}

// What cannot be written is told of, and the rest is written all the same.
TEST_F(SpeedController, TellsWhichOfTheSlidersValuesItCannotWrite) {
    OnPage([this] {
        Drag(49);
        m_boxes.Expect("Parameter 3333 not found from drive.\n\nUnable to use the specified parameter.");
        m_boxes.Expect("Parameter 23.06 Parameter 2306: 60000 is out of range. *");
        m_drive.TakeLog();
        Slider()->setFocus();
        QTest::keyClick(Slider(), Qt::Key_Right);
        EXPECT_EQ(m_drive.TakeLog(), (QStringList{"write 2311=7"}));
    });
}

// The sheet is no control of the layout: that it fits is seen on the page itself only.
TEST_F(SpeedController, HasRoomForItsTabs) {
    const QFont former = QApplication::font();
    for (const int pointSize : {9, 13}) {
        QFont font = former;
        font.setPointSize(pointSize);
        QApplication::setFont(font);
        OnPage([&] {
            const QWidget* placeholder = Robot::Control(kPlaceholder);
            const QWidget* page = placeholder->parentWidget();
            const auto* sheet = page->findChild<CPropertySheet*>();
            ASSERT_TRUE(sheet);
            EXPECT_EQ(sheet->pos(), placeholder->pos() - QPoint(6, 7));
            EXPECT_TRUE(page->rect().contains(sheet->geometry())) << pointSize;
            for (const QWidget* other : page->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                if (other != sheet && other != placeholder) {
                    EXPECT_FALSE(other->geometry().intersects(sheet->geometry()))
                        << other->objectName().toStdString() << " at " << pointSize << " pt";
                }
            }
        });
    }
    QApplication::setFont(former);
}

} // namespace
} // namespace krt550
