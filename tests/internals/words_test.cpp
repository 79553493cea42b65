// SPDX-License-Identifier: MIT
// Arithmetic on 64-bit words and pairs of them, against integers that cannot overflow.
#include "wide/words.h"

#include <gtest/gtest.h>

#include <vector>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

constexpr uint64_t kEdges[] = {
    0,
    1,
    2,
    3,
    0x7fffffff,
    0x80000000,
    0xffffffff,  // the halves of 32 bits in which the portable product is formed
    0x100000000,
    0x100000001,
    0x7fffffffffffffff,
    0x8000000000000000,
    0x8000000000000001,
    0xaaaaaaaaaaaaaaaa,
    0xffffffff00000000,
    0xffffffff00000001,
    0xfffffffffffffffe,
    0xffffffffffffffff,
};
constexpr int kRandomCases = 100000;

template <typename Check>
void for_every_pair_of_words(Check check) {
    for (const uint64_t a : kEdges) {
        for (const uint64_t b : kEdges) check(a, b);
    }
    RandomValues random(1);
    for (int i = 0; i < kRandomCases; ++i) {
        const uint64_t a = random.word();
        const uint64_t b = random.word();
        check(a, b);
        if (testing::Test::HasFailure()) return;
    }
}

template <typename Check>
void for_every_two_pairs(Check check) {
    std::vector<WordPair> edges;
    for (const uint64_t high : kEdges) {
        for (const uint64_t low : {UINT64_C(0), UINT64_C(1), UINT64_C(1) << 63, UINT64_MAX}) {
            edges.push_back({high, low});
        }
    }
    for (const WordPair& a : edges) {
        for (const WordPair& b : edges) check(a, b);
    }
    RandomValues random(2);
    for (int i = 0; i < kRandomCases; ++i) {
        const WordPair a = random.pair();
        const WordPair b = random.pair();
        check(a, b);
        if (testing::Test::HasFailure()) return;
    }
}

TEST(Words, WrappingMeansModulo2To64) {
    const Integer modulus = two_to(64);
    for_every_pair_of_words([&](uint64_t a, uint64_t b) {
        EXPECT_EQ(Integer{wrapping_add(a, b)}, modulo(Integer{a} + b, modulus)) << a << " + " << b;
        EXPECT_EQ(Integer{wrapping_subtract(a, b)}, modulo(Integer{a} - b, modulus)) << a << " - " << b;
        EXPECT_EQ(Integer{wrapping_multiply(a, b)}, modulo(Integer{a} * b, modulus)) << a << " * " << b;
        EXPECT_EQ(Integer{wrapping_negate(a)}, modulo(-Integer{a}, modulus)) << a;
    });
}

TEST(Words, ProductIsExactOnEitherRoad) {
    for_every_pair_of_words([](uint64_t a, uint64_t b) {
        const Integer exact = Integer{a} * b;
        EXPECT_EQ(integer(multiply_words(a, b)), exact) << a << " * " << b;
        EXPECT_EQ(integer(multiply_words_portable(a, b)), exact) << a << " * " << b;
    });
}

TEST(Words, ProductHasRoomForAnotherWord) {
    for_every_pair_of_words([](uint64_t a, uint64_t b) {
        for (const uint64_t c : {UINT64_C(0), UINT64_C(1), a, UINT64_MAX}) {
            EXPECT_EQ(integer(multiply_add(a, b, c)), Integer{a} * b + c) << a << " * " << b << " + " << c;
        }
    });
}

TEST(Words, ProductHasRoomForTwoMoreWords) {
    for_every_pair_of_words([](uint64_t a, uint64_t b) {
        for (const uint64_t c : {UINT64_C(0), UINT64_C(1), a, UINT64_MAX}) {
            for (const uint64_t d : {UINT64_C(0), b, UINT64_MAX}) {
                EXPECT_EQ(integer(multiply_add(a, b, c, d)), Integer{a} * b + c + d)
                    << a << " * " << b << " + " << c << " + " << d;
            }
        }
    });
}

TEST(Words, ProductHasTwoHalves) {
    for_every_pair_of_words([](uint64_t a, uint64_t b) {
        const Integer exact = Integer{a} * b;
        EXPECT_EQ(integer(multiply(a, b)), exact) << a << " * " << b;
        EXPECT_EQ(Integer{multiply_high(a, b)}, exact >> 64) << a << " * " << b;
    });
}

