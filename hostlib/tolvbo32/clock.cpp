#include "hostlib/tolvbo32/clock.h"

#include <chrono>
#include <thread>

namespace krt550 {
namespace {

class CRealClock : public CClock {
public:
    qint64 Now() override {
        const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count();
    }
    void Sleep(qint64 milliseconds) override { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }
};

CClock* g_current = nullptr;

} // namespace

CClock& CClock::Current() {
    static CRealClock real;
    return g_current ? *g_current : real;
}

ClockScope::ClockScope(CClock& clock) : m_former(g_current) {
    g_current = &clock;
}

ClockScope::~ClockScope() {
    g_current = m_former;
}

} // namespace krt550
