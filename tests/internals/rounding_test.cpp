// SPDX-License-Identifier: MIT
// The one decision, over everything it can depend on, and the increment that follows from it.
#include "wide/rounding.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "widths.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

// '+' where the kept magnitude grows by one: positive and even, positive and odd, negative and even, negative and odd.
using KeptMagnitudes = const char*;

struct ModeRow {
    uint32_t mode;
    KeptMagnitudes nothing;
    KeptMagnitudes below_half;
    KeptMagnitudes exactly_half;
    KeptMagnitudes above_half;
};

constexpr ModeRow kModeRows[] = {
    {NUMERIC_ROUND_UP, "....", "++++", "++++", "++++"},
    {NUMERIC_ROUND_DOWN, "....", "....", "....", "...."},
    {NUMERIC_ROUND_CEILING, "....", "++..", "++..", "++.."},
    {NUMERIC_ROUND_FLOOR, "....", "..++", "..++", "..++"},
    {NUMERIC_ROUND_HALF_UP, "....", "....", "++++", "++++"},
    {NUMERIC_ROUND_HALF_DOWN, "....", "....", "....", "++++"},
    {NUMERIC_ROUND_HALF_EVEN, "....", "....", ".+.+", "++++"},
};

struct DroppedRow {
    const char* name;
    Dropped dropped;
    Fraction fraction;
};

constexpr DroppedRow kDroppedRows[] = {
    {"nothing", {0, 0}, Fraction::nothing},
    {"the smallest code", {1, 0}, Fraction::below_half},
    {"the largest code below half", {0x7FFFFFFF, 0}, Fraction::below_half},
    {"below half, with more below that", {1, 1}, Fraction::below_half},
    {"the largest below half, with as much below that as there can be", {0x7FFFFFFF, UINT32_MAX}, Fraction::below_half},
    {"the smallest sticky alone", {0, 1}, Fraction::below_half},
    {"a sticky that looks like half", {0, 0x80000000}, Fraction::below_half},
    {"the largest sticky alone", {0, UINT32_MAX}, Fraction::below_half},
    {"half", {0x80000000, 0}, Fraction::exactly_half},
    {"half, with more below that", {0x80000000, 1}, Fraction::above_half},
    {"half, with a sticky that looks like half", {0x80000000, 0x80000000}, Fraction::above_half},
    {"the smallest code above half", {0x80000001, 0}, Fraction::above_half},
    {"the largest code", {UINT32_MAX, 0}, Fraction::above_half},
    {"above half, with more below that", {0x80000001, 1}, Fraction::above_half},
    {"as much as there can be", {UINT32_MAX, UINT32_MAX}, Fraction::above_half},
};

KeptMagnitudes increased(const ModeRow& row, Fraction fraction) {
    switch (fraction) {
        case Fraction::nothing: return row.nothing;
        case Fraction::below_half: return row.below_half;
        case Fraction::exactly_half: return row.exactly_half;
        case Fraction::above_half: return row.above_half;
    }
    return "an invalid fraction";
}

TEST(Rounding, DroppedWordsStandForAFraction) {
    for (const DroppedRow& row : kDroppedRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(fraction_of(row.dropped), row.fraction);
    }
}

TEST(Rounding, DecisionOfEveryModeForEverySignParityAndFraction) {
    for (const ModeRow& mode : kModeRows) {
        SCOPED_TRACE(mode_name(mode.mode));
        for (const DroppedRow& row : kDroppedRows) {
            SCOPED_TRACE(row.name);
            std::string decisions;
            for (const bool negative : {false, true}) {
                for (const bool odd : {false, true}) {
                    decisions += rounds_away(mode.mode, fraction_of(row.dropped), negative, odd) ? '+' : '.';
                }
            }
            EXPECT_EQ(decisions, increased(mode, row.fraction));
        }
    }
}

TEST(Rounding, PackedTableHoldsTheSameDecisionsAndNoMore) {
    ASSERT_EQ(increased_by_mode.size(), std::size(kModeRows));
    for (const ModeRow& mode : kModeRows) {
        SCOPED_TRACE(mode_name(mode.mode));
        unsigned packed = 0;
        for (const auto fraction :
             {Fraction::above_half, Fraction::exactly_half, Fraction::below_half, Fraction::nothing}) {
            for (int kept = 3; kept >= 0; --kept)
                packed = packed << 1 | unsigned{increased(mode, fraction)[kept] == '+'};
        }
        EXPECT_EQ(unsigned{increased_by_mode[mode.mode]}, packed);
    }
}

// A value between two integers is raised to the upper one, or not: the same as rounding its magnitude, which for a
// negative value is away from the upper one.
TEST(Rounding, DecisionFromTheIntegerBelowIsTheSameOne) {
    for (const ModeRow& mode : kModeRows) {
        SCOPED_TRACE(mode_name(mode.mode));
        for (int below = -4; below < 4; ++below) {
            EXPECT_FALSE(rounds_up(mode.mode, Fraction::nothing, below < 0, below % 2 != 0)) << below;
            for (int quarters = 1; quarters < 4; ++quarters) {
                const auto above = static_cast<Fraction>(quarters);
                const bool negative = below < 0;
                const int nearer_to_zero = negative ? below + 1 : below;
                const auto beyond_it = static_cast<Fraction>(negative ? 4 - quarters : quarters);
                const bool away = increased(mode, beyond_it)[2 * int{negative} + int{nearer_to_zero % 2 != 0}] == '+';
                EXPECT_EQ(rounds_up(mode.mode, above, negative, below % 2 != 0), away != negative)
                    << below << " and " << above;
            }
        }
    }
}

