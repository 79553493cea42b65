// SPDX-License-Identifier: MIT
// The two moves by powers of ten in every width, for every distance, and the short roads against the general one.
#include "wide/scaling.h"

#include <gtest/gtest.h>

#include <vector>

#include "widths.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

// Every distance up to well beyond the cap at 87, and those that scales of 32 bits and their sums can be apart.
std::vector<uint64_t> distances() {
    std::vector<uint64_t> all;
    for (uint64_t digits = 1; digits <= 100; ++digits) all.push_back(digits);
    for (const uint64_t digits :
         {UINT64_C(0x7fffffff), UINT64_C(0x80000000), UINT64_C(0xffffffff), UINT64_C(0x100000001), UINT64_C(3) << 31,
          UINT64_C(0x200000005), static_cast<uint64_t>(INT64_MAX), UINT64_C(1) << 63}) {
        all.push_back(digits);
    }
    return all;
}

// At most ten passes of eight digits are made, then one of the rest.
unsigned applied(uint64_t digits) { return static_cast<unsigned>(digits < 88 ? digits : 80 + digits % 8); }

// The largest magnitude that is moved down in each width: that of an int64, of a coefficient, and all there is.
template <class Magnitude>
Integer largest() {
    return kBits<Magnitude> == 256 ? two_to(256) - 1 : two_to(kBits<Magnitude> - 1);
}

template <class Magnitude>
class Scaling : public testing::Test {};
TYPED_TEST_SUITE(Scaling, Widths, WidthNames);

// ---- Down ----

// The exact fraction, not the one that the capped power would leave.
Fraction fraction_after(const Integer& x, uint64_t digits) {
    if (digits > 100) return x == 0 ? Fraction::nothing : Fraction::below_half;  // 2^256 < 10^78
    const Integer divisor = power(10, static_cast<unsigned>(digits));
    return exact_fraction(x % divisor, divisor);
}

// On the road that its width and the distance choose, and on the general one.
template <class Magnitude>
void expect_scaled_down(const Integer& x, uint64_t digits) {
    const Integer quotient = digits > 100 ? Integer{0} : x / power(10, static_cast<unsigned>(digits));
    const Fraction fraction = fraction_after(x, digits);
    auto scaled = in_width<Magnitude>(x);
    EXPECT_EQ(scale_down(scaled, digits), fraction) << x << " down by " << digits;
    EXPECT_EQ(integer(scaled), quotient) << x << " down by " << digits;
    if constexpr (kBits<Magnitude> == 64) {
        if (digits <= word_digits) {
            EXPECT_EQ(Integer{divide_by_power(in_width<Magnitude>(x), digits)}, quotient) << x << " down by " << digits;
        }
    }
    ExtendedNumeric general = wide(x);
    EXPECT_EQ(scale_down_in_limbs(general, digits), fraction) << x << " down by " << digits << " on limbs";
    EXPECT_EQ(integer(general), quotient) << x << " down by " << digits << " on limbs";
}

TYPED_TEST(Scaling, DownAroundMultiplesAndHalves) {
    const Integer top = largest<TypeParam>();
    for (const uint64_t digits : distances()) {
        const Integer unit = power(10, applied(digits));
        const Integer last = top / unit * unit;
        for (const Integer& multiple : {Integer{0}, unit, Integer(unit * 7), Integer(last - unit), last}) {
            for (const Integer& fraction : {Integer{-1}, Integer{0}, Integer{1}, Integer(unit / 2 - 1),
                                            Integer(unit / 2), Integer(unit / 2 + 1), Integer(unit - 1)}) {
                const Integer x = multiple + fraction;
                if (x >= 0 && x <= top) expect_scaled_down<TypeParam>(x, digits);
            }
        }
        expect_scaled_down<TypeParam>(top - 1, digits);
        expect_scaled_down<TypeParam>(top, digits);
        if (this->HasFailure()) return;
    }
}

// A half is seen across every boundary between two passes, and so is what spoils it, digit by digit.
TYPED_TEST(Scaling, DownEveryDigitBelowAHalfCounts) {
    for (unsigned digits = 1; digits <= 77; ++digits) {
        const Integer half = power(10, digits) / 2;
        for (unsigned below = 0; below + 1 < digits; ++below) {
            if (half + power(10, below) > largest<TypeParam>()) continue;
            expect_scaled_down<TypeParam>(half + power(10, below), digits);
            expect_scaled_down<TypeParam>(half - power(10, below), digits);
        }
    }
}

