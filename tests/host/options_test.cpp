#include "host/drive_name.h"
#include "host/motor_options.h"
#include "host/options.h"

#include <gtest/gtest.h>

namespace krt550 {
namespace {

using Task = ToolOptions::Task;

ToolOptions Parse(const char* line) {
    return ParseOptions(QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

TEST(Options, RefusesWhatMakesNoSense) {
    const struct {
        const char* line;
        const char* complaint;
    } cases[] = {
        {"--paly x", "unknown option \"--paly\""},
        {"x.play", "unknown option \"x.play\""},
        {"-h", "unknown option \"-h\""},
        {"--play", "option --play needs a value"},
        {"--play --log -", "option --play needs a value"},
        {"--log=", "option --log needs a value"},
        {"--help=yes", "option --help takes no value"},
        {"--speed fast", "\"fast\" is not a number from 1 to 1000"},
        {"--speed 0", "\"0\" is not a number"},
        {"--drive sim --nothing", "unknown option \"--nothing\""},
    };
    for (const auto& c : cases) {
        const ToolOptions options = Parse(c.line);
        EXPECT_EQ(options.task, Task::Complain) << c.line;
        EXPECT_TRUE(options.complaint.contains(QString::fromUtf8(c.complaint))) << options.complaint.toStdString();
        EXPECT_FALSE(options.complaint.contains(QLatin1Char('\n')));
    }
}

TEST(Options, ReadsBothWaysOfGivingAValue) {
    const ToolOptions options = Parse("--drive sim:S1,fault=a --wizard-dir=d --parameters p --module=m=n --play s.play "
                                      "--log - --shots pictures --speed 20");
    EXPECT_EQ(options.task, Task::Run) << options.complaint.toStdString();
    EXPECT_EQ(options.drive, QStringLiteral("sim:S1,fault=a"));
    EXPECT_EQ(options.wizardDirectory, QStringLiteral("d"));
    EXPECT_EQ(options.parameterFile, QStringLiteral("p"));
    EXPECT_EQ(options.moduleFile, QStringLiteral("m=n"));
    EXPECT_EQ(options.playFile, QStringLiteral("s.play"));
    EXPECT_EQ(options.logFile, QStringLiteral("-"));
    EXPECT_EQ(options.shotDirectory, QStringLiteral("pictures"));
    EXPECT_EQ(options.speed, 20);
    EXPECT_EQ(Parse("--help").task, Task::Help);
    EXPECT_EQ(Parse("--version").task, Task::Version);
    EXPECT_EQ(Parse("").drive, QStringLiteral("sim"));
}

TEST(DriveName, TakesMotorOptionsAndFaultsApart) {
    QString error;
    const auto name = ParseDriveName(QStringLiteral("sim:S2,feedback=encoder,fault=missing:3016,fault=stuck"), error);
    ASSERT_TRUE(name) << error.toStdString();
    EXPECT_EQ(name->kind, QStringLiteral("sim"));
    EXPECT_EQ(name->motor, QStringLiteral("S2"));
    ASSERT_EQ(name->options.size(), 1);
    EXPECT_EQ(name->options[0].first, QStringLiteral("feedback"));
    EXPECT_EQ(name->options[0].second, QStringLiteral("encoder"));
    EXPECT_EQ(name->faults, QStringList({QStringLiteral("missing:3016"), QStringLiteral("stuck")}));

    const auto plain = ParseDriveName(QStringLiteral("sim,fault=x"), error);
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->kind, QStringLiteral("sim"));
    EXPECT_TRUE(plain->motor.isEmpty());

    for (const char* bad : {"", ":S2", "sim:", "sim,", "sim,fault", "sim,=x", "sim,fault="}) {
        error.clear();
        EXPECT_FALSE(ParseDriveName(QString::fromUtf8(bad), error)) << bad;
        EXPECT_FALSE(error.isEmpty()) << bad;
    }
}

TEST(MotorOptions, MakeAMotorWhoseNamePlateAgreesWithIt) {
    CMotorOptions options(DefaultMotorSet());
    QString error;
    for (const auto& [option, value] : {std::pair{"U", "440"}, {"I", "70"}, {"n", "1500"}, {"R", "0.4"}, {"J", "2"}})
        ASSERT_TRUE(options.Set(QString::fromLatin1(option), QString::fromLatin1(value), error));
    const MotorSet motor = options.GetMotor();
    EXPECT_NEAR(motor.laf * motor.fieldCurrent * 1500 * 3.14159 / 30 + 0.4 * 70, 440, 0.1);
    EXPECT_EQ(motor.mains, 420) << "the armature voltage is at most 1.05 of it";
    EXPECT_EQ(motor.converterCurrent, 125);
    EXPECT_EQ(motor.inertia, 2);
    EXPECT_EQ(motor.la, DefaultMotorSet().la) << "what is not named stays";
}

} // namespace
} // namespace krt550
