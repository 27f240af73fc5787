#include "wizard/texts/connection_table.h"

#include <utility>

namespace krt550 {
namespace {

quint64 SelectionKey(quint16 selector, int input, quint16 value) {
    return (static_cast<quint64>(static_cast<quint32>(input)) << 32) | (quint64{selector} << 16) | value;
}

} // namespace

void CConnectionTable::Add(Connection connection) {
    const int number = static_cast<int>(m_entries.size());
    std::vector<int>& ofSelector = m_bySelector[connection.selector];
    if (ofSelector.empty())
        m_selectors.push_back(connection.selector);
    ofSelector.push_back(number);
    for (int input = 1; input <= static_cast<int>(connection.select.size()); ++input) {
        const quint16 value = connection.SelectOf(input);
        const quint64 key = SelectionKey(connection.selector, input, value);
        if (value != kNoWord && !m_bySelection.contains(key))
            m_bySelection.insert(key, number);
    }
    m_entries.push_back(std::move(connection));
}

const std::vector<int>& CConnectionTable::EntriesOf(quint16 selector) const {
    static const std::vector<int> none;
    const auto found = m_bySelector.constFind(selector);
    return found == m_bySelector.constEnd() ? none : *found;
}

int CConnectionTable::Find(quint16 selector, int input, quint16 value) const {
    return m_bySelection.value(SelectionKey(selector, input, value), kNone);
}

} // namespace krt550
