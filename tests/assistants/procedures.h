#pragma once

#include <QtGlobal>

#include <span>

namespace krt550 {

/// What a person does in the wizard, from the start page on.
struct Procedure {
    const char* name;
    void (*act)();
    /// Step that an undisturbed run marks done, 0 for none.
    int step;
    quint16 feedback = 1; ///< that the drive finds
    int endOfTuning = 0;  ///< button that ends a tacho's fine tuning
    bool hasTabs = false;
    bool fails = false; ///< the drive finds a reason against it
};

std::span<const Procedure> AllProcedures();

/// Presses a button when it is there and enabled, as a person would.
void PressIfThere(int id);
/// Brings a tab to the front when there are tabs.
void ShowTab(int index);

} // namespace krt550
