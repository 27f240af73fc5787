#pragma once

#include "hostlib/tolvbo32/clock.h"

#include <QString>

#include <array>
#include <functional>
#include <optional>
#include <vector>

namespace krt550 {

class CParameterLink;
class CTrendHistory;

/// Reads the chosen signals 20 times a second, from the event loop, between the calls of others. A turn is one read,
/// and what has then been fetched with it; on a slow line the turns take a fifth of the time at most. So whoever stops
/// the motor waits for no more than the one request that is on its way.
class CTrendSampler {
public:
    /// Borrowed. Whoever chooses other signals in it says so by Restart.
    explicit CTrendSampler(CTrendHistory& history) : m_history(history) {}

    /// Borrowed, until another one or null takes its place.
    void SetLink(CParameterLink* link);
    /// Somebody else announces reads on the link: nothing is announced here.
    void SetShared(bool isShared);
    /// Begins a new sample.
    void Restart();

    /// Called with what is wrong with the drive's answers when that has changed; empty: nothing.
    std::function<void(const QString&)> onFailure;

private:
    struct Silence {
        qint64 until = 0; ///< not asked before
        QString text;     ///< empty: it has answered
    };

    void Turn();
    void BeginSample(qint64 now);
    void Read(std::size_t place);
    void NoteAnswer(std::size_t place, quint16 word);
    void NoteFailure(std::size_t place);
    void TakeBackAnnouncement();
    void TellFailure();
    bool IsSilent() const;

    CTrendHistory& m_history;
    CParameterLink* m_link = nullptr;
    bool m_isShared = false;
    bool m_hasAnnounced = false;
    std::vector<std::size_t> m_places; ///< of the signals in the sample that is being read
    std::size_t m_next = 0;            ///< among those
    qint64 m_time = 0;                 ///< of what is read now
    qint64 m_due = 0;                  ///< the next sample
    std::vector<Silence> m_silences;   ///< by place
    std::size_t m_failures = 0;        ///< since the last answer
    qint64 m_silentSince = 0;          ///< the first of them
    QString m_told;
    CClockTimer m_timer{[this] { Turn(); }};
};

} // namespace krt550
