// SPDX-License-Identifier: MIT
// The short roads of the double conversions against the steps, and the number theory that one of them rests on.
#include <gtest/gtest.h>

#include <algorithm>

#include "binary64.h"
#include "modes.h"
#include "numconv/binary64.h"
#include "numconv/double_steps.h"
#include "outcome.h"
#include "special_values.h"
#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

constexpr std::uint64_t kUntouchedBits = 0x5a5a5a5a5a5a5a5a;
constexpr int kRandomCases = 200000;

// Every mode, and one that is none.
std::uint32_t any_mode(RandomValues& random) { return static_cast<std::uint32_t>(random.below(8)); }

// ---- From double ----

testing::AssertionResult from_double_agrees(std::uint64_t bits, const NumericInfo& info) {
    Outcome steps{NUMERIC_OK, kUntouched};
    Outcome road = steps;
    steps.status = from_double_in_steps(bits, info, steps.value);
    road.status = QV8NumericDbl2Num(&info, &road.value, from_bits(bits));
    if (road == steps) return testing::AssertionSuccess();
    return testing::AssertionFailure() << bits_text(bits) << " at " << info.scale << ", "
                                       << mode_name(info.rounding_mode) << ": " << road << ", in steps " << steps;
}

// The third is that of 5, a fifth of which is a single bit: nothing is left of it where that bit leaves the top.
constexpr std::uint64_t kFractions[] = {
    0, 1, 0x4000000000000, 0x8000000000000, 0xaaaaaaaaaaaaa, 0xffffffffffffe, 0xfffffffffffff,
};

// The exponent field of doubles whose product with 10^scale has about so many bits before its point.
std::int64_t field_for(int length, int scale) { return 1023 + length - scale * 3322 / 1000; }

// Every length of a result from far below one half to beyond the range, so every end of a road, at every scale that has
// one and some beyond.
TEST(FromDoubleRoads, AgreeWithTheStepsAtEveryLength) {
    RandomValues random(1);
    for (int scale = -150; scale <= 60; ++scale) {
        for (int length = -140; length <= 135; ++length) {
            const std::int64_t field = field_for(length, scale);
            if (field < 0 || field > 0x7ff) continue;
            for (const std::uint64_t fraction : kFractions) {
                const std::uint64_t bits = exponent_field(field) | fraction | random.below(2) << 63;
                ASSERT_TRUE(from_double_agrees(bits, {scale, any_mode(random)}));
            }
        }
    }
}

TEST(FromDoubleRoads, AgreeWithTheStepsForEveryExponent) {
    RandomValues random(2);
    for (std::int64_t field = 0; field <= 0x7ff; ++field) {
        for (const std::uint64_t fraction : kFractions) {
            for (const int scale : {INT32_MIN, -1075, -38, -1, 0, 1, 19, 20, 27, 28, 38, 39, 1074, INT32_MAX}) {
                const std::uint64_t bits = exponent_field(field) | fraction | random.below(2) << 63;
                ASSERT_TRUE(from_double_agrees(bits, {scale, any_mode(random)}));
            }
        }
    }
}

TEST(FromDoubleRoads, AgreeWithTheStepsAtRandom) {
    RandomValues random(3);
    for (int i = 0; i < kRandomCases; ++i) {
        const int scale = static_cast<int>(random.below(120)) - 60;
        const std::int64_t field = field_for(static_cast<int>(random.below(200)) - 68, scale);
        const std::uint64_t bits = exponent_field(field) | (random.word() & fraction_mask) | random.below(2) << 63;
        ASSERT_TRUE(from_double_agrees(bits, {scale, any_mode(random)}));
    }
}

// ---- To double ----

testing::AssertionResult to_double_agrees(const Numeric& value, const NumericInfo& info) {
    double steps = from_bits(kUntouchedBits);
    double road = steps;
    const NumericStatus status_of_steps = to_double_in_steps(value, info, steps);
    const NumericStatus status_of_road = QV8NumericNum2Dbl(&value, &info, &road);
    const DoubleOutcome expected{status_of_steps, bits(steps)}, actual{status_of_road, bits(road)};
    if (actual == expected) return testing::AssertionSuccess();
    return testing::AssertionFailure() << value << " at " << info.scale << ", " << mode_name(info.rounding_mode) << ": "
                                       << actual << ", in steps " << expected;
}

Numeric coefficient_of(const Integer& magnitude, bool negative) { return with_sign(pair(magnitude), negative); }

// What lies at m / 10^places or next to it, for m times a power of two that fills a coefficient.
void expect_agreement_around(const Integer& m, int places, RandomValues& random) {
    const Integer product = m * power(10, static_cast<unsigned>(places));
    const Integer largest = two_to(127) - 1;
    for (unsigned length = static_cast<unsigned>(msb(product)) + 1, target = 20; target <= 127; ++target) {
        const Integer at = target >= length ? product << (target - length) : product >> (length - target);
        for (const int apart : {-1, 0, 1}) {
            const Integer magnitude = std::clamp(Integer(at + apart), Integer{1}, largest);
            const Numeric value = coefficient_of(magnitude, random.below(2) != 0);
            ASSERT_TRUE(to_double_agrees(value, {places, any_mode(random)}));
        }
    }
}

