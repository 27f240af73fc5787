// What the fault modes do to a run, by their names.
#include "drive/simulated_host_drive.h"
#include "tests/drive/whole_drive.h"

namespace krt550 {
namespace {

struct Effect {
    const char* name;
    const char* modes; ///< separated by blanks
    quint16 run;       ///< service mode; they are switched on when its progress has come to 20 %
    quint16 outcome;   ///< 9.11
    FeedbackDevice device = FeedbackDevice::Encoder;
    int source = 0;
};

void PrintTo(const Effect& effect, std::ostream* out) {
    *out << effect.name;
}

const Effect kEffects[] = {
    {"PhaseMissing", "phase-missing", 4, diagnosis::kPhaseMissing},
    {"PhaseOrder", "phase-order", 4, diagnosis::kPhaseOrder},
    {"MainsDip", "mains-dip:300", 4, diagnosis::kMains},
    {"FuseBlown", "fuse-blown", 1, diagnosis::kRipple},
    {"EarthFault", "earth-fault:10", 4, diagnosis::kEarth},
    {"ContactorDrops", "contactor-drops", 4, diagnosis::kContactor},
    {"EmergencyStop", "e-stop", 4, diagnosis::kEmergencyStop},
    {"FieldSwapped", "field-swapped", 5, diagnosis::kEncoderReversed},
    {"ArmatureSwapped", "armature-swapped", 5, diagnosis::kEncoderReversed},
    {"BothSwapped", "field-swapped armature-swapped", 4, 0},
    {"Load", "load:150", 4, diagnosis::kDoesNotTurn},
    {"HangingLoad", "hanging-load:60", 1, diagnosis::kTurned},
    {"TachoNoisy", "tacho-noisy:10", 5, diagnosis::kTachoNoisy, FeedbackDevice::Tacho},
    {"EncoderChannel", "encoder-channel", 5, diagnosis::kEncoderMissing, FeedbackDevice::Encoder, 1},
    {"OtherControlForAWhile", "other-control-for:500", 4, diagnosis::kOtherPlace},
};

class FaultEffect : public testing::TestWithParam<Effect> {
protected:
    void Seconds(double seconds) {
        for (int i = 0; i < seconds * 20; ++i) {
            m_clock.Sleep(50);
            m_host.RefreshState();
        }
    }
    double Value(quint16 reg) { return m_host.GetDrive().GetRegisters().GetNumber(reg, -1); }
    void Switch(const char* modes) {
        for (const QString& mode : QString::fromLatin1(modes).split(u' ')) {
            QString error;
            ASSERT_TRUE(m_host.SetFaultMode(mode, error)) << error.toStdString();
        }
    }
    void Begin(quint16 mode) {
        ASSERT_TRUE(m_host.GetDrive().WriteRegister(reg::kServiceMode, mode));
        ASSERT_TRUE(m_host.TakeLocalControl());
        ASSERT_TRUE(m_host.CloseContactor());
        ASSERT_TRUE(m_host.StartMotor());
        for (int i = 0; i < 600 && Value(reg::kProgress) < 20; ++i)
            Seconds(0.05);
    }

    CSteppedClock m_clock;
    ClockScope m_scope{m_clock};
    CSimulatedHostDrive m_host{test::WholeDescription(), QString(), &DefaultMotorSet()};
};

TEST_P(FaultEffect, EndsARunSafelyWithItsReason) {
    const Effect& effect = GetParam();
    m_host.GetDrive().GetFeedback().device = effect.device;
    m_host.GetDrive().GetRegisters().SetNumber(reg::kArmatureResistance, 2581);
    m_host.GetDrive().GetRegisters().SetNumber(reg::kSpeedSource, effect.source);
    Begin(effect.run);
    Switch(effect.modes);
    Seconds(60);
    EXPECT_EQ(Value(reg::kDiagnosis), effect.outcome);
    if (effect.run == 5)
        m_host.StopMotor();
    m_host.ClearFaultModes();
    Seconds(40);
    EXPECT_EQ(Value(reg::kServiceMode), 0);
    EXPECT_TRUE(m_host.GetDrive().IsStopped()) << "nobody may be surprised by a motor that runs on";
    m_host.ResetFault();
    EXPECT_TRUE(m_host.TakeLocalControl()) << "given back";
    m_host.OpenContactor();
    EXPECT_TRUE(m_host.CloseContactor()) << "and ready again: " << m_host.GetLastErrorText().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Modes, FaultEffect, testing::ValuesIn(kEffects),
                         [](const auto& effect) { return std::string(effect.param.name); });

using FaultEffects = FaultEffect;

TEST_F(FaultEffects, StartRefusedSaysWhyAndNothingTurns) {
    Switch("start-refused");
    ASSERT_TRUE(m_host.TakeLocalControl());
    ASSERT_TRUE(m_host.CloseContactor());
    EXPECT_FALSE(m_host.StartMotor());
    EXPECT_NE(m_host.GetLastErrorText().indexOf(QLatin1String("interlock")), -1);
    Seconds(5);
    EXPECT_TRUE(m_host.GetDrive().IsStopped());
}

TEST_F(FaultEffects, ContactorWeldedIsToldWhenItShallOpen) {
    Switch("contactor-welded");
    ASSERT_TRUE(m_host.TakeLocalControl());
    ASSERT_TRUE(m_host.CloseContactor());
    EXPECT_FALSE(m_host.OpenContactor());
    Seconds(2);
    EXPECT_EQ(m_host.GetDrive().GetFaults().GetActive(), 108);
}

TEST_F(FaultEffects, EveryThirdReplyIsLostAndTheDriveHasDoneItAllTheSame) {
    Switch("reply-lost:3");
    int lost = 0;
    for (int i = 0; i < 30; ++i)
        lost += !m_host.RefreshState();
    EXPECT_EQ(lost, 10);
    ASSERT_TRUE(m_host.TakeLocalControl());
    ASSERT_TRUE(m_host.RefreshState());
    EXPECT_FALSE(m_host.CloseContactor());
    EXPECT_TRUE(m_host.GetDrive().IsContactorClosed());
}

TEST_F(FaultEffects, StuckProgressNeverEndsUntilTheMotorIsStopped) {
    Begin(4);
    Switch("progress-stuck");
    Seconds(1);
    const double progress = Value(reg::kProgress);
    Seconds(300);
    EXPECT_EQ(Value(reg::kProgress), progress);
    EXPECT_EQ(Value(reg::kServiceMode), 4);
    EXPECT_TRUE(m_host.StopMotor());
    Seconds(30);
    EXPECT_EQ(Value(reg::kServiceMode), 0);
    EXPECT_TRUE(m_host.GetDrive().IsStopped());
}

TEST_F(FaultEffects, ModeThatStaysKeepsItsRegisterButNotTheMotor) {
    Switch("mode-stays");
    Begin(4);
    EXPECT_TRUE(m_host.StopMotor());
    Seconds(20);
    EXPECT_EQ(Value(reg::kServiceMode), 4);
    EXPECT_TRUE(m_host.GetDrive().IsStopped());
    EXPECT_TRUE(m_host.GetDrive().WriteRegister(reg::kServiceMode, 0));
    EXPECT_EQ(Value(reg::kServiceMode), 0);
}

} // namespace
} // namespace krt550
