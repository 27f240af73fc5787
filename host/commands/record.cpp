#include "host/backup/parameter_values.h"
#include "host/commands/command.h"
#include "host/commands/command_drive.h"
#include "host/part.h"
#include "host/report/report_door.h"
#include "host/report/session_time.h"
#include "host/tool.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QJsonArray>

#include <algorithm>

namespace krt550 {
namespace {

constexpr CommandOption kRecordOptions[] = {kJsonOption};
constexpr CommandUsage kRecordUsage = {
    "record FILE",
    "Says what a record holds: its sessions, each with when, drive and program, how much happened in it, and its runs\n"
    "with their outcome. The record is not changed. docs/record.md describes the file.\n",
    "0 it is a record; 2 a wrong option, or a file that cannot be read or is no record.",
    kRecordOptions,
    1,
    1};

struct Count {
    const char* kind; ///< of the events; null: gaps
    const char* name;
};

constexpr Count kCounts[] = {{"write", "writes"}, {"command", "commands"}, {"change", "changes by others"},
                             {"box", "messages"}, {"fault", "faults"},     {nullptr, "gaps"}};

qint64 CountOf(const RecordedSession& session, const Count& count) {
    return count.kind ? std::ranges::count(session.events, QLatin1String(count.kind), &RecordedEvent::kind)
                      : qint64(session.gaps.size());
}

QString RunTitle(const RecordedSession& session, const RecordedEvent& run) {
    constexpr quint16 kServiceMode = 9906;
    const quint16 mode = run.newWord.value_or(0);
    if (mode == 0)
        return QStringLiteral("Motor run by hand");
    const auto described = session.parameters.find(kServiceMode);
    return described == session.parameters.end() ? QStringLiteral("Service mode %1").arg(mode)
                                                 : ShownText(described->second, mode);
}

QString RunOutcome(const RecordedEvent& run) {
    if (!run.hasOutcome)
        return QStringLiteral("unknown: the record ends in the run");
    return run.outcome.isEmpty() ? QStringLiteral("stopped") : run.outcome;
}

QString EndOf(const RecordedSession& session) {
    const bool hasEnd =
        std::ranges::find(session.events, QLatin1String("end"), &RecordedEvent::kind) != session.events.end();
    return hasEnd ? QString() : QStringLiteral(", has no end");
}

void PrintSession(const RecordedSession& session) {
    Print(QStringLiteral("session %1: %2, %3, %4%5")
              .arg(session.id)
              .arg(DateAndTime(session, 0), session.drive, session.program, EndOf(session)));
    QStringList counts{QStringLiteral("%1 values as found").arg(session.asFound.size()),
                       QStringLiteral("%1 as left").arg(session.asLeft.size())};
    for (const Count& count : kCounts)
        if (const qint64 number = CountOf(session, count); number > 0)
            counts.append(QStringLiteral("%1 %2").arg(number).arg(QLatin1String(count.name)));
    Print(QLatin1String("  ") + counts.join(QLatin1String(", ")));
    for (const RecordedEvent& event : session.events)
        if (event.kind == QLatin1String("run"))
            Print(QStringLiteral("  run at %1: %2: %3")
                      .arg(TimeOfDay(session, event.time), RunTitle(session, event), RunOutcome(event)));
}

QJsonObject SessionJson(const RecordedSession& session) {
    QJsonArray runs;
    for (const RecordedEvent& event : session.events)
        if (event.kind == QLatin1String("run"))
            runs.append(QJsonObject{{QStringLiteral("at"), Moment(session, event.time).toString(Qt::ISODateWithMs)},
                                    {QStringLiteral("title"), RunTitle(session, event)},
                                    {QStringLiteral("ok"), event.ok ? QJsonValue(*event.ok) : QJsonValue::Null},
                                    {QStringLiteral("outcome"), RunOutcome(event)}});
    QJsonObject object{{QStringLiteral("session"), session.id},
                       {QStringLiteral("started"), session.started},
                       {QStringLiteral("drive"), session.drive},
                       {QStringLiteral("program"), session.program},
                       {QStringLiteral("ended"), EndOf(session).isEmpty()},
                       {QStringLiteral("values as found"), qint64(session.asFound.size())},
                       {QStringLiteral("values as left"), qint64(session.asLeft.size())},
                       {QStringLiteral("runs"), runs}};
    for (const Count& count : kCounts)
        object[QLatin1String(count.name)] = CountOf(session, count);
    return object;
}

} // namespace

int RunRecordCommand(const QStringList& arguments) {
    const CCommandLine line(kRecordUsage, arguments);
    if (const auto end = line.GetEnd())
        return *end;
    QString error;
    auto* const door = LoadPart<decltype(krt550_report)>("report", error);
    const auto sessions = door ? door()->readRecord(line.GetArguments().first(), error) : std::nullopt;
    if (!sessions)
        return line.Complain(error, kExitUsage);
    QJsonArray array;
    for (const RecordedSession& session : *sessions) {
        if (line.Has("json"))
            array.append(SessionJson(session));
        else
            PrintSession(session);
    }
    if (line.Has("json"))
        PrintJson(array);
    return 0;
}

} // namespace krt550
