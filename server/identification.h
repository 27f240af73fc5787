#pragma once

#include <QByteArray>

#include <array>
#include <span>

namespace krt550 {

/// What the drive says of itself, by object id: manufacturer, product code, version, address of the manufacturer,
/// product name, model, name of the program.
using Identification = std::array<QByteArray, 7>;

inline constexpr quint8 kReadIdentification = 14; ///< of function code 43

/// Answers a request for identification, function code and all. `request` is what follows the function code, of any
/// length. The answer's first byte has bit 7 set when it is an exception.
QByteArray AnswerIdentification(std::span<const quint8> request, const Identification& objects);

} // namespace krt550
