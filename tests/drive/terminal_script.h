#pragma once

#include "tests/drive/whole_drive.h"

namespace krt550::test {

/// Does what a line of blanks-separated words says: "DI7=on AI1=5" at the terminals, "701=1151" as a raw word over the
/// link, "exciter=external50" what feeds the field. False when the drive refuses a word.
inline bool Do(CSimulatedDrive& drive, const char* line) {
    bool done = true;
    const QStringList words = QString::fromLatin1(line).split(u' ', Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const QString name = word.section(u'=', 0, 0);
        const QString value = word.section(u'=', 1);
        if (name == QLatin1String("exciter")) {
            done = ParseExciter(value, drive.GetExciter()) && done;
            continue;
        }
        const std::optional<Terminal> terminal = ParseTerminal(name);
        QString error;
        const std::optional<double> level = terminal ? ParseTerminalValue(*terminal, value, error) : 0;
        EXPECT_TRUE(level) << error.toStdString();
        done = (terminal ? drive.SetTerminal(*terminal, level.value_or(0))
                         : drive.WriteRegister(name.toUShort(), static_cast<quint16>(value.toInt()))) &&
               done;
    }
    return done;
}

/// What is done, and what a register shows some time later.
struct Step {
    const char* line;
    double value;
    double seconds = 5;
    quint16 reg = reg::kSpeed;
    double tolerance = 12;
};

inline void Follow(WholeDrive& drive, const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        EXPECT_TRUE(Do(drive.Drive(), step.line)) << drive.Drive().GetLastError().toStdString();
        drive.Seconds(step.seconds);
        EXPECT_NEAR(drive.Value(step.reg), step.value, step.tolerance) << step.line << ", register " << step.reg;
    }
}

} // namespace krt550::test
