#include "host/link/wire.h"

#include <modbus.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iterator>

namespace krt550 {
namespace {

constexpr quint8 kRead = 3; ///< function code
constexpr int kAnswersToDrop = 16;
constexpr int kByteTimeout = 100; ///< [ms] between two bytes of a serial answer, adapters that collect them included

modbus_t* NewContext(const WirePlace& place) {
    if (place.isSerial)
        return modbus_new_rtu(place.device.toLocal8Bit().constData(), place.baud, place.parity, place.dataBits,
                              place.stopBits);
    return modbus_new_tcp_pi(place.address.toLatin1().constData(), QByteArray::number(place.port).constData());
}

/// What ended a request on a line that is still good.
WireOutcome OutcomeOf(int error) {
    switch (error) {
    case EMBBADCRC:
        return WireOutcome::Damaged;
    case ETIMEDOUT:
        return WireOutcome::Silent;
    case EMBBADDATA:
    case EMBBADSLAVE:
    case EMBBADEXC:
    case EMBUNKEXC:
    case EMBMDATA:
        return WireOutcome::Unrelated;
    default:
        return WireOutcome::NotConnected;
    }
}

} // namespace

void CWire::Free::operator()(_modbus* context) const {
    modbus_close(context);
    modbus_free(context);
}

CWire::CWire(WirePlace place) : m_place(std::move(place)) {}

CWire::~CWire() = default;

WireReply CWire::Open() {
    m_context.reset(NewContext(m_place));
    if (!m_context)
        return {WireOutcome::NotConnected, 0, errno};
    const auto microseconds = static_cast<uint32_t>(m_place.answerTimeout) * 1000;
    modbus_set_slave(m_context.get(), m_place.unit);
    modbus_set_response_timeout(m_context.get(), microseconds / 1'000'000, microseconds % 1'000'000);
    if (m_place.isSerial)
        modbus_set_byte_timeout(m_context.get(), 0, kByteTimeout * 1000);
    if (modbus_connect(m_context.get()) != 0) {
        const int error = errno;
        Close();
        return {WireOutcome::NotConnected, 0, error};
    }
    m_outOfStep = false;
    m_awaited.clear();
    return {};
}

template <class Request> WireReply CWire::Exchange(Request request) {
    if (!m_context)
        return {WireOutcome::NotConnected, 0, ENOTCONN};
    modbus_flush(m_context.get());
    return request(m_context.get()) >= 0 ? WireReply() : Fail(errno);
}

WireReply CWire::Fail(int error) {
    if (error > MODBUS_ENOBASE && error < MODBUS_ENOBASE + MODBUS_EXCEPTION_MAX)
        return {WireOutcome::Refused, error - MODBUS_ENOBASE, 0};
    m_outOfStep = true;
    const WireOutcome outcome = OutcomeOf(error);
    if (outcome == WireOutcome::NotConnected)
        Close();
    return {outcome, 0, error};
}

WireReply CWire::Read(int address, std::span<quint16> words) {
    const auto count = static_cast<int>(words.size());
    const WireReply reply =
        Exchange([&](modbus_t* context) { return modbus_read_registers(context, address, count, words.data()); });
    if (!reply.IsAnswered())
        m_awaited.insert(count);
    return reply;
}

WireReply CWire::Write(int address, quint16 word) {
    return Exchange([&](modbus_t* context) { return modbus_write_register(context, address, word); });
}

WireReply CWire::Write(int address, std::span<const quint16> words) {
    return Exchange([&](modbus_t* context) {
        return modbus_write_registers(context, address, static_cast<int>(words.size()), words.data());
    });
}

WireReply CWire::Synchronise(int address, int most) {
    int count = 2;
    while (count < most && m_awaited.contains(count))
        ++count;
    m_awaited.insert(count);
    const WireReply reply = Exchange([&](modbus_t* context) {
        const auto high = [](int number) { return static_cast<quint8>(number >> 8); };
        const auto low = [](int number) { return static_cast<quint8>(number & 0xFF); };
        const std::array<quint8, 6> request = {low(m_place.unit), kRead,       high(address),
                                               low(address),      high(count), low(count)};
        if (modbus_send_raw_request(context, request.data(), static_cast<int>(request.size())) < 0)
            return -1;
        std::array<quint8, MODBUS_MAX_ADU_LENGTH> answer = {};
        for (int i = 0; i < kAnswersToDrop; ++i) {
            const int length = modbus_receive_confirmation(context, answer.data());
            if (length < 0 && errno != EMBBADCRC)
                return -1;
            if (length > 0 && ReadCount(std::span(answer).first(static_cast<std::size_t>(length))) == count)
                return 0;
        }
        errno = EMBBADDATA;
        return -1;
    });
    if (reply.IsDone()) {
        m_outOfStep = false;
        m_awaited.clear();
    }
    return reply;
}

/// The number of registers that an answer brings; 0 when it is none to a read.
int CWire::ReadCount(std::span<const quint8> frame) const {
    const auto answer = frame.subspan(std::min(frame.size(), std::size_t(modbus_get_header_length(m_context.get()))));
    return answer.size() >= 2 && answer[0] == kRead ? answer[1] / 2 : 0;
}

} // namespace krt550
