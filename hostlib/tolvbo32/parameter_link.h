#pragma once

#include <QString>
#include <QtGlobal>

#include <span>

namespace krt550 {

/// How parameter objects reach the drive; the host implements it. Every parameter access of the wizard passes
/// here, so this is also where tests and tools watch or disturb it.
class CParameterLink {
public:
    virtual ~CParameterLink() = default;
    /// Reads the raw word of a register (number as in 9906). False on failure; LastErrorText then says why.
    virtual bool ReadWord(quint16 reg, quint16& word) = 0;
    /// Writes the raw word of a register. False on failure; LastErrorText then says why.
    virtual bool WriteWord(quint16 reg, quint16 word) = 0;
    /// Text of the last failure, for a person.
    virtual QString LastErrorText() const = 0;
    /// Says which registers are about to be read one after the other, in about this order; it takes the place of the
    /// former announcement, and an empty one ends it. A link that can fetch many registers in one request may fetch
    /// these from now on, and hands each value out once. It never hands out what was fetched before the announcement,
    /// or before a write or a command that the drive was given since. Other links ignore it; links in front of another
    /// one pass it on.
    virtual void Announce(std::span<const quint16> registers) { static_cast<void>(registers); }
};

} // namespace krt550
