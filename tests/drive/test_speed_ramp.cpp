#include "drive/speed_ramp.h"

namespace krt550 {
namespace {

TEST(SpeedRamp, MovesAtTheSlopeOfItsDirection) {
    const RampSlopes slopes{100, 200};
    const struct {
        double from, target, seconds, output;
    } cases[] = {
        {0, 1000, 2, 200},      {0, -1000, 2, -200},    {0, 150, 2, 150},    {1000, 0, 2, 600},
        {-1000, -500, 1, -800}, {-1000, -500, 5, -500}, {100, -300, 0.5, 0}, {100, -300, 1.5, -100},
        {-100, 300, 60, 300},   {500, 500, 1, 500},     {500, 900, 0, 500},
    };
    for (const auto& c : cases) {
        CSpeedRamp whole;
        whole.Preset(c.from);
        whole.Step(c.seconds, c.target, slopes);
        EXPECT_NEAR(whole.GetOutput(), c.output, 1e-9) << c.from << " to " << c.target;

        CSpeedRamp sliced;
        sliced.Preset(c.from);
        for (int i = 0; i < 100; ++i)
            sliced.Step(c.seconds / 100, c.target, slopes);
        EXPECT_NEAR(sliced.GetOutput(), c.output, 1e-6) << "in slices, " << c.from << " to " << c.target;
    }
}

TEST(SpeedRamp, RampTimeOfZeroIsAtOnce) {
    CSpeedRamp ramp;
    ramp.Preset(-800);
    ramp.Step(0.001, 1200, {RampSlope(1500, 0), RampSlope(1500, 0)});
    EXPECT_EQ(ramp.GetOutput(), 1200);
    EXPECT_EQ(RampSlope(-1500, 10), 150);
}

} // namespace
} // namespace krt550