template <class Magnitude>
class RoundMagnitude : public testing::Test {};
TYPED_TEST_SUITE(RoundMagnitude, Widths, WidthNames);

TYPED_TEST(RoundMagnitude, FollowsTheDecision) {
    for (const ModeRow& mode : kModeRows) {
        SCOPED_TRACE(mode_name(mode.mode));
        for (const DroppedRow& row : kDroppedRows) {
            SCOPED_TRACE(row.name);
            const NumericStatus expected_status = row.fraction == Fraction::nothing ? NUMERIC_OK : NUMERIC_INEXACT;
            KeptMagnitudes expected = increased(mode, row.fraction);
            for (const bool negative : {false, true}) {
                for (const uint64_t kept : {UINT64_C(4), UINT64_C(7)}) {
                    auto magnitude = in_width<TypeParam>(kept);
                    EXPECT_EQ(round_magnitude(magnitude, fraction_of(row.dropped), negative, mode.mode),
                              expected_status);
                    EXPECT_EQ(magnitude, in_width<TypeParam>(*expected == '+' ? kept + 1 : kept));
                    ++expected;
                }
            }
        }
    }
}

struct CarryRow {
    const char* name;
    unsigned bits;  // all of them set
};

constexpr CarryRow kCarryRows[] = {
    {"no carry out of a limb's worth of bits", 32},
    {"into the top bit of a word", 63},
    {"into word 1", 64},
    {"into limb 3", 96},
    {"to 2^127, out of the range", 127},
    {"into word 2", 128},
    {"into word 3", 192},
    {"into the top bit", 255},
};

TYPED_TEST(RoundMagnitude, IncrementCarriesAcrossWords) {
    for (const CarryRow& row : kCarryRows) {
        if (row.bits >= kBits<TypeParam>) continue;
        SCOPED_TRACE(row.name);
        auto magnitude = in_width<TypeParam>(two_to(row.bits) - 1);
        EXPECT_EQ(round_magnitude(magnitude, Fraction::below_half, false, NUMERIC_ROUND_UP), NUMERIC_INEXACT);
        EXPECT_EQ(magnitude, in_width<TypeParam>(two_to(row.bits)));
    }
}

TYPED_TEST(RoundMagnitude, ModesThatAreNoneTouchNothing) {
    const auto before = in_width<TypeParam>(two_to(kBits<TypeParam> - 5) + 1);
    for (const uint32_t mode : {7U, 8U, 14U, 255U, 256U, 0x80000000U, UINT32_MAX}) {
        SCOPED_TRACE(mode);
        EXPECT_FALSE(is_rounding_mode(mode));
        for (const DroppedRow& row : kDroppedRows) {
            SCOPED_TRACE(row.name);
            auto magnitude = before;
            EXPECT_EQ(round_magnitude(magnitude, row.fraction, false, mode), NUMERIC_INVALID_ARGUMENT);
            EXPECT_EQ(magnitude, before);
        }
    }
}

struct ThreeModesRow {
    const char* name;
    uint32_t a;
    uint32_t b;
    uint32_t result;
    bool valid;
};

constexpr ThreeModesRow kThreeModesRows[] = {
    {"the lowest of all", 0, 0, 0, true},     {"the highest of all", 6, 6, 6, true},
    {"the first is none", 7, 0, 0, false},    {"the second is none", 0, 7, 0, false},
    {"the result's is none", 0, 0, 7, false}, {"none is one", UINT32_MAX, UINT32_MAX, UINT32_MAX, false},
};

TEST(Rounding, ThreeDescriptorsAreAllLookedAt) {
    for (const ThreeModesRow& row : kThreeModesRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(are_rounding_modes({0, row.a}, {0, row.b}, {0, row.result}), row.valid);
    }
}

static_assert(is_rounding_mode(6) && !is_rounding_mode(7) && !are_rounding_modes({0, 0}, {0, 7}, {0, 0}));
static_assert(fraction_of(Dropped{one_half, 0}) == Fraction::exactly_half);
static_assert(rounds_away(NUMERIC_ROUND_HALF_EVEN, Fraction::exactly_half, false, true));
static_assert(!rounds_away(NUMERIC_ROUND_HALF_EVEN, Fraction::exactly_half, false, false));
static_assert([] {
    ExtendedNumeric magnitude{{UINT64_MAX, 0, 0, 0}};
    const NumericStatus status =
        round_magnitude(magnitude, fraction_of(Dropped{one_half, 1}), true, NUMERIC_ROUND_HALF_DOWN);
    return status == NUMERIC_INEXACT && magnitude.word[0] == 0 && magnitude.word[1] == 1;
}());

}  // namespace
}  // namespace qv8numeric_tests
