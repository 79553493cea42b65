// SPDX-License-Identifier: MIT
// Four words by one or two, for quotients of two words: a digit of 64 bits at a time, by a divisor that is prepared
// once.
#ifndef QV8NUMERIC_WIDE_LONG_DIVISION_H
#define QV8NUMERIC_WIDE_LONG_DIVISION_H

#include <bit>

#include "wide/dropped.h"
#include "wide/extended_numeric.h"
#include "wide/reciprocal.h"

namespace qv8numeric {

// A divisor moved up until its top bit is set, with its reciprocal. The dividend is moved along, and the quotient and
// the remainder as a part of the divisor stay what they are.
template <class Words>
struct Normalized {
    Words divisor;
    unsigned shift;
    uint64_t reciprocal;
};

// For a divisor that is not zero.
constexpr Normalized<uint64_t> normalize(uint64_t divisor) {
    QV8NUMERIC_ASSUME(divisor != 0);
    const auto shift = static_cast<unsigned>(std::countl_zero(divisor));
    return {divisor << shift, shift, reciprocal_of(divisor << shift)};
}

// For a divisor of two words, the upper one not zero.
constexpr Normalized<WordPair> normalize(WordPair divisor) {
    QV8NUMERIC_ASSUME(divisor.high != 0);
    const auto shift = static_cast<unsigned>(std::countl_zero(divisor.high));
    return {shift_left(divisor, shift), shift, reciprocal_of(shift_left(divisor, shift))};
}

struct LongDivision {
    WordPair quotient;
    Fraction dropped;
};

// dividend / divisor where that is below 2^128: three words, of which the upper one is below the divisor and so leaves
// room for the shift. Most quotients are one word; then there is one step.
constexpr LongDivision divide(const ExtendedNumeric& dividend, const Normalized<uint64_t>& by) {
    const WordPair upper = shift_left(WordPair{dividend.word[2], dividend.word[1]}, by.shift);
    const WordPair lower = shift_left(low_half(dividend), by.shift);
    WordQuotient high{0, lower.high};
    if (upper.high != 0 || lower.high >= by.divisor) {
        high = divide_2by1({upper.high, lower.high}, by.divisor, by.reciprocal);
    }
    const WordQuotient low = divide_2by1({high.remainder, lower.low}, by.divisor, by.reciprocal);
    return {{high.quotient, low.quotient}, fraction_of(low.remainder, by.divisor)};
}

// The same for four words, of which the upper two are below the divisor.
constexpr LongDivision divide(const ExtendedNumeric& dividend, const Normalized<WordPair>& by) {
    const WordPair upper = shift_left(high_half(dividend), by.shift);
    const WordPair middle = shift_left(WordPair{dividend.word[2], dividend.word[1]}, by.shift);
    const WordPair lower = shift_left(low_half(dividend), by.shift);
    PairQuotient high{0, {middle.high, lower.high}};
    if (upper.high != 0 || high.remainder >= by.divisor) {
        high = divide_3by2({upper.high, middle.high}, lower.high, by.divisor, by.reciprocal);
    }
    const PairQuotient low = divide_3by2(high.remainder, lower.low, by.divisor, by.reciprocal);
    return {{high.quotient, low.quotient}, fraction_of(low.remainder, by.divisor)};
}

// The same for a divisor that divides only once.
#if QV8NUMERIC_NATIVE_DIVISION
inline LongDivision divide_natively(const ExtendedNumeric& dividend, uint64_t divisor) {
    WordQuotient high{0, dividend.word[1]};
    if (dividend.word[2] != 0 || dividend.word[1] >= divisor) {
        high = divide_natively(WordPair{dividend.word[2], dividend.word[1]}, divisor);
    }
    const WordQuotient low = divide_natively(WordPair{high.remainder, dividend.word[0]}, divisor);
    return {{high.quotient, low.quotient}, fraction_of(low.remainder, divisor)};
}

constexpr LongDivision divide(const ExtendedNumeric& dividend, uint64_t divisor) {
    return std::is_constant_evaluated() ? divide(dividend, normalize(divisor)) : divide_natively(dividend, divisor);
}
#else
constexpr LongDivision divide(const ExtendedNumeric& dividend, uint64_t divisor) {
    return divide(dividend, normalize(divisor));
}
#endif

}  // namespace qv8numeric

#endif
