// SPDX-License-Identifier: MIT
#include <bit>

#include "int128_parts.h"
#include "settle.h"

namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128 {
namespace {

NumericStatus from_integer(std::int64_t value, const NumericInfo* info, Numeric* out) {
    const int scale = info->scale;
    if (0 <= scale && scale <= kWordDigits - 1) {
        store(out, static_cast<I128>(value) * static_cast<I128>(kPower[static_cast<std::size_t>(scale)]));
        return NUMERIC_OK;
    }
    if (!is_mode(info->rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    return settle<Dividend::kShort>(out, magnitude(value), value < 0, -scale, info->rounding_mode);
}

// Cut off towards zero; scales 0 to 19.
NumericStatus to_integer(const Numeric* in, const NumericInfo* info, std::int64_t* out) {
    const I128 value = load(in);
    *out = 0;
    if (value == kNan) return NUMERIC_NAN;
    if (!is_mode(info->rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    const U64 unit = low(kPower[static_cast<std::size_t>(info->scale)]);
    U64 remainder;
    const U128 whole = divide_by_word<Dividend::kShort>(magnitude_of_mostly_positive(value), unit, &remainder);
    const bool negative = value < 0;
    if (whole > static_cast<U64>(INT64_MAX) + (negative ? 1 : 0))
        return negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
    *out = static_cast<std::int64_t>(negative ? -low(whole) : low(whole));
    return remainder != 0 ? NUMERIC_INEXACT : NUMERIC_OK;
}

constexpr U64 kHidden = U64{1} << 52;
constexpr int kBias = 1075;  // of an integral significand

// For scales 0 to 22: a significand of 53 bits times 10^22 stays below 2^127.
NumericStatus from_double(const NumericInfo* info, Numeric* out, double value) {
    const U64 pattern = std::bit_cast<U64>(value);
    const bool negative = pattern >> 63 != 0;
    const int field = static_cast<int>(pattern >> 52 & 0x7ff);
    const U64 fraction = pattern & (kHidden - 1);
    if (field == 0x7ff) return nan(out, fraction != 0 ? NUMERIC_NAN : negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW);
    if (!is_mode(info->rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    const U64 significand = field == 0 ? fraction : fraction | kHidden;
    const U128 product = significand * kPower[static_cast<std::size_t>(info->scale)];
    const int exponent = (field == 0 ? 1 : field) - kBias;
    if (exponent >= 0) {
        return finish(out, bit_length(product) + exponent > 127 ? kLimit : product << exponent, negative, false);
    }
    const std::uint32_t mode = info->rounding_mode;
    if (-exponent > 127) {  // far below one half
        return finish(out, increase<U64>(mode, negative, 0, product != 0 ? 1 : 0, 4), negative, product != 0);
    }
    const U128 unit = U128{1} << -exponent, kept = product >> -exponent, remainder = product & (unit - 1);
    return finish(out, kept + increase(mode, negative, kept, remainder, unit), negative, remainder != 0);
}

// A quotient of at least 62 bits, whether less than a unit of it was lost, and its exponent: rounded to 53 bits.
NumericStatus assemble(U64 quotient, bool lost, int exponent, bool negative, std::uint32_t mode, double* out) {
    const int shift = 11 - std::countl_zero(quotient);
    const U64 kept = quotient >> shift, unit = U64{2} << shift;
    const U64 remainder = (quotient << 1 | (lost ? 1 : 0)) & (unit - 1);
    const U64 significand = kept + increase(mode, negative, kept, remainder, unit);
    // The hidden bit, and a carry out of the significand, count in the exponent field.
    const U64 field = static_cast<U64>(exponent + shift + kBias - 1);
    *out = std::bit_cast<double>((negative ? U64{1} << 63 : 0) + (field << 52) + significand);
    return remainder != 0 ? NUMERIC_INEXACT : NUMERIC_OK;
}

// For scales 0 to 19.
NumericStatus to_double(const Numeric* in, const NumericInfo* info, double* out) {
    const I128 value = load(in);
    if (value == kNan) {
        *out = std::bit_cast<double>(~U64{0});
        return NUMERIC_NAN;
    }
    if (value == 0) {
        *out = 0;
        return NUMERIC_OK;
    }
    if (!is_mode(info->rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    const U128 p = magnitude(value);
    // Both with their top bit set: half the dividend is below the divisor, so one division gives 63 or 64 bits.
    const U64 power = low(kPower[static_cast<std::size_t>(info->scale)]);
    const int down = std::countl_zero(power);
    const U64 divisor = power << down;
    const int up = is_word(p) ? 64 + std::countl_zero(low(p)) : std::countl_zero(high(p));
    const U128 dividend = p << up;
    U64 remainder;
    const U64 quotient = divide_2by1(dividend >> 1, divisor, &remainder);
    // value = p / power = dividend / divisor * 2^(down - up)
    return assemble(quotient, remainder != 0 || (low(dividend) & 1) != 0, 1 + down - up, value < 0, info->rounding_mode,
                    out);
}

}  // namespace

void add_machine_numbers(Kernels<Numeric>& kernels) {
    kernels.from_integer = from_integer;
    kernels.to_integer = to_integer;
    kernels.from_double = from_double;
    kernels.to_double = to_double;
}

}  // namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128
