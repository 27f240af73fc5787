#pragma once

#include "wizard/assistants/basic/service_procedure.h"
#include "wizard/platform/message_box.h"
#include "wizard/shell/row_page.h"

namespace krt550 {

/// What distinguishes one autotuning from another.
struct AutotuningVariant {
    quint16 mode;                 ///< value written to 9906
    int confirmation;             ///< string asked before the run
    int success;                  ///< string shown after it
    int step;                     ///< commissioning step marked done, 0 for none
    bool showsProgress = true;    ///< follows 424
    bool ridesOutGaps = false;    ///< goes on when the drive does not answer a look at 9906
    bool readsOnceMore = true;    ///< reads 9906 and 424 a last time when the drive has finished
    bool judgesFirst = false;     ///< reads 911 and marks the step before the drive is stopped, not after
    bool readsFaultRecord = true; ///< after a failure: Diagnosis only for an active fault; otherwise always
    MessageIcon diagnosisIcon = MessageIcon::None; ///< of the box for a failed read behind the Diagnosis button
};

/// When a load evaluates the start condition.
enum class ConditionAfter {
    GeneralRows, ///< before the results are bound
    AllRows,
    LookUps ///< of what the run needs
};

/// An autotuning page: its variant and its rows; the last group is what the run changes.
struct AutotuningPageDef {
    const char16_t* helpTopic;
    AutotuningVariant variant;
    const PageRows& rows;
    ConditionAfter condition = ConditionAfter::LookUps;
};

/// A page that has the drive tune itself. The run happens inside the Start button's handler: it puts the drive into a
/// service mode, starts the motor, follows the progress and always ends with the motor stopped, the contactor open and
/// local control given back. Cancel, or the window going away, aborts it at any moment.
class CAutotuningPage : public CRowPage {
public:
    /// `definition` outlives the page.
    explicit CAutotuningPage(const AutotuningPageDef& definition);

    bool ApplyParameters() override;
    bool CancelPage() override;
    bool LoadParameters() override;
    void AddReads(std::vector<quint16>& registers) override;

protected:
    bool BindRows(CParameterGroup* root, QString& errors) override;
    void ReportLoadErrors(const QString&) override {}
    /// Reads the results into their rows.
    virtual void RereadResults();
    /// The drive carries the run out from now on, and obeys it; null: not any more, before the way out begins.
    virtual void OnRunning(CMotorRun* /*run*/) {}

private:
    // autotuning_page.cpp
    void OnButtonStart();
    void OnButtonDiagnosis();
    void LookUpReferences(CParameterGroup* root);
    void EvaluateStartCondition(CParameterGroup* root);
    void ReportFailure();

    // autotuning_run.cpp
    enum class Follow { Finished, TimedOut, NoAnswer, NotWanted };

    Ending RunAutotuning(CMotorRun& run);
    Follow FollowDrive(CMotorRun& run);
    Ending CloseRun(CMotorRun& run, Follow follow);
    bool LookAtDrive(CMotorRun& run);
    bool ReadProgress(CMotorRun& run);
    bool JudgeRun(CMotorRun& run);
    void EnableNavigation(bool enable);
    void ShowProgress(int percent);

    const AutotuningPageDef& m_definition;
    CParameter* m_serviceMode = nullptr;
    CParameter* m_progress = nullptr;
    CParameter* m_diagnosis = nullptr;
    bool m_running = false; ///< the Start button's handler is on the stack
};

} // namespace krt550
