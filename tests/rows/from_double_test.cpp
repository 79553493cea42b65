// SPDX-License-Identifier: MIT
// Doubles into coefficients: bit patterns, exact values, ties, limits, and the places where bits are lost early.
#include <gtest/gtest.h>

#include <limits>
#include <span>
#include <vector>

#include "binary64.h"
#include "calls.h"
#include "modes.h"

namespace qv8numeric_tests {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallestNormal = std::numeric_limits<double>::min();
constexpr double kSmallestSubnormal = std::numeric_limits<double>::denorm_min();

Outcome convert(double value, const NumericInfo& info) {
    const NumericInfo before = info;
    GuardedNumeric result;
    const NumericStatus status = QV8NumericDbl2Num(&info, &result.value, value);
    if (!result.guards_intact()) ADD_FAILURE() << "wrote beside the result";
    if (!(info == before)) ADD_FAILURE() << "the descriptor changed";
    return {status, result.value};
}

struct Row {
    const char* name;
    double value;
    std::int32_t scale;
    std::uint32_t mode;
    NumericStatus status;
    const char* expected;
};

void expect_rows(std::span<const Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(convert(row.value, {row.scale, row.mode}), outcome(row.status, row.expected));
    }
}

constexpr Row kValueRows[] = {
    {"one", 1.0, 0, kHalfEven, NUMERIC_OK, "1"},
    {"minus three", -3.0, 0, kHalfEven, NUMERIC_OK, "-3"},
    {"a quarter in hundredths", 0.25, 2, kHalfEven, NUMERIC_OK, "25"},
    {"a quarter with places to spare", 0.25, 12, kHalfEven, NUMERIC_OK, "250000000000"},
    {"a quarter past the first step of twelve places", 0.25, 13, kHalfEven, NUMERIC_OK, "2500000000000"},
    {"2^-37 in all its places", 0x1p-37, 37, kUp, NUMERIC_OK, "72759576141834259033203125"},
    {"2^53-1", 9007199254740991.0, 0, kHalfEven, NUMERIC_OK, "9007199254740991"},
    {"2^53-1 in hundredths", 9007199254740991.0, 2, kHalfEven, NUMERIC_OK, "900719925474099100"},
    {"2^32", 0x1p32, 0, kHalfEven, NUMERIC_OK, "2^32"},
    {"2^63", 0x1p63, 0, kHalfEven, NUMERIC_OK, "2^63"},
    {"2^64", 0x1p64, 0, kHalfEven, NUMERIC_OK, "2^64"},
    {"-2^64", -0x1p64, 0, kHalfEven, NUMERIC_OK, "-2^64"},
    {"-2^64 with places", -0x1p64, 3, kHalfEven, NUMERIC_OK, "-18446744073709551616000"},
    {"-2^64 in tens", -0x1p64, -1, kHalfEven, NUMERIC_INEXACT, "-1844674407370955162"},
    {"the double next to 10^38", 1e38, 0, kHalfEven, NUMERIC_OK, "99999999999999997748809823456034029568"},
    {"a tenth in twenty places", 0.1, 20, kHalfEven, NUMERIC_INEXACT, "10000000000000000555"},
    {"a tenth in thirty-eight places", 0.1, 38, kHalfEven, NUMERIC_INEXACT, "10000000000000000555111512312578270212"},
    {"a tenth in thirty-nine places", 0.1, 39, kUp, NUMERIC_INEXACT, "100000000000000005551115123125782702119"},
    {"one in thirty-eight places", 1.0, 38, kHalfEven, NUMERIC_OK, "10^38"},
    {"2^126 and a half of it", 0x1.8p126, 0, kHalfEven, NUMERIC_OK, "2^126+2^125"},
    {"below 2^127 in thirty-eight places", 0x1.b3p0, 38, kHalfEven, NUMERIC_OK,
     "169921875000000000000000000000000000000"},
    {"2^51 and a half is a tie", 2251799813685248.5, 0, kHalfEven, NUMERIC_INEXACT, "2251799813685248"},
    {"2^51 and a half, ties away from zero", 2251799813685248.5, 0, kHalfUp, NUMERIC_INEXACT, "2251799813685249"},
    {"a price in seventeen places", 123.456, 17, kHalfEven, NUMERIC_INEXACT, "12345600000000000307"},
    {"2^-116 in seventy-three places", 0x1p-116, 73, kHalfEven, NUMERIC_INEXACT,
     "120370621524202240815998621411557957409"},
};

TEST(FromDouble, Values) { expect_rows(kValueRows); }

