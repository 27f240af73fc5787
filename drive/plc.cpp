#include "drive/plc.h"

#include "drive/fieldbus_adapter.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

constexpr double kFullScale = 20000;

/// A word that is carried as a share of a speed; 0: it is carried as it is [rpm].
double ScalingOf(quint16 pointer, const CRegisterFile& registers) {
    const ParameterDescription* description = registers.FindDescription(pointer);
    const bool speed = description && description->unit == QLatin1String("rpm");
    return speed ? registers.GetNumber(reg::kSpeedScaling, 0) : 0;
}

quint16 Scaled(quint16 word, double factor) {
    const double scaled = std::round(static_cast<qint16>(word) * factor);
    return static_cast<quint16>(static_cast<qint16>(std::clamp(scaled, -32768.0, 32767.0)));
}

} // namespace

void CPlc::Send(int number, quint16 word) {
    m_sent.at(static_cast<std::size_t>(number - 1)) = word;
    m_sends = true;
}

bool CPlc::Exchange(const Telegram& telegram, CRegisterFile& registers, const WriteWord& write) {
    if (telegram.toDrive == 0)
        return false;
    quint16 errors = registers.GetWord(reg::kAdapterErrors);
    for (int i = 0; i < kWords; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const auto isIn = [&](int words) { return i >= telegram.first && i < telegram.first + words; };
        const quint16 source = registers.GetWord(static_cast<quint16>(reg::kTransmitDatasets + i));
        const double sourceScaling = ScalingOf(source, registers);
        const quint16 word = registers.GetWord(source);
        m_received[at].reset();
        if (isIn(telegram.fromDrive))
            m_received[at] = sourceScaling > 0 ? Scaled(word, kFullScale / sourceScaling) : word;
        if (!m_sends || !isIn(telegram.toDrive))
            continue;
        const quint16 target = registers.GetWord(static_cast<quint16>(reg::kReceiveDatasets + i));
        const double scaling = ScalingOf(target, registers);
        const quint16 meant = scaling > 0 ? Scaled(m_sent[at], scaling / kFullScale) : m_sent[at];
        if (!m_incoming.Deliver(at, target, meant, write) && errors < 0xFFFF)
            ++errors;
    }
    registers.SetWord(reg::kAdapterErrors, errors);
    registers.SetWord(reg::kAdapterState, m_sends ? 2 : 1);
    return m_sends;
}

} // namespace krt550
