#pragma once

#include "hostlib/export.h"

#include <QString>

namespace krt550 {

/// Communication error codes, as CHostDrive::ReadFaultBuffer returns them.
enum class CommunicationError : quint16 {
    None = 0,
    NoConnection = 1,
    Timeout = 2,
    Checksum = 3,
    UnexpectedReply = 4,
    Refused = 5,
    Busy = 6,
    AddressUnknown = 7
};

class HOSTLIB_EXPORT CCommunicationFacade {
public:
    /// Text of a communication error code, for a person; empty for 0. `detailed` adds the code in parentheses.
    static QString GetErrorMessage(quint16 code, bool detailed);
};

} // namespace krt550
