#include "host/record/drive_story.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"

namespace krt550 {
namespace {


void Collect(const CParameterGroup& group, std::vector<ParameterDescription>& parameters) {
    for (const std::unique_ptr<CParameterSet>& child : group.GetChildren()) {
        if (const auto* below = dynamic_cast<const CParameterGroup*>(child.get()))
            Collect(*below, parameters);
        else if (const auto* parameter = dynamic_cast<const CParameter*>(child.get()))
            parameters.push_back(parameter->GetDescription());
    }
}

} // namespace

void CDriveStory::Describe() {
    if (std::exchange(m_isDescribed, true))
        return;
    CParameterGroup* root = nullptr;
    if (m_drive.GetParameterRoot(&root) && root)
        Collect(*root, m_parameters);
    for (std::size_t i = 0; i < m_parameters.size(); ++i) {
        m_places.insert(m_parameters[i].reg, i);
        m_recorder.NoteParameter(m_parameters[i]);
    }
}

const std::vector<ParameterDescription>& CDriveStory::Parameters() {
    Describe();
    return m_parameters;
}

const ParameterDescription* CDriveStory::Find(quint16 reg) {
    Describe();
    const auto found = m_places.find(reg);
    return found == m_places.end() ? nullptr : &m_parameters[*found];
}

void CDriveStory::Seen(quint16 reg, quint16 word) {
    const std::optional<quint16> known = Known(reg);
    m_known[reg] = word;
    m_seenAt[reg] = m_recorder.Now();
    m_announced.remove(reg);
    if (!known)
        return m_recorder.NoteValue("as-found", reg, word);
    if (*known == word)
        return;
    if (reg == kLastFaultCode && onFault)
        onFault();
    const ParameterDescription* parameter = Find(reg);
    if (parameter && !parameter->readOnly)
        m_recorder.Note({.kind = "change", .reg = reg, .oldWord = known, .newWord = word});
}

std::optional<quint16> CDriveStory::Known(quint16 reg) const {
    const auto found = m_known.find(reg);
    return found == m_known.end() ? std::nullopt : std::optional(*found);
}

std::optional<qint64> CDriveStory::SeenAt(quint16 reg) const {
    const auto found = m_seenAt.find(reg);
    return found == m_seenAt.end() ? std::nullopt : std::optional(*found);
}

RecordEvent CDriveStory::WriteEvent(quint16 reg, quint16 word) const {
    return {.kind = "write", .reg = reg, .oldWord = Known(reg), .newWord = word};
}

qint64 CDriveStory::BeforeWrite(quint16 reg, quint16 word) {
    return m_recorder.NoteForCertain(WriteEvent(reg, word));
}

void CDriveStory::AfterWrite(std::optional<qint64> number, quint16 reg, quint16 word, const QString& error) {
    m_announced.clear();
    const qint64 event = number ? *number : m_recorder.Note(WriteEvent(reg, word));
    m_recorder.NoteOutcome(event, error.isEmpty(), error);
    if (error.isEmpty())
        m_known[reg] = word;
}

void CDriveStory::Announced(std::span<const quint16> registers) {
    m_announced = QSet<quint16>(registers.begin(), registers.end());
}

} // namespace krt550
