// SPDX-License-Identifier: MIT
// Every rounding mode, either sign and everything around a tie, at every distance of scales from 1 to 96, through each
// public function that moves a value so far.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "exact.h"

namespace qv8numeric_tests {
namespace {

constexpr int kLongestDistance = 96;
const cpp_int kLargest = (cpp_int{1} << 127) - 1;

// Even and odd, small, at the ends of a word, and as wide as a coefficient allows.
std::vector<cpp_int> kept_parts(int distance) {
    const cpp_int word = cpp_int{1} << 64;
    const cpp_int widest = kLargest / power_of_ten(distance);
    return {0, 1, 2, 3, word / 2 - 1, word / 2, word - 1, word, widest - 1, widest};
}

// Nothing, a unit, the tie and its neighbours, and all but a unit.
std::vector<cpp_int> dropped_parts(int distance) {
    const cpp_int unit = power_of_ten(distance), tie = unit / 2;
    return {0, 1, tie - 1, tie, tie + 1, unit - 1};
}

// The magnitudes that lose such a part over the distance, as far as they are coefficients. Beyond 38 places no
// coefficient reaches a tie: there its largest ones take the place of what is out of range.
std::vector<cpp_int> magnitudes(int distance) {
    std::vector<cpp_int> list{kLargest, kLargest - 1};
    for (const cpp_int& kept : kept_parts(distance)) {
        for (const cpp_int& dropped : dropped_parts(distance)) {
            const cpp_int magnitude = kept * power_of_ten(distance) + dropped;
            if (0 <= magnitude && magnitude <= kLargest) list.push_back(magnitude);
        }
    }
    return list;
}

// The calls of one test, and the first few that went wrong.
class Walk {
  public:
    void expect(const Outcome& actual, const Outcome& expected, const std::string& call) {
        ++calls_;
        if (!(actual == expected) && failures_++ < 10) {
            ADD_FAILURE() << call << ": " << actual << ", expected " << expected;
        }
    }
    long calls() const { return calls_; }

