// SPDX-License-Identifier: MIT
// Coefficients into doubles, bit for bit.
#include <gtest/gtest.h>

#include <span>

#include "binary64.h"
#include "calls.h"
#include "modes.h"
#include "special_values.h"

namespace qv8numeric_tests {
namespace {

constexpr std::uint64_t kUntouchedBits = 0x5a5a5a5a5a5a5a5a;

DoubleOutcome convert(const Numeric& value, const NumericInfo& info) {
    struct {
        double before = from_bits(kUntouchedBits);
        double result = from_bits(kUntouchedBits);
        double after = from_bits(kUntouchedBits);
    } memory;
    const GuardedNumeric object{.value = value};
    const NumericInfo info_before = info;
    const NumericStatus status = QV8NumericNum2Dbl(&object.value, &info, &memory.result);
    if (!(object.value == value) || !(info == info_before)) ADD_FAILURE() << "an operand changed";
    if (bits(memory.before) != kUntouchedBits || bits(memory.after) != kUntouchedBits) {
        ADD_FAILURE() << "wrote beside the result";
    }
    return {status, bits(memory.result)};
}

struct Row {
    const char* name;
    const char* value;
    std::int32_t scale;
    std::uint32_t mode;
    NumericStatus status;
    std::uint64_t expected;
};

void expect_rows(std::span<const Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(convert(num(row.value), {row.scale, row.mode}), (DoubleOutcome{row.status, row.expected}));
    }
}

// A decimal constant below is the double nearest to it, which is what HALF_EVEN owes.
constexpr Row kValueRows[] = {
    {"one", "1", 0, kHalfEven, NUMERIC_OK, bits(1.0)},
    {"minus three", "-3", 0, kHalfEven, NUMERIC_OK, bits(-3.0)},
    {"a quarter", "25", 2, kHalfEven, NUMERIC_OK, bits(0.25)},
    {"a quarter written with many places", "250000000000000", 15, kHalfEven, NUMERIC_OK, bits(0.25)},
    {"2^-37 from all its places", "72759576141834259033203125", 37, kUp, NUMERIC_OK, bits(0x1p-37)},
    {"2^-39 from all its places", "1818989403545856475830078125", 39, kUp, NUMERIC_OK, bits(0x1p-39)},
    {"2^-54 from all its places", "55511151231257827021181583404541015625", 54, kUp, NUMERIC_OK, bits(0x1p-54)},
    {"hundreds", "3", -2, kHalfEven, NUMERIC_OK, bits(300.0)},
    {"2^53-1", "2^53-1", 0, kHalfEven, NUMERIC_OK, bits(9007199254740991.0)},
    {"2^64", "2^64", 0, kHalfEven, NUMERIC_OK, bits(0x1p64)},
    {"-2^64", "-2^64", 0, kHalfEven, NUMERIC_OK, 0xc3f0000000000000},
    {"-2^64 with a place", "-2^64", 1, kHalfEven, NUMERIC_INEXACT, bits(-1844674407370955161.6)},
    {"-2^64 in tens", "-2^64", -1, kHalfEven, NUMERIC_OK, bits(-0x1.4p67)},
    {"2^64-1", "2^64-1", 0, kHalfEven, NUMERIC_INEXACT, bits(0x1p64)},
    {"2^64-1 cut off", "2^64-1", 0, kDown, NUMERIC_INEXACT, bits(0x1.fffffffffffffp63)},
    {"10^22 is the last exact power of ten", "10^22", 0, kHalfEven, NUMERIC_OK, bits(1e22)},
    {"10^22 by the scale", "1", -22, kHalfEven, NUMERIC_OK, bits(1e22)},
    {"10^23", "10^23", 0, kHalfEven, NUMERIC_INEXACT, bits(1e23)},
    {"10^23 by the scale", "1", -23, kHalfEven, NUMERIC_INEXACT, bits(1e23)},
    {"10^38", "10^38", 0, kHalfEven, NUMERIC_INEXACT, bits(1e38)},
    {"a price", "123456", 3, kHalfEven, NUMERIC_INEXACT, bits(123.456)},
    {"10^-22", "1", 22, kHalfEven, NUMERIC_INEXACT, bits(1e-22)},
    {"the largest value", "2^127-1", 0, kHalfEven, NUMERIC_INEXACT, 0x47e0000000000000},
    {"the largest value cut off", "2^127-1", 0, kDown, NUMERIC_INEXACT, 0x47dfffffffffffff},
    {"the smallest value cut off", "-2^127+1", 0, kCeiling, NUMERIC_INEXACT, 0xc7dfffffffffffff},
    {"2^126", "2^126", 0, kHalfEven, NUMERIC_OK, bits(0x1p126)},
    {"the largest value behind thirty-nine places", "2^127-1", 39, kHalfEven, NUMERIC_INEXACT,
     bits(0.170141183460469231731687303715884105727)},
};

TEST(ToDouble, Values) { expect_rows(kValueRows); }

struct ModesRow {
    const char* name;
    const char* value;
    std::int32_t scale;
    NumericStatus status;
    double towards_zero;
    double away_from_zero;
    const char* modes;  // in the order of kModes: '+' where the double away from zero is owed
};

constexpr double kTwo53 = 9007199254740992.0;
constexpr double kTenthBelow = from_bits(0x3fb9999999999999);
constexpr double kTenthAbove = from_bits(0x3fb999999999999a);
constexpr double k1e23Below = from_bits(0x44b52d02c7e14af6);
constexpr double k1e23Above = from_bits(0x44b52d02c7e14af7);

constexpr ModesRow kModesRows[] = {
    {"a tenth", "1", 1, NUMERIC_INEXACT, kTenthBelow, kTenthAbove, "+.+.+++"},
    {"minus a tenth", "-1", 1, NUMERIC_INEXACT, -kTenthBelow, -kTenthAbove, "+..++++"},
    {"a tie above an even significand", "2^53+1", 0, NUMERIC_INEXACT, kTwo53, kTwo53 + 2, "+.+.+.."},
    {"a tie above an odd significand", "2^53+3", 0, NUMERIC_INEXACT, kTwo53 + 2, kTwo53 + 4, "+.+.+.+"},
    {"a negative tie", "-2^53-1", 0, NUMERIC_INEXACT, -kTwo53, -kTwo53 - 2, "+..++.."},
    {"a tie with a place of zero", "90071992547409930", 1, NUMERIC_INEXACT, kTwo53, kTwo53 + 2, "+.+.+.."},
    {"just above the tie", "90071992547409931", 1, NUMERIC_INEXACT, kTwo53, kTwo53 + 2, "+.+.+++"},
    {"just below the tie", "90071992547409929", 1, NUMERIC_INEXACT, kTwo53, kTwo53 + 2, "+.+...."},
    {"thirteen places above the tie, two divisions", "90071992547409930000000000001", 13, NUMERIC_INEXACT, kTwo53,
     kTwo53 + 2, "+.+.+++"},
    {"10^23 is a tie", "10^23", 0, NUMERIC_INEXACT, k1e23Below, k1e23Above, "+.+.+.."},
    {"10^23 less 10^-10, 110 bits below the tie", "10^33-1", 10, NUMERIC_INEXACT, k1e23Below, k1e23Above, "+.+...."},
    {"10^23 and 10^-10, 110 bits above the tie", "10^33+1", 10, NUMERIC_INEXACT, k1e23Below, k1e23Above, "+.+.+++"},
    {"a tie with twenty-two places of zero", "90071992547409930000000000000000000000", 22, NUMERIC_INEXACT, kTwo53,
     kTwo53 + 2, "+.+.+.."},
    {"nines in thirty-eight places", "10^38-1", 38, NUMERIC_INEXACT, 0x1.fffffffffffffp-1, 1.0, "+.+.+++"},
    {"one and the last of thirty-eight places", "10^38+1", 38, NUMERIC_INEXACT, 1.0, 0x1.0000000000001p0, "+.+...."},
    // Times 2^20 these are a multiple of 5^38, a tie, less and more one: no other of so many places comes nearer to
    // one.
    {"2^-142 of itself below a tie", "3125000000359332355537311798343580449", 38, NUMERIC_INEXACT, 0x1.000000007e6dcp-5,
     0x1.000000007e6ddp-5, "+.+...."},
    {"2^-142 of itself above a tie", "3125000000004465525171859496822435176", 38, NUMERIC_INEXACT, 0x1.0000000001923p-5,
     0x1.0000000001924p-5, "+.+.+++"},
    {"a significand of all ones carries into the exponent", "2^54-1", 0, NUMERIC_INEXACT, 0x1.fffffffffffffp53, 0x1p54,
     "+.+.+.+"},
    {"exact", "-2^126", 0, NUMERIC_OK, -0x1p126, -0x1p126, "......."},
};

TEST(ToDouble, FollowsEveryMode) {
    for (const ModesRow& row : kModesRows) {
        for (const std::uint32_t mode : kModes) {
            SCOPED_TRACE(std::string(row.name) + ", " + mode_name(mode));
            const double expected = row.modes[mode] == '+' ? row.away_from_zero : row.towards_zero;
            EXPECT_EQ(convert(num(row.value), {row.scale, mode}), (DoubleOutcome{row.status, bits(expected)}));
        }
    }
}

// A large coefficient at a negative scale leaves the 256-bit vector; what left it is lost, and nobody is told.
constexpr Row kLostCarryRows[] = {
    {"the largest value in tens", "2^127-1", -1, kHalfEven, NUMERIC_INEXACT, 0x47f0000000000000},
    {"the largest value in tens, cut off", "2^127-1", -1, kDown, NUMERIC_INEXACT, 0x47efffffffffffff},
    {"the smallest value in tens", "-2^127+1", -1, kHalfEven, NUMERIC_INEXACT, 0xc7f0000000000000},
    // 2^243 * 5^11 modulo 2^256 is 3805 * 2^243, since 5^11 modulo 2^13 is 3805; the place of the point is kept.
    {"2^126 at scale -11", "2^126", -11, kHalfEven, NUMERIC_OK, bits(3805 * 0x1p137)},
    {"2^126 at scale -11 looks exact to every mode", "2^126", -11, kUp, NUMERIC_OK, bits(3805 * 0x1p137)},
    {"-2^126 at scale -11", "-2^126", -11, kFloor, NUMERIC_OK, bits(-3805 * 0x1p137)},
    {"2^113-1 is the last coefficient of ones that never leaves it", "2^113-1", -11, kHalfEven, NUMERIC_INEXACT,
     bits(0x1p113 * 1e11)},
};

TEST(ToDouble, LosesTheCarryOfLargeCoefficientsAtNegativeScales) { expect_rows(kLostCarryRows); }

constexpr Row kRangeRows[] = {
    {"10^308", "1", -308, kHalfEven, NUMERIC_INEXACT, bits(1e308)},
    {"10^309", "1", -309, kHalfEven, NUMERIC_OVERFLOW, kInfinityBits},
    {"-10^309", "-1", -309, kHalfEven, NUMERIC_UNDERFLOW, kSignBit | kInfinityBits},
    {"10^309 is not cut off to the largest double", "1", -309, kDown, NUMERIC_OVERFLOW, kInfinityBits},
    {"the largest double", "17976931348623157", -292, kHalfEven, NUMERIC_INEXACT, 0x7fefffffffffffff},
    {"above the largest double, below the half", "17976931348623158", -292, kHalfEven, NUMERIC_INEXACT,
     0x7fefffffffffffff},
    {"above the largest double, rounded up without an overflow status", "17976931348623158", -292, kUp, NUMERIC_INEXACT,
     kInfinityBits},
    {"above the half", "17976931348623159", -292, kHalfEven, NUMERIC_INEXACT, kInfinityBits},
    {"above the half, negative", "-17976931348623159", -292, kHalfEven, NUMERIC_INEXACT, kSignBit | kInfinityBits},
    {"above the half, cut off", "17976931348623159", -292, kDown, NUMERIC_INEXACT, 0x7fefffffffffffff},
    {"2^1024 and more", "17976931348623160", -292, kDown, NUMERIC_OVERFLOW, kInfinityBits},
    {"-2^64 beyond the doubles", "-2^64", -290, kHalfEven, NUMERIC_UNDERFLOW, kSignBit | kInfinityBits},

    {"10^-307 is normal", "1", 307, kHalfEven, NUMERIC_INEXACT, bits(1e-307)},
    {"10^-308 is subnormal", "1", 308, kHalfEven, NUMERIC_INEXACT, bits(1e-308)},
    {"10^-310", "-1", 310, kHalfEven, NUMERIC_INEXACT, bits(-1e-310)},
    {"the smallest normal number", "22250738585072014", 324, kHalfEven, NUMERIC_INEXACT, 0x0010000000000000},
    {"the largest subnormal", "2225073858507201", 323, kHalfEven, NUMERIC_INEXACT, 0x000fffffffffffff},
    {"the largest subnormal, cut off", "22250738585072013", 324, kDown, NUMERIC_INEXACT, 0x000fffffffffffff},
    {"a subnormal rounded up to the smallest normal number is zero", "22250738585072013", 324, kHalfEven,
     NUMERIC_INEXACT, 0},
    {"a subnormal rounded up to the smallest normal number is zero, by direction", "2225073858507201", 323, kUp,
     NUMERIC_INEXACT, 0},
    {"the same with a sign", "-22250738585072013", 324, kHalfEven, NUMERIC_INEXACT, kSignBit},
    {"two of the smallest subnormal", "1", 323, kHalfEven, NUMERIC_INEXACT, 2},
    {"one of the smallest subnormal", "5", 324, kHalfEven, NUMERIC_INEXACT, 1},
    {"one of the smallest subnormal, rounded up", "5", 324, kUp, NUMERIC_INEXACT, 2},
    {"more than half the smallest subnormal", "3", 324, kHalfEven, NUMERIC_INEXACT, 1},
    {"more than half the smallest subnormal, cut off", "3", 324, kDown, NUMERIC_INEXACT, 0},
    {"less than half the smallest subnormal", "2", 324, kHalfEven, NUMERIC_INEXACT, 0},
    {"less than half the smallest subnormal, rounded up", "2", 324, kUp, NUMERIC_INEXACT, 1},
    {"a tiny negative value is minus zero", "-2", 324, kHalfEven, NUMERIC_INEXACT, kSignBit},
    {"a tiny negative value, rounded to minus infinity", "-2", 324, kFloor, NUMERIC_INEXACT, kSignBit | 1},
    {"-2^64 as a subnormal", "-2^64", 340, kHalfEven, NUMERIC_INEXACT, bits(-1.8446744073709551616e-321)},

    {"1.0 at scale 2147483647", "1", INT32_MAX, kHalfEven, NUMERIC_INEXACT, 0},
    {"1.0 at scale 2147483647, rounded up", "1", INT32_MAX, kUp, NUMERIC_INEXACT, 1},
    {"-1.0 at scale 2147483647", "-1", INT32_MAX, kHalfEven, NUMERIC_INEXACT, kSignBit},
    {"-1.0 at scale 2147483647, rounded to minus infinity", "-1", INT32_MAX, kFloor, NUMERIC_INEXACT, kSignBit | 1},
    {"the largest value at scale 2147483647", "2^127-1", INT32_MAX, kHalfUp, NUMERIC_INEXACT, 0},
    {"a scale at which the exponent leaves its range halfway", "1", 605, kCeiling, NUMERIC_INEXACT, 1},
    {"1.0 at scale -2147483647", "1", -INT32_MAX, kHalfEven, NUMERIC_OVERFLOW, kInfinityBits},
    {"1.0 at scale -2147483648", "1", INT32_MIN, kDown, NUMERIC_OVERFLOW, kInfinityBits},
    {"-1.0 at scale -2147483648", "-1", INT32_MIN, kHalfEven, NUMERIC_UNDERFLOW, kSignBit | kInfinityBits},
    {"-2^64 at scale -2147483648", "-2^64", INT32_MIN, kHalfEven, NUMERIC_UNDERFLOW, kSignBit | kInfinityBits},
    {"-2^64 at scale 2147483647", "-2^64", INT32_MAX, kUp, NUMERIC_INEXACT, kSignBit | 1},
};

TEST(ToDouble, Range) { expect_rows(kRangeRows); }

TEST(ToDouble, ZeroAndNanComeBeforeScaleAndMode) {
    for (const std::int32_t scale : {0, 1, -1, 400, -400, INT32_MAX, INT32_MIN}) {
        for (const std::uint32_t mode : {kUp, kHalfEven, 7U, 9U, UINT32_MAX}) {
            SCOPED_TRACE(testing::Message() << "scale " << scale << ", mode " << mode);
            EXPECT_EQ(convert(num("0"), {scale, mode}), (DoubleOutcome{NUMERIC_OK, 0}));
            EXPECT_EQ(convert(num("NaN"), {scale, mode}), (DoubleOutcome{NUMERIC_NAN, UINT64_MAX}));
        }
    }
}

struct InvalidModeRow {
    const char* name;
    const char* value;
    std::int32_t scale;
    NumericStatus status;
    std::uint64_t expected;
};

constexpr InvalidModeRow kInvalidModeRows[] = {
    {"an exact normal number", "25", 2, NUMERIC_INVALID_ARGUMENT, kUntouchedBits},
    {"an inexact normal number", "1", 1, NUMERIC_INVALID_ARGUMENT, kUntouchedBits},
    {"a normal number at a negative scale", "-3", -2, NUMERIC_INVALID_ARGUMENT, kUntouchedBits},
    {"-2^64", "-2^64", 0, NUMERIC_INVALID_ARGUMENT, kUntouchedBits},
    {"the largest double", "17976931348623159", -292, NUMERIC_INVALID_ARGUMENT, kUntouchedBits},
    {"the smallest normal number", "22250738585072014", 324, NUMERIC_INVALID_ARGUMENT, kUntouchedBits},
    {"the largest subnormal is written, cut off", "22250738585072013", 324, NUMERIC_INVALID_ARGUMENT,
     0x000fffffffffffff},
    {"a subnormal is written, cut off", "1", 320, NUMERIC_INVALID_ARGUMENT, 2024},
    {"a negative subnormal is written, cut off", "-1", 320, NUMERIC_INVALID_ARGUMENT, kSignBit | 2024},
    {"the smallest subnormal is written, cut off", "9", 324, NUMERIC_INVALID_ARGUMENT, 1},
    {"nothing left of a positive value", "1", 400, NUMERIC_INVALID_ARGUMENT, 0},
    {"nothing left of a negative value", "-1", INT32_MAX, NUMERIC_INVALID_ARGUMENT, kSignBit},
    {"an overflow does not look at the mode", "1", -309, NUMERIC_OVERFLOW, kInfinityBits},
    {"a negative overflow does not look at the mode", "-1", INT32_MIN, NUMERIC_UNDERFLOW, kSignBit | kInfinityBits},
};

TEST(ToDouble, InvalidModeLeavesANormalResultButNotASubnormalOne) {
    for (const InvalidModeRow& row : kInvalidModeRows) {
        for (const std::uint32_t mode : kInvalidModes) {
            SCOPED_TRACE(testing::Message() << row.name << ", mode " << mode);
            EXPECT_EQ(convert(num(row.value), {row.scale, mode}), (DoubleOutcome{row.status, row.expected}));
        }
    }
}

testing::AssertionResult is_nearest(const Numeric& value, const NumericInfo& info, const DoubleOutcome& expected) {
    const DoubleOutcome actual = convert(value, info);
    if (actual == expected) return testing::AssertionSuccess();
    return testing::AssertionFailure() << value << " at " << info.scale << ", " << mode_name(info.rounding_mode) << ": "
                                       << actual << ", expected " << expected;
}

bool stays_inside_the_vector(const Numeric& value, int scale) {
    return scale >= 0 || abs(coefficient(value)) < cpp_int{1} << 113;
}

// One division by 5^11 or less has all 128 bits below the point to itself, and what it drops is seen as sticky; up to
// 76 places no coefficient lies near enough to a point where the result changes for the loss of seven divisions to
// decide. The other way, 59 places are shifts by at most 128 bits, which are zeros, and products that stay inside the
// vector for coefficients below 2^113. All owe one exact rounding.
TEST(ToDouble, ScalesFromMinus59To76AreExact) {
    for (const Numeric& value : special_values()) {
        if (value == num("0")) continue;
        for (int scale = -59; scale <= 76; ++scale) {
            if (!stays_inside_the_vector(value, scale)) continue;
            for (const std::uint32_t mode : kModes) {
                const NumericInfo info = {scale, mode};
                ASSERT_TRUE(is_nearest(value, info, nearest_double(value, info).outcome));
            }
        }
    }
}

// Farther out each division drops less than a unit of a vector that never falls below 2^103, and each shift by 28 bits
// likewise, so the value carries an error below 2^-75 of itself. None of these values lies that near to a point where
// the result changes.
TEST(ToDouble, FarScalesAreExactWhereLostBitsCannotDecide) {
    for (const char* expression :
         {"1", "-3", "7", "123456789", "2^53-1", "-99999999999999999", "-2^64", "314159265358979323846264338327950"}) {
        const Numeric value = num(expression);
        for (int scale = -345; scale <= 345; ++scale) {
            for (const std::uint32_t mode : {kUp, kFloor, kHalfEven}) {
                const NumericInfo info = {scale, mode};
                const NearestDouble nearest = nearest_double(value, info);
                ASSERT_TRUE(nearest.clear) << value << " at " << scale;
                ASSERT_TRUE(is_nearest(value, info, nearest.outcome));
            }
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
