#include "server/request_handler.h"

#include <array>

namespace krt550 {
namespace {

using Data = std::span<const quint8>;

quint16 WordAt(Data data, std::size_t at) {
    return static_cast<quint16>(data[at] << 8 | data[at + 1]);
}

QByteArray BytesOf(WireFunction function, Data data) {
    QByteArray bytes(1, static_cast<char>(function));
    for (const quint8 byte : data)
        bytes.append(static_cast<char>(byte));
    return bytes;
}

/// The last address would lie beyond 65535.
bool EndsBeyond(quint16 first, std::size_t count) {
    return first + count > 0x10000;
}

} // namespace

QByteArray ExceptionPdu(WireFunction function, WireException exception) {
    QByteArray pdu;
    pdu.append(static_cast<char>(static_cast<quint8>(function) | 0x80));
    pdu.append(static_cast<char>(exception));
    return pdu;
}

Reply CRequestHandler::Answer(Master& master, std::span<const quint8> request) {
    if (request.empty() || m_drive.GetDrive().GetFaultModes().Has(FaultModeKind::NoAnswer))
        return {};
    m_drive.Hear(master);
    const auto function = static_cast<WireFunction>(request[0]);
    return Disturb(Handle(master, request),
                   function == WireFunction::WriteRegister || function == WireFunction::WriteRegisters);
}

/// What the fault modes of the line make of a reply.
Reply CRequestHandler::Disturb(QByteArray pdu, bool writes) {
    const CFaultModes& modes = m_drive.GetDrive().GetFaultModes();
    const quint32 lost = modes.Find(FaultModeKind::ReplyLost).value_or(0);
    if (lost > 0 && ++m_replies % lost == 0)
        return {};
    const qint64 delay = modes.Find(FaultModeKind::LateAnswer).value_or(0);
    if (delay > 0 && writes)
        m_drive.SetBusy(delay);
    return {std::move(pdu), delay};
}

QByteArray CRequestHandler::Handle(Master& master, std::span<const quint8> request) {
    const auto function = static_cast<WireFunction>(request[0]);
    const Data data = request.subspan(1);
    switch (function) {
    case WireFunction::ReadRegisters:
        return ReadRegisters(master, data);
    case WireFunction::WriteRegister:
        return WriteRegister(master, data);
    case WireFunction::WriteRegisters:
        return WriteRegisters(master, data);
    case WireFunction::Diagnostics:
        if (data.size() < 2)
            return ExceptionPdu(function, WireException::OutOfLimits);
        return WordAt(data, 0) == 0 ? BytesOf(function, data) : ExceptionPdu(function, WireException::IllegalFunction);
    case WireFunction::Encapsulated:
        return AnswerIdentification(data, m_identification);
    }
    return ExceptionPdu(function, WireException::IllegalFunction);
}

QByteArray CRequestHandler::ReadRegisters(Master& master, Data data) {
    constexpr auto kFunction = WireFunction::ReadRegisters;
    const std::size_t count = data.size() == 4 ? WordAt(data, 2) : 0;
    if (count < 1 || count > wire::kMostRead)
        return ExceptionPdu(kFunction, WireException::OutOfLimits);
    if (EndsBeyond(WordAt(data, 0), count))
        return ExceptionPdu(kFunction, WireException::UnknownRegister);
    Words words(count);
    if (const auto exception = m_drive.Read(master, WordAt(data, 0), words); exception != WireException::None)
        return ExceptionPdu(kFunction, exception);
    QByteArray pdu;
    pdu.append(static_cast<char>(kFunction)).append(static_cast<char>(2 * count));
    for (const quint16 word : words)
        pdu.append(static_cast<char>(word >> 8)).append(static_cast<char>(word & 0xFF));
    return pdu;
}

QByteArray CRequestHandler::WriteRegister(Master& master, Data data) {
    constexpr auto kFunction = WireFunction::WriteRegister;
    if (data.size() != 4)
        return ExceptionPdu(kFunction, WireException::OutOfLimits);
    const std::array word = {WordAt(data, 2)};
    const auto exception = m_drive.Write(master, WordAt(data, 0), word);
    return exception == WireException::None ? BytesOf(kFunction, data) : ExceptionPdu(kFunction, exception);
}

QByteArray CRequestHandler::WriteRegisters(Master& master, Data data) {
    constexpr auto kFunction = WireFunction::WriteRegisters;
    const std::size_t count = data.size() >= 5 ? WordAt(data, 2) : 0;
    if (count < 1 || count > wire::kMostWritten || data[4] != 2 * count || data.size() != 5 + 2 * count)
        return ExceptionPdu(kFunction, WireException::OutOfLimits);
    if (EndsBeyond(WordAt(data, 0), count))
        return ExceptionPdu(kFunction, WireException::UnknownRegister);
    Words words;
    for (std::size_t at = 5; at < data.size(); at += 2)
        words.push_back(WordAt(data, at));
    const auto exception = m_drive.Write(master, WordAt(data, 0), words);
    return exception == WireException::None ? BytesOf(kFunction, data.first(4)) : ExceptionPdu(kFunction, exception);
}

} // namespace krt550
