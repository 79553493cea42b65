// SPDX-License-Identifier: MIT
// Moves by powers of two, for every number of bits.
#include "wide/shifting.h"

#include <gtest/gtest.h>

#include <vector>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

const Integer kLimit = two_to(256);

std::vector<Integer> patterns() {
    return {0,
            1,
            kLimit - 1,
            two_to(255),
            two_to(255) + 1,
            (kLimit - 1) / 3,                              // 0101...
            (kLimit - 1) / 3 * 2,                          // 1010...
            (kLimit - 1) / (two_to(64) - 1) * UINT32_MAX,  // the lower half of every word
            (two_to(192) + 1) * UINT64_MAX,                // the outer words
            two_to(192) - two_to(64),                      // the inner ones
            two_to(128) * 0x80000001 + 0x8000000080000001};
}

// ---- Up ----

void expect_shifted_left(const Integer& x, unsigned bits) {
    const Integer exact = x << bits;
    uint64_t lost = 0;
    EXPECT_EQ(shift_left(wide(x), bits, lost), wide(exact)) << x << " << " << bits;
    EXPECT_EQ(lost != 0, exact >= kLimit) << x << " << " << bits;
}

TEST(ShiftLeft, EveryAmount) {
    RandomValues random(1);
    for (unsigned bits = 0; bits < 256; ++bits) {
        for (const Integer& x : patterns()) expect_shifted_left(x, bits);
        for (unsigned bit = 0; bit < 256; bit += 15) expect_shifted_left(two_to(bit), bits);
        for (int i = 0; i < 20; ++i) expect_shifted_left(random.magnitude(256), bits);
        expect_shifted_left((kLimit - 1) >> bits, bits);  // just fits
    }
}

TEST(ShiftLeft, LostIsKept) {
    uint64_t lost = 0x40;
    (void)shift_left(ExtendedNumeric{{1, 0, 0, 0}}, 3, lost);
    EXPECT_EQ(lost, 0x40U);
    (void)shift_left(ExtendedNumeric{{0, 0, 0, UINT64_C(1) << 63}}, 1, lost);
    EXPECT_EQ(lost, 0x41U);
}

// ---- Down ----

// The code is what falls off as a fraction of 2^32, cut off there; what lies below makes sticky nonzero.
void expect_shifted_right(const Integer& x, uint64_t bits, const Dropped& before) {
    const unsigned amount = bits < 1000 ? static_cast<unsigned>(bits) : 1000;
    const Integer fallen = (x & (two_to(amount) - 1)) << 32;
    const Integer code = fallen >> amount;
    const bool below = (fallen & (two_to(amount) - 1)) != 0;

    Dropped dropped = before;
    EXPECT_EQ(shift_right(wide(x), bits, dropped), wide(x >> amount)) << x << " >> " << bits;
    EXPECT_EQ(Integer{dropped.code}, code) << x << " >> " << bits;
    EXPECT_EQ(dropped.sticky != 0, below || before.anything()) << x << " >> " << bits;
}

TEST(ShiftRight, EveryAmount) {
    RandomValues random(2);
    for (unsigned bits = 1; bits <= 600; ++bits) {
        for (const Integer& x : patterns()) expect_shifted_right(x, bits, {});
        for (unsigned bit = 0; bit < 256; bit += 15) expect_shifted_right(two_to(bit), bits, {});
        for (int i = 0; i < 20; ++i) expect_shifted_right(random.magnitude(256), bits, {});
    }
}

TEST(ShiftRight, ExtremeAmounts) {
    for (const uint64_t bits : {UINT64_C(0x7fffffff), UINT64_C(0x80000000), UINT64_C(0x100000000), UINT64_MAX}) {
        for (const Integer& x : patterns()) expect_shifted_right(x, bits, {});
    }
}

TEST(ShiftRight, EveryHistoryBecomesSticky) {
    for (const Dropped& before : {Dropped{1, 0}, Dropped{0, 1}, Dropped{one_half, one_half}}) {
        for (const unsigned bits : {1U, 31U, 32U, 33U, 64U, 96U, 200U, 256U, 287U, 288U, 289U}) {
            for (const Integer& x : patterns()) expect_shifted_right(x, bits, before);
        }
    }
}

struct FallenRow {
    const char* name;
    Integer x;
    uint64_t bits;
    uint32_t code;
    bool sticky;
};

