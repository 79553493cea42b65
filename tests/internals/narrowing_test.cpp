// SPDX-License-Identifier: MIT
// From a magnitude of any width and a sign to a coefficient and a status.
#include "wide/narrowing.h"

#include <gtest/gtest.h>

#include "exact.h"
#include "widths.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;
using enum qv8numeric::Fraction;

struct RangeRow {
    const char* name;
    ExtendedNumeric magnitude;
    bool fits;
    const char* positive;  // as a coefficient; out of range both are NaN
    const char* negative;
};

constexpr uint64_t kTop = UINT64_C(1) << 63;

constexpr RangeRow kRangeRows[] = {
    {"zero has no sign", {{0, 0, 0, 0}}, true, "0", "0"},
    {"one", {{1, 0, 0, 0}}, true, "1", "-1"},
    {"2^64 - 1", {{UINT64_MAX, 0, 0, 0}}, true, "2^64-1", "-2^64+1"},
    {"2^64", {{0, 1, 0, 0}}, true, "2^64", "-2^64"},
    {"2^127 - 1", {{UINT64_MAX, kTop - 1, 0, 0}}, true, "2^127-1", "-2^127+1"},
    {"2^127, whose negative is the pattern of NaN", {{0, kTop, 0, 0}}, false, "NaN", "NaN"},
    {"2^127 + 1", {{1, kTop, 0, 0}}, false, "NaN", "NaN"},
    {"2^128 - 1", {{UINT64_MAX, UINT64_MAX, 0, 0}}, false, "NaN", "NaN"},
    {"the lowest bit of word 2", {{0, 0, 1, 0}}, false, "NaN", "NaN"},
    {"the highest bit of word 2", {{0, 0, kTop, 0}}, false, "NaN", "NaN"},
    {"the lowest bit of word 3", {{0, 0, 0, 1}}, false, "NaN", "NaN"},
    {"the highest bit of word 3", {{0, 0, 0, kTop}}, false, "NaN", "NaN"},
    {"all bits", {{UINT64_MAX, UINT64_MAX, UINT64_MAX, UINT64_MAX}}, false, "NaN", "NaN"},
};

// Whether a width can say what is in the row at all.
template <class Magnitude>
bool holds(const ExtendedNumeric& magnitude) {
    return bit_length(magnitude) <= kBits<Magnitude>;
}

template <class Magnitude>
class Narrowing : public testing::Test {};
TYPED_TEST_SUITE(Narrowing, Widths, WidthNames);

TYPED_TEST(Narrowing, FitsUpTo2To127Minus1) {
    for (const RangeRow& row : kRangeRows) {
        if (!holds<TypeParam>(row.magnitude)) continue;
        SCOPED_TRACE(row.name);
        EXPECT_EQ(fits(in_width<TypeParam>(integer(row.magnitude))), row.fits);
    }
}

TEST(Refuse, OnTheSideOfTheSign) {
    Numeric result = kPoison;
    EXPECT_EQ(refuse(false, result), NUMERIC_OVERFLOW);
    EXPECT_EQ(result, num("NaN"));
    result = kPoison;
    EXPECT_EQ(refuse(true, result), NUMERIC_UNDERFLOW);
    EXPECT_EQ(result, num("NaN"));
}

TYPED_TEST(Narrowing, WritesTheResultWithTheStatusItWasGiven) {
    for (const RangeRow& row : kRangeRows) {
        if (!holds<TypeParam>(row.magnitude)) continue;
        SCOPED_TRACE(row.name);
        const auto magnitude = in_width<TypeParam>(integer(row.magnitude));
        for (const NumericStatus status : {NUMERIC_OK, NUMERIC_INEXACT}) {
            Numeric result = kPoison;
            EXPECT_EQ(narrow(magnitude, false, 0, status, result), row.fits ? status : NUMERIC_OVERFLOW);
            EXPECT_EQ(result, num(row.positive));
            result = kPoison;
            EXPECT_EQ(narrow(magnitude, true, 0, status, result), row.fits ? status : NUMERIC_UNDERFLOW);
            EXPECT_EQ(result, num(row.negative));
        }
    }
}

TYPED_TEST(Narrowing, OverflowBeforehandRefusesEvenWhatFits) {
    for (const unsigned overflow : {1U, 0x80000000U, UINT32_MAX}) {
        Numeric result = kPoison;
        EXPECT_EQ(narrow(in_width<TypeParam>(7), false, overflow, NUMERIC_INEXACT, result), NUMERIC_OVERFLOW);
        EXPECT_EQ(result, num("NaN"));
        result = kPoison;
        EXPECT_EQ(narrow(in_width<TypeParam>(7), true, overflow, NUMERIC_OK, result), NUMERIC_UNDERFLOW);
        EXPECT_EQ(result, num("NaN"));
    }
}

