// SPDX-License-Identifier: MIT
// The 256-bit intermediate: order of limbs, sign extension, and arithmetic modulo 2^256.
#include "wide/extended_numeric.h"

#include <gtest/gtest.h>

#include <vector>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

constexpr int kRandomCases = 20000;

// Each power of two and its neighbours, modulo 2^256: every place where a carry or a borrow can begin or end.
std::vector<ExtendedNumeric> edges() {
    constexpr unsigned exponents[] = {0,   1,   31,  32,  63,  64,  65,  95,  96,  127,
                                      128, 159, 160, 191, 192, 223, 224, 254, 255, 256};
    std::vector<ExtendedNumeric> values;
    for (const unsigned k : exponents) {
        for (const int neighbour : {-1, 0, 1}) values.push_back(wide(two_to(k) + neighbour));
    }
    values.push_back(ExtendedNumeric{{UINT64_MAX, 0, UINT64_MAX, 0}});
    values.push_back(ExtendedNumeric{{0, UINT64_MAX, 0, UINT64_MAX}});
    return values;
}

template <typename Check>
void for_every_two_values(Check check) {
    for (const ExtendedNumeric& a : edges()) {
        for (const ExtendedNumeric& b : edges()) check(a, b);
    }
    RandomValues random(1);
    for (int i = 0; i < kRandomCases; ++i) {
        const ExtendedNumeric a = wide(random.magnitude(256));
        const ExtendedNumeric b = wide(random.magnitude(256));
        check(a, b);
        if (testing::Test::HasFailure()) return;
    }
}

TEST(ExtendedNumeric, HasEightLimbsLowestFirst) {
    const ExtendedNumeric x{{0x1111111100000000, 0x3333333322222222, 0x5555555544444444, 0x7777777766666666}};
    for (unsigned i = 0; i < 8; ++i) EXPECT_EQ(limb(x, i), 0x11111111U * i) << i;
    for (unsigned i = 0; i < 8; ++i) {
        const ExtendedNumeric one_limb = wide(Integer{UINT32_MAX} << 32 * i);
        for (unsigned j = 0; j < 8; ++j) EXPECT_EQ(limb(one_limb, j), j == i ? UINT32_MAX : 0) << i << ", " << j;
    }
}

TEST(ExtendedNumeric, TakesInAMagnitude) {
    const ExtendedNumeric x = extend({UINT64_MAX, 1});
    EXPECT_EQ(x, (ExtendedNumeric{{1, UINT64_MAX, 0, 0}}));
}

struct SignRow {
    const char* name;
    Numeric value;
    ExtendedNumeric extended;
};

constexpr SignRow kSignRows[] = {
    {"zero", {0, 0}, {{0, 0, 0, 0}}},
    {"one", {1, 0}, {{1, 0, 0, 0}}},
    {"minus one fills both upper words", {UINT64_MAX, -1}, {{UINT64_MAX, UINT64_MAX, UINT64_MAX, UINT64_MAX}}},
    {"the largest", {UINT64_MAX, INT64_MAX}, {{UINT64_MAX, INT64_MAX, 0, 0}}},
    {"the smallest", {1, INT64_MIN}, {{1, UINT64_C(1) << 63, UINT64_MAX, UINT64_MAX}}},
    {"a low half with its top bit set is not negative", {UINT64_C(1) << 63, 0}, {{UINT64_C(1) << 63, 0, 0, 0}}},
};

TEST(ExtendedNumeric, KeepsTheSignedValue) {
    for (const SignRow& row : kSignRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(sign_extend(row.value), row.extended);
        EXPECT_EQ(sign_extend(row.value), wide(integer(row.value)));
    }
}

TEST(ExtendedNumeric, HasTwoHalves) {
    const ExtendedNumeric x{{1, 2, 3, 4}};
    EXPECT_EQ(low_half(x), (WordPair{2, 1}));
    EXPECT_EQ(high_half(x), (WordPair{4, 3}));
    EXPECT_EQ(join({4, 3}, {2, 1}), x);
}

TEST(ExtendedNumeric, IsZeroOddOrNegativeByItsBits) {
    EXPECT_TRUE(is_zero(ExtendedNumeric{}));
    EXPECT_FALSE(is_odd(ExtendedNumeric{}));
    EXPECT_FALSE(is_negative(ExtendedNumeric{}));
    for (unsigned bit = 0; bit < 256; ++bit) {
        const ExtendedNumeric x = wide(two_to(bit));
        EXPECT_FALSE(is_zero(x)) << bit;
        EXPECT_EQ(is_odd(x), bit == 0) << bit;
        EXPECT_EQ(is_negative(x), bit == 255) << bit;
    }
}

