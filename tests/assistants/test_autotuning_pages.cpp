// What the autotuning pages do where texts or drive leave something out.
#include "tests/assistants/tuning_fixture.h"

#include "wizard/platform/row_ids.h"
#include "wizard/platform/slider.h"

namespace krt550 {
namespace {

class AutotuningPages : public TuningFixture<TuningDrive> {
protected:
    // Step 3 starts with an exciter chosen, step 7 with field weakening, step 4 always.
    AutotuningPages() : TuningFixture(PageFiles().WizardPath()) {}
};

TEST_F(AutotuningPages, DisableStartWhenTheConditionCannotBeRead) {
    m_drive.words[9912] = 1;
    m_drive.unreadable.insert(9912);
    m_boxes.Expect("Reading parameter 99.12 Exciter failed: simulated failure"); // the row and the condition, once
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
    std::vector<ParameterDescription> parameters = TuningDrive::Parameters({});
    std::erase_if(parameters,
                  [](const ParameterDescription& p) { return p.reg == 424 || p.reg == 4306 || p.reg == 103; });
    FakeDrive drive(parameters);
    drive.wizardPath = m_drive.wizardPath;
    RunWizardWith(drive, [&] {
        m_boxes.Expect("Parameter 424 not found from drive.\n\nUnable to use the specified parameter.");
        Robot::Press(166);
        Robot::Press(kNext);
        m_boxes.Verify();
        EXPECT_FALSE(Robot::IsEnabled(ValueId(4306))) << "a missing row is not told of here";
        Robot::Press(kBack);
        Robot::Press(166);
        m_boxes.Expect("Parameter 424 not found*");
        m_boxes.Expect("Parameter 103 not found*");
        Robot::Press(167);
        Robot::Press(kNext);
    });
}

} // namespace
} // namespace krt550
