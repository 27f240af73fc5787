#include "host/parameters/parameter_refresh.h"

#include "host/parameters/parameter_model.h"
#include "hostlib/tolvbo32/parameter_link.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr qint64 kSeenPeriod = 1000;   ///< [ms]
constexpr qint64 kOthersPeriod = 2000; ///< between two groups of what is not seen [ms]
constexpr qint64 kSilentPeriod = 2000; ///< between two tries of a drive that does not answer [ms]
constexpr int kGroupSize = 100;
/// A single register that cannot be read may be missing; so many of them are a line that is dead.
constexpr int kSilentAfter = 3;

} // namespace

CParameterRefresh::CParameterRefresh(CParameterModel& model, Seen seen)
    : m_model(model), m_seen(std::move(seen)), m_turn([this] { TakeTurn(); }) {}

void CParameterRefresh::SetLink(CParameterLink* link) {
    End();
    m_link = link;
    m_isSilent = false;
    Begin();
}

void CParameterRefresh::SetResting(bool isResting) {
    if (isResting == m_isResting)
        return;
    if (isResting)
        End();
    m_isResting = isResting;
    m_model.MakeStale();
    if (!isResting)
        Begin();
}

void CParameterRefresh::Begin() {
    if (!m_link || m_isResting)
        return;
    m_failures = 0;
    m_nextOther = 0;
    m_isFirstRound = true;
    m_seenDue = 0;
    m_othersDue = 0;
    m_turn.StartOnce(0);
}

void CParameterRefresh::End() {
    m_turn.Stop();
    if (!m_group.empty())
        m_link->Announce({});
    m_group.clear();
    m_wishes.clear();
}

void CParameterRefresh::Look() {
    m_seenDue = 0;
    if (m_link && !m_isResting && !m_isSilent && m_group.empty() && m_wishes.empty())
        m_turn.StartOnce(0);
}

void CParameterRefresh::ReadBack(int row, std::function<void(bool)> done) {
    if (!m_link || m_isResting)
        return;
    // What was fetched ahead may be out of date by what was written, and so may all that is seen.
    if (!m_group.empty())
        m_link->Announce({});
    m_group.clear();
    m_seenDue = 0;
    if (m_isFirstRound)
        m_nextOther = 0;
    m_wishes.push_back({row, std::move(done)});
    m_turn.StartOnce(0);
}

void CParameterRefresh::TakeTurn() {
    if (!m_wishes.empty()) {
        const Wish wish = std::move(m_wishes.front());
        m_wishes.pop_front();
        m_turn.StartOnce(m_isSilent ? kSilentPeriod : 0);
        wish.done(Read(wish.row));
        return;
    }
    if (m_group.empty() && !BeginGroup())
        return;
    const int row = m_group.front();
    m_group.pop_front();
    m_turn.StartOnce(0);
    const bool isLast = m_group.empty();
    Read(row);
    if (isLast && !m_isSilent)
        m_link->Announce({});
}

/// False when there is nothing to read now; the timer is set then.
bool CParameterRefresh::BeginGroup() {
    if (m_model.GetRowCount() == 0)
        return false;
    if (m_isSilent) {
        m_nextOther = (m_nextOther + 1) % m_model.GetRowCount();
        m_group = {m_nextOther};
        return true;
    }
    const std::optional<std::vector<int>> seen = m_seen();
    if (!seen && !m_isFirstRound)
        return false;
    const qint64 now = CClock::Current().Now();
    std::vector<int> rows;
    if (now >= m_seenDue) {
        m_seenDue = now + kSeenPeriod;
        rows = seen.value_or(rows);
    }
    if (rows.empty() && now >= m_othersDue)
        rows = NextOthers();
    if (rows.empty()) {
        m_turn.StartOnce(std::max<qint64>(std::min(m_seenDue, m_othersDue) - now, 1));
        return false;
    }
    Announce(rows);
    m_group.assign(rows.begin(), rows.end());
    return true;
}

/// The first round goes on without a pause, and leaves out what is known.
std::vector<int> CParameterRefresh::NextOthers() {
    std::vector<int> rows;
    for (; m_nextOther < m_model.GetRowCount() && rows.size() < kGroupSize; ++m_nextOther)
        if (!m_isFirstRound || !m_model.GetRow(m_nextOther).isFresh)
            rows.push_back(m_nextOther);
    if (m_nextOther >= m_model.GetRowCount()) {
        m_nextOther = 0;
        m_isFirstRound = false;
    }
    if (!m_isFirstRound)
        m_othersDue = CClock::Current().Now() + kOthersPeriod;
    return rows;
}

void CParameterRefresh::Announce(const std::vector<int>& rows) {
    std::vector<quint16> registers;
    for (const int row : rows)
        registers.push_back(m_model.GetRow(row).description.reg);
    m_link->Announce(registers);
}

bool CParameterRefresh::Read(int row) {
    quint16 word = 0;
    if (!m_link->ReadWord(m_model.GetRow(row).description.reg, word)) {
        m_model.TakeFailure(row, m_link->LastErrorText());
        Failed();
        return false;
    }
    m_failures = 0;
    m_model.TakeWord(row, word);
    if (m_isSilent) {
        m_isSilent = false;
        Begin();
        onSilence({});
    }
    return true;
}

void CParameterRefresh::Failed() {
    if (++m_failures < kSilentAfter && !m_isSilent)
        return;
    if (!m_isSilent) {
        m_isSilent = true;
        if (!m_group.empty())
            m_link->Announce({});
        m_group.clear();
        const QString reason = m_link->LastErrorText();
        m_model.MakeStale();
        onSilence(reason);
    }
    m_turn.StartOnce(kSilentPeriod);
}

} // namespace krt550
