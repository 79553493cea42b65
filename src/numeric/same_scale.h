// SPDX-License-Identifier: MIT
// Sum, difference and order of two coefficients of one scale, in two's complement: nothing is widened.
#ifndef QV8NUMERIC_NUMERIC_SAME_SCALE_H
#define QV8NUMERIC_NUMERIC_SAME_SCALE_H

#include "wide/coefficient.h"

namespace qv8numeric {

// a + b + carry, exact, or NaN and the side on which the sum left the range.
constexpr NumericStatus add_coefficients(WordPair a, WordPair b, uint64_t carry, Numeric& result) {
    const uint64_t low = add_with_carry(a.low, b.low, carry);
    const uint64_t high = add_with_carry(a.high, b.high, carry);
    const Numeric sum = from_bits({high, low});
    const uint64_t carry_into_sign = (high ^ a.high ^ b.high) >> 63;
    // Two negative operands are the only way to carry out of a sum that does not fit. An exact -2^127 is NaN's pattern.
    if (carry != carry_into_sign || is_nan(sum)) {
        result = nan_pattern;
        return carry != 0 ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
    }
    result = sum;
    return NUMERIC_OK;
}

constexpr NumericStatus add_same_scale(const Numeric& a, const Numeric& b, Numeric& result) {
    return add_coefficients(bits_of(a), bits_of(b), 0, result);
}

// a - b = a + ~b + 1. The carry out is 1 exactly when nothing is borrowed, so the sides come out right as they are.
constexpr NumericStatus subtract_same_scale(const Numeric& a, const Numeric& b, Numeric& result) {
    return add_coefficients(bits_of(a), WordPair{~static_cast<uint64_t>(b.high), ~b.low}, 1, result);
}

// The sign of b - a: 1 when a is the smaller. Callers rely on this direction. NaN is the smallest pattern.
constexpr int32_t compare_same_scale(const Numeric& a, const Numeric& b) {
    if (a.high != b.high) return a.high < b.high ? 1 : -1;
    if (a.low != b.low) return a.low < b.low ? 1 : -1;
    return 0;
}

}  // namespace qv8numeric

#endif
