// The specific assistants that are tables of rows: order of writing, what a drive may lack, hints and status.
#include "tests/assistants/special_fixture.h"

#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"
#include "wizard/shell/color_static.h"

namespace krt550 {
namespace {

constexpr int kFieldWeakening = 169;
constexpr int kProtection = 173;
constexpr int kEStop = 174;
constexpr int kFieldExciter = 176;
constexpr int k12Pulse = 178;
constexpr int kConfigurable = 180;

using SpecialPages = SpecialFixture;

TEST_F(SpecialPages, WriteWhatWasChangedInTheirOrder) {
    struct Entry {
        int tab;
        int id;
        const char* text;
    };
    struct {
        int box;
        std::vector<Entry> entries;
        QStringList writes;
    } const cases[] = {
        {kFieldWeakening,
         {{0, ValueId(4401), "Field weakening"}, {0, ValueId(4409), "5"}, {0, ValueId(9902), "250"}},
         {"write 9902=250", "write 4401=1", "write 4409=500"}},
        {kProtection,
         {{0, ValueId(3009), "200"},
          {0, ValueId(3028), "Alarm, keep last reference"},
          {0, ValueId(3036), "Alarm"},
          {1, ValueId(4304), "12"},
          {1, ValueId(2002), "1500"}},
         {"write 2002=1500", "write 4304=120", "write 3009=2000", "write 3036=2", "write 3028=3"}},
        {k12Pulse,
         {{0, ValueId(4301), "12-pulse master"},
          {0, ValueId(9902), "400"},
          {0, ValueId(9723), "101"},
          {0, ValueId(9401), "2"},
          {1, ValueId(3009), "150"},
          {1, ValueId(9719), "5"},
          {1, ValueId(4703), "300"},
          {1, ValueId(4705), "50"}},
         {"write 9401=2", "write 9723=10100", "write 9902=400", "write 4301=2", "write 4705=50", "write 4703=300",
          "write 9719=50", "write 3009=1500"}},
        {kEStop,
         {{0, 733, "5"}, {0, 731, "DI6"}, {0, 727, "DI4"}, {0, 624, "Torque limit"}},
         {"write 2104=1", "write 1008=4", "write 1009=6", "write 2204=500"}},
        {kFieldExciter,
         {{0, 192, "22"}, {0, 553, "External, one quadrant, 35 A"}, {0, 757, "3"}},
         {"write 9401=3", "write 9912=2", "write 9408=22"}},
        {kConfigurable,
         {{0, ConfigurableValueId(29), "Coast"},
          {0, ConfigurableValueId(21), "AI2"},
          {0, ConfigurableValueId(2), "12"},
          {0, ConfigurableValueId(1), "11"}},
         {"write 2201=1100", "write 2202=1200", "write 1101=2", "write 2104=2"}},
    };
    for (const auto& c : cases)
        OnPage(c.box, [&] {
            int tab = 0;
            for (const auto& [onTab, id, text] : c.entries) {
                if (std::exchange(tab, onTab) != onTab)
                    Robot::ShowTab(onTab);
                Robot::Enter(id, text);
            }
            EXPECT_EQ(m_drive->TakeLog({"write"}), QStringList());
            Robot::Press(kApply);
            EXPECT_EQ(m_drive->TakeLog({"write"}), c.writes);
            Robot::Press(kNext);
            EXPECT_EQ(m_drive->TakeLog({"write"}), QStringList()) << c.box;
            EXPECT_EQ(Robot::Layout(), 107);
        });
}

TEST_F(SpecialPages, WorkWithoutWhatTheDriveLacks) {
    const auto notFound = [](int reg) {
        return QStringLiteral("Parameter %1 not found from drive.\n\nUnable to use the specified parameter.").arg(reg);
    };
    struct {
        int box;
        std::set<quint16> missing;
        QStringList boxes;
        QList<int> disabled;
        int working;
    } const cases[] = {
        {kEStop, {2204}, {}, {733}, 624},
        {kEStop, {1009}, {}, {731, 733}, 624},
        {kFieldExciter, {419, 9401}, {notFound(419)}, {757}, 192},
        {kConfigurable,
         {2201, 1101},
         {"- " + notFound(2201) + "\n- " + notFound(1101) + "\n"},
         {ConfigurableValueId(1), ConfigurableValueId(21)},
         ConfigurableValueId(2)},
    };
    for (const auto& c : cases) {
        for (const QString& text : c.boxes)
            m_boxes.Expect(text).WithIcon(QMessageBox::Critical);
        const auto look = [&] {
            m_boxes.Verify();
            for (const int id : c.disabled)
                EXPECT_FALSE(Robot::IsEnabled(id)) << id;
            EXPECT_TRUE(Robot::IsEnabled(c.working)) << c.working;
            if (c.box == kConfigurable) {
                EXPECT_EQ(Robot::Text(ConfigurableLabelId(1)), "2201 Acceleration time") << "what is missing";
            }
            LetAnUpdatePass();
            EXPECT_EQ(m_drive->TakeLog({"write"}), QStringList());
        };
        OnPage(c.box, look, c.missing);
    }
}

TEST_F(SpecialPages, TabTellsOnceOfAllThatTheDriveLacks) {
    OnPage(k12Pulse,
           [this] {
               m_boxes.Expect("- Parameter 4703 not found*");
               Robot::ShowTab(1);
               EXPECT_FALSE(Robot::IsEnabled(ValueId(4703)) || Robot::IsEnabled(ValueId(9719)));
               EXPECT_TRUE(Robot::IsEnabled(ValueId(4702)));
           },
           {4703, 9719});
}

QString HintsOfEStop() {
    QString hints = Robot::IsEnabled(733) ? "" : "- ";
    for (const int id : {733, 957, 958, 961, 962})
        hints += Robot::Text(id) + '|';
    return hints;
}

TEST_F(SpecialPages, EStopFollowsTheDriveBesideWhatIsTyped) {
    OnPage(kEStop, [this] {
        Robot::Choose(624, "Coast");
        EXPECT_EQ(HintsOfEStop(), "20.00|20.00|s|||") << "until it is applied";
        Robot::Press(kApply);
        EXPECT_EQ(HintsOfEStop(), "- |||||");
        LetAnUpdatePass();
        EXPECT_EQ(HintsOfEStop(), "- |||||") << "after an update";
        Robot::Choose(624, "Ramp");
        Robot::Press(kApply);
        EXPECT_EQ(HintsOfEStop(), "20.00|20.00|s|||");
        Robot::Type(733, "7");
        m_drive->words[2204] = 1500;
        LetAnUpdatePass();
        EXPECT_EQ(HintsOfEStop(), "7|15.00|s|||");
        m_drive->unwritable = {2204};
        m_boxes.Expect("Writing parameter 22.04 E-stop ramp time failed: simulated failure");
        Robot::Press(kApply);
        EXPECT_EQ(Robot::Text(733), "7") << "what was refused can be corrected";
        LetAnUpdatePass();
        m_drive->unreadable = {2204};
        m_boxes.Expect("Reading parameter 22.04 E-stop ramp time failed: simulated failure");
        m_boxes.Expect("Error while updating parameters\n Stopping parameter update.");
        LetAnUpdatePass();
        m_boxes.Verify();
        m_drive->TakeLog();
        LetAnUpdatePass();
        EXPECT_EQ(m_drive->TakeLog(), QStringList()) << "stopped";
    });
}

/// "OK", "Fault" or nothing; "?" when the colour says something else than the text.
QString LinkStatus() {
    const auto* status = qobject_cast<CColorStatic*>(Robot::Control(kIdLinkStatus));
    const QColor face = status->palette().color(QPalette::Button);
    const QColor colour = status->text() == "OK"      ? QColor(0, 255, 0)
                          : status->text() == "Fault" ? QColor(255, 0, 0)
                                                      : face;
    return status->GetColors().behindText == colour ? status->text() : "?";
}

TEST_F(SpecialPages, FieldExciterShowsWhetherItsNodeAnswers) {
    struct {
        quint16 node, low, high, detected, used;
        const char* status;
    } const cases[] = {
        {3, 0x0004, 0, 2, 2, "OK"},         {1, 0x0001, 0, 5, 5, "OK"},          {16, 0x8000, 0, 3, 3, "OK"},
        {17, 0, 0x0001, 3, 3, "OK"},        {20, 0, 0x0008, 3, 3, "OK"},         {32, 0, 0x8000, 3, 3, "OK"},
        {3, 0xFFFB, 0xFFFF, 2, 2, "Fault"}, {20, 0xFFFF, 0xFFF7, 2, 2, "Fault"}, {3, 0x0004, 0, 2, 3, "Fault"},
        {0, 0xFFFF, 0xFFFF, 2, 2, ""},      {33, 0xFFFF, 0xFFFF, 2, 2, ""},      {3, 0x0004, 0, 1, 1, ""},
    };
    OnPage(kFieldExciter, [&] {
        for (const auto& c : cases) {
            m_drive->words[9408] = c.node;
            m_drive->words[418] = c.low;
            m_drive->words[419] = c.high;
            m_drive->words[406] = c.detected;
            m_drive->words[9912] = c.used;
            Reenter();
            EXPECT_EQ(LinkStatus(), c.status) << c.node << ", types " << c.detected << ' ' << c.used;
        }
    });
}

TEST_F(SpecialPages, FieldExciterFollowsTheLink) {
    m_prepare = [](FakeDrive& drive) {
        drive.words[9912] = drive.words[406] = 2;
        drive.words[419] = 0x10;
    };
    OnPage(kFieldExciter, [this] {
        EXPECT_EQ(LinkStatus(), "OK");
        m_drive->words[419] = 0;
        m_drive->words[9408] = 9;
        LetAnUpdatePass();
        EXPECT_EQ(LinkStatus() + Robot::Text(192), "Fault9");
        Robot::Type(192, "5");
        m_drive->words[418] = 0x10;
        LetAnUpdatePass();
        EXPECT_EQ(LinkStatus(), "Fault") << "goes by what the drive has, not by what is typed";
        Robot::Press(kApply);
        EXPECT_EQ(LinkStatus(), "OK");
    });
}

} // namespace
} // namespace krt550
