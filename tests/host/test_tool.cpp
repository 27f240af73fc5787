// The real program, as a person starts it.
#include "tests/host/tool_run.h"

namespace krt550 {
namespace {

TEST(Tool, RefusesWrongOptionsAndFilesInOneLine) {
    const struct {
        const char* arguments;
        const char* complaint;
    } cases[] = {
        {"--paly x", "paly"},
        {"x.play", "x.play"},
        {"--play", "play"},
        {"--play --log -", "--play needs a value"},
        {"--log=", "--log needs a value"},
        {"--help=yes", "help"},
        {"--speed fast", "--speed \"fast\" is not a number from 1 to 1000"},
        {"--speed 0", "\"0\" is not a number"},
        {"--drive tram", "tram"},
        {"--drive sim:", "\"sim:\" does not name a drive"},
        {"--drive :S2", "\":S2\" does not name a drive"},
        {"--drive sim,fault=", "\"fault=\" is not an option=value"},
        {"--drive sim,=x", "\"=x\" is not an option=value"},
        {"--drive sim:S99", "motor \"S99\""},
        {"--drive sim,colour=red", "colour"},
        {"--drive modbus-udp:plant:502", "there is no such drive"},
        {"--drive modbus-tcp:plant", "modbus-tcp:HOST:PORT"},
        {"--drive modbus-tcp:plant:0", "port from 1 to 65535"},
        {"--drive modbus-tcp:plant:502,8E1", "modbus-tcp:HOST:PORT"},
        {"--drive modbus-tcp:plant:502,unit=256", "not a unit from 1 to 255"},
        {"--drive modbus-tcp:plant:502,colour=red", "has no \"colour=red\""},
        {"--drive modbus-rtu:/dev/ttyUSB0", "modbus-rtu:DEVICE,BAUD,PARITY"},
        {"--drive modbus-rtu:/dev/ttyUSB0,19201,8E1", "\"19201\" is not a baud rate"},
        {"--drive modbus-rtu:/dev/ttyUSB0,19200,9E1", "\"9E1\" is not data bits"},
        {"--drive modbus-rtu:/dev/ttyUSB0,19200,8E1,unit=248", "not a unit from 1 to 247"},
        {"--drive sim,fault=moon", "moon"},
        {"--drive sim,R=9000", "option R: \"9000\" is not a number from 0.0005 to 60 Ohm"},
        {"--drive sim,DI8=up", "DI8: \"up\" is neither on nor off"},
        {"--drive sim,DO1=on", "no option \"DO1\""},
        {"--macros ~/none", "/none"},
        {"--macros ~/bad.macros", "bad.macros:1: "},
        {"--drive sim,partner=S9", "no partner \"S9\"; there are: S1, S2"},
        {"--drive sim,slave=delta", "no slave \"delta\"; there are: parallel, series"},
        {"--drive sim,J=heavy", "option J: \"heavy\" is not a number"},
        {"--wizard-dir ~/none", "/none"},
        {"--parameters ~/none", "/none"},
        {"--parameters ~/bad.parameters", "bad.parameters:1: "},
        {"--module ~/none.so", "none.so"},
        {"--module ~/good.play", "good.play"},
        {"--module " KRT550_NO_MODULE, "has no function RunWizard"},
        {"--play ~/none.play", "none.play"},
        {"--play ~/bad.play", "bad.play:2: \"sideways\""},
        {"--play=~/good.play --log ~/none/log", "none/log"},
        {"--play=~/good.play --record ~/none/r", "record "},
        {"--play=~/good.play --record ~/good.play", "good.play: cannot be written: "},
        {"report", "report RECORD -o FILE.pdf"},
        {"report ~/none -o ~/r.pdf", "/none: there is no such file"},
        {"report ~/good.play -o ~/r.pdf", "good.play: it is no record"},
        {"report ~/none -o ~/r.txt", "has to end with .pdf or .html"},
        {"report ~/none --colour", "colour"},
        {"get 1.04 --drive", "drive"},
        {"get 99.6", "\"99.6\" is no register"},
        {"get 1.04 --drive tram", "tram"},
        {"list moon", "no group, parameter or name with \"moon\""},
        {"set 1.04=3", "is read-only"},
        {"set 99.02=2400 99.02=240", "out of range. It must lie between 5 and 2000 V"},
        {"set 99.02=12.5", "\"12.5\" cannot be used. Please input a whole number"},
        {"set 10.01=9", "is not one of its values"},
        {"set 99.06=1", "it starts a service mode; --act writes it"},
        {"backup ~/good.play", "good.play is there already"},
        {"backup ~/none/b", "none/b: cannot be written"},
        {"compare ~/good.play", "good.play:1: it is no backup"},
        {"restore ~/b", "there is no terminal to ask at"},
        {"restore ~/none --yes", "/none: cannot be read"},
        {"record ~/good.play", "it is no record"},
        {"play", "play"},
        {"play ~/none.play", "none.play"},
        {"wizard --paly", "paly"},
    };
    for (const auto& c : cases) {
        ToolRun tool;
        tool.Write(QStringLiteral("bad.parameters"), QStringLiteral("nonsense\n"));
        tool.Write(QStringLiteral("bad.macros"), QStringLiteral("nonsense\n"));
        tool.Write(QStringLiteral("bad.play"), QStringLiteral("start\npress sideways\n"));
        tool.Write(QStringLiteral("good.play"), QStringLiteral("start\n"));
        EXPECT_EQ(tool.Run(QLatin1String(c.arguments)), 2) << c.arguments;
        EXPECT_TRUE(tool.errors.startsWith(QLatin1String("krt550tool: "))) << c.arguments;
        EXPECT_TRUE(tool.errors.contains(QString::fromUtf8(c.complaint)))
            << c.arguments << ": " << tool.errors.toStdString();
        EXPECT_EQ(tool.errors.count(QLatin1Char('\n')), 1) << c.arguments << ": " << tool.errors.toStdString();
    }
}

/// A copy that lies apart from the rest of the program.
TEST(Tool, NamesThePartThatIsMissing) {
    const struct {
        const char* arguments;
        const char* part;
    } cases[] = {
        {"--play ~/a.play --wizard-dir ~", "hands"},
        {"report ~/a.record -o ~/a.pdf", "report"},
        {"record ~/a.record", "report"},
        {"set 43.06=0.25 --record ~/a.record --parameters " KRT550_SOURCE_DIR "/data/KRT550.parameters", "record"}};
    for (const auto& c : cases) {
        ToolRun tool;
        tool.Write(QStringLiteral("a.play"), QStringLiteral("start\n"));
        ASSERT_TRUE(QDir().mkpath(tool.Path(QStringLiteral("bin"))));
        ASSERT_TRUE(QFile::copy(tool.process.program(), tool.Path(QStringLiteral("bin/krt550tool"))));
        tool.process.setProgram(tool.Path(QStringLiteral("bin/krt550tool")));
        EXPECT_EQ(tool.Run(QLatin1String(c.arguments)), 2) << c.arguments;
        EXPECT_TRUE(tool.errors.contains(QStringLiteral("/parts/%1.so: there is no such file\n").arg(c.part)))
            << tool.errors.toStdString();
    }
}

TEST(Tool, NeedsNoDisplayForHelpAndPlays) {
    ToolRun tool;
    for (const char* variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        tool.DropVariable(variable);
    EXPECT_EQ(tool.Run({}), 1);
    EXPECT_TRUE(tool.errors.contains(QLatin1String("there is no display"))) << tool.errors.toStdString();
    EXPECT_EQ(tool.Play(QStringLiteral("expect page 107\n")), 0) << tool.errors.toStdString();
    tool.output.clear();
    EXPECT_EQ(tool.Run(QStringLiteral("--help")), 0);
    for (const char* word : {"--drive", "--wizard-dir", "--parameters", "--module", "--play", "--log", "--shots",
                             "--speed", "--version", "sim:S1", "missing:", "press CONTROL", "wait CONDITION"})
        EXPECT_TRUE(tool.output.contains(QLatin1String(word))) << word;
}

} // namespace
} // namespace krt550
