// SPDX-License-Identifier: MIT
// The fields of an IEEE 754 binary64. The conversions work on the bit pattern and in integers alone.
#ifndef QV8NUMERIC_NUMCONV_BINARY64_H
#define QV8NUMERIC_NUMCONV_BINARY64_H

#include <cstring>
#include <limits>

#include "qv8numeric.h"
#include "wide/dropped.h"
#include "wide/words.h"

namespace qv8numeric {

static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<double>::digits == 53);

inline constexpr unsigned fraction_bits = 52;
inline constexpr uint64_t implicit_bit = uint64_t{1} << fraction_bits;
inline constexpr uint64_t fraction_mask = implicit_bit - 1;
inline constexpr uint64_t sign_bit = uint64_t{1} << 63;
inline constexpr int64_t exponent_of_infinity = 0x7ff;
inline constexpr int64_t exponent_bias = 1023;

constexpr uint64_t sign_field(bool negative) { return negative ? sign_bit : 0; }
constexpr uint64_t exponent_field(int64_t exponent) { return static_cast<uint64_t>(exponent) << fraction_bits; }

// 64 bits behind a point, and whether anything follows them.
constexpr Fraction binary_fraction(uint64_t bits, uint64_t more) {
    return static_cast<Fraction>(bits >> 63 << 1 | static_cast<uint64_t>((bits << 1 | more) != 0));
}

inline void store(uint64_t bits, double& out) { std::memcpy(&out, &bits, sizeof out); }

inline NumericStatus put_infinity(bool negative, double& out) {
    store(sign_field(negative) | exponent_field(exponent_of_infinity), out);
    return negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
}

}  // namespace qv8numeric

#endif
