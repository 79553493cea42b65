// SPDX-License-Identifier: MIT
// The two moves by powers of ten, for every distance.
#include "wide/scaling.h"

#include <gtest/gtest.h>

#include <vector>

#include "wide/rounding.h"
#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

const Integer kLimit = two_to(256);

// Every distance up to well beyond the cap at 87, and those that scales of 32 bits and their sums can be apart.
std::vector<uint64_t> distances() {
    std::vector<uint64_t> all;
    for (uint64_t digits = 0; digits <= 100; ++digits) all.push_back(digits);
    for (const uint64_t digits :
         {UINT64_C(0x7fffffff), UINT64_C(0x80000000), UINT64_C(0xffffffff), UINT64_C(0x100000001), UINT64_C(3) << 31,
          UINT64_C(0x200000005), static_cast<uint64_t>(INT64_MAX)}) {
        all.push_back(digits);
    }
    return all;
}

// At most ten passes of eight digits are made, then one of the rest.
unsigned applied(uint64_t digits) { return static_cast<unsigned>(digits < 88 ? digits : 80 + digits % 8); }

// ---- Up ----

void expect_scaled_up(const Integer& x, uint64_t digits) {
    const Integer product = x * power(10, applied(digits));
    ExtendedNumeric scaled = wide(x);
    unsigned overflow = 0;
    scale_up(scaled, digits, overflow);
    EXPECT_EQ(scaled, wide(product)) << x << " up by " << digits;
    EXPECT_EQ(overflow != 0, product >= kLimit) << x << " up by " << digits;
}

TEST(ScaleUp, IsExactUntilItLeavesTheTop) {
    for (const uint64_t digits : distances()) {
        const Integer last_that_stays = (kLimit - 1) / power(10, applied(digits));
        for (const Integer& x : {Integer{0}, Integer{1}, last_that_stays, Integer(last_that_stays + 1), two_to(127) - 1,
                                 two_to(255), kLimit - 1}) {
            if (x < kLimit) expect_scaled_up(x, digits);
        }
    }
}

TEST(ScaleUp, AtRandom) {
    RandomValues random(1);
    for (const uint64_t digits : distances()) {
        for (int i = 0; i < 100; ++i) expect_scaled_up(random.magnitude(256), digits);
        if (HasFailure()) return;
    }
}