#if QV8NUMERIC_NATIVE_DIVISION
TEST(Words, TheProcessorDividesTwoByOne) {
    for_every_pair_of_words([](uint64_t a, uint64_t d) {
        if (d == 0) return;
        for (const uint64_t high : {UINT64_C(0), d / 2, d - 1, a % d}) {
            const Integer dividend = integer(WordPair{high, a});
            const WordQuotient division = divide_natively({high, a}, d);
            EXPECT_EQ(Integer{division.quotient}, dividend / d) << dividend << " / " << d;
            EXPECT_EQ(Integer{division.remainder}, dividend % d) << dividend << " / " << d;
        }
    });
}
#endif

TEST(Words, AreNegatedOrNot) {
    for (const uint64_t a : kEdges) {
        EXPECT_EQ(negated_if(false, a), a);
        EXPECT_EQ(Integer{negated_if(true, a)}, modulo(-Integer{a}, two_to(64))) << a;
    }
}

struct WordRow {
    const char* name;
    uint64_t word;
    bool zero;
    bool odd;
};

constexpr WordRow kWordRows[] = {
    {"zero", 0, true, false},
    {"one", 1, false, true},
    {"two", 2, false, false},
    {"the top bit alone", UINT64_C(1) << 63, false, false},
    {"the largest", UINT64_MAX, false, true},
};

TEST(Words, AreZeroOrOddByTheirBits) {
    for (const WordRow& row : kWordRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(is_zero(row.word), row.zero);
        EXPECT_EQ(is_odd(row.word), row.odd);
    }
}

TEST(Words, AreIncreasedByOneOrNot) {
    for (const uint64_t a : kEdges) {
        EXPECT_EQ(increased_by(a, false), a);
        if (a == UINT64_MAX) continue;
        EXPECT_EQ(Integer{increased_by(a, true)}, Integer{a} + 1) << a;
    }
}

TEST(WordPairs, WrappingMeansModulo2To128) {
    for_every_two_pairs([](const WordPair& a, const WordPair& b) {
        EXPECT_EQ(wrapping_add(a, b), pair(integer(a) + integer(b))) << a << " + " << b;
        EXPECT_EQ(wrapping_subtract(a, b), pair(integer(a) - integer(b))) << a << " - " << b;
        EXPECT_EQ(wrapping_negate(a), pair(-integer(a))) << a;
        EXPECT_EQ(wrapping_multiply(a, b), pair(integer(a) * integer(b))) << a << " * " << b;
        EXPECT_EQ(wrapping_multiply(a, b.low), pair(integer(a) * b.low)) << a << " * " << b.low;
    });
}

TEST(WordPairs, AreChangedByOneOrNegatedOrNot) {
    for_every_two_pairs([](const WordPair& a, const WordPair&) {
        EXPECT_EQ(increased_by(a, false), a);
        EXPECT_EQ(increased_by(a, true), pair(integer(a) + 1)) << a;
        EXPECT_EQ(negated_if(false, a), a);
        EXPECT_EQ(negated_if(true, a), pair(-integer(a))) << a;
    });
}

TEST(WordPairs, HighHalfOfTheProductIsExact) {
    for_every_two_pairs([](const WordPair& a, const WordPair& b) {
        EXPECT_EQ(integer(multiply_high(a, b)), integer(a) * integer(b) >> 128) << a << " * " << b;
    });
}

TEST(WordPairs, ShiftByEveryAmountBelowAWord) {
    RandomValues random(3);
    for (unsigned bits = 0; bits < 64; ++bits) {
        const auto expect_shifted = [&](const WordPair& a) {
            EXPECT_EQ(shift_right(a, bits), pair(integer(a) >> bits)) << a << " >> " << bits;
            EXPECT_EQ(shift_left(a, bits), pair(integer(a) << bits)) << a << " << " << bits;
        };
        for (const uint64_t high : kEdges) {
            for (const uint64_t low : kEdges) expect_shifted({high, low});
        }
        for (int i = 0; i < 200; ++i) expect_shifted(random.pair());
    }
}

struct PairRow {
    const char* name;
    WordPair pair;
    bool zero;
    bool odd;
    bool negative;
};

