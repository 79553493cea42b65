// SPDX-License-Identifier: MIT
// A Numeric from a double: at the scales 0 .. 38 by one multiplication, at negative ones by few divisions of a
// coefficient's width; otherwise in steps.
//
// Why the multiplication gives what the steps give: they begin with the significand above 192 zeros, and shift it down
// by 28 bits for each 5^12 in the scale; four times, for 38 places. What these shifts drop is zeros. Bits are dropped
// by the last shift alone, and off an exact product. (Where no shift is left for the last turns, or where a product
// leaves the top, the result is beyond 2^128 and refused on either road.)
#include <bit>

#include "numconv/binary64.h"
#include "numconv/double_steps.h"
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

constexpr bool is_finite_nonzero(uint64_t bits) {
    return wrapping_subtract(bits & ~sign_bit, 1) < exponent_field(exponent_of_infinity) - 1;
}

constexpr bool is_negative(uint64_t bits) { return bits >> 63 != 0; }

// 64 bits, the leading one set. (A subnormal double gets a leading bit that it does not have. It is so small that only
// its being there matters.)
constexpr uint64_t significand_of(uint64_t bits) { return sign_bit | bits << (63 - fraction_bits); }

// The bits before the binary point of a double times a power of ten, or one more; negative for zeros behind it.
constexpr int64_t product_length(uint64_t bits, const DecimalPower& ten) {
    const auto exponent = static_cast<int64_t>(bits >> fraction_bits & 0x7ff) - exponent_bias;
    return (exponent + 1) + (int64_t{ten.shift} + 1);
}

// Two words before a point, two behind it, and whether anything follows them.
struct FixedPoint {
    WordPair integer;
    WordPair fraction;
    uint64_t more;
};

constexpr FixedPoint down_a_word(const FixedPoint& x) {
    return {{0, x.integer.high}, {x.integer.low, x.fraction.high}, x.fraction.low | x.more};
}

// For bits < 64.
constexpr FixedPoint up(const FixedPoint& x, unsigned bits) {
    const uint64_t middle = shift_left(WordPair{x.integer.low, x.fraction.high}, bits).high;
    const WordPair fraction = shift_left(x.fraction, bits);
    return {{shift_left(x.integer, bits).high, middle}, fraction, x.more};
}

// x * 2^(length - 128) for length <= 128.
constexpr FixedPoint scale_by_two(FixedPoint x, int64_t length) {
    if (length < 128) x = down_a_word(x);
    if (length < 64) x = down_a_word(x);
    if (length < 0) x = down_a_word(x);
    if (length < -64) x = down_a_word(x);
    return up(x, static_cast<unsigned>(length) % 64);
}

// The significand of a double times that of a power of ten up to 10^38, as an integer of 128 bits and what follows.
constexpr FixedPoint multiply_significands(uint64_t bits, const DecimalPower& ten) {
    if (ten.power.high == 0) return {multiply_words(significand_of(bits), ten.significand), {0, 0}, 0};
    const ExtendedNumeric product = multiply(shift_left(ten.power, 127 - ten.shift), significand_of(bits));
    return {{product.word[2], product.word[1]}, {product.word[0], 0}, 0};
}

constexpr Fraction fraction_of(const FixedPoint& x) {
    return binary_fraction(x.fraction.high, x.fraction.low | x.more);
}

// At scales up to 27 the product is two words, of which results below 2^63 keep bits of the upper one alone.
NumericStatus word_from_double(uint64_t bits, unsigned length, const DecimalPower& ten, uint32_t mode, Numeric& out) {
    const WordPair product = multiply_words(significand_of(bits), ten.significand);
    const WordPair x = shift_left(WordPair{0, product.high}, length);
    return round_narrow(x.high, binary_fraction(x.low, product.low), is_negative(bits), mode, 0, out);
}

