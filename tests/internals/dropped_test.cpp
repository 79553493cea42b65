// SPDX-License-Identifier: MIT
// The two words that stand for everything a change of scale has dropped.
#include "wide/dropped.h"

#include <gtest/gtest.h>

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

// -1, 0 or 1 as 2 * remainder is below, equal to or above the divisor.
int side_of_half(uint64_t remainder, uint64_t divisor) {
    return (2 * remainder > divisor ? 1 : 0) - (2 * remainder < divisor ? 1 : 0);
}

int side_of_half(uint32_t code) { return (code > 0x80000000 ? 1 : 0) - (code < 0x80000000 ? 1 : 0); }

void expect_code(uint32_t remainder, uint32_t divisor) {
    const uint32_t code = remainder_code(remainder, divisor);
    EXPECT_EQ(code == 0, remainder == 0) << remainder << " of " << divisor;
    if (remainder != 0) {
        EXPECT_EQ(side_of_half(code), side_of_half(remainder, divisor)) << remainder << " of " << divisor;
        EXPECT_EQ(int64_t{code}, int64_t{0x80000000} - divisor + 2 * int64_t{remainder})
            << remainder << " of " << divisor;
    }
    EXPECT_EQ(remainder_of(code, divisor), remainder) << remainder << " of " << divisor;
}

struct CodeRow {
    const char* name;
    uint32_t remainder;
    uint32_t divisor;
    uint32_t code;
};

constexpr CodeRow kCodeRows[] = {
    {"nothing", 0, 100000000, 0},
    {"the smallest remainder of eight digits", 1, 100000000, 0x7A0A1F02},
    {"one half of eight digits", 50000000, 100000000, 0x80000000},
    {"the largest remainder of eight digits", 99999999, 100000000, 0x85F5E0FE},
    {"one half of one digit", 5, 10, 0x80000000},
    {"the largest remainder of one digit", 9, 10, 0x80000008},
    {"the smallest remainder of one digit", 1, 10, 0x7FFFFFF8},
    {"no half of an odd divisor, just below", 2, 5, 0x7FFFFFFF},
    {"no half of an odd divisor, just above", 3, 5, 0x80000001},
    {"the smallest remainder of the largest divisor", 1, 0x80000000, 2},
    {"the largest remainder of the largest divisor", 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE},
};

TEST(RemainderCode, OfNamedRemainders) {
    for (const CodeRow& row : kCodeRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(remainder_code(row.remainder, row.divisor), row.code);
        EXPECT_EQ(remainder_of(row.code, row.divisor), row.remainder);
    }
}

TEST(RemainderCode, OfEveryRemainderOfSmallDivisors) {
    for (uint32_t divisor = 1; divisor <= 300; ++divisor) {
        for (uint32_t remainder = 0; remainder < divisor; ++remainder) expect_code(remainder, divisor);
    }
}

TEST(RemainderCode, AroundTheHalfOfLargeDivisors) {
    for (const uint32_t divisor : {10000U, 1000000U, 9765625U, 100000000U, 244140625U, 0x7FFFFFFFU, 0x80000000U}) {
        for (const uint32_t remainder : {1U, divisor / 2 - 1, divisor / 2, divisor / 2 + 1, divisor - 1}) {
            expect_code(remainder, divisor);
        }
    }
}

struct AnythingRow {
    const char* name;
    Dropped dropped;
    bool anything;
};

constexpr AnythingRow kAnythingRows[] = {
    {"nothing", {0, 0}, false},
    {"in the last step", {1, 0}, true},
    {"in an earlier step", {0, 1}, true},
    {"in both", {0x80000000, 0x80000000}, true},
};

TEST(Dropped, IsAnythingWhenEitherWordIs) {
    for (const AnythingRow& row : kAnythingRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.dropped.anything(), row.anything);
    }
}

TEST(Dropped, EachStepMakesTheOneBeforeSticky) {
    Dropped dropped;
    EXPECT_FALSE(dropped.anything());
    drop(dropped, 0x10);
    EXPECT_EQ(dropped.code, 0x10U);
    EXPECT_EQ(dropped.sticky, 0U);
    drop(dropped, 0x02);
    EXPECT_EQ(dropped.code, 0x02U);
    EXPECT_EQ(dropped.sticky, 0x10U);
    drop(dropped, 0);
    EXPECT_EQ(dropped.code, 0U);
    EXPECT_EQ(dropped.sticky, 0x12U);
}

static_assert(remainder_code(3, 7) == 0x7FFFFFFF && remainder_code(4, 7) == 0x80000001);
static_assert(remainder_of(remainder_code(6, 7), 7) == 6);
static_assert(!Dropped{}.anything());
static_assert([] {
    Dropped dropped{one_half, 0};
    drop(dropped, 0);
    return dropped.code == 0 && dropped.sticky == one_half;
}());

}  // namespace
}  // namespace qv8numeric_tests