// Significands of 53 bits, ties of 54, powers of two, and their neighbours, reached by every length of coefficient.
TEST(ToDoubleRoads, AgreeWithTheStepsAroundWhereResultsChange) {
    RandomValues random(4);
    for (int places = 0; places <= 80; ++places) {
        for (const Integer& m : {Integer{1}, two_to(53) - 1, two_to(54) - 1, two_to(53) + 1, Integer{0x2aaaaaaaaaaaab},
                                 Integer{random.word() >> 10 | 1}}) {
            expect_agreement_around(m, places, random);
            if (HasFatalFailure()) return;
        }
    }
}

TEST(ToDoubleRoads, AgreeWithTheStepsForSpecialValues) {
    RandomValues random(5);
    for (const Numeric& value : special_values()) {
        if (is_zero(value) || is_nan(value)) continue;
        for (int scale = -400; scale <= 400; ++scale) {
            ASSERT_TRUE(to_double_agrees(value, {scale, any_mode(random)}));
        }
        for (const int scale : {INT32_MIN, -2000, 2000, INT32_MAX}) {
            ASSERT_TRUE(to_double_agrees(value, {scale, any_mode(random)}));
        }
    }
}

TEST(ToDoubleRoads, AgreeWithTheStepsAtRandom) {
    RandomValues random(6);
    for (int i = 0; i < kRandomCases; ++i) {
        const int scale = static_cast<int>(random.below(125)) - 45;
        const Integer magnitude = std::max(random.magnitude(127), Integer{1});
        ASSERT_TRUE(to_double_agrees(coefficient_of(magnitude, random.below(2) != 0), {scale, any_mode(random)}));
    }
}

// ---- What the steps drop on the way to a double ----

// The smallest a * m modulo n for 1 <= m <= limit < n, with a and n coprime. The smallest and the largest remainder so
// far, the latter as what it lacks to n, are improved by turns: each by as many of the other as it can take.
Integer smallest_remainder(const Integer& a, const Integer& n, const Integer& limit) {
    Integer smallest = a % n, at_smallest = 1;
    Integer lacking = n - smallest, at_lacking = 1;
    while (at_smallest + at_lacking <= limit) {
        const Integer down = std::min(Integer((smallest - 1) / lacking), Integer((limit - at_smallest) / at_lacking));
        smallest -= down * lacking;
        at_smallest += down * at_lacking;
        const Integer up = std::min(Integer((lacking - 1) / smallest), Integer((limit - at_lacking) / at_smallest));
        lacking -= up * smallest;
        at_lacking += up * at_smallest;
        if (down == 0 && up == 0) break;  // one more of the other would be a remainder of 0
    }
    return smallest;
}

TEST(SmallestRemainder, IsWhatAllRemaindersShow) {
    for (unsigned exponent = 1; exponent <= 5; ++exponent) {
        const Integer n = power(5, exponent);
        for (unsigned twos = 1; twos <= 30; ++twos) {
            Integer smallest = n;
            for (Integer m = 1; m < n; ++m) {
                smallest = std::min(smallest, Integer(two_to(twos) * m % n));
                ASSERT_EQ(smallest_remainder(two_to(twos), n, m), smallest) << "2^" << twos << " m modulo " << n;
            }
        }
    }
}

// The most that the steps drop by a division by 10^places, times magnitude * 2^128 / value. Of the quotients
// magnitude * 2^(128 - 27) * (2^27 / 5^12)^i, the i-th loses less than 1; so does a last one by what remains of
// 5^places.
struct Loss {
    Integer numerator;
    Integer denominator;
};

Loss loss_of_steps(unsigned places) {
    const unsigned turns = places / 12;
    const Integer denominator = two_to(27 * turns);
    Integer numerator = 0;
    for (unsigned i = 1; i <= turns; ++i) numerator += power(5, 12 * i) << 27 * (turns - i + 1);
    if (places % 12 != 0) numerator += power(5, places);
    return {numerator, denominator};
}

// Up to a power of two a value is magnitude * 2^n / 5^places with the n that leaves 54 bits before the point: the
// significand of the double, and the half. If anything is left behind the point, it is at least the smallest remainder
// of all magnitudes with this n, and the 54 bits stay when the loss is less. (Below n = 1 it is at least 1 / magnitude
// of the value, far more than any loss.)
TEST(ToDoubleSteps, NeverDropWhatDecidesUpTo76Places) {
    for (unsigned places = 0; places <= 76; ++places) {
        const Integer divisor = power(5, places);
        const Loss loss = loss_of_steps(places);
        for (unsigned n = 1; two_to(n) <= divisor << 54; ++n) {
            const Integer largest = std::min((divisor << 54) >> n, divisor - 1);
            if (largest == 0) continue;
            const Integer remainder = smallest_remainder(two_to(n), divisor, largest);
            EXPECT_GT(remainder * loss.denominator << 128, loss.numerator << n) << places << " places, 2^" << n;
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