// Results of more than 64 bits, up to 127, are the product but for its last 1 to 63 bits.
QV8NUMERIC_ASIDE NumericStatus words_from_double(uint64_t bits, unsigned length, const DecimalPower& ten, uint32_t mode,
                                                 Numeric& out) {
    const WordPair product = multiply_words(significand_of(bits), ten.significand);
    const unsigned down = 128 - length;
    const Fraction dropped = binary_fraction(product.low << (64 - down), 0);
    return round_narrow(shift_right(product, down), dropped, is_negative(bits), mode, 0, out);
}

NumericStatus refuse_rounded(bool negative, uint32_t mode, Numeric& out) {
    return is_rounding_mode(mode) ? refuse(negative, out) : NUMERIC_INVALID_ARGUMENT;
}

// At scales up to 38. A product that is longer than 128 bits is at least 2^127.
QV8NUMERIC_ASIDE NumericStatus pair_from_double(uint64_t bits, const NumericInfo& info, Numeric& out) {
    const DecimalPower& ten = decimal_power[static_cast<unsigned>(info.scale)];
    const int64_t length = product_length(bits, ten);
    const bool negative = is_negative(bits);
    if (length > 128) return refuse_rounded(negative, info.rounding_mode, out);
    const FixedPoint x = scale_by_two(multiply_significands(bits, ten), length);
    return round_narrow(x.integer, fraction_of(x), negative, info.rounding_mode, 0, out);
}

// x / 5^fives towards zero as the steps have it, for x < 2^115: by 5^12 at a time, each time as 2^n x / 10^n. What was
// dropped before a division only matters by being there. (None drops one half, the divisors being odd.)
constexpr void divide_by_fives(WordPair& x, int64_t fives, Fraction& dropped) {
    while (fives > 0 && !is_zero(x)) {
        const unsigned step = take_power(fives);
        x = shift_left(x, step);
        dropped = joined(dropped, scale_down(x, step));
    }
    if (fives > 0) dropped = joined(dropped, Fraction::nothing);
}

// Whether a double of this length divided by 10^places is certain to be refused. 10^places < 2^(3.322 places), so it is
// above 2^129 then, of which the steps lose less than a 2^-100th part.
constexpr bool is_out_of_range(int64_t length, int64_t places) { return length - 3322 * places / 1000 > 131; }

// At negative scales: the binary point is moved first, by the exponent and the twos of the scale, and what falls behind
// it is dropped before the fives are divided out.
QV8NUMERIC_ASIDE NumericStatus quotient_from_double(uint64_t bits, const NumericInfo& info, Numeric& out) {
    const DecimalPower& one = decimal_power[0];
    const int64_t places = -int64_t{info.scale};
    const int64_t length = product_length(bits, one);
    if (is_out_of_range(length, places)) return refuse_rounded(is_negative(bits), info.rounding_mode, out);
    if (length - places > 116) return from_double_in_steps(bits, info, out);
    FixedPoint x = scale_by_two(multiply_significands(bits, one), length - places);
    Fraction dropped = fraction_of(x);
    divide_by_fives(x.integer, places, dropped);
    return round_narrow(x.integer, dropped, is_negative(bits), info.rounding_mode, 0, out);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericDbl2Num(const NumericInfo* info, Numeric* out, double value) noexcept {
    const auto bits = std::bit_cast<uint64_t>(value);
    const auto places = static_cast<uint32_t>(info->scale);
    if (places <= significand_digits) {  // of 0 the length is negative, of what is not finite more than 1000
        const DecimalPower& ten = decimal_power[places];
        const auto length = static_cast<uint64_t>(product_length(bits, ten));
        if (length < 64) return word_from_double(bits, static_cast<unsigned>(length), ten, info->rounding_mode, *out);
        if (64 < length && length < 128) {
            return words_from_double(bits, static_cast<unsigned>(length), ten, info->rounding_mode, *out);
        }
    }
    if (!is_finite_nonzero(bits)) return from_double_in_steps(bits, *info, *out);
    if (places <= pair_digits) return pair_from_double(bits, *info, *out);
    if (info->scale < 0) return quotient_from_double(bits, *info, *out);
    return from_double_in_steps(bits, *info, *out);
}
