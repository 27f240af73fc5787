#include "tests/support/fake_drive.h"

#include "hostlib/tolvbo32/clock.h"
#include "wizard/params/drive_commands.h"

#include <QWidget>

namespace krt550 {
namespace {

/// Stops after a number of polls of its state.
class CCoastingDrive : public FakeDrive {
public:
    explicit CCoastingDrive(int polls) : FakeDrive({}), m_left(polls) { statusWord = 0; }
    bool RefreshState() override {
        ++polled;
        if (--m_left < 0)
            statusWord = kStatusStopped;
        return true;
    }
    int polled = 0;

private:
    int m_left;
};

TEST(DriveCommands, WaitForTheStopAtMost250Polls) {
    struct {
        int runningPolls; ///< polls that still find the motor turning
        bool stops;
        int polls;
        int milliseconds;
    } const cases[] = {{0, true, 1, 0},
                       {1, true, 2, 100},
                       {249, true, 250, 24900},
                       {250, false, 251, 25000},
                       {9999, false, 251, 25000}};
    for (const auto& c : cases) {
        CSteppedClock clock;
        const ClockScope scope(clock);
        QWidget page;
        CCoastingDrive drive(c.runningPolls);
        EXPECT_EQ(WaitForStatusBit(&drive, &page), c.stops) << c.runningPolls;
        EXPECT_EQ(drive.polled, c.polls) << c.runningPolls;
        EXPECT_EQ(clock.Now(), c.milliseconds) << c.runningPolls;
    }
    EXPECT_FALSE(WaitForStatusBit(nullptr, nullptr));
}

TEST(DriveCommands, StartAndStopInTheSafeOrder) {
    FakeDrive drive({});
    EXPECT_TRUE(CloseContactorAndStart(&drive));
    StopAndOpenContactor(&drive);
    EXPECT_EQ(drive.TakeLog(), (QStringList{"close contactor", "start motor", "stop motor", "open contactor"}));
    EXPECT_FALSE(CloseContactorAndStart(nullptr));
    StopAndOpenContactor(nullptr);
}

} // namespace
} // namespace krt550
