// SPDX-License-Identifier: MIT
// The frame around operands of different scales: where they meet, how they get there, and how the result gets out.
#include "numeric/alignment.h"

#include <gtest/gtest.h>

#include "exact.h"
#include "special_values.h"
#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using qv8numeric::align;
using qv8numeric::aligned;
using qv8numeric::AlignedOperands;
using qv8numeric::Alignment;
using qv8numeric::from_bits;
using qv8numeric::postprocess;
using qv8numeric::preprocess;

// ---- The common scale ----

struct AlignRow {
    const char* name;
    const char* a;
    std::int32_t a_scale;
    const char* b;
    std::int32_t b_scale;
    std::int64_t common_scale;
    long long a_shift;
    long long b_shift;
};

constexpr AlignRow kAlignRows[] = {
    {"one scale", "5", 2, "-7", 2, 2, 0, 0},
    {"a has one place more", "5", 1, "7", 0, 1, 0, 1},
    {"b has one place more", "5", 0, "7", 1, 1, 1, 0},
    {"a has as many more as are exact for every b", "2^127-1", 38, "2^127-1", 0, 38, 0, 38},
    {"b has as many more as are exact for every a", "2^127-1", 0, "2^127-1", 38, 38, 38, 0},
    {"exact is exact, though a small b had room for 48", "1", 38, "1", 0, 38, 0, 38},
    {"exact is exact, though a small a had room for 48", "1", 0, "1", 38, 38, 38, 0},
    {"a has one too many, and a small b room for 48", "2^127-1", 39, "1", 0, 48, 9, 48},
    {"b has one too many, and a small a room for 48", "1", 0, "2^127-1", 39, 48, 48, 9},
    {"a has one too many, and a large b room for 38", "1", 39, "2^64", 0, 38, -1, 38},
    {"b has one too many, and a large a room for 38", "2^64", 0, "1", 39, 38, 38, -1},
    {"both meet at 48", "1", 48, "1", 0, 48, 0, 48},
    {"a loses the first digit beyond 48", "1", 49, "1", 0, 48, -1, 48},
    {"b loses the first digit beyond 48", "1", 0, "1", 49, 48, 48, -1},
    {"a loses its second digit beyond 38", "1", 40, "2^127-1", 0, 38, -2, 38},
    {"negative scales", "1", -3, "1", -100, -52, -49, 48},
    // an operand of zero has no scale
    {"a is zero", "0", 5, "7", 2, 2, 0, 0},
    {"b is zero", "7", 5, "0", 2, 5, 0, 0},
    {"both are zero", "0", 5, "0", 2, 2, 0, 0},
    {"a is zero and far away", "0", INT32_MAX, "7", INT32_MIN, INT32_MIN, 0, 0},
    {"b is zero and far away", "7", INT32_MAX, "0", INT32_MIN, INT32_MAX, 0, 0},
    // neither distance nor scale wraps
    {"as far apart as can be, a below", "1", INT32_MIN, "1", INT32_MAX, INT64_C(-2147483600), 48, -4294967247},
    {"as far apart as can be, b below", "1", INT32_MAX, "1", INT32_MIN, INT64_C(-2147483600), -4294967247, 48},
    {"a common scale beyond int32", "1", INT32_MAX, "1", INT32_MAX - 39, INT64_C(2147483656), 9, 48},
};

void expect_aligned(const AlignRow& row) {
    const Alignment alignment = align(num(row.a), row.a_scale, num(row.b), row.b_scale);
    EXPECT_EQ(alignment.common_scale, row.common_scale);
    EXPECT_EQ(alignment.a_shift, row.a_shift);
    EXPECT_EQ(alignment.b_shift, row.b_shift);
}

TEST(Align, NamedRows) {
    for (const AlignRow& row : kAlignRows) {
        SCOPED_TRACE(row.name);
        expect_aligned(row);
    }
}

struct GuardRow {
    const char* name;
    const char* multiplied;
    long long guard_digits;
};

