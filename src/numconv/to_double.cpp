// SPDX-License-Identifier: MIT
// A double from a Numeric: by multiplication with a reciprocal at the scales 0 .. 38, with two up to 76; at scale 0 too
// for what negative scales make of a magnitude while it fits; otherwise in steps.
#include <bit>

#include "numconv/binary64.h"
#include "numconv/double_steps.h"
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

constexpr uint64_t nan_bits = UINT64_MAX;

// x * 2^(length - 127), the leading bit of x being bit 126.
struct Leading {
    WordPair x;
    unsigned length;
};

// For 0 < magnitude < 2^63, where the lower word stays empty, and for 0 < magnitude < 2^127.
constexpr Leading leading(uint64_t magnitude) {
    const auto length = static_cast<unsigned>(std::bit_width(magnitude));
    return {{magnitude << (63 - length), 0}, length};
}

constexpr Leading leading(WordPair magnitude) {
    const bool one_word = magnitude.high == 0;
    const WordPair x = one_word ? WordPair{magnitude.low, 0} : magnitude;
    const auto zeros = static_cast<unsigned>(std::countl_zero(x.high));
    return {shift_right(shift_left(x, zeros), 1), (one_word ? 64 : 128) - zeros};
}

// The leading bits of a quotient, 126 or 127 of them, and whether they are all of it.
struct Quotient {
    WordPair bits;
    bool exact;
};

// x / 10^places * 2^s, with s the shift of the power, for 2^126 <= x < 2^127.
//
// The reciprocal is at most 1 above 2^(128+s) / 10^places, so the product is at most x / 2^128 < 1/2 too large before
// it is cut off: it becomes the true quotient cut off, or 1 more, which it does not where the true one is whole. What
// is then missing to x * 2^s is less than 10^places in size and seen in full in the lowest word or two. It is nothing
// just where 5^places divides x, s being no less than places. (Up to 10^19 a quotient may stay 1 too large. Its bits
// from 2^s up, 63 at least, are right: that is what the reciprocal is made for.)
constexpr Quotient divide(WordPair x, unsigned places) {
    if (places == 0) return {x, true};
    const DecimalPower& ten = decimal_power[places];
    const WordPair bits = multiply_high(x, ten.reciprocal);
    if (places <= word_digits) return {bits, wrapping_multiply(bits.low, ten.power.low) == x.low << ten.shift};
    const WordPair missing = wrapping_subtract({x.low << (ten.shift - 64), 0}, wrapping_multiply(bits, ten.power));
    return {wrapping_subtract(bits, {0, missing.high >> 63}), is_zero(missing)};
}

// The double for quotient.bits * 2^(length - 127). It is neither subnormal nor infinite.
QV8NUMERIC_INLINE NumericStatus round_to_double(const Quotient& quotient, int64_t length, bool negative, uint32_t mode,
                                                double& out) {
    const auto& [bits, exact] = quotient;
    const auto top = static_cast<unsigned>(bits.high >> 62);
    uint64_t significand = bits.high >> (9 + top);
    const Fraction dropped = binary_fraction(bits.high << (55 - top), bits.low | static_cast<uint64_t>(!exact));
    const NumericStatus status = round_magnitude(significand, dropped, negative, mode);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    // One less, since the implicit bit is added to it, as is a carry beyond.
    const int64_t exponent = exponent_bias - 3 + length + int64_t{top};
    store(sign_field(negative) | (exponent_field(exponent) + significand), out);
    return status;
}

// magnitude / 10^places, rounded to 53 bits. It is neither subnormal nor infinite.
//
// The steps give the same. They drop something just where 5^places does not divide the magnitude, so the status is
// theirs, and what looks like one half there is above it. And they drop too little to change the 54 bits that decide,
// the 53 and the half: each of up to four divisions cuts off less than a unit, of magnitude * 2^(101 - 0.87 i) or more
// in the i-th by 5^12, of magnitude * 2^99 or more in a last one by what remains; together less than 2^-97 / magnitude
// of the value. Let magnitude * 2^n / 5^places be the value with 54 bits before its point, and r the remainder of this
// division. Behind the point stands r / 5^places (or, for n < 0, at least 1 / magnitude of the value). The loss reaches
// across the point for 0 < r < 2^(n-97) only: not up to n = 97; and the magnitudes with more bits to go than that are
// so few that none leaves so small an r, which a test shows.
template <class Magnitude>
QV8NUMERIC_INLINE NumericStatus round_quotient(Magnitude magnitude, unsigned places, bool negative, uint32_t mode,
                                               double& out) {
    const auto [x, length] = leading(magnitude);
    return round_to_double(divide(x, places), int64_t{length} - decimal_power[places].shift, negative, mode, out);
}

