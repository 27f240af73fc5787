#pragma once

#include "wizard/platform/resources.h"

namespace krt550 {

std::optional<MenuLayout> MenuOfNumber(int number);

} // namespace krt550
