#include "drive/register_file.h"
#include "tests/drive/drive_sample.h"

namespace krt550 {
namespace {

TEST(RegisterFile, LinkIsRefusedWhereADriveWouldRefuse) {
    CRegisterFile registers(test::SampleDrive());
    const struct {
        quint16 reg;
        quint16 word;
        const char* reason; ///< null: accepted
    } cases[] = {
        {reg::kRampUp, 30000, nullptr},
        {reg::kRampUp, 30001, "out of range"},
        {reg::kSpeedMinimum, 0xFFFF, nullptr},
        {reg::kServiceMode, 2, nullptr},
        {reg::kServiceMode, 3, "99.06 Service mode: 3 is not one of its values"},
        {reg::kSpeed, 1, "1.04 Speed is read-only"},
        {4205, 1, "no parameter 42.05"},
    };
    for (const auto& c : cases) {
        QString error;
        const quint16 before = registers.GetWord(c.reg);
        EXPECT_EQ(registers.WriteFromLink(c.reg, c.word, error), !c.reason) << c.reg;
        EXPECT_TRUE(error.contains(QLatin1String(c.reason))) << error.toStdString();
        EXPECT_EQ(registers.GetWord(c.reg), c.reason ? before : c.word);
    }
    quint16 word = 77;
    QString error;
    EXPECT_FALSE(registers.ReadFromLink(4205, word, error));
    EXPECT_EQ(word, 77);
    EXPECT_TRUE(error.contains(QLatin1String("42.05")));
}

} // namespace
} // namespace krt550
