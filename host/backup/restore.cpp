#include "host/backup/restore.h"

#include "host/backup/drive_at_rest.h"
#include "host/backup/keeping.h"
#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter_link.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr quint16 kConverterType = 402;

} // namespace

CRestore::CRestore(CHostDrive& drive, CParameterLink& link, std::vector<ParameterDescription> parameters)
    : m_drive(drive), m_link(link), m_parameters(std::move(parameters)) {}

bool CRestore::Plan(const std::vector<ParameterValue>& wanted, QStringList& problems) {
    m_values.clear();
    m_leftAlone.clear();
    m_phase = Phase::Writing;
    m_next = 0;
    m_failure.clear();
    const qsizetype problemsBefore = problems.size();
    std::vector<ParameterDescription> asked;
    for (const auto& [reg, word] : wanted) {
        const ParameterDescription* parameter = FindParameter(m_parameters, reg);
        QString error;
        if (!parameter)
            m_leftAlone.push_back({reg, QStringLiteral("the drive has no such parameter")});
        else if (!AcceptsWord(*parameter, word, error))
            problems.append(error);
        else
            asked.push_back(*parameter);
    }
    const ParameterValues held = ReadValues(m_drive, m_link, asked);
    for (const auto& [reg, reason] : held.unread)
        problems.append(QStringLiteral("%1 cannot be read: %2").arg(DisplayName(reg, m_parameters), reason));
    for (const auto& [reg, word] : wanted) {
        const std::optional<quint16> old = held.Find(reg);
        if (!old || *old == word)
            continue;
        if (reg == kConverterType)
            problems.append(QStringLiteral("the values are those of another kind of drive: %1")
                                .arg(ChangeText({reg, word, old}, m_parameters)));
        QString reason;
        if (KeepingOf(*FindParameter(m_parameters, reg), &reason) == Keeping::Restored)
            m_values.push_back({{reg, old, word}, Fate::Untouched, {}});
        else
            m_leftAlone.push_back({reg, reason});
    }
    std::ranges::sort(m_values, {},
                      [](const Value& value) { return std::pair(RestoreStage(value.change.reg), value.change.reg); });
    return problems.size() == problemsBefore;
}

bool CRestore::Step() {
    if (m_phase == Phase::Writing)
        WriteNext();
    else if (m_phase == Phase::TakingBack)
        TakeBackNext();
    return m_phase != Phase::Over;
}

void CRestore::Stop(const QString& reason) {
    if (m_phase == Phase::Writing)
        Fail(reason);
}

void CRestore::WriteNext() {
    if (m_next == m_values.size()) {
        m_phase = Phase::Over;
        return;
    }
    if (const QString reason = WhyNotAtRest(m_drive, m_link, m_parameters); !reason.isEmpty()) {
        Fail(reason);
        return;
    }
    Value& value = m_values[m_next++];
    QString error;
    const std::optional<bool> holds = Write(value.change.reg, *value.change.to, error);
    if (holds == true) {
        value.fate = Fate::Written;
        return;
    }
    // A value that is neither the old nor the new one is as good as unknown.
    quint16 word = 0;
    const bool isOld = holds == false && m_link.ReadWord(value.change.reg, word) && word == *value.change.from;
    value.fate = isOld ? Fate::Untouched : Fate::Unknown;
    Fail(QStringLiteral("%1: %2").arg(ChangeText(value.change, m_parameters), error));
}

void CRestore::TakeBackNext() {
    if (m_next == 0) {
        m_phase = Phase::Over;
        return;
    }
    Value& value = m_values[--m_next];
    if (value.fate != Fate::Written && value.fate != Fate::Unknown)
        return;
    value.whyNotTakenBack = WhyNotAtRest(m_drive, m_link, m_parameters);
    if (!value.whyNotTakenBack.isEmpty()) {
        // What keeps this one from being written keeps the others too.
        for (Value& before : std::span(m_values).first(m_next))
            if (before.fate == Fate::Written)
                before.whyNotTakenBack = value.whyNotTakenBack;
        m_phase = Phase::Over;
        return;
    }
    const std::optional<bool> holds = Write(value.change.reg, *value.change.from, value.whyNotTakenBack);
    if (holds == true)
        value.fate = Fate::TakenBack;
    else if (!holds)
        value.fate = Fate::Unknown;
}

void CRestore::Fail(const QString& reason) {
    m_failure = reason;
    m_phase = Phase::TakingBack;
}

std::optional<bool> CRestore::Write(quint16 reg, quint16 word, QString& error) {
    error.clear();
    if (!m_link.WriteWord(reg, word))
        error = m_link.LastErrorText();
    // Also after a failure: an answer may have been lost behind a write that was carried out.
    quint16 held = 0;
    if (!m_link.ReadWord(reg, held)) {
        if (error.isEmpty())
            error = QStringLiteral("it could not be read back: %1").arg(m_link.LastErrorText());
        return std::nullopt;
    }
    if (held == word) {
        error.clear();
        return true;
    }
    if (error.isEmpty()) {
        const ParameterDescription* parameter = FindParameter(m_parameters, reg);
        error = QStringLiteral("the drive holds %1 afterwards")
                    .arg(parameter ? ValueText(*parameter, held) : QString::number(held));
    }
    return false;
}

QString CRestore::FateText(const Value& value) const {
    const QString text = ChangeText(value.change, m_parameters);
    const QString why =
        value.whyNotTakenBack.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(value.whyNotTakenBack);
    switch (value.fate) {
    case Fate::Written:
        return QStringLiteral("written and not taken back: %1%2").arg(text, why);
    case Fate::Unknown:
        return QStringLiteral("not known what it holds: %1%2").arg(text, why);
    case Fate::TakenBack:
        return QStringLiteral("taken back: %1").arg(text);
    case Fate::Untouched:
        break;
    }
    return QStringLiteral("not written: %1").arg(text);
}

QStringList CRestore::Describe() const {
    const auto count = [this](Fate fate) { return std::ranges::count(m_values, fate, &Value::fate); };
    const auto values = [](auto number) {
        return number == 1 ? QStringLiteral("1 value") : QStringLiteral("%1 values").arg(number);
    };
    if (HasSucceeded())
        return {QStringLiteral("%1 written and read back.").arg(values(m_values.size()))};
    QStringList lines{m_failure};
    if (count(Fate::TakenBack) > 0)
        lines.append(QStringLiteral("%1 taken back.").arg(values(count(Fate::TakenBack))));
    if (count(Fate::Written) + count(Fate::Unknown) == 0)
        lines.append(QStringLiteral("The drive holds what it held before."));
    else
        for (const Value& value : m_values)
            lines.append(FateText(value));
    return lines;
}

} // namespace krt550
