#pragma once

#include "drive/incoming_words.h"

#include <array>
#include <optional>

namespace krt550 {

class CRegisterFile;
struct Telegram;

/// The PLC at the other end of the fieldbus. It exchanges the words of the datasets with the drive: twelve to the
/// drive, which go to what 90.01 to 90.12 point at, and twelve from it, what 92.01 to 92.12 point at. A speed is
/// carried as a share of full scale, 20000 for the speed in 2.29 (50.01 sets it); all else as the word in the register.
class CPlc {
public:
    static constexpr int kWords = 12;

    /// Word `number` (1 to 12) that it sends from now on. With the first one it begins to send; all others are 0.
    void Send(int number, quint16 word);
    /// One telegram either way. True when the drive has heard the PLC.
    bool Exchange(const Telegram& telegram, CRegisterFile& registers, const WriteWord& write);
    /// What came last from the drive as word `number`; nothing when the telegram does not carry it.
    std::optional<quint16> GetReceived(int number) const { return m_received.at(static_cast<std::size_t>(number - 1)); }

private:
    std::array<quint16, kWords> m_sent{};
    std::array<std::optional<quint16>, kWords> m_received{};
    CIncomingWords m_incoming{kWords};
    bool m_sends = false;
};

} // namespace krt550
