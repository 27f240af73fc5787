#pragma once

#include "hostlib/tolvbo32/clock.h"

#include <QString>

#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace krt550 {

class CParameterLink;
class CParameterModel;

/// Reads the values of a model in the background, one read a turn of the event loop: what is seen once a second, the
/// rest when there is time. Groups of registers are announced to the link before they are read.
class CParameterRefresh {
public:
    /// The rows that somebody sees now; nothing when nobody looks at any, and then only the first round is read.
    using Seen = std::function<std::optional<std::vector<int>>()>;

    /// The model is borrowed.
    CParameterRefresh(CParameterModel& model, Seen seen);

    /// Told once when the drive has left several reads unanswered, with the reason, and with an empty text when it
    /// answers again.
    std::function<void(const QString& reason)> onSilence;

    /// Borrowed; null: nothing is read. Begins with everything.
    void SetLink(CParameterLink* link);
    /// While it rests nothing is read or announced; afterwards everything is read again.
    void SetResting(bool isResting);
    /// What is seen has changed: it is read now.
    void Look();
    /// Reads one row before all others and says whether it could be read.
    void ReadBack(int row, std::function<void(bool)> done);

    bool IsSilent() const { return m_isSilent; }

private:
    void Begin();
    void End();
    void TakeTurn();
    bool BeginGroup();
    std::vector<int> NextOthers();
    void Announce(const std::vector<int>& rows);
    bool Read(int row);
    void Failed();

    CParameterModel& m_model;
    Seen m_seen;
    CParameterLink* m_link = nullptr;
    bool m_isResting = false;
    bool m_isSilent = false;
    int m_failures = 0; ///< reads that failed one after the other

    struct Wish {
        int row;
        std::function<void(bool)> done;
    };
    std::deque<Wish> m_wishes;
    std::deque<int> m_group; ///< what is left of the rows that were announced
    int m_nextOther = 0;
    bool m_isFirstRound = true; ///< not every row has been asked for yet
    qint64 m_seenDue = 0;
    qint64 m_othersDue = 0;
    CClockTimer m_turn;
};

} // namespace krt550