constexpr GuardRow kGuardRows[] = {
    {"1", "1", 48},
    {"-1, whose upper half is all ones", "-1", 48},
    {"the largest with an upper half of zeros", "2^64-1", 48},
    {"the smallest with any other", "2^64", 38},
    {"-2^64 + 1", "-2^64+1", 48},
    {"the last with an upper half of ones", "-2^64", 48},
    {"the first with any other", "-2^64-1", 38},
    {"the largest", "2^127-1", 38},
    {"the smallest", "-2^127+1", 38},
};

TEST(Align, GuardDigitsGoByTheUpperHalfOfTheOperandThatIsMultiplied) {
    for (const GuardRow& row : kGuardRows) {
        SCOPED_TRACE(row.name);
        const long long guard = row.guard_digits;
        for (const char* other : {"1", "-1", "2^127-1", "-2^127+1"}) {
            SCOPED_TRACE(other);
            expect_aligned({"a is multiplied", row.multiplied, 10, other, 110, 10 + guard, guard, guard - 100});
            expect_aligned({"b is multiplied", other, 110, row.multiplied, 10, 10 + guard, guard - 100, guard});
        }
    }
}

// ---- The operands ----

constexpr unsigned kWordPoison = 0x5a5a5a5a;

struct Operands {
    ExtendedNumeric a = kWidePoison;
    ExtendedNumeric b = kWidePoison;
    unsigned discarded = kWordPoison;
};

Operands preprocessed(const Numeric& a, long long a_shift, const Numeric& b, long long b_shift) {
    Operands operands;
    preprocess(a, a_shift, b, b_shift, operands.a, operands.b, operands.discarded);
    return operands;
}

// The operand as either of the two, beside one that stays as it is.
void expect_operand(const Numeric& value, long long shift, const Integer& moved, bool discarded) {
    const Numeric other = num("-3");
    const Operands first = preprocessed(value, shift, other, 0);
    EXPECT_EQ(first.a, wide(moved)) << value << " moved by " << shift;
    EXPECT_EQ(first.b, wide(-3));
    EXPECT_EQ(first.discarded != 0, discarded) << value << " moved by " << shift;
    const Operands second = preprocessed(other, 0, value, shift);
    EXPECT_EQ(second.a, wide(-3));
    EXPECT_EQ(second.b, wide(moved)) << value << " moved by " << shift;
    EXPECT_EQ(second.discarded != 0, discarded) << value << " moved by " << shift;
}

struct OperandRow {
    const char* name;
    const char* value;
    long long shift;
    Integer moved;  // modulo 2^256
    bool discarded;
};

TEST(Preprocess, NamedOperands) {
    const Integer largest = two_to(127) - 1;
    const OperandRow rows[] = {
        {"widened", "2^127-1", 0, largest, false},
        {"widened with its sign", "-2^127+1", 0, -largest, false},
        {"the pattern of NaN is a number here", "NaN", 1, -two_to(127) * 10, false},
        {"one place up", "12", 1, 120, false},
        {"one place up, negative", "-12", 1, -120, false},
        {"seven places, the last single pass", "12", 7, 120000000, false},
        {"eight places, the first pass of eight", "12", 8, 1200000000, false},
        {"nine places, both", "-12", 9, Integer{-12000000000}, false},
        {"as far as every operand can go", "2^127-1", 38, largest * power(10, 38), false},
        {"as far as 65 bits can go", "-2^64", 48, -two_to(64) * power(10, 48), false},
        {"what leaves the top is lost without notice", "2^127-1", 60, largest * power(10, 60), false},
        {"and so it is below zero", "-2^127+1", 60, -largest * power(10, 60), false},
        {"ten passes of eight and one of seven", "1", 87, power(10, 87), false},
        {"ten passes of eight at most, and none of the rest", "1", 88, power(10, 80), false},
        {"ten passes of eight at most, and one", "-3", 89, -3 * power(10, 81), false},
        {"as far as scales can be apart", "1", 4294967295, power(10, 87), false},
        {"zero goes anywhere", "0", 4294967295, 0, false},
        {"one place down", "19", -1, 1, true},
        {"towards zero below zero too", "-19", -1, -1, true},
        {"nothing but zeros dropped", "-100", -2, -1, false},
        {"dropped in the pass of eight alone", "1000000001", -9, 1, true},
        {"dropped in the last pass alone", "1500000000", -9, 1, true},
        {"dropped in the first pass of two of eight", "10000000000000001", -16, 1, true},
        {"eight places down, without a pass for a rest", "100000001", -8, 1, true},
        {"eight places down, exactly", "-100000000", -8, -1, false},
        {"down to nothing", "-2^127+1", -39, 0, true},
        {"down to nothing, beyond the cap", "1", -100, 0, true},
        {"down to nothing, as far as scales can be apart", "-1", -4294967295, 0, true},
        {"zero drops nothing", "0", -4294967295, 0, false},
    };
    for (const OperandRow& row : rows) {
        SCOPED_TRACE(row.name);
        expect_operand(num(row.value), row.shift, row.moved, row.discarded);
    }
}

