#include "drive/unit_texts.h"

#include <algorithm>
#include <iterator>

namespace krt550 {
namespace {

/// The place in the table is the unit code.
constexpr const char* kUnits[] = {"",   "%",  "V",  "A",     "rpm",   "Hz",   "s",      "ms",  "min",
                                  "h",  "d",  "Ω",  "mΩ",    "mH",    "H",    "kW",     "kWh", "Nm",
                                  "°C", "mV", "mA", "kg·m²", "rpm/s", "%/ms", "kBit/s", "°",   "unit"};
static_assert(std::size(kUnits) <= 256, "a unit code is one byte");

} // namespace

quint8 UnitCodeOf(const QString& unit) {
    const auto* const found = std::find_if(std::begin(kUnits), std::end(kUnits),
                                           [&](const char* text) { return unit == QString::fromUtf8(text); });
    return found == std::end(kUnits) ? quint8(0) : static_cast<quint8>(found - std::begin(kUnits));
}

bool CUnitTexts::GetTextForParameterUnit(int, int, int unitCode, QString& text) const {
    const bool known = unitCode >= 0 && unitCode < static_cast<int>(std::size(kUnits));
    text = known ? QString::fromUtf8(kUnits[unitCode]) : QString();
    return known;
}

} // namespace krt550
