#include "drive/switch_logic.h"

#include "drive/control_word.h"

namespace krt550 {

bool CSwitchLogic::Step(const SwitchInputs& inputs) {
    const DriveState next = NextState(inputs);
    const bool changed = next != m_state;
    m_state = next;
    return changed;
}

DriveState CSwitchLogic::NextState(const SwitchInputs& inputs) const {
    const bool on = inputs.controlWord & control::kOn;
    const bool enable = inputs.controlWord & control::kEnableOperation;
    const bool quickStop = !(inputs.controlWord & control::kNoQuickStop);
    const bool coastStop = !(inputs.controlWord & control::kNoCoastStop);
    if (inputs.fault || coastStop)
        return DriveState::Inhibited;

    switch (m_state) {
    case DriveState::Inhibited:
        return on || quickStop ? m_state : DriveState::Ready;
    case DriveState::Ready:
        if (quickStop)
            return DriveState::Inhibited;
        return on && inputs.contactorClosed ? DriveState::On : m_state;
    case DriveState::On:
        if (quickStop)
            return DriveState::Inhibited;
        if (!on)
            return DriveState::Ready;
        return enable ? DriveState::Operation : m_state;
    case DriveState::Operation:
        if (quickStop)
            return DriveState::QuickStopping;
        if (!on)
            return DriveState::SwitchingOff;
        // Without enable the motor is ramped down first.
        return !enable && inputs.standstill ? DriveState::On : m_state;
    case DriveState::QuickStopping:
        return inputs.standstill ? DriveState::Inhibited : m_state;
    case DriveState::SwitchingOff:
        if (quickStop)
            return DriveState::QuickStopping;
        if (on)
            return DriveState::Operation;
        return inputs.standstill ? DriveState::Ready : m_state;
    }
    return m_state;
}

bool CSwitchLogic::IsDriving() const {
    return m_state == DriveState::Operation || m_state == DriveState::QuickStopping ||
           m_state == DriveState::SwitchingOff;
}

bool CSwitchLogic::WantsContactor(const SwitchInputs& inputs) const {
    if (m_state == DriveState::Ready)
        return inputs.controlWord & control::kOn;
    return m_state != DriveState::Inhibited;
}

quint16 CSwitchLogic::GetStatusBits(const SwitchInputs& inputs) const {
    quint16 bits = 0;
    switch (m_state) {
    case DriveState::Inhibited:
        bits = status::kInhibited;
        break;
    case DriveState::Ready:
        bits = status::kReadyToSwitchOn;
        break;
    case DriveState::On:
        bits = status::kReadyToSwitchOn | status::kReadyToOperate;
        break;
    case DriveState::Operation:
        bits = status::kReadyToSwitchOn | status::kReadyToOperate | status::kOperationEnabled;
        break;
    case DriveState::QuickStopping:
    case DriveState::SwitchingOff:
        // Not ready for anything, but the motor is still driven: whoever wants to start must wait.
        bits = status::kOperationEnabled;
        break;
    }
    if (inputs.fault)
        bits |= status::kFault;
    if (inputs.controlWord & control::kNoCoastStop)
        bits |= status::kNoCoastStop;
    if ((inputs.controlWord & control::kNoQuickStop) && m_state != DriveState::QuickStopping)
        bits |= status::kNoQuickStop;
    return bits;
}

} // namespace krt550
