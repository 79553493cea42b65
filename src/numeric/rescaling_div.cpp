// SPDX-License-Identifier: MIT
// The quotient of two values of any scales: the dividend is brought to the scale at which the integer quotient stands
// at the result's, divided once, and rounded once from the exact remainder.
#include "wide/long_division.h"
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

// dividend / divisor; false when that is 2^128 or more.
bool divide(const ExtendedNumeric& dividend, WordPair divisor, LongDivision& division) {
    if (divisor.high != 0) {
        if (high_half(dividend) >= divisor) return false;
        division = divide(dividend, normalize(divisor));
        return true;
    }
    // Of the fourth word only the lower half is looked at: a dividend above 2^224 that has nothing there is divided
    // modulo 2^192. The quotients that come out are part of the interface.
    if (static_cast<uint32_t>(dividend.word[3]) != 0 || dividend.word[2] >= divisor.low) return false;
    division = divide(dividend, normalize(divisor.low));
    return true;
}

// dividend * 10^places / divisor; false when that is 2^128 or more.
bool scale_and_divide(WordPair dividend, int64_t places, WordPair divisor, LongDivision& division) {
    unsigned overflow = 0;
    ExtendedNumeric scaled = extend(dividend);
    if (places >= 0) {
        scale_up(scaled, static_cast<uint64_t>(places), overflow);
        return overflow == 0 && divide(scaled, divisor, division);
    }
    // Downward it is the divisor that takes the power of ten, so that nothing is dropped before the one division.
    scale_up(divisor, static_cast<uint64_t>(-places), overflow);
    if (overflow == 0) return divide(scaled, divisor, division);
    division = {{0, 0}, is_zero(dividend) ? Fraction::nothing : Fraction::below_half};  // less than 2^127 / 2^128
    return true;
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericRescalingDiv(const NumericInfo* a_info, const NumericInfo* b_info,
                                                const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                Numeric* result) noexcept {
    if (propagates_nan(*a, *b, *result)) return NUMERIC_NAN;
    if (!are_rounding_modes(*a_info, *b_info, *result_info)) return NUMERIC_INVALID_ARGUMENT;
    if (is_zero(*b)) {
        *result = nan_pattern;
        return NUMERIC_NAN;
    }
    const bool negative = is_negative(*a) != is_negative(*b);
    const int64_t places = int64_t{result_info->scale} - a_info->scale + b_info->scale;
    LongDivision division{};
    if (!scale_and_divide(magnitude_of(*a), places, magnitude_of(*b), division)) return refuse(negative, *result);
    const NumericStatus status =
        round_magnitude(division.quotient, division.dropped, negative, result_info->rounding_mode);
    return narrow(division.quotient, negative, 0, status, *result);
}
