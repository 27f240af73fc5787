// The speed feedback test and the fine tuning of a tacho.
#include "tests/drive/whole_drive.h"

namespace krt550 {
namespace {

using test::WholeDrive;

constexpr quint16 kFeedbackTest = 5;
constexpr quint16 kTuning = 14;

void Stop(WholeDrive& drive) {
    drive.Drive().StopMotor();
    drive.Drive().OpenContactor();
    for (int i = 0; i < 250 && !drive.Drive().IsStopped(); ++i)
        drive.Seconds(0.1);
    ASSERT_TRUE(drive.Drive().IsStopped());
}

struct Shaft {
    const char* name;
    FeedbackDevice device;
    const char* defect; ///< see WholeDrive::Disturb
    int chosen;         ///< before
    int found;          ///< -1: stays as it was
    quint16 outcome;
    int tachoRange;
};

void PrintTo(const Shaft& shaft, std::ostream* out) {
    *out << shaft.name;
}

const Shaft kShafts[] = {
    {"Encoder", FeedbackDevice::Encoder, "", 0, 1, 0, 0},
    {"EncoderChosenBefore", FeedbackDevice::Encoder, "", 1, 1, 0, 0},
    {"EncoderBroken", FeedbackDevice::Encoder, "feedback-broken", 1, -1, diagnosis::kEncoderMissing, 0},
    {"EncoderReversed", FeedbackDevice::Encoder, "feedback-reversed", 0, -1, diagnosis::kEncoderReversed, 0},
    {"EncoderPulses", FeedbackDevice::Encoder, "encoder-pulses:2500", 0, -1, diagnosis::kEncoderPulses, 0},
    {"Tacho", FeedbackDevice::Tacho, "", 0, 2, 0, 3},
    {"TachoInPlaceOfAnEncoder", FeedbackDevice::Tacho, "", 1, 2, 0, 3},
    {"TachoBroken", FeedbackDevice::Tacho, "feedback-broken", 2, -1, diagnosis::kTachoMissing, 0},
    {"TachoReversed", FeedbackDevice::Tacho, "feedback-reversed", 0, -1, diagnosis::kTachoReversed, 0},
    {"TachoScaling", FeedbackDevice::Tacho, "tacho-voltage:100", 0, -1, diagnosis::kTachoScaling, 0},
    {"TachoVoltage", FeedbackDevice::Tacho, "tacho-voltage:200", 0, -1, diagnosis::kTachoVoltage, 0},
    {"None", FeedbackDevice::None, "", 0, 0, 0, 0},
    {"NoneButChosen", FeedbackDevice::None, "", 1, -1, diagnosis::kEncoderMissing, 0},
};

class FeedbackTest : public testing::TestWithParam<Shaft> {};

TEST_P(FeedbackTest, FindsWhatIsMounted) {
    const Shaft& shaft = GetParam();
    WholeDrive drive("S2");
    drive.KnowArmature();
    drive.Drive().GetFeedback().device = shaft.device;
    drive.Disturb(shaft.defect);
    drive.SetValue(reg::kSpeedSource, shaft.chosen);
    // Also a test that fails goes past 80 %, so that nobody waits for it in vain.
    drive.Begin(kFeedbackTest, 81);
    EXPECT_EQ(drive.Value(reg::kDiagnosis), shaft.outcome);
    EXPECT_EQ(drive.Value(reg::kSpeedSource), shaft.found < 0 ? shaft.chosen : shaft.found);
    EXPECT_EQ(drive.Value(reg::kTachoRange), shaft.tachoRange);
    if (!shaft.outcome) {
        drive.Seconds(3);
        EXPECT_NEAR(drive.Drive().GetSpeed(), 1750, 90) << "turns until it is stopped";
        EXPECT_EQ(drive.Value(reg::kServiceMode), kFeedbackTest);
    }
    Stop(drive);
    EXPECT_EQ(drive.Value(reg::kServiceMode), 0);
    EXPECT_EQ(drive.Value(reg::kDiagnosis), shaft.outcome) << "stopping it is no failure";
    EXPECT_EQ(drive.Drive().GetFaults().GetActive(), 0);
}

INSTANTIATE_TEST_SUITE_P(Shafts, FeedbackTest, testing::ValuesIn(kShafts),
                         [](const auto& shaft) { return std::string(shaft.param.name); });

TEST(TachoTuning, ConvergesToTheHandHeldTacho) {
    WholeDrive drive("S2");
    drive.Drive().GetFeedback().device = FeedbackDevice::Tacho;
    drive.Disturb("tacho-voltage:66");
    drive.SetValue(reg::kSpeedSource, 2);
    drive.Begin(kTuning, 50);
    drive.Seconds(3);
    EXPECT_NEAR(drive.Value(reg::kSpeedTacho), 1750, 10);
    EXPECT_NEAR(drive.Drive().GetSpeed(), 1750 * 60 / 66, 10) << "the tacho reads too much";
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(drive.Drive().WriteRegister(reg::kHandTacho, quint16(std::lround(drive.Drive().GetSpeed()))));
        drive.Seconds(4);
    }
    EXPECT_NEAR(drive.Drive().GetSpeed(), 1750, 5);
    EXPECT_NEAR(drive.Value(reg::kSpeedTacho), drive.Drive().GetSpeed(), 5);
    EXPECT_NEAR(drive.Value(reg::kTachoAdjust), 60.0 / 66 * 100, 0.5);
    EXPECT_LE(drive.Value(reg::kProgress), 100) << "goes on until it is stopped";

    for (const int misread : {0, -1750, 400, 4000}) {
        EXPECT_FALSE(drive.Drive().WriteRegister(reg::kHandTacho, static_cast<quint16>(misread))) << misread;
        EXPECT_NE(drive.Drive().GetLastError().indexOf(QLatin1String("tacho shows")), -1);
    }
    Stop(drive);
    EXPECT_EQ(drive.Value(reg::kServiceMode), 0);
    EXPECT_EQ(drive.Value(reg::kDiagnosis), 0);
    EXPECT_TRUE(drive.Drive().WriteRegister(reg::kHandTacho, 0)) << "without the tuning it is but a number";
}

TEST(TachoTuning, GoesPastAHundredWhenTheDriveEndsIt) {
    WholeDrive drive("S2");
    drive.Drive().GetFeedback().device = FeedbackDevice::Tacho;
    drive.SetValue(reg::kSpeedSource, 2);
    drive.Begin(kTuning, 50);
    drive.Seconds(120);
    EXPECT_EQ(drive.Value(reg::kServiceMode), kTuning) << "a person takes the time that is needed";
    drive.Disturb("field-broken");
    drive.Seconds(2);
    EXPECT_GT(drive.Value(reg::kProgress), 100);
    EXPECT_EQ(drive.Value(reg::kDiagnosis), diagnosis::kFieldLost);
}

} // namespace
} // namespace krt550
