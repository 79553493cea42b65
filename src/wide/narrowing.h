// SPDX-License-Identifier: MIT
// The door out: a magnitude of 256 bits and a sign become a Numeric, or NaN and a status that says on which side.
#ifndef QV8NUMERIC_WIDE_NARROWING_H
#define QV8NUMERIC_WIDE_NARROWING_H

#include "wide/coefficient.h"
#include "wide/extended_numeric.h"
#include "wide/rounding.h"

namespace qv8numeric {

// At most 2^127 - 1. 2^127 itself is refused for either sign: negated it would be the NaN pattern.
constexpr bool fits(const ExtendedNumeric& x) { return ((x.word[1] >> 63) | x.word[2] | x.word[3]) == 0; }
constexpr bool fits(WordPair magnitude) { return magnitude.high >> 63 == 0; }
constexpr bool fits(uint64_t) { return true; }

// Up to 38 digits: rounded up by a whole unit and moved back, the magnitude still fits.
constexpr bool has_room_to_round(WordPair magnitude, uint64_t digits) {
    return fits(wrapping_add(magnitude, decimal_power[digits].power));
}

// NaN, for a result beyond the range on the side of its sign.
constexpr NumericStatus refuse(bool negative, Numeric& result) {
    result = nan_pattern;
    return negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
}

// status when the magnitude fits, with the result written; otherwise refused.
template <class Magnitude>
constexpr NumericStatus narrow(const Magnitude& magnitude, bool negative, unsigned overflow, NumericStatus status,
                               Numeric& result) {
    if (overflow != 0 || !fits(magnitude)) return refuse(negative, result);
    result = with_sign(magnitude, negative);
    return status;
}

// One rounding, and out. An invalid mode leaves the result untouched, also when it would not have been needed.
template <class Magnitude>
constexpr NumericStatus round_narrow(Magnitude magnitude, Fraction dropped, bool negative, uint32_t mode,
                                     unsigned overflow, Numeric& result) {
    const NumericStatus status = round_magnitude(magnitude, dropped, negative, mode);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    return narrow(magnitude, negative, overflow, status, result);
}

// The same for a quotient of two words, which may be 2^128 - 1 and leave them when it is rounded up.
QV8NUMERIC_INLINE constexpr NumericStatus round_narrow(const LongDivision& division, bool negative, uint32_t mode,
                                                       unsigned overflow, Numeric& result) {
    overflow |= one_if(!fits(division.quotient));
    return round_narrow(division.quotient, division.dropped, negative, mode, overflow, result);
}

// The common end of an operation: to the result's scale, one rounding, and out.
template <class Magnitude>
QV8NUMERIC_ASIDE constexpr NumericStatus scale_round_narrow(Magnitude magnitude, bool negative, int64_t places,
                                                            uint32_t mode, unsigned overflow, Numeric& result) {
    const Fraction dropped = scale_by(magnitude, places, overflow);
    return round_narrow(magnitude, dropped, negative, mode, overflow, result);
}

// The same for a pair of at most 2^127, upward.
QV8NUMERIC_ASIDE constexpr NumericStatus scale_up_narrow(WordPair magnitude, bool negative, uint64_t digits,
                                                         uint32_t mode, Numeric& result) {
    if (!is_rounding_mode(mode)) return NUMERIC_INVALID_ARGUMENT;
    unsigned overflow = 0;
    scale_up(magnitude, digits, overflow);
    return narrow(magnitude, negative, overflow, NUMERIC_OK, result);
}

// The common end without a call where most values go: down to a quotient of two words.
QV8NUMERIC_INLINE constexpr NumericStatus finish(WordPair magnitude, bool negative, int64_t places, uint32_t mode,
                                                 Numeric& result) {
    if (places >= 0) return scale_up_narrow(magnitude, negative, static_cast<uint64_t>(places), mode, result);
    const Fraction dropped = scale_down(magnitude, wrapping_negate(static_cast<uint64_t>(places)));
    return round_narrow(magnitude, dropped, negative, mode, 0, result);
}

// Up to 38 digits a quotient that is not two words is out of range.
QV8NUMERIC_INLINE constexpr NumericStatus finish(const ExtendedNumeric& magnitude, bool negative, int64_t places,
                                                 uint32_t mode, Numeric& result) {
    const uint64_t digits = wrapping_negate(static_cast<uint64_t>(places));
    if (places >= 0 || digits > pair_digits) {
        return scale_round_narrow(magnitude, negative, places, mode, 0, result);
    }
    LongDivision division{};
    const unsigned overflow = one_if(!divide_by_power(magnitude, digits, division));
    return round_narrow(division, negative, mode, overflow, result);
}

}  // namespace qv8numeric

#endif
