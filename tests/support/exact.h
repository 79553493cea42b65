// SPDX-License-Identifier: MIT
// Decimal arithmetic the slow way: exact fractions of big integers, rounded once at the end. It knows nothing of words,
// limbs, remainder codes or guard digits, which is what makes it worth comparing with.
#ifndef QV8NUMERIC_TESTS_EXACT_H
#define QV8NUMERIC_TESTS_EXACT_H

#include <boost/multiprecision/cpp_int.hpp>

#include "outcome.h"

namespace qv8numeric_tests {

using boost::multiprecision::cpp_int;

// The coefficient as an integer; NaN comes back as -2^127.
cpp_int coefficient(const Numeric& value);

// The low 128 bits of a two's-complement integer.
Numeric pattern(const cpp_int& value);

const cpp_int& power_of_ten(int exponent);  // 0 <= exponent

struct Fraction {
    cpp_int numerator;
    cpp_int denominator;  // above zero
};

// value * 10^-scale
Fraction decimal(const Numeric& value, int scale);

Fraction operator+(const Fraction& a, const Fraction& b);
Fraction operator-(const Fraction& a, const Fraction& b);
Fraction operator*(const Fraction& a, const Fraction& b);
Fraction operator/(const Fraction& a, const Fraction& b);  // b is not zero
bool operator<(const Fraction& a, const Fraction& b);

enum class Dropped { kNothing, kBelowHalf, kHalf, kAboveHalf };

// A fraction cut off after some decimal places: whole units of the last place kept, and what lay below them.
struct Cut {
    bool negative;
    cpp_int magnitude;
    Dropped dropped;
};

Cut cut(const Fraction& exact, int places);

// The cut value in units of its last place, rounded by one of the seven modes.
cpp_int rounded(const Cut& cut, std::uint32_t mode);

// NUMERIC_INEXACT if the cut dropped anything, otherwise NUMERIC_OK.
NumericStatus success(const Cut& cut);

// The value with that status if it is a coefficient; otherwise NaN, with the overflow status of its sign.
Outcome in_range(const cpp_int& value, NumericStatus success);

// Round, then narrow: what an operation with this exact result owes its caller.
Outcome narrowed(const Cut& cut, std::uint32_t mode);

}  // namespace qv8numeric_tests

#endif
