#include "wizard/assistants/basic/page_speed_feedback.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/motor/make_safe.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/shell/step_states.h"
#include "wizard/shell/wizard_tab_sheet.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {
namespace {

constexpr int kStep = 5;
constexpr PageRows kPage{.layout = 110};
constexpr int kAutoTab = 44;
constexpr int kManualTab = 47;
constexpr QPoint kTabsOffset{-6, -7};

/// Labels of the displays and the registers whose tool tips they have.
constexpr std::pair<int, quint16> kToolTips[] = {{kIdShownReference, 217}, {kIdShownEmf, 102}, {kIdShownSpeed, 101}};

} // namespace

CPageSpeedFeedback::CPageSpeedFeedback() : CRowPage(kPage, QStringLiteral("5.htm")) {
    CWizardTabSheet& tabs = UseTabs(kIdTabPlaceholder, kTabsOffset);
    tabs.AddTab(m_auto, LoadText(kAutoTab));
    tabs.AddTab(m_manual, LoadText(kManualTab));
}

bool CPageSpeedFeedback::BindRows(CParameterGroup* root, QString& errors) {
    for (const auto& [label, reg] : kToolTips)
        AddToolTip(label, CWizardTextStore::Instance().GetToolTip(reg));
    const struct {
        CParameter*& parameter;
        quint16 reg;
        int label; ///< 0: shown only when it is the chosen feedback's
    } displays[] = {
        {m_reference, 218, kIdShownReference}, {m_emf, 102, kIdShownEmf}, {m_encoder, 103, 0}, {m_tacho, 105, 0}};
    m_readsFailed = false;
    bool bound = true;
    for (const auto& display : displays) {
        display.parameter = FindParameter(root, display.reg);
        if (display.parameter && display.label)
            bound = BindDisplayRow(root, display.parameter, display.reg, GetDlgItem(display.label),
                                   GetDlgItem(display.label + kShownValue), errors,
                                   GetDlgItem(display.label + kShownUnit)) &&
                    bound;
    }
    if (m_refreshPosted) // by a tab that came to the front
        return bound;
    ShowSpeedOf(m_auto.GetFeedback());
    return bound;
}

bool CPageSpeedFeedback::WriteRows() {
    const bool written = m_auto.ApplyParameters();
    return m_manual.ApplyParameters() && written;
}

bool CPageSpeedFeedback::LeavePage() {
    CRowPage::LeavePage();
    m_auto.FinishFineTuning();
    return true;
}

bool CPageSpeedFeedback::CancelPage() {
    m_manual.GiveUpControl();
    m_auto.Cancel();
    return true;
}

/// What every way off the page does first.
void CPageSpeedFeedback::EndRun() {
    m_auto.FinishFineTuning();
    m_manual.GiveUpControl();
    MakeSafe(GetDrive(), {});
}

void CPageSpeedFeedback::OnButtonNext() {
    EndRun();
    CRowPage::OnButtonNext();
}

void CPageSpeedFeedback::OnButtonBack() {
    EndRun();
    CRowPage::OnButtonBack();
}

void CPageSpeedFeedback::OnButtonCancel() {
    if (!GetSheet() || !GetSheet()->IsClosing()) // with the window gone there is nobody to tell
        m_auto.FinishFineTuning();
    CRowPage::OnButtonCancel();
}

void CPageSpeedFeedback::PostRefreshDisplays(quint16 feedback) {
    m_feedback = feedback;
    if (std::exchange(m_refreshPosted, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_refreshPosted = false;
            RefreshDisplays();
        },
        Qt::QueuedConnection);
}

void CPageSpeedFeedback::RefreshDisplays() {
    if (IsMotorStopping() || (m_readsFailed && !m_auto.IsRunning()))
        return;
    ShowSpeed(m_reference, kIdShownReference);
    ShowSpeed(m_emf, kIdShownEmf);
    ShowSpeedOf(m_feedback);
}

void CPageSpeedFeedback::ShowSpeed(CParameter* parameter, int label) {
    if (!parameter)
        return;
    if (parameter->ReadFromDrive())
        ShowDisplayRow(parameter, GetDlgItem(label), GetDlgItem(label + kShownValue), GetDlgItem(label + kShownUnit));
    else if (!std::exchange(m_readsFailed, true))
        ShowLastError(parameter);
}

void CPageSpeedFeedback::ShowNotice(const QString& text) {
    SetControlText(GetDlgItem(kIdNotice), text);
}

void CPageSpeedFeedback::ShowSpeedOf(quint16 feedback) {
    CParameter* const speeds[] = {m_emf, m_encoder, m_tacho};
    if (CParameter* speed = feedback < std::size(speeds) ? speeds[feedback] : nullptr)
        ShowSpeed(speed, kIdShownSpeed);
    else
        ShowDisplayRow(nullptr, nullptr, GetDlgItem(kIdShownSpeed + kShownValue),
                       GetDlgItem(kIdShownSpeed + kShownUnit));
}

void CPageSpeedFeedback::MarkDone() {
    SetStepState(kStep, StepState::Done);
    UpdateStepIcons();
}

void CPageSpeedFeedback::EnableNavigation(bool enable) {
    EnableControl(GetDlgItem(kIdBack), enable);
    EnableControl(GetDlgItem(kIdNext), enable);
}

} // namespace krt550
