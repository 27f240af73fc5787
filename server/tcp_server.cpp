#include "server/tcp_server.h"

#include "server/tcp_frame.h"

#include <QTcpSocket>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace krt550 {
namespace {

constexpr qint64 kMostUnread = 4096;        ///< of what a master sends at once [bytes]
constexpr qint64 kMostUntaken = 256 * 1024; ///< answers that a master may leave lying [bytes]
constexpr quint8 kDeviceItself = 255;       ///< unit of a device that is no gateway; 0 is meant so, too

/// A master whose cable has been pulled does not close its connection: it is found out, or it would keep its place.
void WatchForDeath(QTcpSocket& socket) {
    constexpr struct {
        int option;
        int value;
    } kWatch[] = {{TCP_KEEPIDLE, 10}, {TCP_KEEPINTVL, 5}, {TCP_KEEPCNT, 3}, {TCP_USER_TIMEOUT, 20'000}};
    socket.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    for (const auto& [option, value] : kWatch)
        setsockopt(static_cast<int>(socket.socketDescriptor()), IPPROTO_TCP, option, &value, sizeof value);
}

} // namespace

CTcpConnection::CTcpConnection(QTcpSocket* socket, CRequestHandler& handler, quint8 unit, QObject* parent)
    : QObject(parent), m_socket(socket), m_handler(handler), m_unit(unit) {
    m_socket->setParent(this);
    m_socket->setReadBufferSize(kMostUnread);
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    WatchForDeath(*m_socket);
    m_unfinished.setSingleShot(true);
    connect(&m_unfinished, &QTimer::timeout, m_socket, &QTcpSocket::abort);
    connect(m_socket, &QTcpSocket::readyRead, this, &CTcpConnection::Read);
    connect(m_socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
}

CTcpConnection::~CTcpConnection() {
    m_socket->disconnect(this);
    m_handler.Forget(m_master);
}

void CTcpConnection::Read() {
    m_bytes += m_socket->readAll();
    TcpFrame frame;
    FrameStatus status;
    while ((status = TakeTcpFrame(m_bytes, frame)) == FrameStatus::Whole) {
        m_unfinished.stop();
        Reply reply;
        if (frame.unit == m_unit || frame.unit == 0 || frame.unit == kDeviceItself)
            reply = m_handler.Answer(m_master, BytesOf(frame.pdu));
        else
            reply.pdu = ExceptionPdu(static_cast<WireFunction>(frame.pdu[0]), WireException::NoSuchUnit);
        if (reply.pdu.isEmpty())
            continue;
        frame.pdu = reply.pdu;
        if (reply.delay > 0)
            QTimer::singleShot(static_cast<int>(reply.delay), this, [this, bytes = TcpBytes(frame)] { Send(bytes); });
        else
            Send(TcpBytes(frame));
    }
    if (status == FrameStatus::Broken || m_socket->bytesToWrite() > kMostUntaken)
        m_socket->abort();
    else if (m_bytes.isEmpty())
        m_unfinished.stop();
    else if (!m_unfinished.isActive())
        m_unfinished.start(kHalfFrameMs);
}

void CTcpConnection::Send(const QByteArray& bytes) {
    m_socket->write(bytes);
}

CTcpServer::CTcpServer(CRequestHandler& handler, quint8 unit) : m_handler(handler), m_unit(unit) {
    connect(&m_server, &QTcpServer::newConnection, this, &CTcpServer::Accept);
    // Out of descriptors for a moment is no reason to accept nobody ever after.
    connect(&m_server, &QTcpServer::acceptError, this,
            [this] { QTimer::singleShot(1000, &m_server, &QTcpServer::resumeAccepting); });
}

bool CTcpServer::Listen(const QHostAddress& address, quint16 port, QString& error) {
    if (m_server.listen(address, port))
        return true;
    error = m_server.errorString();
    return false;
}

void CTcpServer::Accept() {
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        if (findChildren<CTcpConnection*>(Qt::FindDirectChildrenOnly).size() < kMostConnections)
            new CTcpConnection(socket, m_handler, m_unit, this);
        else
            delete socket;
    }
}

} // namespace krt550
