// SPDX-License-Identifier: MIT
// Machine integers into coefficients: n * 10^scale, exact at positive scales, rounded at negative ones.
#include <gtest/gtest.h>

#include <algorithm>

#include "calls.h"
#include "exact.h"
#include "modes.h"
#include "ties.h"

namespace qv8numeric_tests {
namespace {

constexpr std::int64_t kSmallest64 = INT64_MIN;
constexpr std::int64_t kLargest64 = INT64_MAX;

template <typename T>
Outcome convert(NumericStatus (*conversion)(T, const NumericInfo*, Numeric*), T value, const NumericInfo& info) {
    const NumericInfo before = info;
    GuardedNumeric result;
    const NumericStatus status = conversion(value, &info, &result.value);
    if (!result.guards_intact()) ADD_FAILURE() << "wrote beside the result";
    if (!(info == before)) ADD_FAILURE() << "the descriptor changed";
    return {status, result.value};
}

bool fits_32_bits(std::int64_t value) { return INT32_MIN <= value && value <= INT32_MAX; }

// Through the 64-bit conversion, and through the 32-bit one if the value fits it.
void expect_converted(std::int64_t value, const NumericInfo& info, const Outcome& expected) {
    EXPECT_EQ(convert(QV8NumericLong2Num, value, info), expected)
        << "64 bits: " << value << " at " << info.scale << ", " << mode_name(info.rounding_mode);
    if (!fits_32_bits(value)) return;
    EXPECT_EQ(convert(QV8NumericInt2Num, static_cast<std::int32_t>(value), info), expected)
        << "32 bits: " << value << " at " << info.scale << ", " << mode_name(info.rounding_mode);
}

struct Row {
    const char* name;
    std::int64_t value;
    std::int32_t scale;
    std::uint32_t mode;
    NumericStatus status;
    const char* expected;
};

constexpr Row kRows[] = {
    {"zero", 0, 0, kHalfEven, NUMERIC_OK, "0"},
    {"minus one fills both halves with ones", -1, 0, kHalfEven, NUMERIC_OK, "-1"},
    {"the largest of 32 bits", INT32_MAX, 0, kHalfEven, NUMERIC_OK, "2^31-1"},
    {"the smallest of 32 bits", INT32_MIN, 0, kHalfEven, NUMERIC_OK, "-2^31"},
    {"the smallest of 32 bits has a magnitude that fits", INT32_MIN, 1, kHalfEven, NUMERIC_OK, "-21474836480"},
    {"the smallest of 32 bits, rounded", INT32_MIN, -1, kHalfEven, NUMERIC_INEXACT, "-214748365"},
    {"2^31", std::int64_t{1} << 31, 0, kHalfEven, NUMERIC_OK, "2^31"},
    {"2^32", std::int64_t{1} << 32, 2, kHalfEven, NUMERIC_OK, "429496729600"},
    {"the largest of 64 bits", kLargest64, 0, kHalfEven, NUMERIC_OK, "2^63-1"},
    {"the smallest of 64 bits", kSmallest64, 0, kHalfEven, NUMERIC_OK, "-2^63"},
    {"the smallest of 64 bits at scale 2", kSmallest64, 2, kHalfEven, NUMERIC_OK, "-922337203685477580800"},
    {"the smallest of 64 bits, rounded", kSmallest64, -2, kHalfEven, NUMERIC_INEXACT, "-92233720368547758"},
    {"the largest of 64 bits at scale 19", kLargest64, 19, kHalfEven, NUMERIC_OK,
     "92233720368547758070000000000000000000"},
    {"the smallest of 64 bits at scale 19", kSmallest64, 19, kHalfEven, NUMERIC_OK,
     "-92233720368547758080000000000000000000"},
    {"the largest of 64 bits at scale 20 is out of range", kLargest64, 20, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"the smallest of 64 bits at scale 20 is out of range", kSmallest64, 20, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"beyond 64 bits by the scale", 18446744073709, 7, kHalfEven, NUMERIC_OK, "184467440737090000000"},
    {"17 at scale 37 is the last multiple in range", 17, 37, kHalfEven, NUMERIC_OK,
     "170000000000000000000000000000000000000"},
    {"18 at scale 37 is not", 18, 37, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"one at scale 38", 1, 38, kHalfEven, NUMERIC_OK, "10^38"},
    {"one at scale 39", 1, 39, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"minus one at scale 38", -1, 38, kHalfEven, NUMERIC_OK, "-10^38"},
    {"minus one at scale 39", -1, 39, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"one beyond 256 bits", 1, 78, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"one at a hundred places", 1, 100, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"one at the largest scale", 1, INT32_MAX, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"minus one at the largest scale", -1, INT32_MAX, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"the smallest of 64 bits at the largest scale", kSmallest64, INT32_MAX, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"zero at a thousand places", 0, 1000, kHalfEven, NUMERIC_OK, "0"},
    {"zero at the largest scale", 0, INT32_MAX, kHalfEven, NUMERIC_OK, "0"},
    {"zero at the smallest scale", 0, INT32_MIN, kUp, NUMERIC_OK, "0"},
    {"one at the smallest scale", 1, INT32_MIN, kHalfEven, NUMERIC_INEXACT, "0"},
    {"one at the smallest scale, rounded up", 1, INT32_MIN, kUp, NUMERIC_INEXACT, "1"},
    {"one at the smallest scale but one, rounded up", 1, -INT32_MAX, kUp, NUMERIC_INEXACT, "1"},
    {"minus one at the smallest scale, rounded to minus infinity", -1, INT32_MIN, kFloor, NUMERIC_INEXACT, "-1"},

    {"an exact half across eight places", 150000000, -8, kHalfDown, NUMERIC_INEXACT, "1"},
    {"an exact half across eight places goes to even", 150000000, -8, kHalfEven, NUMERIC_INEXACT, "2"},
    {"an exact half across nine places", 500000000, -9, kHalfDown, NUMERIC_INEXACT, "0"},
    {"just above a half across nine places", 500000001, -9, kHalfDown, NUMERIC_INEXACT, "1"},
    {"just above a half goes up although zero is even", 500000001, -9, kHalfEven, NUMERIC_INEXACT, "1"},
    {"just below a half across nine places", 499999999, -9, kHalfUp, NUMERIC_INEXACT, "0"},
    {"an exact half across seventeen places", 50000000000000000, -17, kHalfDown, NUMERIC_INEXACT, "0"},
    {"just above a half across seventeen places", 50000000000000001, -17, kHalfDown, NUMERIC_INEXACT, "1"},
    {"nothing but zeros dropped", 1500000000, -8, kUp, NUMERIC_OK, "15"},
    {"zeros in the last step, a digit in the first", 100000001, -9, kUp, NUMERIC_INEXACT, "1"},
    {"far below a half", 7, -100, kHalfUp, NUMERIC_INEXACT, "0"},
    {"far below a half, rounded up", 7, -100, kUp, NUMERIC_INEXACT, "1"},
    {"the largest of 64 bits below one unit", kLargest64, -19, kHalfEven, NUMERIC_INEXACT, "1"},
    {"the largest of 64 bits below half a unit", kLargest64, -20, kHalfEven, NUMERIC_INEXACT, "0"},
};

TEST(FromInteger, Rows) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        expect_converted(row.value, {row.scale, row.mode}, outcome(row.status, row.expected));
    }
}

