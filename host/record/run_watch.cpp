#include "host/record/run_watch.h"

#include "host/record/drive_story.h"
#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter_link.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QtEndian>

#include <utility>

namespace krt550 {
namespace {

constexpr quint16 kDiagnosis = 911;
constexpr quint32 kFaultRecordBytes = 39;
/// Soon, but from the event loop.
constexpr qint64 kSoonMs = 1;

/// Fault code in the drive's record: 0 before its first fault, nothing in a record that ends early.
std::optional<quint16> CodeOf(const QByteArray& record) {
    constexpr qsizetype kOffset = 14;
    if (record.size() < kOffset + 2)
        return std::nullopt;
    return qFromBigEndian<quint16>(record.constData() + kOffset);
}

} // namespace

CRunWatch::CRunWatch(CHostDrive& drive, CParameterLink& link, CDriveStory& story, CRecorder& recorder)
    : m_drive(drive), m_link(link), m_story(story), m_recorder(recorder), m_sampler(link, story, recorder),
      m_timer([this] { Tick(); }) {
    story.onFault = [this] {
        m_hasNewFault = true;
        if (!m_timer.IsActive())
            m_timer.StartOnce(kSoonMs);
    };
}

void CRunWatch::OnModeWritten(quint16 mode, bool succeeded) {
    if (mode != 0 && succeeded)
        return Begin(mode);
    if (mode != 0)
        return;
    m_mayAsk = succeeded;
    if (m_run && m_run->endedBy == EndedBy::Nobody)
        m_run->endedBy = EndedBy::Tool;
    if (m_run && succeeded && !m_run->hasStarted)
        Over();
}

void CRunWatch::OnModeRead(quint16 mode) {
    if (m_run && m_run->mode != 0 && mode == 0 && m_run->endedBy == EndedBy::Nobody)
        m_run->endedBy = EndedBy::Drive;
}

void CRunWatch::OnStart(bool succeeded) {
    if (!succeeded)
        return;
    if (!m_run)
        Begin(m_story.Known(kServiceModeRegister).value_or(0));
    m_run->hasStarted = true;
    m_run->stopTaken = false;
    m_mayAsk = true;
}

void CRunWatch::OnStop(bool succeeded) {
    m_mayAsk = succeeded;
    if (!m_run)
        return;
    if (m_run->endedBy == EndedBy::Nobody)
        m_run->endedBy = EndedBy::Tool;
    m_run->stopTaken = m_run->stopTaken || succeeded;
}

void CRunWatch::OnStatus(quint32 status) {
    if (m_run && m_run->stopTaken && (status & kStatusStopped))
        Over();
}

void CRunWatch::OnRelease(bool succeeded) {
    if (m_run && succeeded)
        Over();
}

void CRunWatch::OnFaultRecord(const QByteArray& record) {
    const std::optional<quint16> code = CodeOf(record);
    if (std::exchange(m_lastRecord, record) != record && code != quint16{0})
        m_recorder.Note({.kind = "fault", .reg = kLastFaultCode, .newWord = code, .data = record});
}

void CRunWatch::Begin(quint16 mode) {
    Conclude(false);
    if (m_run)
        Over();
    Conclude(false);
    m_run = Run{.number = m_recorder.Note({.kind = "run", .reg = kServiceModeRegister, .newWord = mode}), .mode = mode};
    m_mayAsk = true;
    m_sampler.Begin();
    m_timer.StartOnce(kSoonMs);
}

void CRunWatch::Over() {
    m_over = std::exchange(m_run, std::nullopt);
    m_timer.StartOnce(kSoonMs);
}

void CRunWatch::Tick() {
    if (m_run)
        return Sample();
    Conclude(m_mayAsk);
    if (m_hasNewFault)
        FetchFault();
}

void CRunWatch::Sample() {
    const std::optional<qint64> next = m_mayAsk ? m_sampler.Read(m_run->number) : std::nullopt;
    // A drive that did not answer is not asked again until it has taken a stop.
    m_mayAsk = next.has_value();
    constexpr qint64 kLookAgainMs = 250;
    m_timer.StartOnce(next.value_or(kLookAgainMs));
}

void CRunWatch::Conclude(bool mayAsk) {
    if (!m_over)
        return;
    const Run run = *std::exchange(m_over, std::nullopt);
    const bool asks = mayAsk && run.mode != 0;
    if (asks && Read(kDiagnosis) && Read(kLastFaultCode)) {
        const bool well = m_story.Known(kDiagnosis) == quint16{0};
        const QString judgement = well ? QStringLiteral("successful") : DiagnosisText();
        const QString end = run.endedBy == EndedBy::Drive ? QStringLiteral("ended by the drive")
                                                          : QStringLiteral("stopped by the tool");
        return m_recorder.NoteOutcome(run.number, well, judgement + QLatin1String("; ") + end);
    }
    if (run.mode == 0)
        return m_recorder.NoteOutcome(run.number, run.stopTaken, {});
    m_recorder.NoteOutcome(run.number, std::nullopt, QStringLiteral("the drive was not asked for its diagnosis"));
}

/// The drive's record of its last fault, with the motor at rest and out of every service mode.
void CRunWatch::FetchFault() {
    m_hasNewFault = false;
    QByteArray record;
    quint32 header = 0;
    quint32 byteCount = kFaultRecordBytes;
    const FaultBufferRequest request;
    const bool mayRead = m_story.Known(kServiceModeRegister).value_or(0) == 0 && m_drive.CheckDiagnosisCondition();
    if (mayRead && m_drive.ReadFaultBuffer(header, &request, &byteCount, record) == 0)
        return OnFaultRecord(record);
    m_recorder.Note({.kind = "fault", .reg = kLastFaultCode, .newWord = m_story.Known(kLastFaultCode)});
}

bool CRunWatch::Read(quint16 reg) {
    quint16 word = 0;
    if (!m_story.Find(reg))
        return true;
    if (!m_link.ReadWord(reg, word))
        return false;
    m_story.Seen(reg, word);
    return true;
}

QString CRunWatch::DiagnosisText() const {
    const ParameterDescription* parameter = m_story.Find(kDiagnosis);
    return parameter ? ShownText(*parameter, m_story.Known(kDiagnosis).value_or(0)) : QString();
}

void CRunWatch::End() {
    m_timer.Stop();
    if (m_run)
        Over();
    m_timer.Stop();
    Conclude(m_mayAsk);
    if (m_hasNewFault && m_mayAsk)
        FetchFault();
}

} // namespace krt550
