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
    EXPECT_EQ(with_sign(WordPair{0, 0}, true), (Numeric{0, 0})) << "there is one zero";
    EXPECT_EQ(with_sign(UINT64_C(0), true), (Numeric{0, 0})) << "also in one word";
}

TEST(Coefficient, IsTheSame128BitsBothWays) {
    for (const CoefficientRow& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(bits_of(row.value), pair(integer(row.value)));
        EXPECT_EQ(from_bits(bits_of(row.value)), row.value);
    }
}

struct WidthRow {
    const char* name;
    Numeric value;
    bool fits_int64;
};

constexpr uint64_t kTop = UINT64_C(1) << 63;

constexpr WidthRow kWidthRows[] = {
    {"zero", {0, 0}, true},
    {"one", kOne, true},
    {"minus one", kMinusOne, true},
    {"2^63 - 1", {kTop - 1, 0}, true},
    {"2^63, though its high half is 0", {kTop, 0}, false},
    {"2^64 - 1, though its high half is 0", {UINT64_MAX, 0}, false},
    {"2^64", {0, 1}, false},
    {"-2^63", {kTop, -1}, true},
    {"-2^63 - 1, though its high half is -1", {kTop - 1, -1}, false},
    {"-2^64 + 1, though its high half is -1", {1, -1}, false},
    {"-2^64, whose magnitude has 65 bits, though its high half is -1", {0, -1}, false},
    {"-2^64 - 1", {UINT64_MAX, -2}, false},
    {"a high half of 1 above a low half without its top bit", {5, 1}, false},
    {"a high half of -2 above a low half with its top bit", {kTop + 5, -2}, false},
    {"the largest", kLargest, false},
    {"the smallest", kSmallest, false},
    {"NaN", {0, INT64_MIN}, false},
};

TEST(Coefficient, FitsAnInt64WhenItsValueDoes) {
    for (const WidthRow& row : kWidthRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(fits_int64(row.value), row.fits_int64);
        const Integer value = integer(row.value);
        EXPECT_EQ(row.fits_int64, INT64_MIN <= value && value <= INT64_MAX) << "the row itself";
    }
}

TEST(Coefficient, HasItsMagnitudeInOneWordWhereItFits) {
    for (const WidthRow& row : kWidthRows) {
        SCOPED_TRACE(row.name);
        const Integer magnitude = abs(integer(row.value));
        EXPECT_EQ(integer(magnitude_as<WordPair>(row.value)), magnitude);
        if (!row.fits_int64) continue;
        EXPECT_EQ(Integer{magnitude_as<uint64_t>(row.value)}, magnitude);
        EXPECT_EQ(with_sign(magnitude_as<uint64_t>(row.value), is_negative(row.value)), row.value);
    }
}

TEST(Coefficient, SignOfAWordOfAnySizeIsPutBack) {
    for (const uint64_t magnitude : {UINT64_C(1), kTop - 1, kTop, kTop + 1, UINT64_MAX}) {
        EXPECT_EQ(integer(with_sign(magnitude, false)), Integer{magnitude});
        EXPECT_EQ(integer(with_sign(magnitude, true)), -Integer{magnitude});
    }
}

TEST(Coefficient, OrderIsThatOfSignedNumbersWithNanBelowThem) {
    for (const WidthRow& a : kWidthRows) {
        for (const WidthRow& b : kWidthRows) {
            EXPECT_EQ(a.value < b.value, integer(a.value) < integer(b.value)) << a.name << ", " << b.name;
        }
    }
    RandomValues random(1);
    for (int i = 0; i < 20000; ++i) {
        const Numeric a = from_bits(random.pair()), b = from_bits(random.pair());
        EXPECT_EQ(a < b, integer(a) < integer(b)) << a << ", " << b;
    }
}

TEST(Coefficient, NanOfEitherOperandIsPassedOn) {
    struct Row {
        const char* name;
        Numeric a;
        Numeric b;
        bool passed_on;
    };
    constexpr Row rows[] = {
        {"neither", kLargest, kSmallest, false},
        {"the first", nan_pattern, kOne, true},
        {"the second", kOne, nan_pattern, true},
        {"both", nan_pattern, nan_pattern, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Numeric result = kPoison;
        EXPECT_EQ(propagates_nan(row.a, row.b, result), row.passed_on);
        EXPECT_EQ(result, row.passed_on ? nan_pattern : kPoison);
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
static_assert(is_negative(with_sign(WordPair{0, 1}, true)) && is_negative(with_sign(UINT64_C(1), true)));
static_assert(fits_int64(kMinusOne) && !fits_int64({0, -1}) && !fits_int64(nan_pattern));
static_assert(nan_pattern < kSmallest && kMinusOne < kOne && !(kOne < kOne));
static_assert(magnitude_as<uint64_t>({kTop, -1}) == kTop && magnitude_as<WordPair>(kMinusOne) == WordPair{0, 1});
static_assert(limb(kSmallest, 3) == 0x80000000);

}  // namespace
}  // namespace qv8numeric_tests
