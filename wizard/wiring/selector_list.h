#pragma once

#include "wizard/texts/connection_table.h"

#include <QString>

#include <vector>

namespace krt550 {

class CParameter;
class CParameterGroup;
class CReadOnce;

enum class InputKind { Digital, Analogue };

/// The connections that inputs of a kind can have; empty without the wizard text file.
const CConnectionTable& ConnectionsOf(InputKind kind);

/// What an input is tied to.
struct InputUse {
    QString text;                    ///< to be shown
    CParameter* converted = nullptr; ///< analogue, with exactly one connection: the parameter that carries its value
    bool multiple = false;           ///< more than one connection
};

/// The drive's selector parameters of one kind of input, in the order of the table, with what they held when the list
/// was made. The parameters are borrowed.
class CSelectorList {
public:
    /// Knows of no selector.
    explicit CSelectorList(InputKind kind) : m_kind(kind) {}
    /// Finds each selector below `root` (not null) and has `reads` read it. One that the drive lacks is told in an
    /// error box and left out; one that cannot be read is told and stays, with nothing known about it.
    CSelectorList(InputKind kind, CParameterGroup* root, CReadOnce& reads);

    struct Selector {
        CParameter* parameter;
        quint16 reg;
        bool read;
    };
    const std::vector<Selector>& Selectors() const { return m_selectors; }
    InputKind GetKind() const { return m_kind; }

    /// The connection's name; "-" without one, string 375 with several, "?" when none was found but not every
    /// selector could be read; empty without the wizard text file. `input` counts from 1.
    InputUse UseOf(int input) const;
    /// Entry of the table by which a selector ties an input; CConnectionTable::kNone when it does not or was not read.
    static int EntryOf(const CConnectionTable& table, const Selector& selector, int input);

private:
    InputKind m_kind;
    CParameterGroup* m_root = nullptr;
    std::vector<Selector> m_selectors;
};

/// Name of the source that a digital output carries, "Other (index,bit)" for one without a name. The sign of the index
/// only marks the inversion.
QString DOConnectionText(quint16 indexWord, quint16 bitWord);
/// Whether the sign of its index inverts a digital output.
constexpr bool IsInvertedIndex(quint16 indexWord) {
    return static_cast<qint16>(indexWord) < 0;
}
/// The index without its sign, 0 to 32768.
constexpr quint16 PlainIndex(quint16 indexWord) {
    return IsInvertedIndex(indexWord) ? static_cast<quint16>(-indexWord) : indexWord;
}
/// Name of the signal that an analogue output sends, "Other (index)" for one without a name.
QString AOConnectionText(quint16 indexWord);

} // namespace krt550
