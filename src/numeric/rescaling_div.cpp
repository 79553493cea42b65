// SPDX-License-Identifier: MIT
// The quotient of two values of any scales: the dividend is brought to the scale at which the integer quotient stands
// at the result's, divided once, and rounded once from the exact remainder.
#include <bit>

#include "wide/narrowing.h"
#include "wide/reciprocal.h"
#include "wide/shifting.h"

namespace qv8numeric {
namespace {

// Divisor and dividend moved up together until the divisor's top bit is set: the quotient stays what it was.
struct Normalized {
    ExtendedNumeric dividend;
    WordPair divisor;
    bool overflow;
};

Normalized normalize(const ExtendedNumeric& dividend, WordPair divisor) {
    Normalized result{dividend, divisor, false};
    if (divisor.high == 0) {
        const auto& word = dividend.word;
        result.dividend = ExtendedNumeric{{0, word[0], word[1], word[2]}};
        result.divisor = WordPair{divisor.low, 0};
        // Of the word that leaves the top only the lower half is looked at: a dividend above 2^224 that has nothing
        // there is divided modulo 2^192. The quotients that come out are part of the interface.
        result.overflow = static_cast<uint32_t>(word[3]) != 0;
    }
    const auto shift = static_cast<unsigned>(std::countl_zero(result.divisor.high));
    uint64_t lost = 0;
    result.dividend = shift_left(result.dividend, shift, lost);
    result.divisor = low_half(shift_left(extend(result.divisor), shift, lost));
    if (lost != 0) result.overflow = true;
    return result;
}

struct LongDivision {
    WordPair quotient;
    WordPair remainder;
};

// dividend / divisor for a normalized divisor above the dividend's upper half: two words of quotient.
LongDivision divide(const ExtendedNumeric& dividend, WordPair divisor) {
    const uint64_t reciprocal = reciprocal_of(divisor);
    const PairQuotient high = divide_3by2(high_half(dividend), dividend.word[1], divisor, reciprocal);
    const PairQuotient low = divide_3by2(high.remainder, dividend.word[0], divisor, reciprocal);
    return {{high.quotient, low.quotient}, low.remainder};
}

// The remainder against half the divisor, which is even: a whole number, so the comparison is exact even when up to one
// unit of the remainder was dropped before the division.
uint32_t code_of(WordPair remainder, WordPair divisor) {
    const WordPair half{divisor.high >> 1, divisor.high << 63 | divisor.low >> 1};
    if (remainder == WordPair{0, 0}) return 0;
    if (remainder == half) return one_half;
    return remainder < half ? one_half - 1 : one_half + 1;
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
    ExtendedNumeric magnitude = extend(magnitude_of(*a));
    unsigned overflow = 0;
    if (places > 0) scale_up(magnitude, static_cast<uint64_t>(places), overflow);

    Normalized operands = normalize(magnitude, magnitude_of(*b));
    // A division by a power of ten comes after the normalization, which leaves it low-order bits to stand on: what it
    // drops is then less than one unit of the remainder, and only sticky.
    Dropped before;
    if (places < 0) scale_down(operands.dividend, static_cast<uint64_t>(-places), before);
    if (overflow != 0 || operands.overflow || high_half(operands.dividend) >= operands.divisor) {
        return refuse(negative, *result);
    }

    const LongDivision division = divide(operands.dividend, operands.divisor);
    const Dropped dropped{code_of(division.remainder, operands.divisor), before.code | before.sticky};
    ExtendedNumeric quotient = extend(division.quotient);
    const NumericStatus status = round_magnitude(quotient, dropped, negative, result_info->rounding_mode);
    return narrow(quotient, negative, 0, status, *result);
}
