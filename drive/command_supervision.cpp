#include "drive/command_supervision.h"

#include "drive/fault_codes.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <utility>

namespace krt550 {
namespace {

// Value lists of 30.27, 30.28 and 30.30.
constexpr quint16 kTorqueLimitStop = 1;
constexpr quint16 kCoastStop = 2;
constexpr quint16 kKeepReference = 3;
constexpr quint16 kConstantSpeed = 4;

} // namespace

Findings CCommandSupervision::Step(qint64 milliseconds, const CommandView& view, const CRegisterFile& registers) {
    Findings found;
    if (m_stopReason && !view.driving)
        found.trip = std::exchange(m_stopReason, quint16{0});
    m_constantSpeed = false;
    m_tool = view.byTool ? m_tool + milliseconds : 0;
    m_bus = view.byBus && view.on && m_busLost ? m_bus + milliseconds : 0;
    m_link = view.byLink && view.on && m_linkLost ? m_link + milliseconds : 0;
    const struct {
        qint64 silence;
        double limit; ///< [ms]; 0: not supervised
        quint16 reaction;
        quint16 code;
    } commanders[] = {
        {m_tool, registers.GetNumber(reg::kLocalSupervision, 0) * 1000, registers.GetWord(reg::kLocalLossReaction),
         kFaultConnection},
        {m_bus, registers.GetNumber(reg::kBusSupervision, 0), registers.GetWord(reg::kBusLossReaction), kFaultFieldbus},
        {m_link, registers.GetNumber(reg::kLinkSupervision, 0), registers.GetWord(reg::kLinkLossReaction), kFaultLink},
    };
    const auto isSilent = [](const auto& c) { return c.limit > 0 && static_cast<double>(c.silence) >= c.limit; };
    for (const auto& c : commanders) {
        if (!view.on || !isSilent(c) || m_stopReason || found.trip)
            continue;
        if (c.reaction == kCoastStop) {
            found.trip = c.code;
        } else if (c.reaction == kKeepReference || c.reaction == kConstantSpeed) {
            found.alarms.insert(c.code);
            m_constantSpeed = c.reaction == kConstantSpeed;
        } else {
            m_stopReason = c.code;
            m_atLimit = c.reaction == kTorqueLimitStop;
        }
    }
    m_toolGivenUp = view.byTool && (found.trip == kFaultConnection || (!view.on && isSilent(commanders[0])));
    return found;
}

} // namespace krt550
