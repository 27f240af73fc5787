// Any bytes as what two masters send a served drive, on TCP and on a serial line, in turn.
#include "drive/named_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "server/request_handler.h"
#include "server/rtu_frame.h"
#include "server/tcp_frame.h"

#include <QCoreApplication>

#include <cstdlib>

namespace krt550 {
namespace {

constexpr qsizetype kPiece = 16; ///< bytes that come at once
constexpr qsizetype kLargest = 4096;

const DriveFiles& Files() {
    static const DriveFiles files = [] {
        QStringList errors;
        auto read = ReadDriveFiles(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.parameters"), {}, errors);
        if (!read)
            std::abort();
        return *std::move(read);
    }();
    return files;
}

void CheckReply(quint8 function, const QByteArray& pdu) {
    const bool fits =
        !pdu.isEmpty() && pdu.size() <= kMostPduBytes && (static_cast<quint8>(pdu[0]) | 0x80) == (function | 0x80);
    if (!fits)
        std::abort();
}

void Feed(const QByteArray& bytes) {
    CSteppedClock clock;
    CServedClock time(clock);
    const ClockScope scope(time);
    QString error;
    const auto drive = MakeNamedDrive(QStringLiteral("sim"), Files(), {}, error);
    CServedDrive served(*drive, time);
    CRequestHandler handler(served, {"KRT", "P", "2", "", "N", "M", "U"});
    Master onTcp;
    Master onLine;
    QByteArray stream;
    CRtuFrames frames(1);
    const auto answer = [&](const QByteArray& request) {
        CheckReply(static_cast<quint8>(request[0]), handler.Answer(onLine, BytesOf(request)).pdu);
    };
    for (qsizetype at = 0; at < bytes.size(); at += kPiece) {
        const QByteArray piece = bytes.mid(at, kPiece);
        stream += piece;
        frames.Append(piece);
        TcpFrame frame;
        FrameStatus status;
        while ((status = TakeTcpFrame(stream, frame)) == FrameStatus::Whole)
            CheckReply(static_cast<quint8>(frame.pdu[0]), handler.Answer(onTcp, BytesOf(frame.pdu)).pdu);
        if (status == FrameStatus::Broken) {
            // No frame to be made of it: as a plain request, then.
            handler.Answer(onTcp, BytesOf(stream));
            stream.clear();
        }
        while (const auto request = frames.Take())
            answer(*request);
        clock.Sleep(10);
    }
    if (const auto request = frames.TakeAtSilence())
        answer(*request);
    CSimulatedDrive& sim = drive->GetDrive();
    if (sim.GetState() == DriveState::Operation && sim.GetControlPlace() == ControlPlace::Local &&
        sim.GetCounters().localTakes == 0)
        std::abort(); // started by nobody
}

} // namespace
} // namespace krt550

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    static const QCoreApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size <= static_cast<std::size_t>(krt550::kLargest))
        krt550::Feed(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