struct RoundRow {
    const char* name;
    const char* magnitude;
    qv8numeric::Fraction dropped;
    bool negative;
    uint32_t mode;
    unsigned overflow;
    NumericStatus status;
    const char* result;
};

constexpr RoundRow kRoundRows[] = {
    {"nothing was dropped", "12", nothing, true, NUMERIC_ROUND_UP, 0, NUMERIC_OK, "-12"},
    {"up", "12", below_half, false, NUMERIC_ROUND_UP, 0, NUMERIC_INEXACT, "13"},
    {"down is inexact too", "12", above_half, false, NUMERIC_ROUND_DOWN, 0, NUMERIC_INEXACT, "12"},
    {"by the sign, negative", "12", below_half, true, NUMERIC_ROUND_FLOOR, 0, NUMERIC_INEXACT, "-13"},
    {"by the sign, positive", "12", above_half, false, NUMERIC_ROUND_FLOOR, 0, NUMERIC_INEXACT, "12"},
    {"a half to the even one below", "12", exactly_half, false, NUMERIC_ROUND_HALF_EVEN, 0, NUMERIC_INEXACT, "12"},
    {"a half to the even one above", "13", exactly_half, true, NUMERIC_ROUND_HALF_EVEN, 0, NUMERIC_INEXACT, "-14"},
    {"a negative value that rounds to zero", "0", below_half, true, NUMERIC_ROUND_DOWN, 0, NUMERIC_INEXACT, "0"},
    {"a negative value that rounds away from zero", "0", below_half, true, NUMERIC_ROUND_FLOOR, 0, NUMERIC_INEXACT,
     "-1"},
    {"overflow beforehand", "12", below_half, false, NUMERIC_ROUND_UP, 1, NUMERIC_OVERFLOW, "NaN"},
    {"overflow beforehand, negative", "12", nothing, true, NUMERIC_ROUND_UP, 1, NUMERIC_UNDERFLOW, "NaN"},
    {"no mode, and nothing to round", "12", nothing, false, 7, 0, NUMERIC_INVALID_ARGUMENT, "untouched"},
    {"no mode, and something to round", "12", below_half, false, UINT32_MAX, 0, NUMERIC_INVALID_ARGUMENT, "untouched"},
    {"no mode is found before an overflow", "12", below_half, false, 7, 1, NUMERIC_INVALID_ARGUMENT, "untouched"},
    {"up to 2^63", "2^63-1", exactly_half, false, NUMERIC_ROUND_HALF_UP, 0, NUMERIC_INEXACT, "2^63"},
    {"beyond 2^63", "2^63", exactly_half, true, NUMERIC_ROUND_HALF_UP, 0, NUMERIC_INEXACT, "-2^63-1"},
    {"up to 2^64", "2^64-1", exactly_half, false, NUMERIC_ROUND_HALF_UP, 0, NUMERIC_INEXACT, "2^64"},
    {"down to -2^64", "2^64-1", exactly_half, true, NUMERIC_ROUND_HALF_UP, 0, NUMERIC_INEXACT, "-2^64"},
    {"to the largest", "2^127-2", above_half, false, NUMERIC_ROUND_HALF_EVEN, 0, NUMERIC_INEXACT, "2^127-1"},
    {"to the smallest", "2^127-2", above_half, true, NUMERIC_ROUND_HALF_EVEN, 0, NUMERIC_INEXACT, "-2^127+1"},
    {"the largest stays", "2^127-1", exactly_half, false, NUMERIC_ROUND_HALF_DOWN, 0, NUMERIC_INEXACT, "2^127-1"},
    {"up to 2^127", "2^127-1", below_half, false, NUMERIC_ROUND_CEILING, 0, NUMERIC_OVERFLOW, "NaN"},
    {"down to -2^127, which is the pattern of NaN", "2^127-1", below_half, true, NUMERIC_ROUND_FLOOR, 0,
     NUMERIC_UNDERFLOW, "NaN"},
};

