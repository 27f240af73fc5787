// What is special about each autotuning page: its rows, their order, its start condition.
#include "tests/assistants/tuning_fixture.h"

#include "wizard/platform/row_ids.h"
#include "wizard/platform/slider.h"

namespace krt550 {
namespace {

QStringList Reads(std::initializer_list<int> registers) {
    QStringList reads;
    for (const int reg : registers)
        reads.append(QString("read %1").arg(reg));
    return reads;
}

class AutotuningPages : public TuningFixture<TuningDrive> {
protected:
    // Step 3 starts with an exciter chosen, step 7 with field weakening, step 4 always.
    AutotuningPages() : TuningFixture(PageFiles()) {}
};

TEST_F(AutotuningPages, BindTheirRowsInOrderAndEvaluateTheStartConditionInBetween) {
    m_drive.words[9912] = 1;
    OnPage(165, [this] {
        EXPECT_EQ(m_drive.TakeLog(), Reads({9911, 406, 9912, 4401, 9912, 4402, 4403, 4502, 9408}));
        EXPECT_TRUE(Robot::IsEnabled(kStartRun));
        EXPECT_FALSE(Robot::IsEnabled(kDiagnosis));
        EXPECT_EQ(Robot::Text(LabelId(406)), "406 Parameter 406");
        EXPECT_EQ(Robot::Text(60101), "Actual");
        EXPECT_EQ(Robot::Text(kNext), "Finish");
    });
    OnPage(166, [this] {
        EXPECT_EQ(m_drive.TakeLog(), Reads({9903, 2005, 2006, 2012, 2013, 4306, 4307, 4308, 4309, 4310}));
        EXPECT_TRUE(Robot::IsEnabled(kStartRun));
    });
    OnPage(169, [this] {
        EXPECT_EQ(m_drive.TakeLog(),
                  Reads({4401, 9902, 9904, 2001, 2002, 9911, 3012, 4409, 4410, 4412, 4413, 4414, 4401}));
        EXPECT_FALSE(Robot::IsEnabled(kStartRun)) << "4401 is 0";
        Robot::Choose(ValueId(4401), "On");
        Robot::Type(ValueId(9902), "240");
        Robot::Type(ValueId(4409), "5");
        m_drive.TakeLog();
        Robot::Press(kApply);
        EXPECT_EQ(m_drive.TakeLog({"write"}), (QStringList{"write 9902=240", "write 4401=1", "write 4409=5"}));
        EXPECT_TRUE(Robot::IsEnabled(kStartRun)) << "evaluated again";
    });
}

TEST_F(AutotuningPages, DisableStartWhenTheConditionCannotBeRead) {
    m_drive.words[9912] = 1;
    m_drive.unreadable.insert(9912);
    m_boxes.Expect("Reading parameter 99.12 List 9912 failed: simulated failure"); // the row and the condition, once
    OnPage(165, [] { EXPECT_FALSE(Robot::IsEnabled(kStartRun)); });
}

TEST_F(AutotuningPages, TheSliderOfStep6GoesFrom0To100WhereTheTextsSayNothing) {
    OnPage(168, [] {
        auto* slider = static_cast<CSlider*>(Robot::Control(60211));
        EXPECT_EQ(slider->minimum(), 0);
        EXPECT_EQ(slider->value(), 100);
    });
}

TEST_F(AutotuningPages, SayWhichOfTheRunsParametersTheDriveLacks) {
    std::vector<ParameterDescription> parameters = TuningDrive::Parameters();
    std::erase_if(parameters, [](const ParameterDescription& p) { return p.reg == 424 || p.reg == 4306; });
    FakeDrive drive(parameters);
    drive.wizardPath = m_drive.wizardPath;
    RunWizardWith(drive, [&] {
        m_boxes.Expect("Parameter 424 not found from drive.\n\nUnable to use the specified parameter.");
        Robot::Press(166);
        Robot::Press(kNext);
        m_boxes.Verify();
        EXPECT_FALSE(Robot::IsEnabled(ValueId(4306))) << "a missing row is not told of here";
    });
}

} // namespace
} // namespace krt550
