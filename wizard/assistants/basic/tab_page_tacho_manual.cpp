#include "wizard/assistants/basic/tab_page_tacho_manual.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/assistants/basic/page_speed_feedback.h"
#include "wizard/assistants/basic/service_procedure.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/platform/row_ids.h"
#include "wizard/platform/wait_cursor.h"
#include "wizard/resources/control_ids.h"
#include "wizard/shell/strip_bitmap_button.h"
#include "wizard/texts/wizard_text_store.h"

#include <QKeyEvent>

namespace krt550 {
namespace {

constexpr RowDef kRows[] = {{"5003", RowKind::List},   {"2001"}, {"2002"}, {"9902"}, {"9904"}, {"5013"},
                            {"425", RowKind::Display}, {"8827"}};
static_assert(HasUniqueRegisters(kRows));

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

constexpr std::pair<int, bool (CHostDrive::*)()> kCommands[] = {
    {kIdStartMotor, &CHostDrive::StartMotor},
    {kIdStopMotor, &CHostDrive::StopMotor},
    {kIdCloseContactor, &CHostDrive::CloseContactor},
    {kIdOpenContactor, &CHostDrive::OpenContactor},
};

} // namespace

CTabPageTachoManual::CTabPageTachoManual(CPageSpeedFeedback& page) : CRowTabPage(10062, kRows), m_page(page) {
    for (const auto& [id, command] : kCommands)
        Handle(id, ControlEvent::Clicked, [this, command = command] { Command(command); });
    Handle(kIdLocalOrRemote, ControlEvent::Clicked, [this] { ToggleLocalControl(); });
    Handle(kIdSetNewReference, ControlEvent::Clicked, [this] { SendReference(); });
    Handle(kIdStepUp, ControlEvent::Clicked, [this] { StepAdjustment(true); });
    Handle(kIdStepDown, ControlEvent::Clicked, [this] { StepAdjustment(false); });
}

QWidget* CTabPageTachoManual::CreateControl(const ControlLayout& control) {
    return control.kind == ControlKind::Custom ? new CStripBitmapButton(this) : nullptr;
}

bool CTabPageTachoManual::LoadParameters() {
    ShowDriveState();
    LoadImageButtons();
    const bool bound = CRowTabPage::LoadParameters();
    if (!GetParameterRoot())
        return bound;
    const bool hasRange = GetRows().GetParameter(kRangeRow) != nullptr;
    ShowControl(GetDlgItem(LabelId(425)), hasRange);
    ShowControl(GetDlgItem(ValueId(425)), hasRange);
    // Filling the controls raised change notifications.
    ClearChanged();
    m_page.PostRefreshDisplays(kTachoFeedback);
    StopParameterUpdate(*this, m_updateTimer);
    m_updateTimer = StartParameterUpdate(*this, m_page.GetStepNumber());
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
    StopParameterUpdate(*this, m_updateTimer);
    return CRowTabPage::OnKillActive();
}

void CTabPageTachoManual::OnTimer(int id) {
    m_page.PostRefreshDisplays(kTachoFeedback);
    CParameter* range = GetRows().GetParameter(kRangeRow);
    if (range && range->ReadFromDrive())
        ShowDisplayRow(range, nullptr, GetDlgItem(ValueId(425)), nullptr);
    CRowTabPage::OnTimer(id);
}

/// Buttons and reference as the drive has them.
void CTabPageTachoManual::ShowDriveState() {
    CHostDrive* drive = m_page.GetHostDrive();
    if (!drive)
        return;
    drive->RefreshState();
    EnableDriveButtons(drive->IsLocalControlActive());
    SetControlText(GetDlgItem(kIdReference), drive->GetReference());
}

void CTabPageTachoManual::EnableDriveButtons(bool enable) {
    for (const auto& command : kCommands)
        EnableControl(GetDlgItem(command.first), enable);
    SetTick(GetControl<QAbstractButton>(kIdLocalOrRemote), enable);
}

void CTabPageTachoManual::Command(bool (CHostDrive::*command)()) {
    if (CHostDrive* drive = m_page.GetHostDrive())
        (drive->*command)();
}

void CTabPageTachoManual::ToggleLocalControl() {
    CHostDrive* drive = m_page.GetHostDrive();
    if (!drive)
        return;
    drive->RefreshState();
    if (drive->IsLocalControlActive())
        StopAndGiveBack(*drive);
    else if (ShowMessageBox(LoadText(kWarning), MessageIcon::Exclamation, MessageButtons::OkCancel))
        drive->TakeLocalControl();
    drive->RefreshState();
    EnableDriveButtons(drive->IsLocalControlActive());
    if (drive->IsLocalControlActive())
        SetControlText(GetDlgItem(kIdReference), drive->GetReference());
}

void CTabPageTachoManual::SendReference() {
    if (CHostDrive* drive = m_page.GetHostDrive())
        drive->SetReference(GetControlText(GetDlgItem(kIdReference)));
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
