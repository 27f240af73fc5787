// Service run 9: the field is reversed by hand, with the motor at standstill and no current in its armature.
#include "drive/service_runs.h"
#include "drive/test_bench.h"

#include <utility>

namespace krt550 {
namespace {

constexpr double kThere = 0.9;   ///< of rated field current
constexpr double kWindow = 0.05; ///< between two looks [s]

} // namespace

CServiceRun RunReversal(CTestBench& bench) {
    const DriveSettings& settings = bench.GetSettings();
    if (!settings.exciterReverses)
        co_return diagnosis::kCannotReverse;
    bench.mustStand = true;
    int direction = 0;            // that the exciter has been given
    double since = 0;             // [s]
    bool seen[] = {false, false}; // forward, reverse
    for (;;) {
        if (std::exchange(direction, bench.fieldDirection) != bench.fieldDirection) {
            if (direction == 0)
                co_return seen[0] && seen[1] ? diagnosis::kNone : diagnosis::kStopped;
            bench.command.field = FieldMode::Current;
            bench.command.fieldCurrent = direction;
            since = bench.GetTime();
        }
        bench.StartMean();
        co_yield kWindow;
        if (direction == 0)
            continue;
        const double field = direction * bench.Mean().fieldCurrent / settings.ratedFieldCurrent;
        if (field >= kThere) {
            seen[direction > 0 ? 0 : 1] = true;
            since = bench.GetTime();
            if (seen[0] && seen[1] && !bench.HasPublished())
                bench.Publish();
        } else if (bench.GetTime() - since > settings.reversalTime) {
            co_return seen[0] || seen[1] ? diagnosis::kReversalTooSlow : diagnosis::kFieldNotReached;
        }
    }
}

} // namespace krt550
