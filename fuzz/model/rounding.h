// SPDX-License-Identifier: MIT
// What a division leaves behind, and what the seven modes make of it.
#ifndef QV8NUMERIC_FUZZ_ROUNDING_H
#define QV8NUMERIC_FUZZ_ROUNDING_H

#include <cstdint>

#include "wide.h"

namespace qv8numeric_fuzz {

// The part behind the last digit that is kept, in units of that digit.
enum class Rest { kNone, kBelowHalf, kHalf, kAboveHalf };

struct Quotient {
    Wide value;
    Rest rest;
};

// dividend / divisor, both not negative, the divisor not zero.
Quotient quotient_of(const Wide& dividend, const Wide& divisor);

// The same for a divisor of 2^bits.
Quotient shift_right(const Wide& dividend, std::int64_t bits);

// The rest seen when something nonzero lies further down than rest was taken from.
Rest with_more_below(Rest rest, bool more);

inline bool is_valid_mode(std::uint32_t mode) { return mode <= NUMERIC_ROUND_HALF_EVEN; }

// Whether the magnitude is increased by one; mode is valid.
bool rounds_away(std::uint32_t mode, bool negative, bool odd, Rest rest);

// The quotient's magnitude rounded by a valid mode.
Wide rounded(const Quotient& quotient, std::uint32_t mode, bool negative);

}  // namespace qv8numeric_fuzz

#endif
