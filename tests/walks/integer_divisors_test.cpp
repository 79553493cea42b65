// SPDX-License-Identifier: MIT
// Every class of int32 divisors and factors, at its ends and beside them, with dividends at theirs.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "exact.h"
#include "special_values.h"

namespace qv8numeric_tests {
namespace {

const cpp_int kTwoTo127 = cpp_int{1} << 127;

// 0, the powers of two and of ten with what lies beside them, and the ends of the type; either sign.
std::vector<std::int32_t> machine_integers() {
    std::set<std::int64_t> magnitudes{0, 3, 7, std::int64_t{INT32_MAX} - 1, INT32_MAX, -std::int64_t{INT32_MIN}};
    for (int k = 0; k <= 31; ++k) {
        for (const int beside : {-1, 0, 1}) magnitudes.insert((std::int64_t{1} << k) + beside);
    }
    for (std::int64_t power = 1; power <= INT32_MAX; power *= 10) {
        for (const int beside : {-1, 0, 1}) magnitudes.insert(power + beside);
        magnitudes.insert(power / 2);
        magnitudes.insert(5 * power);
    }
    std::set<std::int32_t> list;
    for (const std::int64_t magnitude : magnitudes) {
        for (const std::int64_t value : {magnitude, -magnitude}) {
            if (INT32_MIN <= value && value <= INT32_MAX) list.insert(static_cast<std::int32_t>(value));
        }
    }
    return {list.begin(), list.end()};
}

// Coefficients at their own limits, and multiples of the divisor with a remainder at each of its limits.
std::vector<Numeric> dividends(std::int32_t divisor) {
    std::vector<Numeric> list = special_values();
    const cpp_int d = abs(cpp_int{divisor});
    if (d == 0) return list;
    const cpp_int most = (kTwoTo127 - 1) / d;
    const cpp_int limb = cpp_int{1} << 32;
    const std::vector<cpp_int> quotients{
        0, 1, 2, limb - 1, limb, limb * limb - 1, limb * limb, limb * limb * limb, most - 1, most};
    const std::vector<cpp_int> remainders{0, 1, d / 2 - 1, d / 2, d / 2 + 1, d - 1};
    for (const cpp_int& quotient : quotients) {
        for (const cpp_int& remainder : remainders) {
            const cpp_int dividend = quotient * d + remainder;
            if (remainder < 0 || remainder >= d || dividend >= kTwoTo127) continue;
            list.push_back(pattern(dividend));
            list.push_back(pattern(-dividend));
        }
    }
    return list;
}

// The top limb is that of the value, the others are those of its magnitude: of a value that is not negative this is its
// magnitude, of any other something that callers do not ask for, and which is held all the same.
cpp_int dividend_of(const Numeric& value) {
    const cpp_int lower_limbs = (cpp_int{1} << 96) - 1;
    const cpp_int x = coefficient(value);
    const cpp_int bits = x < 0 ? cpp_int(x + 2 * kTwoTo127) : x;
    return ((bits >> 96) << 96) | (abs(x) & lower_limbs);
}

Outcome quotient(const Numeric& value, std::int32_t divisor, std::uint32_t mode) {
    if (coefficient(value) == -kTwoTo127) return {NUMERIC_NAN, value};
    if (divisor == 0) return outcome(NUMERIC_NAN, "NaN");
    if (divisor == 1 || divisor == -1) return {NUMERIC_OK, value};
    Cut exact = cut({dividend_of(value), abs(cpp_int{divisor})}, 0);
    exact.negative = (coefficient(value) < 0) != (divisor < 0);
    const bool valid = mode <= NUMERIC_ROUND_HALF_EVEN;
    const cpp_int result = rounded(exact, valid ? mode : std::uint32_t{NUMERIC_ROUND_DOWN});
    return {valid ? success(exact) : NUMERIC_INVALID_ARGUMENT, pattern(result)};
}

TEST(IntegerDivisors, EveryClassAndMode) {
    long calls = 0;
    for (const std::int32_t divisor : machine_integers()) {
        for (const Numeric& value : dividends(divisor)) {
            for (std::uint32_t mode = 0; mode <= 7; ++mode) {
                const NumericInfo info{5, mode};
                Outcome actual{NUMERIC_OK, value};
                actual.status = QV8NumericDiv(&actual.value, &info, divisor);
                ASSERT_EQ(actual, quotient(value, divisor, mode)) << text(value) << " / " << divisor << ", " << mode;
                ++calls;
            }
        }
    }
    EXPECT_GT(calls, 100000);
}

// Of a negative factor every product is refused. A product of -2^127 is accepted, and is the pattern of NaN.
Outcome product(const Numeric& value, std::int32_t factor) {
    if (coefficient(value) == -kTwoTo127) return {NUMERIC_NAN, value};
    const cpp_int exact = coefficient(value) * factor;
    if (factor < 0 || exact >= kTwoTo127 || exact < -kTwoTo127) return outcome(NUMERIC_UNDERFLOW, "NaN");
    return {NUMERIC_OK, pattern(exact)};
}

TEST(IntegerFactors, EveryClass) {
    long calls = 0;
    for (const std::int32_t factor : machine_integers()) {
        std::vector<Numeric> values = dividends(factor);
        if (factor > 0) {  // around the ends of the range
            for (const int beside : {-1, 0, 1}) {
                const cpp_int end = kTwoTo127 / factor + beside;
                if (end < kTwoTo127) values.insert(values.end(), {pattern(end), pattern(-end)});
            }
        }
        for (const Numeric& value : values) {
            Outcome actual{NUMERIC_OK, value};
            actual.status = QV8NumericMul(&actual.value, factor);
            ASSERT_EQ(actual, product(value, factor)) << text(value) << " * " << factor;
            ++calls;
        }
    }
    EXPECT_GT(calls, 20000);
}

}  // namespace
}  // namespace qv8numeric_tests
