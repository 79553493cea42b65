// SPDX-License-Identifier: MIT
// What a chain of divisions or shifts has dropped, in two words.
#ifndef QV8NUMERIC_TESTS_REFERENCE_DROPPED_H
#define QV8NUMERIC_TESTS_REFERENCE_DROPPED_H

#include <cstdint>

namespace reference {

inline constexpr std::uint32_t kHalf = 0x80000000;

// code: the last step's remainder; 0 when there was none, kHalf when it was half the divisor, below or above otherwise.
// sticky: nonzero when an earlier step dropped anything.
struct Dropped {
    std::uint32_t code = 0;
    std::uint32_t sticky = 0;

    bool anything() const { return code != 0 || sticky != 0; }
};

// 2^31 - divisor + 2 * remainder modulo 2^32. A divisor above 2^31 is never used.
inline std::uint32_t remainder_code(std::uint32_t remainder, std::uint32_t divisor) {
    if (remainder == 0) return 0;
    return static_cast<std::uint32_t>(std::uint64_t{kHalf} - divisor + 2 * std::uint64_t{remainder});
}

// One more step has dropped something: what the last one dropped is history.
inline void next_code(Dropped& dropped, std::uint32_t code) {
    dropped.sticky |= dropped.code;
    dropped.code = code;
}

}  // namespace reference

#endif
