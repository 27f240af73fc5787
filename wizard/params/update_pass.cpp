#include "wizard/params/update_pass.h"
#include "wizard/params/failure_pass.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/announcement.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/window.h"

#include <QApplication>
#include <QComboBox>

#include <iterator>

namespace krt550 {
namespace {

QPointer<CUpdatePass> g_pass;

/// A drop-down keeps the focus while its list is open.
bool HasInputFocus(const QWidget* control) {
    for (const QWidget* widget = QApplication::focusWidget(); widget; widget = widget->parentWidget())
        if (widget == control)
            return true;
    return false;
}

/// Controls of an item that are to be refreshed now: not what a person works on, or what shows something else since.
std::vector<QWidget*> FreeControls(const UpdatePlan::Item& item) {
    std::vector<QWidget*> free;
    if (!item.parameter || IsChanged(item.parameter->GetRegister()))
        return free;
    for (const QPointer<QWidget>& control : item.controls)
        if (control && !HasInputFocus(control) && IsRegisteredForUpdate(item.parameter, control))
            free.push_back(control);
    return free;
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

CUpdatePass* CUpdatePass::Current() {
    return g_pass;
}

CUpdatePass::CUpdatePass(CWindow& timerOwner, int& timerHandle, UpdatePlan plan)
    : QObject(&timerOwner), m_timerOwner(timerOwner), m_timerHandle(timerHandle), m_ticks(timerHandle != 0),
      m_whileMotorTurns(plan.whileMotorTurns),
      m_items(std::make_move_iterator(plan.items.begin()), std::make_move_iterator(plan.items.end())),
      m_turn([this] { TakeTurn(); }) {
    g_pass = this;
    Announce();
    m_turn.StartOnce(0);
}

CUpdatePass::~CUpdatePass() {
    AnnounceReads({});
}

void CUpdatePass::Announce() const {
    std::vector<CParameter*> parameters;
    for (const UpdatePlan::Item& item : m_items)
        if (!FreeControls(item).empty())
            parameters.push_back(item.parameter);
    AnnounceReads(parameters);
}

void CUpdatePass::TakeTurn() {
    const QPointer<CUpdatePass> self(this);
    const LossMemory::Scope told(LossMemory::Since::LastAnswer);
    // While a motor turns nobody could be told of a failure: the link is the run's.
    const bool goesOn = (m_whileMotorTurns || !AreBoxesHeld()) && DoNext();
    if (!self)
        return;
    if (goesOn) {
        m_turn.StartOnce(0);
        return;
    }
    if (m_timerHandle != 0)
        m_timerOwner.RestartTimer(m_timerHandle);
    delete this;
}

bool CUpdatePass::DoNext() {
    while (!m_items.empty()) {
        const UpdatePlan::Item item = std::move(m_items.front());
        m_items.pop_front();
        if (item.step) {
            if (m_ticks && m_timerHandle == 0)
                continue;
            const QPointer<CUpdatePass> self(this);
            const bool good = item.step();
            if (self && !good)
                StopFailedUpdate(m_timerOwner, m_timerHandle);
            return true;
        }
        if (const std::vector<QWidget*> controls = FreeControls(item); !controls.empty()) {
            Refresh(item, controls);
            return true;
        }
    }
    return false;
}

void CUpdatePass::Refresh(const UpdatePlan::Item& item, const std::vector<QWidget*>& controls) {
    if (item.parameter->ReadFromDrive()) {
        LossMemory::NoteAnswer();
        const UpdatingScope updating;
        const QString text = FormatValueText(item.parameter, item.source);
        for (QWidget* control : controls)
            ShowValue(control, text);
    } else if (m_timerHandle != 0) {
        // Once the timer is stopped, the reason is known: the same again for every further row helps nobody.
        const QPointer<CUpdatePass> self(this);
        ShowLastError(item.parameter);
        if (self)
            StopFailedUpdate(m_timerOwner, m_timerHandle);
    }
}

} // namespace krt550