constexpr PairRow kPairRows[] = {
    {"zero", {0, 0}, true, false, false},
    {"one", {0, 1}, false, true, false},
    {"the lowest bit of the upper word is not odd", {1, 0}, false, false, false},
    {"the top bit of the lower word is no sign", {0, UINT64_C(1) << 63}, false, false, false},
    {"the top bit is one", {UINT64_C(1) << 63, 0}, false, false, true},
    {"all bits", {UINT64_MAX, UINT64_MAX}, false, true, true},
};

TEST(WordPairs, AreZeroOddOrNegativeByTheirBits) {
    for (const PairRow& row : kPairRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(is_zero(row.pair), row.zero);
        EXPECT_EQ(is_odd(row.pair), row.odd);
        EXPECT_EQ(is_negative(row.pair), row.negative);
    }
}

void expect_order(const WordPair& a, const WordPair& b) {
    const Integer x = integer(a), y = integer(b);
    EXPECT_EQ(a == b, x == y) << a << ", " << b;
    EXPECT_EQ(a != b, x != y) << a << ", " << b;
    EXPECT_EQ(a < b, x < y) << a << ", " << b;
    EXPECT_EQ(a > b, x > y) << a << ", " << b;
    EXPECT_EQ(a <= b, x <= y) << a << ", " << b;
    EXPECT_EQ(a >= b, x >= y) << a << ", " << b;
}

TEST(WordPairs, OrderIsThatOfTheNumbers) {
    for_every_two_pairs(expect_order);
    for_every_pair_of_words([](uint64_t a, uint64_t b) {
        expect_order({a, b}, {a, b});
        expect_order({a, b}, {b, a});
        expect_order({a, a}, {a, b});
        expect_order({a, b}, {b, b});
    });
}

// The same functions where the compiler does the computing.
static_assert(one_if(true) == 1 && one_if(false) == 0);
static_assert(both(true, true) && !both(true, false) && !both(false, true) && !both(false, false));
static_assert(either(true, true) && either(true, false) && either(false, true) && !either(false, false));
static_assert(wrapping_add(UINT64_MAX, 2) == 1);
static_assert(wrapping_subtract(1, 2) == UINT64_MAX);
static_assert(wrapping_multiply(UINT64_MAX, UINT64_MAX) == 1);
static_assert(wrapping_negate(1) == UINT64_MAX);
static_assert(multiply_words(UINT64_MAX, UINT64_MAX) == WordPair{UINT64_MAX - 1, 1});
static_assert(multiply_words_portable(UINT64_MAX, UINT64_MAX) == WordPair{UINT64_MAX - 1, 1});
static_assert(multiply_add(UINT64_MAX, UINT64_MAX, UINT64_MAX) == WordPair{UINT64_MAX, 0});
static_assert(wrapping_add(WordPair{0, UINT64_MAX}, WordPair{0, 1}) == WordPair{1, 0});
static_assert(wrapping_subtract(WordPair{1, 0}, WordPair{0, 1}) == WordPair{0, UINT64_MAX});
static_assert(wrapping_negate(WordPair{0, 1}) == WordPair{UINT64_MAX, UINT64_MAX});
static_assert(WordPair{0, UINT64_MAX} < WordPair{1, 0});
static_assert(!(WordPair{7, 7} < WordPair{7, 7}) && WordPair{7, 7} <= WordPair{7, 7} &&
              WordPair{7, 7} >= WordPair{7, 7});
static_assert(multiply_add(UINT64_MAX, UINT64_MAX, UINT64_MAX, UINT64_MAX) == WordPair{UINT64_MAX, UINT64_MAX});
static_assert(multiply_high(WordPair{UINT64_MAX, UINT64_MAX}, WordPair{UINT64_MAX, UINT64_MAX}) ==
              WordPair{UINT64_MAX, UINT64_MAX - 1});
static_assert(wrapping_multiply(WordPair{UINT64_MAX, UINT64_MAX}, WordPair{UINT64_MAX, UINT64_MAX}) == WordPair{0, 1});
static_assert(shift_left(WordPair{1, 1}, 63) == WordPair{UINT64_C(1) << 63, UINT64_C(1) << 63});
static_assert(shift_right(WordPair{1, 0}, 63) == WordPair{0, 2} && shift_right(WordPair{1, 2}, 0) == WordPair{1, 2});
static_assert(negated_if(true, UINT64_C(1)) == UINT64_MAX && negated_if(true, WordPair{0, 0}) == WordPair{0, 0});

}  // namespace
}  // namespace qv8numeric_tests
