// SPDX-License-Identifier: MIT
// What both double conversions stand on: the fields of an IEEE 754 binary64, and the steps by powers of five.
//
// The conversions work on the bit pattern and in integers alone. 10^scale is taken as 2^scale * 5^scale, so that the
// power of two only moves the binary point and only the power of five needs arithmetic.
//
// The order of the steps is part of the result. Factors are applied 5^12 at a time, each with a shift that keeps the
// value inside the 256 bits; bits that one step drops are lost for every later one, and the rounding at the end sees
// what the last step dropped and, as a sticky word, that earlier ones dropped something.
#ifndef QV8NUMERIC_NUMCONV_BINARY64_H
#define QV8NUMERIC_NUMCONV_BINARY64_H

#include <algorithm>
#include <limits>

#include "wide/dropped.h"
#include "wide/powers.h"
#include "wide/primitives.h"

namespace qv8numeric {

// ---- The fields of a double ----

static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<double>::digits == 53);

inline constexpr unsigned fraction_bits = 52;
inline constexpr uint64_t implicit_bit = uint64_t{1} << fraction_bits;
inline constexpr uint64_t fraction_mask = implicit_bit - 1;
inline constexpr uint64_t sign_bit = uint64_t{1} << 63;
inline constexpr int64_t exponent_of_infinity = 0x7ff;
inline constexpr int64_t exponent_bias = 1023;

constexpr uint64_t sign_field(bool negative) { return negative ? sign_bit : 0; }
constexpr uint64_t exponent_field(int64_t exponent) { return static_cast<uint64_t>(exponent) << fraction_bits; }

// ---- Powers of five ----

inline constexpr int64_t largest_power_of_five = 12;

// The next power of five to apply of those that remain, and the remaining ones without it.
constexpr unsigned take_power(int64_t& remaining) {
    const int64_t power = std::min(remaining, largest_power_of_five);
    remaining -= power;
    return static_cast<unsigned>(power);
}

constexpr void multiply_by_five(ExtendedNumeric& x, unsigned power, unsigned& overflow) {
    mul_unsigned(x, power_of_five[power], x, overflow);
}

constexpr void divide_by_five(ExtendedNumeric& x, unsigned power, Dropped& dropped) {
    div_unsigned(x, negative_power_of_five[power], x, dropped.code, dropped.sticky);
}

}  // namespace qv8numeric

#endif
