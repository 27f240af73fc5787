#include "wizard/assistants/basic/autotuning_page.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/motor/make_safe.h"
#include "wizard/motor/motor_run.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/start_condition.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/focus.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"
#include "wizard/shell/sheet_wizard.h"

#include <QProgressBar>
#include <QScopedValueRollback>

#include <optional>

namespace krt550 {

CAutotuningPage::CAutotuningPage(const AutotuningPageDef& definition)
    : CRowPage(definition.rows, QString::fromUtf16(definition.helpTopic)), m_definition(definition) {
    Handle(kIdAutotuningStart, ControlEvent::Clicked, [this] { OnButtonStart(); });
    Handle(kIdAutotuningDiagnosis, ControlEvent::Clicked, [this] { OnButtonDiagnosis(); });
}

bool CAutotuningPage::LoadParameters() {
    const bool loaded = CRowPage::LoadParameters();
    if (auto* bar = GetControl<QProgressBar>(kIdAutotuningProgress)) {
        bar->setRange(0, 100);
        bar->setValue(0);
    }
    return loaded;
}

void CAutotuningPage::AddReads(std::vector<quint16>& registers) {
    CRowPage::AddReads(registers);
    AddStartConditionReads(GetStepNumber(), registers);
}

bool CAutotuningPage::BindRows(CParameterGroup* root, QString& errors) {
    const ConditionAfter condition = m_definition.condition;
    const std::size_t before =
        condition == ConditionAfter::GeneralRows ? GetRows().GetFirstOfLastGroup() : GetRows().size();
    bool bound = GetRows().Bind(root, errors, 0, before);
    if (condition != ConditionAfter::LookUps)
        EvaluateStartCondition(root);
    bound = GetRows().Bind(root, errors, before, GetRows().size() - before) && bound;
    LookUpReferences(root);
    if (condition == ConditionAfter::LookUps)
        EvaluateStartCondition(root);
    EnableControl(GetDlgItem(kIdAutotuningDiagnosis), false);
    return bound;
}

void CAutotuningPage::LookUpReferences(CParameterGroup* root) {
    m_serviceMode = FindParameter(root, 9906);
    if (m_definition.variant.showsProgress)
        m_progress = FindParameter(root, 424);
    m_diagnosis = FindParameter(root, 911);
}

void CAutotuningPage::EvaluateStartCondition(CParameterGroup* root) {
    EnableControl(GetDlgItem(kIdAutotuningStart), StartConditionHolds(GetStepNumber(), root));
}

bool CAutotuningPage::ApplyParameters() {
    const bool written = WriteRows();
    // While the motor runs, Start stays as the run has left it.
    if (CParameterGroup* root = GetPageParameterRoot(GetSheet()); root && !m_running)
        EvaluateStartCondition(root);
    return written;
}

bool CAutotuningPage::CancelPage() {
    AbortMotorRun();
    MakeSafe(GetDrive(), {.serviceMode = m_serviceMode});
    return true;
}

void CAutotuningPage::RereadResults() {
    const std::size_t first = GetRows().GetFirstOfLastGroup();
    GetRows().Reread(first, GetRows().size() - first);
}

void CAutotuningPage::OnButtonStart() {
    const AutotuningVariant& variant = m_definition.variant;
    if (m_running || IsMotorUnderControl())
        return;
    const QScopedValueRollback<bool> running(m_running, true);
    const LossMemory::Scope told(LossMemory::Since::Now);
    // Before the question: whoever leaves the page behind it does not want the run.
    std::optional<CMotorRun> run;
    if (CHostDrive* drive = GetDrive())
        run.emplace(*drive, m_serviceMode);
    if (!ShowMessageBox(LoadText(variant.confirmation), MessageIcon::Exclamation, MessageButtons::OkCancel))
        return;
    const CFocusReturn focus(GetDlgItem(kIdAutotuningStart));
    EnableControl(GetDlgItem(kIdAutotuningStart), false);
    // Reading the fault record ends the drive's service mode: not while it runs.
    EnableControl(GetDlgItem(kIdAutotuningDiagnosis), false);
    Ending ending = run ? RunAutotuning(*run) : Ending::Failed;
    // A box about what could not be read may have been the last that somebody wanted to see.
    if (run && !run->IsWanted())
        ending = Ending::Aborted;
    run.reset();
    if (ending == Ending::Failed)
        ReportFailure();
    else if (ending == Ending::Succeeded)
        ShowMessageBox(LoadText(variant.success), MessageIcon::Information);
    EnableControl(GetDlgItem(kIdAutotuningStart), true);
}

void CAutotuningPage::ReportFailure() {
    ShowRunFailure(GetSheet());
    QWidget* diagnosis = GetDlgItem(kIdAutotuningDiagnosis);
    if (m_definition.variant.readsFaultRecord)
        ReadFaultAfterRun(GetDrive(), diagnosis);
    else
        EnableControl(diagnosis, true);
}

void CAutotuningPage::OnButtonDiagnosis() {
    ShowDiagnosis(GetDrive(), m_definition.variant.diagnosisIcon);
}

} // namespace krt550
