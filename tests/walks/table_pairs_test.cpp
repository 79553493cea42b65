// SPDX-License-Identifier: MIT
// Every pair of rows of the tables, one used after the other, and every pair of powers of ten through the public
// functions.
#include <gtest/gtest.h>

#include <vector>

#include "exact.h"
#include "wide/powers.h"
#include "wide/scaling.h"
#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

const cpp_int& tens(int exponent) { return qv8numeric_tests::power_of_ten(exponent); }

std::vector<divisor_t> rows() {
    std::vector<divisor_t> list(negative_power_of_ten.begin(), negative_power_of_ten.end());
    list.insert(list.end(), negative_power_of_five.begin(), negative_power_of_five.end());
    return list;
}

// Around the multiples of a unit, small, at the ends of words, and at the end of the vector.
std::vector<Integer> around_multiples(const Integer& unit) {
    std::vector<Integer> list;
    const Integer end = two_to(256);
    for (const Integer& multiple : {Integer{0}, Integer{1}, Integer{2}, two_to(32), two_to(64) - 1, two_to(96),
                                    two_to(128), two_to(192) - 1, Integer(end / unit - 1), Integer(end / unit)}) {
        for (const Integer& beside : {Integer(-1), Integer(0), Integer(1), Integer(unit / 2)}) {
            const Integer x = multiple * unit + beside;
            if (0 <= x && x < end) list.push_back(x);
        }
    }
    return list;
}

// Two divisions in a row are one by the product, and the second remainder orders as its own division says; what the
// first one dropped is in the sticky word.
TEST(TablePairs, DivideByEveryTwoRowsInARow) {
    long divisions = 0;
    for (const divisor_t& first : rows()) {
        for (const divisor_t& second : rows()) {
            const Integer unit = Integer{first.divisor} * second.divisor;
            for (const Integer& x : around_multiples(unit)) {
                ExtendedNumeric q = wide(x);
                unsigned code = 0, sticky = 0;
                div_unsigned(q, first, q, code, sticky);
                div_unsigned(q, second, q, code, sticky);
                const Integer between = x / first.divisor, remainder = between % second.divisor;
                ASSERT_EQ(integer(q), x / unit) << x << " / " << first.divisor << " / " << second.divisor;
                ASSERT_EQ(sticky != 0, x % first.divisor != 0) << x;
                ASSERT_EQ(code == 0, remainder == 0) << x;
                ASSERT_EQ(code > one_half, 2 * remainder > second.divisor) << x;
                ASSERT_EQ(code == one_half, 2 * remainder == second.divisor) << x;
                ++divisions;
            }
        }
    }
    EXPECT_GT(divisions, 10000);
}

TEST(TablePairs, MultiplyByEveryTwoFactorsInARow) {
    std::vector<unsigned> factors(qv8numeric::power_of_ten.begin(), qv8numeric::power_of_ten.end());
    factors.insert(factors.end(), power_of_five.begin(), power_of_five.end());
    for (const unsigned first : factors) {
        for (const unsigned second : factors) {
            const Integer unit = Integer{first} * second;
            for (const Integer& near :
                 {Integer{0}, Integer{1}, Integer(two_to(256) / unit), Integer(two_to(128) - 1)}) {
                for (const int beside : {-1, 0, 1}) {
                    const Integer x = near + beside;
                    if (x < 0 || x >= two_to(256)) continue;
                    ExtendedNumeric r = wide(x);
                    unsigned overflow = 0;
                    mul_unsigned(r, first, r, overflow);
                    mul_unsigned(r, second, r, overflow);
                    ASSERT_EQ(integer(r), x * unit % two_to(256)) << x << " * " << first << " * " << second;
                    ASSERT_EQ(overflow != 0, x * unit >= two_to(256)) << x << " * " << first << " * " << second;
                }
            }
        }
    }
}

// Up by one power and down by another, in four words.
TEST(TablePairs, MoveUpAndDownByEveryTwoPowers) {
    for (unsigned up = 0; up <= 76; ++up) {
        for (unsigned down = 1; down <= 96; ++down) {
            for (const Integer& x :
                 {Integer{1}, Integer{5}, Integer{999999999999999999}, two_to(64) - 1, two_to(127)}) {
                const Integer product = x * power(10, up), unit = power(10, down);
                if (product >= two_to(256)) continue;
                ExtendedNumeric moved = wide(x);
                unsigned overflow = 0;
                scale_up(moved, up, overflow);
                ASSERT_EQ(overflow, 0U);
                ASSERT_EQ(integer(moved), product) << x << " up by " << up;
                const auto dropped = scale_down(moved, down);
                ASSERT_EQ(integer(moved), product / unit) << x << " up by " << up << ", down by " << down;
                ASSERT_EQ(dropped, exact_fraction(product % unit, unit)) << x << ", " << up << ", " << down;
            }
        }
    }
}

TEST(TablePairs, CompareAndCombineEveryTwoPowersOfTen) {
    constexpr std::uint32_t mode = NUMERIC_ROUND_HALF_EVEN;
    for (int i = 0; i <= 38; ++i) {
        for (int j = 0; j <= 38; ++j) {
            const NumericInfo a_info{i, mode}, b_info{j, mode};
            const Numeric a = pattern(tens(i)), b = pattern(tens(j));  // both are 1
            EXPECT_EQ(QV8NumericRescalingCmp(&a_info, &b_info, &a, &b), 0) << i << ", " << j;
            const Numeric above = pattern(tens(j) + 1), below = pattern(tens(j) - 1);
            EXPECT_EQ(QV8NumericRescalingCmp(&a_info, &b_info, &a, &above), 1) << i << ", " << j;
            EXPECT_EQ(QV8NumericRescalingCmp(&a_info, &b_info, &a, &below), -1) << i << ", " << j;
            for (const int scale : {-40, -1, 0, 1, 18, 19, 20, 37, 38, 39}) {
                const NumericInfo result_info{scale, mode};
                Outcome actual{NUMERIC_OK, kPoison};
                actual.status = QV8NumericRescalingMul(&a_info, &b_info, &result_info, &a, &b, &actual.value);
                EXPECT_EQ(actual, narrowed(cut(decimal(a, i) * decimal(b, j), scale), mode)) << i << ", " << j;
                actual = {NUMERIC_OK, kPoison};
                actual.status = QV8NumericRescalingDiv(&a_info, &b_info, &result_info, &a, &b, &actual.value);
                EXPECT_EQ(actual, narrowed(cut(decimal(a, i) / decimal(b, j), scale), mode)) << i << ", " << j;
                actual = {NUMERIC_OK, kPoison};
                actual.status = QV8NumericRescalingAdd(&a_info, &b_info, &result_info, &a, &b, &actual.value);
                EXPECT_EQ(actual, narrowed(cut(decimal(a, i) + decimal(b, j), scale), mode)) << i << ", " << j;
            }
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
