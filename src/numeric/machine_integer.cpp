// SPDX-License-Identifier: MIT
// A value times or divided by an int32, in place and at its own scale.
#include "wide/coefficient.h"
#include "wide/long_division.h"
#include "wide/narrowing.h"
#include "wide/rounding.h"

namespace qv8numeric {
namespace {

QV8NUMERIC_ASIDE NumericStatus multiply_magnitude(Numeric& x, int32_t m) {
    if (is_nan(x)) return NUMERIC_NAN;
    if (m < 0) return refuse(true, x);  // for every operand, also for zero: callers negate the value themselves
    const bool negative = is_negative(x);
    const ExtendedNumeric product = multiply(magnitude_of(x), static_cast<uint64_t>(m));
    // A product beyond the range is reported on one side only. One of exactly -2^127 is accepted as its pattern, NaN.
    const WordPair largest = increased_by(WordPair{UINT64_MAX >> 1, UINT64_MAX}, negative);
    if (product.word[2] != 0 || low_half(product) > largest) return refuse(true, x);
    x = with_sign(product, negative);
    return NUMERIC_OK;
}

// The mode is reported only now: with an invalid one the quotient, cut off, is in place all the same. Rounded up from
// 2^127 - 1, which a divisor of 2 can leave of a negative value, the quotient becomes the NaN pattern.
template <class Magnitude>
NumericStatus put_quotient(Magnitude quotient, Fraction dropped, bool negative, uint32_t mode, Numeric& x) {
    const NumericStatus status = round_magnitude(quotient, dropped, negative, mode);
    x = with_sign(quotient, negative);
    return status;
}

QV8NUMERIC_ASIDE NumericStatus divide_pair(Numeric& x, uint64_t divisor, uint32_t mode) {
    const LongDivision division = divide(extend(bits_of(x)), divisor);
    return put_quotient(division.quotient, division.dropped, false, mode, x);
}

QV8NUMERIC_ASIDE NumericStatus divide_magnitude(Numeric& x, const NumericInfo& info, int32_t d) {
    if (is_nan(x)) return NUMERIC_NAN;
    if (d == 0) {
        x = nan_pattern;
        return NUMERIC_NAN;
    }
    if (d == 1 || d == -1) return NUMERIC_OK;  // also by -1 the value stays as it is, sign included
    const bool negative = is_negative(x) != (d < 0);

    // The top limb is taken before the sign is removed, so a negative value is not divided as itself: callers divide
    // magnitudes. For a value that is not negative this is its magnitude.
    WordPair dividend = magnitude_of(x);
    dividend.high = uint64_t{limb(x, 3)} << 32 | (dividend.high & UINT32_MAX);
    const LongDivision division = divide(extend(dividend), negated_if(d < 0, static_cast<uint64_t>(int64_t{d})));
    return put_quotient(division.quotient, division.dropped, negative, info.rounding_mode, x);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

// The short roads are those of words, and of operands that are not negative.

extern "C" NumericStatus QV8NumericMul(Numeric* x, int32_t m) noexcept {
    if (m < 0) return multiply_magnitude(*x, m);
    if (fits_int64(*x)) {
        *x = from_bits(wrapping_multiply(bits_of(*x), static_cast<uint64_t>(m)));  // at most 2^63 * 2^31
        return NUMERIC_OK;
    }
    if (is_negative(*x)) return multiply_magnitude(*x, m);
    const ExtendedNumeric product = multiply(bits_of(*x), static_cast<uint64_t>(m));
    if (!fits(product)) return refuse(true, *x);
    *x = from_bits(low_half(product));
    return NUMERIC_OK;
}

extern "C" NumericStatus QV8NumericDiv(Numeric* x, const NumericInfo* info, int32_t d) noexcept {
    if (is_negative(*x) || d < 2) return divide_magnitude(*x, *info, d);
    const auto divisor = static_cast<uint64_t>(d);
    if (x->high != 0) return divide_pair(*x, divisor, info->rounding_mode);
    const uint64_t dividend = x->low;
    return put_quotient(dividend / divisor, fraction_of(dividend % divisor, divisor), false, info->rounding_mode, *x);
}
