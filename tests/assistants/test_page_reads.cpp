// What the pages of the seven steps ask of the drive: when they come to the front, while they are there, afterwards.
#include "tests/assistants/feedback_drive.h"
#include "tests/shell/wizard_fixture.h"
#include "tests/support/batching_link.h"

#include "hostlib/tolvbo32/clock.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/resources/control_ids.h"

namespace krt550 {
namespace {

constexpr int kBoxes[] = {160, 164, 165, 166, 167, 168, 169}; ///< of the start page

TEST(PageReads, AreOneOrTwoRequestsWhereTheLinkCanFetchManyAtOnce) {
    for (const int box : kBoxes) {
        FeedbackDrive drive;
        drive.wizardPath = PageFiles().WizardPath();
        CBatchingLink link(drive);
        drive.SetTreeLink(link);
        MessageBoxes boxes;
        RunWizardWith(drive, [&] {
            Robot::Press(box);
            link.TakeRequests();
            Robot::Press(kNext);
            const QStringList requests = link.TakeRequests();
            EXPECT_LE(requests.size(), 2) << box << ": " << requests.join(", ").toStdString();
        });
    }
}

// The EMF's speed serves two rows; one of them has its name.
TEST(PageReads, AreOneForEachSpeedInAPassOfStep5AndNoneOnceItIsLeft) {
    CSteppedClock clock;
    const ClockScope scope(clock);
    FeedbackDrive drive;
    drive.wizardPath = PageFiles().WizardPath();
    drive.words[5003] = 0;
    drive.words[102] = 700;
    MessageBoxes boxes;
    RunWizardWith(drive, [&] {
        QStringList log;
        const auto pass = [&] {
            log.clear();
            return Robot::WaitUntil([&] {
                log += drive.TakeLog();
                return log.contains("read 218") && !IsUpdatePassOn();
            });
        };
        Robot::Press(167);
        Robot::Press(kNext);
        EXPECT_EQ(Robot::Text(kIdShownEmf), "Parameter 102");
        EXPECT_EQ(Robot::Text(kIdShownSpeed), "Speed actual");
        EXPECT_TRUE(pass());
        drive.words[102] = 710;
        EXPECT_TRUE(pass());
        EXPECT_EQ(log.count("read 102"), 1) << log.join(", ").toStdString();
        EXPECT_TRUE(pass());
        EXPECT_EQ(Robot::Text(kIdShownEmf + kShownValue), "710");
        EXPECT_EQ(Robot::Text(kIdShownSpeed + kShownValue), "710");
        drive.words[5003] = 1;
        EXPECT_TRUE(pass() && pass());
        EXPECT_EQ(Robot::Text(kIdShownSpeed), "Parameter 103");
        Robot::Press(kBack);
        Robot::Press(kNext);
        EXPECT_TRUE(pass() && pass());
        EXPECT_EQ(log.count("read 218"), 1) << "one timer, however often the page is entered";
        Robot::Press(kCancel);
        drive.TakeLog();
        const qint64 left = clock.Now();
        while (clock.Now() < left + 1000)
            clock.WaitForEvents(100);
        EXPECT_EQ(drive.TakeLog(), QStringList());
    });
}

} // namespace
} // namespace krt550
