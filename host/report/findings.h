#pragma once

#include "host/report/record_reader.h"

#include <QList>
#include <QStringList>

#include <utility>

namespace krt550 {

/// What a report says, in words and in the order in which it says it; how it looks is not known here.

/// "Nominal voltage", "240 V".
using Fact = std::pair<QString, QString>;

struct ValueLine {
    QString number; ///< "99.02"
    QString name;
    QString from;
    QString to;
    QString unit;
};

enum class Mark { Good, Open, Bad };

struct StepLine {
    QString title;
    Mark mark = Mark::Open;
    QString status;
};

struct BoxLine {
    QString time;
    QString text;
    QString answer;
};

struct RunFinding {
    QString title;
    QList<Fact> facts;
    Mark mark = Mark::Open;
    QString outcome;
    qint64 begin = 0; ///< in the time of the trace [ms]
    std::vector<TracePoint> trace;
    std::vector<ValueLine> identified;
};

struct FaultFinding {
    QString time;
    QString code;
    QStringList lines;
};

struct Findings {
    QString drive;
    QString date;
    QList<Fact> sessions;
    QList<Fact> driveFacts;
    QList<Fact> motorFacts;
    std::vector<StepLine> steps;
    std::vector<RunFinding> runs;
    std::vector<ValueLine> changed;    ///< as found, as left
    std::vector<ValueLine> notDefault; ///< default, as left
    std::vector<FaultFinding> faults;
    std::vector<BoxLine> boxes;
    QStringList openPoints;
};

/// What is to be said of the sessions with the drive that the last one had. There is at least one session.
Findings FindOut(const std::vector<RecordedSession>& sessions);

} // namespace krt550
