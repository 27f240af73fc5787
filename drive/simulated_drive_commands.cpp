// The drive's answers to what comes from outside.
#include "drive/control_word.h"
#include "drive/fault_codes.h"
#include "drive/registers.h"
#include "drive/simulated_drive.h"
#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <cmath>
#include <limits>

namespace krt550 {

void CSimulatedDrive::Poll() {
    Advance();
    if (m_toolSpeaks)
        m_commanders.HearTool();
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
    if (reg == reg::kRatedCurrent && IsCurrentTooLarge(word))
        return false;
    if (!m_registers.WriteFromLink(reg, word, m_error))
        return false;
    if (reg == reg::kLoadMacro && word != 0 && !LoadMacro())
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

/// A motor that draws more than the converter can give has the wrong converter.
bool CSimulatedDrive::IsCurrentTooLarge(quint16 word) {
    const ParameterDescription* parameter = m_registers.FindDescription(reg::kRatedCurrent);
    const double most = m_registers.GetNumber(reg::kConverterCurrent, std::numeric_limits<double>::infinity());
    if (!parameter || ShownNumber(*parameter, word) <= most)
        return false;
    return !Refuse(QStringLiteral("The drive refused the value: the converter gives %1 A (4.03).").arg(dtoa(most, 1)));
}

QByteArray CSimulatedDrive::ReadFaultRecord() {
    Poll();
    ++m_counters.faultReads;
    return EncodeFaultRecord(RecordState::Complete, m_faults.GetFields().value_or(FaultFields{}));
}

bool CSimulatedDrive::TakeLocalControl() {
    Poll();
    ++m_counters.localTakes;
    if (m_places.GetPlace() == ControlPlace::Other)
        return Refuse(QStringLiteral("Another control place holds the drive."));
    if (m_places.IsLocal())
        return true;
    const bool keepsOn = m_logic.IsDriving() || m_logic.GetState() == DriveState::On;
    const auto word = static_cast<quint16>(UsedControlWord() & ~control::kAcknowledge);
    m_places.TakeLocal(keepsOn ? word : control::kIdle, m_logic.IsDriving() ? GetSpeedReference() : 0);
    Settle();
    return true;
}

bool CSimulatedDrive::ReleaseLocalControl() {
    Poll();
    ++m_counters.localReleases;
    if (RefuseWithoutLocalControl())
        return false;
    m_places.ReleaseLocal();
    Settle();
    return true;
}

bool CSimulatedDrive::CloseContactor() {
    Poll();
    ++m_counters.contactorCloses;
    if (RefuseWithoutLocalControl())
        return false;
    if (m_commanders.GetStopReason())
        return Refuse(QStringLiteral("The drive is stopping for %1.").arg(FaultText(m_commanders.GetStopReason())));
    m_places.SwitchOn();
    Settle();
    const bool on = m_contactor.IsClosed() && m_logic.GetState() != DriveState::Inhibited;
    return on || Refuse(WhyNotOn());
}

bool CSimulatedDrive::OpenContactor() {
    Poll();
    ++m_counters.contactorOpens;
    if (RefuseWithoutLocalControl())
        return false;
    m_places.SwitchOff();
    Settle();
    if (m_contactor.IsClosed() && !m_logic.IsDriving())
        return Refuse(QStringLiteral("The main contactor does not open."));
    return true;
}

bool CSimulatedDrive::StartMotor() {
    Poll();
    ++m_counters.motorStarts;
    if (RefuseWithoutLocalControl())
        return false;
    // Only a drive that is on keeps the start command: a motor never starts later by itself.
    const bool on = m_places.IsLocallyOn() && (m_logic.GetState() == DriveState::On || m_logic.IsDriving());
    if (!on)
        return Refuse(WhyNotOn());
    if (m_startRefused)
        return Refuse(QStringLiteral("Start is not enabled: an interlock outside the drive is open."));
    m_places.Start();
    Settle();
    return true;
}

bool CSimulatedDrive::StopMotor() {
    Poll();
    ++m_counters.motorStops;
    if (RefuseWithoutLocalControl())
        return false;
    m_places.Stop();
    Settle();
    return true;
}

bool CSimulatedDrive::ResetFault() {
    Poll();
    ++m_counters.resets;
    AcknowledgeFault();
    Settle();
    if (const quint16 fault = m_faults.GetActive())
        return Refuse(QStringLiteral("The cause of %1 is still there.").arg(FaultText(fault)));
    return true;
}

bool CSimulatedDrive::SetSpeedReference(double rpm) {
    Poll();
    ++m_counters.references;
    if (RefuseWithoutLocalControl())
        return false;
    if (std::isfinite(rpm) && m_references.Limit(rpm) == rpm) {
        m_places.SetLocalReference(rpm);
        return true;
    }
    return Refuse(QStringLiteral("The speed reference %1 rpm lies outside the speed limits.").arg(dtoa(rpm, 1)));
}

bool CSimulatedDrive::Refuse(const QString& error) {
    m_error = error;
    return false;
}

bool CSimulatedDrive::RefuseWithoutLocalControl() {
    if (m_places.IsLocal())
        return false;
    m_error = m_places.GetPlace() == ControlPlace::Other ? QStringLiteral("Another control place holds the drive.")
                                                         : QStringLiteral("Take local control of the drive first.");
    return true;
}

QString CSimulatedDrive::WhyNotOn() const {
    if (const quint16 fault = m_faults.GetActive())
        return QStringLiteral("The drive has tripped with %1. Reset it first.").arg(FaultText(fault));
    if (IsEmergencyStopActive())
        return QStringLiteral("The emergency stop is pressed.");
    if (IsDisconnected())
        return QStringLiteral("The electrical disconnect is open.");
    if (m_logic.GetState() == DriveState::Inhibited)
        return QStringLiteral("Switching on is inhibited. Open the main contactor once, then close it again.");
    if (m_places.IsLocallyOn())
        return QStringLiteral("The main contactor does not close.");
    return QStringLiteral("Close the main contactor first.");
}

} // namespace krt550
