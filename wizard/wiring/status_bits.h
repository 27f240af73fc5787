#pragma once

#include <span>

class QWidget;

namespace krt550 {

class CParameter;

/// Shows the bits of a status parameter that was read, the lowest first, as "1" or "0" in these statics; a null static
/// is passed over. All blank when it was not read, or without a parameter.
void ShowStatusBits(const CParameter* parameter, bool read, std::span<QWidget* const> statics);

} // namespace krt550
