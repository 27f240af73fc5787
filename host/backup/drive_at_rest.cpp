#include "host/backup/drive_at_rest.h"

#include "host/backup/parameter_values.h"
#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter_link.h"
#include "hostlib/tolvbo32/value_codec.h"

namespace krt550 {
namespace {

constexpr quint16 kReadyToOperate = 2;
constexpr quint16 kRunning = 4;

struct Sign {
    quint16 reg;
    quint16 mask;
    const char* meaning;
};

constexpr Sign kSigns[] = {
    {801, kReadyToOperate | kRunning, "the drive is switched on: switch it off first"},
    {9906, 0xFFFF, "a service mode runs (99.06)"},
};

} // namespace

QString WhyNotAtRest(CHostDrive& drive, CParameterLink& link, std::span<const ParameterDescription> parameters) {
    if (!drive.RefreshState())
        return QStringLiteral("the drive does not answer: %1").arg(link.LastErrorText());
    if (!(drive.GetStatusWord() & kStatusStopped))
        return QStringLiteral("the motor turns: stop it first");
    for (const Sign& sign : kSigns) {
        quint16 word = 0;
        if (!FindParameter(parameters, sign.reg))
            continue;
        if (!link.ReadWord(sign.reg, word))
            return QStringLiteral("%1 cannot be read: %2").arg(RegisterText(sign.reg), link.LastErrorText());
        if (word & sign.mask)
            return QLatin1String(sign.meaning);
    }
    return {};
}

} // namespace krt550
