// SPDX-License-Identifier: MIT
#include "exact.h"

#include <deque>
#include <stdexcept>

namespace qv8numeric_tests {
namespace {

const cpp_int kLargest = (cpp_int{1} << 127) - 1;

bool rounds_away(const Cut& cut, std::uint32_t mode) {
    if (cut.dropped == Dropped::kNothing) return false;
    switch (mode) {
        case NUMERIC_ROUND_UP: return true;
        case NUMERIC_ROUND_DOWN: return false;
        case NUMERIC_ROUND_CEILING: return !cut.negative;
        case NUMERIC_ROUND_FLOOR: return cut.negative;
        case NUMERIC_ROUND_HALF_UP: return cut.dropped != Dropped::kBelowHalf;
        case NUMERIC_ROUND_HALF_DOWN: return cut.dropped == Dropped::kAboveHalf;
        case NUMERIC_ROUND_HALF_EVEN:
            return cut.dropped == Dropped::kAboveHalf || (cut.dropped == Dropped::kHalf && bit_test(cut.magnitude, 0));
        default: throw std::invalid_argument("no rounding mode: " + std::to_string(mode));
    }
}

Dropped classify(const cpp_int& remainder, const cpp_int& divisor) {
    if (remainder == 0) return Dropped::kNothing;
    const cpp_int twice = remainder * 2;
    if (twice == divisor) return Dropped::kHalf;
    return twice < divisor ? Dropped::kBelowHalf : Dropped::kAboveHalf;
}

}  // namespace

cpp_int coefficient(const Numeric& value) { return (cpp_int{value.high} << 64) + value.low; }

Numeric pattern(const cpp_int& value) {
    static const cpp_int two_to_64 = cpp_int{1} << 64;
    const cpp_int bits = value < 0 ? value + two_to_64 * two_to_64 : value;
    const cpp_int high = bits / two_to_64 % two_to_64;
    return {static_cast<std::uint64_t>(bits % two_to_64), static_cast<std::int64_t>(static_cast<std::uint64_t>(high))};
}

const cpp_int& power_of_ten(int exponent) {
    static std::deque<cpp_int> powers{cpp_int{1}};  // references stay good while it grows
    const auto index = static_cast<std::size_t>(exponent);
    while (powers.size() <= index) powers.push_back(powers.back() * 10);
    return powers[index];
}

Fraction decimal(const Numeric& value, int scale) {
    if (scale < 0) return {coefficient(value) * power_of_ten(-scale), 1};
    return {coefficient(value), power_of_ten(scale)};
}

Fraction operator+(const Fraction& a, const Fraction& b) {
    return {a.numerator * b.denominator + b.numerator * a.denominator, a.denominator * b.denominator};
}

Fraction operator-(const Fraction& a, const Fraction& b) { return a + Fraction{-b.numerator, b.denominator}; }

Fraction operator*(const Fraction& a, const Fraction& b) {
    return {a.numerator * b.numerator, a.denominator * b.denominator};
}

Fraction operator/(const Fraction& a, const Fraction& b) {
    const cpp_int numerator = a.numerator * b.denominator;
    return {b.numerator < 0 ? -numerator : numerator, a.denominator * abs(b.numerator)};
}

bool operator<(const Fraction& a, const Fraction& b) {
    return a.numerator * b.denominator < b.numerator * a.denominator;
}

Cut cut(const Fraction& exact, int places) {
    const cpp_int divisor = places < 0 ? cpp_int(exact.denominator * power_of_ten(-places)) : exact.denominator;
    cpp_int dividend = abs(exact.numerator);
    if (places > 0) dividend *= power_of_ten(places);
    cpp_int quotient, remainder;
    divide_qr(dividend, divisor, quotient, remainder);
    return {exact.numerator < 0, quotient, classify(remainder, divisor)};
}

cpp_int rounded(const Cut& cut, std::uint32_t mode) {
    const cpp_int magnitude = cut.magnitude + (rounds_away(cut, mode) ? 1 : 0);
    return cut.negative ? -magnitude : magnitude;
}

NumericStatus success(const Cut& cut) { return cut.dropped == Dropped::kNothing ? NUMERIC_OK : NUMERIC_INEXACT; }

Outcome in_range(const cpp_int& value, NumericStatus success) {
    if (value > kLargest) return outcome(NUMERIC_OVERFLOW, "NaN");
    if (value < -kLargest) return outcome(NUMERIC_UNDERFLOW, "NaN");
    return {success, pattern(value)};
}

Outcome narrowed(const Cut& cut, std::uint32_t mode) { return in_range(rounded(cut, mode), success(cut)); }

}  // namespace qv8numeric_tests
