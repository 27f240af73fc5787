#pragma once

#include "hostlib/tolvbo32/clock.h"
#include "wizard/params/cyclic_update.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <deque>

namespace krt550 {

/// One update pass: one drive read for each turn of the event loop, so that whatever a person does waits for a single
/// read. It belongs to the window that has the timer and goes with it.
class CUpdatePass : public QObject {
public:
    /// `timerHandle` lives as long as `timerOwner`.
    CUpdatePass(CWindow& timerOwner, int& timerHandle, UpdatePlan plan);
    ~CUpdatePass() override;

    const CWindow& GetTimerOwner() const { return m_timerOwner; }

    /// The one that is on, or null.
    static CUpdatePass* Current();

private:
    void Announce() const;
    void TakeTurn();
    /// Does what the next turn is for; false when nothing is left to do.
    bool DoNext();
    void Refresh(const UpdatePlan::Item& item, const std::vector<QWidget*>& controls);

    CWindow& m_timerOwner;
    int& m_timerHandle;
    bool m_ticks; ///< a timer has begun it; a failure may have stopped that since
    bool m_whileMotorTurns;
    std::deque<UpdatePlan::Item> m_items;
    CClockTimer m_turn;
};

} // namespace krt550
