#include "wizard/params/cyclic_update.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/update_pass.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/platform/window.h"
#include "wizard/texts/wizard_text_store.h"

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

bool IsRegisteredForUpdate(const CParameter* parameter, const QWidget* control) {
    return std::ranges::any_of(g_updateList, [parameter, id = control->objectName().toInt()](const UpdatePair& pair) {
        return pair.parameter == parameter && pair.controlId == id;
    });
}

void ClearUpdateList() {
    std::vector<UpdatePair>().swap(g_updateList);
    EndUpdatePass();
}

int StartParameterUpdate(CWindow& window, int key) {
    int period = 0;
    const bool known = CWizardTextStore::Instance().GetUpdatePeriod(key, period);
    return known && period > 0 ? window.SetTimer(key, period) : 0;
}

void StopParameterUpdate(CWindow& window, int& timerHandle) {
    if (timerHandle == 0)
        return;
    if (IsUpdatePassOn() && &CUpdatePass::Current()->GetTimerOwner() == &window)
        EndUpdatePass();
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

void UpdatePlan::AddRows(const CWindow& window, TextSource source) {
    for (const auto& [parameter, controlId] : g_updateList) {
        QWidget* control = window.GetDlgItem(controlId);
        if (!control)
            continue;
        const auto known = std::ranges::find_if(items, [source, row = parameter](const Item& item) {
            return item.parameter == row && item.source == source;
        });
        if (known == items.end())
            items.push_back({.parameter = parameter, .controls = {control}, .source = source});
        else
            known->controls.emplace_back(control);
    }
}

void UpdatePlan::AddStep(std::function<bool()> step) {
    items.push_back({.step = std::move(step)});
}

void BeginUpdatePass(CWindow& timerOwner, int& timerHandle, UpdatePlan plan) {
    const bool mayRead = plan.whileMotorTurns || !AreBoxesHeld();
    if (mayRead && !IsUpdatePassOn())
        new CUpdatePass(timerOwner, timerHandle, std::move(plan)); // the window's
}

void EndUpdatePass() {
    delete CUpdatePass::Current();
}

bool IsUpdatePassOn() {
    return CUpdatePass::Current() != nullptr;
}

void UpdateParameters(CWindow& window, int& timerHandle, TextSource source) {
    UpdatePlan plan;
    plan.AddRows(window, source);
    BeginUpdatePass(window, timerHandle, std::move(plan));
}

} // namespace krt550
