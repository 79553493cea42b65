// SPDX-License-Identifier: MIT
// What a change of scale has dropped: the two words of a chain of divisions, and the fraction that is left of it.
#include "wide/dropped.h"

#include <gtest/gtest.h>

#include <iterator>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

// -1, 0 or 1 as 2 * remainder is below, equal to or above the divisor.
int side_of_half(uint64_t remainder, uint64_t divisor) {
    return (2 * remainder > divisor ? 1 : 0) - (2 * remainder < divisor ? 1 : 0);
}

int side_of_half(uint32_t code) { return (code > 0x80000000 ? 1 : 0) - (code < 0x80000000 ? 1 : 0); }

void expect_code(uint32_t remainder, uint32_t divisor) {
    const uint32_t code = remainder_code(remainder, divisor);
    EXPECT_EQ(code == 0, remainder == 0) << remainder << " of " << divisor;
    if (remainder != 0) {
        EXPECT_EQ(side_of_half(code), side_of_half(remainder, divisor)) << remainder << " of " << divisor;
        EXPECT_EQ(int64_t{code}, int64_t{0x80000000} - divisor + 2 * int64_t{remainder})
            << remainder << " of " << divisor;
    }
    EXPECT_EQ(remainder_of(code, divisor), remainder) << remainder << " of " << divisor;
}

struct CodeRow {
    const char* name;
    uint32_t remainder;
    uint32_t divisor;
    uint32_t code;
};

constexpr CodeRow kCodeRows[] = {
    {"nothing", 0, 100000000, 0},
    {"the smallest remainder of eight digits", 1, 100000000, 0x7A0A1F02},
    {"one half of eight digits", 50000000, 100000000, 0x80000000},
    {"the largest remainder of eight digits", 99999999, 100000000, 0x85F5E0FE},
    {"one half of one digit", 5, 10, 0x80000000},
    {"the largest remainder of one digit", 9, 10, 0x80000008},
    {"the smallest remainder of one digit", 1, 10, 0x7FFFFFF8},
    {"no half of an odd divisor, just below", 2, 5, 0x7FFFFFFF},
    {"no half of an odd divisor, just above", 3, 5, 0x80000001},
    {"the smallest remainder of the largest divisor", 1, 0x80000000, 2},
    {"the largest remainder of the largest divisor", 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE},
};

TEST(RemainderCode, OfNamedRemainders) {
    for (const CodeRow& row : kCodeRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(remainder_code(row.remainder, row.divisor), row.code);
        EXPECT_EQ(remainder_of(row.code, row.divisor), row.remainder);
    }
}

TEST(RemainderCode, OfEveryRemainderOfSmallDivisors) {
    for (uint32_t divisor = 1; divisor <= 300; ++divisor) {
        for (uint32_t remainder = 0; remainder < divisor; ++remainder) expect_code(remainder, divisor);
    }
}

TEST(RemainderCode, AroundTheHalfOfLargeDivisors) {
    for (const uint32_t divisor : {10000U, 1000000U, 9765625U, 100000000U, 244140625U, 0x7FFFFFFFU, 0x80000000U}) {
        for (const uint32_t remainder : {1U, divisor / 2 - 1, divisor / 2, divisor / 2 + 1, divisor - 1}) {
            expect_code(remainder, divisor);
        }
    }
}

struct AnythingRow {
    const char* name;
    Dropped dropped;
    bool anything;
};

constexpr AnythingRow kAnythingRows[] = {
    {"nothing", {0, 0}, false},
    {"in the last step", {1, 0}, true},
    {"in an earlier step", {0, 1}, true},
    {"in both", {0x80000000, 0x80000000}, true},
};

TEST(Dropped, IsAnythingWhenEitherWordIs) {
    for (const AnythingRow& row : kAnythingRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.dropped.anything(), row.anything);
    }
}

TEST(Dropped, EachStepMakesTheOneBeforeSticky) {
    Dropped dropped;
    EXPECT_FALSE(dropped.anything());
    drop(dropped, 0x10);
    EXPECT_EQ(dropped.code, 0x10U);
    EXPECT_EQ(dropped.sticky, 0U);
    drop(dropped, 0x02);
    EXPECT_EQ(dropped.code, 0x02U);
    EXPECT_EQ(dropped.sticky, 0x10U);
    drop(dropped, 0);
    EXPECT_EQ(dropped.code, 0U);
    EXPECT_EQ(dropped.sticky, 0x12U);
}

// ---- The fraction that a remainder is of its divisor ----

constexpr Fraction kFractions[] = {Fraction::nothing, Fraction::below_half, Fraction::exactly_half,
                                   Fraction::above_half};

template <class Words>
void expect_fraction(const Words& remainder, const Words& divisor) {
    EXPECT_EQ(fraction_of(remainder, divisor), exact_fraction(integer(remainder), integer(divisor)))
        << remainder << " of " << divisor;
}

TEST(Fraction, OfEveryRemainderOfSmallDivisors) {
    for (uint64_t divisor = 1; divisor <= 300; ++divisor) {
        for (uint64_t remainder = 0; remainder < divisor; ++remainder) {
            expect_fraction(remainder, divisor);
            expect_fraction(WordPair{0, remainder}, WordPair{0, divisor});
            expect_fraction(WordPair{remainder, 0}, WordPair{divisor, 0});
        }
    }
}

