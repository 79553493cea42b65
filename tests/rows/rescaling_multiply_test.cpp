// SPDX-License-Identifier: MIT
// Multiplying values, each at its own scale.
#include <gtest/gtest.h>

#include "exact.h"
#include "modes.h"
#include "rescaling.h"
#include "special_values.h"
#include "ties.h"

namespace qv8numeric_tests {
namespace {

constexpr RescalingRow kRows[] = {
    {"0.5 times 0.2, exact", "5", 1, "2", 1, 2, kUp, NUMERIC_OK, "10"},
    {"0.5 times 0.2, nothing left", "5", 1, "2", 1, 0, kHalfUp, NUMERIC_INEXACT, "0"},
    {"exact, more places than there are", "15", 1, "2", 0, 4, kUp, NUMERIC_OK, "30000"},
    {"exact, zeros dropped", "50", 1, "20", 1, 0, kUp, NUMERIC_OK, "10"},
    {"negative scales", "3", -2, "4", -1, -3, kUp, NUMERIC_OK, "12"},
    {"negative by negative", "-3", 0, "-4", 0, 0, kUp, NUMERIC_OK, "12"},
    {"negative by positive", "-3", 0, "4", 0, 0, kUp, NUMERIC_OK, "-12"},
    {"by zero", "-3", 1, "0", 1, 0, kFloor, NUMERIC_OK, "0"},
    {"zero by a negative", "0", 1, "-3", 1, 0, kUp, NUMERIC_OK, "0"},

    {"-2^64", "-2^64", 0, "3", 0, 0, kUp, NUMERIC_OK, "-2^65-2^64"},
    {"-2^64 by itself, digits dropped", "-2^64", 0, "-2^64", 0, -1, kDown, NUMERIC_INEXACT,
     "34028236692093846346337460743176821145"},
    {"-2^64 by 2^62", "-2^64", 0, "2^62", 0, 0, kUp, NUMERIC_OK, "-2^126"},
    {"-2^64 by one tenth", "-2^64", 0, "1", 1, 0, kFloor, NUMERIC_INEXACT, "-1844674407370955162"},
    {"around 2^63", "2^63", 0, "2^63", 0, 0, kUp, NUMERIC_OK, "2^126"},
    {"full low halves", "2^64-1", 0, "2^63-1", 0, 0, kUp, NUMERIC_OK, "2^127-2^64-2^63+1"},

    {"2^128 by equal signs", "2^64", 0, "2^64", 0, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"2^128 by two negatives", "-2^64", 0, "-2^64", 0, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"-2^128", "-2^64", 0, "2^64", 0, 0, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"-2^128, exchanged", "2^64", 0, "-2^64", 0, 0, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"exactly 2^127", "2^64", 0, "2^63", 0, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"exactly -2^127", "-2^64", 0, "2^63", 0, 0, kUp, NUMERIC_UNDERFLOW, "NaN"},

    // 413 * 82392824920324083163044699136021358706 = 100 * 2^128 - 22.
    {"rounded up to 2^128, which is 128 bits of zeros", "82392824920324083163044699136021358706", 0, "413", 0, -2, kUp,
     NUMERIC_OVERFLOW, "NaN"},
    {"rounded down to -2^128", "-82392824920324083163044699136021358706", 0, "413", 0, -2, kFloor, NUMERIC_UNDERFLOW,
     "NaN"},

    {"the largest product there is", "2^127-1", 0, "2^127-1", 0, 0, kDown, NUMERIC_OVERFLOW, "NaN"},
    {"the largest product there is, one digit too many", "2^127-1", 38, "2^127-1", 38, 38, kDown, NUMERIC_OVERFLOW,
     "NaN"},
    {"the largest product there is, as many digits as fit", "2^127-1", 38, "2^127-1", 38, 37, kDown, NUMERIC_INEXACT,
     "28948022309329048855892746252171976962"},
    {"the largest product there is, half up", "2^127-1", 38, "2^127-1", 38, 37, kHalfUp, NUMERIC_INEXACT,
     "28948022309329048855892746252171976963"},
    {"the smallest product there is, down", "2^127-1", 38, "-2^127+1", 38, 37, kFloor, NUMERIC_INEXACT,
     "-28948022309329048855892746252171976963"},
    {"2.89 times 10^76 in units of 10^76", "2^127-1", 0, "2^127-1", 0, -76, kHalfUp, NUMERIC_INEXACT, "3"},
    {"0.289 times 10^77 in units of 10^77", "2^127-1", 0, "2^127-1", 0, -77, kHalfUp, NUMERIC_INEXACT, "0"},

    // 19 * 89547991294983806174572265113623213541 = 10 * 2^127 - 1, so in tens it lies just below 2^127.
    {"rounded up to 2^127", "89547991294983806174572265113623213541", 0, "19", 0, -1, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"rounded to 2^127 as the nearest", "89547991294983806174572265113623213541", 0, "19", 0, -1, kHalfEven,
     NUMERIC_OVERFLOW, "NaN"},
    {"rounded down to -2^127", "-89547991294983806174572265113623213541", 0, "19", 0, -1, kFloor, NUMERIC_UNDERFLOW,
     "NaN"},
    {"cut to the largest value", "89547991294983806174572265113623213541", 0, "19", 0, -1, kDown, NUMERIC_INEXACT,
     "2^127-1"},
    {"cut to the smallest value", "89547991294983806174572265113623213541", 0, "-19", 0, -1, kCeiling, NUMERIC_INEXACT,
     "-2^127+1"},

    {"as many places as fit", "1", 0, "1", 0, 38, kUp, NUMERIC_OK, "10^38"},
    {"one place too many", "1", 0, "1", 0, 39, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"one place too many, negative", "1", 0, "-1", 0, 39, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"far too many places", "1", 0, "1", 0, 1000, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"far too many places, negative", "-1", 0, "1", 0, 1000, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"far too many places for zero", "0", 0, "1", 0, 1000, kUp, NUMERIC_OK, "0"},
    {"far too many places for a negative and zero", "-1", 0, "0", 0, 1000, kUp, NUMERIC_OK, "0"},
    {"the largest scale", "1", 0, "1", 0, INT32_MAX, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"the largest scale for zero", "0", 0, "-1", 0, INT32_MAX, kUp, NUMERIC_OK, "0"},
    {"the smallest scale", "1", 0, "1", 0, INT32_MIN, kDown, NUMERIC_INEXACT, "0"},
    {"the smallest scale, up", "1", 0, "1", 0, INT32_MIN, kUp, NUMERIC_INEXACT, "1"},
    {"256 bits and more places still", "2^127-1", 0, "2^127-1", 0, 5, kUp, NUMERIC_OVERFLOW, "NaN"},

    // The distance of the scales is a 32-bit number and wraps. -2^31 itself means 2^31 places fewer.
    {"-2^31: all digits go", "3", INT32_MAX, "5", 1, 0, kDown, NUMERIC_INEXACT, "0"},
    {"-2^31: all digits go, up", "3", INT32_MAX, "5", 1, 0, kUp, NUMERIC_INEXACT, "1"},
    {"-2^31: all digits go, negative down", "-3", INT32_MAX, "5", 1, 0, kFloor, NUMERIC_INEXACT, "-1"},
    {"2^31 wraps to -2^31", "3", -1, "5", 0, INT32_MAX, kUp, NUMERIC_INEXACT, "1"},
    {"2^31 wraps to -2^31, cut", "3", -1, "5", 0, INT32_MAX, kDown, NUMERIC_INEXACT, "0"},
    {"-2^32 + 2 wraps to 2", "3", INT32_MAX, "5", INT32_MAX, 0, kUp, NUMERIC_OK, "1500"},
    {"2^32 wraps to nothing", "3", INT32_MIN, "5", INT32_MIN, 0, kUp, NUMERIC_OK, "15"},
    {"2^32 - 1 wraps to -1", "3", INT32_MIN, "5", INT32_MIN, -1, kHalfEven, NUMERIC_INEXACT, "2"},
    {"2^32 + 3 wraps to 3", "-3", INT32_MIN, "5", INT32_MIN, 3, kUp, NUMERIC_OK, "-15000"},
    {"-2^31 - 1 wraps to 2^31 - 1", "3", INT32_MAX, "5", 2, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"1.0 at the ends of the scales", "10", -INT32_MAX, "10", INT32_MAX, 0, kUp, NUMERIC_OK, "100"},
    {"1.0 at the largest scale twice, wrapped to nothing", "10", INT32_MAX, "10", INT32_MAX, -2, kUp, NUMERIC_OK,
     "100"},
    {"1.0 near the smallest scale twice, 2^32 - 2 wraps to -2", "10", -INT32_MAX, "10", -INT32_MAX, 0, kUp, NUMERIC_OK,
     "1"},
};

constexpr SevenModesRow kSevenModes[] = {
    {"1.5", "15", 1, "1", 0, 0, NUMERIC_INEXACT, "2 1 2 1 2 1 2"},
    {"-1.5", "-15", 1, "1", 0, 0, NUMERIC_INEXACT, "-2 -1 -1 -2 -2 -1 -2"},
    {"2.5", "5", 1, "5", 0, 0, NUMERIC_INEXACT, "3 2 3 2 3 2 2"},
    {"-2.5 with the sign in the second operand", "5", 0, "-5", 1, 0, NUMERIC_INEXACT, "-3 -2 -2 -3 -3 -2 -2"},
    {"-0.001", "-1", 3, "1", 0, 0, NUMERIC_INEXACT, "-1 0 0 -1 0 0 0"},
    {"0.001 by two negatives", "-1", 3, "-1", 0, 0, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"1.500000000", "1500000000", 9, "1", 0, 0, NUMERIC_INEXACT, "2 1 2 1 2 1 2"},
    {"1.500000001", "1500000001", 9, "1", 0, 0, NUMERIC_INEXACT, "2 1 2 1 2 2 2"},
    {"a hundred places down", "7", 50, "1", 50, 0, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"a hundred places down, negative", "7", 50, "-1", 50, 0, NUMERIC_INEXACT, "-1 0 0 -1 0 0 0"},
    {"-2^64 and a half", "-2^65-1", 0, "5", 1, 0, NUMERIC_INEXACT, "-2^64-1 -2^64 -2^64 -2^64-1 -2^64-1 -2^64 -2^64"},
    {"exact", "-25", 1, "4", 0, 0, NUMERIC_OK, "-10 -10 -10 -10 -10 -10 -10"},
};

TEST(RescalingMultiply, Rows) { expect_rows(QV8NumericRescalingMul, kRows); }

TEST(RescalingMultiply, EveryMode) { expect_rows(QV8NumericRescalingMul, kSevenModes); }

TEST(RescalingMultiply, TiesAtEveryScaleDistance) {
    for_every_tie([](const TieCase& item) {
        const Outcome expected = {NUMERIC_INEXACT, pattern(item.rounded())};
        EXPECT_TRUE(yields(at_scales(QV8NumericRescalingMul, {item.distance, 0, 0}, item.mode), item.value(), num("1"),
                           expected))
            << item;
        // The same value with its sign, and its places, in the second operand.
        const Numeric magnitude = pattern(abs(coefficient(item.value())));
        EXPECT_TRUE(yields(at_scales(QV8NumericRescalingMul, {0, item.distance, 0}, item.mode), magnitude,
                           num(item.negative ? "-1" : "1"), expected))
            << item;
    });
}

TEST(RescalingMultiply, AllPairsOfSpecialValues) {
    constexpr Scales kScales[] = {{0, 0, 0},   {2, 3, 1},   {1, 1, 5},   {19, 19, 0},  {38, 0, 0},   {8, 8, 0},
                                  {-3, 2, -1}, {38, 38, 0}, {10, 0, 48}, {38, 38, 38}, {40, 40, -9}, {7, 0, 0}};
    for (const Scales& scales : kScales) {
        for (const Numeric& a : special_values()) {
            for (const Numeric& b : special_values()) {
                const Cut exact = cut(decimal(a, scales.a) * decimal(b, scales.b), scales.result);
                for (const std::uint32_t mode : kModes) {
                    EXPECT_TRUE(yields(at_scales(QV8NumericRescalingMul, scales, mode), a, b, narrowed(exact, mode)))
                        << a << " * " << b << " at " << scales << ", " << mode_name(mode);
                }
            }
        }
    }
}

TEST(RescalingMultiply, OrderOfTheOperandsHasNoEffect) {
    for (const Numeric& a : special_values()) {
        for (const Numeric& b : special_values()) {
            Outcome forward{0, kPoison};
            const BinaryOperation there = at_scales(QV8NumericRescalingMul, {5, 21, 7}, kHalfEven);
            forward.status = there(&a, &b, &forward.value);
            EXPECT_TRUE(yields(at_scales(QV8NumericRescalingMul, {21, 5, 7}, kHalfEven), b, a, forward))
                << a << " * " << b;
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
