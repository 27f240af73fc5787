#include "host/record/recording.h"

#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"

namespace krt550 {
namespace {

constexpr qint64 kLongestReadMs = 5000;
/// A drive that leaves this many reads in a row unanswered is not asked any more.
constexpr int kDead = 3;

void Collect(const CParameterGroup& group, std::vector<ParameterDescription>& parameters) {
    for (const std::unique_ptr<CParameterSet>& child : group.GetChildren()) {
        if (const auto* below = dynamic_cast<const CParameterGroup*>(child.get()))
            Collect(*below, parameters);
        else if (const auto* parameter = dynamic_cast<const CParameter*>(child.get()))
            parameters.push_back(parameter->GetDescription());
    }
}

std::vector<ParameterDescription> ParametersOf(CHostDrive& drive) {
    std::vector<ParameterDescription> parameters;
    CParameterGroup* root = nullptr;
    if (drive.GetParameterRoot(&root) && root)
        Collect(*root, parameters);
    return parameters;
}

} // namespace

struct CRecording::Parts {
    Parts(CRecordWriter& writer, CHostDrive& plainDrive, CParameterLink& plainLink)
        : recorder(writer), story(recorder, ParametersOf(plainDrive)), runs(plainDrive, plainLink, story, recorder),
          windows(recorder), drive(plainDrive, recorder, runs), link(plainLink, story, runs) {}

    CRecorder recorder;
    CDriveStory story;
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
    if (!m_parts)
        return;
    ReadAll("as-found");
    m_parts->recorder.Settle(false);
}

void CRecording::End() {
    if (!m_parts)
        return;
    m_parts->recorder.Note({.kind = "closed"});
    ReadAll("as-left");
    m_parts->runs.End();
    m_parts->recorder.Note({.kind = "end"});
    m_parts->recorder.Settle(false);
}

void CRecording::ReadAll(const char* moment) {
    const bool isFirst = qstrcmp(moment, "as-found") == 0;
    const std::vector<ParameterDescription>& parameters = m_parts->story.Parameters();
    std::vector<quint16> registers;
    for (const ParameterDescription& parameter : parameters)
        registers.push_back(parameter.reg);
    const qint64 begin = m_parts->recorder.Now();
    int failed = 0;
    int unanswered = 0;
    std::size_t next = 0;
    m_link.Announce(registers);
    for (; next < registers.size() && unanswered < kDead && m_parts->recorder.Now() - begin < kLongestReadMs; ++next) {
        quint16 word = 0;
        const bool answers = m_link.ReadWord(registers[next], word);
        unanswered = answers ? 0 : unanswered + 1;
        failed += answers ? 0 : 1;
        if (answers)
            m_parts->story.Seen(registers[next], word); // what is seen for the first time is noted as found
        if (answers && !isFirst)
            m_parts->recorder.NoteValue(moment, registers[next], word);
    }
    m_link.Announce({});
    const std::size_t missing = registers.size() - next + std::size_t(failed);
    if (missing > 0)
        m_parts->recorder.Note({.kind = "unread",
                                .text = QStringLiteral("%1 of %2 values could not be read (%3)")
                                            .arg(missing)
                                            .arg(registers.size())
                                            .arg(QLatin1String(moment))});
}

} // namespace krt550
