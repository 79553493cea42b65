// SPDX-License-Identifier: MIT
// Add, subtract and compare of coefficients that share one scale.
#include <gtest/gtest.h>

#include <span>

#include "calls.h"
#include "exact.h"
#include "special_values.h"

namespace qv8numeric_tests {
namespace {

struct Row {
    const char* name;
    const char* a;
    const char* b;
    NumericStatus status;
    const char* expected;
};

void expect_rows(const BinaryOperation& operation, std::span<const Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(yields(operation, num(row.a), num(row.b), outcome(row.status, row.expected)))
            << row.a << " and " << row.b;
    }
}

constexpr Row kAddRows[] = {
    {"small numbers", "2", "3", NUMERIC_OK, "5"},
    {"opposite signs cancel to the one zero", "5", "-5", NUMERIC_OK, "0"},
    {"zero and zero", "0", "0", NUMERIC_OK, "0"},
    {"carry out of a full low half", "2^64-1", "1", NUMERIC_OK, "2^64"},
    {"two full low halves", "2^64-1", "2^64-1", NUMERIC_OK, "2^65-2"},
    {"carry through the limb boundary in the low half", "2^32-1", "1", NUMERIC_OK, "2^32"},
    {"carry out of the low half brings a negative up to zero", "-1", "1", NUMERIC_OK, "0"},
    {"carry out of bit 127 alone is no overflow", "-1", "-1", NUMERIC_OK, "-2"},
    {"-2^64 and its negative", "-2^64", "2^64", NUMERIC_OK, "0"},
    {"-2^64 twice", "-2^64", "-2^64", NUMERIC_OK, "-2^65"},
    {"-2^64 plus one crosses into a full low half", "-2^64", "1", NUMERIC_OK, "-2^64+1"},
    {"around 2^63", "2^63", "2^63", NUMERIC_OK, "2^64"},
    {"around -2^63", "-2^63", "-2^63-1", NUMERIC_OK, "-2^64-1"},
    {"up to the largest value", "2^127-2", "1", NUMERIC_OK, "2^127-1"},
    {"down to the smallest value", "-2^127+2", "-1", NUMERIC_OK, "-2^127+1"},
    {"the limits cancel", "2^127-1", "-2^127+1", NUMERIC_OK, "0"},
    {"the largest value and zero", "2^127-1", "0", NUMERIC_OK, "2^127-1"},
    {"the smallest value and zero", "-2^127+1", "0", NUMERIC_OK, "-2^127+1"},

    {"one above the largest value has the NaN pattern", "2^127-1", "1", NUMERIC_OVERFLOW, "NaN"},
    {"two above the largest value", "2^127-1", "2", NUMERIC_OVERFLOW, "NaN"},
    {"2^127 from two halves", "2^126", "2^126", NUMERIC_OVERFLOW, "NaN"},
    {"the largest value twice", "2^127-1", "2^127-1", NUMERIC_OVERFLOW, "NaN"},
    {"exactly -2^127 is the NaN pattern, not a value", "-1", "-2^127+1", NUMERIC_UNDERFLOW, "NaN"},
    {"exactly -2^127 from two halves", "-2^126", "-2^126", NUMERIC_UNDERFLOW, "NaN"},
    {"one below -2^127", "-2^127+1", "-2", NUMERIC_UNDERFLOW, "NaN"},
    {"the smallest value twice", "-2^127+1", "-2^127+1", NUMERIC_UNDERFLOW, "NaN"},
    {"-2^64 pulls below the range", "-2^127+1", "-2^64", NUMERIC_UNDERFLOW, "NaN"},

    {"NaN first", "NaN", "5", NUMERIC_NAN, "NaN"},
    {"NaN second", "5", "NaN", NUMERIC_NAN, "NaN"},
    {"NaN twice", "NaN", "NaN", NUMERIC_NAN, "NaN"},
    {"NaN and zero", "NaN", "0", NUMERIC_NAN, "NaN"},
    {"NaN with a sum that would be in range as an integer", "NaN", "2^127-1", NUMERIC_NAN, "NaN"},
    {"-2^64 and NaN", "-2^64", "NaN", NUMERIC_NAN, "NaN"},
};

constexpr Row kSubtractRows[] = {
    {"small numbers", "2", "3", NUMERIC_OK, "-1"},
    {"equal values leave the one zero", "5", "5", NUMERIC_OK, "0"},
    {"borrow from the high half", "2^64", "1", NUMERIC_OK, "2^64-1"},
    {"borrow through the limb boundary in the low half", "2^32", "1", NUMERIC_OK, "2^32-1"},
    {"borrow out of bit 127 alone is no overflow", "0", "1", NUMERIC_OK, "-1"},
    {"a negative less a negative", "-5", "-8", NUMERIC_OK, "3"},
    {"-2^64 less one", "-2^64", "1", NUMERIC_OK, "-2^64-1"},
    {"nothing less -2^64", "0", "-2^64", NUMERIC_OK, "2^64"},
    {"-2^64 less itself", "-2^64", "-2^64", NUMERIC_OK, "0"},
    {"around 2^63", "-2^63", "2^63", NUMERIC_OK, "-2^64"},
    {"up to the largest value", "2^127-2", "-1", NUMERIC_OK, "2^127-1"},
    {"down to the smallest value", "-2^127+2", "1", NUMERIC_OK, "-2^127+1"},
    {"negating the largest value", "0", "2^127-1", NUMERIC_OK, "-2^127+1"},
    {"negating the smallest value", "0", "-2^127+1", NUMERIC_OK, "2^127-1"},
    {"the largest value less itself", "2^127-1", "2^127-1", NUMERIC_OK, "0"},

    {"one above the largest value has the NaN pattern", "2^127-1", "-1", NUMERIC_OVERFLOW, "NaN"},
    {"two above the largest value", "2^127-1", "-2", NUMERIC_OVERFLOW, "NaN"},
    {"the limits, upwards", "2^127-1", "-2^127+1", NUMERIC_OVERFLOW, "NaN"},
    {"exactly -2^127 is the NaN pattern, not a value", "-1", "2^127-1", NUMERIC_UNDERFLOW, "NaN"},
    {"exactly -2^127 from two halves", "-2^126", "2^126", NUMERIC_UNDERFLOW, "NaN"},
    {"one below -2^127", "-2", "2^127-1", NUMERIC_UNDERFLOW, "NaN"},
    {"the limits, downwards", "-2^127+1", "2^127-1", NUMERIC_UNDERFLOW, "NaN"},
    {"-2^64 pushes above the range", "2^127-1", "-2^64", NUMERIC_OVERFLOW, "NaN"},

    {"NaN first", "NaN", "5", NUMERIC_NAN, "NaN"},
    {"NaN second", "5", "NaN", NUMERIC_NAN, "NaN"},
    {"NaN less itself", "NaN", "NaN", NUMERIC_NAN, "NaN"},
    {"NaN less nothing", "NaN", "0", NUMERIC_NAN, "NaN"},
    {"nothing less NaN", "0", "NaN", NUMERIC_NAN, "NaN"},
};

TEST(SameScaleAdd, Rows) { expect_rows(QV8NumericAdd, kAddRows); }

TEST(SameScaleSubtract, Rows) { expect_rows(QV8NumericSub, kSubtractRows); }

TEST(SameScaleAdd, InPlaceSumIsLeftInTheFirstOperand) {
    Numeric a = num("2^64-1");
    const Numeric b = num("-2^64");
    EXPECT_EQ(status_name(QV8NumericAdd(&a, &b, &a)), "NUMERIC_OK");
    EXPECT_EQ(a, num("-1"));
}

TEST(SameScaleAdd, AllPairsOfSpecialValues) {
    for (const Numeric& a : special_values()) {
        for (const Numeric& b : special_values()) {
            const Outcome expected = in_range(coefficient(a) + coefficient(b), NUMERIC_OK);
            EXPECT_TRUE(yields(QV8NumericAdd, a, b, expected)) << a << " + " << b;
        }
    }
}

TEST(SameScaleSubtract, AllPairsOfSpecialValues) {
    for (const Numeric& a : special_values()) {
        for (const Numeric& b : special_values()) {
            const Outcome expected = in_range(coefficient(a) - coefficient(b), NUMERIC_OK);
            EXPECT_TRUE(yields(QV8NumericSub, a, b, expected)) << a << " - " << b;
        }
    }
}

// The ordering answers "does it go up from a to b?": +1 when a is the smaller.
struct CompareRow {
    const char* name;
    const char* a;
    const char* b;
    std::int32_t expected;
};

constexpr CompareRow kCompareRows[] = {
    {"the smaller first", "1", "2", +1},
    {"the larger first", "2", "1", -1},
    {"a negative before a positive", "-1", "1", +1},
    {"a positive before a negative", "1", "-1", -1},
    {"equal", "12345", "12345", 0},
    {"zero and zero", "0", "0", 0},
    {"two negatives, the smaller first", "-3", "-2", +1},
    {"the high half decides against the low half", "2^64", "2^64-1", -1},
    {"the low half is unsigned: 2^63 above 1", "1", "2^63", +1},
    {"the low half is unsigned under a negative high half", "-2^64", "-2^63", +1},
    {"-2^64 and its neighbour above", "-2^64", "-2^64+1", +1},
    {"-2^64 and its neighbour below", "-2^64", "-2^64-1", -1},
    {"-2^64 and itself", "-2^64", "-2^64", 0},
    {"-2^64 and its negative", "-2^64", "2^64", +1},
    {"the limits", "-2^127+1", "2^127-1", +1},
    {"the limits, exchanged", "2^127-1", "-2^127+1", -1},
    {"NaN below zero", "NaN", "0", +1},
    {"zero above NaN", "0", "NaN", -1},
    {"NaN below even the smallest value", "NaN", "-2^127+1", +1},
    {"the smallest value above NaN", "-2^127+1", "NaN", -1},
    {"NaN below the largest value", "NaN", "2^127-1", +1},
    {"NaN equal to itself", "NaN", "NaN", 0},
};

TEST(SameScaleCompare, Rows) {
    for (const CompareRow& row : kCompareRows) {
        SCOPED_TRACE(row.name);
        const Numeric a = num(row.a), b = num(row.b);
        EXPECT_EQ(QV8NumericCmp(&a, &b), row.expected);
        EXPECT_EQ(a, num(row.a));
        EXPECT_EQ(b, num(row.b));
    }
}

TEST(SameScaleCompare, AnObjectIsEqualToItself) {
    for (const Numeric& a : special_values()) EXPECT_EQ(QV8NumericCmp(&a, &a), 0) << a;
    const Numeric nan = num("NaN");
    EXPECT_EQ(QV8NumericCmp(&nan, &nan), 0);
}

TEST(SameScaleCompare, AllPairsOfSpecialValues) {
    for (const Numeric& a : special_values()) {
        for (const Numeric& b : special_values()) {
            const cpp_int difference = coefficient(b) - coefficient(a);
            EXPECT_EQ(QV8NumericCmp(&a, &b), difference.sign()) << a << " and " << b;
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
