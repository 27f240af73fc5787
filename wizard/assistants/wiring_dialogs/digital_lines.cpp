#include "wizard/assistants/wiring_dialogs/digital_lines.h"

#include "wizard/platform/dialog_layout.h"
#include "wizard/platform/terminal_registers.h"
#include "wizard/platform/tool_tip.h"
#include "wizard/platform/window.h"
#include "wizard/resources/digital_terminals.h"
#include "wizard/shell/color_static.h"
#include "wizard/shell/grey_check_box.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {
namespace {

constexpr DigitalGroup kGroups[] = {DigitalGroup::Inputs, DigitalGroup::Outputs};
constexpr DigitalHeading kNote[] = {kDigitalAttention, kDigitalNoteApply, kDigitalNoteClose};
constexpr DigitalControl kBandStatics[] = {kDigitalName, kDigitalConnection, kDigitalStatus};
constexpr int kMargin = 4; ///< of a text to the edge of its band [pixels]

/// Runs `act` with the id of every static that stands on a band.
void ForEachBandStatic(const std::function<void(int id)>& act) {
    for (const DigitalGroup group : kGroups)
        for (int number = 1; number <= kDigitalTerminals; ++number)
            for (const DigitalControl control : kBandStatics)
                if (IsBanded(number))
                    act(DigitalId(group, number, control));
}

bool IsColoured(int id) {
    bool coloured = false;
    ForEachBandStatic([&](int banded) { coloured = coloured || banded == id; });
    for (const DigitalGroup group : kGroups)
        for (const DigitalHeading word : kNote)
            coloured = coloured || DigitalId(group, word) == id;
    return coloured;
}

void AttachToolTips(CWindow& window, DigitalGroup group, int number) {
    const auto attach = [&](DigitalControl control, quint16 reg) {
        SetToolTip(window.GetDlgItem(DigitalId(group, number, control)), CWizardTextStore::Instance().GetToolTip(reg));
    };
    if (group == DigitalGroup::Inputs) {
        attach(kDigitalInvert, DIInversionRegister(number));
        attach(kDigitalStatus, kInputStates);
        return;
    }
    for (const DigitalControl control : {kDigitalName, kDigitalChoice, kDigitalIndex, kDigitalInvert})
        attach(control, DOIndexRegister(number));
    attach(kDigitalBit, DOBitRegister(number));
    attach(kDigitalStatus, kOutputStates);
}

} // namespace

QWidget* MakeDigitalControl(const ControlLayout& control, QWidget* parent) {
    if (control.kind == ControlKind::CheckBox)
        return new CGreyCheckBox(parent);
    return IsColoured(control.id) ? new CColorStatic(parent) : nullptr;
}

void DressDigitalLines(CWindow& window) {
    ForEachBandStatic([&](int id) {
        if (auto* banded = window.GetControl<CColorStatic>(id))
            banded->SetLook(StaticLook::Grey);
    });
    for (const DigitalGroup group : kGroups) {
        for (const DigitalHeading word : kNote)
            if (auto* shown = window.GetControl<CColorStatic>(DigitalId(group, word))) {
                shown->SetLook(StaticLook::Neutral);
                word == kDigitalAttention ? shown->SetBoldFont() : shown->SetItalicFont();
            }
        for (int number = 1; number <= kDigitalTerminals; ++number) {
            if (auto* invert = window.GetControl<CGreyCheckBox>(DigitalId(group, number, kDigitalInvert)))
                invert->SetGrey(IsBanded(number));
            for (const DigitalControl control : {kDigitalName, kDigitalConnection})
                if (QWidget* text = window.GetDlgItem(DigitalId(group, number, control)))
                    text->setContentsMargins(kMargin, 0, kMargin, 0);
            AttachToolTips(window, group, number);
        }
    }
}

} // namespace krt550
