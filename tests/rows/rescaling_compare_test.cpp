// SPDX-License-Identifier: MIT
// Comparing values of different scales. The answer has the sign of b - a: +1 when a is the smaller.
#include <gtest/gtest.h>

#include "calls.h"
#include "exact.h"
#include "modes.h"
#include "special_values.h"

namespace qv8numeric_tests {
namespace {

// Calls with the operands as they are given, and with one object for both where they are alike; checks that nothing was
// written.
void expect_order(const NumericInfo& a_info, const NumericInfo& b_info, const Numeric& a, const Numeric& b,
                  std::int32_t expected) {
    NumericInfo passed_a = a_info, passed_b = b_info;
    GuardedNumeric first{.value = a}, second{.value = b};
    EXPECT_EQ(QV8NumericRescalingCmp(&passed_a, &passed_b, &first.value, &second.value), expected)
        << a << " at scale " << a_info.scale << " and " << b << " at scale " << b_info.scale;
    if (a == b) {
        EXPECT_EQ(QV8NumericRescalingCmp(&passed_a, &passed_b, &first.value, &first.value), expected)
            << a << " at scale " << a_info.scale << " and the same object at scale " << b_info.scale;
    }
    EXPECT_TRUE(passed_a == a_info && passed_b == b_info);
    EXPECT_TRUE(first.value == a && second.value == b && first.guards_intact() && second.guards_intact());
}

struct Row {
    const char* name;
    const char* a;
    std::int32_t a_scale;
    const char* b;
    std::int32_t b_scale;
    std::int32_t expected;
};

constexpr Row kRows[] = {
    {"1.0 and 1", "10", 1, "1", 0, 0},
    {"1 and 1.0", "1", 0, "10", 1, 0},
    {"two and three at one scale", "2", 0, "3", 0, +1},
    {"three and two at one scale", "3", 0, "2", 0, -1},
    {"equal at one scale", "-7", 5, "-7", 5, 0},
    {"one scale, the high half decides", "2^64", 3, "2^64-1", 3, -1},
    {"one scale, the low half is unsigned", "-2^64", 3, "-2^63", 3, +1},
    {"1.1 and 1", "11", 1, "1", 0, -1},
    {"0.9 and 1", "9", 1, "1", 0, +1},
    {"-1.1 and -1", "-11", 1, "-1", 0, +1},
    {"-1 and 1 in tenths", "-1", 0, "1", 1, +1},
    {"hundreds and units", "3", -2, "299", 0, -1},

    {"zero at any scale is zero", "0", -40, "0", 40, 0},
    {"zero and a positive far below", "0", 0, "1", 100, +1},
    {"zero and a negative far below", "0", 0, "-1", 100, -1},
    {"a positive far above and zero", "1", -100, "0", 0, -1},
    {"a negative far above and zero", "-1", -100, "0", 0, +1},

    {"-2^64 and itself in tenths", "-2^64", 0, "-184467440737095516160", 1, 0},
    {"-2^64 and a tenth less", "-2^64", 0, "-184467440737095516161", 1, -1},
    {"-2^64 and a tenth more", "-2^64", 0, "-184467440737095516159", 1, +1},
    {"-2^64 and something far below", "-2^64", 0, "-1", 60, +1},
    {"-2^64 at two scales far apart", "-2^64", 0, "-2^64", 60, +1},

    // Values wider than a word, up to 19 places apart: the difference takes three words.
    {"19 places apart, equal", "12345678901234567890", 0, "123456789012345678900000000000000000000", 19, 0},
    {"19 places apart, one more", "12345678901234567890", 0, "123456789012345678900000000000000000001", 19, +1},
    {"19 places apart, one less", "12345678901234567890", 0, "123456789012345678899999999999999999999", 19, -1},
    {"19 places apart, negative and equal", "-12345678901234567890", 0, "-123456789012345678900000000000000000000", 19,
     0},
    {"19 places apart, negative, one more", "-12345678901234567890", 0, "-123456789012345678899999999999999999999", 19,
     +1},
    {"19 places apart, negative, one less", "-12345678901234567890", 0, "-123456789012345678900000000000000000001", 19,
     -1},
    {"19 places apart, the limits", "2^127-1", 0, "2^127-1", 19, -1},
    {"19 places apart, the lower limits", "-2^127+1", 0, "-2^127+1", 19, +1},
    {"19 places apart, limits of opposite signs", "-2^127+1", 0, "2^127-1", 19, +1},
    {"19 places apart, limits of opposite signs, exchanged", "2^127-1", 19, "-2^127+1", 0, -1},
    {"18 places apart, equal in the two upper words", "2^64", 0, "18446744073709551616000000000000000001", 18, +1},
    {"a wide value and zero", "2^64", 0, "0", 5, -1},
    {"a wide negative value and zero", "-2^64", 0, "0", 5, +1},

    {"38 places apart, equal", "1", 0, "10^38", 38, 0},
    {"38 places apart, one more", "1", 0, "10^38+1", 38, +1},
    {"38 places apart, one less", "10^38-1", 38, "1", 0, +1},
    {"38 places apart, the limits", "2^127-1", 0, "2^127-1", 38, -1},
    {"38 places apart, the lower limits", "-2^127+1", 0, "-2^127+1", 38, +1},
    {"39 places apart, where equality is out of reach", "1", 0, "2^127-1", 39, -1},
    {"39 places apart, negative", "-2^127+1", 39, "-1", 0, -1},
    {"39 places apart with 38 guard digits", "2^64", 0, "2^127-1", 39, -1},
    {"60 places apart, cut", "2^127-1", 60, "1", 0, +1},
    {"60 places apart, cut to nothing", "1", 60, "1", 0, +1},
    {"60 places apart, cut to nothing, negative", "-1", 60, "-1", 0, -1},
    {"60 places apart, opposite signs", "1", 60, "-1", 0, -1},

    {"1.0 at the ends of the scales", "10", -INT32_MAX, "10", INT32_MAX, -1},
    {"1.0 at the ends of the scales, exchanged", "10", INT32_MAX, "10", -INT32_MAX, +1},
    {"-1.0 at the ends of the scales", "-10", -INT32_MAX, "-10", INT32_MAX, +1},
    {"the whole range of scales", "1", INT32_MIN, "2^127-1", INT32_MAX, -1},
    {"zero over the whole range of scales", "0", INT32_MIN, "0", INT32_MAX, 0},
    {"zero and one over the whole range of scales", "0", INT32_MIN, "1", INT32_MAX, +1},

    // At one scale NaN is compared as the integer its pattern is; at two it is the smaller, whichever operand asks
    // first.
    {"one scale, NaN below a number", "NaN", 2, "-2^127+1", 2, +1},
    {"one scale, a number above NaN", "0", 2, "NaN", 2, -1},
    {"one scale, NaN equal to NaN", "NaN", 2, "NaN", 2, 0},
    {"one scale, NaN and -2^64", "NaN", 2, "-2^64", 2, +1},
    {"two scales, NaN first", "NaN", 2, "5", 3, +1},
    {"two scales, NaN second", "5", 2, "NaN", 3, -1},
    {"two scales, NaN twice: the first decides", "NaN", 2, "NaN", 3, +1},
    {"two scales, NaN and zero", "NaN", 2, "0", 3, +1},
    {"two scales, zero and NaN", "0", 2, "NaN", 3, -1},
    {"two scales far apart, NaN and -2^64", "NaN", 0, "-2^64", 60, +1},
    {"two scales far apart, -2^64 and NaN", "-2^64", 0, "NaN", 60, -1},
};

TEST(RescalingCompare, Rows) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        expect_order({row.a_scale, kUp}, {row.b_scale, kDown}, num(row.a), num(row.b), row.expected);
    }
}