struct DiscardedRow {
    const char* name;
    const char* a;
    long long a_shift;
    const char* b;
    long long b_shift;
    bool discarded;
};

constexpr DiscardedRow kDiscardedRows[] = {
    {"nothing was divided: what was there is overwritten", "1", 0, "1", 5, false},
    {"both divided and both exact", "10", -1, "-100", -2, false},
    {"a drops, b is exact", "11", -1, "100", -2, true},
    {"a is exact, b drops", "10", -1, "101", -2, true},
    {"both drop", "-11", -1, "-101", -2, true},
    {"a drops, b is multiplied", "11", -1, "1", 40, true},
    {"a is multiplied, b drops", "1", 40, "11", -1, true},
};

TEST(Preprocess, DiscardedSpeaksForBothOperands) {
    for (const DiscardedRow& row : kDiscardedRows) {
        SCOPED_TRACE(row.name);
        const Operands operands = preprocessed(num(row.a), row.a_shift, num(row.b), row.b_shift);
        EXPECT_EQ(operands.discarded != 0, row.discarded);
    }
}

TEST(Preprocess, EveryShiftUpToTheCap) {
    for (const Numeric& value : special_values()) {
        const Integer coefficient = integer(value);
        for (unsigned places = 0; places <= 87; ++places) {
            const Integer unit = power(10, places);
            expect_operand(value, places, coefficient * unit, false);
            expect_operand(value, -static_cast<long long>(places), coefficient / unit, coefficient % unit != 0);
        }
        if (HasFailure()) return;
    }
}

// ---- Both together ----

struct AlignedRow {
    const char* name;
    const char* a;
    std::int32_t a_scale;
    const char* b;
    std::int32_t b_scale;
    Integer a_moved;
    Integer b_moved;
    std::int32_t a_truncated;
    std::int32_t b_truncated;
    std::int64_t scale;
};

TEST(Aligned, NamedRows) {
    const Integer largest = two_to(127) - 1;
    const AlignedRow rows[] = {
        {"one scale", "5", 2, "-7", 2, 5, -7, 0, 0, 2},
        {"a is moved", "-5", 0, "7", 2, -500, 7, 0, 0, 2},
        {"b is moved", "5", 2, "-7", 0, 5, -700, 0, 0, 2},
        {"a is moved as far as is exact", "2^127-1", 0, "1", 38, largest * power(10, 38), 1, 0, 0, 38},
        {"a far below loses a digit", "19", 49, "1", 0, 1, power(10, 48), 1, 0, 48},
        {"a far below loses a digit, negative", "-19", 49, "1", 0, -1, power(10, 48), -1, 0, 48},
        {"b far below loses a digit", "-1", 0, "19", 49, -power(10, 48), 1, 0, 1, 48},
        {"b far below loses a digit, negative", "-1", 0, "-19", 49, -power(10, 48), -1, 0, -1, 48},
        {"a far below is lost, but for its sign", "-1", INT32_MAX, "1", INT32_MIN, 0, power(10, 48), -1, 0,
         INT64_C(-2147483600)},
        {"b far below is lost, but for its sign", "2^64", INT32_MIN, "1", INT32_MAX, two_to(64) * power(10, 38), 0, 0,
         1, INT64_C(-2147483610)},
        {"a far below loses only zeros", "-100", 50, "1", 0, -1, power(10, 48), 0, 0, 48},
        {"b far below loses only zeros", "1", 0, "100", 50, power(10, 48), 1, 0, 0, 48},
        {"-2^64 has room for 48", "-2^64", 0, "1", 49, -two_to(64) * power(10, 48), 0, 0, 1, 48},
        {"a is zero", "0", INT32_MIN, "7", 2, 0, 7, 0, 0, 2},
        {"b is zero", "7", 2, "0", INT32_MAX, 7, 0, 0, 0, 2},
    };
    for (const AlignedRow& row : rows) {
        SCOPED_TRACE(row.name);
        const AlignedOperands operands = aligned(num(row.a), row.a_scale, num(row.b), row.b_scale);
        EXPECT_EQ(operands.a, wide(row.a_moved));
        EXPECT_EQ(operands.b, wide(row.b_moved));
        EXPECT_EQ(operands.a_truncated, row.a_truncated);
        EXPECT_EQ(operands.b_truncated, row.b_truncated);
        EXPECT_EQ(operands.scale, row.scale);
    }
}

