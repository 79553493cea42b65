// SPDX-License-Identifier: MIT
// Ceil, Floor and Round: the value stays at its scale, the decimal places beyond those asked for become zeros.
#include <gtest/gtest.h>

#include "calls.h"
#include "exact.h"
#include "modes.h"
#include "special_values.h"
#include "ties.h"

namespace qv8numeric_tests {
namespace {

using RoundingOperation = NumericStatus (*)(const NumericInfo* info, std::int32_t places, Numeric* num);

InPlaceOperation to_places(RoundingOperation operation, const NumericInfo& info, std::int32_t places) {
    return [=](Numeric* value) {
        NumericInfo passed = info;
        const NumericStatus status = operation(&passed, places, value);
        EXPECT_TRUE(passed == info);
        return status;
    };
}

// Round with CEILING and FLOOR in the descriptor must do what Ceil and Floor do whatever the descriptor says.
void expect_rounded(const Numeric& value, std::int32_t scale, std::int32_t places, std::uint32_t mode,
                    const Outcome& expected) {
    const auto check = [&](const char* name, RoundingOperation operation, const NumericInfo& info) {
        EXPECT_TRUE(yields(to_places(operation, info, places), value, expected))
            << name << " of " << value << " from scale " << scale << " to " << places << " places, " << mode_name(mode);
    };
    check("Round", QV8NumericRound, {scale, mode});
    if (mode == NUMERIC_ROUND_CEILING) check("Ceil", QV8NumericCeil, {scale, NUMERIC_ROUND_DOWN});
    if (mode == NUMERIC_ROUND_FLOOR) check("Floor", QV8NumericFloor, {scale, NUMERIC_ROUND_UP});
}

struct SevenModes {
    const char* name;
    const char* value;  // tenths
    NumericStatus status;
    const char* expected;  // tenths, one per mode
};

constexpr SevenModes kTenths[] = {
    {"2.5", "25", NUMERIC_INEXACT, "30 20 30 20 30 20 20"},
    {"3.5", "35", NUMERIC_INEXACT, "40 30 40 30 40 30 40"},
    {"-2.5", "-25", NUMERIC_INEXACT, "-30 -20 -20 -30 -30 -20 -20"},
    {"2.6", "26", NUMERIC_INEXACT, "30 20 30 20 30 30 30"},
    {"-2.4", "-24", NUMERIC_INEXACT, "-30 -20 -20 -30 -20 -20 -20"},
    {"2.0", "20", NUMERIC_OK, "20 20 20 20 20 20 20"},
    {"-3.5", "-35", NUMERIC_INEXACT, "-40 -30 -30 -40 -40 -30 -40"},
    {"-2.6", "-26", NUMERIC_INEXACT, "-30 -20 -20 -30 -30 -30 -30"},
    {"2.4", "24", NUMERIC_INEXACT, "30 20 30 20 20 20 20"},
    {"-2.0", "-20", NUMERIC_OK, "-20 -20 -20 -20 -20 -20 -20"},
    {"0.0", "0", NUMERIC_OK, "0 0 0 0 0 0 0"},
    {"0.1 keeps nothing", "1", NUMERIC_INEXACT, "10 0 10 0 0 0 0"},
    {"-0.1 keeps nothing", "-1", NUMERIC_INEXACT, "-10 0 0 -10 0 0 0"},
    {"0.5, the tie at zero", "5", NUMERIC_INEXACT, "10 0 10 0 10 0 0"},
    {"-0.5, the tie at zero", "-5", NUMERIC_INEXACT, "-10 0 0 -10 -10 0 0"},
    {"9.9 carries into a new digit", "99", NUMERIC_INEXACT, "100 90 100 90 100 100 100"},
    {"-2^64", "-2^64", NUMERIC_INEXACT,
     "-18446744073709551620 -18446744073709551610 -18446744073709551610 -18446744073709551620 -18446744073709551620 "
     "-18446744073709551620 -18446744073709551620"},
    {"a carry out of the low half", "2^64-2", NUMERIC_INEXACT,
     "18446744073709551620 18446744073709551610 18446744073709551620 18446744073709551610 18446744073709551610 "
     "18446744073709551610 18446744073709551610"},
};

TEST(Rounding, OneDecimalUnderEveryMode) {
    for (const SevenModes& row : kTenths) {
        SCOPED_TRACE(row.name);
        for (const std::uint32_t mode : kModes) {
            expect_rounded(num(row.value), 1, 0, mode, outcome(row.status, in_mode(row.expected, mode)));
        }
    }
}

struct Row {
    const char* name;
    const char* value;
    std::int32_t scale;
    std::int32_t places;
    std::uint32_t mode;
    NumericStatus status;
    const char* expected;
};

constexpr Row kRows[] = {
    {"1.2345 up to two places", "12345", 4, 2, kCeiling, NUMERIC_INEXACT, "12400"},
    {"1.2345 down to two places", "12345", 4, 2, kFloor, NUMERIC_INEXACT, "12300"},
    {"already round: no loss, no change", "12300", 4, 2, kUp, NUMERIC_OK, "12300"},

    {"2.50001 is above half for HALF_DOWN", "250001", 5, 0, kHalfDown, NUMERIC_INEXACT, "300000"},
    {"2.50001 is above half for HALF_EVEN", "250001", 5, 0, kHalfEven, NUMERIC_INEXACT, "300000"},
    {"0.5000000001: the last digit is in an earlier step of eight digits", "5000000001", 10, 0, kHalfDown,
     NUMERIC_INEXACT, "10^10"},
    {"0.5000000000 is a tie for HALF_DOWN", "5000000000", 10, 0, kHalfDown, NUMERIC_INEXACT, "0"},
    {"0.4999999999 is below half for HALF_UP", "4999999999", 10, 0, kHalfUp, NUMERIC_INEXACT, "0"},
    {"tie on exactly eight digits", "150000000", 8, 0, kHalfEven, NUMERIC_INEXACT, "200000000"},
    {"tie on eight digits, even", "250000000", 8, 0, kHalfEven, NUMERIC_INEXACT, "200000000"},
    {"one above a tie on eight digits", "250000001", 8, 0, kHalfEven, NUMERIC_INEXACT, "300000000"},
    {"one below a tie on eight digits", "349999999", 8, 0, kHalfEven, NUMERIC_INEXACT, "300000000"},
    {"tie on nine digits, the eight lower all zero", "2500000000", 9, 0, kHalfDown, NUMERIC_INEXACT, "2000000000"},
    {"nine digits, a one eight places down", "2500000001", 9, 0, kHalfDown, NUMERIC_INEXACT, "3000000000"},
    {"sixteen digits, tie", "5000000000000000", 16, 0, kHalfDown, NUMERIC_INEXACT, "0"},
    {"sixteen digits, a one in the lowest", "5000000000000001", 16, 0, kHalfDown, NUMERIC_INEXACT, "10^16"},
    {"seventeen digits, a one in the lowest", "50000000000000001", 17, 0, kHalfEven, NUMERIC_INEXACT, "10^17"},
    {"seventeen digits, tie", "50000000000000000", 17, 0, kHalfEven, NUMERIC_INEXACT, "0"},
    {"only the lowest of 38 digits is lost", "1", 38, 0, kUp, NUMERIC_INEXACT, "10^38"},

    {"fifteen to tens, tie to even upwards", "15", 0, -1, kHalfEven, NUMERIC_INEXACT, "20"},
    {"twenty-five to tens, tie to even downwards", "25", 0, -1, kHalfEven, NUMERIC_INEXACT, "20"},
    {"negative scale and places", "12345", -2, -4, kHalfUp, NUMERIC_INEXACT, "12300"},
    {"from places behind the point to thousands", "1234567", 3, -3, kHalfUp, NUMERIC_INEXACT, "1000000"},

    {"places equal to the scale", "12345", 4, 4, kUp, NUMERIC_OK, "12345"},
    {"places above the scale", "12345", 4, 9, kCeiling, NUMERIC_OK, "12345"},
    {"places above the scale, negative value", "-12345", 4, 9, kFloor, NUMERIC_OK, "-12345"},
    {"places far above the scale change nothing at the limit", "2^127-1", 0, INT32_MAX, kUp, NUMERIC_OK, "2^127-1"},
    {"-2^64 with nothing to drop", "-2^64", 3, 3, kHalfEven, NUMERIC_OK, "-2^64"},
    {"-2^64 to ten places fewer", "-2^64", 10, 0, kHalfEven, NUMERIC_INEXACT, "-18446744070000000000"},
    {"-2^64 keeps nothing of twenty-one places", "-2^64", 21, 0, kCeiling, NUMERIC_INEXACT, "0"},
    {"-2^64 to minus one at twenty-one places", "-2^64", 21, 0, kFloor, NUMERIC_INEXACT, "-10^21"},

    // 2^127 - 1 = 170141183460469231731687303715884105727
    {"the largest value rounded up a place", "2^127-1", 1, 0, kCeiling, NUMERIC_OVERFLOW, "NaN"},
    {"the smallest value rounded down a place", "-2^127+1", 1, 0, kFloor, NUMERIC_UNDERFLOW, "NaN"},
    {"the largest value rounded half up", "2^127-1", 1, 0, kHalfUp, NUMERIC_OVERFLOW, "NaN"},
    {"the smallest value rounded half even", "-2^127+1", 1, 0, kHalfEven, NUMERIC_UNDERFLOW, "NaN"},
    {"99.99 at the largest coefficient, up to whole numbers", "2^127-1", 2, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"the largest value cut off", "2^127-1", 1, 0, kDown, NUMERIC_INEXACT, "170141183460469231731687303715884105720"},
    {"the smallest value cut off", "-2^127+1", 1, 0, kCeiling, NUMERIC_INEXACT,
     "-170141183460469231731687303715884105720"},
    {"the largest multiple of ten stays", "2^127-8", 1, 0, kUp, NUMERIC_OK, "2^127-8"},
    {"one above the largest multiple of ten", "2^127-7", 1, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"1.7 at 38 places rounds to 2, which does not fit", "2^127-1", 38, 0, kHalfUp, NUMERIC_OVERFLOW, "NaN"},
    {"-1.7 at 38 places rounds to -2, which does not fit", "-2^127+1", 38, 0, kHalfUp, NUMERIC_UNDERFLOW, "NaN"},
    {"1.7 at 38 places cut to 1", "2^127-1", 38, 0, kDown, NUMERIC_INEXACT, "10^38"},
    {"0.17 at 39 places is below half", "2^127-1", 39, 0, kHalfUp, NUMERIC_INEXACT, "0"},
    {"0.17 at 39 places up to 1, which does not fit", "2^127-1", 39, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"-0.17 at 39 places down to -1, which does not fit", "-2^127+1", 39, 0, kFloor, NUMERIC_UNDERFLOW, "NaN"},
    {"zero at 39 places is exact", "0", 39, 0, kUp, NUMERIC_OK, "0"},

    {"80 places, ten steps of eight", "1", 80, 0, kHalfUp, NUMERIC_INEXACT, "0"},
    {"80 places, up", "1", 80, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"88 places, one more step than is ever needed", "2^127-1", 88, 0, kHalfUp, NUMERIC_INEXACT, "0"},
    {"88 places, up", "2^127-1", 88, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"96 places, down", "-1", 96, 0, kFloor, NUMERIC_UNDERFLOW, "NaN"},

    {"1.0 at the largest scale", "10", INT32_MAX, 0, kDown, NUMERIC_INEXACT, "0"},
    {"1.0 at the largest scale, up", "10", INT32_MAX, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"1.0 at a scale near the smallest has nothing to drop", "10", -INT32_MAX, 0, kUp, NUMERIC_OK, "10"},
    {"the longest distance there is, dropped", "2^127-1", INT32_MAX, INT32_MIN, kHalfEven, NUMERIC_INEXACT, "0"},
    {"the longest distance there is, up", "1", INT32_MAX, INT32_MIN, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"the longest distance there is, down", "-1", INT32_MAX, INT32_MIN, kFloor, NUMERIC_UNDERFLOW, "NaN"},
    {"the longest distance there is, negative up", "-1", INT32_MAX, INT32_MIN, kCeiling, NUMERIC_INEXACT, "0"},
    {"the longest distance there is, zero", "0", INT32_MAX, INT32_MIN, kUp, NUMERIC_OK, "0"},
    {"the longest distance the other way", "-7", INT32_MIN, INT32_MAX, kUp, NUMERIC_OK, "-7"},

    {"NaN", "NaN", 4, 2, kUp, NUMERIC_NAN, "NaN"},
    {"NaN with nothing to drop", "NaN", 2, 4, kCeiling, NUMERIC_NAN, "NaN"},
    {"NaN over the longest distance", "NaN", INT32_MAX, INT32_MIN, kFloor, NUMERIC_NAN, "NaN"},
};

TEST(Rounding, Rows) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        expect_rounded(num(row.value), row.scale, row.places, row.mode, outcome(row.status, row.expected));
    }
}

