// SPDX-License-Identifier: MIT
// Coefficients to doubles: value = vector * 2^binary, the coefficient at first in the upper half of the vector.
#include <algorithm>
#include <bit>
#include <cstdint>

#include "binary_fraction.h"
#include "limbs.h"
#include "reference.h"
#include "rounding.h"

namespace reference {
namespace {

constexpr std::uint64_t kFraction = 0xfffffffffffff;
constexpr std::uint64_t kInfinity = 0x7ff0000000000000;

struct Conversion {
    Limbs vector{};
    std::int64_t binary = -128;
    Dropped dropped{};
};

// Stops when no double is that small.
void divide_by_power_of_ten(Conversion& c, std::int64_t tens) {
    for (; tens >= kLargestPower && c.binary >= -2048; tens -= kLargestPower) {
        divide_by_five(c.vector, kLargestPower, c.dropped);
        shift_left(c.vector, 27);
        c.binary -= kLargestPower + 27;
    }
    if (tens >= kLargestPower) return;
    divide_by_five(c.vector, tens, c.dropped);
    shift_left(c.vector, static_cast<int>(tens));
    c.binary -= 2 * tens;
}

// Stops when no double is that large. The last product of a large coefficient may leave the vector, and what leaves it
// is lost without notice: such doubles are wrong, and part of the interface.
void multiply_by_power_of_ten(Conversion& c, std::int64_t tens) {
    for (; tens >= kLargestPower && c.binary < 2049; tens -= kLargestPower) {
        shift_right(c.vector, 28, c.dropped);
        multiply(c.vector, power_of_five(kLargestPower));
        c.binary += kLargestPower + 28;
    }
    if (tens >= kLargestPower) return;
    shift_right(c.vector, tens, c.dropped);
    multiply(c.vector, power_of_five(tens));
    c.binary += 2 * tens;
}

// The low 64 bits after a shift that leaves no more.
std::uint64_t significand(Conversion& c, std::int64_t shift) {
    shift_right(c.vector, shift, c.dropped);
    return low_numeric(c.vector).low;
}

std::uint64_t rounded(std::uint64_t significand, bool negative, std::uint32_t mode, const Dropped& dropped) {
    const bool odd = (significand & 1) != 0;
    return rounds_away(mode, negative, odd, dropped) ? significand + 1 : significand;
}

double with_sign(std::uint64_t bits, bool negative) {
    return std::bit_cast<double>(bits | (negative ? std::uint64_t{1} << 63 : 0));
}

// A carry that rounds the largest double up gives infinity, without a word.
NumericStatus store_normal(Conversion& c, std::int64_t exponent, bool negative, std::uint32_t mode, double* out) {
    const std::uint64_t truncated = significand(c, bit_length(c.vector) - 53);
    if (!is_valid(mode)) return NUMERIC_INVALID_ARGUMENT;
    const std::uint64_t result = rounded(truncated, negative, mode, c.dropped);
    const bool carried = result >> 53 != 0;
    const auto field = static_cast<std::uint64_t>(carried ? exponent + 1 : exponent);
    *out = with_sign(((carried ? result >> 1 : result) & kFraction) | field << 52, negative);
    return c.dropped.anything() ? NUMERIC_INEXACT : NUMERIC_OK;
}

// A carry into bit 52 is masked away: the largest subnormal rounded up gives zero. An invalid mode is refused only
// after the number rounded towards zero was written.
NumericStatus store_subnormal(Conversion& c, std::int64_t exponent, bool negative, std::uint32_t mode, double* out) {
    const std::uint64_t truncated = significand(c, bit_length(c.vector) - 53 + 1 - exponent);
    const bool valid = is_valid(mode);
    const std::uint64_t result = valid ? rounded(truncated, negative, mode, c.dropped) : truncated;
    *out = with_sign(result & kFraction, negative);
    if (!valid) return NUMERIC_INVALID_ARGUMENT;
    return c.dropped.anything() ? NUMERIC_INEXACT : NUMERIC_OK;
}

}  // namespace

NumericStatus to_double(const Numeric* in, const NumericInfo* info, double* out) {
    if (is_zero(*in)) {
        *out = 0.0;
        return NUMERIC_OK;
    }
    if (is_nan(*in)) {
        *out = std::bit_cast<double>(UINT64_MAX);
        return NUMERIC_NAN;
    }
    const bool negative = is_negative(*in);
    const std::int64_t scale = info->scale;
    Conversion c;
    c.vector = magnitude(*in);
    shift_left(c.vector, 128);
    scale > 0 ? divide_by_power_of_ten(c, scale) : multiply_by_power_of_ten(c, -scale);
    const std::int64_t exponent = c.binary + bit_length(c.vector) + 1022;
    if (exponent > 2046) {
        *out = with_sign(kInfinity, negative);
        return range_status(negative);
    }
    if (exponent >= 1) return store_normal(c, exponent, negative, info->rounding_mode, out);
    return store_subnormal(c, exponent, negative, info->rounding_mode, out);
}

}  // namespace reference