// Both operands at the common scale in exact fractions, and nothing truncated but what does not come out even there.
TEST(Aligned, EveryTwoSpecialValuesAtEveryDistance) {
    const auto expect_operand_at = [](const Numeric& value, int scale, const ExtendedNumeric& moved, int truncated,
                                      std::int64_t common_scale) {
        const Cut exact = cut(decimal(value, scale), static_cast<int>(common_scale));
        const Integer magnitude{exact.magnitude};
        EXPECT_EQ(moved, wide(exact.negative ? Integer(-magnitude) : magnitude)) << value;
        const int sign = exact.negative ? -1 : 1;
        EXPECT_EQ(truncated, exact.dropped == Dropped::kNothing ? 0 : sign) << value;
    };
    for (const Numeric& a : special_values()) {
        for (const Numeric& b : special_values()) {
            if (qv8numeric::is_nan(a) || qv8numeric::is_nan(b)) continue;
            for (const int a_scale : {-90, -49, -39, -38, -20, 0, 1, 38, 48, 87}) {
                const AlignedOperands operands = aligned(a, a_scale, b, 0);
                expect_operand_at(a, a_scale, operands.a, operands.a_truncated, operands.scale);
                expect_operand_at(b, 0, operands.b, operands.b_truncated, operands.scale);
            }
        }
        if (HasFailure()) return;
    }
}

// ---- The result ----

struct Narrowed {
    NumericStatus status;
    Numeric result;
    unsigned overflow;
};

Narrowed postprocessed(const Integer& x, int adjust, long long shift, std::uint32_t mode, unsigned overflow_before) {
    ExtendedNumeric scratch = wide(x);
    Narrowed narrowed{0, kPoison, overflow_before};
    narrowed.status = postprocess(scratch, adjust, shift, mode, narrowed.result, narrowed.overflow);
    return narrowed;
}

constexpr std::uint32_t kUp = NUMERIC_ROUND_UP;
constexpr std::uint32_t kDown = NUMERIC_ROUND_DOWN;
constexpr std::uint32_t kCeiling = NUMERIC_ROUND_CEILING;
constexpr std::uint32_t kFloor = NUMERIC_ROUND_FLOOR;
constexpr std::uint32_t kHalfUp = NUMERIC_ROUND_HALF_UP;
constexpr std::uint32_t kHalfDown = NUMERIC_ROUND_HALF_DOWN;
constexpr std::uint32_t kHalfEven = NUMERIC_ROUND_HALF_EVEN;

struct PostprocessRow {
    const char* name;
    Integer x;
    int adjust;
    long long shift;
    std::uint32_t mode;
    NumericStatus status;
    Integer result;
};

