// SPDX-License-Identifier: MIT
// Sum, difference and order at one scale, around the ends of the range on either side.
#include "numeric/same_scale.h"

#include <gtest/gtest.h>

#include "special_values.h"
#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

// What an exact sum or difference owes its caller.
void expect_settled(NumericStatus status, const Numeric& result, const Integer& exact) {
    const Integer largest = two_to(127) - 1;
    if (exact > largest) {
        EXPECT_EQ(status, NUMERIC_OVERFLOW) << exact;
        EXPECT_EQ(result, num("NaN")) << exact;
    } else if (exact < -largest) {
        EXPECT_EQ(status, NUMERIC_UNDERFLOW) << exact;
        EXPECT_EQ(result, num("NaN")) << exact;
    } else {
        EXPECT_EQ(status, NUMERIC_OK) << exact;
        EXPECT_EQ(integer(result), exact);
    }
}

void expect_sum_and_difference(const Numeric& a, const Numeric& b) {
    const WordPair sum = wrapping_add(bits_of(a), bits_of(b));
    EXPECT_EQ(sign_overflow(bits_of(a), bits_of(b), sum) >> 63 != 0, integer(from_bits(sum)) != integer(a) + integer(b))
        << a << " + " << b;
    Numeric result = kPoison;
    const NumericStatus of_sum = add_same_scale(a, b, result);
    expect_settled(of_sum, result, integer(a) + integer(b));
    result = kPoison;
    const NumericStatus of_difference = subtract_same_scale(a, b, result);
    expect_settled(of_difference, result, integer(a) - integer(b));
    const int order = integer(a) < integer(b) ? 1 : integer(b) < integer(a) ? -1 : 0;
    EXPECT_EQ(compare_same_scale(a, b), order) << a << ", " << b;
}

struct SettleRow {
    const char* name;
    const char* a;
    const char* b;
    NumericStatus sum_status;
    const char* sum;
    NumericStatus difference_status;
    const char* difference;
};

constexpr SettleRow kRows[] = {
    {"nothing and nothing", "0", "0", NUMERIC_OK, "0", NUMERIC_OK, "0"},
    {"a carry between the words", "2^64-1", "1", NUMERIC_OK, "2^64", NUMERIC_OK, "2^64-2"},
    {"a borrow between the words", "2^64", "1", NUMERIC_OK, "2^64+1", NUMERIC_OK, "2^64-1"},
    {"up to the largest, and 2^127 away", "2^126", "2^126-1", NUMERIC_OK, "2^127-1", NUMERIC_OK, "1"},
    {"2^127", "2^126", "2^126", NUMERIC_OVERFLOW, "NaN", NUMERIC_OK, "0"},
    {"-2^127, which does not overflow 128 bits but is the pattern of NaN", "-2^126", "-2^126", NUMERIC_UNDERFLOW, "NaN",
     NUMERIC_OK, "0"},
    {"-2^127 + 1", "-2^126", "-2^126+1", NUMERIC_OK, "-2^127+1", NUMERIC_OK, "-1"},
    {"the largest and one", "2^127-1", "1", NUMERIC_OVERFLOW, "NaN", NUMERIC_OK, "2^127-2"},
    {"the largest less minus one", "2^127-1", "-1", NUMERIC_OK, "2^127-2", NUMERIC_OVERFLOW, "NaN"},
    {"the smallest and minus one, or less one: -2^127 either way", "-2^127+1", "1", NUMERIC_OK, "-2^127+2",
     NUMERIC_UNDERFLOW, "NaN"},
    {"the smallest and minus one", "-2^127+1", "-1", NUMERIC_UNDERFLOW, "NaN", NUMERIC_OK, "-2^127+2"},
    {"the largest twice", "2^127-1", "2^127-1", NUMERIC_OVERFLOW, "NaN", NUMERIC_OK, "0"},
    {"the smallest twice", "-2^127+1", "-2^127+1", NUMERIC_UNDERFLOW, "NaN", NUMERIC_OK, "0"},
    {"the largest and the smallest", "2^127-1", "-2^127+1", NUMERIC_OK, "0", NUMERIC_OVERFLOW, "NaN"},
    {"the smallest and the largest", "-2^127+1", "2^127-1", NUMERIC_OK, "0", NUMERIC_UNDERFLOW, "NaN"},
    {"nothing less the smallest", "0", "-2^127+1", NUMERIC_OK, "-2^127+1", NUMERIC_OK, "2^127-1"},
    {"nothing less the largest", "0", "2^127-1", NUMERIC_OK, "2^127-1", NUMERIC_OK, "-2^127+1"},
    {"minus one less the largest", "-1", "2^127-1", NUMERIC_OK, "2^127-2", NUMERIC_UNDERFLOW, "NaN"},
};