TYPED_TEST(Scaling, DownAtRandom) {
    RandomValues random(kBits<TypeParam>);
    constexpr unsigned bits = kBits<TypeParam> == 256 ? 256 : kBits<TypeParam> - 1;
    for (const uint64_t digits : distances()) {
        for (int i = 0; i < 100; ++i) expect_scaled_down<TypeParam>(random.magnitude(bits), digits);
        if (this->HasFailure()) return;
    }
}

struct RoadRow {
    const char* name;
    Integer x;
    uint64_t digits;
    Integer quotient;
    Fraction fraction;
};

TEST(ScaleDown, WordAtTheEndOfItsRoad) {
    const RoadRow rows[] = {
        {"2^63, 9.2 of 10^18", two_to(63), 18, 9, Fraction::below_half},
        {"2^63, 0.92 of the last power in a word", two_to(63), 19, 0, Fraction::above_half},
        {"half of the last power in a word", 5 * power(10, 18), 19, 0, Fraction::exactly_half},
        {"half of it and one", 5 * power(10, 18) + 1, 19, 0, Fraction::above_half},
        {"half of it less one", 5 * power(10, 18) - 1, 19, 0, Fraction::below_half},
        {"2^63, 0.09 of the first power beyond", two_to(63), 20, 0, Fraction::below_half},
        {"one, of the first power beyond", 1, 20, 0, Fraction::below_half},
        {"zero, of the first power beyond", 0, 20, 0, Fraction::nothing},
    };
    for (const RoadRow& row : rows) {
        SCOPED_TRACE(row.name);
        auto x = in_width<uint64_t>(row.x);
        EXPECT_EQ(scale_down(x, row.digits), row.fraction);
        EXPECT_EQ(Integer{x}, row.quotient);
    }
}

TEST(ScaleDown, PairAtTheEndOfItsRoads) {
    const RoadRow rows[] = {
        {"2^127 by the last power in a word", two_to(127), 19, Integer{"17014118346046923173"}, Fraction::below_half},
        {"2^127 by the first one in two", two_to(127), 20, Integer{"1701411834604692317"}, Fraction::below_half},
        {"2^127, 1.7 of the last power", two_to(127), 38, 1, Fraction::above_half},
        {"one and a half of the last power", 15 * power(10, 37), 38, 1, Fraction::exactly_half},
        {"half of the last power", 5 * power(10, 37), 38, 0, Fraction::exactly_half},
        {"half of it and one", 5 * power(10, 37) + 1, 38, 0, Fraction::above_half},
        {"half of it less one", 5 * power(10, 37) - 1, 38, 0, Fraction::below_half},
        {"one less than the last power", power(10, 38) - 1, 38, 0, Fraction::above_half},
        {"2^127, 0.17 of the first power beyond", two_to(127), 39, 0, Fraction::below_half},
        {"one, of the first power beyond", 1, 39, 0, Fraction::below_half},
        {"zero, of the first power beyond", 0, 39, 0, Fraction::nothing},
    };
    for (const RoadRow& row : rows) {
        SCOPED_TRACE(row.name);
        WordPair x = pair(row.x);
        EXPECT_EQ(scale_down(x, row.digits), row.fraction);
        EXPECT_EQ(integer(x), row.quotient);
    }
}

TEST(ScaleDown, OneStepAsLongAsTheQuotientIsTwoWords) {
    for (unsigned digits = 1; digits <= pair_digits; ++digits) {
        const Integer unit = power(10, digits);
        const Integer first_beyond = two_to(128) * unit;
        for (const Integer& x :
             {Integer{0}, Integer{1}, Integer(unit - 1), unit, Integer(two_to(64) * unit - 1),
              Integer(two_to(64) * unit), Integer(two_to(127) * unit - 1), Integer(first_beyond - unit),
              Integer(first_beyond - unit / 2 - 1), Integer(first_beyond - unit / 2), Integer(first_beyond - 1)}) {
            SCOPED_TRACE(x);
            LongDivision division{};
            ASSERT_TRUE(divide_by_power(wide(x), digits, division)) << digits;
            EXPECT_EQ(integer(division.quotient), x / unit) << digits;
            EXPECT_EQ(division.dropped, exact_fraction(x % unit, unit)) << digits;
            expect_scaled_down<ExtendedNumeric>(x, digits);
        }
        for (const Integer& x : {first_beyond, Integer(first_beyond + 1), two_to(255), Integer(two_to(256) - 1)}) {
            LongDivision division{};
            EXPECT_FALSE(divide_by_power(wide(x), digits, division)) << x << " by " << digits;
            expect_scaled_down<ExtendedNumeric>(x, digits);
        }
    }
}

