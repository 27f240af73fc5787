#pragma once

#include "wizard/texts/key_index.h"
#include "wizard/texts/text_arena.h"
#include "wizard/texts/text_tokenizer.h"

#include <QHash>

#include <span>
#include <string_view>
#include <vector>

namespace krt550 {

/// Texts by key, one for each language column. A later text of the same key and column replaces the former one.
class CTextTable {
public:
    struct Entry {
        quint32 key;
        std::string_view text; ///< of column 0
    };

    explicit CTextTable(CTextArena& arena) : m_arena(arena) {}

    /// Reads the texts of the rest of a line: the first text that is not empty is column 0; an empty field after it
    /// gives its column the text of column 0. True when the key is new.
    bool Read(quint32 key, CTextTokenizer& fields);

    /// Stores a text. True when the key is new in column 0.
    bool Put(quint32 key, int column, std::string_view text);

    /// Text of a key, or null. A column that has none falls back to column 0.
    const std::string_view* Find(quint32 key, int column = 0) const;

    /// All texts of column 0, in the order in which their keys first came.
    std::span<const Entry> Entries() const { return m_entries; }

private:
    CTextArena& m_arena;
    CKeyIndex m_index;
    std::vector<Entry> m_entries;
    QHash<quint64, std::string_view> m_otherColumns; ///< by column and key
};

/// Texts of the values of registers.
class CValueTextTable {
public:
    explicit CValueTextTable(CTextArena& arena) : m_texts(arena) {}

    /// Reads a line: register, value, texts.
    void ReadLine(CTextTokenizer& fields);

    const std::string_view* Find(quint16 reg, quint16 value, int column = 0) const;

    /// Values of a register that have a text, in the order of drop-down lists: grouped by (value / 16) % 17, inside a
    /// group in the order in which they first came.
    std::vector<quint16> ValuesOf(quint16 reg) const;
    bool HasValues(quint16 reg) const { return m_registers.Find(reg) != CKeyIndex::kNone; }

private:
    CTextTable m_texts;
    CKeyIndex m_registers;
    std::vector<std::vector<quint16>> m_values; ///< by number of the register
};

} // namespace krt550
