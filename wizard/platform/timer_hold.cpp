#include "wizard/platform/timer_hold.h"

#include "wizard/platform/window.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <vector>

namespace krt550 {
namespace {

struct DueTimer {
    QPointer<CWindow> window;
    int handle;
};

int g_timerHolds = 0;
std::vector<DueTimer> g_due;

} // namespace

TimerHold::TimerHold() {
    ++g_timerHolds;
}

TimerHold::~TimerHold() {
    if (--g_timerHolds > 0 || g_due.empty())
        return;
    QMetaObject::invokeMethod(
        qApp,
        [] {
            if (g_timerHolds == 0)
                ServeDueTimers([] { return true; });
        },
        Qt::QueuedConnection);
}

bool TimerHold::Keep(CWindow& window, int timerHandle) {
    if (g_timerHolds == 0)
        return false;
    const bool waits = std::ranges::any_of(
        g_due, [&](const DueTimer& due) { return due.window == &window && due.handle == timerHandle; });
    if (!waits)
        g_due.push_back({&window, timerHandle});
    return true;
}

void ServeDueTimers(const std::function<bool()>& goOn) {
    while (!g_due.empty() && goOn()) {
        if (g_due.empty()) // served by somebody whom `goOn` has let in
            return;
        const DueTimer due = g_due.front();
        g_due.erase(g_due.begin());
        if (due.window)
            due.window->ServeTimer(due.handle);
    }
}

} // namespace krt550
