#include "wizard/assistants/basic/tab_page_tacho_manual.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/assistants/basic/speed_feedback_owner.h"
#include "wizard/motor/make_safe.h"
#include "wizard/motor/motor_run.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/platform/row_ids.h"
#include "wizard/platform/wait_cursor.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/strip_bitmap_button.h"
#include "wizard/texts/wizard_text_store.h"

#include <QKeyEvent>

namespace krt550 {
namespace {

constexpr std::size_t kRangeRow = 6;
constexpr std::size_t kAdjustRow = 7;
constexpr int kWarning = 60;
constexpr quint16 kTachoFeedback = 2; ///< in the value list of 50.03

struct ImageButton {
    int id;
    int bitmap;
    int toolTip;
};

constexpr ImageButton kImageButtons[] = {
    {kIdLocalOrRemote, 10068, 49},  {kIdStartMotor, 10070, 50},    {kIdStopMotor, 116, 51},
    {kIdCloseContactor, 10071, 52}, {kIdOpenContactor, 10072, 53}, {kIdSetNewReference, 10073, 54},
    {kIdStepUp, 10074, 55},         {kIdStepDown, 10075, 56},
};

/// Enabled exactly while local control is held.
constexpr int kDriveButtons[] = {kIdStartMotor, kIdStopMotor, kIdCloseContactor, kIdOpenContactor};

// Strings.
constexpr int kControlLost = 2006;
constexpr int kReferenceRefused = 2007;
constexpr int kContactorRefused = 2008;
constexpr int kStartRefused = 2009;
constexpr int kControlRefused = 2010;

} // namespace

CTabPageTachoManual::CTabPageTachoManual(CSpeedFeedbackOwner& page) : CRowTabPage(kTachoManualRows), m_page(page) {
    Handle(kIdStartMotor, ControlEvent::Clicked, [this] { StartMotor(); });
    Handle(kIdStopMotor, ControlEvent::Clicked, [this] { StopMotor(); });
    Handle(kIdCloseContactor, ControlEvent::Clicked, [this] { CloseContactor(); });
    Handle(kIdOpenContactor, ControlEvent::Clicked, [this] { OpenContactor(); });
    Handle(kIdLocalOrRemote, ControlEvent::Clicked, [this] { ToggleLocalControl(); });
    Handle(kIdSetNewReference, ControlEvent::Clicked, [this] { SendReference(); });
    Handle(kIdStepUp, ControlEvent::Clicked, [this] { StepAdjustment(true); });
    Handle(kIdStepDown, ControlEvent::Clicked, [this] { StepAdjustment(false); });
}

CTabPageTachoManual::~CTabPageTachoManual() = default;

QWidget* CTabPageTachoManual::CreateControl(const ControlLayout& control) {
    return control.kind == ControlKind::Custom ? new CStripBitmapButton(this) : nullptr;
}

bool CTabPageTachoManual::LoadParameters() {
    ShowDriveState();
    LoadImageButtons();
    const bool bound = CRowTabPage::LoadParameters();
    if (GetParameterRoot())
        m_page.OnTabLoaded(kTachoFeedback, true);
    return bound;
}

void CTabPageTachoManual::LoadImageButtons() {
    for (const ImageButton& image : kImageButtons) {
        auto* button = GetControl<CStripBitmapButton>(image.id);
        if (!button || button->IsBitmapLoaded())
            continue;
        button->LoadStripBitmap(image.bitmap);
        button->SetToolTipText(LoadText(image.toolTip), true);
    }
}

bool CTabPageTachoManual::ApplyParameters() {
    return !isVisible() || CRowTabPage::ApplyParameters();
}

bool CTabPageTachoManual::OnKillActive() {
    if (IsMotorStopping())
        return false;
    GiveUpControl();
    return !IsMotorUnderControl() && CRowTabPage::OnKillActive();
}

void CTabPageTachoManual::AddUpdate(UpdatePlan& plan) {
    plan.whileMotorTurns = true;
    for (void (CTabPageTachoManual::*refresh)() :
         {&CTabPageTachoManual::LookAfterControl, &CTabPageTachoManual::ShowRange})
        plan.AddStep([this, refresh] {
            if (!IsMotorStopping()) // the link is the stop's alone
                (this->*refresh)();
            return true;
        });
}

void CTabPageTachoManual::ShowRange() {
    CParameter* range = GetRows().GetParameter(kRangeRow);
    if (range && range->ReadFromDrive())
        ShowDisplayRow(range, nullptr, GetDlgItem(ValueId(425)), nullptr);
}

/// Buttons and reference as the drive has them.
void CTabPageTachoManual::ShowDriveState() {
    CHostDrive* drive = m_page.GetHostDrive();
    if (!drive)
        return;
    drive->RefreshState();
    EnableDriveButtons(m_run && drive->IsLocalControlActive());
    SetControlText(GetDlgItem(kIdReference), drive->GetReference());
}

void CTabPageTachoManual::EnableDriveButtons(bool enable) {
    for (const int button : kDriveButtons)
        EnableControl(GetDlgItem(button), enable);
    SetTick(GetControl<QAbstractButton>(kIdLocalOrRemote), enable);
}

void CTabPageTachoManual::Refused(int text, const QString& what) {
    m_page.ShowNotice(LoadText(text).replace(QLatin1String("REPLACE"), what));
}

void CTabPageTachoManual::CloseContactor() {
    m_page.ShowNotice({});
    if (m_run && !m_run->CloseContactor())
        Refused(kContactorRefused);
}

void CTabPageTachoManual::StartMotor() {
    m_page.ShowNotice({});
    if (m_run && !m_run->StartMotor())
        Refused(kStartRefused);
}

// A stop that is refused takes the way out, which repeats it.
void CTabPageTachoManual::StopMotor() {
    if (const auto run = m_run; run && !run->StopMotor())
        run->MakeSafe(ServiceModeEnd::Over, true);
}

void CTabPageTachoManual::OpenContactor() {
    if (const auto run = m_run; run && !run->OpenContactor())
        run->MakeSafe(ServiceModeEnd::Over, true);
}

void CTabPageTachoManual::GiveUpControl() {
    if (const std::shared_ptr<CMotorRun> run = std::move(m_run)) {
        run->Abort();
        run->MakeSafe(ServiceModeEnd::Over);
        EnableDriveButtons(false);
    }
}

void CTabPageTachoManual::ToggleLocalControl() {
    CHostDrive* drive = m_page.GetHostDrive();
    if (!drive || IsMotorStopping())
        return;
    m_page.ShowNotice({});
    drive->RefreshState();
    if (m_run)
        GiveUpControl();
    else if (drive->IsLocalControlActive())
        MakeSafe(drive, {});
    else
        TakeControl(*drive);
    drive->RefreshState();
    const bool active = m_run && drive->IsLocalControlActive();
    if (m_run && !active) {
        GiveUpControl();
        Refused(kControlRefused);
    }
    EnableDriveButtons(active);
    if (active)
        SetControlText(GetDlgItem(kIdReference), drive->GetReference());
}

void CTabPageTachoManual::TakeControl(CHostDrive& drive) {
    m_run = std::make_shared<CMotorRun>(drive, nullptr);
    m_run->TellAtOnce([this](const QString& text) { m_page.ShowNotice(text); });
    const bool accepted = ShowMessageBox(LoadText(kWarning), MessageIcon::Exclamation, MessageButtons::OkCancel);
    if (accepted && m_run)
        m_run->TakeLocalControl();
    else
        m_run.reset();
}

/// Another control place may have taken the drive.
void CTabPageTachoManual::LookAfterControl() {
    CHostDrive* drive = m_page.GetHostDrive();
    // Not yet while the question about it is open.
    if (!m_run || !IsMotorUnderControl() || !drive || !drive->RefreshState() || drive->IsLocalControlActive())
        return;
    GiveUpControl();
    Refused(kControlLost);
}

void CTabPageTachoManual::SendReference() {
    const QString reference = GetControlText(GetDlgItem(kIdReference));
    CHostDrive* drive = m_page.GetHostDrive();
    m_page.ShowNotice({});
    if (drive && !(m_run ? m_run->SetReference(reference) : drive->SetReference(reference)))
        Refused(kReferenceRefused, reference);
}

bool CTabPageTachoManual::eventFilter(QObject* watched, QEvent* event) {
    if (watched == GetDlgItem(kIdReference) && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (enter && !GetControlText(GetDlgItem(kIdReference)).isEmpty())
            SendReference();
    }
    return CRowTabPage::eventFilter(watched, event);
}

void CTabPageTachoManual::StepAdjustment(bool up) {
    const CWaitCursor wait;
    CParameter* adjust = GetRows().GetParameter(kAdjustRow);
    if (!adjust)
        return;
    CWizardTextStore& store = CWizardTextStore::Instance();
    GainAdjustment step;
    if (!(up ? store.GetGainAdjustUp(step) : store.GetGainAdjustDown(step))) {
        ShowMessageBox(QStringLiteral("The wizard text file gives no step for the tacho adjustment."),
                       MessageIcon::Exclamation);
        return;
    }
    if (!GetRows().Reread(kAdjustRow, 1))
        return;
    const double now = adjust->GetStringValue().toDouble();
    const double wanted = up ? now + step.factor : now - step.factor;
    if (!adjust->SetValue(QString::number(wanted, 'f', 6)))
        ShowLastError(adjust);
    else if (WriteParameter(adjust))
        GetRows().Reread(kAdjustRow, 1);
}

} // namespace krt550
