#include "wizard/platform/message_queue.h"

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

} // namespace krt550
