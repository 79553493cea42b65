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

// Where the dropped part stands between one multiple of the unit and the next: all that is left to know at the end of a
// chain, and at once after a single division.
enum class Fraction : unsigned { nothing, below_half, exactly_half, above_half };

constexpr Fraction fraction_of(const Dropped& dropped) {
    if (!dropped.anything()) return Fraction::nothing;
    if (dropped.code < one_half) return Fraction::below_half;
    return dropped.code == one_half && dropped.sticky == 0 ? Fraction::exactly_half : Fraction::above_half;
}

// remainder / divisor, by what the remainder lacks to a whole unit: nothing here overflows, and nothing branches.
constexpr Fraction fraction_of(uint64_t remainder, uint64_t divisor) {
    const uint64_t lacking = divisor - remainder;
    return static_cast<Fraction>(one_if(remainder != 0) + one_if(remainder >= lacking) + one_if(remainder > lacking));
}

constexpr Fraction fraction_of(WordPair remainder, WordPair divisor) {
    const WordPair lacking = wrapping_subtract(divisor, remainder);
    return static_cast<Fraction>(one_if(remainder != WordPair{0, 0}) + one_if(remainder >= lacking) +
                                 one_if(remainder > lacking));
}

// The fraction or, of anything but nothing, what it lacks to a whole unit; without a branch.
constexpr Fraction complement_if(bool wanted, Fraction fraction) {
    const unsigned one = one_if(wanted);  // 1, 2, 3 become 3, 2, 1
    return static_cast<Fraction>((static_cast<unsigned>(fraction) ^ 3 * one) + one);
}

// Two moves in a row, seen from the end: what the first one dropped only matters by being there. It tips what the last
// one dropped off nothing and off one half, when the last divisor is even: a whole remainder then is one half or
// differs from it by a unit at least.
constexpr Fraction joined(Fraction first, Fraction last) {
    if (first == Fraction::nothing) return last;
    return last == Fraction::nothing || last == Fraction::below_half ? Fraction::below_half : Fraction::above_half;
}

}  // namespace qv8numeric

#endif
