// SPDX-License-Identifier: MIT
// Reciprocals and the divisions by them, against their definitions. An estimate is corrected by at most two steps; each
// way through the corrections has a row of its own here, since random numbers seldom find the rare ones.
#include "wide/reciprocal.h"

#include <gtest/gtest.h>

#include <vector>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

constexpr uint64_t kTop = UINT64_C(1) << 63;
constexpr int kRandomCases = 100000;

// B, the base of a number written in words.
const Integer kBase = two_to(64);

Integer reciprocal_by_definition(uint64_t d) { return (kBase * kBase - 1) / d - kBase; }
Integer reciprocal_by_definition(const WordPair& d) { return (kBase * kBase * kBase - 1) / integer(d) - kBase; }

constexpr uint64_t kNormalized[] = {
    kTop,
    kTop + 1,
    kTop + 2,
    kTop + 3,
    kTop + (UINT64_C(1) << 32),
    0x80ffffffffffffff,
    0x8888888888888889,
    0x9999999999999999,
    0xaaaaaaaaaaaaaaab,
    0xbfffffffffffffff,
    0xc000000000000000,
    0xc000000000000001,
    0xfffffffeffffffff,
    0xffffffff00000000,
    0xfffffffffffffffd,
    0xfffffffffffffffe,
    0xffffffffffffffff,
};

constexpr uint64_t kWords[] = {
    0,        1,    2,        0xffffffff,         0x100000000,        0x5555555555555555,
    kTop - 1, kTop, kTop + 1, 0xaaaaaaaaaaaaaaaa, 0xfffffffffffffffe, 0xffffffffffffffff,
};

// ---- The reciprocals ----

// By Newton's iteration, and from the processor where it divides.
void expect_reciprocal(uint64_t d) {
    const Integer expected = reciprocal_by_definition(d);
    EXPECT_EQ(Integer{reciprocal_by_newton(d)}, expected) << d;
    EXPECT_EQ(Integer{reciprocal_of(d)}, expected) << d;
}

TEST(Reciprocal, OfOneWordForEverySeed) {
    for (uint64_t top_nine_bits = 256; top_nine_bits < 512; ++top_nine_bits) {
        const uint64_t smallest = top_nine_bits << 55;
        const uint64_t largest = smallest | ((UINT64_C(1) << 55) - 1);
        for (const uint64_t d : {smallest, smallest + 1, smallest + (UINT64_C(1) << 24), largest - 1, largest}) {
            expect_reciprocal(d);
        }
        if (HasFailure()) return;
    }
}

TEST(Reciprocal, OfOneWordAtRandom) {
    RandomValues random(1);
    for (int i = 0; i < kRandomCases; ++i) {
        expect_reciprocal(random.word() | kTop);
        if (HasFailure()) return;
    }
}

TEST(Reciprocal, OfTwoWordsAtTheEdges) {
    for (const uint64_t high : kNormalized) {
        for (const uint64_t low : kWords) {
            const WordPair d{high, low};
            ASSERT_EQ(Integer{reciprocal_of(d)}, reciprocal_by_definition(d)) << d;
        }
    }
}

TEST(Reciprocal, OfTwoWordsAtRandom) {
    RandomValues random(2);
    for (int i = 0; i < kRandomCases; ++i) {
        const WordPair d{random.word() | kTop, random.word()};
        ASSERT_EQ(Integer{reciprocal_of(d)}, reciprocal_by_definition(d)) << d;
    }
}

// How often the reciprocal of the high word is lowered for the low word, and then for the product of the two.
struct Lowered {
    int for_low_word;
    int for_product;
};
bool operator==(const Lowered& a, const Lowered& b) {
    return a.for_low_word == b.for_low_word && a.for_product == b.for_product;
}
std::ostream& operator<<(std::ostream& out, const Lowered& lowered) {
    return out << "lowered by " << lowered.for_low_word << " and " << lowered.for_product;
}

// The reciprocal v of the high word alone is a candidate, good when (B + v) * d stays below B^3. For the low word at
// the top only, and then for all of it.
Lowered lowered(const WordPair& d) {
    Integer v = reciprocal_by_definition(d.high);
    const auto count_down_while = [&](auto too_large) {
        int steps = 0;
        for (; too_large(); ++steps) --v;
        return steps;
    };
    const Integer limit = kBase * kBase;
    const int for_low_word = count_down_while([&] { return (kBase + v) * d.high + d.low >= limit; });
    const int for_product = count_down_while([&] { return (kBase + v) * integer(d) >= limit * kBase; });
    return {for_low_word, for_product};
}

