#include "drive/fault_capture.h"

#include "drive/register_file.h"
#include "drive/registers.h"
#include "drive/unit_texts.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

constexpr qint64 kMillisecondsADay = 24LL * 60 * 60 * 1000;

/// Registers behind the fields after time, code and days, in record order.
constexpr struct {
    quint16 reg;
    RecordType type;
} kSources[] = {
    {reg::kArmatureVoltage, RecordType::Signed},
    {reg::kMainsVoltage, RecordType::Unsigned},
    {reg::kArmatureCurrent, RecordType::Signed},
    {reg::kFieldCurrent, RecordType::Hundredths},
    {reg::kSpeed, RecordType::Signed},
    {reg::kSpeedReference, RecordType::Signed},
    {reg::kUsedControlWord, RecordType::Hexadecimal},
    {reg::kDiagnosis, RecordType::Unsigned},
};
static_assert(std::size(kSources) + 3 == std::tuple_size_v<FaultFields>);

RecordField Capture(const CRegisterFile& registers, quint16 reg, RecordType type) {
    const ParameterDescription* description = registers.FindDescription(reg);
    if (!description)
        return {};
    const double shown = registers.GetNumber(reg, 0) * (type == RecordType::Hundredths ? 100 : 1);
    const bool isSigned = type == RecordType::Signed || type == RecordType::Hundredths;
    const double held = std::clamp(std::round(shown), isSigned ? -32768.0 : 0.0, isSigned ? 32767.0 : 65535.0);
    return {static_cast<quint16>(static_cast<qint32>(held)), reg, type, UnitCodeOf(description->unit)};
}

} // namespace

FaultFields CaptureFault(const CRegisterFile& registers, quint16 code, qint64 milliseconds) {
    const auto timeOfDay = static_cast<quint32>(milliseconds % kMillisecondsADay * 10);
    const auto days = static_cast<quint16>(milliseconds / kMillisecondsADay);
    FaultFields fields;
    fields[0] = {timeOfDay, reg::kSystemTime, RecordType::Time, 0};
    fields[1] = {code, reg::kSystemTime, RecordType::Unsigned, 0};
    fields[2] = {days, reg::kSystemTime, RecordType::Unsigned, UnitCodeOf(QStringLiteral("d"))};
    for (std::size_t i = 0; i < std::size(kSources); ++i)
        fields[i + 3] = Capture(registers, kSources[i].reg, kSources[i].type);
    return fields;
}

} // namespace krt550
