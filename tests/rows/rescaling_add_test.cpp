// SPDX-License-Identifier: MIT
// Adding values of different scales.
#include <gtest/gtest.h>

#include "exact.h"
#include "modes.h"
#include "rescaling.h"
#include "special_values.h"
#include "ties.h"

namespace qv8numeric_tests {
namespace {

constexpr RescalingRow kRows[] = {
    {"exact at the result's scale", "12345", 2, "1", 0, 2, kUp, NUMERIC_OK, "12445"},
    {"exact, more places than either", "15", 1, "25", 1, 3, kUp, NUMERIC_OK, "4000"},
    {"exact, fewer places than either", "15", 1, "25", 1, 0, kUp, NUMERIC_OK, "4"},
    {"exact, three scales", "1", 1, "1", 3, 5, kUp, NUMERIC_OK, "10100"},
    {"exact, negative scales", "5", -2, "7", -1, -1, kUp, NUMERIC_OK, "57"},
    {"half a unit and nothing, to even", "5", 1, "0", 3, 0, kHalfEven, NUMERIC_INEXACT, "0"},
    {"half a unit and nothing, up", "5", 1, "0", 3, 0, kHalfUp, NUMERIC_INEXACT, "1"},
    {"1234.50 and 1.2345 in two places", "123450", 2, "12345", 4, 2, kHalfEven, NUMERIC_INEXACT, "123573"},
    {"a sum of zero", "10", 1, "-1", 0, 5, kUp, NUMERIC_OK, "0"},

    // Equal scales, where 128 bits are enough.
    {"equal scales", "5", 2, "-8", 2, 2, kUp, NUMERIC_OK, "-3"},
    {"equal scales, a carry into the high half", "2^64-1", 2, "1", 2, 2, kUp, NUMERIC_OK, "2^64"},
    {"equal scales, -2^64 twice", "-2^64", 2, "-2^64", 2, 2, kUp, NUMERIC_OK, "-2^65"},
    {"equal scales, the limits cancel", "2^127-1", 2, "-2^127+1", 2, 2, kUp, NUMERIC_OK, "0"},
    {"equal scales, one above the largest value", "2^127-1", 2, "1", 2, 2, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"equal scales, the largest value twice", "2^127-1", 2, "2^127-1", 2, 2, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"equal scales, exactly -2^127", "-2^126", 2, "-2^126", 2, 2, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"equal scales, -2^127 from its neighbour", "-2^127+1", 2, "-1", 2, 2, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"equal scales, below -2^127", "-2^127+1", 2, "-2", 2, 2, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"equal scales, the ends of the scales", "5", INT32_MAX, "6", INT32_MAX, INT32_MAX, kUp, NUMERIC_OK, "11"},
    {"equal scales, the other end", "5", INT32_MIN, "6", INT32_MIN, INT32_MIN, kUp, NUMERIC_OK, "11"},

    // The limits of the range after alignment.
    {"up to the largest value", "2^127-11", 1, "1", 0, 1, kUp, NUMERIC_OK, "2^127-1"},
    {"one above the largest value", "2^127-10", 1, "1", 0, 1, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"down to the smallest value", "-2^127+11", 1, "-1", 0, 1, kUp, NUMERIC_OK, "-2^127+1"},
    {"exactly -2^127", "-2^127+10", 1, "-1", 0, 1, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"a sum of 128 bits that loses a digit", "2^127-1", 0, "2^127-1", 0, -1, kDown, NUMERIC_INEXACT,
     "34028236692093846346337460743176821145"},
    {"a negative sum of 128 bits that loses a digit", "-2^127+1", 0, "-2^127+1", 0, -1, kFloor, NUMERIC_INEXACT,
     "-34028236692093846346337460743176821146"},
    {"exactly -2^127 in the making, a digit less in the end", "-2^126", 0, "-2^126", 0, -1, kDown, NUMERIC_INEXACT,
     "-17014118346046923173168730371588410572"},
    // 34028236692093846346337460743176821146 * 10 - 4.5 = 2^128 - 0.5.
    {"rounded up to 2^128, which is 128 bits of zeros", "34028236692093846346337460743176821146", 38,
     "-45000000000000000000000000000000", 70, 39, kHalfUp, NUMERIC_OVERFLOW, "NaN"},
    {"rounded past the largest value", "2^127-1", 0, "5", 1, 0, kHalfUp, NUMERIC_OVERFLOW, "NaN"},
    {"not rounded past the largest value", "2^127-1", 0, "4", 1, 0, kHalfUp, NUMERIC_INEXACT, "2^127-1"},
    {"rounded past the smallest value", "-2^127+1", 0, "-5", 1, 0, kHalfUp, NUMERIC_UNDERFLOW, "NaN"},
    {"not rounded past the smallest value", "-2^127+1", 0, "-5", 1, 0, kHalfDown, NUMERIC_INEXACT, "-2^127+1"},
    {"too many places asked for", "1", 0, "0", 0, 39, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"as many places as fit", "1", 0, "0", 0, 38, kUp, NUMERIC_OK, "10^38"},
    {"too many places asked for, negative", "-1", 0, "0", 0, 39, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"too many places asked for, a sum of zero", "1", 0, "-1", 0, 39, kUp, NUMERIC_OK, "0"},
    {"2^127 goes no further with more places", "2^126", 0, "2^126", 0, 1, kUp, NUMERIC_OVERFLOW, "NaN"},

    {"-2^64 and a tenth", "-2^64", 0, "1", 1, 1, kUp, NUMERIC_OK, "-184467440737095516159"},
    {"-2^64 in tenths", "-2^64", 1, "-2^64", 0, 1, kUp, NUMERIC_OK, "-202914184810805067776"},
    {"-2^64 and its negative at another scale", "-2^64", 0, "184467440737095516160", 1, 1, kUp, NUMERIC_OK, "0"},

    // A zero operand takes the other's scale, however far away its own is.
    {"zero far below", "5", 0, "0", INT32_MAX, 0, kUp, NUMERIC_OK, "5"},
    {"zero far above", "0", INT32_MIN, "-5", 2, 2, kUp, NUMERIC_OK, "-5"},
    {"two zeros at the ends of the scales", "0", INT32_MIN, "0", INT32_MAX, 7, kUp, NUMERIC_OK, "0"},
    {"-2^64 and a zero far below", "-2^64", 1, "0", 100, 0, kFloor, NUMERIC_INEXACT, "-1844674407370955162"},

    // 38 places apart everything is kept; farther apart the finer operand may be cut.
    {"38 places apart, all kept", "1", 0, "1", 38, 38, kUp, NUMERIC_OK, "10^38+1"},
    {"38 places apart, exchanged", "1", 38, "1", 0, 38, kUp, NUMERIC_OK, "10^38+1"},
    {"38 places apart at the limit, cut", "2^127-1", 0, "1", 38, 0, kDown, NUMERIC_INEXACT, "2^127-1"},
    {"38 places apart at the limit, up", "2^127-1", 0, "1", 38, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"38 places apart at the limit, pulled below it", "2^127-1", 0, "-1", 38, 0, kDown, NUMERIC_INEXACT, "2^127-2"},
    {"39 places apart, cut", "1", 0, "1", 39, 38, kDown, NUMERIC_INEXACT, "10^38"},
    {"39 places apart, up", "1", 0, "1", 39, 38, kUp, NUMERIC_INEXACT, "10^38+1"},
    {"39 places apart at the limit, up", "-2^127+1", 0, "-1", 39, 0, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"39 places apart at the limit, pulled above it", "-2^127+1", 0, "1", 39, 0, kCeiling, NUMERIC_INEXACT, "-2^127+2"},
    {"48 places apart, the last that are kept", "1", 0, "1", 48, 38, kUp, NUMERIC_INEXACT, "10^38+1"},
    {"49 places apart, the first that are cut", "1", 0, "1", 49, 38, kUp, NUMERIC_INEXACT, "10^38+1"},
    {"60 places apart, part of the finer operand kept", "1", 0, "12345678901234567890", 60, 38, kDown, NUMERIC_INEXACT,
     "10^38"},
    {"60 places apart, the kept part is visible", "1", 0, "2^127-1", 60, 38, kDown, NUMERIC_INEXACT,
     "10^38+17014118346046923"},
    {"60 places apart at the limit", "2^127-1", 0, "-1", 60, 0, kDown, NUMERIC_INEXACT, "2^127-2"},
    {"60 places apart, the coarser operand of one word", "7", 0, "-2^127+1", 60, 0, kFloor, NUMERIC_INEXACT, "6"},
    {"as far apart as scales go, up", "7", INT32_MIN, "1", INT32_MAX, INT32_MIN, kUp, NUMERIC_INEXACT, "8"},
    {"as far apart as scales go, the finer one first", "-1", INT32_MAX, "7", INT32_MIN, INT32_MIN, kFloor,
     NUMERIC_INEXACT, "6"},

    // What was cut breaks a tie.
    {"a tie and something far below", "5", 1, "1", 70, 0, kHalfDown, NUMERIC_INEXACT, "1"},
    {"a tie and something far below, to even", "5", 1, "1", 70, 0, kHalfEven, NUMERIC_INEXACT, "1"},
    {"a tie less something far below", "5", 1, "-1", 70, 0, kHalfUp, NUMERIC_INEXACT, "0"},
    {"a negative tie and something far below", "-5", 1, "-1", 70, 0, kHalfDown, NUMERIC_INEXACT, "-1"},
    {"a negative tie less something far below", "-5", 1, "1", 70, 0, kHalfUp, NUMERIC_INEXACT, "0"},

    // What is cut is stood in for by one unit away from zero, 38 guard digits down where the upper half of the coarser
    // operand is more than sign, and 48 where it is not. A cut operand of nines carries that unit to a place where the
    // exact sum would not be: the rows show which width was in force.
    {"2^64 has 38 guard digits: cut to a tie", "2^64", 0, "499999999999999999999999999999", 48, 18, kHalfUp,
     NUMERIC_INEXACT, "18446744073709551616000000000000000001"},
    {"2^64 has 38 guard digits: that tie is exact", "2^64", 0, "499999999999999999999999999999", 48, 18, kHalfDown,
     NUMERIC_INEXACT, "18446744073709551616000000000000000000"},
    {"2^64 has 38 guard digits: that tie goes to even", "2^64", 0, "499999999999999999999999999999", 48, 18, kHalfEven,
     NUMERIC_INEXACT, "18446744073709551616000000000000000000"},
    {"2^64 has 38 guard digits, exchanged", "499999999999999999999999999999", 48, "2^64", 0, 18, kHalfUp,
     NUMERIC_INEXACT, "18446744073709551616000000000000000001"},
    {"2^64 - 1 has 48 guard digits: nothing is cut", "2^64-1", 0, "499999999999999999999999999999", 48, 18, kHalfUp,
     NUMERIC_INEXACT, "18446744073709551615000000000000000000"},
    {"-2^64 has 48 guard digits, its upper half being sign", "-2^64", 0, "-499999999999999999999999999999", 48, 18,
     kHalfUp, NUMERIC_INEXACT, "-18446744073709551616000000000000000000"},
    {"-2^64 has 48 guard digits, exchanged", "-499999999999999999999999999999", 48, "-2^64", 0, 18, kHalfUp,
     NUMERIC_INEXACT, "-18446744073709551616000000000000000000"},
    {"-2^64 - 1 has 38 guard digits: cut to a tie", "-2^64-1", 0, "-499999999999999999999999999999", 48, 18, kHalfUp,
     NUMERIC_INEXACT, "-18446744073709551617000000000000000001"},
    {"38 places apart nothing is cut", "2^64", 0, "49999999999999999999", 38, 18, kHalfUp, NUMERIC_INEXACT,
     "18446744073709551616000000000000000000"},
    {"39 places apart the last digit is", "2^64", 0, "499999999999999999999", 39, 18, kHalfUp, NUMERIC_INEXACT,
     "18446744073709551616000000000000000001"},

    {"1.0 at the ends of the scales: too large for any place", "10", -INT32_MAX, "10", INT32_MAX, 0, kDown,
     NUMERIC_OVERFLOW, "NaN"},
    {"1.0 at the ends of the scales, negative", "-10", -INT32_MAX, "10", INT32_MAX, 0, kDown, NUMERIC_UNDERFLOW, "NaN"},
    {"1.0 at the ends of the scales, at the coarser one", "10", -INT32_MAX, "10", INT32_MAX, -INT32_MAX, kDown,
     NUMERIC_INEXACT, "10"},
    {"1.0 at the ends of the scales, at the coarser one, up", "10", -INT32_MAX, "10", INT32_MAX, -INT32_MAX, kUp,
     NUMERIC_INEXACT, "11"},
    {"1.0 at the ends of the scales, exchanged", "10", INT32_MAX, "-10", -INT32_MAX, -INT32_MAX, kFloor,
     NUMERIC_INEXACT, "-10"},
    {"1.0 at the ends of the scales, at the finer one", "10", -INT32_MAX, "10", INT32_MAX, INT32_MAX, kDown,
     NUMERIC_OVERFLOW, "NaN"},
    {"far below the result's place", "1", INT32_MAX, "1", INT32_MAX, INT32_MIN, kDown, NUMERIC_INEXACT, "0"},
    {"far below the result's place, up", "1", INT32_MAX, "1", INT32_MAX, INT32_MIN, kUp, NUMERIC_INEXACT, "1"},
    {"far above the result's place", "1", INT32_MIN, "1", INT32_MIN, INT32_MAX, kDown, NUMERIC_OVERFLOW, "NaN"},
    {"the whole range of scales", "1", INT32_MIN, "-1", INT32_MAX, INT32_MIN, kDown, NUMERIC_INEXACT, "0"},
};

constexpr SevenModesRow kSevenModes[] = {
    {"1 and 10^-40", "1", 0, "1", 40, 0, NUMERIC_INEXACT, "2 1 2 1 1 1 1"},
    {"1 and 10^-60", "1", 0, "1", 60, 0, NUMERIC_INEXACT, "2 1 2 1 1 1 1"},
    {"10^-60 and 1", "1", 60, "1", 0, 0, NUMERIC_INEXACT, "2 1 2 1 1 1 1"},
    {"1 less 10^-60", "1", 0, "-1", 60, 0, NUMERIC_INEXACT, "1 0 1 0 1 1 1"},
    {"-1 and 10^-60", "-1", 0, "1", 60, 0, NUMERIC_INEXACT, "-1 0 0 -1 -1 -1 -1"},
    {"-1 less 10^-60", "-1", 0, "-1", 60, 0, NUMERIC_INEXACT, "-2 -1 -1 -2 -1 -1 -1"},
    {"1.5", "15", 1, "0", 0, 0, NUMERIC_INEXACT, "2 1 2 1 2 1 2"},
    {"2.5", "25", 1, "0", 0, 0, NUMERIC_INEXACT, "3 2 3 2 3 2 2"},
    {"-1.5", "-15", 1, "0", 0, 0, NUMERIC_INEXACT, "-2 -1 -1 -2 -2 -1 -2"},
    {"-2.5 in two parts", "-20", 1, "-5", 1, 0, NUMERIC_INEXACT, "-3 -2 -2 -3 -3 -2 -2"},
    {"1.500000000", "1500000000", 9, "0", 0, 0, NUMERIC_INEXACT, "2 1 2 1 2 1 2"},
    {"1.500000001", "1500000001", 9, "0", 0, 0, NUMERIC_INEXACT, "2 1 2 1 2 2 2"},
    {"a hundred places down", "7", 100, "0", 0, 0, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"a hundred places down, two operands", "2^127-1", 100, "2^127-1", 90, 0, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"a hundred places down, negative", "-7", 100, "0", 0, 0, NUMERIC_INEXACT, "-1 0 0 -1 0 0 0"},
    {"-2^64 and a half", "-2^64", 0, "-5", 1, 0, NUMERIC_INEXACT, "-2^64-1 -2^64 -2^64 -2^64-1 -2^64-1 -2^64 -2^64"},

    // The unit that stands for the cut digits fills up 26 nines: the sum is a whole number of places, and still
    // inexact.
    {"a cut operand of nines carries into a full place", "1", 0, "10^38-1", 60, 22, NUMERIC_INEXACT,
     "10^22+1 10^22+1 10^22+1 10^22+1 10^22+1 10^22+1 10^22+1"},
};

TEST(RescalingAdd, Rows) { expect_rows(QV8NumericRescalingAdd, kRows); }

TEST(RescalingAdd, EveryMode) { expect_rows(QV8NumericRescalingAdd, kSevenModes); }

TEST(RescalingAdd, TiesAtEveryScaleDistance) {
    for_every_tie([](const TieCase& item) {
        const BinaryOperation add = at_scales(QV8NumericRescalingAdd, {item.distance, 0, 0}, item.mode);
        const Outcome expected = {NUMERIC_INEXACT, pattern(item.rounded())};
        EXPECT_TRUE(yields(add, item.value(), num("0"), expected)) << item;
        EXPECT_TRUE(yields(at_scales(QV8NumericRescalingAdd, {0, item.distance, 0}, item.mode), num("0"), item.value(),
                           expected))
            << item;
    });
}

void expect_exact_sum(const Numeric& a, const Numeric& b, const Scales& scales) {
    const Cut exact = cut(decimal(a, scales.a) + decimal(b, scales.b), scales.result);
    for (const std::uint32_t mode : kModes) {
        EXPECT_TRUE(yields(at_scales(QV8NumericRescalingAdd, scales, mode), a, b, narrowed(exact, mode)))
            << a << " + " << b << " at " << scales << ", " << mode_name(mode);
    }
}

TEST(RescalingAdd, SpecialValuesUpTo38PlacesApart) {
    constexpr Scales kScales[] = {{0, 0, 0}, {0, 0, -1},  {2, 0, 1},   {0, 3, 0},  {8, 0, 2},
                                  {0, 9, 9}, {-5, 4, -2}, {38, 0, 19}, {0, 38, 3}, {17, 20, 40}};
    for (const Scales& scales : kScales) {
        for (const Numeric& a : special_values()) {
            for (const Numeric& b : special_values()) expect_exact_sum(a, b, scales);
        }
    }
}

// Farther apart than 38 places, digits of the finer operand below the guard digits are replaced by one unit. That is
// exact rounding as long as all of its digits are replaced, as here, or none, as in the next test.
TEST(RescalingAdd, SpecialValuesWithTheFinerOperandCutToNothing) {
    const cpp_int bound = power_of_ten(60 - 48);
    for (const std::int32_t result : {-3, 0, 5, 17}) {
        for (const Numeric& coarse : special_values()) {
            for (const Numeric& fine : special_values()) {
                if (abs(coefficient(fine)) >= bound) continue;
                expect_exact_sum(coarse, fine, {0, 60, result});
                expect_exact_sum(fine, coarse, {60, 0, result});
            }
        }
    }
}

TEST(RescalingAdd, SpecialValuesWithinTheWiderGuardDigits) {
    for (const std::int32_t distance : {39, 44, 48}) {
        for (const Numeric& coarse : special_values()) {
            if (coarse.high != 0 && coarse.high != -1) continue;  // these have 38 guard digits
            for (const Numeric& fine : special_values()) {
                expect_exact_sum(coarse, fine, {0, distance, 12});
                expect_exact_sum(fine, coarse, {distance, 0, 12});
            }
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