TEST(ScaleUp, OverflowIsKept) {
    ExtendedNumeric x{{1, 0, 0, 0}};
    unsigned overflow = 0x40;
    scale_up(x, 9, overflow);
    EXPECT_EQ(overflow, 0x40U);
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

// ---- Down ----

// The exact fraction, not the one that the capped power would leave.
Fraction exact_fraction(const Integer& x, uint64_t digits) {
    if (x == 0) return Fraction::nothing;
    if (digits > 100) return Fraction::below_half;  // 2^256 < 10^78
    const Integer divisor = power(10, static_cast<unsigned>(digits));
    const Integer twice = x % divisor * 2;
    if (twice == 0) return Fraction::nothing;
    if (twice == divisor) return Fraction::exactly_half;
    return twice < divisor ? Fraction::below_half : Fraction::above_half;
}

void expect_scaled_down(const Integer& x, uint64_t digits) {
    ExtendedNumeric scaled = wide(x);
    Dropped dropped;
    scale_down(scaled, digits, dropped);
    EXPECT_EQ(integer(scaled), digits > 100 ? Integer{0} : x / power(10, static_cast<unsigned>(digits)))
        << x << " down by " << digits;
    EXPECT_EQ(fraction_of(dropped), exact_fraction(x, digits)) << x << " down by " << digits;
}

TEST(ScaleDown, AroundMultiplesAndHalves) {
    for (const uint64_t digits : distances()) {
        const Integer unit = power(10, applied(digits));
        for (const Integer& multiple : {Integer{0}, unit, Integer(unit * 7), Integer((kLimit - 1) / unit * unit)}) {
            for (const Integer& fraction : {Integer{0}, Integer{1}, Integer(unit / 2 - 1), Integer(unit / 2),
                                            Integer(unit / 2 + 1), Integer(unit - 1)}) {
                const Integer x = multiple + fraction;
                if (x >= 0 && x < kLimit) expect_scaled_down(x, digits);
            }
        }
        expect_scaled_down(kLimit - 1, digits);
    }
}

// A half is seen across every boundary between two passes, and so is what spoils it, digit by digit.
TEST(ScaleDown, EveryDigitBelowAHalfCounts) {
    for (unsigned digits = 1; digits <= 77; ++digits) {
        const Integer half = power(10, digits) / 2;
        for (unsigned below = 0; below + 1 < digits; ++below) {
            expect_scaled_down(half + power(10, below), digits);
            expect_scaled_down(half - power(10, below), digits);
        }
    }
}

TEST(ScaleDown, AtRandom) {
    RandomValues random(2);
    for (const uint64_t digits : distances()) {
        for (int i = 0; i < 100; ++i) expect_scaled_down(random.magnitude(256), digits);
        if (HasFailure()) return;
    }
}

struct HistoryRow {
    const char* name;
    Dropped before;
    uint64_t x;
    uint64_t digits;
    Fraction fraction;
};

constexpr HistoryRow kHistoryRows[] = {
    {"no digits leave the history alone: half stays half", {0x80000000, 0}, 25, 0, Fraction::exactly_half},
    {"an exact move makes what was dropped smaller", {0x80000000, 0}, 20, 1, Fraction::below_half},
    {"half is more than half above a history", {1, 0}, 25, 1, Fraction::above_half},
    {"also above one that is only sticky", {0, 1}, 25, 1, Fraction::above_half},
    {"half without a history", {0, 0}, 25, 1, Fraction::exactly_half},
    {"an exact move without a history", {0, 0}, 20, 1, Fraction::nothing},
};

TEST(ScaleDown, JoinsWhatWasDroppedBefore) {
    for (const HistoryRow& row : kHistoryRows) {
        SCOPED_TRACE(row.name);
        ExtendedNumeric x{{row.x, 0, 0, 0}};
        Dropped dropped = row.before;
        scale_down(x, row.digits, dropped);
        EXPECT_EQ(fraction_of(dropped), row.fraction);
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

TEST(ScaleBy, SignOfThePlacesSaysWhichWay) {
    for (const WayRow& row : kWayRows) {
        SCOPED_TRACE(row.name);
        ExtendedNumeric x{{12345, 0, 0, 0}};
        unsigned overflow = 0;
        Dropped dropped;
        scale_by(x, row.places, overflow, dropped);
        EXPECT_EQ(x, (ExtendedNumeric{{row.scaled, 0, 0, 0}}));
        EXPECT_EQ(fraction_of(dropped), row.fraction);
        EXPECT_EQ(overflow, 0U);
    }
}

TEST(ScaleBy, UpReportsOnlyOverflowAndDownOnlyWhatWasDropped) {
    ExtendedNumeric x = wide(kLimit - 1);
    unsigned overflow = 0;
    Dropped dropped{3, 4};
    scale_by(x, 1, overflow, dropped);
    EXPECT_NE(overflow, 0U);
    EXPECT_EQ(dropped.code, 3U);
    EXPECT_EQ(dropped.sticky, 4U);

    overflow = 0x40;
    scale_by(x, -90, overflow, dropped);
    EXPECT_EQ(overflow, 0x40U);
    EXPECT_TRUE(dropped.anything());
}

struct MovedRow {
    const char* name;
    const char* value;
    int64_t places;
    Integer moved;
    bool drops;
};

TEST(MovedBy, SignStaysAndTheMagnitudeMoves) {
    const MovedRow rows[] = {
        {"nothing to move", "-12345", 0, -12345, false},
        {"up", "12345", 2, 1234500, false},
        {"up, negative", "-12345", 2, -1234500, false},
        {"down towards zero", "12345", -2, 123, true},
        {"down towards zero, negative", "-12345", -2, -123, true},
        {"down exactly, negative", "-12300", -2, -123, false},
        {"down to zero, which has no sign", "-1", -1, 0, true},
        {"-2^64 down", "-2^64", -19, -1, true},
        {"the smallest value as far up as 256 bits allow", "-2^127+1", 38, (1 - two_to(127)) * power(10, 38), false},
        {"out of the top, modulo 2^256", "2^127-1", 39, (two_to(127) - 1) * power(10, 39), false},
        {"NaN as the -2^127 of its pattern", "NaN", -1, -two_to(127) / 10, true},
    };
    for (const MovedRow& row : rows) {
        SCOPED_TRACE(row.name);
        Dropped dropped;
        EXPECT_EQ(moved_by(num(row.value), row.places, dropped), wide(row.moved));
        EXPECT_EQ(dropped.anything(), row.drops);
    }
}

static_assert(passes_for(23).eights == 2 && passes_for(23).rest == 7);
static_assert(passes_for(UINT64_MAX).eights == 10 && passes_for(UINT64_MAX).rest == 7);
static_assert([] {
    ExtendedNumeric x{{7, 0, 0, 0}};
    unsigned overflow = 0;
    Dropped dropped;
    scale_by(x, 12, overflow, dropped);
    scale_by(x, -12, overflow, dropped);
    return x.word[0] == 7 && overflow == 0 && !dropped.anything();
}());

}  // namespace
}  // namespace qv8numeric_tests
