// What follows the drive's name in --drive.
#include "drive/fault_modes.h"
#include "drive/motor_options.h"

namespace krt550 {
namespace {

TEST(FaultModes, WhatIsNotOneIsRefusedInWords) {
    const struct {
        const char* text;
        const char* words;
    } cases[] = {
        {"", "Known are: no-answer, read-fails:REG, write-refused:REG, late-answer:MS"},
        {"No-Answer", "Known are: no-answer"},
        {"noanswer:5", "There is no fault mode \"noanswer:5\""},
        {"read-fails", "must read read-fails:REG with REG from 100 to 65535"},
        {"read-fails:", "must read read-fails:REG"},
        {"read-fails:99.06", "must read read-fails:REG"},
        {"missing:70000", "from 100 to 65535"},
        {"late-answer:0", "from 1 to 60000"},
        {"truncated-record:75", "from 0 to 74"},
        {"trip:4000", "must read trip[:CODE] with CODE from 1 to 3999"},
        {"trip:", "must read trip[:CODE]"},
        {"no-answer:1", "must read no-answer."},
    };
    for (const auto& c : cases) {
        QString error;
        EXPECT_FALSE(ParseFaultMode(QString::fromLatin1(c.text), error)) << c.text;
        EXPECT_TRUE(error.contains(QLatin1String(c.words))) << error.toStdString();
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
