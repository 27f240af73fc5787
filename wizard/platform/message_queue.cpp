#include "wizard/platform/message_queue.h"

#include "hostlib/tolvbo32/clock.h"
#include "wizard/platform/modal_frame.h"

#include <QCoreApplication>

namespace krt550 {

void DrainMessageQueue() {
    constexpr int kLongestMs = 50;
    // Events posted before the caller's own one are not seen as new by every event dispatcher.
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents(QEventLoop::AllEvents, kLongestMs);
    CModalFrame::CancelStoppedFrames();
}

bool WaitInEventLoop(qint64 milliseconds, const std::function<bool()>& isWanted) {
    CClock& clock = CClock::Current();
    const qint64 end = clock.Now() + milliseconds;
    for (;;) {
        DrainMessageQueue();
        if (!isWanted())
            return false;
        const qint64 left = end - clock.Now();
        if (left <= 0)
            return true;
        clock.WaitForEvents(left);
    }
}

} // namespace krt550
