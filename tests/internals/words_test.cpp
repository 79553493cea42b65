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

TEST(Words, SumAndCarryMakeUpTheExactSum) {
    for_every_pair_of_words([](uint64_t a, uint64_t b) {
        for (const uint64_t carry_in : {UINT64_C(0), UINT64_C(1)}) {
            uint64_t carry = carry_in;
            const uint64_t sum = add_with_carry(a, b, carry);
            EXPECT_LE(carry, 1U);
            EXPECT_EQ(integer(WordPair{carry, sum}), Integer{a} + b + carry_in) << a << " + " << b << " + " << carry_in;
        }
    });
}

TEST(Words, DifferenceAndBorrowMakeUpTheExactDifference) {
    for_every_pair_of_words([](uint64_t a, uint64_t b) {
        for (const uint64_t borrow_in : {UINT64_C(0), UINT64_C(1)}) {
            uint64_t borrow = borrow_in;
            const uint64_t difference = subtract_with_borrow(a, b, borrow);
            EXPECT_LE(borrow, 1U);
            EXPECT_EQ(Integer{difference} - (Integer{borrow} << 64), Integer{a} - b - borrow_in)
                << a << " - " << b << " - " << borrow_in;
        }
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

TEST(WordPairs, WrappingMeansModulo2To128) {
    for_every_two_pairs([](const WordPair& a, const WordPair& b) {
        EXPECT_EQ(wrapping_add(a, b), pair(integer(a) + integer(b))) << a << " + " << b;
        EXPECT_EQ(wrapping_subtract(a, b), pair(integer(a) - integer(b))) << a << " - " << b;
        EXPECT_EQ(wrapping_negate(a), pair(-integer(a))) << a;
    });
}

TEST(WordPairs, OrderIsThatOfTheNumbers) {
    for_every_two_pairs([](const WordPair& a, const WordPair& b) {
        EXPECT_EQ(a == b, integer(a) == integer(b)) << a << ", " << b;
        EXPECT_EQ(a < b, integer(a) < integer(b)) << a << ", " << b;
        EXPECT_EQ(a >= b, integer(a) >= integer(b)) << a << ", " << b;
    });
}

// The same functions where the compiler does the computing.
static_assert(wrapping_add(UINT64_MAX, 2) == 1);
static_assert(wrapping_subtract(1, 2) == UINT64_MAX);
static_assert(wrapping_multiply(UINT64_MAX, UINT64_MAX) == 1);
static_assert(wrapping_negate(1) == UINT64_MAX);
static_assert([] {
    uint64_t carry = 1;
    return add_with_carry(UINT64_MAX, UINT64_MAX, carry) == UINT64_MAX && carry == 1;
}());
static_assert([] {
    uint64_t borrow = 1;
    return subtract_with_borrow(0, UINT64_MAX, borrow) == 0 && borrow == 1;
}());
static_assert(multiply_words(UINT64_MAX, UINT64_MAX) == WordPair{UINT64_MAX - 1, 1});
static_assert(multiply_words_portable(UINT64_MAX, UINT64_MAX) == WordPair{UINT64_MAX - 1, 1});
static_assert(multiply_add(UINT64_MAX, UINT64_MAX, UINT64_MAX) == WordPair{UINT64_MAX, 0});
static_assert(wrapping_add(WordPair{0, UINT64_MAX}, WordPair{0, 1}) == WordPair{1, 0});
static_assert(wrapping_subtract(WordPair{1, 0}, WordPair{0, 1}) == WordPair{0, UINT64_MAX});
static_assert(wrapping_negate(WordPair{0, 1}) == WordPair{UINT64_MAX, UINT64_MAX});
static_assert(WordPair{0, UINT64_MAX} < WordPair{1, 0});

}  // namespace
}  // namespace qv8numeric_tests