TYPED_TEST(Narrowing, RoundsAndNarrows) {
    for (const RoundRow& row : kRoundRows) {
        SCOPED_TRACE(row.name);
        const Integer magnitude = integer(num(row.magnitude));
        // A word is never rounded up from its largest value: it holds an int64's magnitude, or less.
        if (magnitude > two_to(63) && kBits<TypeParam> == 64) continue;
        Numeric result = kPoison;
        EXPECT_EQ(
            round_narrow(in_width<TypeParam>(magnitude), row.dropped, row.negative, row.mode, row.overflow, result),
            row.status);
        EXPECT_EQ(result, row.status == NUMERIC_INVALID_ARGUMENT ? kPoison : num(row.result));
    }
}

// The same from a long division, whose quotient may be all two words hold.
TEST(RoundNarrow, QuotientOfTwoWords) {
    for (const RoundRow& row : kRoundRows) {
        SCOPED_TRACE(row.name);
        Numeric result = kPoison;
        const LongDivision division{magnitude_of(num(row.magnitude)), row.dropped};
        EXPECT_EQ(round_narrow(division, row.negative, row.mode, row.overflow, result), row.status);
        EXPECT_EQ(result, row.status == NUMERIC_INVALID_ARGUMENT ? kPoison : num(row.result));
    }
    for (const WordPair& beyond :
         {WordPair{kTop, 0}, WordPair{UINT64_MAX, UINT64_MAX - 1}, WordPair{UINT64_MAX, UINT64_MAX}}) {
        for (const auto dropped : {nothing, below_half, exactly_half, above_half}) {
            for (const uint32_t mode : kModes) {
                Numeric result = kPoison;
                EXPECT_EQ(round_narrow({beyond, dropped}, false, mode, 0, result), NUMERIC_OVERFLOW) << beyond;
                EXPECT_EQ(result, num("NaN")) << beyond;
                result = kPoison;
                EXPECT_EQ(round_narrow({beyond, dropped}, true, mode, 0, result), NUMERIC_UNDERFLOW) << beyond;
                EXPECT_EQ(result, num("NaN")) << beyond;
            }
        }
    }
}

TEST(HasRoomToRound, AsLongAsAUnitMoreStillFits) {
    for (unsigned digits = 0; digits <= 38; ++digits) {
        const Integer last = two_to(127) - 1 - power(10, digits);
        EXPECT_TRUE(has_room_to_round({0, 0}, digits)) << digits;
        EXPECT_TRUE(has_room_to_round(pair(last), digits)) << digits;
        EXPECT_FALSE(has_room_to_round(pair(last + 1), digits)) << digits;
        EXPECT_FALSE(has_room_to_round(pair(two_to(127)), digits)) << digits;
    }
}

struct MoveRow {
    const char* name;
    const char* magnitude;
    bool negative;
    int64_t places;
    uint32_t mode;
    unsigned overflow;
    NumericStatus status;
    const char* result;
};

constexpr MoveRow kMoveRows[] = {
    {"no places", "123", false, 0, NUMERIC_ROUND_UP, 0, NUMERIC_OK, "123"},
    {"up is exact", "123", true, 3, NUMERIC_ROUND_UP, 0, NUMERIC_OK, "-123000"},
    {"down, and nothing is dropped", "123000", false, -3, NUMERIC_ROUND_UP, 0, NUMERIC_OK, "123"},
    {"down, rounded by the sign", "1001", true, -3, NUMERIC_ROUND_FLOOR, 0, NUMERIC_INEXACT, "-2"},
    {"down, rounded once: 1.49 is not first 1.5", "149", false, -2, NUMERIC_ROUND_HALF_UP, 0, NUMERIC_INEXACT, "1"},
    {"a negative value that rounds to zero", "4", true, -1, NUMERIC_ROUND_HALF_UP, 0, NUMERIC_INEXACT, "0"},
    {"the largest of all powers", "1", false, 38, NUMERIC_ROUND_UP, 0, NUMERIC_OK, "10^38"},
    {"one place more", "1", false, 39, NUMERIC_ROUND_UP, 0, NUMERIC_OVERFLOW, "NaN"},
    {"one place more, negative", "1", true, 39, NUMERIC_ROUND_UP, 0, NUMERIC_UNDERFLOW, "NaN"},
    {"beyond 256 bits", "1", false, 78, NUMERIC_ROUND_UP, 0, NUMERIC_OVERFLOW, "NaN"},
    {"beyond 256 bits with nothing left in them", "2^127-1", true, INT64_MAX, NUMERIC_ROUND_UP, 0, NUMERIC_UNDERFLOW,
     "NaN"},
    {"zero stays zero", "0", false, INT64_MAX, NUMERIC_ROUND_UP, 0, NUMERIC_OK, "0"},
    {"down to nothing", "2^127-1", false, -39, NUMERIC_ROUND_DOWN, 0, NUMERIC_INEXACT, "0"},
    {"overflow beforehand", "5", true, -1, NUMERIC_ROUND_UP, 1, NUMERIC_UNDERFLOW, "NaN"},
    {"no mode, and nothing to round", "5", false, 0, 7, 0, NUMERIC_INVALID_ARGUMENT, "untouched"},
    {"no mode, and something to round", "5", false, -1, 7, 0, NUMERIC_INVALID_ARGUMENT, "untouched"},
    {"no mode is found before an overflow", "5", false, 100, UINT32_MAX, 1, NUMERIC_INVALID_ARGUMENT, "untouched"},
};

