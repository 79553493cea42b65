// SPDX-License-Identifier: MIT
// Rounding to a number of places with the result written at a scale of its own: what no exported function asks for,
// since each of them writes back at the scale it was given.
#include "numeric/truncation.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "exact.h"
#include "special_values.h"

namespace qv8numeric_tests {
namespace {

using qv8numeric::numeric_truncation_inline;
using qv8numeric::truncated_sign;

Outcome truncated(const Numeric& value, std::int32_t scale, std::int32_t target, std::int32_t result_scale,
                  std::uint32_t mode) {
    // Of the descriptor only the scale counts: its own mode is none.
    const NumericInfo info{scale, UINT32_MAX};
    Numeric num = value;
    const NumericStatus status = numeric_truncation_inline(info, target, result_scale, num, mode);
    return {status, num};
}

struct TruncationRow {
    const char* name;
    const char* value;
    std::int32_t scale;
    std::int32_t target;
    std::int32_t result_scale;
    std::uint32_t mode;
    NumericStatus status;
    const char* expected;
};

constexpr std::int32_t kLowest = INT32_MIN;
constexpr std::int32_t kHighest = INT32_MAX;
constexpr std::uint32_t kUp = NUMERIC_ROUND_UP;
constexpr std::uint32_t kDown = NUMERIC_ROUND_DOWN;

constexpr TruncationRow kRows[] = {
    // rounded at the target, then moved
    {"back to its own scale", "12345", 4, 2, 4, NUMERIC_ROUND_CEILING, NUMERIC_INEXACT, "12400"},
    {"left at the target", "12345", 4, 2, 2, NUMERIC_ROUND_CEILING, NUMERIC_INEXACT, "124"},
    {"between the target and its own scale", "12345", 4, 2, 3, NUMERIC_ROUND_CEILING, NUMERIC_INEXACT, "1240"},
    {"beyond its own scale", "12345", 4, 2, 6, NUMERIC_ROUND_CEILING, NUMERIC_INEXACT, "1240000"},
    {"exact at the target", "12300", 4, 2, 4, kUp, NUMERIC_OK, "12300"},
    {"a negative target", "155", 0, -1, 0, NUMERIC_ROUND_HALF_EVEN, NUMERIC_INEXACT, "160"},
    {"a negative value by its sign", "-12345", 4, 2, 4, NUMERIC_ROUND_FLOOR, NUMERIC_INEXACT, "-12400"},
    {"a negative value that rounds to zero", "-4", 1, 0, 1, NUMERIC_ROUND_HALF_UP, NUMERIC_INEXACT, "0"},
    {"a half just missed across a boundary of eight digits", "4999999999", 10, 0, 0, NUMERIC_ROUND_HALF_UP,
     NUMERIC_INEXACT, "0"},
    {"a half just passed across it", "5000000001", 10, 0, 0, NUMERIC_ROUND_HALF_DOWN, NUMERIC_INEXACT, "1"},
    {"a half", "5000000000", 10, 0, 0, NUMERIC_ROUND_HALF_DOWN, NUMERIC_INEXACT, "0"},
    // the second move cuts off
    {"1.2499 is 1.250, which then is 1.2 and not 1.3", "12499", 4, 3, 1, kUp, NUMERIC_INEXACT, "12"},
    {"a half is cut off too", "12500", 4, 3, 1, NUMERIC_ROUND_HALF_UP, NUMERIC_OK, "12"},
    {"what is cut off does not show in the status", "19990", 4, 3, 0, kUp, NUMERIC_OK, "1"},
    {"towards zero for a negative value", "-19990", 4, 3, 0, NUMERIC_ROUND_FLOOR, NUMERIC_OK, "-1"},
    {"to nothing, far below", "2^127-1", 4, 3, -100, kUp, NUMERIC_INEXACT, "0"},
    // nothing to round at the target: straight to the result's scale
    {"places that it does not have", "12345", 4, 9, 4, kUp, NUMERIC_OK, "12345"},
    {"as many places as it has", "12345", 4, 4, 4, kUp, NUMERIC_OK, "12345"},
    {"upward from there", "12345", 4, 9, 6, kUp, NUMERIC_OK, "1234500"},
    {"downward from there is rounded, up", "12345", 4, 4, 2, kUp, NUMERIC_INEXACT, "124"},
    {"downward from there is rounded, down", "12345", 4, 9, 2, kDown, NUMERIC_INEXACT, "123"},
    {"downward from there is rounded, a tie to even", "12450", 4, 9, 2, NUMERIC_ROUND_HALF_EVEN, NUMERIC_INEXACT,
     "124"},
    {"downward from there, negative", "-12301", 4, 9, 2, NUMERIC_ROUND_FLOOR, NUMERIC_INEXACT, "-124"},
    {"downward from there, exact", "12300", 4, 9, 2, kUp, NUMERIC_OK, "123"},
    // out of range
    {"the carry does not fit at its own scale", "2^127-1", 1, 0, 1, NUMERIC_ROUND_CEILING, NUMERIC_OVERFLOW, "NaN"},
    {"nor for a negative value", "-2^127+1", 1, 0, 1, NUMERIC_ROUND_FLOOR, NUMERIC_UNDERFLOW, "NaN"},
    {"but it does at the target", "2^127-1", 1, 0, 0, NUMERIC_ROUND_CEILING, NUMERIC_INEXACT,
     "17014118346046923173168730371588410573"},
    {"one digit too many", "10^38", 0, 0, 1, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"one digit too many, negative", "-10^38", 0, 0, 1, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"beyond 256 bits, where all bits have left", "2^120", 0, 0, 300, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"beyond 256 bits after rounding", "-15", 1, 0, 300, kUp, NUMERIC_UNDERFLOW, "NaN"},
    // the ends of the scales
    {"all places there can be, one unit left", "1", kHighest, kLowest, kLowest, kUp, NUMERIC_INEXACT, "1"},
    {"all places there can be, nothing left", "1", kHighest, kLowest, kLowest, kDown, NUMERIC_INEXACT, "0"},
    {"nothing left stays nothing on the way back", "1", kHighest, kLowest, kHighest, kDown, NUMERIC_INEXACT, "0"},
    {"one unit cannot come back", "1", kHighest, kLowest, kHighest, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"no places at the lowest scale", "-7", kLowest, kHighest, kLowest, kUp, NUMERIC_OK, "-7"},
    {"from the lowest scale to the highest", "-7", kLowest, kHighest, kHighest, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"zero at any scale", "0", kLowest, kHighest, kHighest, kUp, NUMERIC_OK, "0"},
    // nothing is touched
    {"NaN", "NaN", 4, 2, 4, kUp, NUMERIC_NAN, "NaN"},
    {"NaN is found before a mode that is none", "NaN", 4, 2, 4, 7, NUMERIC_NAN, "NaN"},
    {"no mode", "12345", 4, 2, 4, 7, NUMERIC_INVALID_ARGUMENT, "12345"},
    {"no mode, and nothing to round", "12345", 4, 4, 4, 7, NUMERIC_INVALID_ARGUMENT, "12345"},
    {"no mode, and a digit too many", "10^38", 0, 0, 1, UINT32_MAX, NUMERIC_INVALID_ARGUMENT, "10^38"},
};

TEST(Truncation, NamedRows) {
    for (const TruncationRow& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(truncated(num(row.value), row.scale, row.target, row.result_scale, row.mode),
                  outcome(row.status, row.expected));
    }
}

// The same in exact fractions: rounded where the first digits go, cut off further on.
Outcome expected(const Numeric& value, int scale, int target, int result_scale, std::uint32_t mode) {
    const int rounding_scale = scale > target ? target : std::min(scale, result_scale);
    const Cut first = cut(decimal(value, scale), rounding_scale);
    const Fraction unit = decimal(num("1"), rounding_scale);
    const Cut second = cut(Fraction{rounded(first, mode), 1} * unit, result_scale);
    return in_range(rounded(second, NUMERIC_ROUND_DOWN), success(first));
}

TEST(Truncation, EveryWayThroughThreeScales) {
    constexpr int scales[] = {-40, 0, 1, 9, 38, 90};
    const auto check = [](const Numeric& value, int scale, int target, int result_scale) {
        for (const std::uint32_t mode : kModes) {
            EXPECT_EQ(truncated(value, scale, target, result_scale, mode),
                      expected(value, scale, target, result_scale, mode))
                << value << " at " << scale << " to " << target << " places at " << result_scale << ", "
                << mode_name(mode);
        }
    };
    for (const Numeric& value : special_values()) {
        for (const int scale : scales) {
            for (const int target : scales) {
                for (const int result_scale : scales) check(value, scale, target, result_scale);
            }
        }
        if (HasFailure()) return;
    }
}

// A part that was cut off has the sign of the value, whatever is left of it; zero counts as positive.
static_assert(truncated_sign({0, -1}, true) == -1 && truncated_sign({0, 1}, true) == 1);
static_assert(truncated_sign({0, 0}, true) == 1);
static_assert(truncated_sign({0, -1}, false) == 0 && truncated_sign({0, 1}, false) == 0);

}  // namespace
}  // namespace qv8numeric_tests
