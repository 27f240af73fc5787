// What goes wrong around the drive, and what its supervisions make of it.
#include "drive/control_word.h"
#include "drive/fault_codes.h"
#include "drive/registers.h"
#include "drive/simulated_drive.h"

namespace krt550 {

void CSimulatedDrive::CheckMotor(const MotorCommand& command, std::set<quint16>& alarms) {
    Surroundings around;
    around.mains = m_mains.GetVoltage();
    around.driving = m_logic.IsDriving();
    around.fieldNeeded =
        command.field == FieldMode::Regulated || (command.field == FieldMode::Current && !IsFieldHeated());
    around.feedbackUsed = command.armature == ArmatureMode::Speed && command.guide == SpeedGuide::Chosen &&
                          m_settings.speedSource != SpeedSource::Emf;
    around.fieldReference = m_control.GetState().fieldReference;
    around.earthCurrent = command.armature == ArmatureMode::Blocked ? 0 : m_earthCurrent;
    around.phaseMissing = m_mains.GetPhases() == PhaseDefect::Missing;
    around.phaseOrderWrong = m_mains.GetPhases() == PhaseDefect::Order;
    around.branchLost = m_mains.GetPhases() == PhaseDefect::FuseBlown;
    const Findings found = m_protection.Step(CMotorControl::kStep, m_control.GetState(), around, m_settings, m_levels);
    alarms.insert(found.alarms.begin(), found.alarms.end());
    if (found.trip == kFaultFeedback && MayChangeToEmf()) {
        m_registers.SetWord(reg::kSpeedSource, 0);
        ReadParameters();
    } else if (found.trip) {
        Trip(found.trip);
    }
}

bool CSimulatedDrive::MayChangeToEmf() const {
    constexpr quint16 kUnlessWeakened = 2;
    constexpr quint16 kAlways = 3;
    const quint16 reaction = m_registers.GetWord(reg::kFeedbackReaction);
    const bool weakened = m_control.GetState().fieldReference < 0.98;
    return reaction == kAlways || (reaction == kUnlessWeakened && !weakened);
}

ServiceView CSimulatedDrive::GetServiceView() const {
    const quint16 word = UsedControlWord();
    constexpr quint16 kStart = control::kOn | control::kEnableOperation;
    const bool stopped = IsEmergencyStopActive() || IsDisconnected();
    return {m_logic.IsDriving(), (word & kStart) == kStart, stopped,       m_faults.GetActive(),
            m_places.GetPlace(), m_mains.GetVoltage(),      m_levels.mains};
}

CommandView CSimulatedDrive::GetCommandView() const {
    return {m_places.IsLocal(), m_places.IsByBus(m_registers), m_places.IsByLink(), m_contactor.IsClosed(),
            m_logic.IsDriving()};
}

/// A trip comes first: what gives up the drive leaves it safe.
void CSimulatedDrive::ListenToCommanders(qint64 milliseconds, std::set<quint16>& alarms) {
    const Findings silence = m_commanders.Step(milliseconds, GetCommandView(), m_registers);
    alarms.insert(silence.alarms.begin(), silence.alarms.end());
    if (silence.trip)
        Trip(silence.trip);
    if (m_commanders.IsToolGivenUp())
        m_places.ReleaseLocal();
}

/// Lets the service mode begin or end its run.
void CSimulatedDrive::Supervise(double seconds) {
    m_service.Supervise(seconds, GetServiceView(), m_settings, m_control.GetConverter(), m_registers);
    if (m_service.TakeEnd()) {
        m_places.UseUpStart();
        SettleLogic();
    }
}

void CSimulatedDrive::SetOtherControl(bool holds) {
    Advance();
    m_otherLeft = 0;
    m_places.SetOther(holds);
    Settle();
}

void CSimulatedDrive::SetOtherControlFor(qint64 milliseconds) {
    SetOtherControl(true);
    m_otherLeft = milliseconds;
}

void CSimulatedDrive::SetEmergencyStop(bool pressed) {
    Advance();
    m_emergencyStop = pressed;
    Settle();
}

void CSimulatedDrive::SetTripCause(quint16 code) {
    Advance();
    m_faults.SetCause(code);
    if (code)
        Trip(code);
}

void CSimulatedDrive::Trip(quint16 code) {
    if (m_faults.GetActive())
        return;
    ShowState(); // the record holds what the registers show at this moment
    m_faults.Trip(code, m_registers, m_age);
    Settle();
}

} // namespace krt550
