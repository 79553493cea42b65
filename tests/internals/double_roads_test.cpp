// SPDX-License-Identifier: MIT
// The short roads of the double conversions against the steps.
#include <gtest/gtest.h>

#include "binary64.h"
#include "modes.h"
#include "numconv/binary64.h"
#include "numconv/double_steps.h"
#include "outcome.h"
#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

constexpr std::uint64_t kUntouchedBits = 0x5a5a5a5a5a5a5a5a;
constexpr int kRandomCases = 200000;

// Every mode, and one that is none.
std::uint32_t any_mode(RandomValues& random) { return static_cast<std::uint32_t>(random.below(8)); }

testing::AssertionResult from_double_agrees(std::uint64_t bits, const NumericInfo& info) {
    Outcome steps{NUMERIC_OK, kUntouched};
    Outcome road = steps;
    steps.status = from_double_in_steps(bits, info, steps.value);
    road.status = QV8NumericDbl2Num(&info, &road.value, from_bits(bits));
    if (road == steps) return testing::AssertionSuccess();
    return testing::AssertionFailure() << bits_text(bits) << " at " << info.scale << ", "
                                       << mode_name(info.rounding_mode) << ": " << road << ", in steps " << steps;
}

constexpr std::uint64_t kFractions[] = {0, 1, 0x8000000000000, 0xaaaaaaaaaaaaa, 0xffffffffffffe, 0xfffffffffffff};

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
            for (const int scale : {INT32_MIN, -1075, -38, -1, 0, 1, 19, 20, 38, 39, 1074, INT32_MAX}) {
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

}  // namespace
}  // namespace qv8numeric_tests
