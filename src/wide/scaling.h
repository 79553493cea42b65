// SPDX-License-Identifier: MIT
// The two moves: the only places where a magnitude is multiplied or divided by a power of ten.
//
// A magnitude comes in three widths, and the moves are there for each of them: one word, two (a coefficient's), and the
// four of an ExtendedNumeric. The operations choose the narrowest that holds their operands.
#ifndef QV8NUMERIC_WIDE_SCALING_H
#define QV8NUMERIC_WIDE_SCALING_H

#include "wide/decimal_powers.h"
#include "wide/dropped.h"
#include "wide/extended_numeric.h"
#include "wide/limb_scaling.h"
#include "wide/long_division.h"

namespace qv8numeric {

// ---- Down: x / 10^digits towards zero, for digits > 0; the answer is what fell off ----

// For x <= 2^63, the magnitude of an int64, and up to 19 digits.
constexpr uint64_t divide_by_power(uint64_t x, uint64_t digits) {
    return multiply_high(x, decimal_power[digits].word_reciprocal) >> decimal_power[digits].shift;
}

// For x <= 2^63; 10^20 / 2 is above them all.
QV8NUMERIC_INLINE constexpr Fraction scale_down(uint64_t& x, uint64_t digits) {
    const uint64_t dividend = x;
    if (digits > word_digits) {
        x = 0;
        return dividend != 0 ? Fraction::below_half : Fraction::nothing;
    }
    const uint64_t power = decimal_power[digits].power.low;
    x = divide_by_power(x, digits);
    return fraction_of(dividend - x * power, power);
}

// For x <= 2^127, and up to 38 digits. Beyond 19 the quotient is one word: 10^20 > 2^66.
QV8NUMERIC_INLINE constexpr WordPair divide_by_power(WordPair x, uint64_t digits) {
    const DecimalPower& ten = decimal_power[digits];
    const WordPair upper_half = multiply_high(x, ten.reciprocal);
    if (digits <= word_digits) return shift_right(upper_half, ten.shift);
    return {0, upper_half.high >> (ten.shift - 64)};
}

// For x <= 2^127; 10^39 / 2 is above them all.
QV8NUMERIC_INLINE constexpr Fraction scale_down(WordPair& x, uint64_t digits) {
    const WordPair dividend = x;
    if (digits > pair_digits) {
        x = {0, 0};
        return dividend != x ? Fraction::below_half : Fraction::nothing;
    }
    const WordPair power = decimal_power[digits].power;
    x = divide_by_power(x, digits);
    if (digits <= word_digits) {
        return fraction_of(wrapping_subtract(dividend.low, wrapping_multiply(x.low, power.low)), power.low);
    }
    return fraction_of(wrapping_subtract(dividend, wrapping_multiply(power, x.low)), power);
}

// One step of up to 38 digits, when the quotient is two words; otherwise false.
QV8NUMERIC_INLINE constexpr bool divide_by_power(const ExtendedNumeric& x, uint64_t digits, LongDivision& division) {
    const DecimalPower& ten = decimal_power[digits];
    if (digits <= word_digits) {
        if (x.word[3] != 0 || x.word[2] >= ten.power.low) return false;
        division = divide(x, Normalized<uint64_t>{ten.significand, 63 - ten.shift, ten.long_reciprocal});
    } else {
        if (high_half(x) >= ten.power) return false;
        const unsigned up = 127 - ten.shift;
        division = divide(x, Normalized<WordPair>{shift_left(ten.power, up), up, ten.long_reciprocal});
    }
    return true;
}

// In two steps up to 76 digits, or on the general road.
QV8NUMERIC_ASIDE constexpr Fraction scale_down_far(ExtendedNumeric& x, uint64_t digits) {
    LongDivision first{}, last{};
    const bool in_two_steps = pair_digits < digits && digits <= uint64_t{2} * pair_digits &&
                              divide_by_power(x, pair_digits, first) &&
                              divide_by_power(extend(first.quotient), digits - pair_digits, last);
    if (!in_two_steps) return scale_down_in_limbs(x, digits);
    x = extend(last.quotient);
    return joined(first.dropped, last.dropped);
}

QV8NUMERIC_INLINE constexpr Fraction scale_down(ExtendedNumeric& x, uint64_t digits) {
    LongDivision division{};
    if (digits > pair_digits || !divide_by_power(x, digits, division)) return scale_down_far(x, digits);
    x = extend(division.quotient);
    return division.dropped;
}

// ---- Up: x * 10^digits; overflow becomes nonzero when anything left the top ----

// Up to 38 digits, exactly.
QV8NUMERIC_INLINE constexpr ExtendedNumeric multiply_by_power(WordPair x, uint64_t digits) {
    const WordPair power = decimal_power[digits].power;
    return digits <= word_digits ? multiply(x, power.low) : multiply(x, power);
}

// A product that does not fit is only told, not kept.
QV8NUMERIC_INLINE constexpr void scale_up(WordPair& x, uint64_t digits, unsigned& overflow) {
    if (digits > pair_digits) {
        overflow |= one_if(!is_zero(x));  // 10^39 > 2^128
        return;
    }
    const ExtendedNumeric product = multiply_by_power(x, digits);
    overflow |= one_if(!is_zero(high_half(product)));
    x = low_half(product);
}

// Modulo 2^256.
QV8NUMERIC_ASIDE constexpr void scale_up_far(ExtendedNumeric& x, uint64_t digits, unsigned& overflow) {
    if (digits > uint64_t{4} * word_digits) return scale_up_in_limbs(x, digits, overflow);
    for (; digits > word_digits; digits -= word_digits) multiply_by(x, decimal_power[word_digits].power.low, overflow);
    multiply_by(x, decimal_power[digits].power.low, overflow);
}

QV8NUMERIC_INLINE constexpr void scale_up(ExtendedNumeric& x, uint64_t digits, unsigned& overflow) {
    if (digits > word_digits) return scale_up_far(x, digits, overflow);
    if (digits != 0) multiply_by(x, decimal_power[digits].power.low, overflow);
}

// What scale_down kept, moved back; for a result that fits.
constexpr uint64_t scaled_back_up(uint64_t x, uint64_t digits) { return x * decimal_power[digits].power.low; }
constexpr WordPair scaled_back_up(WordPair x, uint64_t digits) {
    return wrapping_multiply(x, decimal_power[digits].power);
}

// ---- Either way ----

// A move by a number of places: down when they are negative. A word is only moved down: up, it would not stay one.
constexpr Fraction scale_by(uint64_t& x, int64_t places, unsigned&) {
    return scale_down(x, wrapping_negate(static_cast<uint64_t>(places)));
}

template <class Magnitude>
constexpr Fraction scale_by(Magnitude& x, int64_t places, unsigned& overflow) {
    if (places < 0) return scale_down(x, wrapping_negate(static_cast<uint64_t>(places)));
    scale_up(x, static_cast<uint64_t>(places), overflow);
    return Fraction::nothing;
}

// ---- Signed values, in two's complement, where a product modulo a power of two is that of the bits ----

// value * 10^digits; bits that leave the top are lost without notice. In two words, up to 10^19.
template <class Words>
constexpr Words moved_up(const Numeric& value, uint64_t digits) {
    if constexpr (std::is_same_v<Words, WordPair>) {
        return wrapping_multiply(bits_of(value), decimal_power[digits].power.low);
    } else {
        ExtendedNumeric product = sign_extend(value);
        unsigned lost = 0;
        scale_up(product, digits, lost);
        return product;
    }
}

// A move by a number of places.
constexpr ExtendedNumeric moved_by(const Numeric& value, int64_t places, Fraction& dropped) {
    if (places >= 0) return moved_up<ExtendedNumeric>(value, static_cast<uint64_t>(places));
    WordPair magnitude = magnitude_of(value);
    dropped = scale_down(magnitude, static_cast<uint64_t>(-places));
    return negated_if(is_negative(value), extend(magnitude));
}

}  // namespace qv8numeric

#endif
