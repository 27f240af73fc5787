#include "host/record/value_reading.h"

#include "host/record/drive_story.h"
#include "hostlib/tolvbo32/parameter_link.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr qint64 kLongestReadMs = 5000;
constexpr int kDead = 3;
/// Registers of a piece, which lie behind one another: one short request on a serial wire, too.
constexpr std::size_t kPiece = 12;
/// What takes so long has been waited for.
constexpr qint64 kWaitedMs = 2;

} // namespace

CValueReading::CValueReading(Moment moment, CParameterLink& link, CDriveStory& story, CRecorder& recorder)
    : m_moment(moment), m_link(link), m_story(story), m_recorder(recorder) {
    for (const ParameterDescription& parameter : story.Parameters())
        m_registers.push_back(parameter.reg);
    std::ranges::sort(m_registers);
}

bool CValueReading::IsWanted(quint16 reg) const {
    return m_moment == Moment::AsLeft || !m_story.Known(reg);
}

std::vector<quint16> CValueReading::NextPiece() {
    while (m_next < m_registers.size() && !IsWanted(m_registers[m_next]))
        ++m_next;
    std::vector<quint16> piece;
    for (std::size_t i = m_next; i < m_registers.size() && piece.size() < kPiece; ++i) {
        if (!IsWanted(m_registers[i]) || m_registers[i] - m_registers[m_next] != int(i - m_next))
            break;
        piece.push_back(m_registers[i]);
    }
    return piece;
}

void CValueReading::ReadPiece() {
    const std::vector<quint16> piece = NextPiece();
    m_link.Announce(piece);
    bool goesOn = true;
    for (std::size_t i = 0; i < piece.size() && goesOn; ++i) {
        const qint64 begin = m_recorder.Now();
        Read(piece[i]);
        goesOn = m_unanswered == 0 && (i == 0 || m_recorder.Now() - begin < kWaitedMs);
    }
    m_link.Announce({});
    if (m_next == m_registers.size() || m_unanswered == kDead)
        Conclude();
}

void CValueReading::ReadRest() {
    std::vector<quint16> rest;
    std::copy_if(m_registers.begin() + std::ptrdiff_t(m_next), m_registers.end(), std::back_inserter(rest),
                 [this](quint16 reg) { return IsWanted(reg); });
    const qint64 begin = m_recorder.Now();
    m_link.Announce(rest);
    while (m_next < m_registers.size() && m_unanswered < kDead && m_recorder.Now() - begin < kLongestReadMs) {
        if (IsWanted(m_registers[m_next]))
            Read(m_registers[m_next]);
        else
            ++m_next;
    }
    m_link.Announce({});
    Conclude();
}

/// The one that is next.
void CValueReading::Read(quint16 reg) {
    ++m_next;
    quint16 word = 0;
    if (!m_link.ReadWord(reg, word)) {
        ++m_unanswered;
        ++m_failed;
        return;
    }
    m_unanswered = 0;
    m_story.Seen(reg, word); // what is seen for the first time is noted as found
    if (m_moment == Moment::AsLeft)
        m_recorder.NoteValue("as-left", reg, word);
}

void CValueReading::Conclude() {
    if (std::exchange(m_isOver, true))
        return;
    const auto unread = std::count_if(m_registers.begin() + std::ptrdiff_t(m_next), m_registers.end(),
                                      [this](quint16 reg) { return IsWanted(reg); });
    if (const std::size_t missing = m_failed + std::size_t(unread); missing > 0)
        m_recorder.Note(
            {.kind = "unread",
             .text = QStringLiteral("%1 of %2 values could not be read (%3)")
                         .arg(missing)
                         .arg(m_registers.size())
                         .arg(m_moment == Moment::AsLeft ? QLatin1String("as-left") : QLatin1String("as-found"))});
}

} // namespace krt550
