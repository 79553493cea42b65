// SPDX-License-Identifier: MIT
// Multiplying and dividing a coefficient in place by a 32-bit integer. Both are exact for a value and an integer that
// are not negative; elsewhere they have habits that callers know, and that are held here.
#include <gtest/gtest.h>

#include "calls.h"
#include "exact.h"
#include "modes.h"
#include "special_values.h"

namespace qv8numeric_tests {
namespace {

InPlaceOperation multiply_by(std::int32_t multiplier) {
    return [=](Numeric* value) { return QV8NumericMul(value, multiplier); };
}

InPlaceOperation divide_by(std::int32_t divisor, std::uint32_t mode, std::int32_t scale = 5) {
    return [=](Numeric* value) {
        NumericInfo info{scale, mode};
        const NumericStatus status = QV8NumericDiv(value, &info, divisor);
        EXPECT_TRUE((info == NumericInfo{scale, mode}));
        return status;
    };
}

struct MultiplyRow {
    const char* name;
    const char* value;
    std::int32_t multiplier;
    NumericStatus status;
    const char* expected;
};

constexpr MultiplyRow kMultiplyRows[] = {
    {"positive by positive", "3", 7, NUMERIC_OK, "21"},
    {"negative by positive", "-3", 7, NUMERIC_OK, "-21"},
    {"by one", "2^127-1", 1, NUMERIC_OK, "2^127-1"},
    {"the smallest value by one", "-2^127+1", 1, NUMERIC_OK, "-2^127+1"},
    {"zero by a positive", "0", 7, NUMERIC_OK, "0"},
    {"a carry through every limb", "2^96-1", INT32_MAX, NUMERIC_OK, "2^127-2^96-2^31+1"},
    {"out of the low half", "2^63", 2, NUMERIC_OK, "2^64"},
    {"out of the low half, negative", "-2^63", 2, NUMERIC_OK, "-2^64"},
    {"-2^64", "-2^64", 3, NUMERIC_OK, "-2^65-2^64"},
    {"-2^64 by the largest integer", "-2^64", INT32_MAX, NUMERIC_OK, "-2^95+2^64"},
    {"2^64", "2^64", 3, NUMERIC_OK, "2^65+2^64"},
    {"up to the limit", "2^126-1", 2, NUMERIC_OK, "2^127-2"},
    {"down to the limit", "-2^126+1", 2, NUMERIC_OK, "-2^127+2"},

    {"anything by zero", "12345", 0, NUMERIC_OK, "0"},
    {"a negative by zero", "-12345", 0, NUMERIC_OK, "0"},
    {"-2^64 by zero", "-2^64", 0, NUMERIC_OK, "0"},
    {"the largest value by zero", "2^127-1", 0, NUMERIC_OK, "0"},
    {"zero by zero", "0", 0, NUMERIC_OK, "0"},

    {"NaN", "NaN", 7, NUMERIC_NAN, "NaN"},
    {"NaN is seen before the zero", "NaN", 0, NUMERIC_NAN, "NaN"},
    {"NaN by one", "NaN", 1, NUMERIC_NAN, "NaN"},
    {"NaN by a negative", "NaN", -7, NUMERIC_NAN, "NaN"},

    {"too large is reported as 4, as too small is", "2^127-1", 2, NUMERIC_UNDERFLOW, "NaN"},
    {"exactly 2^127", "2^126", 2, NUMERIC_UNDERFLOW, "NaN"},
    {"too small", "-2^127+1", 2, NUMERIC_UNDERFLOW, "NaN"},
    {"one step below -2^127", "-2^126-1", 2, NUMERIC_UNDERFLOW, "NaN"},
    {"a product of 2^128, whose low bits are all zero", "2^126", 4, NUMERIC_UNDERFLOW, "NaN"},
    {"a product of -2^128", "-2^126", 4, NUMERIC_UNDERFLOW, "NaN"},
    {"the largest product", "2^127-1", INT32_MAX, NUMERIC_UNDERFLOW, "NaN"},
    {"the smallest product", "-2^127+1", INT32_MAX, NUMERIC_UNDERFLOW, "NaN"},

    {"exactly -2^127 is let through as the NaN pattern", "-2^126", 2, NUMERIC_OK, "NaN"},
    {"exactly -2^127 by a larger power", "-2^97", 1 << 30, NUMERIC_OK, "NaN"},

    {"no negative multiplier passes: positive", "3", -7, NUMERIC_UNDERFLOW, "NaN"},
    {"no negative multiplier passes: negative", "-3", -7, NUMERIC_UNDERFLOW, "NaN"},
    {"no negative multiplier passes: zero by -1", "0", -1, NUMERIC_UNDERFLOW, "NaN"},
    {"no negative multiplier passes: -2^64 by -1", "-2^64", -1, NUMERIC_UNDERFLOW, "NaN"},
    {"no negative multiplier passes: the smallest integer", "1", INT32_MIN, NUMERIC_UNDERFLOW, "NaN"},
    {"no negative multiplier passes: the smallest value", "-2^127+1", INT32_MIN, NUMERIC_UNDERFLOW, "NaN"},
};

TEST(MachineIntegerMultiply, Rows) {
    for (const MultiplyRow& row : kMultiplyRows) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(yields(multiply_by(row.multiplier), num(row.value), outcome(row.status, row.expected)));
    }
}

TEST(MachineIntegerMultiply, SpecialValuesByPositiveIntegers) {
    const cpp_int limit = cpp_int{1} << 127;
    for (const Numeric& value : special_values()) {
        for (const std::int32_t multiplier : {1, 2, 3, 5, 7, 10, 99, 255, 256, 65535, 65536, 1 << 24, 100000000,
                                              1 << 30, (1 << 30) + 1, INT32_MAX - 1, INT32_MAX}) {
            const cpp_int product = coefficient(value) * multiplier;
            // The pattern of -2^127 counts as in range here.
            const bool fits = -limit <= product && product < limit;
            const Outcome expected = fits ? Outcome{NUMERIC_OK, pattern(product)} : outcome(NUMERIC_UNDERFLOW, "NaN");
            EXPECT_TRUE(yields(multiply_by(multiplier), value, expected)) << value << " * " << multiplier;
        }
    }
}

TEST(MachineIntegerMultiply, NegativeIntegersNeverPass) {
    for (const Numeric& value : special_values()) {
        for (const std::int32_t multiplier : {-1, -2, -3, -7, -10, -65536, -INT32_MAX, INT32_MIN}) {
            EXPECT_TRUE(yields(multiply_by(multiplier), value, outcome(NUMERIC_UNDERFLOW, "NaN")))
                << value << " * " << multiplier;
        }
    }
}

struct DivideRow {
    const char* name;
    const char* value;
    std::int32_t divisor;
    std::uint32_t mode;
    NumericStatus status;
    const char* expected;
};

constexpr std::uint32_t kNine = 9;  // no rounding mode

constexpr DivideRow kDivideRows[] = {
    {"seven halves, tie to even upwards", "7", 2, kHalfEven, NUMERIC_INEXACT, "4"},
    {"five halves, tie to even downwards", "5", 2, kHalfEven, NUMERIC_INEXACT, "2"},
    {"seven by minus two, tie to even", "7", -2, kHalfEven, NUMERIC_INEXACT, "-4"},
    {"exact", "6", 3, kHalfEven, NUMERIC_OK, "2"},
    {"exact, negative divisor", "6", -3, kUp, NUMERIC_OK, "-2"},
    {"down with a negative quotient", "7", -2, kFloor, NUMERIC_INEXACT, "-4"},
    {"down with a positive quotient", "7", 2, kFloor, NUMERIC_INEXACT, "3"},
    {"up with a positive quotient", "7", 2, kCeiling, NUMERIC_INEXACT, "4"},
    {"up with a positive quotient, even kept", "5", 2, kCeiling, NUMERIC_INEXACT, "3"},
    {"up with a negative quotient", "7", -2, kCeiling, NUMERIC_INEXACT, "-3"},
    {"zero", "0", 7, kUp, NUMERIC_OK, "0"},
    {"zero by a negative", "0", -7, kUp, NUMERIC_OK, "0"},
    {"nothing is left", "1", INT32_MAX, kDown, NUMERIC_INEXACT, "0"},
    {"nothing but the rounding is left", "1", INT32_MIN, kUp, NUMERIC_INEXACT, "-1"},

    {"by one", "7", 1, kUp, NUMERIC_OK, "7"},
    {"by minus one, which leaves the sign", "7", -1, kUp, NUMERIC_OK, "7"},
    {"a negative by one", "-7", 1, kUp, NUMERIC_OK, "-7"},
    {"a negative by minus one, which leaves the sign", "-7", -1, kUp, NUMERIC_OK, "-7"},
    {"-2^64 by minus one", "-2^64", -1, kFloor, NUMERIC_OK, "-2^64"},
    {"the smallest value by minus one", "-2^127+1", -1, kUp, NUMERIC_OK, "-2^127+1"},
    {"by zero", "7", 0, kUp, NUMERIC_NAN, "NaN"},
    {"-2^64 by zero", "-2^64", 0, kUp, NUMERIC_NAN, "NaN"},
    {"zero by zero", "0", 0, kUp, NUMERIC_NAN, "NaN"},
    {"NaN", "NaN", 2, kUp, NUMERIC_NAN, "NaN"},
    {"NaN by one", "NaN", 1, kUp, NUMERIC_NAN, "NaN"},
    {"NaN by zero", "NaN", 0, kUp, NUMERIC_NAN, "NaN"},

    {"the mode is looked at after the division", "7", 2, kNine, NUMERIC_INVALID_ARGUMENT, "3"},
    {"the same with a negative quotient", "7", -2, kNine, NUMERIC_INVALID_ARGUMENT, "-3"},
    {"the same when the division is exact", "6", 3, kNine, NUMERIC_INVALID_ARGUMENT, "2"},
    {"the same when it is exact and negative", "6", -3, kNine, NUMERIC_INVALID_ARGUMENT, "-2"},
    {"the same for zero", "0", 3, kNine, NUMERIC_INVALID_ARGUMENT, "0"},
    {"the same for a negative value", "-7", 2, kNine, NUMERIC_INVALID_ARGUMENT, "-2^127+2^95-3"},
    {"mode 7", "7", 2, 7, NUMERIC_INVALID_ARGUMENT, "3"},
    {"the largest mode", "7", 2, UINT32_MAX, NUMERIC_INVALID_ARGUMENT, "3"},
    {"the mode is not looked at for one", "7", 1, kNine, NUMERIC_OK, "7"},
    {"the mode is not looked at for minus one", "7", -1, kNine, NUMERIC_OK, "7"},
    {"the mode is not looked at for zero", "7", 0, kNine, NUMERIC_NAN, "NaN"},
    {"the mode is not looked at for NaN", "NaN", 2, kNine, NUMERIC_NAN, "NaN"},

    {"three words of quotient, down", "10^30+7", 3, kFloor, NUMERIC_INEXACT, "333333333333333333333333333335"},
    {"three words of quotient, just above half", "10^30+7", 3, kHalfEven, NUMERIC_INEXACT,
     "333333333333333333333333333336"},
    {"the largest divisor", "10^30+7", INT32_MAX, kFloor, NUMERIC_INEXACT, "465661287524579692410"},
    {"the smallest divisor has the magnitude 2^31", "10^30+7", INT32_MIN, kFloor, NUMERIC_INEXACT,
     "-465661287307739257813"},

    // (10^30 + 7) / 2^31 leaves 2^30 + 7, a little above half of 2^31: away from zero in HALF_EVEN too.
    {"just above half of 2^31", "10^30+7", INT32_MIN, kHalfEven, NUMERIC_INEXACT, "-465661287307739257813"},
    {"exactly half of 2^31, even", "2^30", INT32_MIN, kHalfEven, NUMERIC_INEXACT, "0"},
    {"exactly half of 2^31, up", "2^30", INT32_MIN, kHalfUp, NUMERIC_INEXACT, "-1"},
    {"exactly one and a half of 2^31, odd", "2^31+2^30", INT32_MIN, kHalfEven, NUMERIC_INEXACT, "-2"},
    {"one below half of 2^31", "2^30-1", INT32_MIN, kHalfUp, NUMERIC_INEXACT, "0"},
    {"one above half of 2^31", "2^30+1", INT32_MIN, kHalfEven, NUMERIC_INEXACT, "-1"},
    {"2^30, the last divisor on the short road", "2^126", 1 << 30, kDown, NUMERIC_OK, "2^96"},
    {"one above 2^30", "2^126", (1 << 30) + 1, kDown, NUMERIC_INEXACT, "79228162440477361367425220544"},
    {"the largest value by two", "2^127-1", 2, kHalfEven, NUMERIC_INEXACT, "2^126"},
    {"the largest value by the smallest integer", "2^127-1", INT32_MIN, kDown, NUMERIC_INEXACT, "-2^96+1"},
    {"the largest value by the smallest integer, up", "2^127-1", INT32_MIN, kUp, NUMERIC_INEXACT, "-2^96"},
    {"2^64, with a bit in the third limb only", "2^64", 2, kUp, NUMERIC_OK, "2^63"},

    // A negative value is divided as the number made of its top limb as it stands and the lower three limbs of its
    // magnitude: for -7 that is 2^128 - 2^96 + 7, for -2^64 it is 2^128 - 2^96 + 2^64.
    {"minus seven halves, tie to even", "-7", 2, kHalfEven, NUMERIC_INEXACT,
     "-170141183420855150474555134919112130564"},
    {"minus seven halves is -(2^127 - 2^95 + 4)", "-7", 2, kHalfEven, NUMERIC_INEXACT, "-2^127+2^95-4"},
    {"minus seven halves, up", "-7", 2, kCeiling, NUMERIC_INEXACT, "-2^127+2^95-3"},
    {"minus seven by minus two, down", "-7", -2, kFloor, NUMERIC_INEXACT, "2^127-2^95+3"},
    {"minus seven by minus two, up", "-7", -2, kCeiling, NUMERIC_INEXACT, "2^127-2^95+4"},
    {"minus six thirds is exact", "-6", 3, kHalfEven, NUMERIC_OK, "-113427455613903433649703423279408087042"},
    {"-2^64 by two", "-2^64", 2, kHalfEven, NUMERIC_OK, "-2^127+2^95-2^63"},
    {"-2^64 by three, down", "-2^64", 3, kFloor, NUMERIC_INEXACT, "-113427455613903433655852337970644604246"},
    {"-2^96, whose lower three limbs are zero", "-2^96", 2, kUp, NUMERIC_OK, "-2^127+2^95"},
    {"the smallest value by two, toward zero", "-2^127+1", 2, kDown, NUMERIC_INEXACT, "-2^126-2^95+1"},

    // -(2^96 - 1) is divided as 2^128 - 1, so half of it rounded up is 2^127: the pattern of NaN, with either sign.
    {"a quotient rounded up to 2^127 is stored as it is", "-2^96+1", 2, kHalfUp, NUMERIC_INEXACT, "NaN"},
    {"a quotient rounded up to 2^127, positive", "-2^96+1", -2, kHalfUp, NUMERIC_INEXACT, "NaN"},
    {"one below, not rounded up", "-2^96+1", 2, kDown, NUMERIC_INEXACT, "-2^127+1"},
    {"one below, not rounded up, positive", "-2^96+1", -2, kDown, NUMERIC_INEXACT, "2^127-1"},
};

TEST(MachineIntegerDivide, Rows) {
    for (const DivideRow& row : kDivideRows) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(yields(divide_by(row.divisor, row.mode), num(row.value), outcome(row.status, row.expected)));
    }
}