struct ModesRow {
    const char* name;
    double value;
    std::int32_t scale;
    NumericStatus status;
    const char* expected;  // one per mode
};

constexpr ModesRow kModesRows[] = {
    {"a half", 0.5, 0, NUMERIC_INEXACT, "1 0 1 0 1 0 0"},
    {"minus a half", -0.5, 0, NUMERIC_INEXACT, "-1 0 0 -1 -1 0 0"},
    {"1.5", 1.5, 0, NUMERIC_INEXACT, "2 1 2 1 2 1 2"},
    {"2.5", 2.5, 0, NUMERIC_INEXACT, "3 2 3 2 3 2 2"},
    {"3.5", 3.5, 0, NUMERIC_INEXACT, "4 3 4 3 4 3 4"},
    {"-2.5", -2.5, 0, NUMERIC_INEXACT, "-3 -2 -2 -3 -3 -2 -2"},
    {"2.6", 2.6, 0, NUMERIC_INEXACT, "3 2 3 2 3 3 3"},
    {"-2.4", -2.4, 0, NUMERIC_INEXACT, "-3 -2 -2 -3 -2 -2 -2"},
    {"2.0", 2.0, 0, NUMERIC_OK, "2 2 2 2 2 2 2"},
    {"0.125 in hundredths", 0.125, 2, NUMERIC_INEXACT, "13 12 13 12 13 12 12"},
    {"the double next to a tenth lies above it", 0.1, 1, NUMERIC_INEXACT, "2 1 2 1 1 1 1"},
    {"minus a tenth lies below it", -0.1, 1, NUMERIC_INEXACT, "-2 -1 -1 -2 -1 -1 -1"},
    {"the double next to 0.3 lies below it", 0.3, 1, NUMERIC_INEXACT, "3 2 3 2 3 3 3"},
    {"a half and one bit 32 places down", 0.5 + 0x1p-32, 0, NUMERIC_INEXACT, "1 0 1 0 1 1 1"},
    {"a half and one bit that only sticks", 0.5 + 0x1p-33, 0, NUMERIC_INEXACT, "1 0 1 0 1 1 1"},
    {"the double above a half", 0x1.0000000000001p-1, 0, NUMERIC_INEXACT, "1 0 1 0 1 1 1"},
    {"the double below a half", 0x1.fffffffffffffp-2, 0, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"2^-40 leaves nothing but a sticky bit", 0x1p-40, 0, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"the smallest subnormal", kSmallestSubnormal, 0, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"minus the smallest subnormal", -kSmallestSubnormal, 0, NUMERIC_INEXACT, "-1 0 0 -1 0 0 0"},
};

TEST(FromDouble, FollowsEveryMode) {
    for (const ModesRow& row : kModesRows) {
        for (const std::uint32_t mode : kModes) {
            SCOPED_TRACE(std::string(row.name) + ", " + mode_name(mode));
            EXPECT_EQ(convert(row.value, {row.scale, mode}), outcome(row.status, in_mode(row.expected, mode)));
        }
    }
}

