// SPDX-License-Identifier: MIT
// Long division by one word and by two, prepared and unprepared: the quotient and the fraction that is dropped below
// it.
#include "wide/long_division.h"

#include <gtest/gtest.h>

#include <vector>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

constexpr int kRandomCases = 50000;

// ---- Normalized divisors ----

template <class Words>
void expect_normalized(const Words& divisor, unsigned words) {
    const Normalized<Words> normalized = normalize(divisor);
    const Integer top = integer(normalized.divisor);
    EXPECT_EQ(top, integer(divisor) << normalized.shift) << divisor;
    EXPECT_EQ(msb(top), 64 * words - 1) << divisor;
    EXPECT_EQ(Integer{normalized.reciprocal}, (two_to(64 * (words + 1)) - 1) / top - two_to(64)) << divisor;
}

TEST(Normalize, MovesTheTopBitUpAndTakesTheReciprocal) {
    for (unsigned bits = 1; bits <= 128; ++bits) {
        for (const Integer& divisor :
             {two_to(bits - 1), Integer(two_to(bits - 1) + bits / 2), Integer(two_to(bits) - 1)}) {
            if (divisor < two_to(64)) expect_normalized(pair(divisor).low, 1);
            if (divisor >= two_to(64)) expect_normalized(pair(divisor), 2);
        }
    }
}

// ---- Four words by one and by two ----

// By one word where the divisor is one, and then without preparing it too.
LongDivision divided(const Integer& dividend, const Integer& divisor) {
    const WordPair words = pair(divisor);
    if (words.high != 0) return divide(wide(dividend), normalize(words));
    const LongDivision prepared = divide(wide(dividend), normalize(words.low));
    const LongDivision unprepared = divide(wide(dividend), words.low);
    EXPECT_EQ(unprepared.quotient, prepared.quotient) << dividend << " / " << divisor;
    EXPECT_EQ(unprepared.dropped, prepared.dropped) << dividend << " / " << divisor;
    return prepared;
}

void expect_divided(const Integer& dividend, const Integer& divisor) {
    const LongDivision division = divided(dividend, divisor);
    EXPECT_EQ(integer(division.quotient), dividend / divisor) << dividend << " / " << divisor;
    EXPECT_EQ(division.dropped, exact_fraction(dividend % divisor, divisor)) << dividend << " / " << divisor;
}

std::vector<Integer> quotients() {
    return {0,
            1,
            2,
            two_to(32),
            two_to(63),
            two_to(64) - 1,
            two_to(64),
            two_to(64) + 1,
            two_to(127) - 1,
            two_to(127),
            two_to(128) - two_to(64),
            two_to(128) - 2,
            two_to(128) - 1};
}

std::vector<Integer> remainders(const Integer& divisor) {
    std::vector<Integer> within;
    for (const Integer& remainder : {Integer{0}, Integer{1}, Integer(divisor / 2 - 1), Integer(divisor / 2),
                                     Integer(divisor / 2 + 1), Integer(divisor - 1)}) {
        if (0 <= remainder && remainder < divisor) within.push_back(remainder);
    }
    return within;
}

// Powers of two with their neighbours, and of ten.
std::vector<Integer> divisors() {
    std::vector<Integer> all;
    for (unsigned bits = 0; bits <= 128; ++bits) {
        for (const int beside : {-1, 0, 1}) {
            const Integer divisor = two_to(bits) + beside;
            if (0 < divisor && divisor < two_to(128)) all.push_back(divisor);
        }
    }
    for (unsigned k = 1; k <= 38; ++k) all.push_back(power(10, k));
    return all;
}

TEST(LongDivision, AtTheEdgesOfQuotientAndRemainder) {
    for (const Integer& divisor : divisors()) {
        for (const Integer& quotient : quotients()) {
            for (const Integer& remainder : remainders(divisor))
                expect_divided(quotient * divisor + remainder, divisor);
        }
        if (HasFailure()) return;
    }
}

TEST(LongDivision, AtRandom) {
    RandomValues random(1);
    for (int i = 0; i < kRandomCases; ++i) {
        const Integer divisor = random.magnitude(128);
        if (divisor == 0) continue;
        const Integer remainder = random.magnitude(128) % divisor;
        expect_divided(random.magnitude(128) * divisor + remainder, divisor);
        expect_divided(random.magnitude(128) % divisor, divisor);
        if (HasFailure()) return;
    }
}

struct DivisionRow {
    const char* name;
    Integer dividend;
    Integer divisor;
    Integer quotient;
    Fraction dropped;
};

