#pragma once

#include <QStringList>

namespace krt550 {

inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;

/// The whole program: reads the command line, connects the drive, runs the wizard. Returns the exit status.
int RunTool(int argc, char** argv);

} // namespace krt550