struct InvalidModeRow {
    const char* name;
    const char* value;
    std::int32_t places;  // of a value at scale 1
    NumericStatus status;
};

constexpr InvalidModeRow kUntouchedRows[] = {
    {"digits to drop", "25", 0, NUMERIC_INVALID_ARGUMENT},
    {"zeros to drop", "20", 0, NUMERIC_INVALID_ARGUMENT},
    {"nothing to drop", "25", 1, NUMERIC_INVALID_ARGUMENT},
    {"more places than there are", "25", 30, NUMERIC_INVALID_ARGUMENT},
    {"zero", "0", 0, NUMERIC_INVALID_ARGUMENT},
    {"a value whose rounding could not fit", "2^127-1", 0, NUMERIC_INVALID_ARGUMENT},
    {"-2^64", "-2^64", 0, NUMERIC_INVALID_ARGUMENT},
    {"NaN is seen before the mode", "NaN", 0, NUMERIC_NAN},
    {"NaN is seen before the mode with nothing to drop", "NaN", 1, NUMERIC_NAN},
};

TEST(Rounding, InvalidModeLeavesTheValueUntouched) {
    for (const InvalidModeRow& row : kUntouchedRows) {
        SCOPED_TRACE(row.name);
        for (const std::uint32_t mode : kInvalidModes) {
            EXPECT_TRUE(
                yields(to_places(QV8NumericRound, {1, mode}, row.places), num(row.value), {row.status, kUntouched}))
                << mode;
        }
    }
}

