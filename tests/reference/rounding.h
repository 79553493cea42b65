// SPDX-License-Identifier: MIT
// The rounding decision, and the range of a coefficient.
#ifndef QV8NUMERIC_TESTS_REFERENCE_ROUNDING_H
#define QV8NUMERIC_TESTS_REFERENCE_ROUNDING_H

#include <cstdint>

#include "dropped.h"
#include "limbs.h"

namespace reference {

inline bool is_valid(std::uint32_t mode) { return mode <= NUMERIC_ROUND_HALF_EVEN; }
inline bool is_valid(const NumericInfo* info) { return is_valid(info->rounding_mode); }

// Whether a magnitude is increased by one for what it has lost. The mode is valid.
inline bool rounds_away(std::uint32_t mode, bool negative, bool odd, const Dropped& dropped) {
    const bool tie = dropped.code == kHalf && dropped.sticky == 0;
    const bool above_half = dropped.code >= kHalf && !tie;
    switch (mode) {
        case NUMERIC_ROUND_UP: return dropped.anything();
        case NUMERIC_ROUND_DOWN: return false;
        case NUMERIC_ROUND_CEILING: return dropped.anything() && !negative;
        case NUMERIC_ROUND_FLOOR: return dropped.anything() && negative;
        case NUMERIC_ROUND_HALF_UP: return above_half || tie;
        case NUMERIC_ROUND_HALF_DOWN: return above_half;
        default: return above_half || (tie && odd);
    }
}

// An invalid mode is refused whether or not there is anything to round.
inline NumericStatus round(Limbs& magnitude, bool negative, std::uint32_t mode, const Dropped& dropped) {
    if (!is_valid(mode)) return NUMERIC_INVALID_ARGUMENT;
    if (rounds_away(mode, negative, (magnitude[0] & 1) != 0, dropped)) add(magnitude, 1);
    return dropped.anything() ? NUMERIC_INEXACT : NUMERIC_OK;
}

// Below 2^127. 2^127 itself is out of range for either sign, since its negative is the pattern of NaN.
inline bool in_range(const Limbs& magnitude) { return bit_length(magnitude) <= 127; }

inline NumericStatus range_status(bool negative) { return negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW; }

// Stores a rounded magnitude with its sign, or NaN when it is too large or something was lost above.
inline NumericStatus store(const Limbs& magnitude, bool negative, bool lost, NumericStatus status, Numeric* out) {
    if (lost || !in_range(magnitude)) {
        *out = kNan;
        return range_status(negative);
    }
    *out = signed_numeric(magnitude, negative);
    return status;
}

}  // namespace reference

#endif
