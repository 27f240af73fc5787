#include "host/trends/trend_sampler.h"

#include "host/trends/trend_history.h"
#include "hostlib/tolvbo32/parameter_link.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr qint64 kPeriodMs = 50;
/// A turn ends after a read that took as long: what comes fast has been fetched already, or is in this process.
constexpr qint64 kTurnMs = 2;
/// Time that is left to others, as a multiple of the time that the reading takes.
constexpr qint64 kOthersShare = 4;
/// A signal that was not answered is asked for again so much later, and so is a drive that answers none. A silence as
/// long is a gap in all curves.
constexpr qint64 kRetryMs = 1000;

} // namespace

void CTrendSampler::SetLink(CParameterLink* link) {
    TakeBackAnnouncement();
    m_link = link;
    Restart();
}

void CTrendSampler::SetShared(bool isShared) {
    TakeBackAnnouncement();
    m_isShared = isShared;
}

void CTrendSampler::Restart() {
    TakeBackAnnouncement();
    m_timer.Stop();
    m_places.clear();
    m_next = 0;
    m_silences.assign(m_history.Signals().size(), {});
    m_failures = 0;
    TellFailure();
    if (!m_link || m_silences.empty())
        return;
    m_due = CClock::Current().Now();
    m_timer.StartOnce(0);
}

void CTrendSampler::Turn() {
    const qint64 begin = CClock::Current().Now();
    if (m_next == m_places.size())
        BeginSample(begin);
    qint64 now = begin;
    do {
        Read(m_places[m_next++]);
        now = CClock::Current().Now();
    } while (!m_isShared && m_next < m_places.size() && !IsSilent() && now - begin < kTurnMs);
    qint64 wait = std::max(kOthersShare * (now - begin), qint64{1});
    if (IsSilent())
        wait = std::max(wait, kRetryMs);
    if (m_next == m_places.size()) {
        TakeBackAnnouncement();
        m_due = std::max(m_due + kPeriodMs, now);
        wait = std::max(wait, m_due - now);
    }
    TellFailure();
    m_timer.StartOnce(wait);
}

/// Those that have failed a moment ago are left out, as long as others are left. A silent drive is asked for one at a
/// time.
void CTrendSampler::BeginSample(qint64 now) {
    m_time = now;
    m_next = 0;
    m_places.clear();
    for (std::size_t place = 0; place < m_silences.size(); ++place)
        if (IsSilent() || m_silences[place].until <= now)
            m_places.push_back(place);
    if (m_places.empty())
        m_places = {0};
    if (m_isShared || IsSilent())
        return;
    std::vector<quint16> registers;
    for (const std::size_t place : m_places)
        registers.push_back(m_history.Signals()[place].parameter.reg);
    m_hasAnnounced = true;
    m_link->Announce(registers);
}

void CTrendSampler::Read(std::size_t place) {
    // What is read within a period counts as read at once, so that the signals of a fast line share their times.
    const qint64 now = CClock::Current().Now();
    if (now - m_time >= kPeriodMs)
        m_time = now;
    quint16 word = 0;
    if (m_link->ReadWord(m_history.Signals()[place].parameter.reg, word))
        NoteAnswer(place, word);
    else
        NoteFailure(place);
}

void CTrendSampler::NoteAnswer(std::size_t place, quint16 word) {
    if (m_failures > 0 && m_time - m_silentSince >= kRetryMs) {
        m_history.AddGap(m_silentSince);
        m_silences.assign(m_silences.size(), {});
    }
    m_failures = 0;
    m_silences[place] = {};
    m_history.Add(place, m_time, ShownNumber(m_history.Signals()[place].parameter, word));
}

void CTrendSampler::NoteFailure(std::size_t place) {
    if (m_failures++ == 0)
        m_silentSince = m_time;
    m_silences[place] = {CClock::Current().Now() + kRetryMs, m_link->LastErrorText()};
    m_history.Add(place, m_time, std::nullopt);
}

/// As many reads have failed in a row as there are signals.
bool CTrendSampler::IsSilent() const {
    return m_failures >= m_silences.size();
}

void CTrendSampler::TakeBackAnnouncement() {
    if (std::exchange(m_hasAnnounced, false))
        m_link->Announce({});
}

void CTrendSampler::TellFailure() {
    const auto failed =
        std::ranges::find_if(m_silences, [](const Silence& silence) { return !silence.text.isEmpty(); });
    QString text;
    if (failed != m_silences.end()) {
        const auto place = static_cast<std::size_t>(failed - m_silences.begin());
        text = QStringLiteral("No value of %1: %2")
                   .arg(m_history.Signals()[place].parameter.displayName(), failed->text.trimmed());
    }
    if (std::exchange(m_told, text) != text && onFailure)
        onFailure(text);
}

} // namespace krt550
