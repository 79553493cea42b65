// SPDX-License-Identifier: MIT
// Calls an operation in every arrangement of its arguments that a caller may choose, and holds each against one
// expected outcome. Every coefficient lies at an address that is a multiple of 8 and not of 16, between two words that
// must survive, and whatever is not the output must keep its value.
#ifndef QV8NUMERIC_TESTS_CALLS_H
#define QV8NUMERIC_TESTS_CALLS_H

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>

#include "outcome.h"

inline bool operator==(const NumericInfo& a, const NumericInfo& b) {
    return a.scale == b.scale && a.rounding_mode == b.rounding_mode;
}

namespace qv8numeric_tests {

inline constexpr std::uint64_t kGuardWord = 0xa5a5a5a5a5a5a5a5U;

struct alignas(16) GuardedNumeric {
    std::uint64_t before = kGuardWord;
    Numeric value = kPoison;
    std::uint64_t after = kGuardWord;

    bool guards_intact() const { return before == kGuardWord && after == kGuardWord; }
};
static_assert(offsetof(GuardedNumeric, value) % 16 == 8);

// Operations with their descriptors already bound.
using BinaryOperation = std::function<NumericStatus(const Numeric* a, const Numeric* b, Numeric* result)>;
using UnaryOperation = std::function<NumericStatus(const Numeric* source, Numeric* result)>;
using InPlaceOperation = std::function<NumericStatus(Numeric* value)>;

// A result of its own, over the first operand, over the second; where both operands have the same value also one object
// for both, and one object for all three.
testing::AssertionResult yields(const BinaryOperation& operation, const Numeric& a, const Numeric& b,
                                const Outcome& expected);

// A result of its own, and over the source.
testing::AssertionResult yields(const UnaryOperation& operation, const Numeric& source, const Outcome& expected);

testing::AssertionResult yields(const InPlaceOperation& operation, const Numeric& value, const Outcome& expected);

}  // namespace qv8numeric_tests

#endif
