#include "hostlib/tolvbo32/clock.h"

#include <QCoreApplication>

namespace krt550 {
namespace {

TEST(Clock, SteppedTimePassesOnlyInSleepsAndNeverBackwards) {
    CSteppedClock clock;
    const qint64 start = clock.Now();
    EXPECT_EQ(clock.Now(), start);
    clock.Sleep(250);
    clock.Sleep(-100);
    EXPECT_EQ(clock.Now(), start + 250);
}

// A procedure that sleeps and drains the queue in between must not keep everybody else's time from passing.
TEST(Clock, AlarmsGoOffInTheirOrderWhenIdleAndAfterASleep) {
    CSteppedClock clock;
    const ClockScope scope(clock);
    QStringList heard;
    const auto say = [&](const char* word) { return [&, word] { heard.append(QLatin1String(word)); }; };
    clock.SetAlarm(300, say("300"));
    clock.SetAlarm(100, say("100"));
    clock.ForgetAlarm(clock.SetAlarm(200, say("forgotten")));
    clock.SetAlarm(1000, say("1000"));
    QCoreApplication::processEvents();
    EXPECT_TRUE(heard.isEmpty()) << "no time has passed";
    clock.Sleep(400);
    QCoreApplication::processEvents();
    EXPECT_EQ(heard, QStringList({"100", "300"}));
    while (heard.size() < 3)
        clock.WaitForEvents(5000);
    EXPECT_EQ(clock.Now(), 1000);
}

TEST(Clock, RealClockSleepsAtLeastAsLongAsAsked) {
    CClock& real = CClock::Current();
    const qint64 before = real.Now();
    real.Sleep(5);
    real.Sleep(-5);
    EXPECT_GE(real.Now(), before + 5);
}

} // namespace
} // namespace krt550
