// The drive's answers to what comes from outside.
#include "drive/control_word.h"
#include "drive/fault_codes.h"
#include "drive/registers.h"
#include "drive/simulated_drive.h"
#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace krt550 {

void CSimulatedDrive::Poll() {
    Advance();
    m_silence = 0;
}

bool CSimulatedDrive::ReadRegister(quint16 reg, quint16& word) {
    Poll();
    ++m_counters.reads[reg];
    return m_registers.ReadFromLink(reg, word, m_error);
}

bool CSimulatedDrive::WriteRegister(quint16 reg, quint16 word) {
    Poll();
    ++m_counters.writes[reg];
    if (reg == reg::kHandTacho && !TakeHandTacho(word))
        return false;
    if (!m_registers.WriteFromLink(reg, word, m_error))
        return false;
    if (reg == reg::kServiceMode)
        m_service.Write(word, GetServiceView(), m_registers);
    Settle();
    return true;
}

bool CSimulatedDrive::TakeHandTacho(quint16 word) {
    const ParameterDescription* parameter = m_registers.FindDescription(reg::kHandTacho);
    double tacho = 0;
    const double shown = parameter ? ShownNumber(*parameter, word) : 0;
    return m_service.TakeHandTacho(shown, tacho) ||
           Refuse(QStringLiteral("%1 rpm cannot be the motor's speed while the drive's own tacho shows %2 rpm.")
                      .arg(dtoa(shown, 0), dtoa(tacho, 0)));
}

QByteArray CSimulatedDrive::ReadFaultRecord() {
    Poll();
    ++m_counters.faultReads;
    return EncodeFaultRecord(RecordState::Complete, m_faultFields.value_or(FaultFields{}));
}

bool CSimulatedDrive::TakeLocalControl() {
    Poll();
    ++m_counters.localTakes;
    if (m_place == ControlPlace::Other)
        return Refuse(QStringLiteral("Another control place holds the drive."));
    if (IsLocal())
        return true;
    const bool keepsOn = m_logic.IsDriving() || m_logic.GetState() == DriveState::On;
    m_localReference = m_logic.IsDriving() ? GetSpeedReference() : 0;
    m_localWord = keepsOn ? UsedControlWord() : control::kIdle;
    m_place = ControlPlace::Local;
    Settle();
    return true;
}

bool CSimulatedDrive::ReleaseLocalControl() {
    Poll();
    ++m_counters.localReleases;
    if (RefuseWithoutLocalControl())
        return false;
    m_place = ControlPlace::Remote;
    Settle();
    return true;
}

bool CSimulatedDrive::CloseContactor() {
    Poll();
    ++m_counters.contactorCloses;
    if (RefuseWithoutLocalControl())
        return false;
    if (m_connectionLost)
        return Refuse(QStringLiteral("The drive is stopping: the tool was not heard in time."));
    m_localWord |= control::kOn;
    Settle();
    const bool on = m_contactorClosed && m_logic.GetState() != DriveState::Inhibited;
    return on || Refuse(WhyNotOn());
}

bool CSimulatedDrive::OpenContactor() {
    Poll();
    ++m_counters.contactorOpens;
    if (RefuseWithoutLocalControl())
        return false;
    m_localWord = control::kIdle;
    Settle();
    if (m_contactorClosed && !m_logic.IsDriving())
        return Refuse(QStringLiteral("The main contactor does not open."));
    return true;
}

bool CSimulatedDrive::StartMotor() {
    Poll();
    ++m_counters.motorStarts;
    if (RefuseWithoutLocalControl())
        return false;
    // Only a drive that is on keeps the start command: a motor never starts later by itself.
    const bool on = (m_localWord & control::kOn) && (m_logic.GetState() == DriveState::On || m_logic.IsDriving());
    if (!on)
        return Refuse(WhyNotOn());
    m_localWord |= control::kRun;
    Settle();
    return true;
}

bool CSimulatedDrive::StopMotor() {
    Poll();
    ++m_counters.motorStops;
    if (RefuseWithoutLocalControl())
        return false;
    m_localWord &= static_cast<quint16>(~control::kEnableOperation);
    Settle();
    return true;
}

bool CSimulatedDrive::ResetFault() {
    Poll();
    ++m_counters.resets;
    Acknowledge();
    Settle();
    if (m_fault)
        return Refuse(QStringLiteral("The cause of %1 is still there.").arg(FaultText(m_fault)));
    return true;
}

bool CSimulatedDrive::SetSpeedReference(double rpm) {
    Poll();
    ++m_counters.references;
    if (RefuseWithoutLocalControl())
        return false;
    const double former = std::exchange(m_localReference, rpm);
    if (std::isfinite(rpm) && GetSpeedReference() == rpm)
        return true;
    m_localReference = former;
    return Refuse(QStringLiteral("The speed reference %1 rpm lies outside the speed limits.").arg(dtoa(rpm, 1)));
}

void CSimulatedDrive::SetOtherControl(bool holds) {
    Advance();
    if (holds)
        m_place = ControlPlace::Other;
    else if (m_place == ControlPlace::Other)
        m_place = ControlPlace::Remote;
    Settle();
}

void CSimulatedDrive::SetContactorStuck(bool stuck) {
    Advance();
    m_contactorStuck = stuck;
    Settle();
}

void CSimulatedDrive::SetMains(double voltage) {
    Advance();
    m_mains = std::max(0.0, voltage);
    m_control.SetMains(m_mains, LineInductanceOf(m_set));
    Settle();
}

void CSimulatedDrive::SetTripCause(quint16 code) {
    Advance();
    m_tripCause = code;
    if (code)
        Trip(code);
}

bool CSimulatedDrive::Refuse(const QString& error) {
    m_error = error;
    return false;
}

bool CSimulatedDrive::RefuseWithoutLocalControl() {
    if (IsLocal())
        return false;
    m_error = m_place == ControlPlace::Other ? QStringLiteral("Another control place holds the drive.")
                                             : QStringLiteral("Take local control of the drive first.");
    return true;
}

QString CSimulatedDrive::WhyNotOn() const {
    if (m_fault)
        return QStringLiteral("The drive has tripped with %1. Reset it first.").arg(FaultText(m_fault));
    if (m_logic.GetState() == DriveState::Inhibited)
        return QStringLiteral("Switching on is inhibited. Open the main contactor once, then close it again.");
    if (m_localWord & control::kOn)
        return QStringLiteral("The main contactor does not close.");
    return QStringLiteral("Close the main contactor first.");
}

} // namespace krt550
