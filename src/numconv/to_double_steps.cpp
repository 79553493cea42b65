// SPDX-License-Identifier: MIT
// A double from any Numeric at any scale: the magnitude in the upper half of a vector, divided or multiplied by turns.
#include "numconv/binary64.h"
#include "numconv/double_steps.h"
#include "wide/coefficient.h"
#include "wide/rounding.h"
#include "wide/shifting.h"

namespace qv8numeric {
namespace {

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
    const NumericStatus status = round_magnitude(significand, fraction_of(dropped), negative, mode);
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

}  // namespace

NumericStatus to_double_in_steps(const Numeric& value, const NumericInfo& info, double& out) {
    const bool negative = is_negative(value);
    const Scaled scaled = scale_to_binary(magnitude_of(value), info.scale);
    const unsigned length = bit_length(scaled.x);
    const int64_t exponent = scaled.exponent + length + exponent_bias - 1;  // of the leading bit, biased
    if (exponent >= exponent_of_infinity) return put_infinity(negative, out);

    const int64_t subnormal_bits = exponent < 1 ? 1 - exponent : 0;
    const Significand significand = significand_of(scaled, length, subnormal_bits, negative, info.rounding_mode);
    return exponent < 1 ? put_subnormal(significand, negative, out) : put_normal(significand, exponent, negative, out);
}

}  // namespace qv8numeric