TEST(Postprocess, ResultsInRange) {
    const Integer largest = two_to(127) - 1;
    const PostprocessRow rows[] = {
        {"15 is halfway up", 15, 0, -1, kHalfUp, NUMERIC_INEXACT, 2},
        {"15 is halfway down", 15, 0, -1, kHalfDown, NUMERIC_INEXACT, 1},
        {"15 goes to the even 2", 15, 0, -1, kHalfEven, NUMERIC_INEXACT, 2},
        {"25 is halfway up", 25, 0, -1, kHalfUp, NUMERIC_INEXACT, 3},
        {"25 is halfway down", 25, 0, -1, kHalfDown, NUMERIC_INEXACT, 2},
        {"25 goes to the even 2", 25, 0, -1, kHalfEven, NUMERIC_INEXACT, 2},
        {"-15 is halfway away from zero", -15, 0, -1, kHalfUp, NUMERIC_INEXACT, -2},
        {"-15 is halfway towards zero", -15, 0, -1, kHalfDown, NUMERIC_INEXACT, -1},
        {"-15 goes to the even -2", -15, 0, -1, kHalfEven, NUMERIC_INEXACT, -2},
        {"a half across two passes, exactly", 1500000000, 0, -9, kHalfDown, NUMERIC_INEXACT, 1},
        {"a half across two passes, and one more", 1500000001, 0, -9, kHalfDown, NUMERIC_INEXACT, 2},
        {"exact downward", -1500000000, 0, -8, kUp, NUMERIC_OK, -15},
        {"exact upward", -15, 0, 9, kUp, NUMERIC_OK, Integer{-15000000000}},
        {"exact where it stands", -15, 0, 0, kUp, NUMERIC_OK, -15},
        {"the largest where it stands", largest, 0, 0, kUp, NUMERIC_OK, largest},
        {"the smallest where it stands", -largest, 0, 0, kUp, NUMERIC_OK, -largest},
        {"the largest after a pass", largest * 10 + 9, 0, -1, kDown, NUMERIC_INEXACT, largest},
        {"the deepest intermediate", -two_to(255), 0, -40, kDown, NUMERIC_INEXACT, -(two_to(255) / power(10, 40))},
        {"zero goes anywhere up", 0, 0, 4294967295, kUp, NUMERIC_OK, 0},
        {"zero goes anywhere down", 0, 0, -4294967295, kUp, NUMERIC_OK, 0},
        // -100 places leave nothing of any magnitude
        {"far below, up", 1, 0, -100, kUp, NUMERIC_INEXACT, 1},
        {"far below, down", two_to(254), 0, -100, kDown, NUMERIC_INEXACT, 0},
        {"far below, ceiling", 1, 0, -100, kCeiling, NUMERIC_INEXACT, 1},
        {"far below, floor", two_to(254), 0, -100, kFloor, NUMERIC_INEXACT, 0},
        {"far below, half up", two_to(254), 0, -100, kHalfUp, NUMERIC_INEXACT, 0},
        {"far below, half down", two_to(254), 0, -100, kHalfDown, NUMERIC_INEXACT, 0},
        {"far below, half even", two_to(254), 0, -100, kHalfEven, NUMERIC_INEXACT, 0},
        {"far below and negative, up", -1, 0, -100, kUp, NUMERIC_INEXACT, -1},
        {"far below and negative, down", -two_to(255), 0, -100, kDown, NUMERIC_INEXACT, 0},
        {"far below and negative, ceiling", -two_to(255), 0, -100, kCeiling, NUMERIC_INEXACT, 0},
        {"far below and negative, floor", -1, 0, -100, kFloor, NUMERIC_INEXACT, -1},
        {"far below and negative, half up", -two_to(255), 0, -100, kHalfUp, NUMERIC_INEXACT, 0},
        {"far below and negative, half down", -two_to(255), 0, -100, kHalfDown, NUMERIC_INEXACT, 0},
        {"far below and negative, half even", -two_to(255), 0, -100, kHalfEven, NUMERIC_INEXACT, 0},
        {"further below than an int32", -1, 0, -4294967295, kUp, NUMERIC_INEXACT, -1},
        // the unit that stands for what the operands lost
        {"just below zero, up", 0, -1, -1, kUp, NUMERIC_INEXACT, -1},
        {"just below zero, down", 0, -1, -1, kDown, NUMERIC_INEXACT, 0},
        {"just below zero, ceiling", 0, -1, -1, kCeiling, NUMERIC_INEXACT, 0},
        {"just below zero, floor", 0, -1, -1, kFloor, NUMERIC_INEXACT, -1},
        {"just below zero, half up", 0, -1, -1, kHalfUp, NUMERIC_INEXACT, 0},
        {"just below zero, half down", 0, -1, -1, kHalfDown, NUMERIC_INEXACT, 0},
        {"just below zero, half even", 0, -1, -1, kHalfEven, NUMERIC_INEXACT, 0},
        {"just above zero, up", 0, 1, -1, kUp, NUMERIC_INEXACT, 1},
        {"just above zero, ceiling", 0, 1, -1, kCeiling, NUMERIC_INEXACT, 1},
        {"just above zero, floor", 0, 1, -1, kFloor, NUMERIC_INEXACT, 0},
        {"it breaks a tie upward", 25, 1, -1, kHalfDown, NUMERIC_INEXACT, 3},
        {"it breaks a tie downward", 25, -1, -1, kHalfUp, NUMERIC_INEXACT, 2},
        {"it breaks a tie below zero", -25, -1, -1, kHalfDown, NUMERIC_INEXACT, -3},
        {"it makes exact digits inexact: 19 + 1 in tens", 19, 1, -1, kDown, NUMERIC_INEXACT, 2},
        {"it counts where nothing is divided", 41, 1, 0, kDown, NUMERIC_INEXACT, 42},
        {"it counts where something is multiplied", 41, -1, 2, kDown, NUMERIC_INEXACT, 4000},
        {"only its sign counts, above", 0, 9, -1, kHalfUp, NUMERIC_INEXACT, 0},
        {"only its sign counts, below", 0, INT32_MIN, -1, kFloor, NUMERIC_INEXACT, -1},
        {"it is added before the sign is taken", -1, 1, 0, kUp, NUMERIC_INEXACT, 0},
        {"it borrows through every word", 0, -1, 0, kUp, NUMERIC_INEXACT, -1},
        {"it carries into word 1", two_to(64) - 1, 1, 0, kUp, NUMERIC_INEXACT, two_to(64)},
    };
    for (const PostprocessRow& row : rows) {
        SCOPED_TRACE(row.name);
        for (const unsigned overflow : {0U, 0x40U}) {
            const Narrowed narrowed = postprocessed(row.x, row.adjust, row.shift, row.mode, overflow);
            EXPECT_EQ(narrowed.status, row.status);
            EXPECT_EQ(narrowed.result, from_bits(pair(row.result)));
            EXPECT_EQ(narrowed.overflow, overflow) << "neither set nor cleared";
        }
    }
}