// In two steps as long as the first one leaves two words; the second one drops what the first one has to be joined to.
TEST(ScaleDown, TwoStepsAtTheirEnds) {
    const Integer unit = power(10, 38);
    for (uint64_t digits = 37; digits <= 79; ++digits) {
        for (const Integer& quotient : {Integer{0}, Integer{1}, power(10, 19), Integer(power(10, 38) / 2),
                                        Integer(power(10, 38) - 1), power(10, 38), Integer(3 * power(10, 38) / 2),
                                        Integer(two_to(128) - 1), two_to(128), Integer(two_to(129) - 1)}) {
            for (const Integer& dropped :
                 {Integer{0}, Integer{1}, Integer(unit / 2 - 1), Integer(unit / 2), Integer(unit - 1)}) {
                expect_scaled_down<ExtendedNumeric>(quotient * unit + dropped, digits);
            }
        }
        if (HasFailure()) return;
    }
}

TEST(ScaleDown, ByNoDigitsOnLimbsDropsNothing) {
    ExtendedNumeric x = wide(two_to(200) + 25);
    EXPECT_EQ(scale_down_in_limbs(x, 0), Fraction::nothing);
    EXPECT_EQ(x, wide(two_to(200) + 25));
}

// ---- Up ----

// With the same on the general road.
void expect_scaled_up(const Integer& x, uint64_t digits) {
    const Integer product = x * power(10, applied(digits));
    ExtendedNumeric scaled = wide(x), general = wide(x);
    unsigned overflow = 0, general_overflow = 0;
    scale_up(scaled, digits, overflow);
    EXPECT_EQ(scaled, wide(product)) << x << " up by " << digits;
    EXPECT_EQ(overflow != 0, product >= two_to(256)) << x << " up by " << digits;
    scale_up_in_limbs(general, digits, general_overflow);
    EXPECT_EQ(general, wide(product)) << x << " up by " << digits << " on limbs";
    EXPECT_EQ(general_overflow != 0, product >= two_to(256)) << x << " up by " << digits << " on limbs";
}

// A product that does not fit in two words is told, and not kept.
void expect_pair_scaled_up(const Integer& x, uint64_t digits) {
    const Integer product = x * power(10, applied(digits));
    if (digits <= pair_digits) {
        EXPECT_EQ(multiply_by_power(pair(x), digits), wide(product)) << x << " up by " << digits;
    }
    WordPair scaled = pair(x);
    unsigned overflow = 0;
    scale_up(scaled, digits, overflow);
    EXPECT_EQ(overflow != 0, product >= two_to(128)) << x << " up by " << digits;
    if (overflow != 0) return;
    EXPECT_EQ(integer(scaled), product) << x << " up by " << digits;
}

std::vector<uint64_t> distances_up() {
    std::vector<uint64_t> all = distances();
    all.push_back(0);
    return all;
}

TEST(ScaleUp, IsExactUntilItLeavesTheTop) {
    for (const uint64_t digits : distances_up()) {
        const Integer unit = power(10, applied(digits));
        for (const Integer& limit : {two_to(64), two_to(127), two_to(128), two_to(192), two_to(256)}) {
            const Integer last_that_stays = (limit - 1) / unit;
            for (const Integer& x : {Integer{0}, Integer{1}, last_that_stays, Integer(last_that_stays + 1),
                                     Integer(two_to(127) - 1), Integer(limit / 2), Integer(limit - 1)}) {
                if (x < two_to(256)) expect_scaled_up(x, digits);
                if (x < two_to(128)) expect_pair_scaled_up(x, digits);
            }
        }
        if (HasFailure()) return;
    }
}