TEST(ShiftRight, CodeIsTheTopmost32BitsThatFall) {
    const FallenRow rows[] = {
        {"one bit is one half", 1, 1, 0x80000000, false},
        {"a quarter", 1, 2, 0x40000000, false},
        {"three quarters", 3, 2, 0xC0000000, false},
        {"the 32nd bit from the top is the last in the code", 1, 32, 1, false},
        {"the 33rd is sticky", 1, 33, 0, true},
        {"one half and a bit far below", two_to(99) + 1, 100, 0x80000000, true},
        {"one half across a word boundary", two_to(64), 65, 0x80000000, false},
        {"the code across a word boundary", Integer{0xABCDEF01} << 48, 80, 0xABCDEF01, false},
        {"all 256 bits", kLimit - 1, 256, 0xFFFFFFFF, true},
        {"all 256 bits and 31 zeros above them", kLimit - 1, 287, 1, true},
        {"all 256 bits and 32 zeros above them", kLimit - 1, 288, 0, true},
        {"all 256 bits and more zeros above them", kLimit - 1, 289, 0, true},
    };
    for (const FallenRow& row : rows) {
        SCOPED_TRACE(row.name);
        Dropped dropped;
        EXPECT_EQ(shift_right(wide(row.x), row.bits, dropped), wide(row.x >> static_cast<unsigned>(row.bits)));
        EXPECT_EQ(dropped.code, row.code);
        EXPECT_EQ(dropped.sticky != 0, row.sticky);
    }
}

TEST(ShiftRight, ByNothingLeavesTheChainAlone) {
    for (const Dropped& before : {Dropped{}, Dropped{one_half, 0}, Dropped{0, 7}, Dropped{5, 6}}) {
        for (const Integer& x : patterns()) {
            Dropped dropped = before;
            EXPECT_EQ(shift_right(wide(x), 0, dropped), wide(x));
            EXPECT_EQ(dropped.code, before.code);
            EXPECT_EQ(dropped.sticky, before.sticky);
        }
    }
}

// As long as no earlier step hides in the sticky word, two steps drop what one step of both amounts drops.
TEST(ShiftRight, ChainEndsWhereOneShiftDoes) {
    RandomValues random(3);
    for (int i = 0; i < 5000; ++i) {
        const ExtendedNumeric x = wide(random.magnitude(256));
        const uint64_t first = random.below(100);
        const uint64_t second = 32 + random.below(200);
        Dropped chain;
        const ExtendedNumeric in_two = shift_right(shift_right(x, first, chain), second, chain);
        Dropped whole;
        const ExtendedNumeric at_once = shift_right(x, first + second, whole);
        ASSERT_EQ(in_two, at_once) << x << " >> " << first << " >> " << second;
        ASSERT_EQ(chain.code, whole.code) << x << " >> " << first << " >> " << second;
        ASSERT_EQ(chain.sticky != 0, whole.sticky != 0) << x << " >> " << first << " >> " << second;
    }
}

struct ChainRow {
    const char* name;
    uint64_t x;
    uint64_t first;
    uint64_t second;
    uint32_t code;
    bool sticky;
};

constexpr ChainRow kChainRows[] = {
    {"half, then half: three quarters are half and more", 3, 1, 1, 0x80000000, true},
    {"half, then nothing", 1, 1, 1, 0, true},
    {"nothing, then half", 2, 1, 1, 0x80000000, false},
    {"nothing twice", 4, 1, 1, 0, false},
};

TEST(ShiftRight, ChainSeesTheLastStepAndThatThereWereOthers) {
    for (const ChainRow& row : kChainRows) {
        SCOPED_TRACE(row.name);
        Dropped dropped;
        (void)shift_right(shift_right({{row.x, 0, 0, 0}}, row.first, dropped), row.second, dropped);
        EXPECT_EQ(dropped.code, row.code);
        EXPECT_EQ(dropped.sticky != 0, row.sticky);
    }
}

static_assert([] {
    uint64_t lost = 0;
    Dropped dropped;
    const ExtendedNumeric up = shift_left({{1, 0, 0, 0}}, 200, lost);
    return shift_right(up, 200, dropped).word[0] == 1 && lost == 0 && !dropped.anything();
}());
static_assert(word_at({{1, 2, 3, 4}}, 4, 0) == 0 && word_at({{1, 2, 3, 4}}, -1, 0) == 0);
static_assert(word_at({{1, 2, 3, 4}}, 0, 63) == UINT64_C(1) << 63 && word_at({{0, 0, 0, 4}}, 4, 62) == 1);

}  // namespace
}  // namespace qv8numeric_tests
