#pragma once

#include "host/link/wire.h"
#include "hostlib/tolvcom32/communication_facade.h"
#include "modbus/wire_values.h"

#include <chrono>
#include <functional>
#include <optional>

namespace krt550 {

/// What became of something that the drive was asked or told.
struct LineResult {
    CommunicationError error = CommunicationError::None;
    QString text; ///< of the failure, for a person
    bool wasAnswered = true;

    bool IsGood() const { return error == CommunicationError::None; }
};

/// A wire with all that it takes to trust it: opens it and looks who answers there, opens it again when it has broken,
/// repeats reads, and finds out what became of a write or a command whose answer was lost. Belongs to one thread.
///
/// Local control that was held when the line broke is taken again with the new one as long as the drive has not given
/// it up: otherwise nobody could stop the motor.
class CLine {
public:
    using Clock = std::chrono::steady_clock;
    using Now = std::function<Clock::time_point()>;

    explicit CLine(WirePlace place, Now now = Clock::now) : m_wire(std::move(place)), m_now(std::move(now)) {}

    /// One try, for what nobody waits for.
    WireReply TryRead(int address, std::span<quint16> words);
    /// Up to three tries.
    LineResult Read(int address, std::span<quint16> words);
    /// A write is never repeated. One that was not answered is read back: it is good when the drive holds the word.
    LineResult Write(int address, quint16 word);
    /// A command is never repeated. One that was not answered is looked up in what the drive says of its last command.
    /// The drive's state is read behind it.
    LineResult Command(WireCommand command, std::optional<double> rpm = {});
    /// Sends the stop before anything else, up to three times.
    LineResult Stop();
    LineResult ReadState();
    /// One try to let the drive hear the host, and to open the line again.
    void KeepAlive();

    /// As the drive last told it.
    const WireState& GetState() const { return m_state; }
    /// The drive may think that this host holds local control.
    bool HoldsControl() const { return m_holdsControl; }
    /// The failure of what was asked and not answered; nothing once anything is.
    const std::optional<LineResult>& GetDown() const { return m_down; }
    /// When the drive was last asked something.
    Clock::time_point LastTried() const { return m_tried; }

private:
    static constexpr int kTries = 3;
    static constexpr int kBusy = static_cast<int>(WireException::Busy);

    using Request = std::function<WireReply()>;

    WireReply Attempt(const Request& request);
    WireReply Repeat(const Request& request);
    WireReply Prepare();
    WireReply Greet();
    WireReply TryState();
    LineResult Judge(const WireReply& reply, int address);
    LineResult LookUp(quint16 command, const WireReply& lost, int greetings);
    quint16 Numbered(WireCommand command) const;
    QString Text(const WireReply& reply, int address) const;
    QString Reason();

    CWire m_wire;
    Now m_now;
    WireState m_state;
    QString m_stranger;       ///< why what answers is not the drive; empty: it is
    bool m_isStateOld = true; ///< to be read before the next command
    bool m_holdsControl = false;
    int m_greetings = 0;    ///< how often the line was opened
    bool m_wasSent = false; ///< the request of the last Attempt
    int m_unheard = 0;      ///< tries in a row
    std::optional<LineResult> m_down;
    Clock::time_point m_tried;
};

} // namespace krt550
