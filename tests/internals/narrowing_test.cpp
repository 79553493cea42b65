// SPDX-License-Identifier: MIT
// From a magnitude in 256 bits and a sign to a coefficient and a status.
#include "wide/narrowing.h"

#include <gtest/gtest.h>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

struct RangeRow {
    const char* name;
    ExtendedNumeric magnitude;
    bool fits;
    const char* positive;  // as a coefficient; out of range both are NaN
    const char* negative;
};

constexpr uint64_t kTop = UINT64_C(1) << 63;

constexpr RangeRow kRangeRows[] = {
    {"zero has no sign", {{0, 0, 0, 0}}, true, "0", "0"},
    {"one", {{1, 0, 0, 0}}, true, "1", "-1"},
    {"2^64 - 1", {{UINT64_MAX, 0, 0, 0}}, true, "2^64-1", "-2^64+1"},
    {"2^64", {{0, 1, 0, 0}}, true, "2^64", "-2^64"},
    {"2^127 - 1", {{UINT64_MAX, kTop - 1, 0, 0}}, true, "2^127-1", "-2^127+1"},
    {"2^127, whose negative is the pattern of NaN", {{0, kTop, 0, 0}}, false, "NaN", "NaN"},
    {"2^127 + 1", {{1, kTop, 0, 0}}, false, "NaN", "NaN"},
    {"2^128 - 1", {{UINT64_MAX, UINT64_MAX, 0, 0}}, false, "NaN", "NaN"},
    {"the lowest bit of word 2", {{0, 0, 1, 0}}, false, "NaN", "NaN"},
    {"the highest bit of word 2", {{0, 0, kTop, 0}}, false, "NaN", "NaN"},
    {"the lowest bit of word 3", {{0, 0, 0, 1}}, false, "NaN", "NaN"},
    {"the highest bit of word 3", {{0, 0, 0, kTop}}, false, "NaN", "NaN"},
    {"all bits", {{UINT64_MAX, UINT64_MAX, UINT64_MAX, UINT64_MAX}}, false, "NaN", "NaN"},
};

TEST(Narrowing, FitsUpTo2To127Minus1) {
    for (const RangeRow& row : kRangeRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(fits(row.magnitude), row.fits);
    }
}

TEST(Narrowing, RefusesOnTheSideOfTheSign) {
    Numeric result = kPoison;
    EXPECT_EQ(refuse(false, result), NUMERIC_OVERFLOW);
    EXPECT_EQ(result, num("NaN"));
    result = kPoison;
    EXPECT_EQ(refuse(true, result), NUMERIC_UNDERFLOW);
    EXPECT_EQ(result, num("NaN"));
}

TEST(Narrowing, WritesTheResultWithTheStatusItWasGiven) {
    for (const RangeRow& row : kRangeRows) {
        SCOPED_TRACE(row.name);
        for (const NumericStatus status : {NUMERIC_OK, NUMERIC_INEXACT}) {
            Numeric result = kPoison;
            EXPECT_EQ(narrow(row.magnitude, false, 0, status, result), row.fits ? status : NUMERIC_OVERFLOW);
            EXPECT_EQ(result, num(row.positive));
            result = kPoison;
            EXPECT_EQ(narrow(row.magnitude, true, 0, status, result), row.fits ? status : NUMERIC_UNDERFLOW);
            EXPECT_EQ(result, num(row.negative));
        }
    }
}

TEST(Narrowing, OverflowBeforehandRefusesEvenWhatFits) {
    for (const unsigned overflow : {1U, 0x80000000U, UINT32_MAX}) {
        Numeric result = kPoison;
        EXPECT_EQ(narrow({{7, 0, 0, 0}}, false, overflow, NUMERIC_INEXACT, result), NUMERIC_OVERFLOW);
        EXPECT_EQ(result, num("NaN"));
        result = kPoison;
        EXPECT_EQ(narrow({{7, 0, 0, 0}}, true, overflow, NUMERIC_OK, result), NUMERIC_UNDERFLOW);
        EXPECT_EQ(result, num("NaN"));
    }
}

struct MoveRow {
    const char* name;
    const char* magnitude;
    bool negative;
    int64_t places;
    uint32_t mode;
    unsigned overflow;
    NumericStatus status;
    const char* result;
};

