#include "host/report/findings.h"

#include "host/report/drive_values.h"
#include "host/report/fault_text.h"
#include "host/report/run_findings.h"
#include "host/report/session_time.h"
#include "host/report/step_findings.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr quint16 kDriveRegisters[] = {402, 401, 403, 404, 405, 406, 411, 412};
constexpr quint16 kMotorRegisters[] = {9902, 9903, 9904, 9905, 9911, 2001, 2002, 9910, 5003};
/// What a drive as delivered does not know yet.
constexpr quint16 kIdentifiedRegisters[] = {4310, 4309, 4308, 9909};

QList<Fact> SessionFacts(const std::vector<RecordedSession>& sessions) {
    QList<Fact> facts;
    for (const RecordedSession& session : sessions) {
        const qint64 end = session.events.empty() ? 0 : session.events.back().time;
        facts.append(
            {QStringLiteral("Session %1").arg(session.id),
             QStringLiteral("%1 to %2, %3").arg(DateAndTime(session, 0), TimeOfDay(session, end), session.program)});
    }
    return facts;
}

std::vector<BoxLine> Boxes(const std::vector<RecordedSession>& sessions) {
    std::vector<BoxLine> boxes;
    for (const RecordedSession& session : sessions)
        for (const RecordedEvent& event : session.events)
            if (event.kind == QLatin1String("box"))
                boxes.push_back({TimeOfDay(session, event.time), event.text,
                                 event.hasOutcome ? event.outcome : QStringLiteral("not answered")});
    return boxes;
}

std::vector<FaultFinding> Faults(const std::vector<RecordedSession>& sessions) {
    std::vector<FaultFinding> faults;
    for (const RecordedSession& session : sessions)
        for (const RecordedEvent& event : session.events)
            if (event.kind == QLatin1String("fault"))
                faults.push_back({TimeOfDay(session, event.time),
                                  event.newWord ? QString::number(*event.newWord) : QString(),
                                  FaultLines(event.data, session.parameters)});
    return faults;
}

/// What a session leaves to be looked at.
QStringList OpenPointsOf(const RecordedSession& session) {
    QStringList points;
    for (const RecordedEvent& event : session.events) {
        const bool failed = event.hasOutcome && event.ok == false;
        if (event.kind == QLatin1String("write") && failed)
            points += QStringLiteral("%1: %2 was not written: %3")
                          .arg(TimeOfDay(session, event.time), RegisterText(event.reg), event.outcome);
        if (event.kind == QLatin1String("unread") || event.kind == QLatin1String("late"))
            points += QStringLiteral("%1: %2").arg(TimeOfDay(session, event.time), event.text);
    }
    for (const RecordedGap& gap : session.gaps)
        points += QStringLiteral("The record of session %1 lacks %2 entries: %3")
                      .arg(session.id)
                      .arg(gap.entries)
                      .arg(gap.reason);
    if (session.events.empty() || session.events.back().kind != QLatin1String("end"))
        points += QStringLiteral("Session %1 has no end: the program was killed, or its record could not be written")
                      .arg(session.id);
    return points;
}

QStringList OpenPoints(const std::vector<RecordedSession>& sessions, const Findings& findings, bool areLeftRead) {
    QStringList points;
    for (const StepLine& step : findings.steps)
        if (step.mark != Mark::Good)
            points += QStringLiteral("Step %1: %2").arg(step.title, step.status);
    for (const FaultFinding& fault : findings.faults)
        points += QStringLiteral("%1: the drive has tripped, fault code %2").arg(fault.time, fault.code);
    for (const RecordedSession& session : sessions)
        points += OpenPointsOf(session);
    if (!areLeftRead)
        points += QStringLiteral("The values were not read at the end; \"as left\" is what was last known of them");
    return points;
}

} // namespace

Findings FindOut(const std::vector<RecordedSession>& all) {
    std::vector<RecordedSession> sessions = all;
    std::erase_if(sessions, [&all](const RecordedSession& session) { return session.drive != all.back().drive; });
    const CDriveValues values(sessions);
    Findings findings;
    findings.drive = sessions.back().drive;
    findings.date = Date(sessions.front());
    findings.sessions = SessionFacts(sessions);
    findings.driveFacts = values.Facts(kDriveRegisters);
    findings.motorFacts = values.Facts(kMotorRegisters);
    for (const quint16 reg : kIdentifiedRegisters)
        if (!values.IsDefault(reg))
            findings.motorFacts += values.Facts({&reg, 1});
    findings.steps = FindSteps(sessions);
    for (const RecordedSession& session : sessions)
        std::ranges::move(FindRuns(session, values), std::back_inserter(findings.runs));
    findings.changed = values.Changed();
    findings.notDefault = values.NotDefault();
    findings.faults = Faults(sessions);
    findings.boxes = Boxes(sessions);
    findings.openPoints = OpenPoints(sessions, findings, values.AreLeftRead());
    if (sessions.size() < all.size())
        findings.openPoints +=
            QStringLiteral("The record also holds sessions with other drives (%1), which are not in this report")
                .arg(all.size() - sessions.size());
    return findings;
}

} // namespace krt550
