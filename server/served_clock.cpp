#include "server/served_clock.h"

#include <QElapsedTimer>

#include <algorithm>

namespace krt550 {

CServedClock::CServedClock(CClock& base, qint64 mostMs)
    : m_base(base), m_mostMs(mostMs), m_last(base.Now()), m_now(m_last) {}

void CServedClock::Pass(const std::function<void()>& advance) {
    QElapsedTimer spent;
    spent.start();
    qint64 left = m_base.Now() - m_last;
    m_last += left;
    do {
        const qint64 piece = std::min(left, kPieceMs);
        m_now += piece;
        left -= piece;
        advance();
        if (left > 0 && spent.elapsed() >= m_mostMs) {
            // So is what this took: the next request finds a drive that has time for it.
            m_last = m_base.Now();
            m_hasLost = true;
            left = 0;
        }
    } while (left > 0);
}

} // namespace krt550
