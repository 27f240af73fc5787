#include "host/link/line_texts.h"

#include "modbus/register_map.h"

#include <cstring>

namespace krt550 {
namespace {

constexpr int kGatewayPath = 10;

QString Subject(int address) {
    if (address < wire::kFirstParameter || address > wire::kLastParameter)
        return QStringLiteral("this command");
    return QStringLiteral("parameter %1.%2").arg(address / 100).arg(address % 100, 2, 10, QLatin1Char('0'));
}

QString RefusalText(int exception, int address) {
    if (exception == kGatewayPath)
        return QStringLiteral("the gateway has no way to the drive");
    switch (static_cast<WireException>(exception)) {
    case WireException::UnknownRegister:
        return QStringLiteral("the drive does not have %1").arg(Subject(address));
    case WireException::OutOfLimits:
        return QStringLiteral("the drive refuses the value for %1: it is outside its limits").arg(Subject(address));
    case WireException::Refused:
        return QStringLiteral("the drive refuses %1").arg(Subject(address));
    case WireException::Busy:
        return QStringLiteral("the drive is busy, or somebody else has local control");
    case WireException::NoSuchUnit:
        return QStringLiteral("the gateway gets no answer from the drive");
    default:
        return QStringLiteral("the drive refuses the request for %1 with exception %2")
            .arg(Subject(address))
            .arg(exception);
    }
}

} // namespace

CommunicationError ErrorOf(const WireReply& reply) {
    switch (reply.outcome) {
    case WireOutcome::Done:
        return CommunicationError::None;
    case WireOutcome::Silent:
        return CommunicationError::Timeout;
    case WireOutcome::Damaged:
        return CommunicationError::Checksum;
    case WireOutcome::Unrelated:
        return CommunicationError::UnexpectedReply;
    case WireOutcome::NotConnected:
        return CommunicationError::NoConnection;
    case WireOutcome::Refused:
        break;
    }
    switch (static_cast<WireException>(reply.exception)) {
    case WireException::UnknownRegister:
        return CommunicationError::AddressUnknown;
    case WireException::Busy:
        return CommunicationError::Busy;
    case WireException::NoSuchUnit:
        return CommunicationError::Timeout;
    default:
        return CommunicationError::Refused;
    }
}

QString FailureText(const WireReply& reply, int address, int answerTimeout) {
    switch (reply.outcome) {
    case WireOutcome::Done:
        return {};
    case WireOutcome::Silent:
        return QStringLiteral("no answer within %1 ms").arg(answerTimeout);
    case WireOutcome::Damaged:
        return QStringLiteral("the answer arrived damaged");
    case WireOutcome::Unrelated:
        return QStringLiteral("the answer does not belong to the request");
    case WireOutcome::NotConnected:
        return QStringLiteral("no connection: %1").arg(QString::fromLocal8Bit(std::strerror(reply.systemError)));
    case WireOutcome::Refused:
        return RefusalText(reply.exception, address);
    }
    return {};
}

QString StrangerText(const WireReply& reply, std::span<const quint16> identity) {
    if (!reply.IsDone() || identity[wire::kSignature - wire::kIdentity] != wire::kSignatureValue)
        return QStringLiteral("what answers there is not a KRT550: register %1 does not hold %2")
            .arg(wire::kSignature)
            .arg(wire::kSignatureValue);
    const quint16 version = identity[wire::kMapVersion - wire::kIdentity];
    if (version != wire::kMapVersionValue)
        return QStringLiteral("the drive's register map has version %1, and this program knows version %2")
            .arg(version)
            .arg(wire::kMapVersionValue);
    return {};
}

} // namespace krt550
