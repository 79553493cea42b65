// SPDX-License-Identifier: MIT
// A value times or divided by an int32, in place and at its own scale.
#include <bit>

#include "wide/coefficient.h"
#include "wide/reciprocal.h"
#include "wide/rounding.h"

namespace qv8numeric {
namespace {

constexpr uint64_t magnitude_of(int32_t value) { return static_cast<uint64_t>(value < 0 ? -int64_t{value} : value); }

struct Division {
    WordPair quotient;
    uint32_t remainder;
};

// Dividend and divisor are moved up until the divisor's top bit is set: the quotient stays, the remainder moves along.
constexpr Division divide(WordPair dividend, uint32_t divisor) {
    const int shift = std::countl_zero(uint64_t{divisor});  // 32 .. 62, so that 64 - shift is a valid shift as well
    const uint64_t normalized = uint64_t{divisor} << shift;
    const uint64_t reciprocal = reciprocal_of(normalized);
    const uint64_t top = dividend.high >> (64 - shift);  // below 2^62 <= normalized / 2
    const uint64_t middle = dividend.high << shift | dividend.low >> (64 - shift);
    const WordQuotient high = divide_2by1({top, middle}, normalized, reciprocal);
    const WordQuotient low = divide_2by1({high.remainder, dividend.low << shift}, normalized, reciprocal);
    return {{high.quotient, low.quotient}, static_cast<uint32_t>(low.remainder >> shift)};
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericMul(Numeric* x, int32_t m) noexcept {
    if (is_nan(*x)) return NUMERIC_NAN;
    if (m < 0) {  // refused for every operand, also for zero: callers negate the value themselves
        *x = nan_pattern;
        return NUMERIC_UNDERFLOW;
    }
    const bool negative = is_negative(*x);
    const WordPair magnitude = magnitude_of(*x);
    const auto multiplier = static_cast<uint64_t>(m);
    const WordPair low = multiply_words(magnitude.low, multiplier);
    const WordPair high = multiply_add(magnitude.high, multiplier, low.high);
    const WordPair product{high.low, low.low};
    // A product beyond the range is reported on one side only. One of exactly -2^127 is accepted as its pattern, NaN.
    const WordPair largest = negative ? WordPair{uint64_t{1} << 63, 0} : WordPair{UINT64_MAX >> 1, UINT64_MAX};
    if (high.high != 0 || product > largest) {
        *x = nan_pattern;
        return NUMERIC_UNDERFLOW;
    }
    *x = with_sign(product, negative);
    return NUMERIC_OK;
}

extern "C" NumericStatus QV8NumericDiv(Numeric* x, const NumericInfo* info, int32_t d) noexcept {
    if (is_nan(*x)) return NUMERIC_NAN;
    if (d == 0) {
        *x = nan_pattern;
        return NUMERIC_NAN;
    }
    if (d == 1 || d == -1) return NUMERIC_OK;  // also by -1 the value stays as it is, sign included
    const bool negative = is_negative(*x) != (d < 0);
    const auto divisor = static_cast<uint32_t>(magnitude_of(d));

    // The top limb is taken before the sign is removed, so a negative value is not divided as itself: callers divide
    // magnitudes. For a value that is not negative this is its magnitude.
    WordPair dividend = magnitude_of(*x);
    dividend.high = (uint64_t{limb(*x, 3)} << 32) | (dividend.high & UINT32_MAX);

    Division division = divide(dividend, divisor);
    const Fraction dropped = fraction_of(division.remainder, divisor);
    const uint32_t mode = info->rounding_mode;
    const bool valid = is_rounding_mode(mode);
    if (valid && rounds_away(mode, dropped, negative, (division.quotient.low & 1) != 0)) {
        // At most 2^127 - 1 before: the divisor is at least 2. Rounded up from there it becomes the NaN pattern.
        division.quotient = wrapping_add(division.quotient, WordPair{0, 1});
    }
    // The mode is reported only now: with an invalid one the quotient, cut off, is in place all the same.
    *x = with_sign(division.quotient, negative);
    if (!valid) return NUMERIC_INVALID_ARGUMENT;
    return dropped == Fraction::nothing ? NUMERIC_OK : NUMERIC_INEXACT;
}
