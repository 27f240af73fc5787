#include "server/rtu_server.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <modbus/modbus.h>
#include <unistd.h>

namespace krt550 {
namespace {

constexpr std::array kBauds = {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};

/// How long a line is silent behind a frame [ms]: three and a half characters, and what an adapter may hold back.
int SilenceOf(const SerialLine& line) {
    constexpr int kHeldBack = 20;
    const int bits = 1 + line.dataBits + (line.parity == 'N' ? 0 : 1) + line.stopBits;
    return kHeldBack + (3500 * bits + line.baud - 1) / line.baud;
}

} // namespace

std::optional<SerialLine> ParseSerialLine(const QString& text, QString& error) {
    const QStringList parts = text.split(QLatin1Char(','));
    SerialLine line;
    line.device = parts[0];
    if (line.device.isEmpty() || parts.size() > 3) {
        error = QStringLiteral("\"%1\" is not a serial line: DEVICE or DEVICE,19200,8E1").arg(text);
        return std::nullopt;
    }
    if (parts.size() > 1) {
        line.baud = parts[1].toInt();
        if (std::ranges::find(kBauds, line.baud) == kBauds.end()) {
            error = QStringLiteral("\"%1\" is no baud rate; there are: 1200, 2400, 4800, 9600, 19200, 38400, 57600, "
                                   "115200")
                        .arg(parts[1]);
            return std::nullopt;
        }
    }
    if (parts.size() > 2) {
        static const QRegularExpression format(QStringLiteral("^8([NEO])([12])$"));
        const QRegularExpressionMatch match = format.match(parts[2]);
        if (!match.hasMatch()) {
            error =
                QStringLiteral("\"%1\" is no character format; there are: 8N1, 8N2, 8E1, 8E2, 8O1, 8O2").arg(parts[2]);
            return std::nullopt;
        }
        line.parity = match.captured(1).at(0).toLatin1();
        line.stopBits = match.captured(2).toInt();
    }
    return line;
}

void CRtuServer::Closer::operator()(modbus_t* context) const {
    modbus_close(context);
    modbus_free(context);
}

CRtuServer::CRtuServer(CRequestHandler& handler, quint8 unit, std::function<void(const QString&)> gone)
    : m_handler(handler), m_unit(unit), m_gone(std::move(gone)), m_frames(unit) {
    m_silence.setSingleShot(true);
    connect(&m_silence, &QTimer::timeout, this, [this] {
        if (const auto request = m_frames.TakeAtSilence())
            Answer(*request);
    });
}

CRtuServer::~CRtuServer() {
    m_handler.Forget(m_master);
}

bool CRtuServer::Open(const SerialLine& line, QString& error) {
    m_context.reset(
        modbus_new_rtu(line.device.toLocal8Bit().constData(), line.baud, line.parity, line.dataBits, line.stopBits));
    if (!m_context || modbus_set_slave(m_context.get(), m_unit) != 0 || modbus_connect(m_context.get()) != 0) {
        error = QString::fromLocal8Bit(modbus_strerror(errno));
        return false;
    }
    m_silence.setInterval(SilenceOf(line));
    m_notifier = std::make_unique<QSocketNotifier>(modbus_get_socket(m_context.get()), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &CRtuServer::Read);
    return true;
}

void CRtuServer::Read() {
    std::array<char, 256> bytes{};
    const ssize_t size = read(modbus_get_socket(m_context.get()), bytes.data(), bytes.size());
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (size <= 0) {
        m_notifier->setEnabled(false);
        m_gone(size == 0 ? QStringLiteral("the device has gone") : QString::fromLocal8Bit(std::strerror(errno)));
        return;
    }
    m_frames.Append(QByteArray(bytes.data(), size));
    while (const auto request = m_frames.Take())
        Answer(*request);
    if (m_frames.IsEmpty())
        m_silence.stop();
    else
        m_silence.start();
}

void CRtuServer::Answer(const QByteArray& request) {
    const Reply reply = m_handler.Answer(m_master, std::span(reinterpret_cast<const quint8*>(request.constData()),
                                                             static_cast<std::size_t>(request.size())));
    if (reply.pdu.isEmpty())
        return;
    if (reply.delay > 0)
        QTimer::singleShot(static_cast<int>(reply.delay), this, [this, pdu = reply.pdu] { Send(pdu); });
    else
        Send(reply.pdu);
}

void CRtuServer::Send(const QByteArray& pdu) {
    const QByteArray bytes = static_cast<char>(m_unit) + pdu; // the checksum is appended by the library
    // What a line does not take is lost, as anything on a line may be: the master asks again.
    modbus_send_raw_request(m_context.get(), reinterpret_cast<const uint8_t*>(bytes.constData()),
                            static_cast<int>(bytes.size()));
}

} // namespace krt550
