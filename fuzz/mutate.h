#pragma once

#include <cstdint>
#include <vector>

namespace krt550 {

using Bytes = std::vector<unsigned char>;

/// The seed with one to eight damages. The same number does the same damage each time.
Bytes Mutate(const Bytes& seed, std::uint64_t number);

} // namespace krt550