// The result holds the low 128 bits all the same.
TEST(Postprocess, ResultsOutOfRange) {
    const Integer largest = two_to(127) - 1;
    const PostprocessRow rows[] = {
        {"2^127", two_to(127), 0, 0, kUp, NUMERIC_OK, two_to(127)},
        {"-2^127, whose pattern is NaN", -two_to(127), 0, 0, kUp, NUMERIC_OK, -two_to(127)},
        {"2^127 + 5", two_to(127) + 5, 0, 0, kUp, NUMERIC_OK, two_to(127) + 5},
        {"-2^127 - 5", -two_to(127) - 5, 0, 0, kUp, NUMERIC_OK, -two_to(127) - 5},
        {"limb 4 alone", two_to(128) + 7, 0, 0, kUp, NUMERIC_OK, 7},
        {"limb 5 alone", -two_to(160) - 7, 0, 0, kUp, NUMERIC_OK, -7},
        {"limb 6 alone", two_to(192) + 7, 0, 0, kUp, NUMERIC_OK, 7},
        {"limb 7 alone", -two_to(224) - 7, 0, 0, kUp, NUMERIC_OK, -7},
        {"the deepest intermediate", -two_to(255), 0, 0, kUp, NUMERIC_OK, 0},
        {"multiplied beyond the range", 10, 0, 38, kUp, NUMERIC_OK, power(10, 39)},
        {"multiplied beyond 256 bits", -two_to(254), 0, 1, kUp, NUMERIC_OK, 0},
        {"multiplied until nothing is left: 10^8 * 2^248", two_to(248), 0, 8, kUp, NUMERIC_OK, 0},
        {"one unit, ten passes at most", 1, 0, 88, kUp, NUMERIC_OK, power(10, 80)},
        {"one unit, as far as scales can be apart", -1, 0, 4294967295, kUp, NUMERIC_OK, -power(10, 87)},
        {"rounded up to 2^127", largest * 10 + 5, 0, -1, kHalfUp, NUMERIC_INEXACT, two_to(127)},
        {"rounded down to -2^127", -largest * 10 - 5, 0, -1, kHalfUp, NUMERIC_INEXACT, -two_to(127)},
        {"by the unit of what was lost", largest, 1, 0, kUp, NUMERIC_INEXACT, two_to(127)},
    };
    for (const PostprocessRow& row : rows) {
        SCOPED_TRACE(row.name);
        for (const unsigned overflow : {0U, 0x40U}) {
            const Narrowed narrowed = postprocessed(row.x, row.adjust, row.shift, row.mode, overflow);
            EXPECT_EQ(narrowed.status, row.status);
            EXPECT_EQ(narrowed.result, from_bits(pair(row.result)));
            EXPECT_NE(narrowed.overflow, 0U);
            EXPECT_EQ(narrowed.overflow & overflow, overflow) << "ORed into";
        }
    }
}

