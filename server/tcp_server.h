#pragma once

#include "server/request_handler.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTimer>

class QTcpSocket;

namespace krt550 {

/// One master on TCP. It ends its connection when that is closed, sends what cannot be understood, leaves a frame
/// unfinished, or does not take its answers.
class CTcpConnection : public QObject {
    Q_OBJECT

public:
    static constexpr int kHalfFrameMs = 1000; ///< a frame has so long to arrive

    /// Takes the socket over.
    CTcpConnection(QTcpSocket* socket, CRequestHandler& handler, quint8 unit, QObject* parent);
    ~CTcpConnection() override;

private:
    void Read();
    void Send(const QByteArray& bytes);

    QTcpSocket* m_socket;
    CRequestHandler& m_handler;
    quint8 m_unit;
    Master m_master;
    QByteArray m_bytes;
    QTimer m_unfinished;
};

/// Serves several masters on TCP.
class CTcpServer : public QObject {
    Q_OBJECT

public:
    static constexpr int kMostConnections = 8;

    CTcpServer(CRequestHandler& handler, quint8 unit);
    /// False, with the reason in `error`.
    bool Listen(const QHostAddress& address, quint16 port, QString& error);
    /// The port that was chosen when 0 was asked for.
    quint16 GetPort() const { return m_server.serverPort(); }

private:
    void Accept();

    CRequestHandler& m_handler;
    quint8 m_unit;
    QTcpServer m_server;
};

} // namespace krt550
