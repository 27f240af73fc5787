#pragma once

namespace krt550 {

/// Controls of the settings of digital inputs and outputs. Every id is a function of its terminal.
inline constexpr int kDigitalTerminals = 8;

enum class DigitalGroup { Inputs, Outputs };

/// One line of a group: what each terminal has.
enum DigitalControl : int {
    kDigitalName,
    kDigitalConnection, ///< input: what it is connected to
    kDigitalEdit,       ///< input: opens the picker
    kDigitalChoice,     ///< output: named sources
    kDigitalIndex,      ///< output: index of its source
    kDigitalBit,        ///< output: bit of its source
    kDigitalInvert,
    kDigitalStatus
};
constexpr int DigitalId(DigitalGroup group, int number, DigitalControl control) {
    return 62000 + 100 * static_cast<int>(group) + 10 * number + control;
}

/// What a group has once.
enum DigitalHeading : int {
    kDigitalAttention = 1,
    kDigitalNote,
    kDigitalNoteApply,
    kDigitalNoteOr,
    kDigitalNoteClose,
    kDigitalStatusHeading,
    kDigitalIndexHeading,
    kDigitalBitHeading,
    kDigitalView ///< "Advanced" or "Basic"
};
constexpr int DigitalId(DigitalGroup group, DigitalHeading heading) {
    return 62000 + 100 * static_cast<int>(group) + heading;
}

/// Lines with a light-grey band.
constexpr bool IsBanded(int number) {
    return number % 2 != 0;
}

} // namespace krt550