  private:
    long calls_ = 0;
    int failures_ = 0;
};

std::string described(const Numeric& a, int distance, std::uint32_t mode) {
    return text(a) + ", " + std::to_string(distance) + " places, " + mode_name(mode);
}

template <class Check>
long for_every_value(Check check) {
    Walk walk;
    for (int distance = 1; distance <= kLongestDistance; ++distance) {
        for (const cpp_int& magnitude : magnitudes(distance)) {
            for (const bool negative : {false, true}) {
                const Numeric value = pattern(negative ? cpp_int(-magnitude) : magnitude);
                for (const std::uint32_t mode : kModes) check(walk, value, distance, mode);
            }
        }
    }
    return walk.calls();
}

TEST(ScaleDistances, RoundToAMultiple) {
    const long calls = for_every_value([](Walk& walk, const Numeric& value, int distance, std::uint32_t mode) {
        const NumericInfo info{distance, mode};
        Outcome actual{NUMERIC_OK, value};
        actual.status = QV8NumericRound(&info, 0, &actual.value);
        const Cut exact = cut(decimal(value, distance), 0);
        const Outcome expected = in_range(rounded(exact, mode) * power_of_ten(distance), success(exact));
        walk.expect(actual, expected, described(value, distance, mode));
    });
    EXPECT_GT(calls, 20000);
}

// A loss is not reported here. A rounding that leaves the range goes on as the coefficient -2^127, and whatever ends
// with another sign than the source, also a negative value that becomes 0, is refused as an overflow.
Outcome rescaled(const Numeric& value, int distance, std::uint32_t mode) {
    const cpp_int in_place = rounded(cut(decimal(value, distance), 0), mode) * power_of_ten(distance);
    const cpp_int going_on = abs(in_place) > kLargest ? cpp_int(-kLargest - 1) : in_place;
    const cpp_int result = going_on / power_of_ten(distance);  // towards zero
    if ((result < 0) != (coefficient(value) < 0)) return outcome(NUMERIC_OVERFLOW, "NaN");
    return {NUMERIC_OK, pattern(result)};
}

TEST(ScaleDistances, Rescale) {
    const long calls = for_every_value([](Walk& walk, const Numeric& value, int distance, std::uint32_t mode) {
        const NumericInfo from{distance, NUMERIC_ROUND_UP}, to{0, mode};
        Outcome actual{NUMERIC_OK, kPoison};
        actual.status = QV8NumericRescale(&from, &to, &value, &actual.value);
        walk.expect(actual, rescaled(value, distance, mode), described(value, distance, mode));
    });
    EXPECT_GT(calls, 20000);
}

// The value at the distance's scale and another one at scale 0, into scale 0: the value alone, next to others on either
// side of it, and next to the ends of the range.
TEST(ScaleDistances, AddAndSubtract) {
    const std::vector<Numeric> others{num("0"), num("1"), num("-2"), num("2^64"), num("2^127-1"), num("-2^127+1")};
    const long calls = for_every_value([&](Walk& walk, const Numeric& value, int distance, std::uint32_t mode) {
        const NumericInfo far{distance, mode}, near{0, mode};
        for (const Numeric& other : others) {
            const Fraction x = decimal(value, distance), y = decimal(other, 0);
            const std::string call = text(other) + " and " + described(value, distance, mode);
            Outcome actual{NUMERIC_OK, kPoison};
            actual.status = QV8NumericRescalingAdd(&near, &far, &near, &other, &value, &actual.value);
            walk.expect(actual, narrowed(cut(y + x, 0), mode), "sum of " + call);
            actual.value = kPoison;
            actual.status = QV8NumericRescalingSub(&far, &near, &near, &value, &other, &actual.value);
            walk.expect(actual, narrowed(cut(x - y, 0), mode), "difference, turned, of " + call);
        }
    });
    EXPECT_GT(calls, 200000);
}

TEST(ScaleDistances, MultiplyByOneAndDivideByOne) {
    const Numeric one = num("1"), minus_one = num("-1");
    const long calls = for_every_value([&](Walk& walk, const Numeric& value, int distance, std::uint32_t mode) {
        const NumericInfo far{distance, mode}, near{0, mode};
        for (const Numeric& other : {one, minus_one}) {
            Cut exact = cut(decimal(value, distance) * decimal(other, 0), 0);
            exact.negative = (coefficient(value) < 0) != (coefficient(other) < 0);
            const Outcome expected = narrowed(exact, mode);
            Outcome actual{NUMERIC_OK, kPoison};
            actual.status = QV8NumericRescalingMul(&far, &near, &near, &value, &other, &actual.value);
            walk.expect(actual, expected, "times " + text(other) + ": " + described(value, distance, mode));
            actual.value = kPoison;
            actual.status = QV8NumericRescalingDiv(&far, &near, &near, &value, &other, &actual.value);
            walk.expect(actual, expected, "by " + text(other) + ": " + described(value, distance, mode));
        }
    });
    EXPECT_GT(calls, 100000);
}

// Products too wide for a coefficient: (2 * odd + 1) * 5 * 10^(i - 1) times 10^(distance - i) is a tie, and a factor
// one off it is as near to the tie as a product of these factors comes.
TEST(ScaleDistances, MultiplyToTiesInFourWords) {
    Walk walk;
    for (int distance = 2; distance <= 76; ++distance) {
        const int i = distance / 2, rest = distance - i;
        if (rest > 38) continue;
        const NumericInfo a_info{i, NUMERIC_ROUND_UP}, b_info{rest, NUMERIC_ROUND_UP};
        const cpp_int b = power_of_ten(rest);
        for (const int kept : {0, 1, 2, 3, 14, 15}) {
            const cpp_int tie = (2 * kept + 1) * 5 * power_of_ten(i - 1);
            for (const int beside : {-1, 0, 1}) {
                for (const bool negative : {false, true}) {
                    const cpp_int a = negative ? cpp_int(-tie - beside) : cpp_int(tie + beside);
                    if (abs(a) > kLargest) continue;
                    for (const std::uint32_t mode : kModes) {
                        const NumericInfo result_info{0, mode};
                        const Numeric x = pattern(a), y = pattern(b);
                        Outcome actual{NUMERIC_OK, kPoison};
                        actual.status = QV8NumericRescalingMul(&a_info, &b_info, &result_info, &x, &y, &actual.value);
                        const Outcome expected = narrowed(cut(decimal(x, i) * decimal(y, rest), 0), mode);
                        walk.expect(actual, expected, text(y) + " times " + described(x, distance, mode));
                    }
                }
            }
        }
    }
    EXPECT_GT(walk.calls(), 10000);
}

}  // namespace
}  // namespace qv8numeric_tests
