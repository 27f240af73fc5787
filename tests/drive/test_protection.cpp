// What protects and what limits: set, provoke, observe.
#include "tests/drive/scripted_drive.h"

namespace krt550::test {
namespace {

// On the motor S2 at 1000 rpm by its encoder, commanded by the tool ("runs") or by what 10.01 names ("bus-runs"): what
// is just borne, and then what is not. Its armature voltage is 45 %, its current without load 4 %.
const Script kSupervision[] = {
    // Stall: time, speed, torque.
    {"StallAfterItsTime", "runs | 3001:2 motor-locked 1.8s : trip=0 | 0.5s : trip=114"},
    {"StallBelowItsSpeed", "load:30 runs | 3001:2 3003:20 3002:985 4s : trip=0 | 3002:1015 4s : trip=114"},
    {"StallAboveItsTorque", "runs | 3001:1 3003:101 motor-locked 4s : trip=0 | 3003:99 4s : trip=114"},
    {"StallNotSupervised", "runs | 3001:0 motor-locked 4s : trip=0"},

    // Armature: voltage, current, rise of the current.
    {"Overvoltage", "runs | 3008:47 1s : trip=0 | 3008:43 1s : trip=102"},
    {"Overcurrent", "runs | 3009:108 load:90 2s : trip=0 | 3009:90 1s : trip=101"},
    {"CurrentRise", "runs | 3010:0.5 load:90 1s : trip=111"},
    {"RiseBelowItsLevel", "runs | 3010:20 load:90 1s : trip=0"},
    {"RiseNotSupervised", "runs | 3010:0 motor-locked 1s : trip=0"},

    // Field: with 200 V of supply there are 60 % of its current.
    {"FieldBelowItsLeast", "runs | 3012:55 9913:200 5s : 129=60~1.4 trip=0 | 3012:65 2s : trip=104"},
    {"FieldLost", "runs | field-broken 1s : trip=104"},
    {"FieldLostForLessThanItsDelay", "runs | 3018:900 field-broken 0.8s : trip=0"},
    {"FieldOvercurrent", "runs | 3013:102 1s : trip=0 | 3013:98 1s : trip=112"},

    // Speed feedback, with a motor that coasts: an encoder of 20 pulses shows 2 % of the speed.
    {"FeedbackBelowItsLevel", "runs | 2005:0 3014:15 encoder-pulses:20 0.3s : trip=0 | 3014:25 0.3s : trip=107"},
    {"FeedbackAboveTheEmf", "runs | 2005:0 3015:115 feedback-broken 0.3s : trip=0 | 3015:85 0.3s : trip=107"},
    {"FeedbackNotSupervised", "runs | 2005:0 3017:0 feedback-broken 0.3s : trip=0"},
    {"FeedbackGivesWayToTheEmf", "3017:2 runs | feedback-broken 8s : alarm=107 102=1000 5003=1"},
    {"FeedbackTripsWithAWeakField", "3017:2 4401:1 4407:40 runs | : 330<98 | feedback-broken 1s : trip=107"},
    {"FeedbackGivesWayWithAWeakField", "3017:3 4401:1 4407:40 runs | : 330<98 | feedback-broken 1s : alarm=107"},
    {"FeedbackReversedRunsAway", "runs | feedback-reversed 5s : trip=105"},
    {"Overspeed", "runs | 3016:1015 1s : trip=0 | 3016:985 1s : trip=105"},

    // The tool in local control: ramp, torque limit, coast. Afterwards it is another's.
    {"ToolNotSupervised", "3029:0 runs | silence=10 0s : 104=1000 trip=0"},
    {"ToolLostRampsAndTripsAtStandstill",
     "3029:2 3027:0 2202:20 runs | silence=1.9 0s : 104=1000 trip=0 | silence=1.1 0s : 104>850 104<960 trip=0 | "
     "silence=13 0s : trip=109 104=0 DO3=0 808=0"},
    {"ToolLostStopsAtTheLimit", "3029:2 3027:1 2202:20 runs | silence=3 0s : trip=109 104<60"},
    {"ToolLostCoasts", "3029:2 3027:2 2202:20 runs | silence=2.2 0s : trip=109 104>900"},

    // Fieldbus and link, the same, and two ways to go on.
    {"BusNotSupervised", "1001:1 3031:0 bus-runs | fieldbus-lost 5s : 104=1000 trip=0"},
    {"BusLostRampsAndTripsAtStandstill",
     "1001:1 3031:500 3028:0 2202:20 bus-runs | fieldbus-lost 0.4s : 104=1000 808=2 trip=0 | "
     "1.1s : 104>850 104<960 trip=0 | 13s : trip=117 104=0"},
    {"BusLostStopsAtTheLimit", "1001:1 3031:500 3028:1 2202:20 bus-runs | fieldbus-lost 1.5s : trip=117 104<60"},
    {"BusLostCoasts", "1001:1 3031:500 3028:2 bus-runs | fieldbus-lost 0.7s : trip=117 104>900"},
    {"BusLostKeepsItsReference", "1001:1 3031:500 3028:3 bus-runs | fieldbus-lost 5s : alarm=117 104=1000"},
    {"BusLostGoesToConstantSpeed", "1001:1 3031:500 3028:4 1204:300 bus-runs | fieldbus-lost 5s : alarm=117 104=300"},
    {"LinkLostRamps", "1001:2 3032:500 3030:0 2202:20 bus-runs | link-lost 0.4s : 104=1000 808=3 trip=0 | 1.1s : "
                      "104>850 104<960 trip=0"},
    {"LinkLostStopsAtTheLimit", "1001:2 3032:500 3030:1 2202:20 bus-runs | link-lost 1.5s : trip=118 104<60"},
    {"LinkLostCoasts", "1001:2 3032:500 3030:2 bus-runs | link-lost 0.7s : trip=118 104>900"},
    {"LinkLostKeepsItsReference", "1001:2 3032:500 3030:3 bus-runs | link-lost 5s : alarm=118 104=1000"},
    {"LinkLostGoesToConstantSpeed", "1001:2 3032:500 3030:4 1204:300 bus-runs | link-lost 5s : alarm=118 104=300"},

    // Fans.
    {"ConverterFan", "3036:1 runs | converter-fan-lost 9s : trip=0 | 2s : trip=116"},
    {"ConverterFanAlarm", "3036:2 runs | converter-fan-lost 11s : alarm=116"},
    {"ConverterFanNotUsed", "3036:0 runs | converter-fan-lost 11s : trip=0"},
    {"MotorFan", "3026:1 runs | motor-fan-lost 9s : trip=0 | 2s : trip=115"},
    {"MotorFanAlarm", "3026:2 runs | motor-fan-lost 11s : alarm=115"},
    {"MotorFanNotUsed", "3026:0 runs | motor-fan-lost 11s : trip=0"},

    // Mains, earth, temperature, contactor.
    {"MainsLow", "runs | mains=170 1s : alarm=103 | mains=130 1s : trip=103"},
    {"MainsDipTripsAtOnce", "3020:0 runs | mains-dip:100 1s : trip=103"},
    {"MainsDipIsRiddenThrough", "3020:1 runs | mains-dip:400 8s : 104=1000 trip=0"},
    {"MainsDipTooLong", "3020:1 runs | mains-dip:600 1s : trip=103"},
    {"PhaseMissing", "runs | phase-missing 1s : trip=119"},
    {"PhaseOrder", "runs | phase-order 1s : trip=120"},
    {"FuseBlown", "runs | load:48 fuse-blown 2s : trip=121"},
    {"EarthCurrent", "3004:1 runs | earth-fault:3 1s : trip=0 | earth-fault:5 1s : trip=113"},
    {"EarthCurrentAlarm", "3004:2 runs | earth-fault:5 1s : alarm=113"},
    {"EarthCurrentNotUsed", "3004:0 runs | earth-fault:5 1s : trip=0"},
    {"EarthCurrentBeforeItsDelay", "3004:1 3006:5000 runs | earth-fault:5 4s : trip=0"},
    {"FullCurrentAtStandstillAsFromTheWorks", "runs | motor-locked 300s : trip=106"},
    {"SeparateFanBearsIt", "3108:2 runs | motor-locked 300s : trip=0"},
    {"Warm", "runs | 3102:60 3101:30 load:95 60s : alarm=106"},
    {"SensorHot", "3104:3 3108:0 3106:60 3105:60 runs | motor-locked 120s : 123>52 123<59 trip=0 | 30s : trip=106"},
    {"ContactorDrops", "runs | contactor-drops 2s : trip=108"},
    {"ContactorWelded", "runs | contactor-welded other-control 40s : trip=108"},

    // Limits: of speed and standstill,
    {"SpeedMaximum", "1001:1 2002:1200 bus-runs | 2301:1190 3s : 104=1190~10 804=0 trip=0 | "
                     "2301:1500 3s : 104=1200 204=1200 804.0=1 trip=0"},
    {"SpeedMinimum", "1001:1 2001:-800 2202:3 bus-runs | 2301:-1500 5s : 104=-800 804.1=1 trip=0"},
    {"SpeedMinimumForward", "1001:1 2001:200 2202:3 bus-runs | 2301:0 5s : 104=200 804.1=1 trip=0"},
    {"ZeroSpeed", "runs | 2003:985 1s : 802.3=0 | 2003:1015 1s : 802.3=1 trip=0"},
    {"ZeroSpeedAfterItsDelay", "runs | 2003:1015 2004:2000 1.8s : 802.3=0 | 0.4s : 802.3=1 trip=0"},
    {"StopEndsAtZeroSpeed", "2003:500 2202:20 runs | stop 6.5s : 807=3 116=0 104<490 trip=0"},
    // of torque and current,
    {"TorqueMaximum", "runs | 2005:40 load:30 2s : 803=0 trip=0 | "
                      "2005:30 motor-locked 1s : 209=30 106=30 219=30 803.0=1 803.2=0 803.5=1 trip=0"},
    {"TorqueMinimum", "runs | 2006:-30 hanging=-8 1s : 209=-30 106=-30 220=-30 803.1=1 803.3=0 trip=0"},
    {"CurrentLimitOfBridge1", "runs | 2012:30 motor-locked 1s : 106=30 303=30 803.2=1 803.0=0 803.5=1 trip=0"},
    {"CurrentLimitOfBridge2", "runs | 2013:-30 hanging=-8 1s : 106=-30 304=-30 803.3=1 803.1=0 802.5=1 trip=0"},
    {"TorqueReferenceMaximum", "1001:1 2503:5 2014:30 bus-runs | 2601:1 2501:29 motor-locked 1s : 106=29 803.6=0 | "
                               "2501:80 1s : 106=30 208=30 803.6=1 trip=0"},
    {"TorqueReferenceMinimum",
     "1001:1 2503:5 2015:-30 bus-runs | 2601:1 2501:-80 motor-locked 1s : 106=-30 803.7=1 trip=0"},
    {"SteepCurrent", "runs | 4304:10 motor-locked 0.5s : 106=100 803.8=0 trip=0"},
    {"SlopeOfTheCurrent", "runs | 4304:0.1 motor-locked 0.5s : 106>30 106<60 803.8=1 trip=0"},
    {"FiringAngleLimit", "runs | 2018:60 1s : 104=1000 803.4=0 | 2018:80 load:30 1s : 104<800 803.4=1 trip=0"},
    // of the field.
    {"LeastFlux", "4401:1 4407:40 4408:50 runs | 4s : 804.2=0 | 4408:90 4s : 309=90 804.2=1 trip=0"},
    // of the converter, which is made for 25 A.
    {"ConverterGivesNoMoreThanItIsMadeFor",
     "!9903=2000 0s : why=25.0_A | 9903:20 2012:200 2005:200 runs | motor-locked 1s : 116>24.5 116<25.5"},
    {"ExciterAtItsVoltage", "runs | 3012:40 9913:200 4s : 804.3=1 trip=0"},
};

// The shaft's true speed, which an encoder shows, where the EMF and a wrong name plate say 800 rpm.
const Script kSpeedByEmf[] = {
    {"RightPlate", "by-emf 103=800~32"},
    {"Voltage", "9902:288 by-emf 103=1000~40"}, // 288 V less the drop of 55 V, to 185 V
    {"HigherBaseSpeed", "9904:2187 by-emf 103=640~25"},
    {"LowerBaseSpeed", "9904:1400 by-emf 103=1000~40"},
    {"FieldCurrent", "9911:0.75 by-emf 103=1137~45"},
    {"ResistanceUnknown", "4310:0 by-emf 103=882~35"}, // a guess of 13 % in place of 23 %
};

INSTANTIATE_TEST_SUITE_P(SpeedByEmf, Scripts, testing::ValuesIn(kSpeedByEmf), NameOf);
INSTANTIATE_TEST_SUITE_P(Supervision, Scripts, testing::ValuesIn(kSupervision), NameOf);

TEST(FieldLoss, IsNotSeenInASlowFieldThatComesUp) {
    // From the weakest field back to full field at the end of a run, with four seconds of time constant.
    WholeDrive drive("S2");
    MotorData slow = drive.Motor().GetData();
    slow.fieldInductance = 4 * slow.fieldResistance;
    drive.Motor().SetData(slow);
    drive.SetValue(reg::kSpeedSource, 1);
    drive.SetValue(reg::kFieldMode, 1);
    drive.TuneAll({2, 1, 4, 3}, 5);
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

TEST(ToolSupervision, FreesADriveThatNothingHasSwitchedOn) {
    WholeDrive drive("S2");
    EXPECT_TRUE(drive.Drive().TakeLocalControl());
    drive.Drive().SetToolSpeaks(false);
    drive.Seconds(4.9); // somebody else asks all the time
    EXPECT_EQ(drive.Drive().GetControlPlace(), ControlPlace::Local);
    drive.Seconds(0.2);
    EXPECT_EQ(drive.Drive().GetControlPlace(), ControlPlace::Remote);
    EXPECT_EQ(drive.Drive().GetFaults().GetActive(), 0);
}

} // namespace
} // namespace krt550::test