TEST(SameScale, NamedSumsAndDifferences) {
    for (const SettleRow& row : kRows) {
        SCOPED_TRACE(row.name);
        Numeric result = kPoison;
        EXPECT_EQ(add_same_scale(num(row.a), num(row.b), result), row.sum_status);
        EXPECT_EQ(result, num(row.sum));
        result = kPoison;
        EXPECT_EQ(subtract_same_scale(num(row.a), num(row.b), result), row.difference_status);
        EXPECT_EQ(result, num(row.difference));
    }
}

TEST(SameScale, EveryTwoSpecialValues) {
    for (const Numeric& a : special_values()) {
        for (const Numeric& b : special_values()) expect_sum_and_difference(a, b);
    }
}

TEST(SameScale, AtRandom) {
    RandomValues random(1);
    for (int i = 0; i < 50000; ++i) {
        const Numeric a = from_bits(random.pair()), b = from_bits(random.pair());
        if (!is_nan(a) && !is_nan(b)) expect_sum_and_difference(a, b);
        if (HasFailure()) return;
    }
}

struct SideRow {
    const char* name;
    const char* a;
    WordPair exact;
    uint64_t overflow_sign;
    NumericStatus status;
};

constexpr uint64_t kTop = UINT64_C(1) << 63;

constexpr SideRow kSideRows[] = {
    {"in range", "1", {0, 5}, 0, NUMERIC_OK},
    {"only the sign bit of the overflow counts", "1", {0, 5}, kTop - 1, NUMERIC_OK},
    {"overflowed on the positive side", "1", {kTop, 5}, kTop, NUMERIC_OVERFLOW},
    {"overflowed on the negative side", "-1", {0, 5}, kTop, NUMERIC_UNDERFLOW},
    {"the pattern of NaN on the positive side", "1", {kTop, 0}, kTop, NUMERIC_OVERFLOW},
    {"the pattern of NaN without an overflow", "-1", {kTop, 0}, 0, NUMERIC_UNDERFLOW},
};

TEST(SameScale, SettlesOnTheSideOfTheFirstOperand) {
    for (const SideRow& row : kSideRows) {
        SCOPED_TRACE(row.name);
        Numeric result = kPoison;
        EXPECT_EQ(settle(num(row.a), row.exact, row.overflow_sign, result), row.status);
        EXPECT_EQ(result, row.status == NUMERIC_OK ? from_bits(row.exact) : num("NaN"));
    }
}

TEST(SameScale, OrderHasNanBelowEverything) {
    for (const Numeric& value : special_values()) {
        EXPECT_EQ(compare_same_scale(num("NaN"), value), is_nan(value) ? 0 : 1) << value;
        EXPECT_EQ(compare_same_scale(value, num("NaN")), is_nan(value) ? 0 : -1) << value;
    }
}

static_assert([] {
    Numeric result{};
    return add_same_scale({UINT64_MAX, INT64_MAX}, {1, 0}, result) == NUMERIC_OVERFLOW && is_nan(result);
}());
static_assert(compare_same_scale({0, 0}, {1, 0}) == 1 && compare_same_scale({0, 0}, {UINT64_MAX, -1}) == -1);

}  // namespace
}  // namespace qv8numeric_tests
