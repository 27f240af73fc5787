#pragma once

#include <QHash>
#include <QString>

#include <array>
#include <vector>

namespace krt550 {

/// A word that stands for "none" in the connection tables.
inline constexpr quint16 kNoWord = 0xFFFF;

/// A function that a terminal can be tied to: the selector parameter and what it holds then.
struct Connection {
    quint16 selector = 0;
    quint16 target = kNoWord;        ///< analogue inputs: parameter with the converted value
    std::array<quint16, 8> select{}; ///< by input: selecting value; kNoWord: not for this input
    quint16 disconnect = kNoWord;    ///< kNoWord: cannot be taken off
    QString name;

    /// Selecting value for an input counted from 1.
    quint16 SelectOf(int input) const {
        const auto at = static_cast<std::size_t>(input - 1);
        return at < select.size() ? select[at] : kNoWord;
    }
};

/// The connections of one kind of input, in file order; found in constant time.
class CConnectionTable {
public:
    static constexpr int kNone = -1;

    /// Where several entries have the same selector and selecting value for an input, the first one is found.
    void Add(Connection connection);

    bool IsEmpty() const { return m_entries.empty(); }
    const Connection& operator[](int entry) const { return m_entries[static_cast<std::size_t>(entry)]; }
    /// Distinct selector registers, in the order of their first entries.
    const std::vector<quint16>& Selectors() const { return m_selectors; }
    /// Entries of a selector.
    const std::vector<int>& EntriesOf(quint16 selector) const;
    /// The entry by which a selector with this value ties this input; kNone without one.
    int Find(quint16 selector, int input, quint16 value) const;

private:
    std::vector<Connection> m_entries;
    std::vector<quint16> m_selectors;
    QHash<quint16, std::vector<int>> m_bySelector;
    QHash<quint64, int> m_bySelection; ///< by selector, input and selecting value
};

} // namespace krt550
