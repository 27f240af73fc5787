#pragma once

#include "tests/assistants/feedback_drive.h"

#include <thread>

namespace krt550 {

/// A drive behind a line: every call takes its time, in which the thread stands still. Its motor stands as soon as it
/// is told to, and its service modes go on until somebody ends them.
class CLineDrive : public FeedbackDrive {
public:
    explicit CLineDrive(int callMs) {
        looksUntilDone = 0;
        m_time.start();
        onCall = [this, callMs](const QString& call) {
            if (noted)
                noted(call, Now());
            if (!instant)
                std::this_thread::sleep_for(std::chrono::milliseconds(callMs));
        };
    }
    /// Called at the begin of every call.
    std::function<void(const QString& call, double begin)> noted;
    /// Calls take no time: for the way to what is measured.
    bool instant = false;

    /// Time since the drive was made [ms].
    double Now() const { return double(m_time.nsecsElapsed()) / 1e6; }

private:
    QElapsedTimer m_time;
};

} // namespace krt550
