#pragma once

#include "drive/incoming_words.h"
#include "drive/neighbour.h"

#include <array>
#include <cstddef>

namespace krt550 {

class CSimulatedDrive;

/// The drive-to-drive link between a drive and its partner. It carries their mailboxes: what one transmits (an ID above
/// 0) the other one receives under the same ID with a minus. Both need a node number of their own (94.01) and the same
/// baud rate (94.02). Words that a drive refuses are counted in its 94.11. The partner lives by the drive's time.
class CDriveLink : public CNeighbour {
public:
    /// Both are borrowed and outlive the link.
    CDriveLink(CSimulatedDrive& drive, CSimulatedDrive& partner);
    ~CDriveLink() override;
    CDriveLink(const CDriveLink&) = delete;
    CDriveLink& operator=(const CDriveLink&) = delete;

    bool IsResting() const override;
    void Pass(qint64 milliseconds, qint64 now) override;

private:
    static constexpr std::size_t kMailboxes = 4;
    static constexpr std::size_t kValues = 4;

    struct End {
        CSimulatedDrive& drive;
        std::array<qint64, kMailboxes> elapsed{}; ///< since a mailbox was sent [ms]
        CIncomingWords incoming{kMailboxes * kValues};
    };

    bool IsUp() const;
    static void Send(std::size_t mailbox, End& from, End& to);

    std::array<End, 2> m_ends;
};

/// Sets a drive up as the follower of another one: node 2, commands and speed reference by mailbox 1 of the ID 1,
/// status word and speed sent as mailbox 2 with the ID 2; no ramp of its own; its motor is identified, its encoder in
/// use.
void SetUpFollower(CSimulatedDrive& drive);

} // namespace krt550
