#include "drive/fault_modes.h"

namespace krt550 {
namespace {

TEST(FaultModes, TextsAreReadAndWrittenAlike) {
    QString error;
    for (const auto& [text, written] : {std::pair{"no-answer", "no-answer"},
                                        {"read-fails:9906", "read-fails:9906"},
                                        {"truncated-record:0", "truncated-record:0"},
                                        {"trip", "trip:110"},
                                        {"trip:104", "trip:104"}}) {
        const auto mode = ParseFaultMode(QString::fromLatin1(text), error);
        ASSERT_TRUE(mode) << text << ": " << error.toStdString();
        EXPECT_EQ(FaultModeText(*mode).toStdString(), written);
    }
}

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

} // namespace
} // namespace krt550