struct ModesRow {
    const char* name;
    std::int64_t value;
    std::int32_t scale;
    NumericStatus status;
    const char* expected;  // one per mode
};

constexpr ModesRow kModesRows[] = {
    {"1.5", 15, -1, NUMERIC_INEXACT, "2 1 2 1 2 1 2"},
    {"2.5", 25, -1, NUMERIC_INEXACT, "3 2 3 2 3 2 2"},
    {"3.5", 35, -1, NUMERIC_INEXACT, "4 3 4 3 4 3 4"},
    {"-1.5", -15, -1, NUMERIC_INEXACT, "-2 -1 -1 -2 -2 -1 -2"},
    {"-2.5", -25, -1, NUMERIC_INEXACT, "-3 -2 -2 -3 -3 -2 -2"},
    {"2.6", 26, -1, NUMERIC_INEXACT, "3 2 3 2 3 3 3"},
    {"-2.4", -24, -1, NUMERIC_INEXACT, "-3 -2 -2 -3 -2 -2 -2"},
    {"2.0", 20, -1, NUMERIC_OK, "2 2 2 2 2 2 2"},
    {"minus a half", -5, -1, NUMERIC_INEXACT, "-1 0 0 -1 -1 0 0"},
    {"a hundred places below", 7, -100, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"a hundred places below, negative", -7, -100, NUMERIC_INEXACT, "-1 0 0 -1 0 0 0"},
};

