// SPDX-License-Identifier: MIT
// The power tables against their definition and against the published values.
#include "wide/powers.h"

#include <gtest/gtest.h>

#include <iterator>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

struct PublishedRow {
    unsigned power;
    unsigned shift;
    unsigned multiplier;
};

constexpr PublishedRow kPowersOfTen[] = {
    {1, 0, 0xFFFFFFFF},        {10, 3, 0xCCCCCCCC},        {100, 6, 0xA3D70A3D},
    {1000, 9, 0x83126E97},     {10000, 13, 0xD1B71758},    {100000, 16, 0xA7C5AC47},
    {1000000, 19, 0x8637BD05}, {10000000, 23, 0xD6BF94D5}, {100000000, 26, 0xABCC7711},
};

constexpr PublishedRow kPowersOfFive[] = {
    {1, 0, 0xFFFFFFFF},          {5, 2, 0xCCCCCCCC},        {25, 4, 0xA3D70A3D},       {125, 6, 0x83126E97},
    {625, 9, 0xD1B71758},        {3125, 11, 0xA7C5AC47},    {15625, 13, 0x8637BD05},   {78125, 16, 0xD6BF94D5},
    {390625, 18, 0xABCC7711},    {1953125, 20, 0x89705F41}, {9765625, 23, 0xDBE6FECE}, {48828125, 25, 0xAFEBFF0B},
    {244140625, 27, 0x8CBCCC09},
};

// s = floor(log2 d); m = floor(2^(32+s) / d), at most 2^32 - 1.
void expect_definition(const divisor_t& entry, const Integer& d) {
    const unsigned shift = msb(d);
    const Integer multiplier = two_to(32 + shift) / d;
    EXPECT_EQ(entry.shift, shift);
    EXPECT_EQ(Integer{entry.multiplier}, multiplier > UINT32_MAX ? Integer{UINT32_MAX} : multiplier);
    EXPECT_EQ(Integer{entry.divisor}, d);
}

template <typename Powers, typename Divisors, typename Published>
void expect_tables(unsigned base, const Powers& powers, const Divisors& divisors, const Published& published) {
    ASSERT_EQ(std::size(powers), std::size(published));
    ASSERT_EQ(std::size(divisors), std::size(published));
    for (unsigned k = 0; k < std::size(published); ++k) {
        SCOPED_TRACE(k);
        EXPECT_EQ(Integer{powers[k]}, power(base, k));
        expect_definition(divisors[k], power(base, k));
        EXPECT_EQ(powers[k], published[k].power);
        EXPECT_EQ(divisors[k].shift, published[k].shift);
        EXPECT_EQ(divisors[k].multiplier, published[k].multiplier);
        EXPECT_EQ(divisors[k].divisor, published[k].power);
    }
}

TEST(Powers, OfTen) { expect_tables(10, power_of_ten, negative_power_of_ten, kPowersOfTen); }
TEST(Powers, OfFive) { expect_tables(5, power_of_five, negative_power_of_five, kPowersOfFive); }

TEST(Powers, AnyDivisorIsPreparedByTheSameRule) {
    RandomValues random(1);
    for (int i = 0; i < 10000; ++i) {
        const auto d = static_cast<unsigned>(random.word() & 0x3fffffff) >> random.below(30) | 1U << random.below(30);
        expect_definition(make_divisor(d), d);
        if (HasFailure()) return;
    }
}

static_assert(power_of_ten.size() == 9 && power_of_five.size() == 13);
static_assert(power_of_ten[8] == 100000000 && power_of_five[12] == 244140625);
static_assert(powers_of<2, 31>()[30] == 1U << 30);
static_assert(divisors_of(powers_of<2, 2>())[1].divisor == 2);

}  // namespace
}  // namespace qv8numeric_tests
