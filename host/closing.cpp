#include "host/closing.h"

#include "host/last_stop.h"
#include "host/play/window_closer.h"
#include "host/tool.h"

#include <cstdlib>

namespace krt550 {
namespace {

constexpr qint64 kCloseAgainMs = 10;
constexpr qint64 kStandstillPatienceMs = 10'000;

} // namespace

CClosing::CClosing(CLastStop& stop, std::function<void(const QString&)> complain)
    : m_stop(stop), m_complain(std::move(complain)), m_timer([this] { Step(); }) {}

void CClosing::Begin() {
    if (m_hasBegun)
        return;
    m_hasBegun = true;
    m_restsSince = CClock::Current().Now();
    m_stop.Stop();
    m_timer.Start(kCloseAgainMs);
}

void CClosing::Step() {
    const qint64 now = CClock::Current().Now();
    if (now >= m_nextStop) {
        m_nextStop = now + CLastStop::kRepeatMs;
        if (!m_stop.Stop())
            m_restsSince = now;
    }
    if (now - m_restsSince > kStandstillPatienceMs) {
        m_complain(QStringLiteral("the wizard does not close; the program ends without it"));
        m_stop.Finish();
        std::_Exit(kExitFailure);
    }
    CloseNextWindow();
}

} // namespace krt550
