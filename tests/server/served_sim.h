#pragma once

#include "drive/named_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "server/request_handler.h"
#include "server/tcp_frame.h"

#include <gtest/gtest.h>

namespace krt550::test {

/// A served drive on a stepped clock, with two masters.
class ServedSim {
public:
    /// The drive is worked out for `mostMs` of the wall at a time.
    explicit ServedSim(const char* name = "sim", qint64 mostMs = 3'600'000)
        : m_time(m_clock, mostMs), m_drive(Make(name)) {}

    std::string Ask(Master& master, const char* request) {
        const QByteArray bytes = QByteArray::fromHex(request);
        m_reply = m_handler.Answer(master, BytesOf(bytes));
        return m_reply.pdu.toHex(' ').toStdString();
    }
    /// The exception of a command.
    int Command(Master& master, WireCommand command, quint8 number = 0) {
        const std::array word = {CommandWord(command, number)};
        m_served.Hear(master);
        return static_cast<int>(m_served.Write(master, wire::kCommand, word));
    }
    int SetReference(Master& master, qint32 hundredths) {
        Words words(2);
        Put32(words, 0, static_cast<quint32>(hundredths));
        return static_cast<int>(m_served.Write(master, wire::kCommandReference, words));
    }
    WireState State(Master& master) {
        Words words(wire::kStateSize);
        m_served.Hear(master);
        EXPECT_EQ(m_served.Read(master, wire::kState, words), WireException::None);
        return DecodeState(words);
    }
    /// Lets time pass, in which a master asks for the state; null: nobody does.
    void Seconds(double seconds, Master* master) {
        for (auto left = static_cast<int>(seconds * 1000); left > 0; left -= 50) {
            m_clock.Sleep(50);
            m_served.Advance();
            if (master)
                State(*master);
        }
    }

    Master a;
    Master b;
    CSteppedClock m_clock;
    CServedClock m_time;
    ClockScope m_scope{m_time};
    std::unique_ptr<CSimulatedHostDrive> m_drive;
    CServedDrive m_served{*m_drive, m_time};
    CRequestHandler m_handler{m_served, {"KRT", "P", "2", "", "N", "M", "U"}};
    Reply m_reply;

private:
    static std::unique_ptr<CSimulatedHostDrive> Make(const char* name) {
        QStringList errors;
        QString error;
        auto files = ReadDriveFiles(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.parameters"), {}, errors);
        auto drive = MakeNamedDrive(QString::fromLatin1(name), std::move(files.value()), {}, error);
        EXPECT_TRUE(drive) << error.toStdString();
        return drive;
    }
};

} // namespace krt550::test