TEST(Rounding, CeilAndFloorBringTheirOwnMode) {
    for (const std::uint32_t mode : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 9U, UINT32_MAX}) {
        SCOPED_TRACE(mode_name(mode));
        EXPECT_TRUE(yields(to_places(QV8NumericCeil, {1, mode}, 0), num("21"), outcome(NUMERIC_INEXACT, "30")));
        EXPECT_TRUE(yields(to_places(QV8NumericCeil, {1, mode}, 0), num("-29"), outcome(NUMERIC_INEXACT, "-20")));
        EXPECT_TRUE(yields(to_places(QV8NumericFloor, {1, mode}, 0), num("29"), outcome(NUMERIC_INEXACT, "20")));
        EXPECT_TRUE(yields(to_places(QV8NumericFloor, {1, mode}, 0), num("-21"), outcome(NUMERIC_INEXACT, "-30")));
        EXPECT_TRUE(yields(to_places(QV8NumericCeil, {1, mode}, 1), num("21"), outcome(NUMERIC_OK, "21")));
        EXPECT_TRUE(yields(to_places(QV8NumericFloor, {1, mode}, 1), num("-21"), outcome(NUMERIC_OK, "-21")));
        EXPECT_TRUE(yields(to_places(QV8NumericCeil, {1, mode}, 0), num("NaN"), outcome(NUMERIC_NAN, "NaN")));
        EXPECT_TRUE(yields(to_places(QV8NumericFloor, {1, mode}, 0), num("NaN"), outcome(NUMERIC_NAN, "NaN")));
    }
}

