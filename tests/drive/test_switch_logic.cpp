#include "drive/control_word.h"
#include "drive/switch_logic.h"

#include <gtest/gtest.h>

namespace krt550 {
namespace {

constexpr quint16 kIdle = control::kIdle;
constexpr quint16 kOn = kIdle | control::kOn;
constexpr quint16 kRun = kOn | control::kRun;
constexpr quint16 kCoast = kRun & ~control::kNoCoastStop;
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

TEST(SwitchLogic, StatusBitsFollowTheState) {
    CSwitchLogic logic;
    SwitchInputs inputs{kIdle, true, true, false};
    const auto bitsAt = [&](quint16 word, bool standstill, bool fault) {
        inputs = {word, true, standstill, fault};
        while (logic.Step(inputs)) {
        }
        return logic.GetStatusBits(inputs);
    };
    EXPECT_EQ(bitsAt(kIdle, true, false), 0b0110001);
    EXPECT_EQ(bitsAt(kOn, true, false), 0b0110011);
    EXPECT_EQ(bitsAt(kRun, false, false), 0b0110111);
    EXPECT_EQ(bitsAt(kIdle, false, false), 0b0110100) << "switching off, still driven";
    EXPECT_EQ(bitsAt(control::kNoCoastStop, false, false), 0b0010100) << "quick stop";
    EXPECT_EQ(bitsAt(kIdle, false, false), 0b0010100) << "quick stop goes on";
    EXPECT_EQ(bitsAt(control::kNoQuickStop, false, false), 0b1100000) << "coast stop";
    EXPECT_EQ(bitsAt(kIdle, true, true), 0b1111000) << "fault";
}

} // namespace
} // namespace krt550
