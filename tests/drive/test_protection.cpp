// What protects and what limits: set, provoke, observe.
#include "drive/control_word.h"
#include "drive/fault_codes.h"
#include "tests/drive/whole_drive.h"

#include <QRegularExpression>

namespace krt550 {
namespace {

using test::WholeDrive;

/// The motor S2 runs at 1000 rpm by its encoder, commanded by the tool or by what 10.01 names. Its armature voltage is
/// then 45 %, its current without load 4 %.
struct Case {
    const char* name;
    const char* set;     ///< before the motor runs, see WholeDrive::Disturb
    const char* provoke; ///< while it does, the same; or the "stop" or the "silence" of the tool
    double seconds;
    const char* shows; ///< "trip=101", "alarm=106", "104>900", "209=30", bit 2 of 8.03 "803.2=1"; no trip, no alarm
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

const Case kCases[] = {
    // Stall: time, speed, torque.
    {"StallBeforeItsTime", "", "3001=2 motor-locked", 1.8, ""},
    {"Stall", "", "3001=2 motor-locked", 2.3, "trip=114"},
    {"StallAboveItsSpeed", "load:30", "3001=2 3003=20 3002=985", 4, ""},
    {"StallBelowItsSpeed", "load:30", "3001=2 3003=20 3002=1015", 4, "trip=114"},
    {"StallBelowItsTorque", "", "3001=1 3003=101 motor-locked", 4, ""},
    {"StallAtItsTorque", "", "3001=1 3003=99 motor-locked", 4, "trip=114"},
    {"StallNotSupervised", "", "3001=0 motor-locked", 4, ""},

    // Armature: voltage, current, rise of the current.
    {"VoltageBelowItsLevel", "", "3008=47", 1, ""},
    {"Overvoltage", "", "3008=43", 1, "trip=102"},
    {"CurrentBelowItsLevel", "", "3009=108 load:90", 2, ""},
    {"Overcurrent", "", "3009=90 load:90", 2, "trip=101"},
    {"RiseBelowItsLevel", "", "3010=20 load:90", 1, ""},
    {"CurrentRise", "", "3010=0.5 load:90", 1, "trip=111"},
    {"RiseNotSupervised", "", "3010=0 motor-locked", 1, ""},

    // Field: with 200 V of supply there are 60 % of its current.
    {"FieldAboveItsLeast", "", "3012=55 9913=200", 5, "129=60"},
    {"FieldBelowItsLeast", "", "3012=65 9913=200", 5, "trip=104"},
    {"FieldLost", "", "field-broken", 1, "trip=104"},
    {"FieldLostForLessThanItsDelay", "", "3018=900 field-broken", 0.8, ""},
    {"FieldCurrentBelowItsLevel", "", "3013=102", 1, ""},
    {"FieldOvercurrent", "", "3013=98", 1, "trip=112"},

    // Speed feedback, with a motor that coasts: an encoder of 20 pulses shows 2 % of the speed.
    {"FeedbackAboveItsLevel", "", "2005=0 3014=15 encoder-pulses:20", 0.3, ""},
    {"FeedbackBelowItsLevel", "", "2005=0 3014=25 encoder-pulses:20", 0.3, "trip=107"},
    {"FeedbackBelowTheEmf", "", "2005=0 3015=115 feedback-broken", 0.3, ""},
    {"FeedbackAboveTheEmf", "", "2005=0 3015=85 feedback-broken", 0.3, "trip=107"},
    {"FeedbackNotSupervised", "", "2005=0 3017=0 feedback-broken", 0.3, ""},
    {"FeedbackGivesWayToTheEmf", "3017=2", "feedback-broken", 8, "alarm=107 102=1000 5003=1"},
    {"FeedbackTripsWithAWeakField", "3017=2 4401=1 4407=40", "feedback-broken", 1, "trip=107"},
    {"FeedbackGivesWayWithAWeakField", "3017=3 4401=1 4407=40", "feedback-broken", 1, "alarm=107"},
    {"FeedbackReversedRunsAway", "", "feedback-reversed", 5, "trip=105"},
    {"SpeedBelowItsLevel", "", "3016=1015", 1, ""},
    {"Overspeed", "", "3016=985", 1, "trip=105"},

    // The tool in local control: ramp, torque limit, coast.
    {"ToolBeforeItsTime", "3029=2", "silence", 1.9, "104=1000"},
    {"ToolNotSupervised", "3029=0", "silence", 10, "104=1000"},
    {"ToolLostRamps", "3029=2 3027=0 2202=20", "silence", 3, "104>850 104<960"},
    {"ToolLostTripsAtStandstill", "3029=2 3027=0 2202=20", "silence", 16, "trip=109 104=0"},
    {"ToolLostStopsAtTheLimit", "3029=2 3027=1 2202=20", "silence", 3, "trip=109 104<60"},
    {"ToolLostCoasts", "3029=2 3027=2 2202=20", "silence", 2.2, "trip=109 104>900"},

    // Fieldbus and link, the same, and two ways to go on.
    {"BusBeforeItsTime", "1001=1 3031=500", "fieldbus-lost", 0.4, "104=1000 808=2"},
    {"BusNotSupervised", "1001=1 3031=0", "fieldbus-lost", 5, "104=1000"},
    {"BusLostRamps", "1001=1 3031=500 3028=0 2202=20", "fieldbus-lost", 1.5, "104>850 104<960"},
    {"BusLostTripsAtStandstill", "1001=1 3031=500 3028=0", "fieldbus-lost", 14, "trip=117 104=0"},
    {"BusLostStopsAtTheLimit", "1001=1 3031=500 3028=1 2202=20", "fieldbus-lost", 1.5, "trip=117 104<60"},
    {"BusLostCoasts", "1001=1 3031=500 3028=2", "fieldbus-lost", 0.7, "trip=117 104>900"},
    {"BusLostKeepsItsReference", "1001=1 3031=500 3028=3", "fieldbus-lost", 5, "alarm=117 104=1000"},
    {"BusLostGoesToConstantSpeed", "1001=1 3031=500 3028=4 1204=300 2202=3", "fieldbus-lost", 5, "alarm=117 104=300"},
    {"LinkBeforeItsTime", "1001=2 3032=500", "link-lost", 0.4, "104=1000 808=3"},
    {"LinkLostRamps", "1001=2 3032=500 3030=0 2202=20", "link-lost", 1.5, "104>850 104<960"},
    {"LinkLostStopsAtTheLimit", "1001=2 3032=500 3030=1 2202=20", "link-lost", 1.5, "trip=118 104<60"},
    {"LinkLostCoasts", "1001=2 3032=500 3030=2", "link-lost", 0.7, "trip=118 104>900"},
    {"LinkLostKeepsItsReference", "1001=2 3032=500 3030=3", "link-lost", 5, "alarm=118 104=1000"},
    {"LinkLostGoesToConstantSpeed", "1001=2 3032=500 3030=4 1204=300 2202=3", "link-lost", 5, "alarm=118 104=300"},

    // Fans.
    {"ConverterFanBeforeItsDelay", "3036=1", "converter-fan-lost", 9, ""},
    {"ConverterFan", "3036=1", "converter-fan-lost", 11, "trip=116"},
    {"ConverterFanAlarm", "3036=2", "converter-fan-lost", 11, "alarm=116"},
    {"ConverterFanNotUsed", "3036=0", "converter-fan-lost", 11, ""},
    {"MotorFanBeforeItsDelay", "3026=1", "motor-fan-lost", 9, ""},
    {"MotorFan", "3026=1", "motor-fan-lost", 11, "trip=115"},
    {"MotorFanAlarm", "3026=2", "motor-fan-lost", 11, "alarm=115"},
    {"MotorFanNotUsed", "3026=0", "motor-fan-lost", 11, ""},

    // Mains, earth, temperature, contactor.
    {"MainsTooLow", "", "mains=130", 1, "trip=103"},
    {"MainsLow", "", "mains=170", 1, "alarm=103"},
    {"MainsDipTripsAtOnce", "3020=0", "mains-dip:100", 1, "trip=103"},
    {"MainsDipIsRiddenThrough", "3020=1", "mains-dip:400", 8, "104=1000"},
    {"MainsDipTooLong", "3020=1", "mains-dip:600", 1, "trip=103"},
    {"PhaseMissing", "", "phase-missing", 1, "trip=119"},
    {"PhaseOrder", "", "phase-order", 1, "trip=120"},
    {"FuseBlown", "", "load:48 fuse-blown", 2, "trip=121"},
    {"EarthCurrent", "3004=1", "earth-fault:5", 1, "trip=113"},
    {"EarthCurrentAlarm", "3004=2", "earth-fault:5", 1, "alarm=113"},
    {"EarthCurrentNotUsed", "3004=0", "earth-fault:5", 1, ""},
    {"EarthCurrentBelowItsLevel", "3004=1", "earth-fault:3", 1, ""},
    {"EarthCurrentBeforeItsDelay", "3004=1 3006=5000", "earth-fault:5", 4, ""},
    {"FullCurrentAtStandstillAsFromTheWorks", "", "motor-locked", 300, "trip=106"},
    {"SeparateFanBearsIt", "3108=2", "motor-locked", 300, ""},
    {"Warm", "", "3102=60 3101=30 load:95", 60, "alarm=106"},
    {"SensorStillCool", "3104=3 3108=0 3106=60 3105=60", "motor-locked", 120, "123>52 123<59"},
    {"SensorHot", "3104=3 3108=0 3106=60 3105=60", "motor-locked", 150, "trip=106"},
    {"ContactorDrops", "", "contactor-drops", 2, "trip=108"},
    {"ContactorWelded", "", "contactor-welded other-control", 40, "trip=108"},

    // Limits: of speed and standstill,
    {"SpeedBelowItsMaximum", "1001=1 2002=1200", "2301=1190", 3, "104=1190 804=0"},
    {"SpeedMaximum", "1001=1 2002=1200", "2301=1500", 3, "104=1200 204=1200 804.0=1"},
    {"SpeedMinimum", "1001=1 2001=-800 2202=3", "2301=-1500", 5, "104=-800 804.1=1"},
    {"SpeedMinimumForward", "1001=1 2001=200 2202=3", "2301=0", 5, "104=200 804.1=1"},
    {"TurnsAboveZeroSpeed", "", "2003=985", 1, "802.3=0"},
    {"StandsBelowZeroSpeed", "", "2003=1015", 1, "802.3=1"},
    {"ZeroSpeedBeforeItsDelay", "", "2003=1015 2004=2000", 1.8, "802.3=0"},
    {"ZeroSpeedAfterItsDelay", "", "2003=1015 2004=2000", 2.2, "802.3=1"},
    {"StopEndsAtZeroSpeed", "2003=500 2202=20", "stop", 6.5, "807=3 116=0 104<490"},
    // of torque and current,
    {"TorqueBelowItsMaximum", "", "2005=40 load:30", 2, "803=0"},
    {"TorqueMaximum", "", "2005=30 motor-locked", 1, "209=30 106=30 219=30 803.0=1 803.2=0 803.5=1"},
    {"TorqueMinimum", "", "2006=-30 hanging=-8", 1, "209=-30 106=-30 220=-30 803.1=1 803.3=0"},
    {"CurrentLimitOfBridge1", "", "2012=30 motor-locked", 1, "106=30 303=30 803.2=1 803.0=0 803.5=1"},
    {"CurrentLimitOfBridge2", "", "2013=-30 hanging=-8", 1, "106=-30 304=-30 803.3=1 803.1=0 802.5=1"},
    {"TorqueReferenceBelowItsMaximum", "1001=1 2503=5 2014=30", "2601=1 2501=29 motor-locked", 1, "106=29 803.6=0"},
    {"TorqueReferenceMaximum", "1001=1 2503=5 2014=30", "2601=1 2501=80 motor-locked", 1, "106=30 208=30 803.6=1"},
    {"TorqueReferenceMinimum", "1001=1 2503=5 2015=-30", "2601=1 2501=-80 motor-locked", 1, "106=-30 803.7=1"},
    {"SteepCurrent", "", "4304=10 motor-locked", 0.5, "106=100 803.8=0"},
    {"SlopeOfTheCurrent", "", "4304=0.1 motor-locked", 0.5, "106>30 106<60 803.8=1"},
    {"FiringAngleFarFromItsLimit", "", "2018=60", 1, "104=1000 803.4=0"},
    {"FiringAngleLimit", "", "2018=80 load:30", 1, "104<800 803.4=1"},
    // of the field.
    {"FluxAboveItsLeast", "4401=1 4407=40 4408=50", "", 4, "804.2=0"},
    {"LeastFlux", "4401=1 4407=40 4408=90", "", 4, "309=90 804.2=1"},
    {"ExciterAtItsVoltage", "", "3012=40 9913=200", 4, "804.3=1"},
};

class Supervision : public testing::TestWithParam<Case> {
protected:
    void Start(const char* set) {
        m_drive.SetValue(reg::kSpeedSource, 1);
        m_drive.KnowArmature();
        m_drive.Disturb(set);
        if (m_drive.Value(reg::kCommandSource) == 0) {
            m_drive.RunUp(1000);
        } else {
            m_drive.Disturb("1101=5 2201=3 2301=1000"); // reference 1 by the fieldbus
            for (const int run : {0, int(control::kOn | control::kRun)})
                m_drive.Drive().WriteRegister(
                    reg::kControlWord, static_cast<quint16>(control::kByOverridingControl | control::kIdle | run));
            m_drive.Seconds(8);
        }
        ASSERT_NEAR(m_drive.Value(reg::kSpeed), 1000, 10);
    }
    quint16 Word(int reg) { return m_drive.Drive().GetRegisters().GetWord(static_cast<quint16>(reg)); }
    /// The word of a group of two that a code's bit is in, and nothing in the other.
    void ExpectBit(quint16 first, int code) {
        for (const int word : {0, 1}) {
            const int bit = code - kFirstFault - 16 * word;
            EXPECT_EQ(Word(first + word), code && bit >= 0 && bit < 16 ? 1U << bit : 0) << first + word;
        }
    }
    void ExpectTrip(int code) {
        EXPECT_EQ(m_drive.Drive().GetFaults().GetActive(), code);
        ExpectBit(reg::kFaultWord, code);
        EXPECT_EQ((Word(reg::kStatusWord) & status::kFault) != 0, code != 0);
        if (code) {
            EXPECT_EQ(Word(reg::kLastFaultCode), code);
            EXPECT_EQ(m_drive.Drive().GetMotorState().armatureCurrent, 0);
        }
    }
    void ExpectAlarm(int code) {
        ExpectBit(reg::kAlarmWord, code);
        EXPECT_EQ((Word(reg::kStatusWord) & status::kWarning) != 0, code != 0);
        if (code) {
            EXPECT_EQ(Word(reg::kLastAlarmCode), code + kAlarmOffset);
        }
    }
    void ExpectRegister(const QString& name, QChar relation, double value) {
        const quint16 reg = name.section(u'.', 0, 0).toUShort();
        const QString bit = name.section(u'.', 1);
        const double shown = bit.isEmpty() ? m_drive.Value(reg) : (Word(reg) >> bit.toInt()) & 1;
        const double slack = bit.isEmpty() ? 0.5 + 0.015 * std::abs(value) : 0;
        EXPECT_TRUE(relation == u'<'   ? shown < value
                    : relation == u'>' ? shown > value
                                       : std::abs(shown - value) <= slack)
            << name.toStdString() << " is " << shown;
    }
    void ExpectShown(const char* shows) {
        int trip = 0;
        int alarm = 0;
        for (const QString& word : QString::fromLatin1(shows).split(u' ', Qt::SkipEmptyParts)) {
            const auto at = word.indexOf(QRegularExpression("[<=>]"));
            const double value = word.mid(at + 1).toDouble();
            if (word.startsWith(QLatin1String("trip")))
                trip = int(value);
            else if (word.startsWith(QLatin1String("alarm")))
                alarm = int(value);
            else
                ExpectRegister(word.left(at), word[at], value);
        }
        ExpectTrip(trip);
        if (!trip)
            ExpectAlarm(alarm);
    }

