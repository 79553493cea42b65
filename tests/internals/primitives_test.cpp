// SPDX-License-Identifier: MIT
// The two primitives on 256 bits, and the estimate behind division by a prepared divisor.
#include "wide/primitives.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <vector>

#include "wide/powers.h"
#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

const Integer kLimit = two_to(256);

std::vector<divisor_t> table_divisors() {
    std::vector<divisor_t> divisors(negative_power_of_ten.begin(), negative_power_of_ten.end());
    divisors.insert(divisors.end(), negative_power_of_five.begin(), negative_power_of_five.end());
    return divisors;
}

// ---- mul_unsigned ----

struct Product {
    ExtendedNumeric value;
    unsigned overflow;
};

// Into an object of its own and in place; both must agree.
Product multiplied(const ExtendedNumeric& a, unsigned factor, unsigned overflow_before) {
    Product separate{kWidePoison, overflow_before};
    mul_unsigned(a, factor, separate.value, separate.overflow);
    Product in_place{a, overflow_before};
    mul_unsigned(in_place.value, factor, in_place.value, in_place.overflow);
    EXPECT_EQ(in_place.value, separate.value) << a << " * " << factor << " in place";
    EXPECT_EQ(in_place.overflow, separate.overflow) << a << " * " << factor << " in place";
    return separate;
}

struct ProductRow {
    const char* name;
    Integer a;
    unsigned factor;
    unsigned overflow_before;
    Integer product;
    unsigned overflow;
};

TEST(MulUnsigned, NamedProducts) {
    const ProductRow rows[] = {
        {"the top bit leaves", two_to(255), 2, 0, 0, 1},
        {"the top bit stays where it is", two_to(255), 1, 0, two_to(255), 0},
        {"a factor of 0 clears the value", kLimit - 1, 0, 0, 0, 0},
        {"a factor of 0 leaves overflow alone", kLimit - 1, 0, 0x40, 0, 0x40},
        {"overflow is ORed into", two_to(255), 2, 0x80000000, 0, 0x80000001},
        {"overflow is not cleared by a product that fits", 3, 5, 7, 15, 7},
        {"all that leaves the top limb", kLimit - 1, UINT32_MAX, 0, kLimit - UINT32_MAX, UINT32_MAX - 1},
        {"a carry through every limb", kLimit / 2 - 1, 2, 0, kLimit - 2, 0},
        {"zero", 0, UINT32_MAX, 0, 0, 0},
        {"eight digits from the lowest limb into the next", UINT32_MAX, 100000000, 0, Integer{UINT32_MAX} * 100000000,
         0},
    };
    for (const ProductRow& row : rows) {
        SCOPED_TRACE(row.name);
        const Product product = multiplied(wide(row.a), row.factor, row.overflow_before);
        EXPECT_EQ(product.value, wide(row.product));
        EXPECT_EQ(product.overflow, row.overflow);
    }
}

TEST(MulUnsigned, IsTheProductModulo2To256AndWhatLeftIt) {
    RandomValues random(1);
    for (int i = 0; i < 50000; ++i) {
        const Integer a = random.magnitude(256);
        const auto factor = static_cast<unsigned>(random.word());
        const Integer exact = a * factor;
        const Product product = multiplied(wide(a), factor, 0);
        ASSERT_EQ(product.value, wide(exact)) << a << " * " << factor;
        ASSERT_EQ(Integer{product.overflow}, exact >> 256) << a << " * " << factor;
    }
}

// ---- div_unsigned ----

struct Quotient {
    ExtendedNumeric value;
    unsigned code;
    unsigned sticky;
};

Quotient divided(const ExtendedNumeric& a, const divisor_t& d, unsigned code_before, unsigned sticky_before) {
    Quotient separate{kWidePoison, code_before, sticky_before};
    div_unsigned(a, d, separate.value, separate.code, separate.sticky);
    Quotient in_place{a, code_before, sticky_before};
    div_unsigned(in_place.value, d, in_place.value, in_place.code, in_place.sticky);
    EXPECT_EQ(in_place.value, separate.value) << a << " / " << d.divisor << " in place";
    EXPECT_EQ(in_place.code, separate.code) << a << " / " << d.divisor << " in place";
    EXPECT_EQ(in_place.sticky, separate.sticky) << a << " / " << d.divisor << " in place";
    return separate;
}

unsigned code_by_definition(const Integer& remainder, unsigned divisor) {
    return remainder == 0 ? 0 : static_cast<unsigned>(Integer{0x80000000} - divisor + 2 * remainder);
}

void expect_quotient(const Integer& a, const divisor_t& d) {
    constexpr unsigned code_before = 0x01020304;
    constexpr unsigned sticky_before = 0x10203040;
    const Quotient quotient = divided(wide(a), d, code_before, sticky_before);
    EXPECT_EQ(quotient.value, wide(a / d.divisor)) << a << " / " << d.divisor;
    EXPECT_EQ(quotient.code, code_by_definition(a % d.divisor, d.divisor)) << a << " / " << d.divisor;
    EXPECT_EQ(quotient.sticky, code_before | sticky_before) << a << " / " << d.divisor;
}

