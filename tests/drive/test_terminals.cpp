// What the terminals do: stops, acknowledges, faults and the scales of the analogue signals; the inputs of every macro,
// in a drive that is wired by it. What the tool does beside them, and which field exciters the drive runs with.
#include "tests/drive/scripted_drive.h"

namespace krt550::test {
namespace {

const Script kTerminals[] = {
    {"RunWithoutOnSwitchesOn", "1005=0 | DI8=on AI1=5 : 104=875 | DI8=off : 104=0"},
    {"OnWithoutRunRuns", "1006=0 | DI7=on AI1=5 : 104=875 | DI7=off : 104=0"},
    {"InvertedInput",
     "1032=1 | DI7=on AI1=5 : 104=0 | DI8=on : 104=0 | DI7=off : 104=0 | DI7=on : 104=0 | DI8=off : 104=875"},
    {"ControlWordBit", "1006=12 | DI7=on AI1=5 : 104=0 | 701=4096 : 104=875 | 701=0 : 104=0"},
    {"Disconnect", "1008=4 | run : 104=875 | DI4=off 8s : 104=0 | DI4=on : 104=0 | DI7=off : 104=0 | DI7=on : 104=875"},
    {"DisconnectCoasts", "1008=4 2004=0 | run : 104=875 | DI4=off 0.2s : 116=0~0.1"},
    {"EmergencyStop", "run : 104=875 | DI5=off 0.1s : 807=6 | : 104=0 | DI5=on : 104=0"},
    {"InvertedEmergencyStop", "1029=1 | run : 104=0"},
    {"ExternalFault", "1018=4 1003=6 | run : 104=875 | DI4=off 1s : 910=110 | 8s : 104=0 | DI4=on DI6=on 1s : 901=0 | "
                      "DI6=off : 104=0 | DI7=off : 104=0 | DI7=on : 104=875"},
    {"ResetWhileTheCauseIsThere", "1018=4 | DI4=off 1s : 901=512 | DI6=on 1s : 901=512"},
    {"ThermalSwitch", "3107=4 | run : 104=875 | DI4=off 1s : 910=106"},
    {"ExternalAlarm", "1019=4 | run : 104=875 | DI4=off 1s : 912=4110 | : 104=875"},
    {"ContactorAcknowledge", "run : 104=875 | DI3=off 2s : 910=108"},
    {"ContactorWithoutAcknowledge", "1014=0 | DI3=off : 104=0 | run : 104=875"},
    {"MotorFan", "3025=1 | run : 104=875 | DI2=off 2s : 910=115"},
    {"ConverterFan", "3025=1 3036=2 | run : 104=875 | DI1=off 2s : 912=4116"},
    {"Ramp2", "2205=4 2206=2000 | DI4=on DI7=on DI8=on AI1=10 : 104=300~80 | local=on ref=1750 : 104=1750"},
    {"RampHold", "1013=4 | run : 104=875 | DI4=on AI1=10 : 104=875 | DI4=off : 104=1750"},
    {"JogAfterAJogKeepsItsRamp",
     "1010=4 1208=875 2208=100 2209=2000 | DI7=on DI4=on : 104=875 | DI4=off 1s : 104=790~40"},
    {"ConstantSpeedOfEachInput",
     "1201=1 1202=4 1203=1 1204=300 1205=600 1015=0 | run : 104=875 | DI4=on : 104=300 | DI1=on : 104=300 | "
     "DI4=off : 104=600"},
    {"ForwardOnly", "2312=1 | DI7=on DI8=on AI1=-5 : 104=0"},
    {"Reference2", "1103=4 1102=2 | run AI2=2 : 104=875 | DI4=on : 104=350"},
    {"ChannelAKnowsNoDirection", "5002=0 | DI7=on DI8=on AI1=-5 : 104=-875 103=875"},
    {"Reference1Gain", "1109=500 | run : 104=437"},
    {"SpeedScaling", "5001=1000 | run : 104=500"},
    {"FieldHeating",
     "4404=4 4405=400 | DI4=on 8s : 129=40 | run 8s : 104=875 | 1s : 129=100~1 | DI8=off DI7=off 8s : 129=40 | "
     "DI4=off 8s : 129=0~1"},
    {"FieldReversal",
     "exciter=external50 9912=3 4401=2 4506=4 4508=6000 | run : 104=875 | DI4=on 0.3s : 116=0~0.01 | 4s : 129=-100~3 | "
     "3s : 802=295 | : 104=875 | AI1=-5 : 104=-875 | DI4=off : 129=100 | 0s : 802=39 | : 104=-875"},
    {"FieldReversalAtStandstill",
     "exciter=external50 9912=3 4401=2 4506=4 4508=6000 4509=0 | run : 104=875 | DI4=on 3s : 129=100~1 104=875 | "
     "DI8=off 10s : 129=-100~1 | DI8=on 8s : 104=875"},
    {"FieldReversalWithOneBridge",
     "exciter=external50 9912=3 4401=2 4506=4 4508=6000 4316=1 | run : 104=875 | DI4=on 8s : 104=0 | "
     "AI1=-5 8s : 104=-875 | 0s : 809=1"},
    {"FieldReversalTooSlow",
     "exciter=external50 9912=3 4401=2 4506=4 4508=6000 4512=100 | run : 104=875 | DI4=on 1s : 910=104"},
    {"FieldReversalWithoutTheExciter", "4401=2 4506=4 | run : 104=875 | DI4=on 3s : 129=100~1"},
    {"Pt100", "3104=3 1501=123 1503=1 3106=150 | run 1s : 123=25~2 | AI2=0.597 0.1s : 123=50 | 0.1s : 511=5~0.1 | "
              "AI2=0.728 1s : 912=0 | AI2=0.732 1s : 912=4106 | AI2=0.784 : 104=875 | AI2=0.788 1s : 910=106"},
    {"Thermistor", "3104=2 3106=135 | run : 104=875 | AI3=3.2 1s : 910=0 | 1s : 912=4106 | AI3=3.4 1s : 910=106"},
    {"BrokenSensor", "3104=4 3106=200 | run : 104=875 | AI3=0 1s : 910=106"},
    {"TorqueLimit", "2007=2 | run : 104=0 | AI2=-2 0.1s : 219=20~0.1 | 10s : 104=875"},
    {"SmallerOfSpeedAndTorque", "2601=2 2503=2 | run : 104=0 | AI2=3 : 104=875"},
    {"TorqueOfTheFieldbus", "2601=1 2503=5 2501=100 | DI7=on DI8=on 3s : 209=10"},
    {"CurrentReference", "4302=3 | DI7=on DI8=on AI2=0.5 3s : 116=1.06~0.1 | DI8=off : 104=0"},
    {"BrokenLoopTrips", "AI1=6 1303=2 1317=1 DI7=on DI8=on : 104=875 | AI1=0 1s : 910=122 | 8s : 104=0"},
    {"BrokenLoopKeepsItsLastValue",
     "1303=2 1317=2 | DI7=on DI8=on AI1=12mA : 104=875 | AI1=0 1s : 912=4122 | : 104=875"},
    {"BrokenLoopIsZeroElsewhere", "1303=2 | DI7=on DI8=on AI1=6 : 104=875 | AI1=0 : 104=0"},
    {"UnusedLoopIsNotWatched", "1307=2 1317=1 | AI2=0 1s : 910=0"},
    // Nobody has moved a switch, so nothing may start: another selector, inversion, source, local control given back.
    {"SelectorStartsNothing", "1006=4 run 1s | 1006=8 3s : 104=0 | DI7=off DI8=off 1s | DI7=on DI8=on : 104=875"},
    {"InversionStartsNothing", "1006=4 run 1s | 1006=8 1032=1 1032=0 3s : 104=0 | DI8=off 1s | DI8=on 5s : 104=0"},
    {"SourceStartsNothing", "1006=4 run 1s | 1006=8 1001=1 1001=0 3s : 104=0"},
    {"LocalControlGivenBackStartsNothing", "1006=4 run 1s | local=on 1006=8 local=off 3s : 104=0"},
    {"Outputs",
     "run : 104=875 | 1501=104 1503=0 1505=10000 1506=104 1508=2 1510=10000 0.1s : AO1=5~0.06 AO2=6~0.06 | "
     "1505=8000 1508=3 0.1s : AO1=4~0.06 AO2=5~0.06 | 1503=1 1505=10000 1506=101 0.1s : AO1=5~0.06 AO2=5~0.06 | "
     "1506=0 0.1s : AO1=5~0.06 AO2=0 | 1506=1507 1507=2500 0.1s : AO2=2.5~0.06 | "
     "1501=217 1506=110 0.1s : AO1=5~0.06 AO2=5~0.06 | "
     "AI1=-5 1501=104 1503=1 1506=104 1508=3 8s : 104=-875 AO1=0~0 AO2=5~0.06 | 1503=0 0.1s : AO1=-5~0.06 511=-5~0.06 "
     "| "
     "0s : DO6=1~0 | 1411=64735 1403=514 1404=6 0.1s : DO6=0~0 DO2=1~0"}, // -801; DI7
};

// 701: 1030 is off, 1151 on and run; without its control bit, frozen, with input 0, with output 0 at once, coast stop,
// quick stop, acknowledge.
const Script kControlWords[] = {
    {"WithoutTheControlBit", "1001=1 2301=300 1101=5 701=6 701=127 : 104=0"},
    {"Ramp", "1001=1 2301=300 1101=5 2202=1000 701=1030 701=1151 : 104=300 704=1151 | 701=1119 2301=900 : 104=300 | "
             "701=1087 0.5s : 104=212~25 | 701=1135 0.2s : 104=0~25"},
    {"CoastStop", "1001=1 2301=1500 1101=5 701=1030 701=1151 : 104=1500 DO3=1 | 701=1149 0.5s : 104=1300~100 DO3=0 | "
                  "30s 701=1151 1s : 104=0 807=0"},
    {"QuickStop", "1001=1 2301=1500 1101=5 2204=200 701=1030 701=1151 : 104=1500 | 701=1147 0.5s : 104=1110~60 DO3=1 | "
                  "701=1151 0.5s : 104=670~60 | 30s : 104=0 | 701=1151 1s : 104=0 | 701=1030 701=1151 : 104=1500"},
    {"OffTakenBack", "1001=1 2301=1500 1101=5 701=1030 701=1151 : 104=1500 | 701=1150 0.5s | 701=1151 : 104=1500"},
    {"QuickStopWhileSwitchingOff",
     "1001=1 2301=1500 1101=5 2202=1000 2204=100 701=1030 701=1151 : 104=1500 | 701=1150 0.2s : 104=1465~25 | "
     "701=1146 1.5s : 104=0"},
    {"AcknowledgeIsARisingEdge",
     "1001=1 1018=4 DI4=on 701=1030 701=1159 0.1s | DI4=off 1s : 910=110 901=512 | DI4=on 1s : 901=512 | "
     "701=1031 0.1s : 901=512 | 701=1159 0.1s : 901=0"},
    {"LocalControlTakesOver",
     "1001=1 2301=600 1101=5 701=1030 701=1151 8s local=on : 104=600 | 701=1024 : 104=600 | local=off : 104=0 DO3=0"},
};

const Script kTool[] = {
    {"RunsUpAndDown", "0s : 801=561~0 | local=on ref=1500 close start 6s : 104=1500 217=1500 102=1500~50 801=1335~0 | "
                      "stop 0s : 704=119~0 | 5s : 104=0 DO3=1 | start 5s : 104=1500 | open 1s : DO3=1 | 5s : 104=0 "
                      "DO3=0 | close : 104=0 DO3=1"},
    {"NeedsLocalControlAndItsOrder",
     "!close !open !start !stop !local=off 0s : why=Take_local_control_of_the_drive_first. | "
     "local=on !start 0s : why=Close_the_main_contactor_first. | ref=500 close : 104=0"},
    {"ReferenceStaysWithinTheLimits",
     "2002=2000 2001=-1500 local=on !ref=2000.1 !ref=nan !ref=inf 0s : why=speed_limits | "
     "!ref=-1500.1 0s : why=speed_limits | ref=-1500 ref=2000 2002=1200 close start : 104=1200"},
    {"TripCoastsUntilItIsReset",
     "local=on ref=900 close start : 104=900 | trip:104 1s : 104=625~225 DO3=0 910=104 901=8 | "
     "!close 0s : why=fault_104_(field_current_lost) | !reset repaired 0s : 901=8 | "
     "reset !close 0s : 901=0 why=inhibited | open close"},
    {"ContactorThatIsStuckOrWelded",
     "local=on contactor-stuck !close 0s : why=The_main_contactor_does_not_close. | !start 0.5s : 910=0 | 1s : 910=108 "
     "| "
     "repaired reset open close start-refused !start 0s : why=interlock | "
     "contactor-welded !open 0s : why=The_main_contactor_does_not_open. | 0s : DO3=1 | 2s : 901=128"},
    {"MacroThatIsNotInTheFile", // loaded from the panel, and over the link
     "9907:1 0.1s : 9907=0~0 | !9907=1 0s : why=The_drive_has_no_application_macro_0. 9907=0~0"},
    // An open stop wins over local control and ends a service run as failed.
    {"EmergencyStopOfALocalRun",
     "local=on ref=800 close start 20s : 104=800 | DI5=off 25s : 104=0 | !close 0s : why=emergency_stop"},
    {"DisconnectOfALocalRun",
     "1008=4 local=on ref=800 close start 20s : 104=800 | DI4=off 25s : 104=0 | !close 0s : why=disconnect"},
    {"EmergencyStopOfAServiceRun", "9906=1 local=on close start 0.5s : 9906=1 | DI5=off : 9906=0 911=10"},
    {"DisconnectOfAServiceRun", "1008=4 9906=1 local=on close start 0.5s : 9906=1 | DI4=off : 9906=0 911=10"},
    // The resistor must be off the armature before the converter comes back.
    {"DynamicBrakingGoesToStandstillWhateverIsReleasedMeanwhile",
     "2104=3 local=on ref=800 close start 8s : 104=800 | e-stop repaired open !close 0s : why=braked | "
     "0.1s : 116<-2 | 3s : 104=0 | open close"},
    {"ActualValues", // of a motor that is loaded with 10 Nm
     "5003=1 local=on ref=1200 close start 6s | hanging=10 10s : 102=1200~15 103=1200~5 104=1200~5 105=0~0 "
     "116=10.8~0.2 "
     "129=100~1 130=1.07~0.02 217=1200~1 218=1200~1 330=100~0.1 109=10.9~0.3 114=155~2 805=23 | open 40s : 805=16"},
};

// 4.06 is the exciter found, 4.18 and 4.19 the nodes that answer.
const Script kExciters[] = {
    {"OnItsBoard", "exciter=onboard 9912=1 local=on close 0s : 406=1 418=1 419=0 910=0 DO3=1"},
    {"NoneAndNoneUsed", "exciter=none 9912=0 local=on close 0s : 406=0 418=1 419=0 910=0 DO3=1"},
    {"None", "exciter=none 9912=1 local=on !close 0s : 406=0 418=1 910=133 DO3=0 why=exciter"},
    {"AnotherType", "exciter=external35 9912=3 local=on !close 0s : 406=2 418=1 419=16 910=133 DO3=0 why=exciter"},
    {"OnItsBoardButAnotherUsed", "exciter=onboard 9912=2 local=on !close 0s : 406=1 419=0 910=133 DO3=0 why=exciter"},
    {"External", "exciter=external35 9912=2 local=on close 0s : 406=2 418=1 419=16 910=0 DO3=1"},
    {"SecondConverter", "exciter=second2@32 9912=6 9408=32 local=on close 0s : 406=6 418=1 419=32768 910=0 DO3=1"},
    {"AtAnotherNode", "exciter=external450@22 9912=4 local=on !close 0s : 406=0 419=32 910=133 DO3=0 why=exciter"},
    {"FoundThere", "exciter=external450@22 9912=4 9408=22 local=on close 0s : 406=4 419=32 910=0 DO3=1"},
    {"AtTheConvertersNode", "exciter=external450@1 9912=4 9408=1 local=on !close 0s : 406=0 418=1 419=0 910=133 DO3=0"},
};

const Script kMacros[] = {
    // 701=1030: the fieldbus in control, off; 701=1151: on and run
    {"Standard",
     "macro=0 | AI1=5 DI7=on : 104=0 | DI8=on : 104=875 | AI1=-10 8s : 104=-1750 | AI1=10 DI8=off : 104=0 | "
     "DI8=on : 104=1750 | DI7=off : 104=0 | 701=1151 2301=500 : 104=0 | DI7=on AI1=5 : 104=875 | as-any-macro"},
    {"ConstantSpeeds",
     "macro=1 | 1204=300 1205=600 1206=900 | run : 104=875 | DI1=on : 104=300 | DI2=on : 104=900 | "
     "DI1=off : 104=600 | DI2=off : 104=875 | DI4=on 8s : 104=-875 | DI8=off : 104=0 | DI8=on DI4=off : 104=875 | "
     "as-any-macro"},
    {"HandAutomatic",
     "macro=2 | 2301=600 | 701=1030 run : 104=875 | 701=1151 : 104=875 | DI4=on : 104=600 | "
     "DI7=off DI8=off : 104=600 | 2301=300 : 104=300 | 701=1030 : 104=0 | DI7=on DI8=on : 104=0 | DI4=off : 104=0 | "
     "DI7=off DI8=off : 104=0 | DI7=on DI8=on : 104=875 | as-any-macro"},
    {"HandPotentiometer",
     "macro=3 | 1106=100 | run : 104=875 | DI4=on : 104=100 | DI1=on 1s : 221=975 | DI1=off : 104=975~25 | "
     "DI2=on 0.5s : 221=537~25 | DI2=off : 104=537~25 | DI4=off : 104=875 | as-any-macro"},
    {"Jogging",
     "macro=4 | 1208=90 1209=65446 | DI7=on : 104=0 | DI1=on : 104=90 | DI1=off : 104=0 | DI2=on : 104=-90 | "
     "DI2=off : 104=0 | DI8=on AI1=5 : 104=875 | DI1=on : 104=875 | DI1=off DI4=on 8s : 104=-875 | as-any-macro"},
    {"MotorPotentiometer",
     "macro=5 | 1106=0 | DI7=on DI1=on AI1=10 : 104=0 | DI1=off DI8=on : 104=0 | DI1=on 1s : 221=875 | "
     "DI1=off : 104=875~25 | DI2=on 0.5s : 221=437~25 | DI2=off : 104=437~25 | DI4=on : 104=0 | "
     "DI4=off DI1=on 1s : 221=875 | as-any-macro"},
    {"TorqueControl", "macro=6 | run AI2=1 : 104=875 | DI4=on 0.3s : 209=10 | 8s : 104=1750 | AI2=-1 0.3s : 209=-10 | "
                      "10s : 104=-1750 | DI8=off : 104=0 | DI4=off DI8=on : 104=875 | as-any-macro"},
    {"Fieldbus", "macro=7 | 2301=500 | 701=1030 : 104=0 | 701=1151 : 104=500 | DI7=on DI8=on AI1=10 : 104=500 | "
                 "DI4=off 8s : 104=0 | DI4=on : 104=0 | 701=1030 : 104=0 | 701=1151 : 104=500 | as-any-macro"},
    {"PushButtons",
     "macro=8 | DI7=on AI1=5 : 104=0 | DI7=off DI8=on : 104=0 | DI7=on : 104=875 | DI7=off : 104=875 | "
     "DI4=on 8s : 104=-875 | DI8=off : 104=0 | DI8=on : 104=0 | DI7=on : 104=-875 | DI7=off : 104=-875 | as-any-macro"},
};

TEST_P(Scripts, DriveDoesAsItsParametersSay) {
    ScriptedDrive().Play(QString::fromLatin1(GetParam().script));
}

INSTANTIATE_TEST_SUITE_P(Terminals, Scripts, testing::ValuesIn(kTerminals), NameOf);
INSTANTIATE_TEST_SUITE_P(ControlWords, Scripts, testing::ValuesIn(kControlWords), NameOf);
INSTANTIATE_TEST_SUITE_P(Tool, Scripts, testing::ValuesIn(kTool), NameOf);
INSTANTIATE_TEST_SUITE_P(Exciters, Scripts, testing::ValuesIn(kExciters), NameOf);
INSTANTIATE_TEST_SUITE_P(Macros, Scripts, testing::ValuesIn(kMacros), NameOf);

TEST(Terminals, AnalogueInputsScale) {
    ScriptedDrive drive;
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
        drive.SetValue(reg::kInputMode + 4, p.mode);
        drive.SetValue(reg::kInputHigh + 4, p.high);
        drive.SetValue(reg::kInputLow + 4, p.low);
        drive.Drive().SetTerminal({Terminal::Kind::AnalogInput, 2}, p.volts);
        EXPECT_NEAR(drive.Value(reg::kInputShare + 1), p.share, 0.01) << p.mode << ": " << p.volts;
        EXPECT_NEAR(drive.Value(reg::kInputVolts + 1), std::min(p.volts, 11.5), 0.001);
    }
    drive.SetValue(reg::kInputMode + 4, 0);
    drive.SetValue(reg::kInputFilter + 4, 1000);
    drive.Play("AI2=0 9s : 508=0~0.1 | AI2=10 1s : 508=63.2~1");
}

TEST(TerminalNames, AreReadAndRefused) {
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
