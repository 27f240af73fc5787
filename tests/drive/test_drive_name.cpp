#include "drive/drive_name.h"
#include "drive/motor_options.h"

namespace krt550 {
namespace {

TEST(DriveName, TakesMotorOptionsAndFaultsApart) {
    QString error;
    const auto name = ParseDriveName(QStringLiteral("sim:S2,feedback=encoder,fault=missing:3016,fault=stuck"), error);
    ASSERT_TRUE(name) << error.toStdString();
    EXPECT_EQ(name->kind + name->motor, QStringLiteral("simS2"));
    ASSERT_EQ(name->options.size(), 1);
    EXPECT_EQ(name->options[0].first + name->options[0].second, QStringLiteral("feedbackencoder"));
    EXPECT_EQ(name->faults, QStringList({QStringLiteral("missing:3016"), QStringLiteral("stuck")}));
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
