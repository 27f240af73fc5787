#include "drive/simulated_drive.h"

#include "drive/control_word.h"
#include "drive/fault_capture.h"
#include "drive/fault_codes.h"
#include "drive/registers.h"
#include "hostlib/tolvbo32/clock.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace krt550 {
namespace {

constexpr qint64 kSlice = 10;          ///< the drive's logic looks at its inputs this often [ms]
constexpr double kStandstillSpeed = 1; ///< below this the motor stands [rpm]
constexpr double kDefaultBaseSpeed = 1500;
constexpr double kDefaultRampTime = 20; ///< [s]
constexpr double kDefaultContactorTime = 1000;

} // namespace

CSimulatedDrive::CSimulatedDrive(std::vector<ParameterDescription> descriptions)
    : m_registers(std::move(descriptions)), m_lastAdvance(CClock::Current().Now()) {
    Settle();
}

void CSimulatedDrive::Advance() {
    const qint64 now = CClock::Current().Now();
    // Another clock may have taken the place of the one before: time never runs backwards for the drive.
    qint64 left = std::max<qint64>(0, now - m_lastAdvance);
    m_lastAdvance = now;
    while (left > 0) {
        // Nothing moves in an idle drive; one slice does for any time.
        const bool idle = IsStopped() && m_contactorAstray == 0;
        const qint64 slice = idle ? left : std::min(left, kSlice);
        m_age += slice;
        left -= slice;
        Integrate(static_cast<double>(slice) / 1000);
        if (m_contactorClosed != m_logic.WantsContactor(Inputs()))
            m_contactorAstray += slice;
        SettleLogic();
    }
    ShowState();
}

/// The drive's continuous part. The fixed-step integration of motor, converter and controllers belongs here.
void CSimulatedDrive::Integrate(double seconds) {
    if (!m_logic.IsDriving()) {
        m_motor.Step(seconds, std::nullopt);
        m_ramp.Preset(m_motor.GetSpeed()); // a motor that still turns is caught where it is
        return;
    }
    const quint16 word = UsedControlWord();
    const bool running = m_logic.GetState() == DriveState::Operation && (word & control::kEnableOperation);
    const bool quickStop = m_logic.GetState() == DriveState::QuickStopping;
    const double down = m_registers.GetNumber(quickStop ? reg::kQuickStopRamp : reg::kRampDown, kDefaultRampTime);
    const double up = m_registers.GetNumber(reg::kRampUp, kDefaultRampTime);
    if (running && !(word & control::kEnableRamp))
        m_ramp.Preset(0);
    else if (!running || (word & control::kUnfreezeRamp))
        m_ramp.Step(seconds, RampTarget(), {RampSlope(BaseSpeed(), up), RampSlope(BaseSpeed(), down)});
    m_motor.Step(seconds, m_ramp.GetOutput());
}

void CSimulatedDrive::Settle() {
    SettleLogic();
    ShowState();
}

/// Lets the logic come to rest with its inputs as they are.
void CSimulatedDrive::SettleLogic() {
    const quint16 word = UsedControlWord();
    if ((word & control::kAcknowledge) && !(m_formerControlWord & control::kAcknowledge))
        Acknowledge();
    m_formerControlWord = word;

    bool changed = true;
    while (changed) {
        const DriveState former = m_logic.GetState();
        changed = m_logic.Step(Inputs());
        if (m_logic.GetState() == DriveState::Operation && former == DriveState::On)
            ++m_starts;
        const bool wanted = m_logic.WantsContactor(Inputs());
        if (!m_contactorStuck && m_contactorClosed != wanted) {
            m_contactorClosed = wanted;
            changed = true;
        }
    }
    SuperviseContactor();
}

void CSimulatedDrive::SuperviseContactor() {
    if (m_contactorClosed == m_logic.WantsContactor(Inputs()))
        m_contactorAstray = 0;
    else if (!m_fault && static_cast<double>(m_contactorAstray) >=
                             m_registers.GetNumber(reg::kContactorTime, kDefaultContactorTime))
        Trip(kFaultMainContactor);
}

void CSimulatedDrive::ShowState() {
    const SwitchInputs inputs = Inputs();
    DriveSignals state;
    state.inputs = inputs;
    state.state = m_logic.GetState();
    state.statusBits = m_logic.GetStatusBits(inputs);
    state.driving = m_logic.IsDriving();
    state.place = m_place;
    state.speed = m_motor.GetSpeed();
    state.speedReference = state.driving ? m_ramp.GetOutput() : 0;
    state.baseSpeed = BaseSpeed();
    state.milliseconds = m_age;
    state.starts = m_starts;
    state.trips = m_trips;
    state.lastFault = m_lastFault;
    ShowSignals(state, m_registers);
}

void CSimulatedDrive::Trip(quint16 code) {
    if (m_fault)
        return;
    ShowState(); // the record holds what the registers show at this moment
    m_fault = m_lastFault = code;
    ++m_trips;
    m_faultFields = CaptureFault(m_registers, code, m_age);
    Settle();
}

void CSimulatedDrive::Acknowledge() {
    if (!m_tripCause)
        m_fault = 0;
}

double CSimulatedDrive::BaseSpeed() const {
    return std::max(1.0, m_registers.GetNumber(reg::kBaseSpeed, kDefaultBaseSpeed));
}

bool CSimulatedDrive::IsStandstill() const {
    return std::abs(m_motor.GetSpeed()) < kStandstillSpeed;
}

double CSimulatedDrive::GetSpeedReference() const {
    const double wanted = IsLocal() ? m_localReference : m_registers.GetNumber(reg::kRemoteReference, 0);
    const double high = m_registers.GetNumber(reg::kSpeedMaximum, BaseSpeed());
    const double low = m_registers.GetNumber(reg::kSpeedMinimum, -BaseSpeed());
    return std::min(high, std::max(low, wanted)); // crossed limits: the upper one counts
}

double CSimulatedDrive::RampTarget() const {
    constexpr quint16 kNeeded = control::kOn | control::kEnableOperation | control::kEnableSetpoint;
    const bool follows = m_logic.GetState() == DriveState::Operation && (UsedControlWord() & kNeeded) == kNeeded;
    return follows ? GetSpeedReference() : 0;
}

quint16 CSimulatedDrive::UsedControlWord() const {
    if (IsLocal())
        return m_localWord;
    const quint16 word = m_registers.GetWord(reg::kControlWord);
    return word & control::kByOverridingControl ? word : control::kIdle;
}

SwitchInputs CSimulatedDrive::Inputs() const {
    return {UsedControlWord(), m_contactorClosed, IsStandstill(), m_fault != 0};
}

} // namespace krt550
