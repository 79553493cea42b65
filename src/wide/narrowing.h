// SPDX-License-Identifier: MIT
// The door out: a magnitude of 256 bits and a sign become a Numeric, or NaN and a status that says on which side.
#ifndef QV8NUMERIC_WIDE_NARROWING_H
#define QV8NUMERIC_WIDE_NARROWING_H

#include "wide/coefficient.h"
#include "wide/extended_numeric.h"
#include "wide/rounding.h"

namespace qv8numeric {

// At most 2^127 - 1. 2^127 itself is refused for either sign: negated it would be the NaN pattern.
constexpr bool fits(const ExtendedNumeric& magnitude) {
    return ((magnitude.word[1] >> 63) | magnitude.word[2] | magnitude.word[3]) == 0;
}

// NaN, for a result beyond the range on the side of its sign.
constexpr NumericStatus refuse(bool negative, Numeric& result) {
    result = nan_pattern;
    return negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
}

// status when the magnitude fits, with the result written; otherwise refused.
constexpr NumericStatus narrow(const ExtendedNumeric& magnitude, bool negative, unsigned overflow, NumericStatus status,
                               Numeric& result) {
    if (overflow != 0 || !fits(magnitude)) return refuse(negative, result);
    result = with_sign(low_half(magnitude), negative);
    return status;
}

// The common end of an operation: to the result's scale, one rounding, and out. An invalid mode leaves the result
// untouched, also when it would not have been needed.
constexpr NumericStatus scale_round_narrow(ExtendedNumeric magnitude, bool negative, int64_t places, uint32_t mode,
                                           unsigned overflow, Numeric& result) {
    const NumericStatus status = scale_and_round(magnitude, negative, places, mode, overflow);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    return narrow(magnitude, negative, overflow, status, result);
}

}  // namespace qv8numeric

#endif