TEST(ExtendedNumeric, AddsWithTheCarryOut) {
    for_every_two_values([](const ExtendedNumeric& a, const ExtendedNumeric& b) {
        const Integer exact = integer(a) + integer(b);
        uint64_t carry = 0x5a5a5a5a5a5a5a5a;
        EXPECT_EQ(add(a, b, carry), wide(exact)) << a << " + " << b;
        EXPECT_EQ(Integer{carry}, exact >> 256) << a << " + " << b;
        EXPECT_EQ(add(a, b), wide(exact)) << a << " + " << b;
    });
}

TEST(ExtendedNumeric, SubtractsModulo2To256) {
    for_every_two_values([](const ExtendedNumeric& a, const ExtendedNumeric& b) {
        EXPECT_EQ(subtract(a, b), wide(integer(a) - integer(b))) << a << " - " << b;
    });
}

TEST(ExtendedNumeric, NegatesAndStepsModulo2To256) {
    for (const ExtendedNumeric& x : edges()) {
        EXPECT_EQ(increment(x), wide(integer(x) + 1)) << x;
        EXPECT_EQ(decrement(x), wide(integer(x) - 1)) << x;
        EXPECT_EQ(increased_by(x, false), x);
        EXPECT_EQ(increased_by(x, true), wide(integer(x) + 1)) << x;
        EXPECT_EQ(negated_if(false, x), x);
        EXPECT_EQ(negated_if(true, x), wide(-integer(x))) << x;
    }
}

TEST(ExtendedNumeric, SignIsPutBackOnTheLowHalf) {
    for (const ExtendedNumeric& x : edges()) {
        EXPECT_EQ(with_sign(x, false), from_bits(pair(integer(x)))) << x;
        EXPECT_EQ(with_sign(x, true), from_bits(pair(-integer(x)))) << x;
    }
}

TEST(ExtendedNumeric, HoldsEveryProductOfTwoHalves) {
    for_every_two_values([](const ExtendedNumeric& a, const ExtendedNumeric& b) {
        for (const WordPair& left : {low_half(a), high_half(a)}) {
            const WordPair right = low_half(b);
            EXPECT_EQ(integer(multiply(left, right)), integer(left) * integer(right)) << left << " * " << right;
            EXPECT_EQ(integer(multiply(left, right.low)), integer(left) * right.low) << left << " * " << right.low;
        }
    });
    constexpr WordPair largest{UINT64_MAX, UINT64_MAX};
    EXPECT_EQ(multiply(largest, largest), wide((two_to(128) - 1) * (two_to(128) - 1)));
}

TEST(ExtendedNumeric, IsMultipliedByAWordModulo2To256) {
    for_every_two_values([](const ExtendedNumeric& a, const ExtendedNumeric& b) {
        const uint64_t factor = b.word[0];
        const Integer exact = integer(a) * factor;
        ExtendedNumeric product = a;
        unsigned overflow = 0;
        multiply_by(product, factor, overflow);
        EXPECT_EQ(product, wide(exact)) << a << " * " << factor;
        EXPECT_EQ(overflow != 0, exact >= two_to(256)) << a << " * " << factor;
    });
    ExtendedNumeric one{{1, 0, 0, 0}};
    unsigned overflow = 0x40;
    multiply_by(one, UINT64_MAX, overflow);
    EXPECT_EQ(overflow, 0x40U) << "what was there stays";
}

TEST(ExtendedNumeric, BitLengthAtEveryPowerOfTwo) {
    EXPECT_EQ(bit_length(ExtendedNumeric{}), 0U);
    for (unsigned k = 0; k < 256; ++k) {
        EXPECT_EQ(bit_length(wide(two_to(k))), k + 1) << "2^" << k;
        EXPECT_EQ(bit_length(wide(two_to(k) - 1)), k) << "2^" << k << " - 1";
    }
}

static_assert(sizeof(ExtendedNumeric) == 32);
static_assert(std::is_same_v<Doubled<uint64_t>, WordPair> && std::is_same_v<Doubled<WordPair>, ExtendedNumeric>);
static_assert(limb(sign_extend(Numeric{0, -1}), 7) == UINT32_MAX && limb(extend({1, 0}), 2) == 1);
static_assert(is_zero(add(ExtendedNumeric{{1, 0, 0, 0}}, negated_if(true, ExtendedNumeric{{1, 0, 0, 0}}))));
static_assert(is_zero(increment(decrement(ExtendedNumeric{}))) && is_negative(decrement(ExtendedNumeric{})));
static_assert(is_odd(subtract(ExtendedNumeric{}, ExtendedNumeric{{1, 0, 0, 0}})));
static_assert(high_half(multiply(WordPair{1, 0}, WordPair{1, 0})) == WordPair{0, 1});
static_assert(low_half(multiply(WordPair{0, 2}, WordPair{0, 3})) == WordPair{0, 6});
static_assert(bit_length(ExtendedNumeric{{0, 0, 1, 0}}) == 129);

}  // namespace
}  // namespace qv8numeric_tests
