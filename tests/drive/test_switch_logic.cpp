#include "drive/control_word.h"
#include "drive/switch_logic.h"

namespace krt550 {
namespace {

constexpr quint16 kIdle = control::kIdle;
constexpr quint16 kOn = kIdle | control::kOn;
constexpr quint16 kRun = kOn | control::kRun;
constexpr quint16 kQuick = kRun & ~control::kNoQuickStop;

/// One change of the inputs, and where the drive comes to rest.
struct Move {
    quint16 word;
    bool standstill;
    DriveState state;
    bool fault = false;
};

struct Walk {
    const char* name;
    std::vector<Move> moves;
};

const Walk kWalks[] = {
    {"OffTakenBack",
     {{kIdle, true, DriveState::Ready},
      {kRun, false, DriveState::Operation},
      {kIdle, false, DriveState::SwitchingOff},
      {kRun, false, DriveState::Operation}}},
    {"OnAtPowerUpDoesNotStart", {{kRun, true, DriveState::Inhibited}, {kIdle, true, DriveState::Ready}}},
    {"QuickStopEndsAtStandstillAndWantsANewOn",
     {{kIdle, true, DriveState::Ready},
      {kRun, false, DriveState::Operation},
      {kQuick, false, DriveState::QuickStopping},
      {kRun, false, DriveState::QuickStopping},
      {kRun, true, DriveState::Inhibited},
      {kIdle, true, DriveState::Ready}}},
    {"QuickStopWhileSwitchingOff",
     {{kIdle, true, DriveState::Ready},
      {kRun, false, DriveState::Operation},
      {kIdle, false, DriveState::SwitchingOff},
      {control::kNoCoastStop, false, DriveState::QuickStopping}}},
    {"StopsHoldAnIdleDriveInhibited",
     {{control::kNoCoastStop, true, DriveState::Inhibited},
      {control::kNoQuickStop, true, DriveState::Inhibited},
      {kIdle, true, DriveState::Ready},
      {control::kNoCoastStop, true, DriveState::Inhibited}}},
};

TEST(SwitchLogic, WalksThroughItsStates) {
    for (const Walk& walk : kWalks) {
        CSwitchLogic logic;
        SwitchInputs inputs;
        for (std::size_t i = 0; i < walk.moves.size(); ++i) {
            const Move& move = walk.moves[i];
            inputs = {move.word, inputs.contactorClosed, move.standstill, move.fault};
            for (int steps = 0; steps < 10; ++steps) {
                logic.Step(inputs);
                inputs.contactorClosed = logic.WantsContactor(inputs);
            }
            EXPECT_EQ(logic.GetState(), move.state) << walk.name << ", move " << i;
        }
    }
}

} // namespace
} // namespace krt550
