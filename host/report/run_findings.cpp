#include "host/report/run_findings.h"

#include "host/report/drive_values.h"
#include "host/report/session_time.h"
#include "hostlib/tolvbo32/value_codec.h"

namespace krt550 {
namespace {

constexpr quint16 kServiceMode = 9906;

QString TitleOf(const RecordedEvent& run, const CDriveValues& values) {
    const ParameterDescription* mode = values.Find(kServiceMode);
    if (run.newWord.value_or(0) == 0)
        return QStringLiteral("Motor run by hand");
    return mode ? ShownText(*mode, *run.newWord) : QStringLiteral("Service mode %1").arg(*run.newWord);
}

bool IsRun(const RecordedEvent& event) {
    return event.kind == QLatin1String("run");
}

/// What is seen from here on need not come from the run before: at the end all values are read.
bool IsOver(const RecordedEvent& event) {
    return IsRun(event) || event.kind == QLatin1String("closed");
}

RunFinding FindRun(const RecordedSession& session, std::size_t place, const CDriveValues& values) {
    const RecordedEvent& run = session.events[place];
    RunFinding finding;
    finding.title = TitleOf(run, values);
    finding.begin = run.time;
    finding.facts.append({QStringLiteral("Begin"), DateAndTime(session, run.time)});
    if (run.hasOutcome)
        finding.facts.append({QStringLiteral("Duration"),
                              QStringLiteral("%1 s").arg(double(run.outcomeTime - run.time) / 1000, 0, 'f', 1)});
    finding.mark = run.ok ? (*run.ok ? Mark::Good : Mark::Bad) : Mark::Open;
    finding.outcome = run.hasOutcome ? run.outcome : QStringLiteral("unknown: the record ends in the run");
    if (const auto trace = session.traces.find(run.number); trace != session.traces.end())
        finding.trace = trace->second;
    for (std::size_t i = place + 1; i < session.events.size() && !IsOver(session.events[i]); ++i) {
        const RecordedEvent& event = session.events[i];
        if (event.kind == QLatin1String("change") && event.reg != kServiceMode)
            if (const auto line = values.Line(event.reg, event.oldWord, event.newWord))
                finding.identified.push_back(*line);
    }
    return finding;
}

} // namespace

std::vector<RunFinding> FindRuns(const RecordedSession& session, const CDriveValues& values) {
    std::vector<RunFinding> runs;
    for (std::size_t i = 0; i < session.events.size(); ++i)
        if (IsRun(session.events[i]))
            runs.push_back(FindRun(session, i, values));
    return runs;
}

} // namespace krt550
