// SPDX-License-Identifier: MIT
// Doubles as bit patterns and as exact fractions.
#ifndef QV8NUMERIC_TESTS_BINARY64_H
#define QV8NUMERIC_TESTS_BINARY64_H

#include <bit>
#include <cstdint>
#include <string>

#include "exact.h"

namespace qv8numeric_tests {

inline constexpr std::uint64_t kSignBit = std::uint64_t{1} << 63;
inline constexpr std::uint64_t kInfinityBits = std::uint64_t{0x7ff} << 52;
inline constexpr std::uint64_t kFractionMask = (std::uint64_t{1} << 52) - 1;

constexpr std::uint64_t bits(double value) { return std::bit_cast<std::uint64_t>(value); }
constexpr double from_bits(std::uint64_t pattern) { return std::bit_cast<double>(pattern); }

// As 0x3fb999999999999a.
std::string bits_text(std::uint64_t pattern);

// The value of a finite double.
Fraction exact_value(double value);

struct DoubleOutcome {
    NumericStatus status;
    std::uint64_t bits;

    friend bool operator==(const DoubleOutcome&, const DoubleOutcome&) = default;
    friend std::ostream& operator<<(std::ostream& out, const DoubleOutcome& outcome) {
        return out << bits_text(outcome.bits) << " with " << status_name(outcome.status);
    }
};

// The double for a coefficient other than zero and NaN, from its exact value. It keeps two peculiarities: rounded up
// from the largest double it is an infinity without an overflow status, and a subnormal rounded up to the smallest
// normal number is zero.
struct NearestDouble {
    DoubleOutcome outcome;
    // The value lies right on a point where a result changes, or more than 2^-74 of itself away from every one. Less
    // than that, lost on the way, cannot decide then.
    bool clear;
};
NearestDouble nearest_double(const Numeric& value, const NumericInfo& info);

}  // namespace qv8numeric_tests

#endif
