#pragma once

#include "host/link/modbus_connection.h"
#include "tests/support/shipped_drive.h"
#include "tests/support/wire_relay.h"

#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace krt550 {

/// The real program krt550sim, on TCP or on a serial line, with a relay before it; and hosts that connect to it.
class CSimulator {
public:
    explicit CSimulator(bool serial, int speed = 1, int baud = 0, const QStringList& motor = {}) {
        QStringList arguments = {QStringLiteral("--parameters"),
                                 QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.parameters"), QStringLiteral("--speed"),
                                 QString::number(speed)};
        arguments += motor;
        if (serial) {
            m_relay = std::make_unique<CWireRelay>(CWireRelay::Serial{baud});
            arguments += {QStringLiteral("--rtu"), m_relay->DriveDevice()};
        } else {
            arguments += {QStringLiteral("--tcp"), QStringLiteral("0")};
        }
        m_process.start(QStringLiteral(KRT550_BINARY_DIR "/bin/krt550sim"), arguments);
        if (!m_process.waitForReadyRead())
            ADD_FAILURE() << m_process.readAllStandardError().toStdString();
        const auto match = QRegularExpression(QStringLiteral("port (\\d+)"))
                               .match(QString::fromUtf8(m_process.readAllStandardOutput()));
        m_port = match.captured(1).toUShort();
        if (!serial)
            m_relay = std::make_unique<CWireRelay>(m_port);
    }
    ~CSimulator() {
        m_process.kill();
        m_process.waitForFinished();
    }

    CWireRelay& GetRelay() { return *m_relay; }
    /// Lets time jump on for the hosts' links, as if all had waited.
    void JumpOn(int milliseconds) { m_jumped += milliseconds; }
    /// The drive behind the relay.
    std::unique_ptr<CModbusDrive> Connect(const QString& wizardFile = {}) {
        return ConnectTo(m_relay->DriveName(), wizardFile);
    }
    /// Past the relay; with TCP only.
    std::unique_ptr<CModbusDrive> ConnectPast() {
        return ConnectTo(QStringLiteral("modbus-tcp:127.0.0.1:%1").arg(m_port), {});
    }

private:
    std::unique_ptr<CModbusDrive> ConnectTo(const QString& name, const QString& wizardFile) {
        QString error;
        WirePlace place = ParseWirePlace(name, error).value();
        FindAddress(place, error);
        auto drive = std::make_unique<CModbusDrive>(place, ShippedParameters(), wizardFile, [this] {
            return CLine::Clock::now() + std::chrono::milliseconds(m_jumped);
        });
        EXPECT_TRUE(drive->Connect(error)) << error.toStdString();
        return drive;
    }

    std::atomic<int> m_jumped = 0; ///< [ms]
    QProcess m_process;
    quint16 m_port = 0;
    std::unique_ptr<CWireRelay> m_relay;
};

} // namespace krt550
