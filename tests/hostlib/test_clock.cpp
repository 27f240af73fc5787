#include "hostlib/tolvbo32/clock.h"

namespace krt550 {
namespace {

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
    clock.Sleep(-100);
    EXPECT_EQ(clock.Now(), 1000) << "never backwards";
}

} // namespace
} // namespace krt550