// What a call returns and writes.
template <class Call>
Outcome outcome_of(Call call) {
    Outcome outcome{0, kPoison};
    outcome.status = call(outcome.value);
    return outcome;
}

// In the two widths that move both ways, and through the door that most values take.
TEST(ScaleRoundNarrow, MovesRoundsAndNarrows) {
    for (const MoveRow& row : kMoveRows) {
        SCOPED_TRACE(row.name);
        const auto expect_moved = [&](const auto& magnitude) {
            EXPECT_EQ(outcome_of([&](Numeric& result) {
                          return scale_round_narrow(magnitude, row.negative, row.places, row.mode, row.overflow,
                                                    result);
                      }),
                      outcome(row.status, row.result));
            if (row.overflow != 0) return;
            EXPECT_EQ(outcome_of([&](Numeric& result) {
                          return finish(magnitude, row.negative, row.places, row.mode, result);
                      }),
                      outcome(row.status, row.result));
        };
        expect_moved(magnitude_of(num(row.magnitude)));
        expect_moved(extend(magnitude_of(num(row.magnitude))));
    }
}

// By exact fractions, on the door's own road and on the one behind it.
template <class Magnitude>
void expect_finished(const Integer& magnitude, unsigned digits) {
    const auto places = -int64_t{digits};
    for (const bool negative : {false, true}) {
        const Fraction exact{cpp_int{negative ? Integer(-magnitude) : magnitude}, cpp_int{power(10, digits)}};
        for (const uint32_t mode : kModes) {
            const Outcome expected = narrowed(cut(exact, 0), mode);
            EXPECT_EQ(outcome_of([&](Numeric& result) {
                          return finish(in_width<Magnitude>(magnitude), negative, places, mode, result);
                      }),
                      expected)
                << magnitude << " down by " << digits << ", " << mode_name(mode);
            EXPECT_EQ(outcome_of([&](Numeric& result) {
                          return scale_round_narrow(wide(magnitude), negative, places, mode, 0, result);
                      }),
                      expected)
                << magnitude << " down by " << digits << ", " << mode_name(mode);
        }
    }
}

template <class Magnitude>
void expect_finished_around(const Integer& quotient, unsigned digits, const Integer& limit) {
    const Integer unit = power(10, digits);
    for (const Integer& dropped :
         {Integer{0}, Integer{1}, Integer(unit / 2), Integer(unit / 2 + 1), Integer(unit - 1)}) {
        const Integer magnitude = quotient * unit + dropped;
        if (magnitude <= limit) expect_finished<Magnitude>(magnitude, digits);
    }
}

TEST(Finish, PairAroundTheEndsOfItsRange) {
    for (unsigned digits = 1; digits <= 40; ++digits) {
        const Integer last = two_to(127) / power(10, digits);
        for (const Integer& quotient : {Integer{0}, Integer{1}, last}) {
            expect_finished_around<WordPair>(quotient, digits, two_to(127));
        }
        expect_finished<WordPair>(two_to(127), digits);
    }
}

TEST(Finish, FourWordsAroundTheRangeOfACoefficient) {
    for (unsigned digits = 1; digits <= 77; ++digits) {
        for (const Integer& quotient :
             {Integer{0}, Integer{1}, Integer(two_to(64) - 1), Integer(two_to(127) - 2), Integer(two_to(127) - 1),
              two_to(127), Integer(two_to(128) - 2), two_to(128), Integer(two_to(192) - 1)}) {
            expect_finished_around<ExtendedNumeric>(quotient, digits, two_to(256) - 1);
        }
        if (HasFailure()) return;
    }
}

// The increment must not take two words that are all ones around to zero.
TEST(Finish, FourWordsAroundTheEndOfTwo) {
    for (unsigned digits = 1; digits <= 38; ++digits) {
        expect_finished_around<ExtendedNumeric>(two_to(128) - 1, digits, two_to(256) - 1);
        if (HasFailure()) return;
    }
}