TEST(MachineIntegerDivide, TheScaleHasNoPart) {
    for (const std::int32_t scale : {INT32_MIN, -1, 0, 1, 38, INT32_MAX}) {
        EXPECT_TRUE(yields(divide_by(2, kHalfEven, scale), num("7"), outcome(NUMERIC_INEXACT, "4"))) << scale;
    }
}

struct SevenModes {
    const char* name;
    const char* value;
    std::int32_t divisor;
    NumericStatus status;
    const char* expected;  // one per mode
};

constexpr SevenModes kEveryMode[] = {
    {"tie, odd kept", "7", 2, NUMERIC_INEXACT, "4 3 4 3 4 3 4"},
    {"tie, even kept", "5", 2, NUMERIC_INEXACT, "3 2 3 2 3 2 2"},
    {"tie, negative divisor, odd kept", "7", -2, NUMERIC_INEXACT, "-4 -3 -3 -4 -4 -3 -4"},
    {"tie, negative divisor, even kept", "5", -2, NUMERIC_INEXACT, "-3 -2 -2 -3 -3 -2 -2"},
    {"below half", "7", 3, NUMERIC_INEXACT, "3 2 3 2 2 2 2"},
    {"above half", "8", 3, NUMERIC_INEXACT, "3 2 3 2 3 3 3"},
    {"above half, negative divisor", "8", -3, NUMERIC_INEXACT, "-3 -2 -2 -3 -3 -3 -3"},
    {"exact", "9", 3, NUMERIC_OK, "3 3 3 3 3 3 3"},
    {"a negative value: the sign of the quotient counts, not that of the value", "-7", -2, NUMERIC_INEXACT,
     "2^127-2^95+4 2^127-2^95+3 2^127-2^95+4 2^127-2^95+3 2^127-2^95+4 2^127-2^95+3 2^127-2^95+4"},
};

