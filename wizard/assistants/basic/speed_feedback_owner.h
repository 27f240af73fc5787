#pragma once

#include <QString>

namespace krt550 {

class CHostDrive;

/// What the tabs of step 5 ask of their page.
class CSpeedFeedbackOwner {
public:
    virtual ~CSpeedFeedbackOwner() = default;
    /// The host's drive, or null.
    virtual CHostDrive* GetHostDrive() const = 0;
    /// Id of the update timers, and key of the texts of the step.
    virtual int GetStep() const = 0;
    /// Has the speeds read and shown as soon as the message queue is drained; asked for again before that, once. The
    /// third one is that of `feedback`, a value of 50.03.
    virtual void PostRefreshDisplays(quint16 feedback) = 0;
    /// Says something without a box: the motor may turn. Empty: nothing any more.
    virtual void ShowNotice(const QString& text) = 0;
    /// Step 5 is done.
    virtual void MarkDone() = 0;
    /// Back and Next, while the drive looks for its feedback.
    virtual void EnableNavigation(bool enable) = 0;
};

} // namespace krt550
