// SPDX-License-Identifier: MIT
// A coefficient as bits, sign and magnitude.
#include "wide/coefficient.h"

#include <gtest/gtest.h>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

constexpr Numeric kOne{1, 0};
constexpr Numeric kMinusOne{UINT64_MAX, -1};
constexpr Numeric kLargest{UINT64_MAX, INT64_MAX};
constexpr Numeric kSmallest{1, INT64_MIN};  // -(2^127 - 1)

struct CoefficientRow {
    const char* name;
    Numeric value;
    bool nan;
    bool zero;
    bool negative;
    WordPair magnitude;
};

constexpr CoefficientRow kRows[] = {
    {"zero", {0, 0}, false, true, false, {0, 0}},
    {"one", kOne, false, false, false, {0, 1}},
    {"minus one", kMinusOne, false, false, true, {0, 1}},
    {"a zero low half", {0, 1}, false, false, false, {1, 0}},
    {"a carry into the high half of the magnitude", {0, -1}, false, false, true, {1, 0}},
    {"no carry into it", {1, -1}, false, false, true, {0, UINT64_MAX}},
    {"the largest", kLargest, false, false, false, {INT64_MAX, UINT64_MAX}},
    {"the smallest, one above the pattern of NaN", kSmallest, false, false, true, {INT64_MAX, UINT64_MAX}},
    {"NaN, whose magnitude is 2^127", {0, INT64_MIN}, true, false, true, {UINT64_C(1) << 63, 0}},
    {"the bits of NaN in the low half", {UINT64_C(1) << 63, 0}, false, false, false, {0, UINT64_C(1) << 63}},
};

TEST(Coefficient, IsClassifiedByItsBits) {
    for (const CoefficientRow& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(is_nan(row.value), row.nan);
        EXPECT_EQ(is_zero(row.value), row.zero);
        EXPECT_EQ(is_negative(row.value), row.negative);
    }
}

TEST(Coefficient, TakesItsSignOffAndPutsItBack) {
    for (const CoefficientRow& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(magnitude_of(row.value), row.magnitude);
        EXPECT_EQ(with_sign(row.magnitude, row.negative), row.value);
    }
    EXPECT_EQ(with_sign({0, 0}, true), (Numeric{0, 0})) << "there is one zero";
}

TEST(Coefficient, IsTheSame128BitsBothWays) {
    for (const CoefficientRow& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(bits_of(row.value), pair(integer(row.value)));
        EXPECT_EQ(from_bits(bits_of(row.value)), row.value);
    }
}

TEST(Coefficient, HasFourLimbsLowestFirst) {
    const Numeric value{0x76543210fedcba98, static_cast<int64_t>(0x89abcdef01234567)};
    EXPECT_EQ(limb(value, 0), 0xfedcba98U);
    EXPECT_EQ(limb(value, 1), 0x76543210U);
    EXPECT_EQ(limb(value, 2), 0x01234567U);
    EXPECT_EQ(limb(value, 3), 0x89abcdefU);
}

static_assert(is_nan(nan_pattern) && !is_nan(kSmallest) && !is_zero(nan_pattern));
static_assert(magnitude_of(kSmallest) == magnitude_of(kLargest));
static_assert(bits_of(from_bits({1, 2})) == WordPair{1, 2});
static_assert(is_negative(with_sign({0, 1}, true)));
static_assert(limb(kSmallest, 3) == 0x80000000);

}  // namespace
}  // namespace qv8numeric_tests