struct LoweredRow {
    const char* name;
    WordPair divisor;
    Lowered lowered;
};

constexpr LoweredRow kLoweredRows[] = {
    {"the smallest divisor needs no correction", {kTop, 0}, {0, 0}},
    {"for the product once", {kTop, 0x5555555555555555}, {0, 1}},
    {"for the low word once", {kTop, kTop}, {1, 0}},
    {"for each of them once", {kTop, kTop + 1}, {1, 1}},
    {"once, and twice for the product", {kTop, 0xffffffffffffffff}, {1, 2}},
    {"twice for the low word", {0x9999999999999999, 0xcccccccccccccccd}, {2, 0}},
    {"twice, and once for the product", {kTop + 1, 0xc000000000000000}, {2, 1}},
    {"twice for each of them", {kTop + 1, 0xffffffffffffffff}, {2, 2}},
    {"the largest divisor", {0xffffffffffffffff, 0xffffffffffffffff}, {1, 0}},
};

TEST(Reciprocal, OfTwoWordsThroughEveryCorrection) {
    for (const LoweredRow& row : kLoweredRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(lowered(row.divisor), row.lowered);
        EXPECT_EQ(Integer{reciprocal_of(row.divisor)}, reciprocal_by_definition(row.divisor));
    }
}

// ---- The divisions ----

// What becomes of an estimated quotient: taken back by one, then put up by one, or both, or neither.
struct Corrections {
    bool down;
    bool up;
};
bool operator==(const Corrections& a, const Corrections& b) { return a.down == b.down && a.up == b.up; }
std::ostream& operator<<(std::ostream& out, const Corrections& corrections) {
    return out << (corrections.down ? "down " : "") << (corrections.up ? "up" : "");
}

constexpr Corrections kNone{false, false};
constexpr Corrections kDown{true, false};
constexpr Corrections kUp{false, true};
constexpr Corrections kDownAndUp{true, true};

// The estimate for u / d is one more than the high word of reciprocal * (high word of u) + (two high words of u). Its
// remainder, known modulo B^words alone, is taken for a negative one where its high word is beyond the low word of that
// sum; then a remainder that still holds the divisor tells that the estimate was too small.
Corrections corrections_of(const Integer& u, const Integer& d, unsigned words) {
    const Integer modulus = two_to(64 * words);
    const Integer reciprocal = (modulus * kBase - 1) / d - kBase;
    const Integer two_high_words = u >> 64 * (words - 1);
    const Integer estimate = modulo(reciprocal * (two_high_words >> 64) + two_high_words, kBase * kBase);
    const Integer quotient = (estimate >> 64) + 1;
    const Integer threshold = estimate & UINT64_MAX;
    Integer remainder = modulo(u - quotient * d, modulus);
    const Integer high_word = remainder >> 64 * (words - 1);
    const bool down = words == 1 ? high_word > threshold : high_word >= threshold;
    if (down) remainder = modulo(remainder + d, modulus);
    return {down, remainder >= d};
}

void expect_2by1(const WordPair& u, uint64_t d) {
    const WordQuotient result = divide_2by1(u, d, reciprocal_of(d));
    EXPECT_EQ(Integer{result.quotient}, integer(u) / d) << u << " / " << d;
    EXPECT_EQ(Integer{result.remainder}, integer(u) % d) << u << " / " << d;
}

void expect_3by2(const WordPair& u, uint64_t low, const WordPair& d) {
    const PairQuotient result = divide_3by2(u, low, d, reciprocal_of(d));
    const Integer dividend = integer(u) * kBase + low;
    EXPECT_EQ(Integer{result.quotient}, dividend / integer(d)) << dividend << " / " << d;
    EXPECT_EQ(integer(result.remainder), dividend % integer(d)) << dividend << " / " << d;
}

struct Row2by1 {
    const char* name;
    WordPair dividend;
    uint64_t divisor;
    Corrections corrections;
};

constexpr Row2by1 kRows2by1[] = {
    {"nothing, by the smallest divisor", {0, 0}, kTop, kDown},
    {"the divisor itself", {0, kTop}, kTop, kNone},
    {"the largest dividend of the smallest divisor", {kTop - 1, UINT64_MAX}, kTop, kNone},
    {"the largest of all: an estimate of 2^64, which wraps", {UINT64_MAX - 1, UINT64_MAX}, UINT64_MAX, kDown},
    {"one below the largest divisor", {0, UINT64_MAX - 1}, UINT64_MAX, kDown},
    {"an estimate that is too small", {kTop, UINT64_MAX}, kTop + 2, kUp},
    {"an estimate taken back in vain", {0x5555555555555555, UINT64_MAX}, kTop + 3, kDownAndUp},
};

