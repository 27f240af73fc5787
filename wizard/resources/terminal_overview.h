#pragma once

#include "wizard/platform/dialog_layout.h"

namespace krt550 {

class CLayoutBuilder;

/// The overview of the standard terminals, which two pages show: four groups, and in each of them a line for every
/// terminal with the function or the signal that it is connected to.
enum class TerminalKind { DigitalInput, DigitalOutput, AnalogueInput, AnalogueOutput };
inline constexpr TerminalKind kTerminalKinds[] = {TerminalKind::DigitalInput, TerminalKind::DigitalOutput,
                                                  TerminalKind::AnalogueInput, TerminalKind::AnalogueOutput};

/// Terminals of a kind.
constexpr int TerminalCount(TerminalKind kind) {
    constexpr int kCounts[] = {8, 8, 4, 2};
    return kCounts[static_cast<int>(kind)];
}

/// Whether a terminal's name is drawn inverted when its signal is.
constexpr bool CanBeInverted(TerminalKind kind) {
    return kind == TerminalKind::DigitalInput || kind == TerminalKind::DigitalOutput;
}

// Ids of the controls; `number` is the terminal's, from 1.
constexpr int OverviewGroupId(TerminalKind kind) {
    return 61000 + 100 * static_cast<int>(kind);
}
/// "Edit parameters".
constexpr int EditParametersId(TerminalKind kind) {
    return OverviewGroupId(kind) + 1;
}
constexpr int TerminalNameId(TerminalKind kind, int number) {
    return OverviewGroupId(kind) + 10 + number;
}
constexpr int ConnectionTextId(TerminalKind kind, int number) {
    return OverviewGroupId(kind) + 20 + number;
}
/// Of the legend: the name that is not inverted, and the one that is.
constexpr int LegendPlainId(TerminalKind kind) {
    return OverviewGroupId(kind) + 5;
}
constexpr int LegendInvertedId(TerminalKind kind) {
    return OverviewGroupId(kind) + 7;
}

/// The note that new values take effect with Apply: its words, from left to right.
enum NoteId : int { kIdNoteAttention = 61400, kIdNoteText, kIdNoteApply, kIdNoteOr, kIdNoteClose };

/// Where the overview lies on a page, and how far its lines are apart [dialog units].
struct OverviewStyle {
    int top;
    int line;     ///< from terminal to terminal
    int header;   ///< height of the line with the board, the legend and the button
    int pictures; ///< width of the column with the pictures of the terminal blocks; 0: none
};

/// Adds the four groups and the note. Digital terminals lie above analogue ones, inputs to the left of outputs.
void AddTerminalOverview(CLayoutBuilder& layout, const OverviewStyle& style);

} // namespace krt550