TEST(Rounding, TiesAtEveryScaleDistance) {
    for_every_tie([](const TieCase& item) {
        SCOPED_TRACE(item);
        const Outcome expected = in_range(item.rounded() * power_of_ten(item.distance), NUMERIC_INEXACT);
        expect_rounded(item.value(), item.distance, 0, item.mode, expected);
    });
}

TEST(Rounding, SpecialValuesAtEveryScaleDistance) {
    constexpr std::int32_t scale = 20;
    for (const Numeric& value : special_values()) {
        for (std::int32_t distance = 0; distance <= 40; ++distance) {
            const std::int32_t places = scale - distance;
            const Cut exact = cut(decimal(value, scale), places);
            for (const std::uint32_t mode : kModes) {
                const Outcome expected = in_range(rounded(exact, mode) * power_of_ten(distance), success(exact));
                expect_rounded(value, scale, places, mode, expected);
            }
        }
    }
}

TEST(Rounding, ASecondRoundingChangesNothing) {
    int checked = 0;
    for (const Numeric& value : special_values()) {
        for (const std::uint32_t mode : kModes) {
            const NumericInfo info{9, mode};
            Numeric rounded_value = value;
            if (QV8NumericRound(&info, 0, &rounded_value) > NUMERIC_INEXACT) continue;
            EXPECT_TRUE(yields(to_places(QV8NumericRound, info, 0), rounded_value, {NUMERIC_OK, rounded_value}))
                << value << ", " << mode_name(mode);
            ++checked;
        }
    }
    EXPECT_GT(checked, 200);
}

}  // namespace
}  // namespace qv8numeric_tests
