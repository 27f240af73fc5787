#pragma once

#include "server/request_handler.h"
#include "server/rtu_frame.h"

#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <memory>

typedef struct _modbus modbus_t;

namespace krt550 {

/// A serial line, "DEVICE" or "DEVICE,19200,8E1".
struct SerialLine {
    QString device;
    int baud = 19200;
    int dataBits = 8;
    char parity = 'E'; ///< N, E, O
    int stopBits = 1;
};

/// Nothing, with the reason in `error`, for what is none.
std::optional<SerialLine> ParseSerialLine(const QString& text, QString& error);

/// Serves the master of a serial line. Silent to frames that are damaged, meant for another unit or for everybody.
class CRtuServer : public QObject {
    Q_OBJECT

public:
    /// `gone` is called when the device has vanished.
    CRtuServer(CRequestHandler& handler, quint8 unit, std::function<void(const QString&)> gone);
    ~CRtuServer() override;
    /// False, with the reason in `error`.
    bool Open(const SerialLine& line, QString& error);

private:
    struct Closer {
        void operator()(modbus_t* context) const;
    };

    void Read();
    void Answer(const QByteArray& request);
    void Send(const QByteArray& pdu);

    CRequestHandler& m_handler;
    quint8 m_unit;
    std::function<void(const QString&)> m_gone;
    std::unique_ptr<modbus_t, Closer> m_context; ///< has the device open and set up
    std::unique_ptr<QSocketNotifier> m_notifier;
    CRtuFrames m_frames;
    Master m_master;
    QTimer m_silence;
};

} // namespace krt550
