// SPDX-License-Identifier: MIT
// The count of decimal digits and the cuts between them, around every power of ten and two and over random magnitudes.
#include "wide/decimal_split.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

constexpr int kRandomCases = 20000;

// Neighbours of the powers of ten and two and random numbers, all up to `limit`.
std::vector<Integer> magnitudes(const Integer& limit) {
    std::vector<Integer> values;
    const auto add = [&](const Integer& value) {
        if (0 <= value && value <= limit) values.push_back(value);
    };
    for (unsigned k = 0; k <= 38; ++k) {
        for (const int offset : {-1, 0, 1}) add(power(10, k) + offset);
    }
    for (unsigned bits = 0; bits <= 127; ++bits) {
        for (const int offset : {-1, 0, 1}) add(two_to(bits) + offset);
    }
    RandomValues random(20260401);
    for (int i = 0; i < kRandomCases; ++i) add(random.magnitude(127));
    return values;
}

TEST(DecimalSplit, WholeLogarithmsOfThePowersOfTwo) {
    for (unsigned bits = 0; bits <= 128; ++bits) {
        const unsigned logarithm = whole_log10_of_power_of_two(bits);
        EXPECT_LE(power(10, logarithm), two_to(bits)) << bits;
        EXPECT_GT(power(10, logarithm + 1), two_to(bits)) << bits;
    }
}

TEST(DecimalSplit, CountsDigits) {
    EXPECT_EQ(count_digits(uint64_t{0}), 0U);
    EXPECT_EQ(count_digits(WordPair{0, 0}), 0U);
    for (const Integer& value : magnitudes(two_to(127))) {
        if (value == 0) continue;
        const auto digits = static_cast<unsigned>(value.str().size());
        EXPECT_EQ(count_digits(pair(value)), digits) << value;
        if (value > UINT64_MAX) continue;
        EXPECT_EQ(count_digits(word_of(value, 0)), digits) << value;
    }
}

TEST(DecimalSplit, CutsAWordAtEveryDigit) {
    for (const Integer& value : magnitudes(two_to(63))) {
        for (unsigned digits = 1; digits <= 19; ++digits) {
            const DecimalSplit<uint64_t> split = split_at(digits, word_of(value, 0));
            ASSERT_EQ(Integer{split.upper}, value / power(10, digits)) << value << " at " << digits;
            ASSERT_EQ(Integer{split.lower}, value % power(10, digits)) << value << " at " << digits;
        }
    }
}

TEST(DecimalSplit, CutsAPairAtEveryDigit) {
    for (const Integer& value : magnitudes(two_to(127))) {
        for (unsigned digits = 1; digits <= 38; ++digits) {
            const DecimalSplit<WordPair> split = split_at(digits, pair(value));
            ASSERT_EQ(integer(split.upper), value / power(10, digits)) << value << " at " << digits;
            ASSERT_EQ(integer(split.lower), value % power(10, digits)) << value << " at " << digits;
        }
    }
}

// Around the multiples of 10^19 too, where the quotient's estimate is off by one.
TEST(DecimalSplit, CutsAPairIntoWords) {
    std::vector<Integer> values = magnitudes(two_to(127));
    RandomValues random(20260402);
    for (int i = 0; i < kRandomCases; ++i) {
        const Integer multiple = Integer{random.below(17014118346046923173U)} * power(10, 19);
        for (const int offset : {-1, 0, 1}) {
            if (multiple + offset >= 0) values.push_back(multiple + offset);
        }
    }
    for (const Integer& value : values) {
        const DecimalSplit<uint64_t> split = split_into_words(pair(value));
        ASSERT_EQ(Integer{split.upper}, value / power(10, 19)) << value;
        ASSERT_EQ(Integer{split.lower}, value % power(10, 19)) << value;
    }
}

}  // namespace
}  // namespace qv8numeric_tests
