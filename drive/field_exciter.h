#pragma once

#include <QString>

namespace krt550 {

class CRegisterFile;

/// The field exciter as it is mounted and set, whatever the drive's parameters say of it.
struct FieldExciter {
    quint16 type = 1;  ///< number in the value list of 4.06; 0: there is none
    quint16 node = 21; ///< of an external one on the link, 1 to 32

    /// It lies on the link and answers there: its node is not the converter's (94.01) as well.
    bool Answers(const CRegisterFile& registers) const;
    /// Type that the converter finds: on its board, or at the node where it looks for one (94.08). 0: none.
    quint16 FindType(const CRegisterFile& registers) const;
    /// The type in use (99.12) is the one that is found, or the drive is to work without any.
    bool Serves(const CRegisterFile& registers) const;
};

/// Names of the types, in the order of their numbers.
QString ExciterNames();
/// By its name, and with its node where that is another one: "external35@22". False for a text that is none.
bool ParseExciter(const QString& text, FieldExciter& exciter);

} // namespace krt550