TEST(Finish, UpIsExactOrRefusedInEitherWidth) {
    struct Row {
        const char* name;
        Integer magnitude;
        int64_t places;
        NumericStatus status;
    };
    const Row rows[] = {
        {"nowhere, the largest", two_to(127) - 1, 0, NUMERIC_OK},
        {"nowhere, 2^127", two_to(127), 0, NUMERIC_OVERFLOW},
        {"the last multiple of ten", (two_to(127) - 1) / 10, 1, NUMERIC_OK},
        {"the one behind it", (two_to(127) - 1) / 10 + 1, 1, NUMERIC_OVERFLOW},
        {"as far as one goes", 1, 38, NUMERIC_OK},
        {"two does not go there", 2, 38, NUMERIC_OVERFLOW},
        {"further", 1, 39, NUMERIC_OVERFLOW},
        {"as far as can be said", 1, INT64_MAX, NUMERIC_OVERFLOW},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto expect_up = [&](auto magnitude) {
            Numeric result = kPoison;
            EXPECT_EQ(finish(magnitude, false, row.places, NUMERIC_ROUND_UP, result), row.status);
            const Integer product = row.magnitude * power(10, row.places < 39 ? static_cast<unsigned>(row.places) : 0);
            EXPECT_EQ(result, row.status == NUMERIC_OK ? from_bits(pair(product)) : nan_pattern);
        };
        expect_up(pair(row.magnitude));
        expect_up(wide(row.magnitude));
    }
}

TEST(Finish, AtRandom) {
    RandomValues random(1);
    for (int i = 0; i < 3000; ++i) {
        expect_finished<WordPair>(random.magnitude(127), 1 + static_cast<unsigned>(random.below(40)));
        expect_finished<ExtendedNumeric>(random.magnitude(256), 1 + static_cast<unsigned>(random.below(78)));
        if (HasFailure()) return;
    }
}

TEST(ScaleRoundNarrow, RoundedMagnitudeMayLeaveTheRange) {
    // 10 * (2^127 - 1) + 5 in tenths is 2^127 - 1/2: the magnitude goes up to 2^127.
    const ExtendedNumeric magnitude = wide((two_to(127) - 1) * 10 + 5);
    Numeric result = kPoison;
    EXPECT_EQ(scale_round_narrow(magnitude, false, -1, NUMERIC_ROUND_HALF_UP, 0, result), NUMERIC_OVERFLOW);
    EXPECT_EQ(result, num("NaN"));
    result = kPoison;
    EXPECT_EQ(scale_round_narrow(magnitude, true, -1, NUMERIC_ROUND_HALF_UP, 0, result), NUMERIC_UNDERFLOW);
    EXPECT_EQ(result, num("NaN"));
    result = kPoison;
    EXPECT_EQ(scale_round_narrow(magnitude, true, -1, NUMERIC_ROUND_HALF_DOWN, 0, result), NUMERIC_INEXACT);
    EXPECT_EQ(result, num("-2^127+1"));
}

TEST(ScaleRoundNarrow, CollectsOverflow) {
    ExtendedNumeric magnitude = wide(two_to(255));
    unsigned overflow = 0x40;
    EXPECT_EQ(scale_and_round(magnitude, false, 1, NUMERIC_ROUND_DOWN, overflow), NUMERIC_OK);
    EXPECT_EQ(magnitude, wide(two_to(255) * 10));
    EXPECT_EQ(overflow & 0x40, 0x40U) << "what was there stays";
    EXPECT_NE(overflow & ~0x40U, 0U) << "what left the top joins it";
}

static_assert(fits(ExtendedNumeric{{UINT64_MAX, kTop - 1, 0, 0}}) && !fits(ExtendedNumeric{{0, kTop, 0, 0}}));
static_assert(fits(WordPair{kTop - 1, UINT64_MAX}) && !fits(WordPair{kTop, 0}) && fits(UINT64_MAX));
static_assert([] {
    Numeric result{};
    return refuse(true, result) == NUMERIC_UNDERFLOW && is_nan(result);
}());
static_assert([] {
    Numeric result{};
    return narrow(WordPair{0, 3}, true, 0, NUMERIC_OK, result) == NUMERIC_OK && result.high == -1;
}());
static_assert([] {
    Numeric result{};
    const NumericStatus status = finish(WordPair{0, 25}, false, -1, NUMERIC_ROUND_HALF_EVEN, result);
    return status == NUMERIC_INEXACT && result.low == 2;
}());

}  // namespace
}  // namespace qv8numeric_tests