// The same for 38 < places <= 76 in two divisions, which leave the quotient less than 1 too large or 3 too small: the
// first cuts off less than 1, which may be doubled to bring the leading bit back, and the second less than 1 again.
// This changes no bit down to the half, unless the next 64 are all 0 or all 1: then the steps are taken. So are they
// for every exact quotient, which has 37 bits at most. (What the steps drop decides nothing here either, as the same
// test shows.)
QV8NUMERIC_ASIDE NumericStatus round_far_quotient(const Numeric& value, const NumericInfo& info, double& out) {
    const auto [x, length] = leading(magnitude_of(value));
    const auto rest = static_cast<unsigned>(info.scale) - pair_digits;
    const WordPair first = divide(x, pair_digits).bits;
    const auto up = 1 - static_cast<unsigned>(first.high >> 62);
    const WordPair bits = divide(shift_left(first, up), rest).bits;
    const auto top = static_cast<unsigned>(bits.high >> 62);
    const uint64_t below_half = shift_left(bits, 56 - top).high;
    if (wrapping_add(below_half, 1) <= 1) return to_double_in_steps(value, info, out);
    const int64_t shift = int64_t{decimal_power[pair_digits].shift} + decimal_power[rest].shift + up;
    return round_to_double({bits, false}, length - shift, is_negative(value), info.rounding_mode, out);
}

// magnitude * 10^places, where that fits a magnitude. It is then exact, in the steps too: what they shift out, 28 bits
// for each 5^12 and below 12 for the rest, 95 for 38 places, is zeros, and nothing leaves the top.
constexpr bool scale_up_exactly(WordPair& magnitude, int64_t places) {
    unsigned overflow = 0;
    scale_up(magnitude, static_cast<uint64_t>(places), overflow);
    return overflow == 0 && fits(magnitude);
}

// At scales this large |value| is below 2^127 / 10^363 < 2^-1078, a sixteenth of the smallest double.
constexpr int64_t scale_of_tiny_results = 363;

NumericStatus put_tiny(bool negative, uint32_t mode, double& out) {
    uint64_t significand = 0;
    const NumericStatus status = round_magnitude(significand, Fraction::below_half, negative, mode);
    store(sign_field(negative) | significand, out);  // with an invalid mode too, as any subnormal result
    return status;
}

// At scales this small the steps have moved the exponent beyond that of infinity whatever becomes of the bits: 29 turns
// of 40 binary places reach 2^1032 from 2^-128.
constexpr int64_t scale_of_huge_results = -348;

// At the scales beyond 0 .. 38.
QV8NUMERIC_ASIDE NumericStatus far_to_double(const Numeric& value, const NumericInfo& info, double& out) {
    const bool negative = is_negative(value);
    if (info.scale >= scale_of_tiny_results) return put_tiny(negative, info.rounding_mode, out);
    if (info.scale <= scale_of_huge_results) return put_infinity(negative, out);
    if (info.scale > 2 * int{pair_digits}) return to_double_in_steps(value, info, out);
    if (info.scale > 0) return round_far_quotient(value, info, out);
    WordPair magnitude = magnitude_of(value);
    if (!scale_up_exactly(magnitude, -int64_t{info.scale})) return to_double_in_steps(value, info, out);
    return round_quotient(magnitude, 0, negative, info.rounding_mode, out);
}

QV8NUMERIC_ASIDE NumericStatus any_to_double(const Numeric& value, const NumericInfo& info, double& out) {
    if (is_zero(value)) {
        store(0, out);
        return NUMERIC_OK;
    }
    if (is_nan(value)) {
        store(nan_bits, out);
        return NUMERIC_NAN;
    }
    const auto places = static_cast<uint32_t>(info.scale);
    if (places > pair_digits) return far_to_double(value, info, out);
    return round_quotient(magnitude_of(value), places, is_negative(value), info.rounding_mode, out);
}

// For values that fit an int64 at the scales 0 .. 38.
QV8NUMERIC_ASIDE NumericStatus word_to_double(const Numeric& value, const NumericInfo& info, double& out) {
    const auto magnitude = magnitude_as<uint64_t>(value);
    if (magnitude << 1 == 0) return any_to_double(value, info, out);  // 0, or 2^63
    const auto places = static_cast<unsigned>(info.scale);
    return round_quotient(magnitude, places, is_negative(value), info.rounding_mode, out);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericNum2Dbl(const Numeric* in, const NumericInfo* info, double* out) noexcept {
    const auto places = static_cast<uint32_t>(info->scale);
    return fits_int64(*in) && places <= pair_digits ? word_to_double(*in, *info, *out)
                                                    : any_to_double(*in, *info, *out);
}
