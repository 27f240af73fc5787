#include "tests/shell/wizard_fixture.h"

namespace krt550 {
namespace {

/// Check boxes by page index.
constexpr int kBoxes[] = {0, 160, 164, 165, 166, 167, 168, 169, 171, 173, 174, 175, 176, 177, 178, 179, 180};

using StartPage = WizardFixture;

TEST_F(StartPage, EnablesNextForTickedBoxesThatAreOffered) {
    Run([] {
        for (int page = 1; page <= 16; ++page)
            EXPECT_EQ(Robot::Find(kBoxes[page]) != nullptr, page <= 7) << page;
        Robot::Press(kBoxes[4]);
        EXPECT_TRUE(Robot::IsEnabled(kNext));
        Robot::Press(kBoxes[4]);
        EXPECT_FALSE(Robot::IsEnabled(kNext));
        Robot::Press(kView);
        EXPECT_EQ(Robot::Text(kView), "Basic");
        Robot::Press(kBoxes[13]);
        EXPECT_TRUE(Robot::IsEnabled(kNext));
        Robot::Press(kView);
        EXPECT_EQ(Robot::Text(kView), "Advanced");
        EXPECT_FALSE(Robot::IsEnabled(kNext)) << "a hidden box does not count";
        Robot::Press(kView);
        EXPECT_TRUE(Robot::IsEnabled(kNext)) << "but keeps its mark";
    });
}

TEST_F(StartPage, WalksTheTickedPagesInPageOrderAndComesBack) {
    Run([] {
        Robot::Press(kView);
        for (const int page : {7, 2, 12})
            Robot::Press(kBoxes[page]);
        Robot::Press(kNext);
        EXPECT_EQ(Robot::Title(), "[KRT550Wizard] 2. Macro assistant");
        EXPECT_EQ(Robot::Text(kNext), "Next >");
        EXPECT_EQ(Digits(), "0200002");
        Robot::Press(kNext);
        EXPECT_EQ(Robot::Title(), "[KRT550Wizard] 7. Field weakening assistant");
        EXPECT_EQ(Digits(), "0100002");
        Robot::Press(kBack);
        EXPECT_EQ(Digits(), "0100002");
        Robot::Press(kBack);
        EXPECT_EQ(Robot::Layout(), 107) << "back from the first page";
        EXPECT_EQ(Digits(), "0200002") << "a step that was done is red again";
        EXPECT_TRUE(Robot::IsEnabled(kNext));
        for (int i = 0; i < 3; ++i)
            Robot::Press(kNext);
        EXPECT_EQ(Robot::Title(), "[KRT550Wizard] Field exciter assistant");
        EXPECT_EQ(Robot::Text(kNext), "Finish");
        Robot::Press(kNext);
        EXPECT_EQ(Robot::Layout(), 107);
        EXPECT_EQ(Digits(), "0100001");
    });
}

} // namespace
} // namespace krt550
