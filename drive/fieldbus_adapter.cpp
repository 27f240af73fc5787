#include "drive/fieldbus_adapter.h"

#include "drive/register_file.h"
#include "drive/registers.h"

#include <QStringList>

#include <algorithm>

namespace krt550 {
namespace {

// In the order of AdapterType.
constexpr const char* kNames[] = {"none", "profibus", "canopen", "devicenet", "controlnet", "ethernet", "profinet"};

// 98.02
constexpr quint16 kAdapter = 1;
constexpr quint16 kModbus = 2;

constexpr int kWords = 12;
constexpr quint16 kFirstParameter = 5102;
constexpr quint16 kLastParameter = 5128;

constexpr unsigned Bit(AdapterType type) {
    return 1U << static_cast<unsigned>(type);
}

constexpr unsigned kPb = Bit(AdapterType::Profibus);
constexpr unsigned kCan = Bit(AdapterType::CanOpen);
constexpr unsigned kDev = Bit(AdapterType::DeviceNet) | Bit(AdapterType::ControlNet);
constexpr unsigned kEip = Bit(AdapterType::Ethernet);
constexpr unsigned kPn = Bit(AdapterType::Profinet);
constexpr unsigned kAll = kPb | kCan | kDev | kEip | kPn;

/// Adapters that have a use for a parameter. 51.29 to 51.33 are the slot's own.
unsigned UsersOf(quint16 reg) {
    switch (reg) {
    case 5102: // node address
    case 5103: // baud rate
        return kPb | kCan | kDev;
    case 5104: // telegram type
        return kPb | kPn;
    case 5105: // words to and from the drive
    case 5106:
    case 5108: // watchdog
    case 5109: // reaction when the master is idle
    case 5110: // profile
    case 5118: // first dataset
        return kAll;
    case 5107: // byte order
    case 5119: // parameter channel
        return kPb;
    case 5120: // assemblies
    case 5121:
        return kDev | kEip;
    case 5122: // guard time and life time factor
    case 5123:
        return kCan;
    default: // addresses of the networks
        return reg >= 5111 && reg <= 5117 ? kEip | kPn : 0;
    }
}

Telegram ReadTelegram(quint16 module, AdapterType type, const CRegisterFile& registers) {
    if (module == kModbus)
        return {0, kWords, kWords};
    if (module != kAdapter || type == AdapterType::None)
        return {};
    // Datasets 1, 3, 5 and 7 to the drive and 2, 4, 6 and 8 from it have three words each.
    const int first = (std::clamp<int>(registers.GetWord(reg::kFirstDataset, 1), 1, 7) - 1) / 2 * 3;
    const auto count = [&](quint16 reg) { return std::min<int>(registers.GetWord(reg, kWords), kWords - first); };
    return {first, count(reg::kWordsToDrive), count(reg::kWordsFromDrive)};
}

} // namespace

QString AdapterNames() {
    QStringList names;
    for (const char* name : kNames)
        names.append(QLatin1String(name));
    return names.join(QLatin1String(", "));
}

bool FindAdapter(const QString& name, AdapterType& type) {
    const auto* const found =
        std::ranges::find_if(kNames, [&name](const char* known) { return name == QLatin1String(known); });
    type = static_cast<AdapterType>(found - std::begin(kNames));
    return found != std::end(kNames);
}

void CFieldbusAdapter::Read(CRegisterFile& registers) {
    const quint16 module = registers.GetWord(reg::kFieldbusModule);
    const AdapterType type = module == kAdapter ? m_mounted : AdapterType::None;
    m_telegram = ReadTelegram(module, type, registers);
    if (!IsInUse() || registers.GetWord(reg::kAdapterState) == 0)
        registers.SetWord(reg::kAdapterState, IsInUse() ? 1 : 0);
    registers.SetWord(reg::kAdapterType, static_cast<quint16>(type));
    NameParameters(type, registers);
}

void CFieldbusAdapter::NameParameters(AdapterType type, CRegisterFile& registers) {
    for (quint16 reg = kFirstParameter; reg <= kLastParameter; ++reg) {
        const ParameterDescription* described = registers.FindDescription(reg);
        if (!described)
            continue;
        const QString& name = m_names.try_emplace(reg, described->name).first->second;
        const bool used = UsersOf(reg) & Bit(type);
        registers.Rename(reg, used ? name : QStringLiteral("Fieldbus parameter %1").arg(reg % 100));
    }
}

} // namespace krt550
