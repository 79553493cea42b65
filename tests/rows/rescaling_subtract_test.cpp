// SPDX-License-Identifier: MIT
// Subtracting values of different scales.
#include <gtest/gtest.h>

#include "exact.h"
#include "modes.h"
#include "rescaling.h"
#include "special_values.h"
#include "ties.h"

namespace qv8numeric_tests {
namespace {

constexpr RescalingRow kRows[] = {
    {"exact at the result's scale", "12345", 2, "1", 0, 2, kUp, NUMERIC_OK, "12245"},
    {"exact, more places than either", "15", 1, "25", 1, 3, kUp, NUMERIC_OK, "-1000"},
    {"exact, fewer places than either", "35", 1, "15", 1, 0, kUp, NUMERIC_OK, "2"},
    {"exact, three scales", "1", 1, "1", 3, 5, kUp, NUMERIC_OK, "9900"},
    {"half a unit and nothing, to even", "5", 1, "0", 3, 0, kHalfEven, NUMERIC_INEXACT, "0"},
    {"half a unit and nothing, up", "5", 1, "0", 3, 0, kHalfUp, NUMERIC_INEXACT, "1"},
    {"nothing less half a unit, up", "0", 3, "5", 1, 0, kHalfUp, NUMERIC_INEXACT, "-1"},
    {"equal values at two scales", "10", 1, "1", 0, 5, kUp, NUMERIC_OK, "0"},

    // Equal scales, where 128 bits are enough.
    {"equal scales", "5", 2, "8", 2, 2, kUp, NUMERIC_OK, "-3"},
    {"equal scales, a borrow from the high half", "2^64", 2, "1", 2, 2, kUp, NUMERIC_OK, "2^64-1"},
    {"equal scales, nothing less -2^64", "0", 2, "-2^64", 2, 2, kUp, NUMERIC_OK, "2^64"},
    {"equal scales, the largest value less itself", "2^127-1", 2, "2^127-1", 2, 2, kUp, NUMERIC_OK, "0"},
    {"equal scales, one above the largest value", "2^127-1", 2, "-1", 2, 2, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"equal scales, the limits, upwards", "2^127-1", 2, "-2^127+1", 2, 2, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"equal scales, exactly -2^127", "-2^126", 2, "2^126", 2, 2, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"equal scales, -2^127 from its neighbour", "-1", 2, "2^127-1", 2, 2, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"equal scales, the limits, downwards", "-2^127+1", 2, "2^127-1", 2, 2, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"equal scales, the ends of the scales", "5", INT32_MAX, "6", INT32_MAX, INT32_MAX, kUp, NUMERIC_OK, "-1"},
    {"equal scales, the other end", "5", INT32_MIN, "6", INT32_MIN, INT32_MIN, kUp, NUMERIC_OK, "-1"},

    // The limits of the range after alignment.
    {"up to the largest value", "2^127-11", 1, "-1", 0, 1, kUp, NUMERIC_OK, "2^127-1"},
    {"one above the largest value", "2^127-10", 1, "-1", 0, 1, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"down to the smallest value", "-2^127+11", 1, "1", 0, 1, kUp, NUMERIC_OK, "-2^127+1"},
    {"exactly -2^127", "-2^127+10", 1, "1", 0, 1, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"a difference of 128 bits that loses a digit", "2^127-1", 0, "-2^127+1", 0, -1, kDown, NUMERIC_INEXACT,
     "34028236692093846346337460743176821145"},
    {"exactly -2^127 in the making, a digit less in the end", "-2^126", 0, "2^126", 0, -1, kDown, NUMERIC_INEXACT,
     "-17014118346046923173168730371588410572"},
    {"rounded past the largest value", "2^127-1", 0, "-5", 1, 0, kHalfUp, NUMERIC_OVERFLOW, "NaN"},
    {"rounded past the smallest value", "-2^127+1", 0, "5", 1, 0, kHalfUp, NUMERIC_UNDERFLOW, "NaN"},
    {"not rounded past the smallest value", "-2^127+1", 0, "5", 1, 0, kHalfDown, NUMERIC_INEXACT, "-2^127+1"},
    {"too many places asked for", "1", 0, "0", 0, 39, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"too many places asked for, negative", "0", 0, "1", 0, 39, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"too many places asked for, a difference of zero", "1", 0, "1", 0, 39, kUp, NUMERIC_OK, "0"},

    {"-2^64 less a tenth", "-2^64", 0, "1", 1, 1, kUp, NUMERIC_OK, "-184467440737095516161"},
    {"nothing less -2^64 in tenths", "0", 1, "-2^64", 0, 1, kUp, NUMERIC_OK, "184467440737095516160"},
    {"-2^64 less itself at another scale", "-2^64", 0, "-184467440737095516160", 1, 1, kUp, NUMERIC_OK, "0"},

    // A zero operand takes the other's scale, however far away its own is.
    {"less a zero far below", "5", 0, "0", INT32_MAX, 0, kUp, NUMERIC_OK, "5"},
    {"a zero far above less a value", "0", INT32_MIN, "-5", 2, 2, kUp, NUMERIC_OK, "5"},
    {"two zeros at the ends of the scales", "0", INT32_MIN, "0", INT32_MAX, 7, kUp, NUMERIC_OK, "0"},

    // 38 places apart everything is kept; farther apart the finer operand may be cut.
    {"38 places apart, all kept", "1", 0, "1", 38, 38, kUp, NUMERIC_OK, "10^38-1"},
    {"38 places apart, exchanged", "1", 38, "1", 0, 38, kUp, NUMERIC_OK, "-10^38+1"},
    {"38 places apart at the limit, pulled below it", "2^127-1", 0, "1", 38, 0, kDown, NUMERIC_INEXACT, "2^127-2"},
    {"38 places apart at the limit, up", "-2^127+1", 0, "1", 38, 0, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"39 places apart", "1", 0, "1", 39, 38, kDown, NUMERIC_INEXACT, "10^38-1"},
    {"39 places apart, up", "1", 0, "1", 39, 38, kUp, NUMERIC_INEXACT, "10^38"},
    {"39 places apart at the limit, up", "2^127-1", 0, "-1", 39, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"48 places apart, the last that are kept", "1", 0, "1", 48, 38, kDown, NUMERIC_INEXACT, "10^38-1"},
    {"49 places apart, the first that are cut", "1", 0, "1", 49, 38, kDown, NUMERIC_INEXACT, "10^38-1"},
    {"60 places apart, the kept part is visible", "1", 0, "2^127-1", 60, 38, kUp, NUMERIC_INEXACT,
     "10^38-17014118346046923"},

    // What was cut breaks a tie, with the sign of the operand it was cut from turned round where that is subtracted.
    {"a tie less something far below", "5", 1, "1", 70, 0, kHalfUp, NUMERIC_INEXACT, "0"},
    {"a tie less something negative far below", "5", 1, "-1", 70, 0, kHalfDown, NUMERIC_INEXACT, "1"},
    {"something far below less a tie", "1", 70, "5", 1, 0, kHalfUp, NUMERIC_INEXACT, "0"},
    {"something negative far below less a tie", "-1", 70, "5", 1, 0, kHalfDown, NUMERIC_INEXACT, "-1"},

    // One unit, 38 or 48 guard digits down, stands for what was cut; see the same rows of the addition.
    {"2^64 has 38 guard digits: cut to a tie", "2^64", 0, "-499999999999999999999999999999", 48, 18, kHalfUp,
     NUMERIC_INEXACT, "18446744073709551616000000000000000001"},
    {"2^64 - 1 has 48 guard digits: nothing is cut", "2^64-1", 0, "-499999999999999999999999999999", 48, 18, kHalfUp,
     NUMERIC_INEXACT, "18446744073709551615000000000000000000"},
    {"-2^64 has 48 guard digits", "-2^64", 0, "499999999999999999999999999999", 48, 18, kHalfUp, NUMERIC_INEXACT,
     "-18446744073709551616000000000000000000"},
    {"-2^64 has 48 guard digits, exchanged", "-499999999999999999999999999999", 48, "2^64-1", 0, 18, kHalfUp,
     NUMERIC_INEXACT, "-18446744073709551615000000000000000000"},
    {"-2^64 - 1 has 38 guard digits: cut to a tie", "-2^64-1", 0, "499999999999999999999999999999", 48, 18, kHalfUp,
     NUMERIC_INEXACT, "-18446744073709551617000000000000000001"},

    {"1.0 at the ends of the scales: too large for any place", "10", -INT32_MAX, "10", INT32_MAX, 0, kDown,
     NUMERIC_OVERFLOW, "NaN"},
    {"1.0 at the ends of the scales, exchanged", "10", INT32_MAX, "10", -INT32_MAX, 0, kDown, NUMERIC_UNDERFLOW, "NaN"},
    {"1.0 at the ends of the scales, at the coarser one", "10", -INT32_MAX, "10", INT32_MAX, -INT32_MAX, kDown,
     NUMERIC_INEXACT, "9"},
    {"1.0 at the ends of the scales, at the coarser one, up", "10", -INT32_MAX, "10", INT32_MAX, -INT32_MAX, kUp,
     NUMERIC_INEXACT, "10"},
    {"far below the result's place", "2", INT32_MAX, "1", INT32_MAX, INT32_MIN, kDown, NUMERIC_INEXACT, "0"},
    {"far below the result's place, down", "1", INT32_MAX, "2", INT32_MAX, INT32_MIN, kFloor, NUMERIC_INEXACT, "-1"},
    {"far above the result's place", "1", INT32_MIN, "2", INT32_MIN, INT32_MAX, kDown, NUMERIC_UNDERFLOW, "NaN"},
};

constexpr SevenModesRow kSevenModes[] = {
    {"1 less 10^-40", "1", 0, "1", 40, 0, NUMERIC_INEXACT, "1 0 1 0 1 1 1"},
    {"1 less 10^-60", "1", 0, "1", 60, 0, NUMERIC_INEXACT, "1 0 1 0 1 1 1"},
    {"10^-60 less 1", "1", 60, "1", 0, 0, NUMERIC_INEXACT, "-1 0 0 -1 -1 -1 -1"},
    {"1 less -10^-60", "1", 0, "-1", 60, 0, NUMERIC_INEXACT, "2 1 2 1 1 1 1"},
    {"-10^-60 less 1", "-1", 60, "1", 0, 0, NUMERIC_INEXACT, "-2 -1 -1 -2 -1 -1 -1"},
    {"1.5 in two parts", "20", 1, "5", 1, 0, NUMERIC_INEXACT, "2 1 2 1 2 1 2"},
    {"2.5", "25", 1, "0", 0, 0, NUMERIC_INEXACT, "3 2 3 2 3 2 2"},
    {"nothing less 1.5", "0", 0, "15", 1, 0, NUMERIC_INEXACT, "-2 -1 -1 -2 -2 -1 -2"},
    {"1.500000000", "1500000000", 9, "0", 0, 0, NUMERIC_INEXACT, "2 1 2 1 2 1 2"},
    {"1.500000001 in two parts", "2", 0, "499999999", 9, 0, NUMERIC_INEXACT, "2 1 2 1 2 2 2"},
    {"a hundred places down", "0", 0, "7", 100, 0, NUMERIC_INEXACT, "-1 0 0 -1 0 0 0"},
    {"-2^64 less a half", "-2^64", 0, "5", 1, 0, NUMERIC_INEXACT, "-2^64-1 -2^64 -2^64 -2^64-1 -2^64-1 -2^64 -2^64"},

    // The unit that stands for the cut digits fills up 26 nines.
    {"a cut operand of nines carries into a full place", "1", 0, "10^38-1", 60, 22, NUMERIC_INEXACT,
     "10^22-1 10^22-1 10^22-1 10^22-1 10^22-1 10^22-1 10^22-1"},
};

TEST(RescalingSubtract, Rows) { expect_rows(QV8NumericRescalingSub, kRows); }

TEST(RescalingSubtract, EveryMode) { expect_rows(QV8NumericRescalingSub, kSevenModes); }

TEST(RescalingSubtract, TiesAtEveryScaleDistance) {
    for_every_tie([](const TieCase& item) {
        EXPECT_TRUE(yields(at_scales(QV8NumericRescalingSub, {item.distance, 0, 0}, item.mode), item.value(), num("0"),
                           {NUMERIC_INEXACT, pattern(item.rounded())}))
            << item;
    });
}

void expect_exact_difference(const Numeric& a, const Numeric& b, const Scales& scales) {
    const Cut exact = cut(decimal(a, scales.a) - decimal(b, scales.b), scales.result);
    for (const std::uint32_t mode : kModes) {
        EXPECT_TRUE(yields(at_scales(QV8NumericRescalingSub, scales, mode), a, b, narrowed(exact, mode)))
            << a << " - " << b << " at " << scales << ", " << mode_name(mode);
    }
}

TEST(RescalingSubtract, SpecialValuesUpTo38PlacesApart) {
    constexpr Scales kScales[] = {{0, 0, 0}, {0, 0, -1},  {2, 0, 1},   {0, 3, 0},  {8, 0, 2},
                                  {0, 9, 9}, {-5, 4, -2}, {38, 0, 19}, {0, 38, 3}, {17, 20, 40}};
    for (const Scales& scales : kScales) {
        for (const Numeric& a : special_values()) {
            for (const Numeric& b : special_values()) expect_exact_difference(a, b, scales);
        }
    }
}

// Exact rounding as long as the finer operand is cut to nothing, as here, or not at all, as in the next test.
TEST(RescalingSubtract, SpecialValuesWithTheFinerOperandCutToNothing) {
    const cpp_int bound = power_of_ten(60 - 48);
    for (const std::int32_t result : {-3, 0, 5, 17}) {
        for (const Numeric& coarse : special_values()) {
            for (const Numeric& fine : special_values()) {
                if (abs(coefficient(fine)) >= bound) continue;
                expect_exact_difference(coarse, fine, {0, 60, result});
                expect_exact_difference(fine, coarse, {60, 0, result});
            }
        }
    }
}

TEST(RescalingSubtract, SpecialValuesWithinTheWiderGuardDigits) {
    for (const std::int32_t distance : {39, 44, 48}) {
        for (const Numeric& coarse : special_values()) {
            if (coarse.high != 0 && coarse.high != -1) continue;  // these have 38 guard digits
            for (const Numeric& fine : special_values()) {
                expect_exact_difference(coarse, fine, {0, distance, 12});
                expect_exact_difference(fine, coarse, {distance, 0, 12});
            }
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
