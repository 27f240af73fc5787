#pragma once

#include "hostlib/text_files/key_index.h"
#include "hostlib/text_files/text_arena.h"
#include "hostlib/text_files/text_tokenizer.h"

#include <string_view>
#include <vector>

namespace krt550 {

/// Texts by key, one for each language column. A later text of the same key and column replaces the former one.
///
/// Nearly all lines are read and never asked for, so an entry keeps the rest of its line as it stands, and its columns
/// are found when somebody asks: the first text that is not empty is column 0; an empty field after it gives its column
/// the text of column 0.
class CTextTable {
public:
    explicit CTextTable(CTextArena& arena) : m_arena(arena) {}

    /// Reads the texts of the rest of a line. True when the key is new.
    bool Read(quint32 key, std::string_view texts);

    /// Text of a key; empty when there is none. A column that has none falls back to column 0.
    std::string_view Find(quint32 key, int column = 0) const;

    /// All keys, in the order in which they first came.
    const std::vector<quint32>& Keys() const { return m_index.Keys(); }

private:
    void Replace(std::string_view& kept, std::string_view columns);

    CTextArena& m_arena;
    CKeyIndex m_index;
    std::vector<std::string_view> m_texts; ///< by number of the key: its columns, separated by TABs, never empty
};

/// Texts of the values of registers.
class CValueTextTable {
public:
    explicit CValueTextTable(CTextArena& arena) : m_texts(arena) {}

    /// Reads a line: register, value, texts.
    void ReadLine(CTextTokenizer& fields);

    /// Text of a value; empty when there is none.
    std::string_view Find(quint16 reg, quint16 value, int column = 0) const;

    /// Values of a register that have a text, in the order of drop-down lists: grouped by (value / 16) % 17, inside a
    /// group in the order in which they first came.
    std::vector<quint16> ValuesOf(quint16 reg) const;
    bool HasValues(quint16 reg) const { return m_registers.Find(reg) != CKeyIndex::kNone; }

private:
    /// First and last entry of a register.
    struct Chain {
        quint32 first;
        quint32 last;
    };

    CTextTable m_texts;
    std::vector<quint32> m_next; ///< by entry: the next one of the same register
    CKeyIndex m_registers;
    std::vector<Chain> m_chains; ///< by number of the register
};

} // namespace krt550
