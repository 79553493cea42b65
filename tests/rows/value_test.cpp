// SPDX-License-Identifier: MIT
// The value itself: what is zero, what is NaN, and that setting one writes the coefficient and nothing beside it.
#include <gtest/gtest.h>

#include "calls.h"
#include "special_values.h"
#include "values.h"

namespace qv8numeric_tests {
namespace {

struct PredicateRow {
    const char* name;
    Numeric value;
    int is_zero;
    int is_nan;
};

constexpr std::int64_t kSignOnly = INT64_MIN;  // 0x8000000000000000

constexpr PredicateRow kPredicateRows[] = {
    {"zero is no NaN", {0, 0}, 1, 0},
    {"one", {1, 0}, 0, 0},
    {"minus one", {UINT64_MAX, -1}, 0, 0},
    {"only the lowest bit of the high half", {0, 1}, 0, 0},
    {"only the highest bit of the low half", {0x8000000000000000U, 0}, 0, 0},
    {"-2^64, whose low half is zero", {0, -1}, 0, 0},
    {"the NaN pattern is not zero", {0, kSignOnly}, 0, 1},
    {"one above the NaN pattern is the smallest value, -(2^127 - 1)", {1, kSignOnly}, 0, 0},
    {"the NaN pattern's high half with the low half full", {UINT64_MAX, kSignOnly}, 0, 0},
    {"the NaN pattern's high half plus one", {0, kSignOnly + 1}, 0, 0},
    {"the NaN pattern with its halves exchanged", {0x8000000000000000U, kSignOnly}, 0, 0},
    {"the largest value", {UINT64_MAX, INT64_MAX}, 0, 0},
    {"the largest high half over an empty low half", {0, INT64_MAX}, 0, 0},
};

TEST(Value, PredicatesAnswerExactlyOneOrZero) {
    for (const PredicateRow& row : kPredicateRows) {
        SCOPED_TRACE(row.name);
        const GuardedNumeric object{.value = row.value};
        EXPECT_EQ(QV8NumericIsZero(&object.value), row.is_zero);
        EXPECT_EQ(QV8NumericIsNan(&object.value), row.is_nan);
        EXPECT_EQ(object.value, row.value);
    }
}

TEST(Value, OnlyOneSingleBitPatternIsNan) {
    for (int bit = 0; bit < 128; ++bit) {
        const std::uint64_t half = std::uint64_t{1} << (bit % 64);
        const Numeric value = bit < 64 ? Numeric{half, 0} : Numeric{0, static_cast<std::int64_t>(half)};
        EXPECT_EQ(QV8NumericIsNan(&value), bit == 127 ? 1 : 0) << "bit " << bit;
        EXPECT_EQ(QV8NumericIsZero(&value), 0) << "bit " << bit;
    }
}

TEST(Value, TheSmallestValueIsOneAboveNan) {
    EXPECT_EQ(num("-2^127+1"), (Numeric{1, kSignOnly}));
    EXPECT_EQ(num("NaN"), (Numeric{0, kSignOnly}));
}

TEST(Value, SetZeroWritesBothHalvesAndNothingElse) {
    for (const char* before : {"NaN", "-2^64", "2^64", "-1", "2^127-1", "0"}) {
        SCOPED_TRACE(before);
        GuardedNumeric object{.value = num(before)};
        QV8NumericSetZero(&object.value);
        EXPECT_EQ(object.value, (Numeric{0, 0}));
        EXPECT_EQ(QV8NumericIsZero(&object.value), 1);
        EXPECT_TRUE(object.guards_intact());
    }
}

TEST(Value, SetNanWritesBothHalvesAndNothingElse) {
    for (const char* before : {"0", "-2^64", "2^64", "-1", "2^127-1", "NaN"}) {
        SCOPED_TRACE(before);
        GuardedNumeric object{.value = num(before)};
        QV8NumericSetNan(&object.value);
        EXPECT_EQ(object.value, (Numeric{0, kSignOnly}));
        EXPECT_EQ(QV8NumericIsNan(&object.value), 1);
        EXPECT_TRUE(object.guards_intact());
    }
}

TEST(Value, NoSpecialValueIsTakenForNan) {
    for (const Numeric& value : special_values()) {
        EXPECT_EQ(QV8NumericIsNan(&value), 0) << text(value);
        EXPECT_EQ(QV8NumericIsZero(&value), value == num("0") ? 1 : 0) << text(value);
    }
}

}  // namespace
}  // namespace qv8numeric_tests
