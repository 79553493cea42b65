// SPDX-License-Identifier: MIT
// The double conversions for every value, scale and mode, step by step: the general road behind the short ones of
// from_double.cpp and to_double.cpp, and what both directions stand on.
//
// 10^scale is taken as 2^scale * 5^scale, so that the power of two only moves the binary point and only the power of
// five needs arithmetic.
//
// The order of the steps is part of the result. Factors are applied 5^12 at a time, each with a shift that keeps the
// value inside the 256 bits; bits that one step drops are lost for every later one, and the rounding at the end sees
// what the last step dropped and, as a sticky word, that earlier ones dropped something.
#ifndef QV8NUMERIC_NUMCONV_DOUBLE_STEPS_H
#define QV8NUMERIC_NUMCONV_DOUBLE_STEPS_H

#include <algorithm>

#include "qv8numeric.h"
#include "wide/dropped.h"
#include "wide/powers.h"
#include "wide/primitives.h"

namespace qv8numeric {

// The Numeric for the double of these bits.
NumericStatus from_double_in_steps(uint64_t bits, const NumericInfo& info, Numeric& out);

// The double for a value other than zero and NaN.
NumericStatus to_double_in_steps(const Numeric& value, const NumericInfo& info, double& out);

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
