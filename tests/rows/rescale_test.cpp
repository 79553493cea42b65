// SPDX-License-Identifier: MIT
// The explicit change of scale. It reports neither lost digits nor the direction of an overflow, and near its limits it
// does what its arithmetic modulo 2^256 does, which is held here.
#include <gtest/gtest.h>

#include <span>

#include "calls.h"
#include "exact.h"
#include "modes.h"
#include "special_values.h"
#include "ties.h"

namespace qv8numeric_tests {
namespace {

UnaryOperation rescale(const NumericInfo& from, const NumericInfo& to) {
    return [=](const Numeric* source, Numeric* result) {
        NumericInfo passed_from = from, passed_to = to;
        const NumericStatus status = QV8NumericRescale(&passed_from, &passed_to, source, result);
        EXPECT_TRUE(passed_from == from && passed_to == to);
        return status;
    };
}

// The mode of the source's descriptor is another valid one, which must have no effect.
UnaryOperation rescale(std::int32_t from, std::int32_t to, std::uint32_t mode) {
    return rescale({from, (mode + 3) % 7}, {to, mode});
}

struct Row {
    const char* name;
    const char* value;
    std::int32_t from;
    std::int32_t to;
    std::uint32_t mode;
    NumericStatus status;
    const char* expected;
};

constexpr Row kMorePlaces[] = {
    {"1.5 to three places", "15", 1, 3, kUp, NUMERIC_OK, "1500"},
    {"-1.5 to three places", "-15", 1, 3, kUp, NUMERIC_OK, "-1500"},
    {"from hundreds to tenths", "7", -2, 1, kUp, NUMERIC_OK, "7000"},
    {"across eight digits", "3", 0, 9, kUp, NUMERIC_OK, "3000000000"},
    {"-2^64", "-2^64", 0, 3, kUp, NUMERIC_OK, "-18446744073709551616000"},
    {"-2^64 as far as it goes", "-2^64", 0, 18, kUp, NUMERIC_OK, "-18446744073709551616000000000000000000"},
    {"-2^64 one place further", "-2^64", 0, 19, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"2^64 one place too far", "2^64", 0, 19, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"one as far as it goes", "1", 0, 38, kUp, NUMERIC_OK, "10^38"},
    {"minus one as far as it goes", "-1", 0, 38, kUp, NUMERIC_OK, "-10^38"},
    {"one a place too far", "1", 0, 39, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"minus one a place too far is an overflow too", "-1", 0, 39, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"two as far as one goes", "2", 0, 38, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"minus two as far as one goes", "-2", 0, 38, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"the largest value that takes a place", "17014118346046923173168730371588410572", 0, 1, kUp, NUMERIC_OK,
     "170141183460469231731687303715884105720"},
    {"one more", "17014118346046923173168730371588410573", 0, 1, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"the smallest value that takes a place", "-17014118346046923173168730371588410572", 0, 1, kUp, NUMERIC_OK,
     "-170141183460469231731687303715884105720"},
    {"one less", "-17014118346046923173168730371588410573", 0, 1, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"zero takes any number of places", "0", 0, 39, kUp, NUMERIC_OK, "0"},
    {"zero over the longest distance", "0", INT32_MIN, INT32_MAX, kUp, NUMERIC_OK, "0"},
    {"one over the longest distance", "1", INT32_MIN, INT32_MAX, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"1.0 from near the smallest scale to the largest", "10", -INT32_MAX, INT32_MAX, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"NaN", "NaN", 0, 3, kUp, NUMERIC_NAN, "NaN"},
};

// Products are formed modulo 2^256 and accepted when their upper four limbs equal one another and bit 127 has the sign
// of the value; that is a weaker test than "fits", and these products pass it. The negative twins follow by symmetry:
// the complement of equal limbs are equal limbs.
constexpr Row kWrappedProducts[] = {
    {"41 places, gone round once", "123897535483928329103220953959296061403", 0, 41, kUp, NUMERIC_OK,
     "111640776459647778038511153295128526848"},
    {"41 places, negative", "-123897535483928329103220953959296061403", 0, 41, kUp, NUMERIC_OK,
     "-111640776459647778038511153295128526848"},
    {"38 places, four limbs of one", "269599466734277415315151974886", 0, 38, kUp, NUMERIC_OK,
     "73394618030565865177414447344654483456"},
    {"38 places, negative", "-269599466734277415315151974886", 0, 38, kUp, NUMERIC_OK,
     "-73394618030565865177414447344654483456"},
    {"upper words alike, upper limbs not", "62771017353866807642", 0, 38, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"upper words alike, upper limbs not, negative", "-188313052061600422926", 0, 38, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"80 places, ten steps of eight digits", "166600883694731896832553913086626783484", 0, 80, kUp, NUMERIC_OK,
     "45021931317154258936443642851773906944"},
    {"88 places are applied as 80", "107934196843166079644664139084775959480", 0, 88, kUp, NUMERIC_OK,
     "152501858715119705515062622606849998848"},
    {"the same from one end of the scales", "107934196843166079644664139084775959480", INT32_MIN, INT32_MIN + 88, kUp,
     NUMERIC_OK, "152501858715119705515062622606849998848"},
    {"96 places are applied as 80, too", "107934196843166079644664139084775959480", 0, 96, kUp, NUMERIC_OK,
     "152501858715119705515062622606849998848"},
    {"2^31 places, a distance that needs more than 32 bits", "107934196843166079644664139084775959480", -(1 << 30),
     1 << 30, kUp, NUMERIC_OK, "152501858715119705515062622606849998848"},
};

constexpr Row kFewerPlaces[] = {
    {"1.25, tie to even", "125", 2, 1, kHalfEven, NUMERIC_OK, "12"},
    {"1.25, tie up", "125", 2, 1, kHalfUp, NUMERIC_OK, "13"},
    {"1.25, cut", "125", 2, 1, kDown, NUMERIC_OK, "12"},
    {"-1.25, down", "-125", 2, 1, kFloor, NUMERIC_OK, "-13"},
    {"-1.25, up", "-125", 2, 1, kCeiling, NUMERIC_OK, "-12"},
    {"123 in tens", "123", 0, -1, kHalfUp, NUMERIC_OK, "12"},
    {"exact", "12500", 4, 2, kUp, NUMERIC_OK, "125"},
    {"across eight digits, a one far below a tie", "2500000001", 9, 0, kHalfDown, NUMERIC_OK, "3"},
    {"-2^64", "-2^64", 19, 0, kHalfEven, NUMERIC_OK, "-2"},
    {"-2^64 to one place fewer", "-2^64", 1, 0, kDown, NUMERIC_OK, "-1844674407370955161"},
    {"the largest value, cut", "2^127-1", 1, 0, kDown, NUMERIC_OK, "17014118346046923173168730371588410572"},
    {"the smallest value, cut", "-2^127+1", 1, 0, kDown, NUMERIC_OK, "-17014118346046923173168730371588410572"},
    {"zero", "0", 5, 0, kUp, NUMERIC_OK, "0"},
    {"zero over the longest distance", "0", INT32_MAX, INT32_MIN, kUp, NUMERIC_OK, "0"},
    {"one over the longest distance", "1", INT32_MAX, INT32_MIN, kDown, NUMERIC_OK, "0"},
    {"1.0 from the largest scale to near the smallest", "10", INT32_MAX, -INT32_MAX, kDown, NUMERIC_OK, "0"},
    {"a positive that rounds to zero", "4", 1, 0, kHalfUp, NUMERIC_OK, "0"},
    {"NaN", "NaN", 3, 0, kUp, NUMERIC_NAN, "NaN"},

    // Zero has no sign, so a negative value that becomes zero fails the comparison of signs.
    {"a negative that rounds to zero", "-4", 1, 0, kHalfUp, NUMERIC_OVERFLOW, "NaN"},
    {"a negative tie that rounds to zero", "-5", 1, 0, kHalfDown, NUMERIC_OVERFLOW, "NaN"},
    {"a negative that is cut to zero", "-1", 38, 0, kDown, NUMERIC_OVERFLOW, "NaN"},
    {"-2^64 cut to zero", "-2^64", 20, 0, kDown, NUMERIC_OVERFLOW, "NaN"},
    {"a negative cut to zero over the longest distance", "-1", INT32_MAX, INT32_MIN, kDown, NUMERIC_OVERFLOW, "NaN"},

    // Rounding takes place at the source's scale. Where it leaves the range there, the NaN pattern it leaves behind is
    // divided on as -2^127.
    {"the largest value, up", "2^127-1", 1, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"the largest value, half up", "2^127-1", 1, 0, kHalfUp, NUMERIC_OVERFLOW, "NaN"},
    {"the smallest value, down: -2^127 / 10", "-2^127+1", 1, 0, kFloor, NUMERIC_OK,
     "-17014118346046923173168730371588410572"},
    {"the smallest value, half even: -2^127 / 10", "-2^127+1", 1, 0, kHalfEven, NUMERIC_OK,
     "-17014118346046923173168730371588410572"},
    {"1.5 at 38 places up to 2", "150000000000000000000000000000000000000", 38, 0, kHalfUp, NUMERIC_OVERFLOW, "NaN"},
    {"-1.5 at 38 places to -2: -2^127 / 10^38", "-150000000000000000000000000000000000000", 38, 0, kHalfUp, NUMERIC_OK,
     "-1"},
    {"plus one at 39 places up to 1: -2^127 / 10^39 is zero", "1", 39, 0, kUp, NUMERIC_OK, "0"},
    {"minus one at 39 places: zero with the wrong sign", "-1", 39, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"plus one at 100 places up to 1", "1", 100, 0, kUp, NUMERIC_OK, "0"},
    {"minus one at 100 places down to -1", "-1", 100, 0, kFloor, NUMERIC_OVERFLOW, "NaN"},
    {"minus one at 100 places up to zero", "-1", 100, 0, kCeiling, NUMERIC_OVERFLOW, "NaN"},
    {"plus one over the longest distance, up", "1", INT32_MAX, INT32_MIN, kUp, NUMERIC_OK, "0"},
};

void expect_rows(std::span<const Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(yields(rescale(row.from, row.to, row.mode), num(row.value), outcome(row.status, row.expected)));
    }
}

TEST(Rescale, MorePlaces) { expect_rows(kMorePlaces); }

TEST(Rescale, ProductsThatWrapAndPass) { expect_rows(kWrappedProducts); }

TEST(Rescale, FewerPlaces) { expect_rows(kFewerPlaces); }

TEST(Rescale, SameScaleCopies) {
    for (const Numeric& value : special_values()) {
        for (const std::int32_t scale : {INT32_MIN, -1, 0, 7, INT32_MAX}) {
            EXPECT_TRUE(yields(rescale(scale, scale, kUp), value, {NUMERIC_OK, value})) << value << ", scale " << scale;
        }
    }
}

struct ModesRow {
    const char* name;
    const char* value;
    NumericInfo from;
    NumericInfo to;
    NumericStatus status;
    const char* expected;
};

constexpr ModesRow kModesRows[] = {
    {"same scale: neither is looked at", "-2^64", {2, 9}, {2, 9}, NUMERIC_OK, "-2^64"},
    {"same scale, largest modes", "5", {2, UINT32_MAX}, {2, UINT32_MAX}, NUMERIC_OK, "5"},
    {"more places: neither is looked at", "15", {1, 9}, {3, 9}, NUMERIC_OK, "1500"},
    {"more places, largest modes", "15", {1, UINT32_MAX}, {3, UINT32_MAX}, NUMERIC_OK, "1500"},
    {"more places, overflow", "1", {0, 7}, {39, 7}, NUMERIC_OVERFLOW, "NaN"},
    {"fewer places: the source's", "125", {2, 9}, {1, 0}, NUMERIC_INVALID_ARGUMENT, "125"},
    {"fewer places: the source's is 7", "125", {2, 7}, {1, 0}, NUMERIC_INVALID_ARGUMENT, "125"},
    {"fewer places: the source's is the largest", "125", {2, UINT32_MAX}, {1, 0}, NUMERIC_INVALID_ARGUMENT, "125"},
    {"fewer places: the target's", "125", {2, 0}, {1, 9}, NUMERIC_INVALID_ARGUMENT, "125"},
    {"fewer places: the target's is 7", "125", {2, 0}, {1, 7}, NUMERIC_INVALID_ARGUMENT, "125"},
    {"fewer places: the target's is the largest", "125", {2, 0}, {1, UINT32_MAX}, NUMERIC_INVALID_ARGUMENT, "125"},
    {"fewer places: both", "-125", {2, 9}, {1, 9}, NUMERIC_INVALID_ARGUMENT, "-125"},
    {"fewer places, nothing to drop", "120", {2, 0}, {1, 9}, NUMERIC_INVALID_ARGUMENT, "120"},
    {"fewer places, zero", "0", {2, 9}, {1, 0}, NUMERIC_INVALID_ARGUMENT, "0"},
    {"fewer places, -2^64", "-2^64", {2, 0}, {1, 9}, NUMERIC_INVALID_ARGUMENT, "-2^64"},
    {"fewer places, over the longest distance", "7", {INT32_MAX, 9}, {INT32_MIN, 0}, NUMERIC_INVALID_ARGUMENT, "7"},
    {"NaN is seen first, same scale", "NaN", {2, 9}, {2, 9}, NUMERIC_NAN, "NaN"},
    {"NaN is seen first, more places", "NaN", {2, 9}, {40, 9}, NUMERIC_NAN, "NaN"},
    {"NaN is seen first, fewer places", "NaN", {2, 9}, {1, 9}, NUMERIC_NAN, "NaN"},
};

TEST(Rescale, ModesAreLookedAtOnlyWherePlacesGo) {
    for (const ModesRow& row : kModesRows) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(yields(rescale(row.from, row.to), num(row.value), outcome(row.status, row.expected)));
    }
}

