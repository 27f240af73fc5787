#pragma once

#include "tests/assistants/tuning_drive.h"

namespace krt550 {

/// A drive that finds its speed feedback: in mode 5 its progress rises with every look at it, until it has
/// adapted 50.03; in mode 14 it stays where it is. A stop ends either.
class FeedbackDrive : public TuningDrive {
public:
    explicit FeedbackDrive(std::vector<ParameterDescription> parameters = Parameters())
        : TuningDrive(std::move(parameters)) {
        words[8827] = 10000;
        words[5003] = 3;
        faultBufferError = 0;
        faultRecord = QByteArray(74, 0);
        faultRecord[0] = 10;
    }

    quint16 found = 1;     ///< value of 50.03 in the end
    quint16 goal = 81;     ///< progress of the test in the end
    quint16 tuningAt = 50; ///< progress during the fine tuning
    std::function<void(int look)> onTuning;

    static std::vector<ParameterDescription> Parameters() {
        return TuningDrive::Parameters(
            {Number(8827, "Analog tacho adjust", 2, 50, 200),
             List(425, "Tacho input range", {{0, "Not in use"}, {3, "90 to 270 V"}}),
             List(5002, "Encoder evaluation", {{0, "One edge"}, {2, "All edges"}}),
             List(5003, "Feedback", {{0, "EMF"}, {1, "Encoder"}, {2, "Tacho"}, {3, "External"}}),
             List(911, "Diagnosis", {{0, "No message"}, {7, "Motor turned"}, {71, "Encoder signal missing"}})});
    }

protected:
    void Happened(const QString& call) override {
        const bool testing = words[9906] == 5 || words[9906] == 14;
        if (testing || call == "start motor" || call == "stop motor")
            AdvanceTest(call);
        if (!testing)
            TuningDrive::Happened(call);
    }

private:
    void AdvanceTest(const QString& call) {
        if (call == "start motor") {
            statusWord = 0;
            m_looks = 0;
        } else if (call == "stop motor") {
            statusWord = kStatusStopped;
            words[9906] = 0;
            m_looks = -1;
        } else if (call == "read 424" && m_looks >= 0) {
            ++m_looks;
            const bool tuning = words[9906] == 14;
            const int rising = 40 * m_looks;
            words[424] = tuning ? tuningAt : static_cast<quint16>(std::min<int>(goal, rising));
            if (!tuning && rising >= goal) {
                words[5003] = found;
                words[911] = outcome;
            }
            if (const auto& look = tuning ? onTuning : onLook)
                look(m_looks);
        }
    }

    int m_looks = -1;
};

} // namespace krt550
