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
        {k12Pulse, {4703, 9719}, {"- Parameter 4703 not found*"}, {ValueId(4703), ValueId(9719)}, ValueId(4702)},
    };
    for (const auto& c : cases) {
        for (const QString& text : c.boxes)
            m_boxes.Expect(text).WithIcon(QMessageBox::Critical);
        const auto look = [&] {
            if (c.box == k12Pulse)
                Robot::ShowTab(1);
            m_boxes.Verify();
            for (const int id : c.disabled)
                EXPECT_FALSE(Robot::IsEnabled(id)) << id;
            EXPECT_TRUE(Robot::IsEnabled(c.working)) << c.working;
            if (c.box == kConfigurable) {
                EXPECT_EQ(Robot::Text(ConfigurableLabelId(1)), "2201 Acceleration time") << "what is missing";
            }
            m_drive->words[4702] = 70;
            m_drive->words[2202] = 700;
            LetAnUpdatePass();
            EXPECT_EQ(m_drive->TakeLog({"write"}), QStringList());
            if (c.box == kConfigurable || c.box == k12Pulse) {
                EXPECT_EQ(Robot::Text(c.working), c.box == kConfigurable ? "7.00" : "7.0") << "follows the drive";
            }
        };
        OnPage(c.box, look, c.missing);
    }
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

} // namespace
} // namespace krt550