TEST(FromInteger, FollowsEveryMode) {
    for (const ModesRow& row : kModesRows) {
        for (const std::uint32_t mode : kModes) {
            SCOPED_TRACE(row.name);
            expect_converted(row.value, {row.scale, mode}, outcome(row.status, in_mode(row.expected, mode)));
        }
    }
}

TEST(FromInteger, TieAtEveryDistance) {
    constexpr int kLongestIn64Bits = 18;
    for (const Tie& tie : kTies) {
        for (int distance = 1; distance <= kLongestIn64Bits; ++distance) {
            for (const bool negative : {false, true}) {
                for (const std::uint32_t mode : kModes) {
                    const TieCase item{tie, distance, negative, mode};
                    SCOPED_TRACE(item);
                    const auto value = static_cast<std::int64_t>(coefficient(item.value()));
                    expect_converted(value, {-distance, mode},
                                     outcome(NUMERIC_INEXACT, std::to_string(item.rounded())));
                }
            }
        }
    }
}

struct InvalidModeRow {
    const char* name;
    std::int64_t value;
    std::int32_t scale;
};

constexpr InvalidModeRow kInvalidModeRows[] = {
    {"digits to drop", 15, -1},
    {"zeros to drop", 10, -1},
    {"nothing to round", 1, 38},
    {"zero", 0, 1000},
    {"zero at a negative scale", 0, -1000},
    {"an overflow", 1, 39},
    {"a negative overflow", kSmallest64, INT32_MAX},
    {"nothing left", 7, INT32_MIN},
};

TEST(FromInteger, InvalidModeLeavesTheResult) {
    for (const InvalidModeRow& row : kInvalidModeRows) {
        for (const std::uint32_t mode : kInvalidModes) {
            SCOPED_TRACE(row.name);
            expect_converted(row.value, {row.scale, mode}, outcome(NUMERIC_INVALID_ARGUMENT, "untouched"));
        }
    }
}

// At scale 0 there is nothing to scale, and the descriptor is not looked at any further.
TEST(FromInteger, ScaleZeroAcceptsAnyMode) {
    for (const std::uint32_t mode : kInvalidModes) {
        expect_converted(0, {0, mode}, outcome(NUMERIC_OK, "0"));
        expect_converted(-5, {0, mode}, outcome(NUMERIC_OK, "-5"));
        expect_converted(INT32_MIN, {0, mode}, outcome(NUMERIC_OK, "-2^31"));
        expect_converted(kSmallest64, {0, mode}, outcome(NUMERIC_OK, "-2^63"));
    }
}

TEST(FromInteger, AgreesWithExactArithmetic) {
    constexpr std::int64_t kValues[] = {0,          1,           -1,
                                        5,          -7,          99,
                                        100000000,  -4294967296, 4294967295,
                                        2147483647, -2147483648, 1234567890123456789,
                                        kLargest64, kSmallest64, -999999999999999999};
    for (const std::int64_t value : kValues) {
        for (int scale = -100; scale <= 100; ++scale) {
            const Cut exact = cut({value, 1}, scale);
            for (const std::uint32_t mode : kModes) {
                const Outcome expected = narrowed(exact, mode);
                expect_converted(value, {scale, mode}, expected);
            }
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