TEST(Fraction, AroundTheHalfOfLargeDivisors) {
    for (unsigned bits = 10; bits <= 128; ++bits) {
        for (const Integer& divisor : {two_to(bits) - 1, two_to(bits) - 2, two_to(bits - 1), two_to(bits - 1) + 1}) {
            for (const Integer& remainder :
                 {Integer{0}, Integer{1}, divisor / 2 - 1, divisor / 2, divisor / 2 + 1, divisor - 1}) {
                expect_fraction(pair(remainder), pair(divisor));
                if (bits <= 64) expect_fraction(pair(remainder).low, pair(divisor).low);
            }
        }
    }
}

TEST(Fraction, AtRandom) {
    RandomValues random(1);
    for (int i = 0; i < 20000; ++i) {
        const Integer divisor = random.magnitude(128) + 1;
        if (divisor == two_to(128)) continue;
        expect_fraction(pair(random.magnitude(128) % divisor), pair(divisor));
        const uint64_t word = pair(divisor).low;
        if (word != 0) expect_fraction(random.word() % word, word);
        if (HasFailure()) return;
    }
}

TEST(Fraction, ComplementIsWhatARemainderLacks) {
    for (const Fraction fraction : kFractions) EXPECT_EQ(complement_if(false, fraction), fraction);
    for (uint64_t divisor = 2; divisor <= 50; ++divisor) {
        for (uint64_t remainder = 1; remainder < divisor; ++remainder) {
            EXPECT_EQ(complement_if(true, fraction_of(remainder, divisor)),
                      exact_fraction(divisor - remainder, divisor))
                << divisor << " - " << remainder;
        }
    }
}

// ---- Two moves in a row ----

struct JoinedRow {
    const char* name;
    Fraction first;
    Fraction last;
    Fraction joined;
};

constexpr JoinedRow kJoinedRows[] = {
    {"nothing twice", Fraction::nothing, Fraction::nothing, Fraction::nothing},
    {"below half, after nothing", Fraction::nothing, Fraction::below_half, Fraction::below_half},
    {"half stays half after nothing", Fraction::nothing, Fraction::exactly_half, Fraction::exactly_half},
    {"above half, after nothing", Fraction::nothing, Fraction::above_half, Fraction::above_half},
    {"an exact move makes the least small", Fraction::below_half, Fraction::nothing, Fraction::below_half},
    {"an exact move makes a half smaller", Fraction::exactly_half, Fraction::nothing, Fraction::below_half},
    {"an exact move makes nearly a unit small", Fraction::above_half, Fraction::nothing, Fraction::below_half},
    {"the least does not lift below half", Fraction::below_half, Fraction::below_half, Fraction::below_half},
    {"nor does a half", Fraction::exactly_half, Fraction::below_half, Fraction::below_half},
    {"nor does nearly a unit", Fraction::above_half, Fraction::below_half, Fraction::below_half},
    {"the least makes half more than half", Fraction::below_half, Fraction::exactly_half, Fraction::above_half},
    {"half makes half more than half", Fraction::exactly_half, Fraction::exactly_half, Fraction::above_half},
    {"nearly a unit makes half more than half", Fraction::above_half, Fraction::exactly_half, Fraction::above_half},
    {"above half stays there, with the least", Fraction::below_half, Fraction::above_half, Fraction::above_half},
    {"above half stays there, with a half", Fraction::exactly_half, Fraction::above_half, Fraction::above_half},
    {"above half stays there, with nearly a unit", Fraction::above_half, Fraction::above_half, Fraction::above_half},
};
static_assert(std::size(kJoinedRows) == std::size(kFractions) * std::size(kFractions));

TEST(Joined, EveryTwoFractions) {
    for (const JoinedRow& row : kJoinedRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(joined(row.first, row.last), row.joined);
    }
}

TEST(Joined, IsTheFractionOfOneDivisionByBoth) {
    for (const uint64_t first : {2U, 3U, 5U, 10U, 100U}) {
        for (const uint64_t last : {2U, 4U, 6U, 10U, 100U}) {
            const uint64_t both = first * last;
            for (uint64_t x = 0; x < 2 * both; ++x) {
                EXPECT_EQ(joined(fraction_of(x % first, first), fraction_of(x / first % last, last)),
                          exact_fraction(x % both, both))
                    << x << " by " << first << " and by " << last;
            }
        }
    }
}

static_assert(fraction_of(UINT64_MAX - 1, UINT64_MAX) == Fraction::above_half);
static_assert(fraction_of(WordPair{1, 0}, WordPair{2, 0}) == Fraction::exactly_half);
static_assert(complement_if(true, Fraction::below_half) == Fraction::above_half);
static_assert(remainder_code(3, 7) == 0x7FFFFFFF && remainder_code(4, 7) == 0x80000001);
static_assert(remainder_of(remainder_code(6, 7), 7) == 6);
static_assert(!Dropped{}.anything());
static_assert([] {
    Dropped dropped{one_half, 0};
    drop(dropped, 0);
    return dropped.code == 0 && dropped.sticky == one_half;
}());

}  // namespace
}  // namespace qv8numeric_tests
