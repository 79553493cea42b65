// SPDX-License-Identifier: MIT
// A program of the time of version 1.0: it calls every function that the header of that version offers to callers, and
// looks at what it gets. It is not changed any more; it has to run with every later 1.x.
#include <cstdio>
#include <cstring>

#include "qv8numeric.h"

static int failures = 0;

static void expect(bool condition, int line) {
    if (condition) return;
    std::printf("program.cpp:%d: another answer than that of version 1.0\n", line);
    ++failures;
}
#define EXPECT(condition) expect(condition, __LINE__)

static Numeric number(int64_t coefficient) {
    const Numeric result = {static_cast<uint64_t>(coefficient), coefficient < 0 ? -1 : 0};
    return result;
}

static bool is(const Numeric& x, int64_t coefficient) {
    const Numeric expected = number(coefficient);
    return x.low == expected.low && x.high == expected.high;
}

static const NumericInfo kUnits = {0, NUMERIC_ROUND_HALF_EVEN};
static const NumericInfo kTenths = {1, NUMERIC_ROUND_HALF_EVEN};
static const NumericInfo kCents = {2, NUMERIC_ROUND_HALF_EVEN};

static void call_one_scale() {
    const Numeric seven = number(7), nine = number(9);
    Numeric x = seven;
    QV8NumericSetZero(&x);
    EXPECT(QV8NumericIsZero(&x) == 1);
    QV8NumericSetNan(&x);
    EXPECT(QV8NumericIsNan(&x) == 1);
    EXPECT(QV8NumericAdd(&seven, &nine, &x) == NUMERIC_OK && is(x, 16));
    EXPECT(QV8NumericSub(&seven, &nine, &x) == NUMERIC_OK && is(x, -2));
    EXPECT(QV8NumericCmp(&seven, &nine) == 1);
    x = number(1251);
    EXPECT(QV8NumericCeil(&kCents, 1, &x) == NUMERIC_INEXACT && is(x, 1260));
    x = number(1259);
    EXPECT(QV8NumericFloor(&kCents, 1, &x) == NUMERIC_INEXACT && is(x, 1250));
    x = number(1265);
    EXPECT(QV8NumericRound(&kCents, 1, &x) == NUMERIC_INEXACT && is(x, 1260));
    EXPECT(QV8NumericMul(&x, 3) == NUMERIC_OK && is(x, 3780));
    EXPECT(QV8NumericDiv(&x, &kCents, 8) == NUMERIC_INEXACT && is(x, 472));
    EXPECT(QV8NumericRescale(&kUnits, &kCents, &seven, &x) == NUMERIC_OK && is(x, 700));
}

static void call_rescaling() {
    const Numeric a = number(25), b = number(125);  // 2.5 and 1.25
    Numeric x;
    EXPECT(QV8NumericRescalingAdd(&kTenths, &kCents, &kCents, &a, &b, &x) == NUMERIC_OK && is(x, 375));
    EXPECT(QV8NumericRescalingSub(&kTenths, &kCents, &kTenths, &a, &b, &x) == NUMERIC_INEXACT && is(x, 12));
    EXPECT(QV8NumericRescalingCmp(&kTenths, &kCents, &a, &b) == -1);
    EXPECT(QV8NumericRescalingMul(&kTenths, &kCents, &kCents, &a, &b, &x) == NUMERIC_INEXACT && is(x, 312));
    EXPECT(QV8NumericRescalingDiv(&kTenths, &kCents, &kUnits, &a, &b, &x) == NUMERIC_OK && is(x, 2));
}

static void call_conversions() {
    const Numeric cents = number(123456);
    char text[QV8NUMERIC_GROUPED_TEXT_SIZE(0, 2)];
    char* end = nullptr;
    Numeric x;
    int64_t int64 = 0;
    int32_t int32 = 0;
    double real = 0;
    EXPECT(QV8NumericNum2Str(&cents, &kCents, 0, 2, text, sizeof text) == NUMERIC_OK && !std::strcmp(text, "1234.56"));
    EXPECT(QV8NumericNum2Dgstr(&cents, &kCents, 0, 2, text, sizeof text) == NUMERIC_OK &&
           !std::strcmp(text, "1,234.56"));
    EXPECT(QV8NumericStr2Num("12.5x", &kCents, &x, &end) == NUMERIC_OK && is(x, 1250) && *end == 'x');
    EXPECT(QV8NumericDgstr2Num("1,234.5", &kCents, &x, &end) == NUMERIC_OK && is(x, 123450) && *end == '\0');
    EXPECT(QV8NumericLong2Num(-12, &kCents, &x) == NUMERIC_OK && is(x, -1200));
    EXPECT(QV8NumericInt2Num(12, &kTenths, &x) == NUMERIC_OK && is(x, 120));
    EXPECT(QV8NumericNum2Long(&cents, &kCents, &int64) == NUMERIC_INEXACT && int64 == 1234);
    EXPECT(QV8NumericNum2Int(&cents, &kUnits, &int32) == NUMERIC_OK && int32 == 123456);
    EXPECT(QV8NumericDbl2Num(&kCents, &x, 2.25) == NUMERIC_OK && is(x, 225));
    EXPECT(QV8NumericNum2Dbl(&x, &kCents, &real) == NUMERIC_OK && real == 2.25);
}

static void call_debugging() {
    const Numeric one = number(1);
    const Numeric32 limbs = {{1, 0, 0, 0}};
    uint32_t flag = 1;
    EXPECT(dump(&one) == 38);  // four groups of eight digits, three commas, two parentheses, a line end
    EXPECT(dump(&limbs) == 38);
    const uint64_t wide[4] = {1, 2, 3, 4};
    EXPECT(dump(reinterpret_cast<const ExtendedNumeric*>(wide)) == 75);  // eight groups, and one parenthesis more
    EXPECT(get_truncated_part(one, flag) == 1);
}

int main() {
    call_one_scale();
    call_rescaling();
    call_conversions();
    call_debugging();
    return failures == 0 ? 0 : 1;
}