TEST(MachineIntegerDivide, EveryMode) {
    for (const SevenModes& row : kEveryMode) {
        SCOPED_TRACE(row.name);
        for (const std::uint32_t mode : kModes) {
            EXPECT_TRUE(
                yields(divide_by(row.divisor, mode), num(row.value), outcome(row.status, in_mode(row.expected, mode))))
                << mode_name(mode);
        }
    }
}

// What is divided: a magnitude, whose top limb is taken before a negative value is negated.
cpp_int dividend(const Numeric& value) {
    const cpp_int number = coefficient(value);
    if (number >= 0) return number;
    const cpp_int limb = cpp_int{1} << 96;
    const cpp_int top = ((number + (cpp_int{1} << 128)) / limb) * limb;
    return top + cpp_int(-number) % limb;
}

// Around the powers of two at which a divisor gains a byte or a bit, and around 2^30 and 2^31.
constexpr std::int32_t kDivisors[] = {
    2,         3,        4,         5,         7,          10,          99,         100,
    127,       128,      255,       256,       257,        65535,       65536,      65537,
    16777215,  16777216, 100000000, 715827883, 1073741823, 1073741824,  1073741825, INT32_MAX - 1,
    INT32_MAX, -2,       -3,        -10,       -65537,     -1073741824, -INT32_MAX, INT32_MIN,
};

