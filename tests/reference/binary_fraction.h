// SPDX-License-Identifier: MIT
// What the double conversions do to a vector: multiplication and division by powers of five, and shifts, each of which
// says what it dropped.
#ifndef QV8NUMERIC_TESTS_REFERENCE_BINARY_FRACTION_H
#define QV8NUMERIC_TESTS_REFERENCE_BINARY_FRACTION_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "dropped.h"
#include "limbs.h"
#include "scaling.h"

namespace reference {

inline constexpr std::uint32_t kPowersOfFive[] = {1,     5,      25,      125,     625,      3125,     15625,
                                                  78125, 390625, 1953125, 9765625, 48828125, 244140625};
inline constexpr std::int64_t kLargestPower = 12;

inline std::uint32_t power_of_five(std::int64_t k) { return kPowersOfFive[static_cast<std::size_t>(k)]; }

// A step by 5^0 is none, and leaves what the step before has dropped as it is.
inline void divide_by_five(Limbs& x, std::int64_t k, Dropped& dropped) {
    if (k != 0) divide(x, power_of_five(k), dropped);
}

// Likewise a shift by 0. The code is the 32 bits just below the point; those further down are sticky.
inline void shift_right(Limbs& x, std::int64_t count, Dropped& dropped) {
    if (count == 0) return;
    const int shift = static_cast<int>(std::min<std::int64_t>(count, 512));  // which leaves nothing
    next_code(dropped, window(x, shift - 32));
    for (int below = shift - 64; below > -32; below -= 32) dropped.sticky |= window(x, below);
    shift_right(x, shift);
}

// True when a bit left the top.
inline bool shift_left_loses(Limbs& x, std::int64_t count) {
    const bool lost = !is_zero(x) && bit_length(x) + count > 256;
    shift_left(x, static_cast<int>(std::min<std::int64_t>(count, 256)));
    return lost;
}

}  // namespace reference

#endif