TEST(Divide2By1, ThroughEveryCorrection) {
    for (const Row2by1& row : kRows2by1) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(corrections_of(integer(row.dividend), row.divisor, 1), row.corrections);
        expect_2by1(row.dividend, row.divisor);
    }
}

TEST(Divide2By1, AtTheEdges) {
    for (const uint64_t d : kNormalized) {
        for (const uint64_t high : kWords) {
            for (const uint64_t low : kWords) {
                if (high < d) expect_2by1({high, low}, d);
            }
        }
        for (const uint64_t low : kWords) expect_2by1({d - 1, low}, d);
    }
}

TEST(Divide2By1, AtRandom) {
    RandomValues random(3);
    for (int i = 0; i < kRandomCases; ++i) {
        const uint64_t d = random.word() | kTop;
        expect_2by1({random.word() % d, random.word()}, d);
        if (HasFailure()) return;
    }
}

struct Row3by2 {
    const char* name;
    WordPair dividend;
    uint64_t low;
    WordPair divisor;
    Corrections corrections;
};

constexpr Row3by2 kRows3by2[] = {
    {"nothing, by the smallest divisor", {0, 0}, 0, {kTop, 0}, kDown},
    {"the largest dividend of the smallest divisor", {kTop - 1, UINT64_MAX}, UINT64_MAX, {kTop, 0}, kNone},
    {"the largest dividend of the largest divisor",
     {UINT64_MAX, UINT64_MAX - 1},
     UINT64_MAX,
     {UINT64_MAX, UINT64_MAX},
     kDown},
    {"one below the largest divisor", {0, UINT64_MAX}, UINT64_MAX - 1, {UINT64_MAX, UINT64_MAX}, kDown},
    {"an estimate that is too small", {kTop, UINT64_MAX - 1}, UINT64_MAX, {kTop + 1, kTop - 1}, kUp},
    {"an estimate taken back in vain", {kTop - 1, UINT64_MAX}, UINT64_MAX, {kTop, kTop - 1}, kDownAndUp},
};

TEST(Divide3By2, ThroughEveryCorrection) {
    for (const Row3by2& row : kRows3by2) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(corrections_of(integer(row.dividend) * kBase + row.low, integer(row.divisor), 2), row.corrections);
        expect_3by2(row.dividend, row.low, row.divisor);
    }
}

TEST(Divide3By2, AtTheEdges) {
    for (const uint64_t divisor_high : kNormalized) {
        for (const uint64_t divisor_low : kWords) {
            const WordPair d{divisor_high, divisor_low};
            std::vector<WordPair> dividends{wrapping_subtract(d, {0, 1}), wrapping_subtract(d, {0, 2}),
                                            wrapping_subtract(d, {1, 0})};
            for (const uint64_t high : kWords) {
                for (const uint64_t low : kWords) dividends.push_back({high, low});
            }
            for (const WordPair& u : dividends) {
                if (!(u < d)) continue;
                for (const uint64_t low : {UINT64_C(0), UINT64_C(1), kTop, UINT64_MAX}) expect_3by2(u, low, d);
            }
        }
        if (HasFailure()) return;
    }
}

TEST(Divide3By2, AtRandom) {
    RandomValues random(4);
    for (int i = 0; i < kRandomCases; ++i) {
        const WordPair d{random.word() | kTop, random.word()};
        expect_3by2(pair(integer(random.pair()) % integer(d)), random.word(), d);
        if (HasFailure()) return;
    }
}

static_assert(divide_2by1({kTop - 1, UINT64_MAX}, kTop, reciprocal_of(kTop)).quotient == UINT64_MAX);
static_assert(divide_2by1({1, 1}, kTop, reciprocal_of(kTop)).remainder == 1);
static_assert(reciprocal_of(WordPair{kTop, 0}) == UINT64_MAX);
static_assert(divide_3by2({1, 0}, 1, {kTop, 0}, UINT64_MAX).quotient == 2);
static_assert(divide_3by2({1, 0}, 1, {kTop, 0}, UINT64_MAX).remainder == WordPair{0, 1});

}  // namespace
}  // namespace qv8numeric_tests
