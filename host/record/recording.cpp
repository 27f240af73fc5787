#include "host/record/recording.h"

namespace krt550 {

struct CRecording::Parts {
    Parts(CRecordWriter& writer, CHostDrive& plainDrive, CParameterLink& plainLink)
        : recorder(writer), story(recorder, plainDrive), asFound(plainLink, story, recorder),
          runs(plainDrive, plainLink, story, recorder), windows(recorder), drive(plainDrive, recorder, asFound, runs),
          link(plainLink, story, asFound, runs) {}

    CRecorder recorder;
    CDriveStory story;
    CAsFound asFound;
    CRunWatch runs;
    CWindowWatch windows;
    CRecordedDrive drive;
    CRecordedLink link;
};

CRecording::CRecording(CRecordWriter* writer, CHostDrive& drive, CParameterLink& link)
    : m_drive(drive), m_link(link), m_parts(writer ? std::make_unique<Parts>(*writer, drive, link) : nullptr) {}

CRecording::~CRecording() = default;

CHostDrive& CRecording::Drive() {
    return m_parts ? m_parts->drive : m_drive;
}

CParameterLink& CRecording::Link() {
    return m_parts ? m_parts->link : m_link;
}

void CRecording::Begin() {
    if (m_parts)
        m_parts->windows.onPainted = [this] { m_parts->asFound.BeginSoon(); };
}

void CRecording::End() {
    if (!m_parts)
        return;
    m_parts->asFound.Finish();
    m_parts->recorder.Note({.kind = "closed"});
    CValueReading(CValueReading::Moment::AsLeft, m_link, m_parts->story, m_parts->recorder).ReadRest();
    m_parts->runs.End();
    m_parts->recorder.Note({.kind = "end"});
    m_parts->recorder.Settle(false);
}

} // namespace krt550
