#pragma once

#include "wizard/assistants/basic/service_procedure.h"
#include "wizard/shell/wizard_tab_page.h"

namespace krt550 {

class CPageSpeedFeedback;

/// Tab "Auto" of step 5: the drive finds out which speed feedback is there while the motor turns; a tacho may then be
/// fine tuned, with the motor turning on its tacho until somebody ends that.
///
/// The test runs inside the Start button's handler. It ends with the motor stopped and local control given back, unless
/// fine tuning goes on; that may outlive the handler, and ends by Finish, by leaving the page or by Cancel.
class CTabPageAuto : public CRowTabPage {
    Q_OBJECT

public:
    explicit CTabPageAuto(CPageSpeedFeedback& page);

    bool LoadParameters() override;
    bool ApplyParameters() override;

    /// Value of 50.03 as it was read last; one that is no feedback when the drive has no such parameter.
    quint16 GetFeedback() const;
    /// The page is left: the timer does not look for faults any more.
    void EndTest() { m_testing = false; }
    /// The test is on, or fine tuning.
    bool IsRunning() const { return m_running || m_fineTuning; }
    /// Stops the motor and says that fine tuning is over. Does nothing without fine tuning.
    void FinishFineTuning();
    /// Fine tuning is over, without a word.
    void ForgetFineTuning() { m_fineTuning = false; }
    /// Aborts whatever runs and leaves the drive safe.
    void Cancel();

protected:
    /// A tab in front of another one would let go of the drive: nobody leaves while the motor turns.
    bool OnKillActive() override;
    void OnTimer(int id) override;

private:
    // tab_page_auto.cpp
    void OnButtonStart();
    void EvaluateStartCondition();
    void StartTimer();
    void LookForFaults();

    // speed_feedback_run.cpp
    enum class Ending { Reached, Failed, Aborted };

    bool RunTest(bool& aborted);
    bool FindFeedback(bool& aborted);
    /// Follows the progress until `isOver` says so of its value.
    template <class IsOver> Ending FollowProgress(const IsOver& isOver);
    bool JudgeTest(bool result, bool& aborted);
    bool ShowFeedbackFound(int text, bool result, bool& aborted);
    bool OfferFineTuning(bool result, bool& aborted);
    bool StartFineTuning();
    bool RunFineTuning(bool result, bool& aborted);
    bool CloseTest(bool result);
    void StopDrive();
    void StopAndRelease();
    void ShowTroubles();
    void EnableRowsFor(quint16 feedback);
    void ShowStartAs(int text);
    void ShowProgress(int percent);

    CPageSpeedFeedback& m_page;
    CParameter* m_serviceMode = nullptr; ///< 99.06
    CParameter* m_progress = nullptr;    ///< 4.24
    CParameter* m_diagnosis = nullptr;   ///< 9.11
    int m_updateTimer = 0;
    bool m_abort = false;
    bool m_running = false; ///< the Start button's handler is on the stack
    bool m_testing = false; ///< the timer looks for faults
    bool m_fineTuning = false;
    bool m_finishing = false;
    bool m_looking = false;
    bool m_timedOut = false;
    CQuietReads m_reads;
};

} // namespace krt550
