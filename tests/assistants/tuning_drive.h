#pragma once

#include "tests/support/fake_drive.h"

namespace krt550 {

inline constexpr int kStartRun = 60202;
inline constexpr int kProgress = 60203;
inline constexpr int kDiagnosis = 60204;

inline const QString kRunsUp =
    "Attention:\nThe motor will run up to base speed during test!\nMake sure everything is safe!";
inline const QString kDenied = "Start of autotuning denied.\nDrive is controlled by another source!";

inline QString FailureText(const QString& diagnosis) {
    return "Autotuning failed:\n" + diagnosis + "\nFix the problem and try again\n";
}

// What a run asks of the drive, part by part.
inline QStringList Permission() {
    return {"refresh", "read 801", "take local control", "refresh", "release local control", "refresh"};
}

inline QStringList Looks(int count) {
    QStringList looks;
    for (int i = 0; i < count; ++i)
        looks += {"read 9906", "read 424"};
    return looks;
}

inline QStringList EndMode() {
    return {"write 9906=0", "refresh"};
}

inline QStringList Stop() {
    return {"stop motor", "open contactor", "refresh", "release local control"};
}

/// A drive that tunes itself: started in a service mode it advances its progress with every look at the mode, and ends
/// it.
class TuningDrive : public FakeDrive {
public:
    TuningDrive() : TuningDrive(Parameters({})) {}
    explicit TuningDrive(std::vector<ParameterDescription> parameters) : FakeDrive(std::move(parameters)) {
        words[801] = 1;
    }

    int looksUntilDone = 3; ///< how often 9906 is read before it is 0 again; 0: never
    quint16 outcome = 0;    ///< value of 911 afterwards
    std::function<void(int look)> onLook;

    /// Those of the wizard, and those in `own`, which go before them.
    static std::vector<ParameterDescription> Parameters(std::vector<ParameterDescription> own) {
        own.push_back(Number(4507, "Field reversal command", 0, 0, 2));
        if (std::ranges::find(own, 911, &ParameterDescription::reg) == own.end())
            own.push_back(List(911, "Diagnosis", {{0, "No message"}, {7, "Motor turned"}}));
        return WizardParameters(std::move(own));
    }

protected:
    void Happened(const QString& call) override {
        if (call == "start motor")
            m_looks = 0;
        if (call != "read 9906" || m_looks < 0)
            return;
        ++m_looks;
        if (onLook)
            onLook(m_looks);
        words[424] = static_cast<quint16>(looksUntilDone > 0 ? 100 * m_looks / looksUntilDone : 50);
        if (m_looks != looksUntilDone)
            return;
        words[9906] = 0;
        words[911] = outcome;
        words[2403] = words[4306] = words[4402] = words[4409] = 77; // what it has found
        m_looks = -1;
    }

private:
    int m_looks = -1;
};

} // namespace krt550
