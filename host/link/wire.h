#pragma once

#include "host/link/wire_place.h"

#include <QString>
#include <QtGlobal>

#include <memory>
#include <set>
#include <span>

struct _modbus;

namespace krt550 {

/// What became of one request on the wire.
enum class WireOutcome {
    Done,
    Refused,      ///< the drive answered with an exception
    Silent,       ///< no answer in time, or half of one
    Damaged,      ///< an answer whose checksum does not fit
    Unrelated,    ///< an answer to something else
    NotConnected, ///< there is no line, or it has just broken
};

struct WireReply {
    WireOutcome outcome = WireOutcome::Done;
    int exception = 0;   ///< of Refused: the standard's code
    int systemError = 0; ///< errno of NotConnected

    bool IsDone() const { return outcome == WireOutcome::Done; }
    /// The drive has heard the request and answered it.
    bool IsAnswered() const { return IsDone() || outcome == WireOutcome::Refused; }
};

/// One Modbus line to one unit. Each request is sent once and waited for. Belongs to one thread.
class CWire {
public:
    explicit CWire(WirePlace place);
    ~CWire();
    CWire(const CWire&) = delete;
    CWire& operator=(const CWire&) = delete;

    const WirePlace& GetPlace() const { return m_place; }
    bool IsOpen() const { return m_context != nullptr; }
    /// A request was not answered: its answer may still come, and would be taken for another one's. Synchronise is to
    /// be called before the next request whose answer matters.
    bool IsOutOfStep() const { return m_outOfStep; }

    /// A request on a line that breaks closes it.
    WireReply Open();
    void Close() { m_context.reset(); }
    /// Reads so many registers (1 to 125) from `address` on.
    WireReply Read(int address, std::span<quint16> words);
    WireReply Write(int address, quint16 word);
    /// Writes registers (1 to 123) in one request.
    WireReply Write(int address, std::span<const quint16> words);
    /// Reads as many registers from `address` on (2 to `most`) as no answer can have that may still come, and drops all
    /// answers before it. Since requests are carried out in their order, the drive has then carried out, or never got,
    /// whatever was sent before on this line.
    WireReply Synchronise(int address, int most);

private:
    template <class Request> WireReply Exchange(Request request);
    WireReply Fail(int error);
    int ReadCount(std::span<const quint8> frame) const;

    struct Free {
        void operator()(_modbus* context) const;
    };

    WirePlace m_place;
    std::unique_ptr<_modbus, Free> m_context;
    bool m_outOfStep = false;
    std::set<int> m_awaited; ///< registers of reads that were not answered
};

} // namespace krt550