TEST(RescalingCompare, AnInvalidModeIsSeenBeforeNan) {
    for (const char* a : {"0", "5", "-2^64", "NaN"}) {
        for (const char* b : {"0", "5", "-2^64", "NaN"}) {
            for (const std::int32_t b_scale : {2, 3, 60}) {  // a's own scale, near it and far away
                for (const std::uint32_t mode : kInvalidModes) {
                    SCOPED_TRACE(mode_name(mode));
                    expect_order({2, mode}, {b_scale, kUp}, num(a), num(b), NUMERIC_INVALID_ARGUMENT);
                    expect_order({2, kUp}, {b_scale, mode}, num(a), num(b), NUMERIC_INVALID_ARGUMENT);
                    expect_order({2, mode}, {b_scale, mode}, num(a), num(b), NUMERIC_INVALID_ARGUMENT);
                }
            }
        }
    }
}

TEST(RescalingCompare, ValidModesHaveNoEffect) {
    for (const std::uint32_t a_mode : kModes) {
        for (const std::uint32_t b_mode : kModes) {
            expect_order({1, a_mode}, {0, b_mode}, num("15"), num("1"), -1);
            expect_order({1, a_mode}, {0, b_mode}, num("15"), num("2"), +1);
            expect_order({60, a_mode}, {0, b_mode}, num("1"), num("0"), -1);
        }
    }
}

TEST(RescalingCompare, OneDescriptorForBoth) {
    const NumericInfo info{2, kUp};
    const Numeric a = num("1"), b = num("2");
    EXPECT_EQ(QV8NumericRescalingCmp(&info, &info, &a, &b), +1);
    EXPECT_EQ(QV8NumericRescalingCmp(&info, &info, &b, &a), -1);
}

// Cutting an operand never hides an order: what is multiplied by the guard digits is far larger than what is cut.
TEST(RescalingCompare, AllPairsOfSpecialValues) {
    constexpr std::int32_t kScales[][2] = {{0, 0},  {0, 1},  {3, 0},  {-4, 4}, {0, 18}, {19, 0},   {0, 38},  {38, 0},
                                           {0, 39}, {39, 0}, {0, 48}, {49, 0}, {0, 60}, {-30, 57}, {100, 0}, {0, 127}};
    for (const auto& [a_scale, b_scale] : kScales) {
        for (const Numeric& a : special_values()) {
            for (const Numeric& b : special_values()) {
                const Fraction x = decimal(a, a_scale), y = decimal(b, b_scale);
                const std::int32_t order = x < y ? +1 : y < x ? -1 : 0;
                expect_order({a_scale, kUp}, {b_scale, kUp}, a, b, order);
            }
        }
    }
}

TEST(RescalingCompare, EqualToItselfWithMorePlaces) {
    for (const Numeric& value : special_values()) {
        for (std::int32_t places = 0; places <= 38; ++places) {
            const cpp_int widened = coefficient(value) * power_of_ten(places);
            if (in_range(widened, NUMERIC_OK).status != NUMERIC_OK) break;
            expect_order({0, kUp}, {places, kUp}, value, pattern(widened), 0);
            expect_order({places, kUp}, {0, kUp}, pattern(widened), value, 0);
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