TEST(LongDivision, NamedDivisions) {
    const DivisionRow rows[] = {
        {"nothing by the smallest", 0, 1, 0, Fraction::nothing},
        {"by one, all of two words", two_to(128) - 1, 1, two_to(128) - 1, Fraction::nothing},
        {"by two, a half", two_to(128) + 1, 2, two_to(127), Fraction::exactly_half},
        {"by three, a third", 10, 3, 3, Fraction::below_half},
        {"by three, two thirds", 11, 3, 3, Fraction::above_half},
        {"less than the largest word", two_to(64) - 2, two_to(64) - 1, 0, Fraction::above_half},
        {"the largest quotient of the largest word", two_to(192) - two_to(128) - 1, two_to(64) - 1, two_to(128) - 1,
         Fraction::above_half},
        {"half of the smallest divisor of two words", two_to(63), two_to(64), 0, Fraction::exactly_half},
        {"the largest quotient of the smallest divisor of two words", two_to(192) - 1, two_to(64), two_to(128) - 1,
         Fraction::above_half},
        {"the largest quotient of the largest coefficient", (two_to(127) - 1) * two_to(128) - 1, two_to(127) - 1,
         two_to(128) - 1, Fraction::above_half},
        {"the largest quotient of the largest divisor", (two_to(128) - 1) * two_to(128) - 1, two_to(128) - 1,
         two_to(128) - 1, Fraction::above_half},
    };
    for (const DivisionRow& row : rows) {
        SCOPED_TRACE(row.name);
        const LongDivision division = divided(row.dividend, row.divisor);
        EXPECT_EQ(integer(division.quotient), row.quotient);
        EXPECT_EQ(division.dropped, row.dropped);
    }
}

TEST(LongDivision, ByOneWordTheFourthWordIsNotLookedAt) {
    const Normalized<uint64_t> ten = normalize(UINT64_C(10));
    const ExtendedNumeric dividend = wide(two_to(192) * 0xfedcba + 12345);
    for (const LongDivision& division : {divide(dividend, ten), divide(dividend, UINT64_C(10))}) {
        EXPECT_EQ(division.quotient, (WordPair{0, 1234}));
        EXPECT_EQ(division.dropped, Fraction::exactly_half);
    }
}

// ---- Two words by a limb ----

void expect_divided_by_limb(const Integer& dividend, uint64_t divisor) {
    const LongDivision division = divide(extend(pair(dividend)), divisor);
    EXPECT_EQ(integer(division.quotient), dividend / divisor) << dividend << " / " << divisor;
    EXPECT_EQ(division.dropped, exact_fraction(dividend % divisor, divisor)) << dividend << " / " << divisor;
}

// Also dividends of all 128 bits, which a negative value divided as it stands has.
TEST(LongDivisionByALimb, AroundMultiplesAndHalves) {
    for (const uint64_t divisor :
         {UINT64_C(2), UINT64_C(3), UINT64_C(5), UINT64_C(7), UINT64_C(10), UINT64_C(641), UINT64_C(0xffff),
          UINT64_C(0x10000), UINT64_C(0x10001), UINT64_C(1000000000), UINT64_C(0x3fffffff), UINT64_C(0x40000000),
          UINT64_C(0x40000001), UINT64_C(0x55555556), UINT64_C(0x7ffffffe), UINT64_C(0x7fffffff),
          UINT64_C(0x80000000)}) {
        for (unsigned bits = 0; bits <= 128; ++bits) {
            const Integer multiple = two_to(bits) / divisor * divisor;
            for (const Integer& dropped : remainders(divisor)) {
                for (const Integer& dividend : {Integer(multiple + dropped), Integer(multiple - dropped)}) {
                    if (0 <= dividend && dividend < two_to(128)) expect_divided_by_limb(dividend, divisor);
                }
            }
            expect_divided_by_limb(two_to(bits) - 1, divisor);
        }
        if (HasFailure()) return;
    }
}

TEST(LongDivisionByALimb, EveryDigitAtItsEdges) {
    constexpr uint64_t limbs[] = {0, 1, 0x7fffffff, 0x80000000, 0xffffffff};
    for (const uint64_t divisor :
         {UINT64_C(2), UINT64_C(3), UINT64_C(10), UINT64_C(0x7fffffff), UINT64_C(0x80000000)}) {
        for (const uint64_t a : limbs) {
            for (const uint64_t b : limbs) {
                for (const uint64_t c : limbs) {
                    for (const uint64_t d : limbs) {
                        expect_divided_by_limb(integer(WordPair{a << 32 | b, c << 32 | d}), divisor);
                    }
                }
            }
        }
    }
}

TEST(LongDivisionByALimb, AtRandom) {
    RandomValues random(2);
    for (int i = 0; i < kRandomCases; ++i) {
        const uint64_t divisor = 2 + (random.below((UINT64_C(1) << 31) - 1) >> random.below(31));
        expect_divided_by_limb(random.magnitude(128), divisor);
        expect_divided_by_limb(random.magnitude(95) * divisor + divisor - 1, divisor);
        if (HasFailure()) return;
    }
}

static_assert(normalize(UINT64_C(1)).shift == 63 && normalize(WordPair{1, 0}).shift == 63);
static_assert(divide(ExtendedNumeric{{25, 0, 0, 0}}, normalize(UINT64_C(10))).quotient == WordPair{0, 2});
static_assert(divide(ExtendedNumeric{{0, 0, 1, 0}}, normalize(WordPair{1, 0})).quotient == WordPair{1, 0});
static_assert(divide(extend({1, 0}), UINT64_C(2)).quotient == WordPair{0, UINT64_C(1) << 63});
static_assert(divide(extend({0, 7}), UINT64_C(2)).dropped == Fraction::exactly_half);

}  // namespace
}  // namespace qv8numeric_tests
