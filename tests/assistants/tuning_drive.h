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
    explicit TuningDrive(std::vector<ParameterDescription> parameters = Parameters())
        : FakeDrive(std::move(parameters)) {
        words[801] = 1;
    }

    int looksUntilDone = 3; ///< how often 9906 is read before it is 0 again; 0: never
    quint16 outcome = 0;    ///< value of 911 afterwards
    std::function<void(int look)> onLook;

    static std::vector<ParameterDescription> Parameters() {
        std::vector<ParameterDescription> parameters = TerminalParameters();
        for (const int reg : {9902, 9903, 9904, 9911, 2001, 2002, 2005, 2006, 2012, 2013, 3012, 4306,
                              4307, 4308, 4309, 4310, 4402, 4403, 4502, 9408, 4409, 4410, 4412, 4413,
                              4414, 406,  801,  424,  2003, 2201, 2202, 2306, 2311, 2403, 2409, 5006})
            parameters.push_back(
                Number(static_cast<quint16>(reg), QStringLiteral("Parameter %1").arg(reg), 0, 0, 10000));
        for (const int reg : {9912, 4401})
            parameters.push_back(
                List(static_cast<quint16>(reg), QStringLiteral("List %1").arg(reg), {{0, "Off"}, {1, "On"}}));
        for (const int reg : {3009, 3016, 9910, 330, 129})
            parameters.push_back(
                Number(static_cast<quint16>(reg), QStringLiteral("Parameter %1").arg(reg), 0, 0, 10000));
        parameters.push_back(List(9901, "Language", {{0, "English"}, {1, "Deutsch"}}));
        parameters.push_back(Number(4507, "Field reversal command", 0, 0, 2));
        parameters.push_back(Number(9906, "Service mode", 0, 0, 14));
        parameters.push_back(List(911, "Diagnosis", {{0, "No message"}, {7, "Motor turned"}}));
        return parameters;
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
