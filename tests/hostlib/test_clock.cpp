#include "hostlib/tolvbo32/clock.h"

#include <gtest/gtest.h>

namespace krt550 {
namespace {

TEST(Clock, SteppedTimePassesOnlyInSleepsAndNeverBackwards) {
    CSteppedClock clock;
    const qint64 start = clock.Now();
    EXPECT_EQ(clock.Now(), start);
    clock.Sleep(250);
    clock.Sleep(-100);
    clock.Sleep(0);
    EXPECT_EQ(clock.Now(), start + 250);
}

TEST(Clock, ScopesNestAndPutTheFormerClockBack) {
    CClock* const real = &CClock::Current();
    CSteppedClock outer;
    CSteppedClock inner;
    {
        const ClockScope outerScope(outer);
        {
            const ClockScope innerScope(inner);
            EXPECT_EQ(&CClock::Current(), &inner);
        }
        EXPECT_EQ(&CClock::Current(), &outer);
    }
    EXPECT_EQ(&CClock::Current(), real);
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
