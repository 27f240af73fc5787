#pragma once

namespace krt550 {

/// What a person does in the wizard, from the start page on.
struct Procedure {
    const char* name;
    int box = 0;                 ///< of its page on the start page; 0: it stays there
    void (*act)() = nullptr;     ///< on the page
    std::vector<int> edits = {}; ///< or these are changed, one on each tab, and applied
    int step = 0;                ///< that an undisturbed run marks done
    quint16 feedback = 1;        ///< that the drive finds
    int endOfTuning = 0;         ///< button that ends a tacho's fine tuning
    bool hasTabs = false;
    bool fails = false;                                     ///< the drive finds a reason against it
    std::vector<std::pair<quint16, quint16>> connects = {}; ///< registers and what the person puts there
    int looks = 3;                                          ///< at a run's progress before the drive ends it
    void (*atLook)(int look) = nullptr;                     ///< what the person does meanwhile
    const char* ridesOut = "";                              ///< call whose failure is made up for without a word

    void Do() const;
};

/// Texts of the terminals' connections for the procedures.
inline constexpr const char* kConnectionTexts =
    "DI\t1005\t1\t2\t3\t4\t5\t6\t7\t8\t0\tOn\nDI\t1006\t1\t2\t3\t4\t5\t6\t7\t8\t0\tRun\n"
    "AI\t1101\t201\t1\t2\t3\t4\t0\tReference\nAI\t2503\t208\t1\t2\t3\t4\t0\tTorque\n"
    "DO\t801\t2\tRunning\nAO\t104\tSpeed actual\nMACRODEPPAR\t1\t1101\t2201\n";

std::span<const Procedure> AllProcedures();

/// Presses a button when it is there and enabled, as a person would.
void PressIfThere(int id);
} // namespace krt550
