// SPDX-License-Identifier: MIT
// What a change of scale has dropped, in two words: all that rounding ever needs to know of a remainder.
#ifndef QV8NUMERIC_WIDE_DROPPED_H
#define QV8NUMERIC_WIDE_DROPPED_H

#include "wide/words.h"

namespace qv8numeric {

// The remainder code of exactly one half; codes order as the fractions they stand for.
inline constexpr uint32_t one_half = 0x80000000;

// The remainder r of a division by d in one word: 0 for r = 0, else 2^31 - d + 2r, so that r/d compares with one half
// as the code compares with one_half. For 0 < r < d <= 2^31 the code lies in 2 .. 2^32 - 2: it is never 0.
constexpr uint32_t remainder_code(uint32_t remainder, uint32_t divisor) {
    if (remainder == 0) return 0;
    return static_cast<uint32_t>(one_half - uint64_t{divisor} + 2 * uint64_t{remainder});
}

static_assert(remainder_code(1, 100000000) == 0x7A0A1F02);         // just above nothing
static_assert(remainder_code(50000000, 100000000) == one_half);    // one half
static_assert(remainder_code(99999999, 100000000) == 0x85F5E0FE);  // just below a unit

// The remainder that a code of remainder_code stands for.
constexpr uint32_t remainder_of(uint32_t code, uint32_t divisor) {
    return code == 0 ? 0 : static_cast<uint32_t>((uint64_t{code} + divisor - one_half) / 2);
}

// A chain of divisions (or shifts) drops from the lowest digit up, so the last step alone holds the digits just below
// the unit; what came before only matters by being nonzero.
struct Dropped {
    uint32_t code = 0;    // of the last step
    uint32_t sticky = 0;  // nonzero when an earlier step dropped something

    constexpr bool anything() const { return (code | sticky) != 0; }
};

// One more step of the chain.
constexpr void drop(Dropped& dropped, uint32_t code) {
    dropped.sticky |= dropped.code;
    dropped.code = code;
}

}  // namespace qv8numeric

#endif
