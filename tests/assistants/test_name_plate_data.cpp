#include "tests/shell/wizard_fixture.h"

#include "hostlib/tolvbo32/clock.h"
#include "wizard/platform/row_ids.h"
#include "wizard/resources/page_rows.h"

#include <QComboBox>
#include <QTest>
#include <QWindow>

namespace krt550 {
namespace {

const QStringList kReads = [] {
    QStringList reads;
    for (const RowGroupDef& group : kNamePlateRows.groups)
        for (const RowDef& row : group.rows)
            reads.append("read " + QString::number(row.reg));
    return reads;
}();

using NamePlateData = WizardFixture;

TEST_F(NamePlateData, ReadsEveryRowOnceInOrderAndShowsIt) {
    m_drive.words[9901] = 3;
    m_drive.words[9911] = 107;
    Run([this] {
        m_drive.TakeLog();
        Robot::Press(kStart);
        EXPECT_EQ(m_drive.TakeLog(), kReads);
        EXPECT_EQ(Robot::Text(LabelId(9902)), "9902 Motor 1 nominal voltage");
        EXPECT_EQ(Robot::Text(ValueId(9901)), "Suomi");
        EXPECT_EQ(Robot::Text(ValueId(9911)), "1.07");
        EXPECT_EQ(Robot::Text(UnitId(9911)) + Robot::Text(MinimumId(9911)) + Robot::Text(MaximumId(9911)),
                  "A0.30320.00");
        EXPECT_TRUE(Robot::Control(LabelId(9902))->toolTip().contains("Voltage of the name plate"));
        for (const int group : {1, 2, 3})
            EXPECT_EQ(Robot::Text(60101 + 10 * group) + Robot::Text(60102 + 10 * group) +
                          Robot::Text(60103 + 10 * group) + Robot::Text(60104 + 10 * group),
                      "ActualUnitMinMax");
    });
}

TEST_F(NamePlateData, WritesOnlyWhatWasChanged) {
    Run([this] {
        Robot::Press(kStart);
        Robot::Type(ValueId(9902), "240");
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList());
        Robot::Press(kApply);
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList{"write 9902=240"});
        Robot::Press(kApply);
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList()) << "nothing changed since";
        Robot::Choose(ValueId(9901), "Deutsch");
        Robot::Type(ValueId(9903), "21,2");
        Robot::Press(kNext);
        EXPECT_EQ(m_drive.TakeLog({"write"}), (QStringList{"write 9901=1", "write 9903=212"}));
        EXPECT_EQ(Digits(), "1222222");
    });
}

TEST_F(NamePlateData, ChecksAnEditWhenItLosesTheFocus) {
    Run([this] {
        Robot::Press(kStart);
        m_boxes.Expect("For parameter 9902 given value was invalid.\nPlease input valid value.");
        Robot::Type(ValueId(9902), "9999");
        m_boxes.Verify();
        EXPECT_EQ(Robot::Text(ValueId(9902)), "9999") << "nothing typed is lost";
        m_drive.TakeLog();
        m_boxes.Expect("For parameter 9902 given value was invalid.\nPlease input valid value.");
        Robot::Press(kApply);
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList());
        // Straight from the edit to Apply: one report, not one for the focus and one for the button. The focus is
        // judged when the click is over.
        m_boxes.Expect("For parameter 9902 given value was invalid.\nPlease input valid value.");
        Robot::TypeOnly(ValueId(9902), "8888");
        QWidget* apply = Robot::Control(kApply);
        QWindow* window = apply->window()->windowHandle();
        QTest::mouseClick(window, Qt::LeftButton, {}, apply->mapTo(apply->window(), apply->rect().center()));
        Robot::Drain();
        m_boxes.Verify();
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList());
    });
}

TEST_F(NamePlateData, FollowsTheDriveWhileShownAndOnlyThen) {
    CSteppedClock clock;
    const ClockScope scope(clock);
    Run([&, this] {
        Robot::Press(kStart);
        m_drive.words[9904] = 1234;
        clock.WaitForEvents(5);
        EXPECT_TRUE(Robot::WaitUntil([] { return Robot::Text(ValueId(9904)) == "1234"; }));
        const auto readsInAPeriod = [&, this] {
            m_drive.TakeLog();
            const qint64 end = clock.Now() + 5;
            while (clock.Now() < end)
                clock.WaitForEvents(end - clock.Now());
            Robot::Drain();
            return m_drive.TakeLog({"read 9904"}).size();
        };
        EXPECT_EQ(readsInAPeriod(), 1);
        Robot::Press(kNext);
        EXPECT_EQ(readsInAPeriod(), 0);
        m_drive.words[9904] = 1000;
        m_drive.TakeLog();
        Robot::Press(kBack);
        EXPECT_EQ(m_drive.TakeLog(), kReads) << "read afresh";
        EXPECT_EQ(Robot::Text(ValueId(9904)), "1000");
        EXPECT_EQ(readsInAPeriod(), 1) << "one timer, however often the page is entered";
    });
}

} // namespace
} // namespace krt550
