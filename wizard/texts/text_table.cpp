#include "wizard/texts/text_table.h"

#include "wizard/texts/text_fields.h"

#include <algorithm>

namespace krt550 {
namespace {

quint64 ColumnKey(quint32 key, int column) {
    return (static_cast<quint64>(column) << 32) | key;
}

quint32 ValueKey(quint16 reg, quint16 value) {
    return (quint32{reg} << 16) | value;
}

} // namespace

bool CTextTable::Read(quint32 key, CTextTokenizer& fields) {
    const std::string_view first = fields.NextFilledToken();
    if (first.empty())
        return false;
    const bool isNew = Put(key, 0, first);
    for (int column = 1; fields.HasMoreTokens(); ++column) {
        const std::string_view text = fields.NextToken();
        Put(key, column, text.empty() ? first : text);
    }
    return isNew;
}

bool CTextTable::Put(quint32 key, int column, std::string_view text) {
    if (column > 0) {
        m_arena.Replace(m_otherColumns[ColumnKey(key, column)], text);
        return false;
    }
    const auto [number, isNew] = m_index.Add(key);
    if (isNew)
        m_entries.push_back({key, m_arena.Keep(text)});
    else
        m_arena.Replace(m_entries[number].text, text);
    return isNew;
}

const std::string_view* CTextTable::Find(quint32 key, int column) const {
    if (column > 0)
        if (const auto found = m_otherColumns.constFind(ColumnKey(key, column)); found != m_otherColumns.constEnd())
            return &found.value();
    const quint32 number = m_index.Find(key);
    return number == CKeyIndex::kNone ? nullptr : &m_entries[number].text;
}

void CValueTextTable::ReadLine(CTextTokenizer& fields) {
    const quint16 reg = WordOfField(fields.NextFilledToken());
    const quint16 value = WordOfField(fields.NextFilledToken());
    if (!m_texts.Read(ValueKey(reg, value), fields))
        return;
    const auto [number, isNew] = m_registers.Add(reg);
    if (isNew)
        m_values.emplace_back();
    m_values[number].push_back(value);
}

const std::string_view* CValueTextTable::Find(quint16 reg, quint16 value, int column) const {
    return m_texts.Find(ValueKey(reg, value), column);
}

std::vector<quint16> CValueTextTable::ValuesOf(quint16 reg) const {
    const quint32 number = m_registers.Find(reg);
    if (number == CKeyIndex::kNone)
        return {};
    std::vector<quint16> values = m_values[number];
    std::ranges::stable_sort(values, {}, [](quint16 value) { return (value / 16) % 17; });
    return values;
}

} // namespace krt550