TEST(MachineIntegerDivide, SpecialValues) {
    for (const Numeric& value : special_values()) {
        for (const std::int32_t divisor : kDivisors) {
            const bool negative = (value.high < 0) != (divisor < 0);
            const cpp_int magnitude = dividend(value);
            const Cut exact = cut({negative ? cpp_int(-magnitude) : magnitude, abs(cpp_int{divisor})}, 0);
            for (const std::uint32_t mode : kModes) {
                // No range check: a quotient of 2^127 is stored as its pattern.
                const Outcome expected = {success(exact), pattern(rounded(exact, mode))};
                EXPECT_TRUE(yields(divide_by(divisor, mode), value, expected))
                    << value << " / " << divisor << ", " << mode_name(mode);
            }
            const Outcome truncated = {NUMERIC_INVALID_ARGUMENT, pattern(rounded(exact, NUMERIC_ROUND_DOWN))};
            EXPECT_TRUE(yields(divide_by(divisor, kNine), value, truncated)) << value << " / " << divisor;
        }
    }
}

TEST(MachineIntegerDivide, AroundEveryMultipleOfTheDivisor) {
    for (const std::int32_t divisor : kDivisors) {
        const cpp_int step = abs(cpp_int{divisor});
        for (const char* factor : {"1", "2", "2^31", "2^32-1", "2^63", "2^64-1", "2^64", "2^94", "2^96-1"}) {
            for (const int beside : {-1, 0, 1}) {
                const cpp_int value = coefficient(num(factor)) * step + beside;
                if (value >= cpp_int{1} << 127) continue;
                const Cut exact = cut({divisor < 0 ? cpp_int(-value) : value, step}, 0);
                const Outcome expected = {success(exact), pattern(rounded(exact, kDown))};
                EXPECT_TRUE(yields(divide_by(divisor, kDown), pattern(value), expected)) << value << " / " << divisor;
            }
        }
    }
}

TEST(MachineInteger, DividingAMultipleBringsTheValueBack) {
    int checked = 0;
    for (const Numeric& value : special_values()) {
        if (value.high < 0) continue;  // a negative value is not divided as itself
        for (const std::int32_t factor : {2, 3, 10, 65536, 1000000007, INT32_MAX}) {
            Numeric product = value;
            if (QV8NumericMul(&product, factor) != NUMERIC_OK) continue;
            EXPECT_TRUE(yields(divide_by(factor, kUp), product, {NUMERIC_OK, value})) << value << " * " << factor;
            ++checked;
        }
    }
    EXPECT_GT(checked, 50);
}

}  // namespace
}  // namespace qv8numeric_tests