TEST(ScaleUp, AtRandom) {
    RandomValues random(1);
    for (const uint64_t digits : distances_up()) {
        for (int i = 0; i < 100; ++i) {
            expect_scaled_up(random.magnitude(256), digits);
            expect_pair_scaled_up(random.magnitude(128), digits);
        }
        if (HasFailure()) return;
    }
}

TEST(ScaleUp, OverflowIsKept) {
    ExtendedNumeric x{{1, 0, 0, 0}};
    WordPair y{0, 1};
    unsigned overflow = 0x40;
    scale_up(x, 9, overflow);
    scale_up(x, 29, overflow);
    scale_up(y, 19, overflow);
    scale_up(y, 19, overflow);
    EXPECT_EQ(overflow, 0x40U);
    scale_up(x, 77, overflow);
    EXPECT_EQ(overflow & 0x40, 0x40U);
    EXPECT_NE(overflow & ~0x40U, 0U);
}

struct CapRow {
    const char* name;
    uint64_t digits;
    unsigned power;
};

constexpr CapRow kCapRows[] = {
    {"the last distance below the cap", 87, 87},
    {"the first at the cap is no further than 80", 88, 80},
    {"one more", 89, 81},
    {"the last before it starts again", 95, 87},
    {"again", 96, 80},
    {"an int32 away, 2^31 - 1 being 7 more than a multiple of 8", 0x7fffffff, 87},
    {"two int32 away, 2^32 being a multiple of 8", 0x100000000, 80},
};

TEST(ScaleUp, PowerIsCapped) {
    for (const CapRow& row : kCapRows) {
        SCOPED_TRACE(row.name);
        ExtendedNumeric x{{1, 0, 0, 0}};
        unsigned overflow = 0;
        scale_up(x, row.digits, overflow);
        EXPECT_EQ(x, wide(power(10, row.power)));
        EXPECT_NE(overflow, 0U);
    }
}

// ---- Down, and back ----

TYPED_TEST(Scaling, WhatWasKeptComesBackAsAMultiple) {
    if constexpr (kBits<TypeParam> < 256) {
        constexpr unsigned most = kBits<TypeParam> == 64 ? word_digits : pair_digits;
        RandomValues random(3);
        for (unsigned digits = 1; digits <= most; ++digits) {
            const Integer unit = power(10, digits);
            for (int i = 0; i < 50; ++i) {
                const Integer x = i == 0 ? largest<TypeParam>() : random.magnitude(kBits<TypeParam> - 1);
                auto kept = in_width<TypeParam>(x);
                (void)scale_down(kept, digits);
                EXPECT_EQ(integer(scaled_back_up(kept, digits)), x - x % unit) << x << " to a multiple of " << unit;
            }
        }
    }
}

// ---- Either way ----

struct WayRow {
    const char* name;
    int64_t places;
    uint64_t scaled;  // from 12345
    Fraction fraction;
};

constexpr WayRow kWayRows[] = {
    {"up", 2, 1234500, Fraction::nothing},
    {"down", -2, 123, Fraction::below_half},
    {"down to a half", -1, 1234, Fraction::exactly_half},
    {"nowhere", 0, 12345, Fraction::nothing},
    {"down to nothing", -INT64_MAX, 0, Fraction::below_half},
    {"down as far as can be said", INT64_MIN, 0, Fraction::below_half},
};

// One word is only moved down.
TYPED_TEST(Scaling, SignOfThePlacesSaysWhichWay) {
    for (const WayRow& row : kWayRows) {
        if (kBits<TypeParam> == 64 && row.places >= 0) continue;
        SCOPED_TRACE(row.name);
        auto x = in_width<TypeParam>(12345);
        unsigned overflow = 0;
        EXPECT_EQ(scale_by(x, row.places, overflow), row.fraction);
        EXPECT_EQ(x, in_width<TypeParam>(row.scaled));
        EXPECT_EQ(overflow, 0U);
    }
}

