#include "fuzz/mutate.h"

#include <algorithm>
#include <array>
#include <random>

namespace krt550 {
namespace {

using Random = std::mt19937_64;

std::size_t Below(Random& random, std::size_t limit) {
    return limit == 0 ? 0 : random() % limit;
}

/// Numbers at which bounds are missed, written little-endian over 1, 2, 4 or 8 bytes.
void WriteEdge(Bytes& bytes, Random& random) {
    constexpr std::array<std::uint64_t, 12> kEdges = {
        0, 1, 2, 0x7F, 0x80, 0xFF, 0x7FFF, 0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0x7FFFFFFFFFFFFFFF};
    const std::size_t width = std::size_t{1} << Below(random, 4);
    const std::size_t at = Below(random, bytes.size());
    std::uint64_t edge = kEdges[Below(random, kEdges.size())];
    for (std::size_t byte = at; byte < std::min(at + width, bytes.size()); ++byte, edge >>= 8)
        bytes[byte] = static_cast<unsigned char>(edge);
}

void MutateOnce(Bytes& bytes, Random& random) {
    const std::size_t at = Below(random, bytes.size());
    const std::size_t length = 1 + Below(random, std::min<std::size_t>(64, bytes.size() - at));
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    const auto end = begin + static_cast<std::ptrdiff_t>(length);
    switch (Below(random, 16)) {
    case 0: // the end is missing
        bytes.resize(at + 1);
        break;
    case 1: // a piece is missing
        bytes.erase(begin, end);
        break;
    case 2: { // a piece comes twice
        const Bytes piece(begin, end);
        bytes.insert(begin, piece.begin(), piece.end());
        break;
    }
    case 3: // a piece is something else
        std::generate(begin, end, [&] { return static_cast<unsigned char>(random()); });
        break;
    case 4:
    case 5: { // a piece stands elsewhere too
        const std::size_t to = Below(random, bytes.size() - length + 1);
        const Bytes piece(begin, end);
        std::copy(piece.begin(), piece.end(), bytes.begin() + static_cast<std::ptrdiff_t>(to));
        break;
    }
    case 6:
    case 7:
    case 8:
    case 9:
        WriteEdge(bytes, random);
        break;
    case 10:
    case 11: // one more or less
        bytes[at] = static_cast<unsigned char>(bytes[at] + (random() % 2 ? 1 : -1));
        break;
    default: // one bit
        bytes[at] = static_cast<unsigned char>(bytes[at] ^ (1U << Below(random, 8)));
    }
}

} // namespace

Bytes Mutate(const Bytes& seed, std::uint64_t number) {
    Random random(number);
    Bytes bytes = seed;
    for (std::size_t mutation = 0, count = 1 + Below(random, 8); mutation < count && !bytes.empty(); ++mutation)
        MutateOnce(bytes, random);
    return bytes;
}

} // namespace krt550
