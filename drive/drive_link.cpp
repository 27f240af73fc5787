#include "drive/drive_link.h"

#include "drive/registers.h"
#include "drive/simulated_drive.h"

#include <utility>

namespace krt550 {
namespace {

constexpr std::size_t kMailboxStride = 6;

quint16 RegisterOf(std::size_t mailbox, quint16 first, std::size_t offset = 0) {
    return static_cast<quint16>(first + kMailboxStride * mailbox + offset);
}

qint16 IdOf(std::size_t mailbox, CSimulatedDrive& drive) {
    return static_cast<qint16>(drive.GetRegisters().GetWord(RegisterOf(mailbox, reg::kMailboxId)));
}

} // namespace

CDriveLink::CDriveLink(CSimulatedDrive& drive, CSimulatedDrive& partner) : m_ends{{{drive}, {partner}}} {
    drive.SetNeighbour(this);
}

CDriveLink::~CDriveLink() {
    m_ends[0].drive.SetNeighbour(nullptr);
}

bool CDriveLink::IsResting() const {
    return m_ends[1].drive.IsResting();
}

void CDriveLink::Pass(qint64 milliseconds, qint64 now) {
    m_ends[1].drive.AdvanceTo(now);
    const bool up = IsUp();
    for (const std::size_t i : {std::size_t{0}, std::size_t{1}}) {
        End& from = m_ends[i];
        End& to = m_ends[1 - i];
        const CRegisterFile& registers = from.drive.GetRegisters();
        to.drive.SetOtherNode(up ? registers.GetWord(reg::kConverterNode) : quint16{0});
        for (std::size_t box = 0; box < kMailboxes; ++box) {
            qint64& elapsed = from.elapsed[box];
            elapsed += milliseconds;
            const qint64 cycle = registers.GetWord(RegisterOf(box, reg::kMailboxCycle));
            if (!up || IdOf(box, from.drive) <= 0 || elapsed < cycle)
                continue;
            elapsed = 0;
            Send(box, from, to);
        }
    }
}

bool CDriveLink::IsUp() const {
    const auto word = [this](std::size_t end, quint16 reg) { return m_ends[end].drive.GetRegisters().GetWord(reg); };
    const quint16 nodes[] = {word(0, reg::kConverterNode), word(1, reg::kConverterNode)};
    return nodes[0] != 0 && nodes[1] != 0 && nodes[0] != nodes[1] &&
           word(0, reg::kLinkBaud) == word(1, reg::kLinkBaud) && !m_ends[0].drive.GetCommanders().IsLinkLost() &&
           !m_ends[1].drive.GetCommanders().IsLinkLost();
}

void CDriveLink::Send(std::size_t mailbox, End& from, End& to) {
    const int id = IdOf(mailbox, from.drive);
    const CRegisterFile& sender = from.drive.GetRegisters();
    CRegisterFile& receiver = to.drive.GetRegisters();
    for (std::size_t box = 0; box < kMailboxes; ++box) {
        if (IdOf(box, to.drive) != -id)
            continue;
        to.drive.GetCommanders().HearLink();
        for (std::size_t i = 0; i < kValues; ++i) {
            const quint16 source = sender.GetWord(RegisterOf(mailbox, reg::kMailboxValue, i));
            const quint16 target = receiver.GetWord(RegisterOf(box, reg::kMailboxValue, i));
            const auto write = [&to](quint16 reg, quint16 word) { return to.drive.TakeWord(reg, word); };
            const quint16 errors = receiver.GetWord(reg::kLinkErrors);
            const bool taken = to.incoming.Deliver(kValues * box + i, target, sender.GetWord(source), write);
            if (!taken && errors < 0xFFFF)
                receiver.SetWord(reg::kLinkErrors, static_cast<quint16>(errors + 1));
        }
    }
}

void SetUpFollower(CSimulatedDrive& drive) {
    constexpr quint16 kByLink = 2;
    constexpr quint16 kFromFieldbus = 5;
    const MotorData& motor = drive.GetMotor().GetData();
    const std::pair<quint16, double> settings[] = {
        {reg::kConverterNode, 2},
        {reg::kCommandSource, kByLink},
        {reg::kReference1Source, kFromFieldbus},
        {reg::kRampUp, 0},
        {reg::kRampDown, 0},
        {reg::kArmatureResistance, motor.armatureResistance * 1000},
        {reg::kArmatureInductance, motor.armatureInductance * 1000},
        {reg::kSpeedSource, 1},
        {RegisterOf(0, reg::kMailboxId), -1},
        {RegisterOf(0, reg::kMailboxValue), reg::kControlWord},
        {RegisterOf(0, reg::kMailboxValue, 1), reg::kRemoteReference},
        {RegisterOf(1, reg::kMailboxId), 2},
        {RegisterOf(1, reg::kMailboxValue), reg::kStatusWord},
        {RegisterOf(1, reg::kMailboxValue, 1), reg::kSpeed},
    };
    for (const auto& [reg, value] : settings)
        drive.GetRegisters().SetNumber(reg, value);
    drive.Settle();
}

} // namespace krt550
