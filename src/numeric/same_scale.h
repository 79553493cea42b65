// SPDX-License-Identifier: MIT
// Sum, difference and order of two coefficients of one scale, in two's complement: nothing is widened.
#ifndef QV8NUMERIC_NUMERIC_SAME_SCALE_H
#define QV8NUMERIC_NUMERIC_SAME_SCALE_H

#include "wide/narrowing.h"

namespace qv8numeric {

// A sum or difference that has overflowed, or is the NaN pattern, which is -2^127: neither happens but on a's side of
// zero.
constexpr NumericStatus settle(const Numeric& a, WordPair exact, uint64_t overflow_sign, Numeric& result) {
    const Numeric value = from_bits(exact);
    if (overflow_sign >> 63 != 0 || is_nan(value)) return refuse(is_negative(a), result);
    result = value;
    return NUMERIC_OK;
}

// The sign bit says whether a + b has overflowed: the sum's sign is neither's.
constexpr uint64_t sign_overflow(WordPair a, WordPair b, WordPair sum) {
    return (a.high ^ sum.high) & (b.high ^ sum.high);
}

// a + b, exact, or NaN and the side on which the sum left the range.
constexpr NumericStatus add_same_scale(const Numeric& a, const Numeric& b, Numeric& result) {
    const WordPair x = bits_of(a), y = bits_of(b), sum = wrapping_add(x, y);
    return settle(a, sum, sign_overflow(x, y, sum), result);
}

// a - b. It has overflowed when the signs differ and a's is lost.
constexpr NumericStatus subtract_same_scale(const Numeric& a, const Numeric& b, Numeric& result) {
    const WordPair x = bits_of(a), y = bits_of(b), difference = wrapping_subtract(x, y);
    return settle(a, difference, (x.high ^ y.high) & (x.high ^ difference.high), result);
}

// The sign of b - a: 1 when a is the smaller. Callers rely on this direction. NaN is the smallest pattern.
constexpr int32_t compare_same_scale(const Numeric& a, const Numeric& b) {
    return static_cast<int32_t>(a < b) - static_cast<int32_t>(b < a);
}

}  // namespace qv8numeric

#endif
