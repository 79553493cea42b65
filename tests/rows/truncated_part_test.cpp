// SPDX-License-Identifier: MIT
// The sign of a part that was cut off a value: that of the value, if anything was cut off.
#include <gtest/gtest.h>

#include "calls.h"

namespace qv8numeric_tests {
namespace {

struct Row {
    const char* name;
    const char* value;
    std::uint32_t flag;
    std::int32_t expected;
};

constexpr Row kRows[] = {
    {"something cut off a negative", "-5", 1, -1},
    {"something cut off a positive", "5", 1, +1},
    {"zero counts as positive", "0", 1, +1},
    {"nothing cut off a negative", "-5", 0, 0},
    {"nothing cut off a positive", "5", 0, 0},
    {"nothing cut off zero", "0", 0, 0},
    {"nothing cut off NaN", "NaN", 0, 0},
    {"NaN has the sign bit", "NaN", 1, -1},
    {"-2^64", "-2^64", 1, -1},
    {"nothing cut off -2^64", "-2^64", 0, 0},
    {"2^64", "2^64", 1, +1},
    {"a full low half is not a sign", "2^64-1", 1, +1},
    {"the smallest value", "-2^127+1", 1, -1},
    {"the largest value", "2^127-1", 1, +1},
    {"any nonzero flag: only the top bit", "-5", 0x80000000U, -1},
    {"any nonzero flag: all bits", "5", UINT32_MAX, +1},
    {"any nonzero flag: a bit in the middle", "-1", 0x00010000U, -1},
};

TEST(TruncatedPart, HasTheSignOfTheValue) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const GuardedNumeric object{.value = num(row.value)};
        std::uint32_t flag = row.flag;
        EXPECT_EQ(get_truncated_part(object.value, flag), row.expected);
        EXPECT_EQ(flag, row.flag);
        EXPECT_EQ(object.value, num(row.value));
    }
}

}  // namespace
}  // namespace qv8numeric_tests
