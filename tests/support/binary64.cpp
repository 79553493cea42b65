// SPDX-License-Identifier: MIT
#include "binary64.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace qv8numeric_tests {
namespace {

constexpr int kSignificandBits = 53;
constexpr int kLargestExponent = 1023;
constexpr int kSmallestNormalExponent = -1022;
constexpr int kSmallestSubnormalExponent = -1074;

// value * 2^exponent, for 0 <= value
Fraction scaled_by_two(const Fraction& value, int exponent) {
    const auto distance = static_cast<unsigned>(std::abs(exponent));
    if (exponent < 0) return {value.numerator, value.denominator << distance};
    return {value.numerator << distance, value.denominator};
}

// floor(log2(value)), for 0 < value
int binary_exponent(const Fraction& value) {
    const int estimate = static_cast<int>(msb(value.numerator)) - static_cast<int>(msb(value.denominator));
    const Fraction scaled = scaled_by_two(value, -estimate);
    return scaled.numerator < scaled.denominator ? estimate - 1 : estimate;
}

bool is_clear(const Fraction& value) {
    const cpp_int remainder = value.numerator % value.denominator;
    const cpp_int twice = remainder * 2;
    if (remainder == 0 || twice == value.denominator) return true;
    const cpp_int to_half = abs(cpp_int(twice - value.denominator));
    const cpp_int nearest = std::min({remainder, cpp_int(value.denominator - remainder), to_half});
    return (nearest << 74) > value.numerator;
}

}  // namespace

std::string bits_text(std::uint64_t pattern) {
    std::ostringstream out;
    out << "0x" << std::hex << std::setw(16) << std::setfill('0') << pattern;
    return out.str();
}

Fraction exact_value(double value) {
    const std::uint64_t pattern = bits(value);
    const int field = static_cast<int>(pattern >> 52 & 0x7ff);
    const cpp_int significand = (pattern & kFractionMask) + (field != 0 ? kFractionMask + 1 : 0);
    Fraction exact = scaled_by_two({significand, 1}, std::max(field, 1) - 1075);
    if (pattern & kSignBit) exact.numerator = -exact.numerator;
    return exact;
}

NearestDouble nearest_double(const Numeric& value, const NumericInfo& info) {
    Fraction exact = decimal(value, info.scale);
    const bool negative = exact.numerator < 0;
    const std::uint64_t sign = negative ? kSignBit : 0;
    exact.numerator = abs(exact.numerator);
    const int exponent = binary_exponent(exact);
    if (exponent > kLargestExponent) {
        return {{negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW, sign | kInfinityBits}, true};
    }
    const int unit = std::max(exponent - (kSignificandBits - 1), kSmallestSubnormalExponent);
    const Fraction in_units = scaled_by_two(exact, -unit);
    Cut significand = cut(in_units, 0);
    significand.negative = negative;
    const auto rounded_up = static_cast<std::uint64_t>(abs(rounded(significand, info.rounding_mode)));
    // Above the fraction a carry runs on into the exponent field.
    const std::uint64_t pattern =
        exponent < kSmallestNormalExponent
            ? rounded_up & kFractionMask
            : (static_cast<std::uint64_t>(exponent - kSmallestNormalExponent) << 52) + rounded_up;
    return {{success(significand), sign | pattern}, is_clear(in_units)};
}

}  // namespace qv8numeric_tests
