#pragma once

#include <QString>

#include <string_view>

namespace krt550 {

/// Text of a field. Bytes that are UTF-8 are read as such, any others as Latin-1: files of older tools keep their
/// accents, and the choice does not depend on the machine's locale.
QString TextOfField(std::string_view field);

/// Whether a stored field is this text, letter case included.
bool FieldIs(std::string_view field, const QString& text);

/// Decimal number at the start of a field: leading blanks, a sign, digits up to the first other character; 0 when there
/// is none. Numbers that are too large stay at the largest.
int NumberOfField(std::string_view field);

/// Whether the number at the start of a field is one that NumberOfField can give.
bool IsNumberInRange(std::string_view field);

/// The number wrapped to 16 bits.
inline quint16 WordOfField(std::string_view field) {
    return static_cast<quint16>(NumberOfField(field));
}

/// The word of a field where an empty one means "none" (65535).
inline quint16 WordOrNone(std::string_view field) {
    return field.empty() ? quint16{0xFFFF} : WordOfField(field);
}

/// Number with a decimal point at the start of a field; 0 when there is none. Not finite when the field says so or
/// gives more than the type holds.
float FactorOfField(std::string_view field);

/// Register number of a register text ("9906").
inline quint16 RegisterOfText(const QString& registerText) {
    return WordOfField(registerText.toStdString());
}

} // namespace krt550
