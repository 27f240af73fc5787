#include "wizard/assistants/wiring_dialogs/analog_settings.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/failure_pass.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/push_button.h"
#include "wizard/platform/tool_tip.h"
#include "wizard/platform/wait_cursor.h"
#include "wizard/resources/control_ids.h"
#include "wizard/texts/context_help.h"

#include <QScopedValueRollback>

namespace krt550 {

CDialogAnalogSettings::CDialogAnalogSettings(const PageRows& rows, int timerKey, const QString& helpTopic,
                                             QWidget* owner)
    : CDialog(rows.layout), m_rows(*this, rows), m_timerKey(timerKey) {
    if (owner)
        OpenAt(*owner, Place::Over);
    Handle(kIdApply, ControlEvent::Clicked, [this] { Apply(); });
    Handle(kIdCloseDialog, ControlEvent::Clicked, [this] { Close(); });
    Handle(kIdHelp, ControlEvent::Clicked, [this, helpTopic] { ShowHelp(window(), helpTopic); });
    PressByKey(*this, QKeySequence::HelpContents, kIdHelp);
}

bool CDialogAnalogSettings::OnInitDialog() {
    const CWaitCursor wait;
    m_rows.AttachToolTips([this](int label, const QString& text) { SetToolTip(GetDlgItem(label), text); });
    if (!m_root) {
        Empty();
        return true;
    }
    QString errors;
    bool bound = false;
    {
        const FailurePass pass;
        bound = Bind(errors);
    }
    if (!bound && !errors.isEmpty())
        ShowMessageBox(errors, MessageIcon::Stop);
    if (HasActualValues())
        m_updateTimer = StartParameterUpdate(*this, m_timerKey);
    else
        TellNoActualValues();
    return true;
}

void CDialogAnalogSettings::Empty() {
    m_rows.Unbind();
    EnableControl(GetDlgItem(kIdApply), false);
}

void CDialogAnalogSettings::OnDestroy() {
    StopParameterUpdate(*this, m_updateTimer);
    // The page below must not take for its own what was typed here.
    Unmark();
}

void CDialogAnalogSettings::Apply() {
    if (!m_root)
        return;
    const CWaitCursor wait;
    const FailurePass pass;
    Applied(Write());
}

void CDialogAnalogSettings::Close() {
    if (m_root) {
        const CWaitCursor wait;
        const FailurePass pass;
        Write();
    }
    EndDialog(kIdCloseDialog);
}

void CDialogAnalogSettings::OnTimer(int id) {
    if (id != m_timerKey)
        return;
    UpdatePlan plan;
    for (auto& show : ActualValues())
        plan.AddStep(std::move(show));
    plan.AddRows(*this);
    BeginUpdatePass(*this, m_updateTimer, std::move(plan));
}

void CDialogAnalogSettings::Refresh() {
    // A box of a refresh or an Apply on the stack keeps the timer running.
    if (m_refreshing)
        return;
    const QScopedValueRollback<bool> refreshing(m_refreshing, true);
    bool shown = true;
    {
        const FailurePass pass;
        for (const auto& show : ActualValues())
            shown = show() && shown;
    }
    if (shown)
        UpdateParameters(*this, m_updateTimer);
    else
        StopFailedUpdate(*this, m_updateTimer);
}

bool CDialogAnalogSettings::ShowActualValue(quint16 reg) {
    CRow* row = m_rows.Find(reg);
    if (!row || !row->GetParameter())
        return true;
    if (!row->Reread())
        return false;
    SetControlText(GetDlgItem(IdsOf(row->GetDefinition()).unit), row->GetParameter()->GetUnit());
    return true;
}

} // namespace krt550