TEST(Rescale, OneDescriptorForBothEnds) {
    const NumericInfo info{2, kUp};
    const Numeric value = num("-12345");
    Numeric result = kPoison;
    EXPECT_EQ(status_name(QV8NumericRescale(&info, &info, &value, &result)), "NUMERIC_OK");
    EXPECT_EQ(result, value);
}

struct SevenModes {
    const char* name;
    const char* value;     // hundredths
    const char* expected;  // tenths, one per mode
};

constexpr SevenModes kHundredths[] = {
    {"1.25", "125", "13 12 13 12 13 12 12"},          {"1.35", "135", "14 13 14 13 14 13 14"},
    {"-1.25", "-125", "-13 -12 -12 -13 -13 -12 -12"}, {"-1.35", "-135", "-14 -13 -13 -14 -14 -13 -14"},
    {"1.26", "126", "13 12 13 12 13 13 13"},          {"-1.24", "-124", "-13 -12 -12 -13 -12 -12 -12"},
    {"1.20", "120", "12 12 12 12 12 12 12"},
};

TEST(Rescale, LostDigitsAreNotReported) {
    for (const SevenModes& row : kHundredths) {
        SCOPED_TRACE(row.name);
        for (const std::uint32_t mode : kModes) {
            EXPECT_TRUE(yields(rescale(2, 1, mode), num(row.value), outcome(NUMERIC_OK, in_mode(row.expected, mode))))
                << mode_name(mode);
        }
    }
}

