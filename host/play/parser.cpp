#include "host/play/parser.h"

#include "host/play/arguments.h"
#include "host/play/words.h"

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <algorithm>
#include <iterator>

namespace krt550 {
namespace {

QString WithUsage(const QString& error, const char* usage) {
    return error.isEmpty() ? error : QStringLiteral("%1; it goes: %2").arg(error, QLatin1String(usage));
}

/// Takes a closing "within N %" off the words of a condition that knows numbers.
QString TakeTolerance(const ConditionDef& def, QStringList& words, int& percent) {
    const qsizetype at = words.size() - 3;
    constexpr ConditionKind kNumbers[] = {ConditionKind::Drive, ConditionKind::Partner, ConditionKind::Plc,
                                          ConditionKind::Terminal};
    const bool knows = std::ranges::find(kNumbers, def.kind) != std::end(kNumbers);
    if (!knows || at < 0 || words[at] != QLatin1String("within") || words.last() != QLatin1String("%"))
        return {};
    bool ok = false;
    percent = words[at + 1].toInt(&ok);
    if (!ok || percent < 1 || percent > 100)
        return QStringLiteral("\"%1\" is not a number from 1 to 100").arg(words[at + 1]);
    words = words.first(at);
    return {};
}

QString ReadCondition(QStringList words, bool waiting, Condition& condition) {
    condition.negated = words.size() > 1 && words.first() == QLatin1String("no");
    if (condition.negated)
        words.removeFirst();
    if (words.isEmpty())
        return QStringLiteral("there is nothing to expect");
    if (waiting && !condition.negated && words.size() == 1 && ReadSeconds(words.first(), condition.arguments.seconds)) {
        condition.kind = ConditionKind::Seconds;
        return {};
    }
    const QString word = words.takeFirst();
    const ConditionDef* def = FindCondition(word);
    if (!def || (def->waitOnly && !waiting))
        return QStringLiteral("\"%1\" is nothing that can be %2")
            .arg(word, waiting ? QLatin1String("waited for") : QLatin1String("expected"));
    if (condition.negated && !def->negatable)
        return QStringLiteral("\"no %1\" is not possible").arg(word);
    condition.kind = def->kind;
    QString error = TakeTolerance(*def, words, condition.arguments.percent);
    if (error.isEmpty())
        error = ReadArguments(def->arguments, words, condition.arguments);
    return WithUsage(error, def->usage);
}

/// Takes a closing "within SECONDS" off the words.
QString TakeWithin(QStringList& words, double& seconds) {
    const qsizetype at = words.size() - 2;
    if (at < 0 || words[at] != QLatin1String("within"))
        return {};
    const QString word = words.takeLast();
    words.removeLast();
    return ReadSeconds(word, seconds) ? QString() : QStringLiteral("\"%1\" is not a number of seconds").arg(word);
}

QString ReadAction(QStringList words, PlayAction& action) {
    const QString word = words.takeFirst();
    const VerbDef* def = FindVerb(word);
    if (!def)
        return QStringLiteral("there is no action \"%1\"").arg(word);
    action.verb = def->verb;
    if (def->verb == Verb::Wait) {
        QString error = TakeWithin(words, action.withinSeconds);
        if (error.isEmpty())
            error = ReadCondition(words, true, action.condition);
        if (action.condition.kind == ConditionKind::Seconds)
            action.withinSeconds += action.condition.arguments.seconds;
        return error;
    }
    if (def->verb == Verb::Expect)
        return ReadCondition(words, false, action.condition);
    if (def->verb == Verb::ClearLog && words != QStringList(QStringLiteral("log")))
        return WithUsage(QStringLiteral("only the log can be cleared"), def->usage);
    if (def->verb == Verb::Close && words.size() > 1 && words.first() == QLatin1String("window"))
        words.removeFirst();
    else if (def->verb == Verb::Close && !words.isEmpty())
        return WithUsage(QStringLiteral("\"%1\" is too much").arg(words.join(QLatin1Char(' '))), def->usage);
    QString error = ReadArguments(def->arguments, words, action.arguments);
    if (error.isEmpty() && def->verb == Verb::Terminal && !action.arguments.terminal.IsInput())
        error = QStringLiteral("%1 is an output").arg(words.first());
    return WithUsage(error, def->usage);
}

} // namespace

std::optional<PlayScript> ReadPlay(QIODevice& input, const QString& fileName, QStringList& errors) {
    const qsizetype errorsBefore = errors.size();
    PlayScript script;
    script.name = QFileInfo(fileName).fileName();
    QTextStream stream(&input);
    for (int lineNumber = 1; !stream.atEnd(); ++lineNumber) {
        const QString line = stream.readLine();
        const std::optional<QStringList> words = SplitWords(line);
        PlayAction action;
        action.line = lineNumber;
        action.source = line.trimmed();
        QString error;
        if (!words)
            error = QStringLiteral("a quotation mark has no partner");
        else if (words->isEmpty())
            continue;
        else
            error = ReadAction(*words, action);
        if (error.isEmpty())
            script.actions.push_back(std::move(action));
        else
            errors.append(QStringLiteral("%1:%2: %3").arg(fileName).arg(lineNumber).arg(error));
    }
    if (errors.size() > errorsBefore)
        return std::nullopt;
    return script;
}

std::optional<PlayScript> ReadPlayFile(const QString& path, QStringList& errors) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        errors.append(QStringLiteral("%1: cannot be read: %2").arg(path, file.errorString()));
        return std::nullopt;
    }
    return ReadPlay(file, path, errors);
}

} // namespace krt550