constexpr MoveRow kMoveRows[] = {
    {"no places", "123", false, 0, NUMERIC_ROUND_UP, 0, NUMERIC_OK, "123"},
    {"up is exact", "123", true, 3, NUMERIC_ROUND_UP, 0, NUMERIC_OK, "-123000"},
    {"down, and nothing is dropped", "123000", false, -3, NUMERIC_ROUND_UP, 0, NUMERIC_OK, "123"},
    {"down, rounded by the sign", "1001", true, -3, NUMERIC_ROUND_FLOOR, 0, NUMERIC_INEXACT, "-2"},
    {"down, rounded once: 1.49 is not first 1.5", "149", false, -2, NUMERIC_ROUND_HALF_UP, 0, NUMERIC_INEXACT, "1"},
    {"a negative value that rounds to zero", "4", true, -1, NUMERIC_ROUND_HALF_UP, 0, NUMERIC_INEXACT, "0"},
    {"the largest of all powers", "1", false, 38, NUMERIC_ROUND_UP, 0, NUMERIC_OK, "10^38"},
    {"one place more", "1", false, 39, NUMERIC_ROUND_UP, 0, NUMERIC_OVERFLOW, "NaN"},
    {"one place more, negative", "1", true, 39, NUMERIC_ROUND_UP, 0, NUMERIC_UNDERFLOW, "NaN"},
    {"beyond 256 bits", "1", false, 78, NUMERIC_ROUND_UP, 0, NUMERIC_OVERFLOW, "NaN"},
    {"beyond 256 bits with nothing left in them", "2^127-1", true, INT64_MAX, NUMERIC_ROUND_UP, 0, NUMERIC_UNDERFLOW,
     "NaN"},
    {"zero stays zero", "0", false, INT64_MAX, NUMERIC_ROUND_UP, 0, NUMERIC_OK, "0"},
    {"down to nothing", "2^127-1", false, -39, NUMERIC_ROUND_DOWN, 0, NUMERIC_INEXACT, "0"},
    {"overflow beforehand", "5", true, -1, NUMERIC_ROUND_UP, 1, NUMERIC_UNDERFLOW, "NaN"},
    {"no mode, and nothing to round", "5", false, 0, 7, 0, NUMERIC_INVALID_ARGUMENT, "untouched"},
    {"no mode, and something to round", "5", false, -1, 7, 0, NUMERIC_INVALID_ARGUMENT, "untouched"},
    {"no mode is found before an overflow", "5", false, 100, UINT32_MAX, 1, NUMERIC_INVALID_ARGUMENT, "untouched"},
};

TEST(Narrowing, MovesRoundsAndNarrows) {
    for (const MoveRow& row : kMoveRows) {
        SCOPED_TRACE(row.name);
        Numeric result = kPoison;
        const ExtendedNumeric magnitude = extend(magnitude_of(num(row.magnitude)));
        EXPECT_EQ(scale_round_narrow(magnitude, row.negative, row.places, row.mode, row.overflow, result), row.status);
        EXPECT_EQ(result, row.status == NUMERIC_INVALID_ARGUMENT ? kPoison : num(row.result));
    }
}

TEST(Narrowing, RoundedMagnitudeMayLeaveTheRange) {
    // 10 * (2^127 - 1) + 5 in tenths is 2^127 - 1/2: the magnitude goes up to 2^127.
    const ExtendedNumeric magnitude = wide((two_to(127) - 1) * 10 + 5);
    Numeric result = kPoison;
    EXPECT_EQ(scale_round_narrow(magnitude, false, -1, NUMERIC_ROUND_HALF_UP, 0, result), NUMERIC_OVERFLOW);
    EXPECT_EQ(result, num("NaN"));
    result = kPoison;
    EXPECT_EQ(scale_round_narrow(magnitude, true, -1, NUMERIC_ROUND_HALF_UP, 0, result), NUMERIC_UNDERFLOW);
    EXPECT_EQ(result, num("NaN"));
    result = kPoison;
    EXPECT_EQ(scale_round_narrow(magnitude, true, -1, NUMERIC_ROUND_HALF_DOWN, 0, result), NUMERIC_INEXACT);
    EXPECT_EQ(result, num("-2^127+1"));
}

TEST(Narrowing, ScaledAndRoundedMagnitudeCollectsOverflow) {
    ExtendedNumeric magnitude = wide(two_to(255));
    unsigned overflow = 0x40;
    EXPECT_EQ(scale_and_round(magnitude, false, 1, NUMERIC_ROUND_DOWN, overflow), NUMERIC_OK);
    EXPECT_EQ(magnitude, wide(two_to(255) * 10));
    EXPECT_EQ(overflow & 0x40, 0x40U) << "what was there stays";
    EXPECT_NE(overflow & ~0x40U, 0U) << "what left the top joins it";
}

static_assert(fits({{UINT64_MAX, kTop - 1, 0, 0}}) && !fits({{0, kTop, 0, 0}}));
static_assert([] {
    Numeric result{};
    return refuse(true, result) == NUMERIC_UNDERFLOW && is_nan(result);
}());
static_assert([] {
    Numeric result{};
    return narrow({{3, 0, 0, 0}}, true, 0, NUMERIC_OK, result) == NUMERIC_OK && result.high == -1;
}());
static_assert([] {
    Numeric result{};
    const NumericStatus status = scale_round_narrow({{25, 0, 0, 0}}, false, -1, NUMERIC_ROUND_HALF_EVEN, 0, result);
    return status == NUMERIC_INEXACT && result.low == 2;
}());

}  // namespace
}  // namespace qv8numeric_tests
