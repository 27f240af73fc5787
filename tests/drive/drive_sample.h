#pragma once

#include "drive/registers.h"
#include "tests/support/descriptions.h"

namespace krt550::test {

/// A small drive: base speed 1500 rpm, 10 s up, 5 s down, 1 s quick stop; so 150, 300 and 1500 rpm/s.
inline std::vector<ParameterDescription> SampleDrive() {
    return {
        Signal(reg::kSpeedEmf, "Speed EMF", "rpm"),
        Signal(reg::kSpeed, "Speed", "rpm"),
        Signal(reg::kArmatureVoltage, "Armature voltage", "V"),
        Signal(reg::kFieldCurrent, "Field current", "A", 2),
        Signal(reg::kSpeedReference, "Speed reference", "rpm"),
        Bits(reg::kControlWord, "Control word", false),
        Bits(reg::kUsedControlWord, "Used control word", true),
        Bits(reg::kStatusWord, "Status word", true),
        List(reg::kDiagnosis, "Diagnosis", {{0, "No message"}, {61, "Speed not reached"}}),
        WithDefault(Number(reg::kSpeedMinimum, "Minimum speed", 0, -10000, 10000), -1500),
        WithDefault(Number(reg::kSpeedMaximum, "Maximum speed", 0, 0, 10000), 2000),
        WithDefault(Number(reg::kRampUp, "Acceleration time", 2, 0, 300), 10),
        WithDefault(Number(reg::kRampDown, "Deceleration time", 2, 0, 300), 5),
        WithDefault(Number(reg::kQuickStopRamp, "Quick stop time", 2, 0, 300), 1),
        Number(reg::kRemoteReference, "Remote reference", 0, -10000, 10000),
        WithDefault(Number(reg::kBaseSpeed, "Base speed", 0, 10, 6500), 1500),
        List(reg::kServiceMode, "Service mode", {{0, "Normal"}, {1, "Armature"}, {2, "Field"}}),
    };
}

} // namespace krt550::test
