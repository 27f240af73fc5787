#pragma once

#include <QtGlobal>

#include <functional>
#include <utility>
#include <vector>

namespace krt550 {

/// Writes a word that has come over one of the drive's links into a register; false when the drive refuses it.
using WriteWord = std::function<bool(quint16 reg, quint16 word)>;

/// The words that come over a link, again and again, and go where their pointers point.
class CIncomingWords {
public:
    explicit CIncomingWords(std::size_t count) : m_refused(count) {}

    /// Writes word number `index` to the register `pointer`, 0 for none. False when it is refused and was not refused
    /// the time before: a PLC that repeats itself is counted once.
    bool Deliver(std::size_t index, quint16 pointer, quint16 word, const WriteWord& write) {
        const quint32 attempt = pointer * 0x10000U + word;
        if (pointer == 0 || write(pointer, word)) {
            m_refused[index] = 0;
            return true;
        }
        return std::exchange(m_refused[index], attempt) == attempt;
    }

private:
    std::vector<quint32> m_refused; ///< pointer and word of the last refusal, 0: none
};

} // namespace krt550
