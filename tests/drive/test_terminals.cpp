// What the terminals do that no macro shows: stops, acknowledges, faults and the scales of the analogue signals.
#include "drive/control_word.h"
#include "drive/fault_codes.h"
#include "tests/drive/terminal_script.h"

namespace krt550::test {
namespace {

constexpr quint16 kFault = reg::kLastFaultCode;
constexpr quint16 kAlarm = reg::kLastAlarmCode;

struct Case {
    const char* name;
    const char* settings;
    std::vector<Step> steps;
};

const char* const kRunning = "DI7=on DI8=on AI1=5";

const Case kCases[] = {
    {"RunWithoutOnSwitchesOn", "1005=0", {{"DI8=on AI1=5", 875}, {"DI8=off", 0}}},
    {"OnWithoutRunRuns", "1006=0", {{"DI7=on AI1=5", 875}, {"DI7=off", 0}}},
    {"InvertedInput", "1032=1", {{"DI7=on AI1=5", 0}, {"DI8=on", 0}, {"DI7=off", 0}, {"DI7=on", 0}, {"DI8=off", 875}}},
    {"ControlWordBit", "1006=12", {{"DI7=on AI1=5", 0}, {"701=4096", 875}, {"701=0", 0}}},
    {"Disconnect", "1008=4", {{kRunning, 875}, {"DI4=off", 0, 8}, {"DI4=on", 0}, {"DI7=off", 0}, {"DI7=on", 875}}},
    {"DisconnectCoasts", "1008=4 2004=0", {{kRunning, 875}, {"DI4=off", 0, 0.2, reg::kArmatureCurrent, 0.1}}},
    {"EmergencyStop", "", {{kRunning, 875}, {"DI5=off", 6, 0.1, reg::kDriveState, 0}, {"", 0}, {"DI5=on", 0}}},
    {"InvertedEmergencyStop", "1029=1", {{kRunning, 0}}},
    {"ExternalFault",
     "1018=4 1003=6",
     {{kRunning, 875},
      {"DI4=off", kFaultExternal, 1, kFault, 0},
      {"", 0, 8},
      {"DI4=on DI6=on", 0, 1, reg::kFaultWord, 0},
      {"DI6=off", 0},
      {"DI7=off", 0},
      {"DI7=on", 875}}},
    {"ResetWhileTheCauseIsThere",
     "1018=4",
     {{"DI4=off", 512, 1, reg::kFaultWord, 0}, {"DI6=on", 512, 1, reg::kFaultWord, 0}}},
    {"ThermalSwitch", "3107=4", {{kRunning, 875}, {"DI4=off", kFaultOvertemperature, 1, kFault, 0}}},
    {"ExternalAlarm", "1019=4", {{kRunning, 875}, {"DI4=off", kFaultExternal + kAlarmOffset, 1, kAlarm, 0}, {"", 875}}},
    {"ContactorAcknowledge", "", {{kRunning, 875}, {"DI3=off", kFaultMainContactor, 2, kFault, 0}}},
    {"ContactorWithoutAcknowledge", "1014=0", {{"DI3=off", 0}, {kRunning, 875}}},
    {"MotorFan", "3025=1", {{kRunning, 875}, {"DI2=off", kFaultMotorFan, 2, kFault, 0}}},
    {"ConverterFan", "3025=1 3036=2", {{kRunning, 875}, {"DI1=off", kFaultConverterFan + kAlarmOffset, 2, kAlarm, 0}}},
    {"Ramp2", "2205=4 2206=2000", {{"DI4=on DI7=on DI8=on AI1=10", 300, 5, reg::kSpeed, 80}}},
    {"RampHold", "1013=4", {{kRunning, 875}, {"DI4=on AI1=10", 875}, {"DI4=off", 1750}}},
    {"JogAfterAJogKeepsItsRamp",
     "1010=4 1208=875 2208=100 2209=2000",
     {{"DI7=on DI4=on", 875}, {"DI4=off", 790, 1, reg::kSpeed, 40}}},
    {"ConstantSpeedOfEachInput",
     "1201=1 1202=4 1203=1 1204=300 1205=600 1015=0",
     {{kRunning, 875}, {"DI4=on", 300}, {"DI1=on", 300}, {"DI4=off", 600}}},
    {"ForwardOnly", "2312=1", {{"DI7=on DI8=on AI1=-5", 0}}},
    {"Reference2", "1103=4 1102=2", {{"DI7=on DI8=on AI1=5 AI2=2", 875}, {"DI4=on", 350}}},
    {"Reference1Gain", "1109=500", {{kRunning, 437}}},
    {"SpeedScaling", "5001=1000", {{kRunning, 500}}},
    {"FieldHeating",
     "4404=4 4405=400",
     {{"DI4=on", 40, 8, reg::kFieldRelative, 1},
      {kRunning, 875, 8},
      {"", 100, 1, reg::kFieldRelative, 1},
      {"DI8=off DI7=off", 40, 8, reg::kFieldRelative, 1},
      {"DI4=off", 0, 8, reg::kFieldRelative, 1}}},
    {"FieldReversal",
     "exciter=external50 9912=3 4401=2 4506=4 4508=6000",
     {{kRunning, 875},
      {"DI4=on", 0, 0.3, reg::kArmatureCurrent, 0.01},
      {"", -100, 4, reg::kFieldRelative, 3},
      {"", 0x107 | 0x20, 3, reg::kAuxiliaryStatusWord, 0},
      {"", 875},
      {"AI1=-5", -875},
      {"DI4=off", 100, 5, reg::kFieldRelative, 3},
      {"", 0x27, 0, reg::kAuxiliaryStatusWord, 0},
      {"", -875}}},
    {"FieldReversalAtStandstill",
     "exciter=external50 9912=3 4401=2 4506=4 4508=6000 4509=0",
     {{kRunning, 875},
      {"DI4=on", 100, 3, reg::kFieldRelative, 1},
      {"DI8=off", -100, 10, reg::kFieldRelative, 1},
      {"DI8=on", 875, 8}}},
    {"FieldReversalWithOneBridge", // forwards it has no torque any more
     "exciter=external50 9912=3 4401=2 4506=4 4508=6000 4316=1",
     {{kRunning, 875}, {"DI4=on", 0, 8}, {"AI1=-5", -875, 8}, {"", 1, 0, reg::kBridgeUsed, 0}}},
    {"FieldReversalTooSlow",
     "exciter=external50 9912=3 4401=2 4506=4 4508=6000 4512=100",
     {{kRunning, 875}, {"DI4=on", kFaultFieldLoss, 1, kFault, 0}}},
    {"FieldReversalWithoutTheExciter", "4401=2 4506=4", {{kRunning, 875}, {"DI4=on", 100, 3, reg::kFieldRelative, 1}}},
    {"Pt100",
     "3104=3 1501=123 1503=1 3106=150",
     {{kRunning, 25, 1, reg::kMeasuredTemperature, 2},
      {"AI2=0.597", 50, 0.1, reg::kMeasuredTemperature, 1},
      {"", 5, 0.1, reg::kOutputVoltsShown, 0.1},
      {"AI2=0.728", 0, 1, kAlarm, 0},
      {"AI2=0.732", kFaultOvertemperature + kAlarmOffset, 1, kAlarm, 0},
      {"AI2=0.784", 875},
      {"AI2=0.788", kFaultOvertemperature, 1, kFault, 0}}},
    {"Thermistor",
     "3104=2 3106=135",
     {{kRunning, 875},
      {"AI3=3.2", 0, 1, kFault, 0},
      {"", kFaultOvertemperature + kAlarmOffset, 1, kAlarm, 0},
      {"AI3=3.4", kFaultOvertemperature, 1, kFault, 0}}},
    {"BrokenSensor", "3104=4 3106=200", {{kRunning, 875}, {"AI3=0", kFaultOvertemperature, 1, kFault, 0}}},
    {"TorqueLimit",
     "2007=2",
     {{"DI7=on DI8=on AI1=5", 0}, {"AI2=-2", 20, 0.1, reg::kTorqueHighUsed, 0.1}, {"", 875, 10}}},
    {"SmallerOfSpeedAndTorque", "2601=2 2503=2", {{"DI7=on DI8=on AI1=5", 0}, {"AI2=3", 875}}},
    {"TorqueOfTheFieldbus", "2601=1 2503=5 2501=100", {{"DI7=on DI8=on", 10, 3, reg::kTorqueUsed, 0.5}}},
    {"CurrentReference", "4302=3", {{"DI7=on DI8=on AI2=0.5", 1.06, 3, reg::kArmatureCurrent, 0.1}, {"DI8=off", 0}}},
    {"BrokenLoopTrips",
     "",
     {{"AI1=6 1303=2 1317=1 DI7=on DI8=on", 875}, {"AI1=0", kFaultAnalogInput, 1, kFault, 0}, {"", 0, 8}}},
    {"BrokenLoopKeepsItsLastValue",
     "1303=2 1317=2",
     {{"DI7=on DI8=on AI1=12mA", 875}, {"AI1=0", kFaultAnalogInput + kAlarmOffset, 1, kAlarm, 0}, {"", 875}}},
    {"BrokenLoopIsZeroElsewhere", "1303=2", {{"DI7=on DI8=on AI1=6", 875}, {"AI1=0", 0}}},
    {"UnusedLoopIsNotWatched", "1307=2 1317=1", {{"AI2=0", 0, 1, kFault, 0}}},
};

class Terminals : public testing::TestWithParam<Case> {
protected:
    Terminals() {
        m_drive.KnowArmature();
        m_drive.SetValue(reg::kRampUp, 2);
        m_drive.SetValue(reg::kRampDown, 2);
        m_drive.SetValue(reg::kQuickStopRamp, 1);
    }
    WholeDrive m_drive{"S2"};
};

TEST_P(Terminals, DoAsTheirSelectorsSay) {
    ASSERT_TRUE(Do(m_drive.Drive(), GetParam().settings)) << m_drive.Drive().GetLastError().toStdString();
    Follow(m_drive, GetParam().steps);
}

INSTANTIATE_TEST_SUITE_P(All, Terminals, testing::ValuesIn(kCases),
                         [](const auto& c) { return std::string(c.param.name); });

/// An open stop wins over local control and ends a run as failed.
TEST_F(Terminals, StopALocalRunAndAServiceRun) {
    for (const char* stop : {"DI5=off", "DI4=off"}) {
        WholeDrive drive("S2");
        ASSERT_TRUE(Do(drive.Drive(), "1008=4"));
        drive.Run(800);
        drive.Seconds(20);
        ASSERT_GT(drive.Drive().GetSpeed(), 500);
        Follow(drive, {{stop, 0, 25}});
        EXPECT_FALSE(drive.Drive().CloseContactor());
        EXPECT_NE(drive.Drive().GetLastError().indexOf(stop[2] == '5' ? "emergency stop" : "disconnect"), -1);

        WholeDrive tuned("S2");
        ASSERT_TRUE(Do(tuned.Drive(), "1008=4"));
        int cycles = 0;
        EXPECT_EQ(tuned.Tune(1,
                             [&] {
                                 if (++cycles == 10)
                                     Do(tuned.Drive(), stop);
                             }),
                  diagnosis::kEmergencyStop)
            << stop;
    }
}

/// Nobody has moved a switch, so nothing may start.
TEST_F(Terminals, StartNothingByAnotherMeaning) {
    const struct {
        const char* name;
        std::function<void(CSimulatedDrive&)> change;
    } changes[] = {
        {"selector", [](CSimulatedDrive& drive) { Do(drive, "1006=8"); }},
        {"inversion", [](CSimulatedDrive& drive) { Do(drive, "1006=8 1032=1 1032=0"); }},
        {"source", [](CSimulatedDrive& drive) { Do(drive, "1006=8 1001=1 1001=0"); }},
        {"local control given back",
         [](CSimulatedDrive& drive) {
             drive.TakeLocalControl();
             Do(drive, "1006=8");
             drive.ReleaseLocalControl();
         }},
    };
    for (const auto& [name, change] : changes) {
        WholeDrive drive("S2");
        ASSERT_TRUE(Do(drive.Drive(), "1006=4 DI7=on DI8=on AI1=5"));
        drive.Seconds(1);
        change(drive.Drive());
        drive.Seconds(3);
        EXPECT_TRUE(drive.Drive().IsStopped()) << name;
        Follow(drive, {{"DI7=off DI8=off", 0, 1}, {"DI7=on DI8=on 2201=200", 875}});
    }
}

TEST_F(Terminals, AnalogueInputsScale) {
    const struct {
        quint16 mode;
        int high, low; ///< [mV]
        double volts, share;
    } points[] = {
        {0, 10000, -10000, 5, 50},    {0, 10000, -10000, -5, -50}, {0, 5000, -2500, 2.5, 50},
        {0, 5000, -2500, -1.25, -50}, {0, -10000, 10000, 5, -50},  {1, 10000, -10000, 5, 50},
        {1, 10000, -10000, -5, 0},    {1, 8000, 0, 8, 100},        {2, 10000, -10000, 2, 0},
        {2, 10000, -10000, 6, 50},    {2, 10000, -10000, 1, 0},    {3, 10000, -10000, 7.5, 50},
        {3, 10000, -10000, 0, -100},  {4, 10000, -10000, 2, -100}, {4, 10000, -10000, 8, 50},
        {2, 2000, 0, 9, 0},           {0, 10000, -10000, 30, 115},
    };
    for (const auto& p : points) {
        m_drive.SetValue(reg::kInputMode + 4, p.mode);
        m_drive.SetValue(reg::kInputHigh + 4, p.high);
        m_drive.SetValue(reg::kInputLow + 4, p.low);
        m_drive.Drive().SetTerminal({Terminal::Kind::AnalogInput, 2}, p.volts);
        EXPECT_NEAR(m_drive.Value(reg::kInputShare + 1), p.share, 0.01) << p.mode << ": " << p.volts;
        EXPECT_NEAR(m_drive.Value(reg::kInputVolts + 1), std::min(p.volts, 11.5), 0.001);
    }
    m_drive.SetValue(reg::kInputMode + 4, 0);
    m_drive.SetValue(reg::kInputFilter + 4, 1000);
    Follow(m_drive, {{"DI7=on AI2=0", 0, 9, reg::kInputShare + 1, 0.1}, {"AI2=10", 63.2, 1, reg::kInputShare + 1, 1}});
}

TEST_F(Terminals, OutputsCarryWordsAndSignals) {
    const struct {
        const char* settings;
        double first, second; ///< AO1 and AO2 at half speed forward, or backward
    } scales[] = {
        {"1501=104 1503=0 1505=10000 1506=104 1508=2 1510=10000", 5, 6},
        {"1505=8000 1508=3", 4, 5},
        {"1503=1 1505=10000 1506=101", 5, 5},
        {"1506=0", 5, 0},
        {"1506=1507 1507=2500", 5, 2.5},
        {"1501=217 1506=110", 5, 5},
    };
    const auto volts = [this](int output) {
        return m_drive.Drive().GetTerminal({Terminal::Kind::AnalogOutput, output});
    };
    Follow(m_drive, {{kRunning, 875}});
    for (const auto& scale : scales) {
        ASSERT_TRUE(Do(m_drive.Drive(), scale.settings)) << m_drive.Drive().GetLastError().toStdString();
        m_drive.Seconds(0.1);
        EXPECT_NEAR(volts(1), scale.first, 0.06) << scale.settings;
        EXPECT_NEAR(volts(2), scale.second, 0.06) << scale.settings;
    }
    Follow(m_drive, {{"AI1=-5 1501=104 1503=1 1506=104 1508=3", -875, 8}});
    EXPECT_EQ(volts(1), 0) << "no negative voltage in this range";
    EXPECT_NEAR(volts(2), 5, 0.06);
    ASSERT_TRUE(Do(m_drive.Drive(), "1503=0"));
    m_drive.Seconds(0.1);
    EXPECT_NEAR(volts(1), -5, 0.06);
    EXPECT_NEAR(m_drive.Value(reg::kOutputVoltsShown), volts(1), 0.01);

    const auto output = [this](int number) {
        return m_drive.Drive().GetTerminal({Terminal::Kind::DigitalOutput, number}) != 0;
    };
    EXPECT_TRUE(output(6)) << "operation enabled, as delivered";
    ASSERT_TRUE(Do(m_drive.Drive(), "1411=64735 1403=514 1404=6")); // -801
    m_drive.Seconds(0.1);
    EXPECT_FALSE(output(6));
    EXPECT_TRUE(output(2)) << "DI7";
}

TEST(TerminalNames, AreReadAndRefused) {
    for (const char* name : {"DI1", "di8", "AI4", "DO8", "AO2"})
        EXPECT_TRUE(ParseTerminal(QString::fromLatin1(name))) << name;
    for (const char* name : {"", "DI", "DI0", "DI9", "DI10", "AI5", "AO3", "XI1", "DI1x"})
        EXPECT_FALSE(ParseTerminal(QString::fromLatin1(name))) << name;
    const Terminal analogue{Terminal::Kind::AnalogInput, 1};
    QString error;
    const std::pair<const char*, double> levels[] = {{"5", 5}, {"-2.5 V", -2.5}, {"12mA", 6}, {"4 mA", 2}};
    for (const auto& [text, volts] : levels)
        EXPECT_EQ(ParseTerminalValue(analogue, QString::fromLatin1(text), error), volts) << text;
    for (const char* text : {"", "on", "31", "nan", "5 A", "mA"})
        EXPECT_FALSE(ParseTerminalValue(analogue, QString::fromLatin1(text), error)) << text;
    EXPECT_FALSE(ParseTerminalValue({}, QStringLiteral("1"), error));
}

} // namespace
} // namespace krt550::test