TYPED_TEST(Scaling, UpReportsOnlyOverflowAndDownOnlyWhatWasDropped) {
    auto x = in_width<TypeParam>(largest<TypeParam>());
    unsigned overflow = 0;
    if constexpr (kBits < TypeParam >> 64) {
        EXPECT_EQ(scale_by(x, 1, overflow), Fraction::nothing);
        EXPECT_NE(overflow, 0U);
    }
    x = in_width<TypeParam>(largest<TypeParam>());
    overflow = 0x40;
    EXPECT_EQ(scale_by(x, -90, overflow), Fraction::below_half);
    EXPECT_EQ(overflow, 0x40U);
}

// ---- Signed values ----

struct MovedRow {
    const char* name;
    const char* value;
    int64_t places;
    Integer moved;
    Fraction dropped;
};

TEST(MovedBy, SignStaysAndTheMagnitudeMoves) {
    const MovedRow rows[] = {
        {"nothing to move", "-12345", 0, -12345, Fraction::nothing},
        {"up", "12345", 2, 1234500, Fraction::nothing},
        {"up, negative", "-12345", 2, -1234500, Fraction::nothing},
        {"down towards zero", "12345", -2, 123, Fraction::below_half},
        {"down towards zero, negative", "-12345", -2, -123, Fraction::below_half},
        {"a half below zero", "-12345", -1, -1234, Fraction::exactly_half},
        {"down exactly, negative", "-12300", -2, -123, Fraction::nothing},
        {"down to zero, which has no sign", "-1", -1, 0, Fraction::below_half},
        {"-2^64 down: -1.8", "-2^64", -19, -1, Fraction::above_half},
        {"the smallest value as far up as 256 bits allow", "-2^127+1", 38, (1 - two_to(127)) * power(10, 38),
         Fraction::nothing},
        {"out of the top, modulo 2^256", "2^127-1", 39, (two_to(127) - 1) * power(10, 39), Fraction::nothing},
        {"NaN as the -2^127 of its pattern, whose last digit is 8", "NaN", -1, -two_to(127) / 10, Fraction::above_half},
    };
    for (const MovedRow& row : rows) {
        SCOPED_TRACE(row.name);
        Fraction dropped = Fraction::nothing;
        EXPECT_EQ(moved_by(num(row.value), row.places, dropped), wide(row.moved));
        EXPECT_EQ(dropped, row.dropped);
    }
}

TEST(MovedUp, IsTheProductOfTheBitsInEitherWidth) {
    for (const char* value : {"0", "1", "-1", "2^63-1", "2^63", "-2^63", "2^64-1", "-2^64", "2^127-1", "-2^127+1"}) {
        const Integer exact = integer(num(value));
        for (unsigned digits = 0; digits <= 87; ++digits) {
            const Integer product = exact * power(10, digits);
            EXPECT_EQ(moved_up<ExtendedNumeric>(num(value), digits), wide(product)) << value << " up by " << digits;
            if (digits > word_digits) continue;
            EXPECT_EQ(moved_up<WordPair>(num(value), digits), pair(product)) << value << " up by " << digits;
        }
    }
}

// So a sum or difference of two such products stays in range.
TEST(MovedUp, EveryInt64StaysACoefficientUpToTheLastPowerInAWord) {
    for (const int64_t value : {INT64_MIN, INT64_MIN + 1, INT64_C(-1), INT64_C(1), INT64_MAX}) {
        const Numeric numeric = from_bits(pair(value));
        EXPECT_EQ(integer(from_bits(moved_up<WordPair>(numeric, word_digits))), value * power(10, word_digits));
    }
}

static_assert(passes_for(23).eights == 2 && passes_for(23).rest == 7);
static_assert(passes_for(UINT64_MAX).eights == 10 && passes_for(UINT64_MAX).rest == 7);
static_assert([] {
    ExtendedNumeric x{{7, 0, 0, 0}};
    unsigned overflow = 0;
    const Fraction up = scale_by(x, 12, overflow);
    const Fraction down = scale_by(x, -12, overflow);
    return x.word[0] == 7 && overflow == 0 && up == Fraction::nothing && down == Fraction::nothing;
}());
static_assert([] {
    uint64_t word = 25;
    WordPair two_words{0, 25};
    return scale_down(word, 1) == Fraction::exactly_half && word == 2 &&
           scale_down(two_words, 1) == Fraction::exactly_half && two_words == WordPair{0, 2};
}());

}  // namespace
}  // namespace qv8numeric_tests