struct InvalidRow {
    const char* name;
    Integer x;
    int adjust;
    long long shift;
    bool overflow;
};

TEST(Postprocess, ModesThatAreNone) {
    const InvalidRow rows[] = {
        {"nothing is discarded", 15, 0, 0, false},
        {"nothing is discarded by a division", 20, 0, -1, false},
        {"something is discarded", 15, 0, -1, false},
        {"something was lost before", 15, 1, 0, false},
        {"out of range where it stands: not looked at any more", two_to(200), 0, 0, false},
        {"out of 256 bits: that comes first", two_to(254), 0, 1, true},
    };
    for (const InvalidRow& row : rows) {
        SCOPED_TRACE(row.name);
        for (const std::uint32_t mode : {7U, UINT32_MAX}) {
            const Narrowed narrowed = postprocessed(row.x, row.adjust, row.shift, mode, 0);
            EXPECT_EQ(narrowed.status, NUMERIC_INVALID_ARGUMENT);
            EXPECT_EQ(narrowed.result, kPoison);
            EXPECT_EQ(narrowed.overflow != 0, row.overflow);
        }
    }
}

TEST(Postprocess, AgainstExactFractions) {
    RandomValues random(1);
    for (int i = 0; i < 20000; ++i) {
        const Integer magnitude = random.magnitude(255);
        const Integer x = random.below(2) == 0 ? magnitude : -magnitude;
        const int adjust = static_cast<int>(random.below(3)) - 1;
        const int shift = static_cast<int>(random.below(100)) - 80;
        const std::uint32_t mode = kModes[random.below(7)];
        const Cut exact = cut(Fraction{cpp_int{x + adjust}, 1}, shift);
        const cpp_int result = rounded(exact, mode);

        const Narrowed narrowed = postprocessed(x, adjust, shift, mode, 0);
        ASSERT_EQ(narrowed.status, adjust != 0 ? NUMERIC_INEXACT : success(exact))
            << x << " with " << adjust << " by " << shift << ", " << mode_name(mode);
        ASSERT_EQ(narrowed.result, from_bits(pair(Integer{result})))
            << x << " with " << adjust << " by " << shift << ", " << mode_name(mode);
        ASSERT_EQ(narrowed.overflow != 0, abs(result) > (cpp_int{1} << 127) - 1)
            << x << " with " << adjust << " by " << shift << ", " << mode_name(mode);
    }
}

}  // namespace
}  // namespace qv8numeric_tests