struct QuotientRow {
    const char* name;
    Integer a;
    unsigned power;  // of ten
    unsigned code_before;
    unsigned sticky_before;
    Integer quotient;
    unsigned code;
    unsigned sticky;
};

TEST(DivUnsigned, NamedQuotients) {
    const QuotientRow rows[] = {
        {"by 1 the dividend stays", kLimit - 1, 0, 0, 0, kLimit - 1, 0, 0},
        {"1 by 10^8 is below one half", 1, 8, 0, 0, 0, 0x7A0A1F02, 0},
        {"50000000 by 10^8 is one half", 50000000, 8, 0, 0, 0, 0x80000000, 0},
        {"99999999 by 10^8 is above one half", 99999999, 8, 0, 0, 0, 0x85F5E0FE, 0},
        {"100000000 by 10^8 is exact", 100000000, 8, 0, 0, 1, 0, 0},
        {"zero drops nothing", 0, 8, 0, 0, 0, 0, 0},
        {"the code of the step before becomes sticky", 20, 1, 0x7A0A1F02, 0, 2, 0, 0x7A0A1F02},
        {"sticky is ORed into", 25, 1, 0x0000FF00, 0x00FF0000, 2, 0x80000000, 0x00FFFF00},
        {"a remainder that a zero lowest limb takes up", two_to(32), 1, 0, 0, 429496729, 0x80000002, 0},
        {"nothing left for a zero lowest limb", Integer{10} << 32, 1, 0, 0, two_to(32), 0, 0},
        {"zero limbs between others", (Integer{10} << 224) + 7, 1, 0, 0, two_to(224), 0x80000004, 0},
    };
    for (const QuotientRow& row : rows) {
        SCOPED_TRACE(row.name);
        const Quotient quotient =
            divided(wide(row.a), negative_power_of_ten[row.power], row.code_before, row.sticky_before);
        EXPECT_EQ(quotient.value, wide(row.quotient));
        EXPECT_EQ(quotient.code, row.code);
        EXPECT_EQ(quotient.sticky, row.sticky);
    }
}

TEST(DivUnsigned, ChainKeepsItsHistory) {
    ExtendedNumeric x{{100000001, 0, 0, 0}};
    unsigned code = 0;
    unsigned sticky = 0;
    div_unsigned(x, negative_power_of_ten[8], x, code, sticky);
    EXPECT_EQ(x, (ExtendedNumeric{{1, 0, 0, 0}}));
    EXPECT_EQ(code, 0x7A0A1F02U);
    EXPECT_EQ(sticky, 0U);
    div_unsigned(x, negative_power_of_ten[8], x, code, sticky);
    EXPECT_TRUE(is_zero(x));
    EXPECT_EQ(code, 0x7A0A1F02U);
    EXPECT_EQ(sticky, 0x7A0A1F02U);
    div_unsigned(x, negative_power_of_ten[8], x, code, sticky);
    EXPECT_EQ(code, 0U) << "a step that drops nothing";
    EXPECT_EQ(sticky, 0x7A0A1F02U) << "and the history remains";
}

TEST(DivUnsigned, EveryTableEntryAtTheEdges) {
    for (const divisor_t& d : table_divisors()) {
        const Integer divisor = d.divisor;
        for (unsigned shift = 0; shift < 256; shift += 32) {
            const Integer limb_unit = two_to(shift);
            for (const Integer& a : {divisor * limb_unit - 1, divisor * limb_unit, divisor * limb_unit + 1,
                                     (divisor / 2) * limb_unit, limb_unit, kLimit - limb_unit}) {
                expect_quotient(a % kLimit, d);
            }
        }
        expect_quotient(kLimit - 1, d);
        expect_quotient(kLimit - 1 - (kLimit - 1) % divisor, d);
    }
}

TEST(DivUnsigned, EveryTableEntryAtRandom) {
    RandomValues random(2);
    for (const divisor_t& d : table_divisors()) {
        for (int i = 0; i < 1000; ++i) expect_quotient(random.magnitude(256), d);
        if (HasFailure()) return;
    }
}

// ---- The estimate ----

uint64_t estimate(uint64_t x, const divisor_t& d) { return (x >> d.shift) * d.multiplier >> 32; }

