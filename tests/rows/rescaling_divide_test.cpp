// SPDX-License-Identifier: MIT
// Dividing values, each at its own scale.
#include <gtest/gtest.h>

#include "exact.h"
#include "modes.h"
#include "rescaling.h"
#include "special_values.h"
#include "ties.h"

namespace qv8numeric_tests {
namespace {

constexpr RescalingRow kRows[] = {
    {"a quarter, exact", "1", 0, "4", 0, 2, kUp, NUMERIC_OK, "25"},
    {"an eighth, tie away from zero", "1", 0, "8", 0, 2, kHalfUp, NUMERIC_INEXACT, "13"},
    {"equal scales cancel", "6", 5, "3", 5, 0, kUp, NUMERIC_OK, "2"},
    {"the divisor has more places", "6", 0, "3", 2, 0, kUp, NUMERIC_OK, "200"},
    {"the dividend has more places", "600", 2, "3", 0, 0, kUp, NUMERIC_OK, "2"},
    {"negative scales", "6", -2, "3", -1, 0, kUp, NUMERIC_OK, "20"},
    {"negative by negative", "-6", 0, "-3", 0, 0, kUp, NUMERIC_OK, "2"},
    {"zero by a negative", "0", 0, "-3", 0, 5, kUp, NUMERIC_OK, "0"},
    {"zero with places dropped", "0", 9, "7", 0, 0, kUp, NUMERIC_OK, "0"},
    {"the largest value by itself", "2^127-1", 0, "2^127-1", 0, 0, kUp, NUMERIC_OK, "1"},
    {"the limits", "2^127-1", 0, "-2^127+1", 0, 0, kUp, NUMERIC_OK, "-1"},
    {"the largest value by its neighbour", "2^127-1", 0, "2^127-2", 0, 0, kUp, NUMERIC_INEXACT, "2"},
    {"the largest value by one", "2^127-1", 0, "1", 0, 0, kUp, NUMERIC_OK, "2^127-1"},
    {"the smallest value by minus one", "-2^127+1", 0, "-1", 0, 0, kUp, NUMERIC_OK, "2^127-1"},
    {"around 2^63", "2^126", 0, "2^63", 0, 0, kUp, NUMERIC_OK, "2^63"},
    {"around 2^64", "2^126-1", 0, "2^64", 0, 0, kDown, NUMERIC_INEXACT, "2^62-1"},

    {"-2^64 by three", "-2^64", 0, "3", 0, 0, kFloor, NUMERIC_INEXACT, "-6148914691236517206"},
    {"-2^64 by itself", "-2^64", 0, "-2^64", 0, 0, kUp, NUMERIC_OK, "1"},
    {"by -2^64", "2^126", 0, "-2^64", 0, 0, kUp, NUMERIC_OK, "-2^62"},
    {"-2^64 by 2^64 with places", "-2^64", 0, "2^64", 0, 3, kUp, NUMERIC_OK, "-1000"},
    {"-2^64 with places dropped", "-2^64", 2, "1", 0, 0, kCeiling, NUMERIC_INEXACT, "-184467440737095516"},

    {"by zero", "5", 0, "0", 0, 0, kUp, NUMERIC_NAN, "NaN"},
    {"a negative by zero", "-5", 0, "0", 0, 0, kUp, NUMERIC_NAN, "NaN"},
    {"-2^64 by zero", "-2^64", 0, "0", 0, 0, kUp, NUMERIC_NAN, "NaN"},
    {"zero by zero", "0", 0, "0", 0, 0, kUp, NUMERIC_NAN, "NaN"},
    {"by zero, places added", "5", 0, "0", 0, 40, kUp, NUMERIC_NAN, "NaN"},
    {"by zero, places dropped", "5", 40, "0", 0, 0, kUp, NUMERIC_NAN, "NaN"},
    {"by zero, out of range whatever the divisor", "2^127-1", 0, "0", 0, 100, kUp, NUMERIC_NAN, "NaN"},
    {"by zero at the ends of the scales", "5", INT32_MIN, "0", INT32_MAX, INT32_MAX, kUp, NUMERIC_NAN, "NaN"},

    // Too large, noticed in different places.
    {"exactly 2^127", "2^126", 0, "5", 1, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"exactly 2^127 from two negatives", "-2^126", 0, "-5", 1, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"exactly -2^127", "-2^126", 0, "5", 1, 0, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"exactly -2^127, exchanged", "2^126", 0, "-5", 1, 0, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"between 2^127 and 2^128", "2^126", 0, "4", 1, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"between -2^127 and -2^128", "-2^126", 0, "4", 1, 0, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"exactly 2^128", "2^126", 0, "25", 2, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"2^128 - 1 and a fraction, which rounded up has 128 bits of zeros", "62771017353866807638357894232076664161", 0,
     "2^64", 0, 20, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"-(2^128 - 1) and a fraction, rounded down", "62771017353866807638357894232076664161", 0, "-2^64", 0, 20, kFloor,
     NUMERIC_UNDERFLOW, "NaN"},
    {"a quotient of more than 128 bits", "2^127-1", 0, "1", 0, 1, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"a quotient of more than 128 bits, negative", "2^127-1", 0, "-1", 0, 1, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"a dividend that leaves the top with a one-word divisor", "2^127-1", 0, "3", 0, 30, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"a dividend that leaves the top when normalised", "2^127-1", 0, "2^64", 0, 30, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"a dividend that leaves the top when normalised, negative", "2^127-1", 0, "-2^64", 0, 30, kUp, NUMERIC_UNDERFLOW,
     "NaN"},
    {"a dividend of more than 256 bits", "2^127-1", 0, "2^127-1", 0, 40, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"a dividend of more than 256 bits, negative", "-2^127+1", 0, "2^127-1", 0, 40, kUp, NUMERIC_UNDERFLOW, "NaN"},
    {"just short of 256 bits, as many places as fit", "2^127-1", 0, "2^127-1", 0, 38, kUp, NUMERIC_OK, "10^38"},
    {"1190988284223284622121811126011188740090 / 7 lies one seventh above 2^127 - 1: up",
     "119098828422328462212181112601118874009", 0, "7", 0, 1, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"one seventh above 2^127 - 1: cut", "119098828422328462212181112601118874009", 0, "7", 0, 1, kDown,
     NUMERIC_INEXACT, "2^127-1"},
    {"one seventh above 2^127 - 1: nearest", "119098828422328462212181112601118874009", 0, "7", 0, 1, kHalfUp,
     NUMERIC_INEXACT, "2^127-1"},
    {"one seventh below -(2^127 - 1): down", "119098828422328462212181112601118874009", 0, "-7", 0, 1, kFloor,
     NUMERIC_UNDERFLOW, "NaN"},
    {"one seventh below -(2^127 - 1): up", "119098828422328462212181112601118874009", 0, "-7", 0, 1, kCeiling,
     NUMERIC_INEXACT, "-2^127+1"},

    // With a one-word divisor the dividend moves up by a word, and only the low half of the word pushed out is looked
    // at: here it is 2^32 exactly, so the quotient passes without it.
    {"a word pushed out whose low half is empty", "26959946667150639794667015087019630674", 0, "1", 0, 30, kUp,
     NUMERIC_OK, "362855577459427518896389750784"},
    {"a word pushed out whose low half is empty, negative", "26959946667150639794667015087019630674", 0, "-1", 0, 30,
     kUp, NUMERIC_OK, "-362855577459427518896389750784"},

    // Halves in which a digit dropped before the division has a part: 2^124 moves up by 3 bits only, which is less
    // than a digit, so of the unit above 2^126 + 2^124 the remainder sees nothing.
    {"a tie by the dropped digit", "2^126+2^124", 1, "2^124", 0, 0, kHalfDown, NUMERIC_INEXACT, "0"},
    {"a tie by the dropped digit, to even", "2^126+2^124", 1, "2^124", 0, 0, kHalfEven, NUMERIC_INEXACT, "0"},
    {"just above a tie, HALF_DOWN", "2^126+2^124+1", 1, "2^124", 0, 0, kHalfDown, NUMERIC_INEXACT, "1"},
    {"just above a tie, HALF_EVEN", "2^126+2^124+1", 1, "2^124", 0, 0, kHalfEven, NUMERIC_INEXACT, "1"},
    {"just below a tie, HALF_UP", "2^126+2^124-1", 1, "2^124", 0, 0, kHalfUp, NUMERIC_INEXACT, "0"},
    {"everything dropped before the division, cut", "1", 8, "2^127-1", 0, 0, kDown, NUMERIC_INEXACT, "0"},
    {"everything dropped before the division, up", "1", 8, "2^127-1", 0, 0, kUp, NUMERIC_INEXACT, "1"},
    {"everything dropped before the division, nearest", "1", 8, "2^127-1", 0, 0, kHalfUp, NUMERIC_INEXACT, "0"},
    {"0.5000000001", "5000000001", 10, "1", 0, 0, kHalfDown, NUMERIC_INEXACT, "1"},
    {"0.5000000000", "5000000000", 10, "1", 0, 0, kHalfDown, NUMERIC_INEXACT, "0"},
    {"a third of 1.5000000001 below the last place", "15000000001", 10, "3", 0, 0, kHalfDown, NUMERIC_INEXACT, "1"},
    {"a third of 1.5000000000", "15000000000", 10, "3", 0, 0, kHalfDown, NUMERIC_INEXACT, "0"},
    {"one and very little more", "20000000000000001", 16, "2", 0, 0, kDown, NUMERIC_INEXACT, "1"},
    {"one and very little more, up", "20000000000000001", 16, "2", 0, 0, kCeiling, NUMERIC_INEXACT, "2"},

    {"1.0 at the ends of the scales, too large", "10", -INT32_MAX, "10", INT32_MAX, 0, kUp, NUMERIC_OVERFLOW, "NaN"},
    {"1.0 at the ends of the scales, too large, negative", "10", -INT32_MAX, "-10", INT32_MAX, 0, kUp,
     NUMERIC_UNDERFLOW, "NaN"},
    {"1.0 at the ends of the scales, nothing left", "10", INT32_MAX, "10", -INT32_MAX, 0, kDown, NUMERIC_INEXACT, "0"},
    {"1.0 at the ends of the scales, nothing left, up", "10", INT32_MAX, "10", -INT32_MAX, 0, kUp, NUMERIC_INEXACT,
     "1"},
    {"1.0 at the largest scale by itself", "10", INT32_MAX, "10", INT32_MAX, 0, kUp, NUMERIC_OK, "1"},
    {"zero at the ends of the scales", "0", INT32_MIN, "7", INT32_MAX, INT32_MAX, kUp, NUMERIC_OK, "0"},
    {"the longest distance upwards", "1", INT32_MIN, "2^127-1", INT32_MAX, INT32_MAX, kDown, NUMERIC_OVERFLOW, "NaN"},
    {"the longest distance downwards", "-2^127+1", INT32_MAX, "1", INT32_MIN, INT32_MIN, kFloor, NUMERIC_INEXACT, "-1"},
    {"the longest distance downwards, nearest", "2^127-1", INT32_MAX, "1", INT32_MIN, INT32_MIN, kHalfUp,
     NUMERIC_INEXACT, "0"},
    {"scales that cancel beyond 32 bits", "6", -INT32_MAX, "3", -INT32_MAX, 0, kUp, NUMERIC_OK, "2"},
    {"a distance of 2^32 does not wrap", "6", INT32_MIN, "3", INT32_MAX, 1, kUp, NUMERIC_OVERFLOW, "NaN"},
};

constexpr SevenModesRow kSevenModes[] = {
    {"a third", "1", 0, "3", 0, 2, NUMERIC_INEXACT, "34 33 34 33 33 33 33"},
    {"minus a third", "-1", 0, "3", 0, 2, NUMERIC_INEXACT, "-34 -33 -33 -34 -33 -33 -33"},
    {"a third by minus", "1", 0, "-3", 0, 2, NUMERIC_INEXACT, "-34 -33 -33 -34 -33 -33 -33"},
    {"two thirds", "2", 0, "3", 0, 2, NUMERIC_INEXACT, "67 66 67 66 67 67 67"},
    {"an eighth, even kept", "1", 0, "8", 0, 2, NUMERIC_INEXACT, "13 12 13 12 13 12 12"},
    {"three eighths, odd kept", "3", 0, "8", 0, 2, NUMERIC_INEXACT, "38 37 38 37 38 37 38"},
    {"minus three eighths", "-3", 0, "8", 0, 2, NUMERIC_INEXACT, "-38 -37 -37 -38 -38 -37 -38"},
    {"nineteen in tens", "19", 0, "1", 0, -1, NUMERIC_INEXACT, "2 1 2 1 2 2 2"},
    {"fifteen in tens", "15", 0, "1", 0, -1, NUMERIC_INEXACT, "2 1 2 1 2 1 2"},
    {"minus fifteen in tens", "-15", 0, "1", 0, -1, NUMERIC_INEXACT, "-2 -1 -1 -2 -2 -1 -2"},
    {"twenty-five in tens", "25", 0, "1", 0, -1, NUMERIC_INEXACT, "3 2 3 2 3 2 2"},
    {"1.500000000", "1500000000", 9, "1", 0, 0, NUMERIC_INEXACT, "2 1 2 1 2 1 2"},
    {"1.500000001", "1500000001", 9, "1", 0, 0, NUMERIC_INEXACT, "2 1 2 1 2 2 2"},
    {"a hundred places down", "7", 100, "1", 0, 0, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"a hundred places down, negative", "7", 100, "-1", 0, 0, NUMERIC_INEXACT, "-1 0 0 -1 0 0 0"},
    {"-2^64 by ten", "-2^64", 0, "10", 0, 0, NUMERIC_INEXACT,
     "-1844674407370955162 -1844674407370955161 -1844674407370955161 -1844674407370955162 -1844674407370955162 "
     "-1844674407370955162 -1844674407370955162"},
    {"half of -2^64 - 1, odd divisor", "-2^64-1", 0, "2", 0, 0, NUMERIC_INEXACT,
     "-2^63-1 -2^63 -2^63 -2^63-1 -2^63-1 -2^63 -2^63"},
    {"exact", "-10", 0, "4", 0, 1, NUMERIC_OK, "-25 -25 -25 -25 -25 -25 -25"},
};

TEST(RescalingDivide, Rows) { expect_rows(QV8NumericRescalingDiv, kRows); }

TEST(RescalingDivide, EveryMode) { expect_rows(QV8NumericRescalingDiv, kSevenModes); }

// The places go before the long division, so the tie has to survive in its remainder.
TEST(RescalingDivide, TiesAtEveryScaleDistance) {
    for_every_tie([](const TieCase& item) {
        const BinaryOperation divide = at_scales(QV8NumericRescalingDiv, {item.distance, 0, 0}, item.mode);
        const Outcome expected = {NUMERIC_INEXACT, pattern(item.rounded())};
        EXPECT_TRUE(yields(divide, item.value(), num("1"), expected)) << item;
    });
}

// The same ties from a divisor that is a power of ten.
TEST(RescalingDivide, TiesAtEveryPowerOfTen) {
    for_every_tie([](const TieCase& item) {
        const cpp_int power = power_of_ten(item.distance);
        const BinaryOperation divide = at_scales(QV8NumericRescalingDiv, {0, 0, 0}, item.mode);
        const Outcome expected = {NUMERIC_INEXACT, pattern(item.rounded())};
        EXPECT_TRUE(yields(divide, item.value(), pattern(power), expected)) << item;
        const Numeric magnitude = pattern(abs(coefficient(item.value())));
        EXPECT_TRUE(yields(divide, magnitude, pattern(item.negative ? cpp_int(-power) : power), expected)) << item;
    });
}

// A one-word divisor pushes the dividend's top word out, and a set bit in the upper half of that word goes unnoticed.
// The quotient is then not the exact one.
bool passes_by_narrowness(const Numeric& a, const Numeric& b, const Scales& scales) {
    const int places = scales.result - (scales.a - scales.b);
    if (places <= 0 || abs(coefficient(b)) >= cpp_int{1} << 64) return false;
    const cpp_int top_word = (abs(coefficient(a)) * power_of_ten(places)) >> 192;
    return top_word != 0 && top_word % (cpp_int{1} << 32) == 0;
}

void expect_exact_quotient(const Numeric& a, const Numeric& b, const Scales& scales) {
    if (b == num("0") || passes_by_narrowness(a, b, scales)) return;
    const Cut exact = cut(decimal(a, scales.a) / decimal(b, scales.b), scales.result);
    for (const std::uint32_t mode : kModes) {
        EXPECT_TRUE(yields(at_scales(QV8NumericRescalingDiv, scales, mode), a, b, narrowed(exact, mode)))
            << a << " / " << b << " at " << scales << ", " << mode_name(mode);
    }
}

TEST(RescalingDivide, AllPairsOfSpecialValues) {
    constexpr Scales kScales[] = {{0, 0, 0},  {0, 0, 2},  {0, 0, 19}, {0, 0, 38}, {0, 0, -1}, {3, 0, 0},
                                  {0, 3, 0},  {38, 0, 0}, {40, 0, 0}, {9, 0, 0},  {0, 8, 0},  {2, 4, -3},
                                  {0, 30, 0}, {0, 47, 0}, {0, 90, 0}, {90, 0, 0}};
    for (const Scales& scales : kScales) {
        for (const Numeric& a : special_values()) {
            for (const Numeric& b : special_values()) expect_exact_quotient(a, b, scales);
        }
    }
}

// Divisors with a full or an empty limb behind the first one, where an estimate from the leading limb or word is worst.
constexpr const char* kAwkwardDivisors[] = {
    "2^32+1",          "2^63-1",     "2^63+2^32-1",  "2^64-2^32",   "2^64-2^32-1",       "2^64+1",       "2^65-1",
    "2^94+2^64-1",     "2^95-2^64",  "2^95+2^63",    "2^96-2^64-1", "2^96+2^64-1",       "2^126+2^95-1", "2^126+2^64-1",
    "2^126+2^96-2^64", "2^127-2^64", "2^127-2^64-1", "2^127-2^95",  "2^127-2^96+2^64-1", "2^127-2^32",
};

TEST(RescalingDivide, AwkwardDivisorsUnderLongDividends) {
    for (const char* divisor : kAwkwardDivisors) {
        for (const Numeric& dividend : special_values()) {
            for (const std::int32_t places : {0, 1, 9, 19, 20, 29, 37, 38}) {
                expect_exact_quotient(dividend, num(divisor), {0, 0, places});
            }
        }
    }
}

TEST(RescalingDivide, QuotientAndRemainderComeBack) {
    const BinaryOperation cut_off = at_scales(QV8NumericRescalingDiv, {0, 0, 0}, kDown);
    for (const char* divisor_name : kAwkwardDivisors) {
        const cpp_int divisor = coefficient(num(divisor_name));
        for (const char* quotient_name : {"1", "2", "2^31", "2^32-1", "2^32", "2^61+1", "2^63-1", "2^64-2^32"}) {
            const cpp_int quotient = coefficient(num(quotient_name));
            for (const cpp_int& remainder : {cpp_int{0}, cpp_int{1}, cpp_int(divisor / 2), cpp_int(divisor - 1)}) {
                const cpp_int dividend = quotient * divisor + remainder;
                if (dividend >= cpp_int{1} << 127) continue;
                const NumericStatus status = remainder == 0 ? NUMERIC_OK : NUMERIC_INEXACT;
                EXPECT_TRUE(yields(cut_off, pattern(dividend), pattern(divisor), {status, pattern(quotient)}))
                    << dividend << " / " << divisor;
            }
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