// Below a scale of zero the bits behind the binary point go first; the division by a power of five that follows sees
// them as something dropped, and no longer as part of a tie.
constexpr ModesRow kEarlyLossRows[] = {
    {"5.0 at scale -1", 5.0, -1, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"-5.0 at scale -1", -5.0, -1, NUMERIC_INEXACT, "-1 0 0 -1 0 0 0"},
    {"15.0 at scale -1", 15.0, -1, NUMERIC_INEXACT, "2 1 2 1 1 1 1"},
    {"25.0 at scale -1", 25.0, -1, NUMERIC_INEXACT, "3 2 3 2 2 2 2"},
    {"even above the tie: 5.5 at scale -1", 5.5, -1, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"6.0 at scale -1 loses no bit", 6.0, -1, NUMERIC_INEXACT, "1 0 1 0 1 1 1"},
    {"4.0 at scale -1", 4.0, -1, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"1.0 at scale -1", 1.0, -1, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"10.0 at scale -1", 10.0, -1, NUMERIC_OK, "1 1 1 1 1 1 1"},
    {"11.0 at scale -1 leaves no remainder", 11.0, -1, NUMERIC_INEXACT, "2 1 2 1 1 1 1"},
    {"50.0 at scale -2", 50.0, -2, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"150.0 at scale -2", 150.0, -2, NUMERIC_INEXACT, "2 1 2 1 1 1 1"},
    {"5*10^8 at scale -9", 5e8, -9, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"5*10^12 at scale -13, two divisions", 5e12, -13, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
};

TEST(FromDouble, LosesBitsBeforeTheDivision) {
    for (const ModesRow& row : kEarlyLossRows) {
        for (const std::uint32_t mode : kModes) {
            SCOPED_TRACE(std::string(row.name) + ", " + mode_name(mode));
            EXPECT_EQ(convert(row.value, {row.scale, mode}), outcome(row.status, in_mode(row.expected, mode)));
        }
    }
}

constexpr Row kRangeRows[] = {
    {"the largest double in range", 0x1.fffffffffffffp126, 0, kHalfEven, NUMERIC_OK, "2^127-2^74"},
    {"the smallest double in range", -0x1.fffffffffffffp126, 0, kHalfEven, NUMERIC_OK, "-2^127+2^74"},
    {"2^127", 0x1p127, 0, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"-2^127 is the NaN pattern, not a value", -0x1p127, 0, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"2^127 in tens", 0x1p127, -1, kHalfEven, NUMERIC_INEXACT, "17014118346046923173168730371588410573"},
    {"1e30 at scale 8", 1e30, 8, kHalfEven, NUMERIC_OK, "100000000000000001988462483865600000000"},
    {"1e30 at scale 10", 1e30, 10, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"-1e30 at scale 10", -1e30, 10, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"one at scale 38", 1.0, 38, kHalfEven, NUMERIC_OK, "10^38"},
    {"one at scale 39", 1.0, 39, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"one at a scale beyond the vector", 1.0, 400, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"minus one at a scale beyond the vector", -1.0, 400, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"the largest double", kLargest, 0, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"minus the largest double", -kLargest, 0, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"the largest double, 270 places taken away", kLargest, -270, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"the largest double, 271 places taken away", kLargest, -271, kDown, NUMERIC_INEXACT,
     "17976931348623157081452742373170435679"},
    {"the largest double, 271 places taken away, rounded", -kLargest, -271, kHalfEven, NUMERIC_INEXACT,
     "-17976931348623157081452742373170435680"},
    {"the largest double, one digit left", kLargest, -308, kHalfEven, NUMERIC_INEXACT, "2"},
    {"the largest double, no digit left", kLargest, -309, kHalfUp, NUMERIC_INEXACT, "0"},
    {"2^300 without 56 places, divided only", 0x1p300, -56, kHalfEven, NUMERIC_INEXACT,
     "20370359763344860862684456884093782"},
    {"2^300 without 52 places, out of range", 0x1p300, -52, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"1e300 in tens, bits leaving the top", 1e300, -1, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"-1e300 in tens", -1e300, -1, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"1e90 without 12 places, a shift left over", 1e90, -12, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"1e80 without 60 places", 1e80, -60, kHalfEven, NUMERIC_INEXACT, "100000000000000000027"},

    {"the smallest subnormal at scale 323", kSmallestSubnormal, 323, kHalfEven, NUMERIC_INEXACT, "0"},
    {"the smallest subnormal at scale 324", kSmallestSubnormal, 324, kHalfEven, NUMERIC_INEXACT, "5"},
    {"the smallest subnormal at scale 324, cut off", kSmallestSubnormal, 324, kDown, NUMERIC_INEXACT, "4"},
    {"the smallest subnormal at scale 361", -kSmallestSubnormal, 361, kHalfEven, NUMERIC_INEXACT,
     "-49406564584124654417656879286822137237"},
    {"the smallest subnormal at scale 362", kSmallestSubnormal, 362, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"minus the smallest subnormal at scale 362", -kSmallestSubnormal, 362, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"the largest subnormal", from_bits(kFractionMask), 345, kHalfEven, NUMERIC_INEXACT,
     "22250738585072008890245868760858598877"},
    {"the smallest normal number", kSmallestNormal, 345, kHalfEven, NUMERIC_INEXACT,
     "22250738585072013830902327173324040642"},
};

TEST(FromDouble, Range) { expect_rows(kRangeRows); }

constexpr Row kExtremeRows[] = {
    {"1.0 at scale 2147483647", 1.0, INT32_MAX, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"-1.0 at scale 2147483647", -1.0, INT32_MAX, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"1e80 at scale 2147483647, where a 32-bit exponent would wrap", 1e80, INT32_MAX, kHalfEven, NUMERIC_OVERFLOW,
     "NaN"},
    {"the largest double at scale 2147483647", kLargest, INT32_MAX, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"the smallest subnormal at scale 2147483647", kSmallestSubnormal, INT32_MAX, kHalfEven, NUMERIC_OVERFLOW, "NaN"},
    {"1.0 at scale -2147483647", 1.0, -INT32_MAX, kHalfEven, NUMERIC_INEXACT, "0"},
    {"1.0 at scale -2147483647, rounded up", 1.0, -INT32_MAX, kUp, NUMERIC_INEXACT, "1"},
    {"-1.0 at scale -2147483648, rounded to minus infinity", -1.0, INT32_MIN, kFloor, NUMERIC_INEXACT, "-1"},
    {"the smallest subnormal at scale -2147483648, where a 32-bit exponent would wrap", kSmallestSubnormal, INT32_MIN,
     kHalfEven, NUMERIC_INEXACT, "0"},
    {"the smallest subnormal at scale -2147483648, rounded up", kSmallestSubnormal, INT32_MIN, kUp, NUMERIC_INEXACT,
     "1"},
    {"the largest double at scale -2147483648", kLargest, INT32_MIN, kHalfEven, NUMERIC_INEXACT, "0"},
    {"the largest double at scale -2147483648, rounded up", kLargest, INT32_MIN, kCeiling, NUMERIC_INEXACT, "1"},
    {"the largest double at scale -1000", -kLargest, -1000, kHalfUp, NUMERIC_INEXACT, "0"},
    {"-2^64 at scale -2147483648", -0x1p64, INT32_MIN, kUp, NUMERIC_INEXACT, "-1"},
    {"-2^64 at scale 2147483647", -0x1p64, INT32_MAX, kUp, NUMERIC_UNDERFLOW, "NaN"},
};

TEST(FromDouble, ExtremeScales) { expect_rows(kExtremeRows); }

struct SpecialRow {
    const char* name;
    double value;
    NumericStatus status;
    const char* expected;
};

constexpr SpecialRow kSpecialRows[] = {
    {"zero", 0.0, NUMERIC_OK, "0"},
    {"minus zero is zero", -0.0, NUMERIC_OK, "0"},
    {"infinity", kInfinity, NUMERIC_OVERFLOW, "NaN"},
    {"minus infinity", -kInfinity, NUMERIC_UNDERFLOW, "NaN"},
    {"a quiet NaN", from_bits(0x7ff8000000000000), NUMERIC_NAN, "NaN"},
    {"a quiet NaN with a sign", from_bits(0xfff8000000000000), NUMERIC_NAN, "NaN"},
    {"a quiet NaN with a payload", from_bits(0x7ff8000012345678), NUMERIC_NAN, "NaN"},
    {"a NaN of all ones", from_bits(UINT64_MAX), NUMERIC_NAN, "NaN"},
    {"a signalling NaN with the smallest payload", from_bits(0x7ff0000000000001), NUMERIC_NAN, "NaN"},
    {"a signalling NaN with the largest payload", from_bits(0x7ff7ffffffffffff), NUMERIC_NAN, "NaN"},
    {"a signalling NaN with a sign", from_bits(0xfff4000000000000), NUMERIC_NAN, "NaN"},
    {"a signalling NaN with a payload in its upper half only", from_bits(0x7ff0000100000000), NUMERIC_NAN, "NaN"},
};

// Zeros, infinities and NaN are recognised before scale and mode are looked at.
TEST(FromDouble, SpecialValuesComeBeforeScaleAndMode) {
    for (const SpecialRow& row : kSpecialRows) {
        for (const std::int32_t scale : {0, 5, -5, INT32_MAX, INT32_MIN}) {
            for (const std::uint32_t mode : {kUp, kHalfEven, 7U, 9U, UINT32_MAX}) {
                SCOPED_TRACE(testing::Message() << row.name << ", scale " << scale << ", mode " << mode);
                EXPECT_EQ(convert(row.value, {scale, mode}), outcome(row.status, row.expected));
            }
        }
    }
}

struct InvalidModeRow {
    const char* name;
    double value;
    std::int32_t scale;
};

constexpr InvalidModeRow kInvalidModeRows[] = {
    {"nothing to round", 1.0, 0},
    {"a fraction", 0.5, 0},
    {"places to add", 1.0, 20},
    {"places to take away", 1.0, -20},
    {"an overflow", 1e300, 0},
    {"a negative overflow", -1.0, 39},
    {"an overflow of the vector", 1.0, 400},
    {"an overflow at the largest scale", 1.0, INT32_MAX},
    {"nothing left", 1.0, INT32_MIN},
    {"divisions and shifts to the left", kLargest, -300},
    {"a subnormal", kSmallestSubnormal, 0},
    {"-2^64", -0x1p64, 0},
};

TEST(FromDouble, InvalidModeLeavesTheResult) {
    for (const InvalidModeRow& row : kInvalidModeRows) {
        for (const std::uint32_t mode : kInvalidModes) {
            SCOPED_TRACE(testing::Message() << row.name << ", mode " << mode);
            EXPECT_EQ(convert(row.value, {row.scale, mode}), outcome(NUMERIC_INVALID_ARGUMENT, "untouched"));
        }
    }
}

// Significands with few, many, low and high bits, each at exponents over the whole range, and both signs.
std::vector<double> grid(int smallest_exponent, int largest_exponent, int step) {
    constexpr std::uint64_t kFractions[] = {0, 1, 0x8000000000000, 0x999999999999a, 0x5555555555555, kFractionMask};
    std::vector<double> values;
    bool negative = false;
    for (int exponent = smallest_exponent; exponent <= largest_exponent; exponent += step) {
        for (const std::uint64_t fraction : kFractions) {
            const auto field = static_cast<std::uint64_t>(exponent + 1023);
            values.push_back(from_bits((negative ? kSignBit : 0) | field << 52 | fraction));
            negative = !negative;
        }
    }
    return values;
}

Outcome exact_outcome(double value, const NumericInfo& info) {
    return narrowed(cut(exact_value(value), info.scale), info.rounding_mode);
}

testing::AssertionResult is_exact(double value, const NumericInfo& info) {
    const Outcome actual = convert(value, info);
    const Outcome expected = exact_outcome(value, info);
    if (actual == expected) return testing::AssertionSuccess();
    return testing::AssertionFailure() << bits_text(bits(value)) << " at " << info.scale << ", "
                                       << mode_name(info.rounding_mode) << ": " << actual << ", expected " << expected;
}

// Up to scale 72 nothing is lost before the last shift, so one exact rounding is owed. The significand starts at bit
// 192 with zeros below it; each of the at most six multiplications by 5^12 or less follows a shift by 28 bits, and six
// such shifts are 168 bits. If the shift runs out before them, the value stays above 2^127 and overflows either way.
TEST(FromDouble, ScalesFrom0To72AreExact) {
    std::vector<double> values = grid(-260, 140, 5);
    for (const double subnormal : {kSmallestSubnormal, -from_bits(kFractionMask), kSmallestNormal}) {
        values.push_back(subnormal);
    }
    for (const double value : values) {
        for (const int scale :
             {0, 1, 2, 3, 8, 11, 12, 13, 16, 19, 22, 24, 25, 27, 30, 36, 37, 48, 49, 60, 61, 71, 72}) {
            for (const std::uint32_t mode : kModes) ASSERT_TRUE(is_exact(value, {scale, mode}));
        }
    }
}

TEST(FromDouble, HalvesAreTiesUpToScale72) {
    for (int scale = 0; scale <= 37; ++scale) {
        // An odd multiple of 2^-(scale+1) has a tie behind its last place.
        for (const double odd : {1.0, 3.0, -5.0, 12345.0}) {
            const double value = odd / static_cast<double>(std::uint64_t{2} << scale);
            for (const std::uint32_t mode : kModes) ASSERT_TRUE(is_exact(value, {scale, mode}));
        }
    }
}

// Below scale 0 the first shift drops the bits behind the binary point of value * 2^scale. Without any, one division
// by 5^12 or less decides alone, and an odd divisor has no tie.
TEST(FromDouble, MultiplesOfThePowerOfTwoAreExact) {
    for (int places = 1; places <= 12; ++places) {
        const auto unit = static_cast<double>(std::uint64_t{1} << places);
        for (const double multiple :
             {1.0, 2.0, 3.0, 5.0, -7.0, 122070312.0, 122070313.0, -976562.0, 9007199254740991.0}) {
            for (const std::uint32_t mode : kModes) ASSERT_TRUE(is_exact(multiple * unit, {-places, mode}));
        }
    }
}

// Modes that ask only whether something was dropped do not mind how early it was.
TEST(FromDouble, DirectedModesAreExactBelowScaleZero) {
    for (const double value : grid(-40, 240, 7)) {
        for (const int scale : {-1, -2, -5, -11, -12, -13, -24, -25, -40, -60, -100}) {
            for (const std::uint32_t mode : {kUp, kDown, kCeiling, kFloor}) {
                ASSERT_TRUE(is_exact(value, {scale, mode}));
            }
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