// The estimate is the same for the 2^s numbers of a block, so where x/d exceeds it most, x is the last of its block;
// and since 2^s/d >= m/2^32, the last block is the one. One comparison there is a proof for all x below d * 2^32.
TEST(Estimate, IsNeverAboveAndLessThanThreeBelow) {
    for (const divisor_t& d : table_divisors()) {
        SCOPED_TRACE(d.divisor);
        const Integer block = two_to(d.shift);
        const Integer limit = Integer{d.divisor} << 32;
        EXPECT_LE(Integer{d.multiplier} * d.divisor, block << 32) << "so never above";
        const Integer last_block = (limit - 1) / block;
        EXPECT_LT(last_block * d.multiplier, two_to(64)) << "so the product fits";
        // x/d - block number * m/2^32 in units of 1 / (d * 2^32); rounding the estimate down adds less than one.
        const Integer distance = (((last_block + 1) * block - 1) << 32) - last_block * d.multiplier * d.divisor;
        EXPECT_LT(distance, 2 * limit) << "so less than three below";
    }
}

struct Corrected {
    bool right;
    uint64_t corrections;
};

Corrected corrected(uint64_t x, const divisor_t& d) {
    const LimbQuotient result = divide_limb(x, d);
    const uint64_t guess = estimate(x, d);
    const uint64_t exact = x / d.divisor;
    return {guess <= exact && result.quotient == exact && result.remainder == x % d.divisor, exact - guess};
}

// Around multiples of the divisor, where the quotient steps, and around blocks, where the estimate does.
TEST(Estimate, IsCorrectedAtMostTwiceForTheTables) {
    RandomValues random(3);
    for (const divisor_t& d : table_divisors()) {
        SCOPED_TRACE(d.divisor);
        const uint64_t limit = uint64_t{d.divisor} << 32;
        uint64_t most = 0;
        const auto check = [&](uint64_t x) {
            const Corrected result = corrected(x, d);
            if (!result.right) ADD_FAILURE() << x << " / " << d.divisor;
            most = std::max(most, result.corrections);
        };
        const auto check_around = [&](uint64_t x) {
            if (x > 0) check(x - 1);
            if (x < limit) check(x);
            if (x + 1 < limit) check(x + 1);
        };
        for (uint64_t i = 0; i < 4000; ++i) {
            check_around(i * d.divisor);
            check_around(limit - i * d.divisor);
            check_around(random.below(uint64_t{1} << 32) * d.divisor);
            check_around(random.below(limit) >> d.shift << d.shift);
            check_around((i + 1) << d.shift);
            check_around((limit >> d.shift << d.shift) - (i << d.shift));
        }
        check(limit - 1);
        EXPECT_GE(most, 1U) << "or the walk has missed every step";
        EXPECT_LE(most, 2U);
    }
}

struct CorrectionRow {
    const char* name;
    unsigned divisor;
    uint64_t x;
    uint64_t corrections;
};

constexpr CorrectionRow kCorrectionRows[] = {
    {"none", 10, 0, 0},
    {"one, for every nonzero dividend of 1", 1, 1, 1},
    {"one, at the largest dividend of 10", 10, (UINT64_C(10) << 32) - 1, 1},
    {"two, just below it", 10, (UINT64_C(10) << 32) - 9, 2},
    {"three, for a divisor just below a power of two", 1069080838, 4591613548899074047, 3},
};

TEST(Estimate, IsCorrectedUpToThreeTimes) {
    for (const CorrectionRow& row : kCorrectionRows) {
        SCOPED_TRACE(row.name);
        const Corrected result = corrected(row.x, make_divisor(row.divisor));
        EXPECT_TRUE(result.right);
        EXPECT_EQ(result.corrections, row.corrections);
    }
}

TEST(Estimate, HoldsForEveryDivisorThatIsAllowed) {
    RandomValues random(4);
    for (int i = 0; i < 100000; ++i) {
        const auto divisor =
            static_cast<unsigned>(random.word() & 0x3fffffff) >> random.below(30) | 1U << random.below(30);
        const divisor_t d = make_divisor(divisor);
        const uint64_t limit = uint64_t{divisor} << 32;
        for (const uint64_t x : {random.below(limit), limit - 1 - random.below(divisor), limit - 1}) {
            ASSERT_TRUE(corrected(x, d).right) << x << " / " << divisor;
        }
    }
}

// Three 32-bit words in this order.
static_assert(sizeof(divisor_t) == 12 && offsetof(divisor_t, shift) == 0);
static_assert(offsetof(divisor_t, multiplier) == 4 && offsetof(divisor_t, divisor) == 8);
static_assert([] {
    ExtendedNumeric x{{0, 0, 0, UINT64_C(1) << 63}};
    unsigned overflow = 0;
    mul_unsigned(x, 2, x, overflow);
    return is_zero(x) && overflow == 1;
}());
static_assert([] {
    ExtendedNumeric x{{150000000, 0, 0, 0}};
    unsigned code = 0;
    unsigned sticky = 0;
    div_unsigned(x, make_divisor(100000000), x, code, sticky);
    return x.word[0] == 1 && code == one_half && sticky == 0;
}());
static_assert(divide_limb(99, make_divisor(10)).quotient == 9 && divide_limb(99, make_divisor(10)).remainder == 9);

}  // namespace
}  // namespace qv8numeric_tests
