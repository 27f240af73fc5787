// The application macros: every input does what the description promises, in a drive that is wired by its macro.
#include "drive/macros.h"
#include "tests/drive/terminal_script.h"

namespace krt550::test {
namespace {

CMacroTable ShippedMacros() {
    QStringList errors;
    const auto macros =
        ReadMacroFile(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.macros"), WholeDescription(), errors);
    EXPECT_TRUE(macros) << errors.join(u'\n').toStdString();
    return macros.value_or(CMacroTable());
}

struct Wiring {
    const char* name;
    quint16 macro;
    const char* settings;
    std::vector<Step> steps; ///< the last one leaves the motor running
};

// 701=1030: the fieldbus in control, off; 701=1151: on and run.
const Wiring kWirings[] = {
    {"Standard",
     0,
     "",
     {{"AI1=5 DI7=on", 0},
      {"DI8=on", 875},
      {"AI1=-10", -1750, 8},
      {"AI1=10 DI8=off", 0},
      {"DI8=on", 1750},
      {"DI7=off", 0},
      {"701=1151 2301=500", 0},
      {"DI7=on AI1=5", 875}}},
    {"ConstantSpeeds",
     1,
     "1204=300 1205=600 1206=900",
     {{"DI7=on DI8=on AI1=5", 875},
      {"DI1=on", 300},
      {"DI2=on", 900},
      {"DI1=off", 600},
      {"DI2=off", 875},
      {"DI4=on", -875, 8},
      {"DI8=off", 0},
      {"DI8=on DI4=off", 875}}},
    {"HandAutomatic",
     2,
     "2301=600",
     {{"701=1030 DI7=on DI8=on AI1=5", 875},
      {"701=1151", 875},
      {"DI4=on", 600},
      {"DI7=off DI8=off", 600},
      {"2301=300", 300},
      {"701=1030", 0},
      {"DI7=on DI8=on", 0},
      {"DI4=off", 0}, // switches that were closed before their place commands start nothing
      {"DI7=off DI8=off", 0},
      {"DI7=on DI8=on", 875}}},
    {"HandPotentiometer",
     3,
     "1106=100",
     {{"DI7=on DI8=on AI1=5", 875},
      {"DI4=on", 100},
      {"DI1=on", 975, 1, reg::kPotentiometerSpeed, 25},
      {"DI1=off", 975, 5, reg::kSpeed, 25},
      {"DI2=on", 537, 0.5, reg::kPotentiometerSpeed, 25},
      {"DI2=off", 537, 5, reg::kSpeed, 25},
      {"DI4=off", 875}}},
    {"Jogging",
     4,
     "1208=90 1209=65446", // -90
     {{"DI7=on", 0},
      {"DI1=on", 90},
      {"DI1=off", 0},
      {"DI2=on", -90},
      {"DI2=off", 0},
      {"DI8=on AI1=5", 875},
      {"DI1=on", 875},
      {"DI1=off DI4=on", -875, 8}}},
    {"MotorPotentiometer",
     5,
     "1106=0",
     {{"DI7=on DI1=on AI1=10", 0}, // nothing is wound up at standstill
      {"DI1=off DI8=on", 0},
      {"DI1=on", 875, 1, reg::kPotentiometerSpeed, 25},
      {"DI1=off", 875, 5, reg::kSpeed, 25},
      {"DI2=on", 437, 0.5, reg::kPotentiometerSpeed, 25},
      {"DI2=off", 437, 5, reg::kSpeed, 25},
      {"DI4=on", 0},
      {"DI4=off DI1=on", 875, 1, reg::kPotentiometerSpeed, 25}}},
    {"TorqueControl",
     6,
     "",
     {{"DI7=on DI8=on AI1=5 AI2=1", 875},
      {"DI4=on", 10, 0.3, reg::kTorqueUsed, 0.5},
      {"", 1750, 8}, // without a load it runs up to the speed limit and stays there
      {"AI2=-1", -10, 0.3, reg::kTorqueUsed, 0.5},
      {"", -1750, 10},
      {"DI8=off", 0},
      {"DI4=off DI8=on", 875}}},
    {"Fieldbus",
     7,
     "2301=500",
     {{"701=1030", 0},
      {"701=1151", 500},
      {"DI7=on DI8=on AI1=10", 500},
      {"DI4=off", 0, 8},
      {"DI4=on", 0},
      {"701=1030", 0},
      {"701=1151", 500}}},
    {"PushButtons",
     8,
     "",
     {{"DI7=on AI1=5", 0}, // the stop button has no wire yet
      {"DI7=off DI8=on", 0},
      {"DI7=on", 875, 5},
      {"DI7=off", 875},
      {"DI4=on", -875, 8},
      {"DI8=off", 0},
      {"DI8=on", 0},
      {"DI7=on", -875},
      {"DI7=off", -875}}},
};

class Macros : public testing::TestWithParam<Wiring> {};

TEST_P(Macros, DoWhatTheyPromise) {
    WholeDrive drive("S2");
    drive.KnowArmature();
    drive.SetValue(reg::kRampUp, 2);
    drive.SetValue(reg::kRampDown, 2);
    drive.SetValue(reg::kQuickStopRamp, 1);
    drive.Drive().SetMacros(ShippedMacros());
    // Of a macro before nothing is left.
    for (const int former : {8, 1, 5, 3, 6, 7, int(GetParam().macro)}) {
        drive.SetValue(reg::kMacro, former);
        ASSERT_TRUE(Do(drive.Drive(), "9907=1")) << drive.Drive().GetLastError().toStdString();
    }
    EXPECT_EQ(drive.Value(reg::kLoadMacro), 0);
    ASSERT_TRUE(Do(drive.Drive(), GetParam().settings));
    Follow(drive, GetParam().steps);

    EXPECT_FALSE(Do(drive.Drive(), "9907=1")) << "while the motor turns";
    EXPECT_GT(std::abs(drive.Drive().GetSpeed()), 30);
    Follow(drive, {{"DI5=off", 0, 8}, {"DI5=on", 0}});
}

INSTANTIATE_TEST_SUITE_P(All, Macros, testing::ValuesIn(kWirings),
                         [](const auto& wiring) { return std::string(wiring.param.name); });

TEST(MacroFile, TellsWhatIsWrongWithItsLines) {
    const struct {
        const char* line;
        const char* error; ///< empty: none
    } lines[] = {
        {"1\t1005\t3", ""},
        {"# comment", ""},
        {"1\t1005", "f:2: 2 fields instead of 3"},
        {"x\t1005\t3", "f:2: bad macro \"x\""},
        {"1\t1o05\t3", "f:2: bad register \"1o05\""},
        {"1\t9999\t3", "f:2: The drive has no parameter 99.99."},
        {"1\t801\t3", "f:2: parameter 8.01 Main status word is read-only"},
        {"1\t1005\t9", "f:2: \"9\" is no value of 10.05 On selector"},
        {"1\t1005\tDI3", "f:2: \"DI3\" is no value of 10.05 On selector"},
        {"1\t1106\t-1", "f:2: \"-1\" is no value of 11.06 Motor potentiometer minimum speed"},
        {"1\t1003\t1\n1\t1003\t2", "f:3: macro 1 names register 1003 twice"},
    };
    for (const auto& [line, error] : lines) {
        QByteArray text = QByteArray("macro\tregister\tvalue\n") + line + "\n2\t1006\t4\n";
        QBuffer file(&text);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QStringList errors;
        EXPECT_EQ(ReadMacros(file, QStringLiteral("f"), WholeDescription(), errors).has_value(), *error == 0) << line;
        EXPECT_EQ(errors.join(u'\n').toStdString(), error);
    }
    for (const char* whole : {"", "macro\tregister\n", "macro\tregister\tvalue\n"}) {
        QByteArray text = whole;
        QBuffer file(&text);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QStringList errors;
        EXPECT_FALSE(ReadMacros(file, QStringLiteral("f"), WholeDescription(), errors)) << whole;
        EXPECT_EQ(errors.size(), 1);
    }
}

TEST(MacroFile, AMacroThatIsNotInItIsRefused) {
    WholeDrive drive("S2");
    drive.SetValue(reg::kLoadMacro, 1); // from the panel
    drive.Seconds(0.1);
    EXPECT_EQ(drive.Value(reg::kLoadMacro), 0);
    EXPECT_FALSE(Do(drive.Drive(), "9907=1"));
    EXPECT_EQ(drive.Drive().GetLastError(), QStringLiteral("The drive has no application macro 0."));
    EXPECT_EQ(drive.Value(reg::kLoadMacro), 0);
}

} // namespace
} // namespace krt550::test
