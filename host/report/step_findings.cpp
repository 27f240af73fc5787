#include "host/report/step_findings.h"

#include <algorithm>
#include <iterator>

namespace krt550 {
namespace {

constexpr int kStartPage = 107;

/// A step: its page, and the service mode of its run, 0 for a step without one.
struct StepDef {
    int layout;
    quint16 mode;
    const char* title;
};

constexpr StepDef kSteps[] = {
    {100, 0, "1. Name plate data"},
    {101, 0, "2. Macro assistant"},
    {103, 2, "3. Autotuning field current controller"},
    {104, 1, "4. Autotuning armature current controller"},
    {110, 5, "5. Speed feedback assistant"},
    {111, 4, "6. Autotuning speed controller"},
    {112, 3, "7. Field weakening assistant"},
};

/// What happened in a step.
struct Seen {
    bool page = false;
    int writes = 0;
    std::optional<RecordedEvent> run; ///< the last one
};

using SeenSteps = std::array<Seen, std::size(kSteps)>;

void Look(const RecordedSession& session, SeenSteps& seen) {
    Seen* current = nullptr;
    for (const RecordedEvent& event : session.events) {
        if (event.kind == QLatin1String("page")) {
            const int layout = event.detail.toInt();
            const auto* const step =
                std::ranges::find_if(kSteps, [layout](const StepDef& def) { return def.layout == layout; });
            if (step != std::end(kSteps))
                current = &seen[std::size_t(step - kSteps)];
            else if (layout == kStartPage)
                current = nullptr;
            if (current)
                current->page = true;
        }
        const bool isSetting = event.kind == QLatin1String("write") && event.reg != 9906;
        if (current && isSetting && event.ok.value_or(false))
            ++current->writes;
        if (event.kind == QLatin1String("run"))
            for (std::size_t i = 0; i < seen.size(); ++i)
                if (kSteps[i].mode != 0 && event.newWord == kSteps[i].mode)
                    seen[i].run = event;
    }
}

QString Count(int writes) {
    return writes == 1 ? QStringLiteral("1 value written") : QStringLiteral("%1 values written").arg(writes);
}

StepLine Judge(const StepDef& step, const Seen& seen) {
    const QString title = QLatin1String(step.title);
    if (!seen.page && !seen.run)
        return {title, Mark::Open, QStringLiteral("skipped")};
    if (seen.run && seen.run->ok.value_or(false))
        return {title, Mark::Good, QStringLiteral("done")};
    if (seen.run)
        return {title, Mark::Bad,
                QStringLiteral("not completed: %1")
                    .arg(seen.run->hasOutcome ? seen.run->outcome : QStringLiteral("the record ends in the run"))};
    if (step.mode == 0)
        return {title, Mark::Good, seen.writes == 0 ? QStringLiteral("checked, nothing changed") : Count(seen.writes)};
    if (seen.writes > 0)
        return {title, Mark::Open, QStringLiteral("no run; %1 by hand").arg(Count(seen.writes))};
    return {title, Mark::Open, QStringLiteral("seen, no run")};
}

} // namespace

std::vector<StepLine> FindSteps(const std::vector<RecordedSession>& sessions) {
    SeenSteps seen;
    for (const RecordedSession& session : sessions)
        Look(session, seen);
    std::vector<StepLine> lines;
    for (std::size_t i = 0; i < seen.size(); ++i)
        lines.push_back(Judge(kSteps[i], seen[i]));
    return lines;
}

} // namespace krt550
