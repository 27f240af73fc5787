#include "tests/shell/wizard_fixture.h"

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

TEST_F(NamePlateData, HasNothingToTypeIntoWithoutADrivesParameters) {
    m_drive.hasRoot = false;
    Run([this] {
        Robot::Press(kStart);
        EXPECT_FALSE(Robot::IsEnabled(ValueId(9901)) || Robot::IsEnabled(ValueId(9902)));
        m_drive.hasRoot = true;
        Robot::Press(kBack);
        Robot::Press(kStart);
        EXPECT_TRUE(Robot::IsEnabled(ValueId(9901)) && Robot::IsEnabled(ValueId(9902)));
    });
}

TEST_F(NamePlateData, ShowsTheOtherRowsOfADriveThatLacksOne) {
    std::vector<ParameterDescription> parameters = WizardParameters();
    std::erase_if(parameters, [](const ParameterDescription& parameter) { return parameter.reg == 3016; });
    FakeDrive drive(parameters);
    drive.wizardPath = m_drive.wizardPath;
    RunWizardWith(drive, [&] {
        m_boxes.Expect("- Parameter 3016 not found from drive.\n\nUnable to use the specified parameter.\n");
        Robot::Press(kStart);
        m_boxes.Verify();
        EXPECT_FALSE(Robot::IsEnabled(ValueId(3016)));
        EXPECT_EQ(Robot::Text(ValueId(9902)), "5");
        QStringList reads = kReads;
        reads.removeOne("read 3016");
        EXPECT_EQ(drive.TakeLog(), reads);
        Robot::Type(ValueId(9910), "400");
        Robot::Press(kApply);
        EXPECT_EQ(drive.TakeLog(), (QStringList{"write 9910=400", "read 9910"})) << "and no cyclic reads in between";
        Robot::Press(kNext);
        EXPECT_EQ(Robot::Layout(), 101);
    });
}

TEST_F(NamePlateData, OpensAlthoughTheDriveDoesNotAnswer) {
    for (const auto& parameter : NamePlateParameters())
        m_drive.unreadable.insert(parameter.reg);
    Run([this] {
        QStringList others;
        for (const auto& parameter : NamePlateParameters())
            others.append(QString::number(parameter.reg) + ' ' + parameter.name);
        others.removeFirst();
        m_boxes.Expect("Reading parameter 99.01 Language failed: simulated failure\n\nThe same happened with:\n" +
                       others.join('\n'));
        Robot::Press(kStart);
        EXPECT_EQ(Robot::Layout(), 100);
        EXPECT_EQ(Robot::Text(ValueId(9901)) + Robot::Text(ValueId(9902)), "");
        m_drive.unreadable.clear();
        Robot::Press(kBack);
        Robot::Press(kStart);
        EXPECT_EQ(Robot::Text(ValueId(9902)), "5");
    });
}

} // namespace
} // namespace krt550
