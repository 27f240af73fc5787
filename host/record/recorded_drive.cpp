#include "host/record/recorded_drive.h"

#include "host/record/as_found.h"
#include "host/record/recorder.h"
#include "host/record/run_watch.h"

namespace krt550 {

template <class Send> bool CRecordedDrive::Command(const char* name, const QString& argument, bool isStop, Send send) {
    const RecordEvent event{.kind = "command", .text = QString::fromLatin1(name), .detail = argument};
    if (!isStop)
        m_asFound.Finish();
    const qint64 before = isStop ? 0 : m_recorder.NoteForCertain(event);
    const bool succeeded = send();
    const qint64 number = isStop ? m_recorder.Note(event) : before;
    m_recorder.NoteOutcome(number, succeeded, succeeded ? QString() : QStringLiteral("refused"));
    return succeeded;
}

bool CRecordedDrive::Command(const char* name, bool (CHostDrive::*operation)()) {
    return Command(name, {}, false, [&] { return (m_drive.*operation)(); });
}

bool CRecordedDrive::Stop(const char* name, bool (CHostDrive::*operation)()) {
    return Command(name, {}, true, [&] { return (m_drive.*operation)(); });
}

bool CRecordedDrive::SetReference(const QString& reference) {
    bool isNumber = false;
    const bool isStop = reference.toDouble(&isNumber) == 0 && isNumber;
    return Command("SetReference", reference, isStop, [&] { return m_drive.SetReference(reference); });
}

bool CRecordedDrive::StartMotor() {
    const bool succeeded = Command("StartMotor", &CHostDrive::StartMotor);
    m_runs.OnStart(succeeded);
    return succeeded;
}

bool CRecordedDrive::StopMotor() {
    const bool succeeded = Stop("StopMotor", &CHostDrive::StopMotor);
    m_runs.OnStop(succeeded);
    return succeeded;
}

bool CRecordedDrive::ResetFault() {
    return Command("ResetFault", &CHostDrive::ResetFault);
}

bool CRecordedDrive::OpenContactor() {
    return Stop("OpenContactor", &CHostDrive::OpenContactor);
}

bool CRecordedDrive::CloseContactor() {
    return Command("CloseContactor", &CHostDrive::CloseContactor);
}

bool CRecordedDrive::TakeLocalControl() {
    return Command("TakeLocalControl", &CHostDrive::TakeLocalControl);
}

bool CRecordedDrive::ReleaseLocalControl() {
    const bool succeeded = Stop("ReleaseLocalControl", &CHostDrive::ReleaseLocalControl);
    m_runs.OnRelease(succeeded);
    // Nothing is in a hurry any more, and the program may be about to end.
    if (succeeded)
        m_recorder.Settle(true);
    return succeeded;
}

quint32 CRecordedDrive::GetStatusWord() {
    const quint32 status = m_drive.GetStatusWord();
    m_runs.OnStatus(status);
    return status;
}

quint16 CRecordedDrive::ReadFaultBuffer(quint32& header, const FaultBufferRequest* request, quint32* byteCount,
                                        QByteArray& record) {
    const quint16 code = m_drive.ReadFaultBuffer(header, request, byteCount, record);
    if (code == 0)
        m_runs.OnFaultRecord(record);
    return code;
}

} // namespace krt550
