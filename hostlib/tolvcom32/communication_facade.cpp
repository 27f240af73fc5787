#include "hostlib/tolvcom32/communication_facade.h"

namespace krt550 {
namespace {

QString MessageOf(quint16 code) {
    switch (static_cast<CommunicationError>(code)) {
    case CommunicationError::None:
        return {};
    case CommunicationError::NoConnection:
        return QStringLiteral("No connection to the drive. Check the cable and that the control board is powered.");
    case CommunicationError::Timeout:
        return QStringLiteral("The drive did not answer in time.");
    case CommunicationError::Checksum:
        return QStringLiteral("A reply of the drive arrived damaged.");
    case CommunicationError::UnexpectedReply:
        return QStringLiteral("The drive sent a reply that does not belong to the request.");
    case CommunicationError::Refused:
        return QStringLiteral("The drive refused the request.");
    case CommunicationError::Busy:
        return QStringLiteral("The drive is busy.");
    case CommunicationError::AddressUnknown:
        return QStringLiteral("The drive does not know the requested parameter.");
    }
    return QStringLiteral("Communication error %1.").arg(code);
}

} // namespace

QString CCommunicationFacade::GetErrorMessage(quint16 code, bool detailed) {
    const QString message = MessageOf(code);
    return detailed && code != 0 ? QStringLiteral("%1 (%2)").arg(message).arg(code) : message;
}

} // namespace krt550
