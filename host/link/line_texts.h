#pragma once

#include "host/link/wire.h"
#include "hostlib/tolvcom32/communication_facade.h"

#include <span>

namespace krt550 {

/// Code of a request's failure, as CHostDrive gives it.
CommunicationError ErrorOf(const WireReply& reply);

/// What went wrong with a request for `address`, in words for a person, without the drive's name.
QString FailureText(const WireReply& reply, int address, int answerTimeout);

/// Why what has answered the question for wire::kIdentity so is not a drive that the host can work on; empty: it is
/// one.
QString StrangerText(const WireReply& reply, std::span<const quint16> identity);

} // namespace krt550
