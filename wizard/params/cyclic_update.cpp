#include "wizard/params/cyclic_update.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/platform/window.h"
#include "wizard/texts/wizard_text_store.h"

#include <QApplication>
#include <QComboBox>

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kUpdateFailedMessage = 358;
constexpr int kStopFailedMessage = 359;

struct UpdatePair {
    CParameter* parameter;
    int controlId;
    bool operator==(const UpdatePair&) const = default;
};

std::vector<UpdatePair> g_updateList;

/// A drop-down keeps the focus while its list is open.
bool HasInputFocus(const QWidget* control) {
    for (const QWidget* widget = QApplication::focusWidget(); widget; widget = widget->parentWidget())
        if (widget == control)
            return true;
    return false;
}

void ShowValue(QWidget* control, const QString& text) {
    if (GetControlText(control) == text)
        return;
    if (auto* dropDown = qobject_cast<QComboBox*>(control))
        SelectChoice(dropDown, text);
    else
        SetControlText(control, text);
}

} // namespace

void RegisterForUpdate(CParameter* parameter, const QWidget* control) {
    if (!parameter || !control)
        return;
    const UpdatePair pair{parameter, control->objectName().toInt()};
    if (std::ranges::find(g_updateList, pair) == g_updateList.end())
        g_updateList.push_back(pair);
}

void UnregisterForUpdate(const CParameter* parameter, const QWidget* control) {
    if (control)
        std::erase_if(g_updateList, [parameter, id = control->objectName().toInt()](const UpdatePair& pair) {
            return pair.parameter == parameter && pair.controlId == id;
        });
}

void ClearUpdateList() {
    std::vector<UpdatePair>().swap(g_updateList);
}

int StartParameterUpdate(CWindow& window, int key) {
    int period = 0;
    const bool known = CWizardTextStore::Instance().GetUpdatePeriod(key, period);
    return known && period > 0 ? window.SetTimer(key, period) : 0;
}

void StopParameterUpdate(CWindow& window, int& timerHandle) {
    if (timerHandle == 0)
        return;
    const bool killed = window.KillTimer(timerHandle);
    timerHandle = 0;
    if (!killed)
        ShowMessageBox(LoadText(kStopFailedMessage), MessageIcon::Stop);
}

void StopFailedUpdate(CWindow& window, int& timerHandle) {
    if (timerHandle == 0)
        return;
    const bool killed = window.KillTimer(timerHandle);
    timerHandle = 0;
    ShowMessageBox(LoadText(kUpdateFailedMessage), MessageIcon::Stop);
    if (!killed)
        ShowMessageBox(LoadText(kStopFailedMessage), MessageIcon::Stop);
}

void UpdateParameters(CWindow& window, int& timerHandle, TextSource source) {
    UpdateParameters(window, window, timerHandle, source);
}

void UpdateParameters(CWindow& window, CWindow& timerOwner, int& timerHandle, TextSource source) {
    // A box of the pass on the stack keeps the timers running; a second pass on top of it has nothing to add.
    // And while a motor turns nobody could be told of a failure: the link is the run's.
    if (UpdatingScope::IsActive() || AreBoxesHeld())
        return;
    const UpdatingScope updating;
    const std::vector<UpdatePair> pairs = g_updateList;
    for (const auto& [parameter, controlId] : pairs) {
        QWidget* control = window.GetDlgItem(controlId);
        if (!control || HasInputFocus(control) || (parameter && IsChanged(parameter->GetRegister())))
            continue;
        if (parameter && parameter->ReadFromDrive()) {
            ShowValue(control, FormatValueText(parameter, source));
        } else if (timerHandle != 0) {
            // Once the timer is stopped, the reason is known: the same again for every further row helps nobody.
            ShowLastError(parameter);
            StopFailedUpdate(timerOwner, timerHandle);
        }
    }
}

} // namespace krt550