    WholeDrive m_drive{"S2"};
};

TEST_P(Supervision, OfARunningMotorActsAsItsParametersSay) {
    Start(GetParam().set);
    if (qstrcmp(GetParam().provoke, "silence") == 0) {
        m_drive.Silence(GetParam().seconds);
    } else {
        if (qstrcmp(GetParam().provoke, "stop") == 0)
            EXPECT_TRUE(m_drive.Drive().StopMotor());
        else
            m_drive.Disturb(GetParam().provoke);
        m_drive.Seconds(GetParam().seconds);
    }
    ExpectShown(GetParam().shows);
}

INSTANTIATE_TEST_SUITE_P(Cases, Supervision, testing::ValuesIn(kCases),
                         [](const auto& c) { return std::string(c.param.name); });

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
    ASSERT_TRUE(drive.Drive().OpenContactor());
    drive.Seconds(40);
    EXPECT_EQ(word(reg::kDigitalInputs), 0b10000);
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

TEST(ToolSupervision, FreesTheDriveForAnotherTool) {
    WholeDrive drive("S2");
    drive.KnowArmature();
    drive.SetValue(reg::kLocalSupervision, 2);
    drive.RunUp(1000);
    drive.Silence(25);
    EXPECT_FALSE(drive.Drive().IsContactorClosed());
    EXPECT_EQ(drive.Drive().GetControlPlace(), ControlPlace::Remote);
    WholeDrive idle("S2");
    EXPECT_TRUE(idle.Drive().TakeLocalControl());
    idle.Drive().SetToolSpeaks(false);
    idle.Seconds(4.9); // somebody else asks all the time
    EXPECT_EQ(idle.Drive().GetControlPlace(), ControlPlace::Local);
    idle.Seconds(0.2);
    EXPECT_EQ(idle.Drive().GetControlPlace(), ControlPlace::Remote);
    EXPECT_EQ(idle.Drive().GetFaults().GetActive(), 0) << "nothing was switched on";
}

} // namespace
} // namespace krt550
