#include "host/workbench/drive_state.h"

#include "drive/fault_codes.h"
#include "modbus/register_map.h"

namespace krt550 {
namespace {

/// What the drive's own state (8.07) means to a person who wants to start it.
constexpr const char* kStates[] = {"Switching on is inhibited: open the contactor once",
                                   "Not ready to switch on",
                                   "Ready to switch on",
                                   "Ready to start",
                                   "Running",
                                   "Stopping along the ramp",
                                   "Quick stop",
                                   "Coasting to a stop",
                                   "Tripped"};
constexpr const char* kPlaces[] = {"Terminals", "Local control", "Fieldbus", "Drive-to-drive link"};
constexpr quint16 kPlaceLocal = 1;

template <std::size_t size> QString Word(const char* const (&texts)[size], std::optional<quint16> word) {
    return word && *word < size ? QString::fromLatin1(texts[*word]) : QString();
}

std::optional<quint16> Find(const QHash<quint16, quint16>& words, quint16 reg) {
    const auto found = words.find(reg);
    return found == words.end() ? std::nullopt : std::optional(*found);
}

} // namespace

QString SeenState::Text() const {
    if (silentSince)
        return QStringLiteral("No answer since %1").arg(silentSince->toString(QStringLiteral("HH:mm:ss")));
    if (Has(wire_status::kFault)) {
        const std::optional<quint16> code = Find(words, watched::kLastFault);
        return code ? QStringLiteral("Tripped: %1").arg(FaultText(*code)) : QStringLiteral("Tripped");
    }
    if (const QString text = Word(kStates, Find(words, watched::kDriveState)); !text.isEmpty())
        return text;
    if (Has(wire_status::kRunning))
        return QStringLiteral("Running");
    if (!Has(wire_status::kStopped))
        return QStringLiteral("Turning");
    return Has(wire_status::kContactorClosed) ? QStringLiteral("Ready to start") : QStringLiteral("Switched off");
}

QString SeenState::ControlText() const {
    if (Has(wire_status::kLocalControl))
        return QStringLiteral("This program, in local control");
    const std::optional<quint16> place = Find(words, watched::kControlPlace);
    if (place == kPlaceLocal)
        return QStringLiteral("Another program or panel, in local control");
    const QString text = Word(kPlaces, place);
    return text.isEmpty() ? QStringLiteral("Not this program") : text;
}

} // namespace krt550
