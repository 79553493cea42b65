// SPDX-License-Identifier: MIT
// binary64 from and to a Numeric, on the bit pattern and in integers alone: 10^scale is taken as 2^scale * 5^scale, so
// that the power of two only moves the binary point and only the power of five needs arithmetic.
//
// The order of the steps is part of the result. Factors are applied 5^12 at a time, each with a shift that keeps the
// value inside the 256 bits; bits that one step drops are lost for every later one, and the rounding at the end sees
// what the last step dropped and, as a sticky word, that earlier ones dropped something.
#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

#include "wide/narrowing.h"
#include "wide/powers.h"
#include "wide/primitives.h"
#include "wide/shifting.h"

namespace qv8numeric {
namespace {

// ---- The fields of a double ----

static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<double>::digits == 53);

constexpr unsigned fraction_bits = 52;
constexpr uint64_t implicit_bit = uint64_t{1} << fraction_bits;
constexpr uint64_t fraction_mask = implicit_bit - 1;
constexpr uint64_t sign_bit = uint64_t{1} << 63;
constexpr int64_t exponent_of_infinity = 0x7ff;
constexpr int64_t exponent_bias = 1023;
constexpr uint64_t nan_bits = UINT64_MAX;

constexpr uint64_t sign_field(bool negative) { return negative ? sign_bit : 0; }
constexpr uint64_t exponent_field(int64_t exponent) { return static_cast<uint64_t>(exponent) << fraction_bits; }

void store(uint64_t bits, double& out) { std::memcpy(&out, &bits, sizeof out); }

// ---- Powers of five ----

constexpr int64_t largest_power_of_five = 12;

// The next power of five to apply of those that remain, and the remaining ones without it.
unsigned take_power(int64_t& remaining) {
    const int64_t power = std::min(remaining, largest_power_of_five);
    remaining -= power;
    return static_cast<unsigned>(power);
}

void multiply_by_five(ExtendedNumeric& x, unsigned power, unsigned& overflow) {
    mul_unsigned(x, power_of_five[power], x, overflow);
}

void divide_by_five(ExtendedNumeric& x, unsigned power, Dropped& dropped) {
    div_unsigned(x, negative_power_of_five[power], x, dropped.code, dropped.sticky);
}

// ---- From a double ----

// significand * 2^exponent, with the significand as the top word of the vector that the exponent belongs to.
struct Binary {
    uint64_t significand;
    int64_t exponent;
};

constexpr int64_t significand_position = 192;

Binary take_apart(uint64_t magnitude_bits) {
    const uint64_t fraction = magnitude_bits & fraction_mask;
    const auto exponent = static_cast<int64_t>(magnitude_bits >> fraction_bits);
    const int64_t smallest = 1 - exponent_bias - int64_t{fraction_bits} - significand_position;  // exponent fields 0, 1
    if (exponent == 0) return {fraction, smallest};
    return {fraction | implicit_bit, smallest + exponent - 1};
}

// The vector while it is brought from x * 2^exponent * 5^scale to an integer.
struct Conversion {
    ExtendedNumeric x;
    Dropped dropped;
    unsigned overflow;
};

void shift_down(Conversion& conversion, int64_t bits) {
    conversion.x = shift_right(conversion.x, static_cast<uint64_t>(bits), conversion.dropped);
}

// The whole binary shift down, then the divisions.
void shift_then_divide(Conversion& conversion, int64_t shift, int64_t fives) {
    shift_down(conversion, shift);
    while (fives > 0 && !is_zero(conversion.x)) divide_by_five(conversion.x, take_power(fives), conversion.dropped);
    // What would divide a zero further only makes the last code sticky.
    if (fives > 0) drop(conversion.dropped, 0);
}

// Shifts down and multiplications by turns until the fives are used up; then the rest of the shift at once.
// shift + fives is at most 1266, so the turns are few.
void shift_and_multiply(Conversion& conversion, int64_t shift, int64_t fives) {
    constexpr int64_t turn = 28;
    while (fives > 0 && conversion.overflow == 0) {
        const int64_t step = std::min(shift, turn);
        shift_down(conversion, step);
        shift -= step;
        multiply_by_five(conversion.x, take_power(fives), conversion.overflow);
    }
    shift_down(conversion, shift);
}

// Divisions and shifts up by turns, until both are used up. shift + fives is at most 779, so the turns are few.
void divide_and_shift(Conversion& conversion, int64_t shift, int64_t fives) {
    constexpr int64_t turn = 27;
    uint64_t lost = 0;
    while ((fives > 0 || shift > 0) && lost == 0) {
        if (fives > 0) divide_by_five(conversion.x, take_power(fives), conversion.dropped);
        const int64_t step = std::min(shift, turn);
        conversion.x = shift_left(conversion.x, static_cast<unsigned>(step), lost);
        shift -= step;
    }
    conversion.overflow = lost != 0 ? 1 : 0;
}

Conversion convert(const Binary& value, int64_t scale) {
    Conversion conversion{{{0, 0, 0, value.significand}}, {}, 0};
    const int64_t exponent = value.exponent + scale;
    if (exponent < 0 && scale <= 0) {
        shift_then_divide(conversion, -exponent, -scale);
    } else if (exponent < 0) {
        shift_and_multiply(conversion, -exponent, scale);
    } else if (scale < 0) {
        divide_and_shift(conversion, exponent, -scale);
    } else {
        conversion.overflow = 1;  // at least 2^192 already, and nothing makes it smaller
    }
    return conversion;
}

// ---- To a double ----

// x * 2^exponent, the value on its way from coefficient * 10^-scale.
struct Scaled {
    ExtendedNumeric x;
    int64_t exponent;
    Dropped dropped;
};

// Half the vector is room for the bits of the quotient. Beyond the lowest exponent everything is dropped anyway.
void divide_by_ten(Scaled& value, int64_t places) {
    constexpr int64_t lowest_exponent = -2048;
    uint64_t lost = 0;  // stays 0: 5^12 > 2^27 takes more bits than the shift gives back
    while (places >= largest_power_of_five && value.exponent >= lowest_exponent) {
        divide_by_five(value.x, take_power(places), value.dropped);
        value.x = shift_left(value.x, 27, lost);
        value.exponent -= largest_power_of_five + 27;
    }
    if (0 < places && places < largest_power_of_five) {
        const unsigned power = take_power(places);
        divide_by_five(value.x, power, value.dropped);
        value.x = shift_left(value.x, power, lost);
        value.exponent -= 2 * int64_t{power};
    }
}

// In the last turn x is shifted by fewer bits than 5^power brings, and what a large coefficient then pushes out of the
// top is lost without notice: the result is that of the bits that remain.
void multiply_by_ten(Scaled& value, int64_t places) {
    constexpr int64_t exponent_limit = 2049;
    unsigned lost = 0;
    while (places >= largest_power_of_five && value.exponent < exponent_limit) {
        value.x = shift_right(value.x, 28, value.dropped);
        multiply_by_five(value.x, take_power(places), lost);
        value.exponent += largest_power_of_five + 28;
    }
    if (0 < places && places < largest_power_of_five) {
        const unsigned power = take_power(places);
        value.x = shift_right(value.x, power, value.dropped);
        multiply_by_five(value.x, power, lost);
        value.exponent += 2 * int64_t{power};
    }
}

Scaled scale_to_binary(WordPair magnitude, int64_t scale) {
    Scaled value{{{0, 0, magnitude.low, magnitude.high}}, -128, {}};
    if (scale > 0) divide_by_ten(value, scale);
    if (scale < 0) multiply_by_ten(value, -scale);
    return value;
}

// A significand on its way into the fraction field.
struct Significand {
    uint64_t bits;
    NumericStatus status;  // NUMERIC_INVALID_ARGUMENT with the bits cut off
};

// The topmost 53 bits of x, fewer_bits less, rounded. The leading bit is moved to the very top first, so that all that
// is dropped goes down in one shift.
Significand significand_of(const Scaled& value, unsigned length, int64_t fewer_bits, bool negative, uint32_t mode) {
    uint64_t lost = 0;
    Dropped dropped = value.dropped;
    const ExtendedNumeric normalized = shift_left(value.x, 256 - length, lost);
    ExtendedNumeric significand = shift_right(normalized, static_cast<uint64_t>(256 - 53 + fewer_bits), dropped);
    const NumericStatus status = round_magnitude(significand, dropped, negative, mode);
    return {significand.word[0], status};
}

NumericStatus put_normal(const Significand& significand, int64_t exponent, bool negative, double& out) {
    if (significand.status == NUMERIC_INVALID_ARGUMENT) return significand.status;
    // A carry out of the significand moves the exponent, from the largest one into infinity, without a status.
    const bool carried = significand.bits >> (fraction_bits + 1) != 0;
    const uint64_t bits = carried ? significand.bits >> 1 : significand.bits;
    store(sign_field(negative) | (bits & fraction_mask) | exponent_field(exponent + (carried ? 1 : 0)), out);
    return significand.status;
}

// A carry into the implicit bit is masked away, and with an invalid mode the significand is written, cut off. Both are
// other than for normal numbers, and part of the interface.
NumericStatus put_subnormal(const Significand& significand, bool negative, double& out) {
    store(sign_field(negative) | (significand.bits & fraction_mask), out);
    return significand.status;
}

NumericStatus put_infinity(bool negative, double& out) {
    store(sign_field(negative) | exponent_field(exponent_of_infinity), out);
    return negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericDbl2Num(const NumericInfo* info, Numeric* out, double value) noexcept {
    const auto bits = std::bit_cast<uint64_t>(value);
    const uint64_t magnitude = bits & ~sign_bit;
    const bool negative = bits != magnitude;
    if (magnitude == 0) {
        *out = Numeric{0, 0};
        return NUMERIC_OK;
    }
    if (magnitude >= exponent_field(exponent_of_infinity)) {
        const NumericStatus status = refuse(negative, *out);
        return magnitude == exponent_field(exponent_of_infinity) ? status : NUMERIC_NAN;
    }
    Conversion conversion = convert(take_apart(magnitude), info->scale);
    const NumericStatus status = round_magnitude(conversion.x, conversion.dropped, negative, info->rounding_mode);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    return narrow(conversion.x, negative, conversion.overflow, status, *out);
}

extern "C" NumericStatus QV8NumericNum2Dbl(const Numeric* in, const NumericInfo* info, double* out) noexcept {
    if (is_zero(*in)) {
        store(0, *out);
        return NUMERIC_OK;
    }
    if (is_nan(*in)) {
        store(nan_bits, *out);
        return NUMERIC_NAN;
    }
    const bool negative = is_negative(*in);
    const Scaled value = scale_to_binary(magnitude_of(*in), info->scale);
    const unsigned length = bit_length(value.x);
    const int64_t exponent = value.exponent + length + exponent_bias - 1;  // of the leading bit, biased
    if (exponent >= exponent_of_infinity) return put_infinity(negative, *out);

    const int64_t subnormal_bits = exponent < 1 ? 1 - exponent : 0;
    const Significand significand = significand_of(value, length, subnormal_bits, negative, info->rounding_mode);
    return exponent < 1 ? put_subnormal(significand, negative, *out)
                        : put_normal(significand, exponent, negative, *out);
}
