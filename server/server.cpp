#include "server/server.h"

#include "drive/named_drive.h"
#include "hostlib/tolvbo32/scaled_clock.h"
#include "server/ending.h"
#include "server/options.h"
#include "server/rtu_server.h"
#include "server/tcp_server.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <utility>

namespace krt550 {
namespace {

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

void Print(FILE* stream, const QString& text) {
    std::fputs((text + QLatin1Char('\n')).toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

int Complain(const QString& text) {
    Print(stderr, QStringLiteral("krt550sim: ") + text);
    return kExitUsage;
}

Identification IdentificationOf(CSimulatedHostDrive& drive) {
    return {"KRT",
            "KRT550-SIM",
            KRT550_VERSION,
            "",
            "KRT 550 DC drive, simulated",
            QByteArray("motor ") + drive.GetDrive().GetMotorSet().name,
            "krt550sim"};
}

/// Serves the drive until it is asked to end.
int Serve(CSimulatedHostDrive& drive, CServedClock& time, const ServerOptions& options) {
    CServedDrive served(drive, time);
    CRequestHandler handler(served, IdentificationOf(drive));
    CEnding ending(drive, [](bool stands) { QCoreApplication::exit(stands ? 0 : kExitFailure); });
    QString place;
    QString error;
    std::optional<CTcpServer> tcp;
    std::optional<CRtuServer> rtu;
    if (options.line) {
        place = options.line->device;
        rtu.emplace(handler, options.unit, [&](const QString& reason) {
            Complain(QStringLiteral("%1: %2").arg(place, reason));
            QCoreApplication::exit(kExitFailure);
        });
        if (!rtu->Open(*options.line, error))
            return Complain(QStringLiteral("%1: %2").arg(place, error));
    } else {
        tcp.emplace(handler, options.unit);
        if (!tcp->Listen(options.address, options.port, error))
            return Complain(
                QStringLiteral("%1 port %2: %3").arg(options.address.toString()).arg(options.port).arg(error));
        place = QStringLiteral("%1 port %2").arg(options.address.toString()).arg(tcp->GetPort());
        if (!options.address.isLoopback())
            Complain(QStringLiteral("warning: whoever reaches %1 can command the drive: Modbus knows no passwords")
                         .arg(place));
    }
    const CEndingSignals signals([&] {
        if (ending.HasBegun())
            return QCoreApplication::exit(kExitFailure);
        rtu.reset();
        tcp.reset();
        ending.Begin();
        if (!drive.GetDrive().IsStopped())
            Print(stdout, QStringLiteral("krt550sim: the motor is stopped first; once more ends at once"));
    });
    constexpr int kTickMs = 50;
    QTimer tick;
    bool isToldOfLoss = false;
    QObject::connect(&tick, &QTimer::timeout, &tick, [&] {
        served.Advance();
        if (time.HasLost() && !std::exchange(isToldOfLoss, true))
            Complain(QStringLiteral("warning: too slow a machine, or a halted one: the drive's time falls behind"));
    });
    tick.start(kTickMs);
    Print(stdout, QStringLiteral("krt550sim: serving %1 at %2, unit %3").arg(options.drive, place).arg(options.unit));
    return QCoreApplication::exec();
}

} // namespace

int RunServer(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    ServerOptions options = ParseServerOptions(QCoreApplication::arguments());
    switch (options.task) {
    case ServerOptions::Task::Help:
        std::fputs(ServerHelpText().toLocal8Bit().constData(), stdout);
        return 0;
    case ServerOptions::Task::Version:
        Print(stdout, QStringLiteral("krt550sim " KRT550_VERSION));
        return 0;
    case ServerOptions::Task::Map:
        std::fputs(MapText().toUtf8().constData(), stdout);
        return 0;
    case ServerOptions::Task::Complain:
        return Complain(options.complaint);
    case ServerOptions::Task::Run:
        break;
    }
    // A master, or a reader of the output, that has gone is no reason to end.
    std::signal(SIGPIPE, SIG_IGN);
    QStringList errors;
    auto files =
        ReadDriveFiles(OrBesideProgram(options.parameterFile, KRT550_PARAMETER_PATH), options.macroFile, errors);
    if (!files)
        return Complain(errors.join(QLatin1Char('\n')));
    QString error;
    CScaledClock clock(CClock::Current(), options.speed);
    CServedClock time(clock);
    const ClockScope scope(time);
    const auto drive = MakeNamedDrive(options.drive, *std::move(files), {}, error);
    return drive ? Serve(*drive, time, options) : Complain(error);
}

} // namespace krt550
