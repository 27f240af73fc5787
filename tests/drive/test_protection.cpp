// Trips and the supervision of the tool that holds local control.
#include "drive/control_word.h"
#include "drive/fault_codes.h"
#include "tests/drive/whole_drive.h"

#include <cmath>

namespace krt550 {
namespace {

using test::WholeDrive;

enum class Outcome { Trip, Alarm, Nothing };

struct Cause {
    const char* name;
    const char* words; ///< that make it happen, see WholeDrive::Disturb
    double within;     ///< [s]
    Outcome outcome;
    quint16 code;
};

void PrintTo(const Cause& cause, std::ostream* out) {
    *out << cause.name;
}

const Cause kCauses[] = {
    {"Overcurrent", "3009=50 load:95", 2, Outcome::Trip, kFaultOvercurrent},
    {"Overvoltage", "3008=30", 1, Outcome::Trip, kFaultOvervoltage},
    {"MainsTooLow", "mains=130", 1, Outcome::Trip, kFaultMains},
    {"MainsLow", "mains=170", 1, Outcome::Alarm, kFaultMains},
    {"MainsDipTripsAtOnce", "3020=0 mains-dip:100", 1, Outcome::Trip, kFaultMains},
    {"MainsDipIsRiddenThrough", "3020=1 mains-dip:400", 8, Outcome::Nothing, 0},
    {"MainsDipTooLong", "3020=1 mains-dip:600", 1, Outcome::Trip, kFaultMains},
    {"FieldLost", "field-broken", 1, Outcome::Trip, kFaultFieldLoss},
    {"FieldOvercurrent", "3013=90", 1, Outcome::Trip, kFaultFieldOvercurrent},
    {"Overspeed", "hanging=-60", 5, Outcome::Trip, kFaultOverspeed},
    {"CurrentRise", "3010=0.5 load:95", 1, Outcome::Trip, kFaultCurrentRise},
    {"Stall", "3001=2 motor-locked", 6, Outcome::Trip, kFaultStall},
    {"StallBelowItsTorque", "3001=2 3003=110 motor-locked", 6, Outcome::Nothing, 0},
    {"FullCurrentAtStandstillAsFromTheWorks", "motor-locked", 300, Outcome::Trip, kFaultOvertemperature},
    {"SeparateFanBearsIt", "3108=2 motor-locked", 300, Outcome::Nothing, 0},
    {"Warm", "3102=60 3101=30 load:95", 60, Outcome::Alarm, kFaultOvertemperature},
    {"EarthCurrent", "3004=1 earth-fault:5", 1, Outcome::Trip, kFaultEarth},
    {"EarthCurrentAlarm", "3004=2 earth-fault:5", 1, Outcome::Alarm, kFaultEarth},
    {"EarthCurrentNotUsed", "3004=0 earth-fault:5", 1, Outcome::Nothing, 0},
    {"EarthCurrentBelowItsLevel", "3004=1 earth-fault:3", 1, Outcome::Nothing, 0},
    {"EarthCurrentBeforeItsDelay", "3004=1 3006=5000 earth-fault:5", 4, Outcome::Nothing, 0},
    {"MotorFan", "3026=1 motor-fan-lost", 11, Outcome::Trip, kFaultMotorFan},
    {"MotorFanBeforeItsDelay", "3026=1 motor-fan-lost", 9, Outcome::Nothing, 0},
    {"MotorFanAlarm", "3026=2 motor-fan-lost", 11, Outcome::Alarm, kFaultMotorFan},
    {"MotorFanNotUsed", "3026=0 motor-fan-lost", 11, Outcome::Nothing, 0},
    {"ConverterFan", "3036=1 converter-fan-lost", 11, Outcome::Trip, kFaultConverterFan},
    {"ConverterFanAlarm", "3036=2 converter-fan-lost", 11, Outcome::Alarm, kFaultConverterFan},
    {"PhaseMissing", "phase-missing", 1, Outcome::Trip, kFaultPhaseMissing},
    {"PhaseOrder", "phase-order", 1, Outcome::Trip, kFaultPhaseOrder},
    {"FuseBlown", "load:48 fuse-blown", 2, Outcome::Trip, kFaultRipple},
    {"ContactorDrops", "contactor-drops", 2, Outcome::Trip, kFaultMainContactor},
    {"ContactorWelded", "contactor-welded other-control", 40, Outcome::Trip, kFaultMainContactor},
};

class Supervision : public testing::TestWithParam<Cause> {};

TEST_P(Supervision, OfARunningMotorActsAsItsParametersSay) {
    const Cause& cause = GetParam();
    WholeDrive drive("S2");
    drive.SetValue(reg::kSpeedSource, 1);
    ASSERT_EQ(drive.Tune(1), 0);
    drive.Seconds(1);
    drive.RunUp(1000);
    ASSERT_NEAR(drive.Value(reg::kSpeed), 1000, 5);
    drive.Disturb(cause.words);
    bool tripped = false;
    drive.Seconds(cause.within, [&] { tripped = tripped || drive.Drive().GetFaults().GetActive() != 0; });
    const auto word = [&](quint16 reg) { return drive.Drive().GetRegisters().GetWord(reg); };
    const unsigned bit = cause.code ? 1U << (cause.code - kFirstFault) % 16 : 0;
    const auto second = static_cast<quint16>(cause.code >= kFirstFault + 16 ? 1 : 0);
    EXPECT_EQ(tripped, cause.outcome == Outcome::Trip);
    EXPECT_EQ((word(reg::kStatusWord) & status::kWarning) != 0, cause.outcome == Outcome::Alarm);
    if (cause.outcome == Outcome::Trip) {
        EXPECT_EQ(word(reg::kLastFaultCode), cause.code);
        EXPECT_EQ(word(static_cast<quint16>(reg::kFaultWord + second)), bit);
        EXPECT_EQ(drive.Drive().GetMotorState().armatureCurrent, 0);
        EXPECT_NE(word(reg::kStatusWord) & status::kFault, 0);
    } else {
        EXPECT_GT(drive.Drive().GetMotorState().armatureCurrent, 0) << "goes on";
    }
    if (cause.outcome == Outcome::Alarm) {
        EXPECT_EQ(word(reg::kLastAlarmCode), cause.code + kAlarmOffset);
        EXPECT_EQ(word(static_cast<quint16>(reg::kAlarmWord + second)), bit);
    }
}

INSTANTIATE_TEST_SUITE_P(Causes, Supervision, testing::ValuesIn(kCauses),
                         [](const auto& cause) { return std::string(cause.param.name); });

TEST(CommanderLost, StopsTripsOrGoesOnAsChosen) {
    const struct {
        int source; ///< 10.01
        const char* lost;
        quint16 reaction, time, code;
    } commanders[] = {
        {1, "fieldbus-lost", reg::kBusLossReaction, reg::kBusSupervision, kFaultFieldbus},
        {2, "link-lost", reg::kLinkLossReaction, reg::kLinkSupervision, kFaultLink},
    };
    for (const auto& c : commanders) {
        for (const int reaction : {0, 1, 2, 3, 4}) {
            WholeDrive drive("S2");
            drive.KnowArmature();
            drive.SetValue(reg::kCommandSource, c.source);
            drive.SetValue(reg::kReference1Source, 5); // the fieldbus
            drive.SetValue(reg::kRampUp, 3);
            drive.SetValue(c.reaction, reaction);
            drive.SetValue(c.time, 500);
            drive.SetValue(reg::kConstantSpeed, 300);
            drive.SetValue(reg::kRemoteReference, 900);
            for (const int run : {0, int(control::kOn | control::kRun)})
                drive.Drive().WriteRegister(reg::kControlWord,
                                            static_cast<quint16>(control::kByOverridingControl | control::kIdle | run));
            drive.Seconds(8);
            ASSERT_NEAR(drive.Drive().GetSpeed(), 900, 10);
            EXPECT_EQ(drive.Value(reg::kControlPlace), c.source == 2 ? 3 : 2);
            drive.Disturb(c.lost);
            drive.Seconds(0.4);
            EXPECT_NEAR(drive.Drive().GetSpeed(), 900, 10) << "not yet";
            drive.Seconds(0.7);
            const double speed = drive.Drive().GetSpeed();
            EXPECT_EQ(speed < 300, reaction == 1) << "torque limit stop is the fastest, " << speed;
            EXPECT_EQ(drive.Drive().GetFaults().GetActive(), reaction == 1 || reaction == 2 ? c.code : 0);
            drive.Seconds(30);
            EXPECT_EQ(drive.Drive().GetFaults().GetActive(), reaction < 3 ? c.code : 0);
            EXPECT_EQ(drive.Value(reg::kLastAlarmCode), reaction < 3 ? 0 : c.code + kAlarmOffset);
            EXPECT_NEAR(drive.Drive().GetSpeed(), reaction < 3 ? 0 : reaction == 3 ? 900 : 300, 10) << reaction;
        }
    }
}

TEST(Converter, GivesNoMoreThanItIsMadeFor) {
    WholeDrive drive("S1");
    QString error;
    EXPECT_FALSE(drive.Drive().WriteRegister(reg::kRatedCurrent, 2000)) << "200 A of a 125 A converter";
    EXPECT_NE(drive.Drive().GetLastError().indexOf(QLatin1String("125.0 A")), -1)
        << drive.Drive().GetLastError().toStdString();
    EXPECT_TRUE(drive.Drive().WriteRegister(reg::kRatedCurrent, 1250));
    drive.SetValue(reg::kRatedCurrent, 100);
    drive.SetValue(reg::kCurrentLimit1, 200);
    EXPECT_EQ(ReadSettings(drive.Drive().GetRegisters(), DefaultMotorSet()).currentHigh, 125);
}

TEST(SpeedByEmf, IsWrongWhereANamePlateIs) {
    const struct {
        quint16 reg;
        double factor;
        double speed; ///< of the shaft, relative to what it should be
    } plates[] = {{reg::kRatedVoltage, 1, 1},
                  {reg::kRatedVoltage, 1.2, 1.25}, // 1.2 * 240 V less the drop of 55 V, to 185 V
                  {reg::kBaseSpeed, 1.25, 0.8},
                  {reg::kBaseSpeed, 0.8, 1.25},
                  {reg::kRatedFieldCurrent, 0.7, 1 / 0.7},
                  {reg::kArmatureResistance, 0, 204.0 / 185}}; // a guess of 13 % in place of 23 %
    for (const auto& plate : plates) {
        WholeDrive drive("S2");
        drive.KnowArmature();
        drive.SetValue(plate.reg, drive.Value(plate.reg) * plate.factor);
        drive.RunUp(800);
        drive.Seconds(4);
        EXPECT_NEAR(drive.Value(reg::kSpeed), 800, 8);
        EXPECT_NEAR(drive.Drive().GetSpeed() / 800, plate.speed, 0.04 * plate.speed) << plate.reg;
    }
}

TEST(ActualValues, AreAliveWhileTheMotorTurns) {
    WholeDrive drive("S2");
    drive.SetValue(reg::kSpeedSource, 1);
    drive.Tune(1);
    drive.Seconds(1);
    drive.RunUp(1200);
    drive.Motor().SetLoad(10);
    drive.Seconds(10);
    const MotorData& motor = drive.Motor().GetData();
    const double flux = motor.mutualInductance * 1.0664;
    const double speed = 1200 * M_PI / 30;
    const double current = (10 + motor.viscousFriction * speed + motor.coulombFriction) / flux;
    const std::tuple<quint16, double, double> values[] = {
        {reg::kSpeedEmf, 1200, 15},
        {reg::kSpeedEncoder, 1200, 5},
        {reg::kSpeed, 1200, 5},
        {reg::kSpeedTacho, 0, 0},
        {reg::kArmatureCurrent, current, 0.2},
        {reg::kFieldRelative, 100, 1},
        {reg::kFieldCurrent, 1.07, 0.02},
        {reg::kSpeedReference, 1200, 1},
        {reg::kSpeedReferenceSum, 1200, 1},
        {reg::kFieldReference, 100, 0.1},
        {reg::kTorque, flux * current, 0.3},
        {reg::kArmatureVoltage, flux * speed + current * motor.armatureResistance, 2}};
    for (const auto& [reg, value, tolerance] : values)
        EXPECT_NEAR(drive.Value(reg), value, tolerance) << reg;
    const auto word = [&](quint16 reg) { return drive.Drive().GetRegisters().GetWord(reg); };
    EXPECT_EQ(word(reg::kDigitalInputs), 0b10111) << "acknowledges of fans and contactor, emergency stop released";
    EXPECT_EQ(word(reg::kLinkNodesLow), 1);
    EXPECT_EQ(word(reg::kLinkNodesHigh), 0) << "the exciter is on the converter's board";
    drive.SetValue(reg::kExciterFound, 2);
    ASSERT_TRUE(drive.Drive().OpenContactor());
    drive.Seconds(40);
    EXPECT_EQ(word(reg::kDigitalInputs), 0b10000);
    EXPECT_EQ(word(reg::kLinkNodesHigh), 1 << 4) << "node 21";
}

TEST(FieldLoss, IsNotSeenInASlowFieldThatComesUp) {
    // From the weakest field back to full field at the end of a run, with four seconds of time constant.
    WholeDrive drive("S2");
    MotorData slow = drive.Motor().GetData();
    slow.fieldInductance = 4 * slow.fieldResistance;
    drive.Motor().SetData(slow);
    drive.SetValue(reg::kSpeedSource, 1);
    drive.SetValue(reg::kFieldMode, 1);
    for (const quint16 mode : {quint16{2}, quint16{1}, quint16{4}, quint16{3}}) {
        EXPECT_EQ(drive.Tune(mode), 0) << mode;
        drive.Seconds(5);
    }
    EXPECT_NEAR(drive.Value(reg::kFieldTime), 4000, 120);
    EXPECT_EQ(drive.Drive().GetFaults().GetActive(), 0);
}

TEST(FieldLoss, IsNotSeenInAFieldThatIsStillDecayingFromBefore) {
    WholeDrive drive("S2");
    drive.Run(200);
    drive.Seconds(6);
    ASSERT_TRUE(drive.Drive().OpenContactor());
    for (int i = 0; i < 600 && drive.Drive().IsContactorClosed(); ++i)
        drive.Seconds(0.05);
    drive.Seconds(0.25);
    ASSERT_GT(drive.Value(reg::kFieldRelative), drive.Value(reg::kLeastField));
    drive.Run(200);
    drive.Seconds(6);
    EXPECT_EQ(drive.Drive().GetFaults().GetActive(), 0);
    EXPECT_GT(drive.Drive().GetSpeed(), 150);
}

TEST(SpeedFeedback, LostOneTripsOrGivesWayToTheEmf) {
    for (const auto& [reaction, fault] : {std::pair{1, int(kFaultFeedback)}, {2, 0}, {3, 0}}) {
        WholeDrive drive("S2");
        drive.KnowArmature();
        drive.SetValue(reg::kSpeedSource, 1);
        drive.SetValue(reg::kFeedbackReaction, reaction);
        drive.RunUp(1000);
        drive.Disturb("feedback-broken");
        drive.Seconds(8);
        EXPECT_EQ(drive.Drive().GetFaults().GetActive(), fault) << reaction;
        if (!fault) {
            EXPECT_EQ(drive.Value(reg::kSpeedSource), 0);
            EXPECT_NEAR(drive.Drive().GetSpeed(), 1000, 20);
        }
    }
}

TEST(SpeedFeedback, ReversedOneRunsAwayIntoATrip) {
    WholeDrive drive("S2");
    drive.SetValue(reg::kSpeedSource, 1);
    drive.Disturb("feedback-reversed");
    drive.Run(500);
    drive.Seconds(20);
    EXPECT_EQ(drive.Drive().GetFaults().GetActive(), kFaultOverspeed);
    EXPECT_TRUE(drive.Drive().GetMotorState().armatureCurrent == 0);
}

TEST(ToolSupervision, StopsADriveWhoseToolFallsSilent) {
    for (const int reaction : {0, 1, 2}) {
        WholeDrive drive("S2");
        drive.KnowArmature();
        drive.SetValue(reg::kLocalSupervision, 2);
        drive.SetValue(reg::kLocalLossReaction, reaction);
        drive.SetValue(reg::kRampDown, 5);
        drive.RunUp(1000);
        drive.Silence(1.9);
        EXPECT_NEAR(drive.Drive().GetSpeed(), 1000, 20) << "not yet";
        drive.Silence(0.6);
        EXPECT_LT(drive.Drive().GetSpeed(), 980) << "slows down, reaction " << reaction;
        drive.Silence(20);
        EXPECT_TRUE(drive.Drive().IsStopped());
        EXPECT_FALSE(drive.Drive().IsContactorClosed());
        EXPECT_EQ(drive.Drive().GetFaults().GetActive(), kFaultConnection);
        EXPECT_EQ(drive.Drive().GetControlPlace(), ControlPlace::Remote) << "and is free for another tool";
    }
    WholeDrive idle("S2");
    EXPECT_TRUE(idle.Drive().TakeLocalControl());
    idle.Drive().SetToolSpeaks(false);
    idle.Seconds(4.9); // somebody else asks all the time
    EXPECT_EQ(idle.Drive().GetControlPlace(), ControlPlace::Local);
    idle.Seconds(0.2);
    EXPECT_EQ(idle.Drive().GetControlPlace(), ControlPlace::Remote);
    EXPECT_EQ(idle.Drive().GetFaults().GetActive(), 0) << "nothing was switched on";
    WholeDrive unsupervised("S2");
    unsupervised.KnowArmature();
    unsupervised.SetValue(reg::kLocalSupervision, 0);
    unsupervised.RunUp(500);
    unsupervised.Silence(10);
    EXPECT_NEAR(unsupervised.Drive().GetSpeed(), 500, 10);
}

} // namespace
} // namespace krt550
