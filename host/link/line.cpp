#include "host/link/line.h"

#include "host/link/line_texts.h"

#include <array>

namespace krt550 {
namespace {

/// Something has come, be it only the answer to an earlier request.
bool WasHeard(const WireReply& reply) {
    return reply.outcome != WireOutcome::Silent && reply.outcome != WireOutcome::NotConnected;
}

} // namespace

WireReply CLine::TryRead(int address, std::span<quint16> words) {
    return Attempt([&] { return m_wire.Read(address, words); });
}

LineResult CLine::Read(int address, std::span<quint16> words) {
    return Judge(Repeat([&] { return m_wire.Read(address, words); }), address);
}

LineResult CLine::Write(int address, quint16 word) {
    const WireReply reply = Attempt([&] { return m_wire.Write(address, word); });
    if (reply.IsAnswered() || !m_wasSent)
        return Judge(reply, address);
    quint16 held = 0;
    const WireReply back = Repeat([&] { return m_wire.Read(address, std::span(&held, 1)); });
    if (!back.IsDone())
        return Judge(reply, address);
    if (held == word)
        return {};
    return {ErrorOf(reply), QStringLiteral("%1, and the drive has not taken the value").arg(Text(reply, address)),
            true};
}

LineResult CLine::Command(WireCommand command, std::optional<double> rpm) {
    quint16 sent = 0;
    int greetings = 0;
    const WireReply reply = Attempt([&] {
        if (const WireReply state = m_isStateOld ? TryState() : WireReply(); !state.IsDone())
            return state;
        sent = Numbered(command);
        greetings = m_greetings;
        m_isStateOld = true;
        m_holdsControl = m_holdsControl || command == WireCommand::TakeLocalControl;
        if (!rpm)
            return m_wire.Write(wire::kCommand, sent);
        std::array<quint16, wire::kCommandSize> words = {sent};
        Put32(words, wire::kCommandReference - wire::kCommand, static_cast<quint32>(HundredthsOf(*rpm).value_or(0)));
        return m_wire.Write(wire::kCommand, words);
    });
    if (sent == 0)
        return Judge(reply, wire::kCommand);
    if (!reply.IsAnswered())
        return LookUp(sent, reply, greetings);
    const LineResult result = Judge(reply, wire::kCommand);
    Attempt([this] { return TryState(); });
    return result;
}

/// On the same line the drive has carried the lost command out, or never got it: what was asked since has come after
/// it.
LineResult CLine::LookUp(quint16 command, const WireReply& lost, int greetings) {
    const LineResult unheard{ErrorOf(lost), Text(lost, wire::kCommand)};
    const WireReply state = Repeat([this] { return TryState(); });
    if (!state.IsDone())
        return Judge(state, wire::kState);
    if (m_greetings != greetings)
        return {unheard.error, unheard.text + QStringLiteral(", and it is not known what became of the command")};
    if (m_state.lastCommand != command)
        return {unheard.error, unheard.text + QStringLiteral(", and the drive has not got the command")};
    const int exception = static_cast<int>(m_state.lastResult);
    return exception == 0 ? LineResult() : Judge({WireOutcome::Refused, exception, 0}, wire::kCommand);
}

LineResult CLine::Stop() {
    WireReply reply;
    for (int tries = 0; tries < kTries; ++tries) {
        // On a line that stays down the next one comes soon enough, and the window wants to live meanwhile.
        if (tries > 0 && m_down && !WasHeard(reply))
            break;
        m_tried = m_now();
        reply = m_wire.IsOpen() ? WireReply() : Greet();
        if (!reply.IsDone())
            continue;
        // The first one goes before everything; of a further one it is to be known whether it arrived.
        if (tries > 0 && m_wire.IsOutOfStep())
            m_wire.Synchronise(wire::kState, wire::kStateSize);
        m_isStateOld = true;
        reply = m_wire.Write(wire::kCommand, Numbered(WireCommand::StopMotor));
        if (reply.IsAnswered() && reply.exception != kBusy)
            break;
    }
    return Judge(reply, wire::kCommand);
}

LineResult CLine::ReadState() {
    return Judge(Repeat([this] { return TryState(); }), wire::kState);
}

void CLine::KeepAlive() {
    Attempt([this] { return TryState(); });
}

/// The word of a command, with the number that the drive expects on this line.
quint16 CLine::Numbered(WireCommand command) const {
    return CommandWord(command, NextCommandNumber(static_cast<quint8>(m_state.lastCommand >> 8)));
}

LineResult CLine::Judge(const WireReply& reply, int address) {
    m_down.reset();
    if (reply.IsDone())
        return {};
    if (!reply.IsAnswered())
        return *(m_down = {ErrorOf(reply), Text(reply, address), false});
    const QString reason = Reason();
    return {ErrorOf(reply), reason.isEmpty() ? Text(reply, address) : reason};
}

QString CLine::Text(const WireReply& reply, int address) const {
    const QString text = reply.outcome == WireOutcome::NotConnected && !m_stranger.isEmpty()
                             ? m_stranger
                             : FailureText(reply, address, m_wire.GetPlace().answerTimeout);
    return m_wire.GetPlace().Describe() + QLatin1String(": ") + text;
}

/// What the drive itself says of its last refusal; empty when it says nothing.
QString CLine::Reason() {
    std::array<quint16, wire::kStateSize> words = {};
    const WireReply reply = Attempt([&] { return m_wire.Read(wire::kState, words); });
    return reply.IsDone() ? DecodeState(words).reason : QString();
}

} // namespace krt550
