#include "hostlib/text_files/text_table.h"

#include "hostlib/text_files/text_fields.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr char kTab = '\t';

/// Number of columns after the first.
int CountTabs(std::string_view columns) {
    int count = 0;
    for (std::size_t at = columns.find(kTab); at != std::string_view::npos; at = columns.find(kTab, at + 1))
        ++count;
    return count;
}

std::string_view ColumnOf(std::string_view texts, int column) {
    CTextTokenizer columns(texts, kTab);
    const std::string_view first = columns.NextToken();
    std::string_view text = first;
    for (int at = 1; at <= column; ++at)
        text = columns.NextToken();
    return text.empty() ? first : text;
}

quint32 ValueKey(quint16 reg, quint16 value) {
    return (quint32{reg} << 16) | value;
}

} // namespace

bool CTextTable::Read(quint32 key, std::string_view texts) {
    texts.remove_prefix(std::min(texts.find_first_not_of(kTab), texts.size()));
    if (texts.empty())
        return false;
    const auto [number, isNew] = m_index.Add(key);
    if (isNew)
        m_texts.push_back(m_arena.Keep(texts));
    else
        Replace(m_texts[number], texts);
    return isNew;
}

/// Columns that the new line does not have keep their texts.
void CTextTable::Replace(std::string_view& kept, std::string_view columns) {
    const int formerCount = CountTabs(kept);
    const int count = formerCount > 0 ? CountTabs(columns) : 0;
    if (count >= formerCount) {
        m_arena.Replace(kept, columns);
        return;
    }
    std::string merged(columns);
    for (int column = count + 1; column <= formerCount; ++column)
        merged.append(1, kTab).append(ColumnOf(kept, column));
    m_arena.Replace(kept, merged);
}

std::string_view CTextTable::Find(quint32 key, int column) const {
    const quint32 number = m_index.Find(key);
    return number == CKeyIndex::kNone ? std::string_view() : ColumnOf(m_texts[number], column);
}

void CValueTextTable::ReadLine(CTextTokenizer& fields) {
    const quint16 reg = WordOfField(fields.NextFilledToken());
    const quint16 value = WordOfField(fields.NextFilledToken());
    if (!m_texts.Read(ValueKey(reg, value), fields.Rest()))
        return;
    const auto entry = static_cast<quint32>(m_next.size());
    m_next.push_back(CKeyIndex::kNone);
    const auto [number, isNew] = m_registers.Add(reg);
    if (isNew)
        m_chains.push_back({entry, entry});
    else
        m_next[std::exchange(m_chains[number].last, entry)] = entry;
}

std::string_view CValueTextTable::Find(quint16 reg, quint16 value, int column) const {
    return m_texts.Find(ValueKey(reg, value), column);
}

std::vector<quint16> CValueTextTable::ValuesOf(quint16 reg) const {
    const quint32 number = m_registers.Find(reg);
    if (number == CKeyIndex::kNone)
        return {};
    std::vector<quint16> values;
    for (quint32 entry = m_chains[number].first; entry != CKeyIndex::kNone; entry = m_next[entry])
        values.push_back(static_cast<quint16>(m_texts.Keys()[entry]));
    std::ranges::stable_sort(values, {}, [](quint16 value) { return (value / 16) % 17; });
    return values;
}

} // namespace krt550
