#pragma once

#include <span>

class QWidget;

namespace krt550 {

class CParameter;

/// Reads a status parameter once and shows its bits, the lowest first, as "1" or "0" in these statics; a null static is
/// passed over. When the read fails (shown) or without a parameter they are blank. False when the read failed.
bool ShowStatusBits(CParameter* parameter, std::span<QWidget* const> statics);

} // namespace krt550
