#pragma once

#include <QString>

namespace krt550 {

class CHostDrive;
class CMotorRun;

/// What the tabs of step 5 ask of their page.
class CSpeedFeedbackOwner {
public:
    virtual ~CSpeedFeedbackOwner() = default;
    /// The host's drive, or null.
    virtual CHostDrive* GetHostDrive() const = 0;
    /// Key of the texts of the step.
    virtual int GetStep() const = 0;
    /// A tab has come to the front or was loaded again. The page shows the speeds anew, the third one that of
    /// `feedback`, a value of 50.03; and the update runs from now on if `follows`.
    virtual void OnTabLoaded(quint16 feedback, bool follows) = 0;
    /// A run begins: whatever has stopped the update, it runs again.
    virtual void OnRunBegun() = 0;
    /// Reads and shows the speeds, and looks before each of them whether the run is still wanted; false when it is not.
    virtual bool ShowSpeeds(CMotorRun& run, quint16 feedback) = 0;
    /// Reads and shows them at a standstill.
    virtual void ShowSpeeds(quint16 feedback) = 0;
    /// Says something without a box: the motor may turn. Empty: nothing any more.
    virtual void ShowNotice(const QString& text) = 0;
    /// Step 5 is done.
    virtual void MarkDone() = 0;
    /// Back and Next, while the drive looks for its feedback.
    virtual void EnableNavigation(bool enable) = 0;
};

} // namespace krt550
