#pragma once

#include "wizard/assistants/basic/service_procedure.h"
#include "wizard/shell/wizard_tab_page.h"

namespace krt550 {

class CMotorRun;
class CSpeedFeedbackOwner;

/// Tab "Auto" of step 5: the drive finds out which speed feedback is there while the motor turns; a tacho may then be
/// fine tuned, with the motor turning on its tacho until somebody finishes that.
///
/// All of it runs inside the Start button's handler, which ends with the motor stopped and local control given back.
class CTabPageAuto : public CRowTabPage {
public:
    explicit CTabPageAuto(CSpeedFeedbackOwner& page);

    bool LoadParameters() override;
    bool ApplyParameters() override;
    void AddReads(std::vector<quint16>& registers) override;

    /// Value of 50.03 as it was read last; one that is no feedback when the drive has no such parameter.
    quint16 GetFeedback() const;
    bool IsRunning() const { return m_phase != Phase::Idle; }
    /// A run follows the drive.
    bool IsTurning() const { return m_phase == Phase::Testing || m_phase == Phase::Tuning; }
    /// Whether the drive has given up in the middle of the run.
    void LookForFaults();
    /// Stops the motor and says that fine tuning is over. Does nothing without fine tuning.
    void FinishFineTuning();
    /// Aborts whatever runs and leaves the drive safe.
    void Cancel();

protected:
    /// A tab in front of another one would let go of the drive: nobody leaves while the motor turns.
    bool OnKillActive() override;

private:
    // tab_page_auto.cpp
    void OnButtonStart();
    void EvaluateStartCondition();

    // speed_feedback_run.cpp
    enum class Phase {
        Idle,
        Asking,    ///< whether the motor may run, or whether the tacho is to be tuned
        Testing,   ///< the drive looks for its feedback
        Tuning,    ///< the motor turns until somebody finishes it
        Finishing, ///< and runs down
    };
    enum class Follow { Reached, TimedOut, NoAnswer, NotWanted };

    Ending RunTest(CMotorRun& run);
    /// Follows the progress until `isOver` says so of its value.
    template <class IsOver> Follow FollowProgress(CMotorRun& run, const IsOver& isOver);
    Ending JudgeTest(CMotorRun& run, Follow follow);
    Ending ShowFeedbackFound(CMotorRun& run, int text, bool good);
    Ending OfferFineTuning(CMotorRun& run, bool good);
    Ending RunFineTuning(CMotorRun& run, bool good);
    Ending CloseTest(bool good);
    /// A run that ended badly: stops, then tells.
    void StopFailedRun(CMotorRun& run, Follow follow);
    void EnableRowsFor(quint16 feedback);
    void ShowStartAs(int text);
    void ShowProgress(int percent);

    CSpeedFeedbackOwner& m_page;
    CParameter* m_serviceMode = nullptr; ///< 99.06
    CParameter* m_progress = nullptr;    ///< 4.24
    CParameter* m_diagnosis = nullptr;   ///< 9.11
    Phase m_phase = Phase::Idle;
    CMotorRun* m_run = nullptr; ///< the one on the stack of the Start button's handler
    bool m_looking = false;
};

} // namespace krt550