TEST(Rescale, TiesAtEveryScaleDistance) {
    for_every_tie([](const TieCase& item) {
        // 2 * 10^38 does not fit at the source's scale; what follows from that has rows of its own.
        if (item.distance == kLongestTie && abs(item.rounded()) == 2) return;
        const bool lost_its_sign = item.negative && item.rounded() == 0;
        const Outcome expected =
            lost_its_sign ? outcome(NUMERIC_OVERFLOW, "NaN") : Outcome{NUMERIC_OK, pattern(item.rounded())};
        EXPECT_TRUE(yields(rescale(item.distance, 0, item.mode), item.value(), expected)) << item;
    });
}

// Exact as long as the product has at most 160 bits: then the upper limbs can agree only by being all sign.
TEST(Rescale, SpecialValuesToMorePlaces) {
    const cpp_int bound = cpp_int{1} << 160;
    for (const Numeric& value : special_values()) {
        for (std::int32_t places = 0; places <= 48; ++places) {
            const cpp_int product = coefficient(value) * power_of_ten(places);
            if (abs(product) >= bound) break;
            const bool fits = in_range(product, NUMERIC_OK).status == NUMERIC_OK;
            const Outcome expected = fits ? Outcome{NUMERIC_OK, pattern(product)} : outcome(NUMERIC_OVERFLOW, "NaN");
            EXPECT_TRUE(yields(rescale(-3, places - 3, kUp), value, expected)) << value << ", " << places << " places";
        }
    }
}

// Exact as long as the rounded value fits at the scale it came from.
TEST(Rescale, SpecialValuesToFewerPlaces) {
    for (const Numeric& value : special_values()) {
        for (std::int32_t places = 1; places <= 40; ++places) {
            const Cut exact = cut(decimal(value, places), 0);
            for (const std::uint32_t mode : kModes) {
                const cpp_int result = rounded(exact, mode);
                if (in_range(result * power_of_ten(places), NUMERIC_OK).status != NUMERIC_OK) continue;
                const bool lost_its_sign = exact.negative && result == 0;
                const Outcome expected =
                    lost_its_sign ? outcome(NUMERIC_OVERFLOW, "NaN") : Outcome{NUMERIC_OK, pattern(result)};
                EXPECT_TRUE(yields(rescale(7, 7 - places, mode), value, expected))
                    << value << ", " << places << " places, " << mode_name(mode);
            }
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
