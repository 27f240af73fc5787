#pragma once

#include <QString>
#include <QtGlobal>

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
};

} // namespace krt550
