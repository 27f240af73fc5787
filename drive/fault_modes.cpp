#include "drive/fault_modes.h"

#include "drive/fault_codes.h"
#include "drive/fault_record.h"

#include <QStringList>

#include <algorithm>

namespace krt550 {
namespace {

struct ModeName {
    FaultModeKind kind;
    const char* name;
    const char* argument; ///< null: the mode needs none
    quint32 minimum;
    quint32 maximum;
    quint32 preset; ///< number when the text gives none; 0: it must give one
};

constexpr ModeName kModeNames[] = {
    {FaultModeKind::NoAnswer, "no-answer", nullptr, 0, 0, 0},
    {FaultModeKind::ReadFails, "read-fails", "REG", 100, 65535, 0},
    {FaultModeKind::WriteRefused, "write-refused", "REG", 100, 65535, 0},
    {FaultModeKind::LateAnswer, "late-answer", "MS", 1, 60000, 0},
    {FaultModeKind::OtherControl, "other-control", nullptr, 0, 0, 0},
    {FaultModeKind::ContactorStuck, "contactor-stuck", nullptr, 0, 0, 0},
    {FaultModeKind::Trip, "trip", "CODE", 1, 3999, kFaultExternal},
    {FaultModeKind::MainsLost, "mains-lost", nullptr, 0, 0, 0},
    {FaultModeKind::FieldBroken, "field-broken", nullptr, 0, 0, 0},
    {FaultModeKind::ArmatureBroken, "armature-broken", nullptr, 0, 0, 0},
    {FaultModeKind::MotorLocked, "motor-locked", nullptr, 0, 0, 0},
    {FaultModeKind::FeedbackBroken, "feedback-broken", nullptr, 0, 0, 0},
    {FaultModeKind::FeedbackReversed, "feedback-reversed", nullptr, 0, 0, 0},
    {FaultModeKind::EncoderPulses, "encoder-pulses", "N", 1, 20000, 0},
    {FaultModeKind::TachoVoltage, "tacho-voltage", "V", 1, 500, 0},
    {FaultModeKind::ShortRecord, "short-record", nullptr, 0, 0, 0},
    {FaultModeKind::TruncatedRecord, "truncated-record", "BYTES", 0, kFaultRecordSize, 0},
    {FaultModeKind::RecordError, "record-error", "CODE", 1, 65535, 0},
    {FaultModeKind::MissingRegister, "missing", "REG", 100, 65535, 0},
};

/// The mode as a person would type it: "read-fails:REG", "trip" or "trip:CODE" as "trip[:CODE]".
QString Usage(const ModeName& mode) {
    const QString name = QString::fromLatin1(mode.name);
    if (!mode.argument)
        return name;
    const QString argument = QLatin1Char(':') + QString::fromLatin1(mode.argument);
    return name + (mode.preset ? QStringLiteral("[%1]").arg(argument) : argument);
}

bool IsAboutRegister(FaultModeKind kind) {
    return kind == FaultModeKind::ReadFails || kind == FaultModeKind::WriteRefused ||
           kind == FaultModeKind::MissingRegister;
}

} // namespace

std::optional<FaultMode> ParseFaultMode(const QString& text, QString& error) {
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    const QString name = colon < 0 ? text : text.left(colon);
    const auto* const mode = std::find_if(std::begin(kModeNames), std::end(kModeNames),
                                          [&name](const ModeName& known) { return name == QLatin1String(known.name); });
    if (mode == std::end(kModeNames)) {
        error = QStringLiteral("There is no fault mode \"%1\". Known are: %2.").arg(text, FaultModeNames());
        return std::nullopt;
    }
    if (colon < 0 && (!mode->argument || mode->preset))
        return FaultMode{mode->kind, mode->preset};
    bool isNumber = false;
    const quint32 number = colon < 0 ? 0 : text.mid(colon + 1).toUInt(&isNumber);
    if (!mode->argument || !isNumber || number < mode->minimum || number > mode->maximum) {
        const QString range = mode->argument ? QStringLiteral(" with %1 from %2 to %3")
                                                   .arg(QString::fromLatin1(mode->argument))
                                                   .arg(mode->minimum)
                                                   .arg(mode->maximum)
                                             : QString();
        error = QStringLiteral("Fault mode \"%1\" must read %2%3.").arg(text, Usage(*mode), range);
        return std::nullopt;
    }
    return FaultMode{mode->kind, number};
}

QString FaultModeText(const FaultMode& mode) {
    for (const ModeName& known : kModeNames)
        if (known.kind == mode.kind)
            return QString::fromLatin1(known.name) +
                   (known.argument ? QStringLiteral(":%1").arg(mode.number) : QString());
    return {};
}

QString FaultModeNames() {
    QStringList names;
    for (const ModeName& mode : kModeNames)
        names.append(Usage(mode));
    return names.join(QLatin1String(", "));
}

void CFaultModes::Add(const FaultMode& mode) {
    std::erase_if(m_modes, [&mode](const FaultMode& other) {
        return other.kind == mode.kind && (!IsAboutRegister(mode.kind) || other.number == mode.number);
    });
    m_modes.push_back(mode);
}

void CFaultModes::Remove(const FaultMode& mode) {
    std::erase(m_modes, mode);
}

bool CFaultModes::Has(FaultModeKind kind, quint32 number) const {
    return std::ranges::find(m_modes, FaultMode{kind, number}) != m_modes.end();
}

std::optional<quint32> CFaultModes::Find(FaultModeKind kind) const {
    const auto found = std::ranges::find(m_modes, kind, &FaultMode::kind);
    return found == m_modes.end() ? std::nullopt : std::optional<quint32>(found->number);
}

} // namespace krt550
