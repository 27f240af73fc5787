#include "wizard/params/preset_controls.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/popup_menu.h"
#include "wizard/platform/window.h"

#include <QContextMenuEvent>

namespace krt550 {
namespace {

constexpr int kPresetMenu = 10055;
constexpr int kCommandPreset = 32773;
constexpr int kCommandPresetAll = 32774;
constexpr int kCommandSetAndApply = 32775;

} // namespace

void CPresetHolder::RunMenu(QWidget& control, const QPoint& position) {
    switch (TrackPopupMenu(kPresetMenu, position, &control)) {
    case kCommandPreset:
        ChangeToPreset();
        break;
    case kCommandPresetAll:
        if (auto* owner = dynamic_cast<CPresetOwner*>(control.parentWidget()))
            owner->SetAllToPresets();
        break;
    case kCommandSetAndApply:
        WriteRow(m_parameter, &control, true, TextSource::ConfigurableFile);
        break;
    default:
        break;
    }
}

void CPresetComboBox::ChangeToPreset() {
    if (!isEnabled() || m_preset.isEmpty() || !m_parameter)
        return;
    if (CWindow* window = CWindow::OwnerOf(this))
        window->Notify(this, ControlEvent::Changed);
    const quint16 former = m_parameter->GetValue();
    if (!m_parameter->SetValue(static_cast<quint16>(m_preset.toInt()), false)) {
        ShowLastError(m_parameter);
        m_parameter->SetValue(former, false);
    }
    if (!SelectChoice(this, FormatValueText(m_parameter, TextSource::ConfigurableFile)))
        ShowMessageBox(MessageFor(kNoValueListMessage, m_parameter->GetRegister()), MessageIcon::Stop);
}

void CPresetComboBox::contextMenuEvent(QContextMenuEvent* event) {
    RunMenu(*this, event->globalPos());
}

void CPresetEdit::ChangeToPreset() {
    if (isEnabled() && !m_preset.isEmpty())
        SetControlText(this, m_preset);
}

void CPresetEdit::contextMenuEvent(QContextMenuEvent* event) {
    RunMenu(*this, event->globalPos());
}

} // namespace krt550
