#include "wizard/assistants/special/page_field_reversal.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/motor/make_safe.h"
#include "wizard/motor/motor_run.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/dialog_layout.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/color_static.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr AutotuningPageDef kReversalPage = {
    .helpTopic = u"11.htm",
    .variant = {.mode = 9,
                .confirmation = 369,
                .success = 308,
                .step = 0,
                .showsProgress = false,
                .ridesOutGaps = true,
                .readsOnceMore = false},
    .rows = kFieldReversalRows,
};

constexpr quint16 kExciterInUse = 9912;
constexpr quint16 kFieldCurrents[] = {330, 129}; ///< reference and actual

} // namespace

CPageFieldReversal::CPageFieldReversal() : CAutotuningPage(kReversalPage) {
    Handle(kIdFieldForward, ControlEvent::Clicked, [this] { OnButtonDirection(kForward); });
    Handle(kIdFieldReverse, ControlEvent::Clicked, [this] { OnButtonDirection(kReverse); });
    Handle(kIdFieldStop, ControlEvent::Clicked, [this] { OnButtonStop(); });
}

QWidget* CPageFieldReversal::CreateControl(const ControlLayout& control) {
    if (control.id != kIdActualConverter)
        return CAutotuningPage::CreateControl(control);
    m_actualConverter = new CColorStatic(this);
    m_actualConverter->SetLook(StaticLook::Neutral);
    return m_actualConverter;
}

bool CPageFieldReversal::LoadParameters() {
    const bool loaded = CAutotuningPage::LoadParameters();
    OnRunning(nullptr);
    return loaded;
}

bool CPageFieldReversal::BindRows(CParameterGroup* root, QString& errors) {
    const bool bound = CAutotuningPage::BindRows(root, errors);
    m_command = FindParameter(root, 4507);
    m_detectedType = FindParameter(root, 406);
    return bound;
}

bool CPageFieldReversal::StartsUpdate(bool /*bound*/, const QString& /*errors*/) const {
    return std::ranges::any_of(kFieldCurrents, [this](quint16 reg) { return GetRows().Find(reg)->GetParameter(); });
}

/// During the test what the field does is followed, and nothing else.
void CPageFieldReversal::AddUpdate(UpdatePlan& plan) {
    if (!IsMotorUnderControl()) {
        CAutotuningPage::AddUpdate(plan);
        return;
    }
    plan.whileMotorTurns = true;
    for (const quint16 reg : kFieldCurrents)
        plan.AddStep([this, row = GetRows().Find(reg)] {
            CParameter* parameter = row->GetParameter();
            // The link is the stop's alone.
            const bool follows = parameter && m_run && m_run->IsWanted();
            return !follows || ShowParameterValue(parameter, row->GetValueControl());
        });
}

bool CPageFieldReversal::RefreshValues() {
    if (!m_detectedType)
        return true;
    if (!ShowParameterValue(m_detectedType, m_actualConverter))
        return false;
    const CParameter* used = GetRows().Find(kExciterInUse)->GetParameter();
    if (m_detectedType->GetValue() == 0) {
        SetControlText(m_actualConverter, QString());
        m_actualConverter->SetLook(StaticLook::Neutral);
    } else {
        const bool same = used && used->GetStringValue() == m_detectedType->GetStringValue();
        m_actualConverter->SetLook(same ? StaticLook::Good : StaticLook::Bad);
    }
    return true;
}

void CPageFieldReversal::OnRunning(CMotorRun* run) {
    m_run = run;
    EnableDirections(run != nullptr, false);
    EnableControl(GetDlgItem(kIdFieldStop), run != nullptr);
}

void CPageFieldReversal::EnableDirections(bool forward, bool reverse) {
    EnableControl(GetDlgItem(kIdFieldForward), forward);
    EnableControl(GetDlgItem(kIdFieldReverse), reverse);
}

void CPageFieldReversal::OnButtonDirection(Direction direction) {
    if (m_run && m_run->Write(m_command, direction))
        EnableDirections(direction == kReverse, direction == kForward);
}

void CPageFieldReversal::OnButtonStop() {
    CMotorRun* run = m_run;
    if (!run || !run->IsWanted())
        return;
    OnRunning(nullptr);
    run->Write(m_command, kOff);
    run->EndMode();
}

} // namespace krt550
