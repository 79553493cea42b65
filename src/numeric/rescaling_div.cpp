// SPDX-License-Identifier: MIT
// The quotient of two values of any scales: the dividend is brought to the scale at which the integer quotient stands
// at the result's, divided once, and rounded once from the exact remainder.
#include "wide/long_division.h"
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

// dividend / divisor; false when that is 2^128 or more.
QV8NUMERIC_INLINE bool long_divide(const ExtendedNumeric& dividend, WordPair divisor, LongDivision& division) {
    if (divisor.high != 0) {
        if (high_half(dividend) >= divisor) return false;
        const WordPair low = low_half(dividend);
        if (is_zero(high_half(dividend)) && low < divisor) {
            division = {{0, 0}, fraction_of(low, divisor)};
        } else {
            division = divide(dividend, normalize(divisor));
        }
        return true;
    }
    // Of the fourth word only the lower half is looked at: a dividend above 2^224 that has nothing there is divided
    // modulo 2^192. The quotients that come out are part of the interface.
    if (static_cast<uint32_t>(dividend.word[3]) != 0 || dividend.word[2] >= divisor.low) return false;
    division = divide(dividend, divisor.low);
    return true;
}

// dividend * 10^digits / divisor for more than 38 digits.
QV8NUMERIC_ASIDE bool scale_up_and_divide(WordPair dividend, uint64_t digits, WordPair divisor,
                                          LongDivision& division) {
    ExtendedNumeric scaled = extend(dividend);
    unsigned overflow = 0;
    scale_up(scaled, digits, overflow);
    return overflow == 0 && long_divide(scaled, divisor, division);
}

// dividend * 10^places / divisor; false when that is 2^128 or more.
QV8NUMERIC_INLINE bool scale_and_divide(WordPair dividend, int64_t places, WordPair divisor, LongDivision& division) {
    if (places > int64_t{pair_digits}) {
        return scale_up_and_divide(dividend, static_cast<uint64_t>(places), divisor, division);
    }
    if (places >= 0) return long_divide(multiply_by_power(dividend, static_cast<uint64_t>(places)), divisor, division);
    // Downward it is the divisor that takes the power of ten, so that nothing is dropped before the one division.
    unsigned overflow = 0;
    scale_up(divisor, static_cast<uint64_t>(-places), overflow);
    if (overflow == 0) return long_divide(extend(dividend), divisor, division);
    division = {{0, 0}, is_zero(dividend) ? Fraction::nothing : Fraction::below_half};  // less than 2^127 / 2^128
    return true;
}

// The same for two words up to 19 places: the dividend stays below 2^63 * 10^19 < 2^127.
QV8NUMERIC_INLINE bool scale_and_divide(uint64_t dividend, int64_t places, uint64_t divisor, LongDivision& division) {
    const uint64_t power = decimal_power[static_cast<uint64_t>(places)].power.low;
    division = divide(extend(multiply(dividend, power)), divisor);
    return true;
}

// The places that take the dividend to where the integer quotient stands at the result's scale.
constexpr int64_t quotient_shift(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info) {
    return int64_t{result_info.scale} - a_info.scale + b_info.scale;
}

// For operands that fit Magnitude and are not NaN.
template <class Magnitude>
QV8NUMERIC_INLINE NumericStatus rescaling_divide(const NumericInfo& a_info, const NumericInfo& b_info,
                                                 const NumericInfo& result_info, const Numeric& a, const Numeric& b,
                                                 Numeric& result) {
    if (!are_rounding_modes(a_info, b_info, result_info)) return NUMERIC_INVALID_ARGUMENT;
    if (is_zero(b)) {
        result = nan_pattern;
        return NUMERIC_NAN;
    }
    const bool negative = is_negative(a) != is_negative(b);
    const int64_t places = quotient_shift(a_info, b_info, result_info);
    LongDivision division{};
    if (!scale_and_divide(magnitude_as<Magnitude>(a), places, magnitude_as<Magnitude>(b), division)) {
        return refuse(negative, result);
    }
    return round_narrow(division, negative, result_info.rounding_mode, 0, result);
}

QV8NUMERIC_ASIDE NumericStatus divide_pairs(const NumericInfo& a_info, const NumericInfo& b_info,
                                            const NumericInfo& result_info, const Numeric& a, const Numeric& b,
                                            Numeric& result) {
    if (propagates_nan(a, b, result)) return NUMERIC_NAN;
    return rescaling_divide<WordPair>(a_info, b_info, result_info, a, b, result);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericRescalingDiv(const NumericInfo* a_info, const NumericInfo* b_info,
                                                const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                Numeric* result) noexcept {
    const auto digits = static_cast<uint64_t>(quotient_shift(*a_info, *b_info, *result_info));
    if (!fits_int64(*a) || !fits_int64(*b) || digits > word_digits) {
        return divide_pairs(*a_info, *b_info, *result_info, *a, *b, *result);
    }
    return rescaling_divide<uint64_t>(*a_info, *b_info, *result_info, *a, *b, *result);
}
