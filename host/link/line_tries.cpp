// How a line gets a request to the drive and its answer back.
#include "host/link/line.h"
#include "host/link/line_texts.h"

#include <array>
#include <thread>

namespace krt550 {
namespace {

constexpr auto kBusyPause = std::chrono::milliseconds(20);

} // namespace

WireReply CLine::Attempt(const Request& request) {
    m_tried = m_now();
    m_wasSent = false;
    WireReply reply = Prepare();
    if (reply.IsDone()) {
        m_wasSent = true;
        reply = request();
    }
    m_unheard = reply.IsAnswered() ? 0 : m_unheard + 1;
    if (reply.IsAnswered())
        m_down.reset();
    // Where nothing comes any more, a line that looks open may be the reason.
    if (m_unheard >= kTries && m_wire.IsOpen()) {
        m_wire.Close();
        m_unheard = 0;
    }
    return reply;
}

WireReply CLine::Repeat(const Request& request) {
    WireReply reply;
    for (int tries = 0; tries < kTries; ++tries) {
        if (tries > 0 && reply.exception == kBusy)
            std::this_thread::sleep_for(kBusyPause);
        reply = Attempt(request);
        if (reply.IsAnswered() && reply.exception != kBusy)
            break;
    }
    return reply;
}

WireReply CLine::Prepare() {
    if (!m_wire.IsOpen())
        return Greet();
    if (!m_wire.IsOutOfStep())
        return {};
    const WireReply reply = m_wire.Synchronise(wire::kState, wire::kStateSize);
    m_isStateOld = m_isStateOld || reply.IsDone();
    return reply;
}

/// Opens the line, looks whether this is the drive, and takes up again what was held on the line before.
WireReply CLine::Greet() {
    m_stranger.clear();
    WireReply reply = m_wire.Open();
    if (!reply.IsDone())
        return reply;
    ++m_greetings;
    std::array<quint16, wire::kIdentitySize> identity = {};
    reply = m_wire.Read(wire::kIdentity, identity);
    if (reply.IsAnswered())
        m_stranger = StrangerText(reply, identity);
    if (!m_stranger.isEmpty())
        reply = {WireOutcome::NotConnected, 0, 0};
    if (reply.IsDone())
        reply = TryState();
    if (reply.IsDone() && m_holdsControl && m_state.place == WireControlPlace::Other) {
        reply = m_wire.Write(wire::kCommand, Numbered(WireCommand::TakeLocalControl));
        m_holdsControl = reply.outcome != WireOutcome::Refused;
        if (reply.IsAnswered())
            reply = TryState();
    }
    if (!reply.IsDone())
        m_wire.Close();
    return reply;
}

WireReply CLine::TryState() {
    std::array<quint16, wire::kStateHeadSize> words = {};
    const WireReply reply = m_wire.Read(wire::kState, words);
    if (!reply.IsDone())
        return reply;
    m_state = DecodeState(std::span(words).first(wire::kReason - wire::kState));
    m_isStateOld = false;
    if (m_state.place != WireControlPlace::Other)
        m_holdsControl = m_state.place == WireControlPlace::Local;
    return reply;
}

} // namespace krt550
