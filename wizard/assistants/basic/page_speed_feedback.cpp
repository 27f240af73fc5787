#include "wizard/assistants/basic/page_speed_feedback.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/motor/make_safe.h"
#include "wizard/motor/motor_run.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/shell/step_states.h"
#include "wizard/shell/wizard_tab_sheet.h"
#include "wizard/texts/wizard_text_store.h"

#include <QScopedValueRollback>

#include <utility>

namespace krt550 {
namespace {

constexpr int kStep = 5;
constexpr int kAutoTab = 44;
constexpr int kManualTab = 47;
constexpr QPoint kTabsOffset{-6, -7};

// Rows of the page.
constexpr std::size_t kReferenceRow = 0;
constexpr std::size_t kEmfRow = 1;
constexpr std::size_t kSpeedRow = 2;

/// By the values of 50.03.
constexpr quint16 kSpeedOf[] = {102, 103, 105};
constexpr quint16 kEmfFeedback = 0;

/// Registers whose tool tips the rows have.
constexpr quint16 kToolTips[] = {217, 102, 101};

} // namespace

CPageSpeedFeedback::CPageSpeedFeedback() : CRowPage(kSpeedFeedbackRows, QStringLiteral("5.htm")) {
    CWizardTabSheet& tabs = UseTabs(kIdTabPlaceholder, kTabsOffset);
    tabs.AddTab(m_auto, LoadText(kAutoTab));
    tabs.AddTab(m_manual, LoadText(kManualTab));
}

bool CPageSpeedFeedback::LoadParameters() {
    const QScopedValueRollback<bool> loading(m_loading, true);
    m_readsFailed = false;
    return CRowPage::LoadParameters();
}

bool CPageSpeedFeedback::BindRows(CParameterGroup* root, QString& errors) {
    for (std::size_t row = 0; row < std::size(kToolTips); ++row)
        AddToolTip(GetRows()[row].GetLabelId(), CWizardTextStore::Instance().GetToolTip(kToolTips[row]));
    for (const quint16 reg : {quint16{218}, quint16{102}, quint16{103}, quint16{105}})
        FindParameter(root, reg); // says which of them the drive lacks
    BindSpeeds(root, errors);
    return m_follows;
}

void CPageSpeedFeedback::OnTabLoaded(quint16 feedback, bool follows) {
    m_feedback = feedback;
    m_follows = follows;
    CParameterGroup* root = GetPageParameterRoot(GetSheet());
    if (m_loading || !root)
        return;
    QString errors;
    BindSpeeds(root, errors);
    if (follows)
        StartUpdate();
}

void CPageSpeedFeedback::BindSpeeds(CParameterGroup* root, QString& errors) {
    for (const std::size_t row : {kReferenceRow, kEmfRow})
        if (FindInTree(root, GetRows()[row].GetRegister()))
            GetRows()[row].Bind(root, errors);
    BindFeedbackSpeed(root, errors);
}

/// One read at most. What has no speed of its own is shown as not available; the EMF's stands in the row above.
void CPageSpeedFeedback::BindFeedbackSpeed(CParameterGroup* root, QString& errors) {
    CRow& row = GetRows()[kSpeedRow];
    const quint16 speed = m_feedback < std::size(kSpeedOf) ? kSpeedOf[m_feedback] : quint16{0};
    const bool own = m_feedback != kEmfFeedback && speed != 0 && FindInTree(root, speed);
    row.SetRegister(own ? speed : quint16{0});
    row.Bind(root, errors);
    if (own)
        return;
    SetControlText(GetDlgItem(kIdShownSpeed), QString::fromLatin1(row.GetDefinition().label));
    QWidget* value = GetDlgItem(kIdShownSpeed + kShownValue);
    ShowDisplayRow(IsEmfShownTwice() ? GetRows().GetParameter(kEmfRow) : nullptr, nullptr, value,
                   GetDlgItem(kIdShownSpeed + kShownUnit));
    if (IsEmfShownTwice()) // nothing where it was not read
        SetControlText(value, GetControlText(GetRows().GetValueControl(kEmfRow)));
}

bool CPageSpeedFeedback::IsEmfShownTwice() const {
    return m_feedback == kEmfFeedback && GetRows().GetParameter(kEmfRow);
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

void CPageSpeedFeedback::UpdateValues() {
    if (IsMotorStopping()) // the link is the stop's alone
        return;
    if (m_auto.IsTurning())
        m_auto.LookForFaults();
    else
        CRowPage::UpdateValues();
}

void CPageSpeedFeedback::AddUpdate(UpdatePlan& plan) {
    GetTabs()->AddUpdate(plan);
    for (const std::size_t row : {kReferenceRow, kEmfRow, kSpeedRow})
        plan.AddStep([this, row] {
            if (row == kSpeedRow && GetTabs()->GetFrontTab() == &m_auto)
                FollowFeedback(m_auto.GetFeedback());
            else if (!IsMotorStopping() && !m_readsFailed)
                ShowSpeed(row);
            return true;
        });
}

void CPageSpeedFeedback::FollowFeedback(quint16 feedback) {
    CParameterGroup* root = GetPageParameterRoot(GetSheet());
    QString errors;
    if (std::exchange(m_feedback, feedback) != feedback && root)
        BindFeedbackSpeed(root, errors);
    else if (!m_readsFailed)
        ShowSpeed(kSpeedRow);
}

bool CPageSpeedFeedback::ShowSpeeds(CMotorRun& run, quint16 feedback) {
    for (const std::size_t row : {kReferenceRow, kEmfRow, kSpeedRow}) {
        if (!run.Look())
            return false;
        if (row == kSpeedRow)
            m_feedback = feedback;
        ShowSpeed(row);
    }
    return true;
}

void CPageSpeedFeedback::ShowSpeeds(quint16 feedback) {
    for (const std::size_t row : {kReferenceRow, kEmfRow})
        ShowSpeed(row);
    FollowFeedback(feedback);
}

/// One read at most. A failure is told once.
void CPageSpeedFeedback::ShowSpeed(std::size_t row) {
    CParameter* parameter = GetRows().GetParameter(row);
    if (!parameter)
        return;
    if (!parameter->ReadFromDrive()) {
        if (!std::exchange(m_readsFailed, true))
            ShowLastError(parameter);
        return;
    }
    const QString text = FormatValueText(parameter);
    SetControlText(GetRows().GetValueControl(row), text);
    if (row == kEmfRow && IsEmfShownTwice())
        SetControlText(GetDlgItem(kIdShownSpeed + kShownValue), text);
}

void CPageSpeedFeedback::ShowNotice(const QString& text) {
    SetControlText(GetDlgItem(kIdNotice), text);
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
