// SPDX-License-Identifier: MIT
// The records of the powers of ten against their definition, and what the reciprocals claim: exact quotients for every
// magnitude of their range.
#include "wide/decimal_powers.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

// floor(2^(n + bits) / d) + 1, a reciprocal for magnitudes up to 2^n.
Integer reciprocal_by_definition(const Integer& d, unsigned n) { return two_to(n + msb(d) + 1) / d + 1; }

// floor((B^2 - 1) / d) - B for a normalized d of one word, floor((B^3 - 1) / d) - B for one of two; B = 2^64.
Integer long_reciprocal_by_definition(const Integer& d) {
    const unsigned words = msb(d) / 64 + 1;
    const Integer normalized = d << (64 * words - 1 - msb(d));
    return (two_to(64 * (words + 1)) - 1) / normalized - two_to(64);
}

TEST(DecimalPowers, EveryRecordIsItsDefinition) {
    ASSERT_EQ(decimal_power.size(), 39U);
    for (unsigned k = 0; k < decimal_power.size(); ++k) {
        SCOPED_TRACE(k);
        const DecimalPower& record = decimal_power[k];
        const Integer d = power(10, k);
        EXPECT_EQ(integer(record.power), d);
        EXPECT_EQ(record.shift, msb(d));
        EXPECT_EQ(Integer{record.long_reciprocal}, long_reciprocal_by_definition(d));
        EXPECT_EQ(Integer{record.significand}, (d << (127 - msb(d))) >> 64);
        if (k == 0) continue;  // nothing divides by 1
        EXPECT_EQ(integer(record.reciprocal), reciprocal_by_definition(d, 127));
        if (k > word_digits) continue;
        EXPECT_EQ(Integer{record.word_reciprocal}, reciprocal_by_definition(d, 63));
    }
}

TEST(DecimalPowers, LastOnesThatFit) {
    EXPECT_EQ(power(10, significand_digits) % two_to(msb(power(10, significand_digits)) - 63), 0);
    EXPECT_NE(power(10, significand_digits + 1) % two_to(msb(power(10, significand_digits + 1)) - 63), 0);
    EXPECT_LT(power(10, word_digits), two_to(64));
    EXPECT_GT(power(10, word_digits + 1), two_to(64));
    EXPECT_LT(power(10, pair_digits), two_to(127));
    EXPECT_GT(power(10, pair_digits + 1), two_to(127));
}

// What makes the quotients exact: m * d is above 2^(n + bits), and by less than d.
TEST(DecimalPowers, ReciprocalsAreAboveByLessThanTheyMay) {
    const auto expect_excess = [](const Integer& m, const Integer& d, unsigned n) {
        const Integer excess = m * d - two_to(n + msb(d) + 1);
        EXPECT_GT(excess, 0) << d;
        EXPECT_LT(excess, d) << d;
        EXPECT_EQ(msb(m), n) << d;
    };
    for (unsigned k = 1; k <= pair_digits; ++k) {
        expect_excess(integer(decimal_power[k].reciprocal), power(10, k), 127);
        if (k <= word_digits) expect_excess(decimal_power[k].word_reciprocal, power(10, k), 63);
    }
}

// The upper half of x * m, and the shift that is left.
Integer quotient(const Integer& x, const Integer& m, unsigned n, unsigned shift) { return x * m >> (n + 1 + shift); }

void expect_quotient(const Integer& x, unsigned k) {
    const DecimalPower& record = decimal_power[k];
    const Integer exact = x / power(10, k);
    ASSERT_EQ(quotient(x, integer(record.reciprocal), 127, record.shift), exact) << x << " by 10^" << k;
    if (k <= word_digits && x <= two_to(63)) {
        ASSERT_EQ(quotient(x, record.word_reciprocal, 63, record.shift), exact) << x << " by 10^" << k;
    }
}

// A quotient that is too large shows first just below a multiple, and there most of all near the top of the range.
void expect_quotients_around(const Integer& multiplier, unsigned k, const Integer& top) {
    for (const int beside : {-1, 0, 1}) {
        const Integer x = multiplier * power(10, k) + beside;
        if (0 <= x && x <= top) expect_quotient(x, k);
    }
}

TEST(DecimalPowers, QuotientsAreExactAroundMultiples) {
    RandomValues random(1);
    for (unsigned k = 1; k <= pair_digits; ++k) {
        for (const unsigned n : {63U, 127U}) {
            const Integer top = two_to(n);
            const Integer last = top / power(10, k);
            for (int below = 0; below < 200; ++below) expect_quotients_around(last - below, k, top);
            for (unsigned bit = 0; bit < n; ++bit) {
                for (const int beside : {-1, 0, 1}) expect_quotients_around(two_to(bit) + beside, k, top);
            }
            for (int i = 0; i < 200; ++i) expect_quotients_around(random.magnitude(n) % (last + 1), k, top);
            expect_quotient(top, k);
            expect_quotient(top - 1, k);
        }
        if (HasFatalFailure()) return;
    }
}

static_assert(decimal_power[0].power == WordPair{0, 1} && decimal_power[0].shift == 0);
static_assert(decimal_power[20].power == WordPair{5, 0x6bc75e2d63100000} && decimal_power[20].word_reciprocal == 0);
static_assert(alignof(DecimalPower) == 64);

}  // namespace
}  // namespace qv8numeric_tests
