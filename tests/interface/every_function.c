/* SPDX-License-Identifier: MIT */
#include "every_function.h"

#include <stdint.h>
#include <string.h>

#include "qv8numeric.h"

#define STRINGIZE_TOKENS(text) #text
#define STRINGIZE(text) STRINGIZE_TOKENS(text)
#define EXPECT(condition)                                                 \
  do {                                                                    \
    if (!(condition)) return "line " STRINGIZE(__LINE__) ": " #condition; \
  } while (0)

static const Numeric kMax = {UINT64_MAX, INT64_MAX};
static const Numeric kNan = {0, INT64_MIN};

static const NumericInfo kInteger = {0, NUMERIC_ROUND_HALF_EVEN};
static const NumericInfo kTenths = {1, NUMERIC_ROUND_HALF_EVEN};
static const NumericInfo kCents = {2, NUMERIC_ROUND_HALF_EVEN};
static const NumericInfo kFinest = {INT32_MAX, NUMERIC_ROUND_UP};
static const NumericInfo kCoarsest = {INT32_MIN + 1, NUMERIC_ROUND_UP};
static const NumericInfo kNoMode = {0, 7};

/* A coefficient of one word. */
static Numeric value(int64_t coefficient) {
    Numeric result;
    result.low = (uint64_t)coefficient;
    result.high = coefficient < 0 ? -1 : 0;
    return result;
}

static int is(const Numeric* actual, int64_t coefficient) {
    const Numeric expected = value(coefficient);
    return actual->low == expected.low && actual->high == expected.high;
}

static const char* basics(void) {
    Numeric x = kMax;
    QV8NumericSetZero(&x);
    EXPECT(QV8NumericIsZero(&x) == 1 && QV8NumericIsNan(&x) == 0);
    QV8NumericSetNan(&x);
    EXPECT(QV8NumericIsZero(&x) == 0 && QV8NumericIsNan(&x) == 1);
    return NULL;
}

static const char* same_scale(void) {
    const Numeric one = value(1), two = value(2);
    Numeric x;
    EXPECT(QV8NumericAdd(&one, &two, &x) == NUMERIC_OK && is(&x, 3));
    EXPECT(QV8NumericAdd(&kMax, &one, &x) == NUMERIC_OVERFLOW && QV8NumericIsNan(&x));
    EXPECT(QV8NumericAdd(&kNan, &one, &x) == NUMERIC_NAN && QV8NumericIsNan(&x));
    EXPECT(QV8NumericSub(&one, &two, &x) == NUMERIC_OK && is(&x, -1));
    EXPECT(QV8NumericSub(&one, &kNan, &x) == NUMERIC_NAN);
    EXPECT(QV8NumericCmp(&one, &two) == 1 && QV8NumericCmp(&two, &one) == -1 && QV8NumericCmp(&two, &two) == 0);
    return NULL;
}

static const char* truncation(void) {
    Numeric x = value(12345);
    EXPECT(QV8NumericCeil(&kCents, 0, &x) == NUMERIC_INEXACT && is(&x, 12400));
    x = value(12345);
    EXPECT(QV8NumericFloor(&kCents, 0, &x) == NUMERIC_INEXACT && is(&x, 12300));
    x = value(12345);
    EXPECT(QV8NumericRound(&kCents, 1, &x) == NUMERIC_INEXACT && is(&x, 12340));
    EXPECT(QV8NumericRound(&kCents, 1, &x) == NUMERIC_OK && is(&x, 12340));
    x = kNan;
    EXPECT(QV8NumericCeil(&kCents, 0, &x) == NUMERIC_NAN);
    EXPECT(QV8NumericFloor(&kCents, 0, &x) == NUMERIC_NAN);
    EXPECT(QV8NumericRound(&kCents, 0, &x) == NUMERIC_NAN);
    x = kMax;
    (void)QV8NumericRound(&kFinest, INT32_MIN, &x);
    return NULL;
}

static const char* machine_integers(void) {
    Numeric x = value(7);
    EXPECT(QV8NumericMul(&x, 3) == NUMERIC_OK && is(&x, 21));
    EXPECT(QV8NumericDiv(&x, &kInteger, 2) == NUMERIC_INEXACT && is(&x, 10));
    EXPECT(QV8NumericDiv(&x, &kInteger, 0) == NUMERIC_NAN && QV8NumericIsNan(&x));
    x = kMax;
    EXPECT(QV8NumericMul(&x, INT32_MAX) == NUMERIC_UNDERFLOW && QV8NumericIsNan(&x));
    return NULL;
}

static const char* rescale(void) {
    const Numeric one = value(1), cents = value(12345);
    Numeric x;
    EXPECT(QV8NumericRescale(&kInteger, &kCents, &one, &x) == NUMERIC_OK && is(&x, 100));
    EXPECT(QV8NumericRescale(&kCents, &kInteger, &cents, &x) == NUMERIC_OK && is(&x, 123));
    EXPECT(QV8NumericRescale(&kInteger, &kCents, &kMax, &x) == NUMERIC_OVERFLOW);
    EXPECT(QV8NumericRescale(&kInteger, &kCents, &kNan, &x) == NUMERIC_NAN);
    (void)QV8NumericRescale(&kCoarsest, &kFinest, &kMax, &x);
    (void)QV8NumericRescale(&kFinest, &kCoarsest, &kMax, &x);
    return NULL;
}

static const char* rescaling(void) {
    const Numeric one = value(1), three = value(3), fifteen = value(15), quarter = value(25);
    Numeric x;
    EXPECT(QV8NumericRescalingAdd(&kTenths, &kCents, &kCents, &fifteen, &quarter, &x) == NUMERIC_OK && is(&x, 175));
    EXPECT(QV8NumericRescalingAdd(&kTenths, &kCents, &kTenths, &fifteen, &quarter, &x) == NUMERIC_INEXACT &&
           is(&x, 18));
    EXPECT(QV8NumericRescalingAdd(&kInteger, &kInteger, &kInteger, &kMax, &kMax, &x) == NUMERIC_OVERFLOW);
    EXPECT(QV8NumericRescalingAdd(&kInteger, &kInteger, &kInteger, &kNan, &kMax, &x) == NUMERIC_NAN);
    EXPECT(QV8NumericRescalingAdd(&kCents, &kCents, &kNoMode, &one, &one, &x) == NUMERIC_INVALID_ARGUMENT);
    (void)QV8NumericRescalingAdd(&kFinest, &kCoarsest, &kFinest, &kMax, &kMax, &x);
    EXPECT(QV8NumericRescalingSub(&kTenths, &kCents, &kCents, &fifteen, &quarter, &x) == NUMERIC_OK && is(&x, 125));
    EXPECT(QV8NumericRescalingSub(&kInteger, &kInteger, &kInteger, &one, &kNan, &x) == NUMERIC_NAN);
    (void)QV8NumericRescalingSub(&kFinest, &kCoarsest, &kCoarsest, &kMax, &kMax, &x);
    EXPECT(QV8NumericRescalingCmp(&kInteger, &kCents, &one, &quarter) == -1);
    (void)QV8NumericRescalingCmp(&kFinest, &kCoarsest, &kMax, &kMax);
    EXPECT(QV8NumericRescalingMul(&kTenths, &kTenths, &kCents, &fifteen, &fifteen, &x) == NUMERIC_OK && is(&x, 225));
    EXPECT(QV8NumericRescalingMul(&kTenths, &kTenths, &kTenths, &fifteen, &fifteen, &x) == NUMERIC_INEXACT &&
           is(&x, 22));
    EXPECT(QV8NumericRescalingMul(&kInteger, &kInteger, &kInteger, &kMax, &kMax, &x) == NUMERIC_OVERFLOW);
    (void)QV8NumericRescalingMul(&kFinest, &kFinest, &kCoarsest, &kMax, &kMax, &x);
    (void)QV8NumericRescalingMul(&kCoarsest, &kCoarsest, &kFinest, &kMax, &kMax, &x);
    EXPECT(QV8NumericRescalingDiv(&kInteger, &kInteger, &kCents, &one, &three, &x) == NUMERIC_INEXACT && is(&x, 33));
    EXPECT(QV8NumericRescalingDiv(&kInteger, &kInteger, &kCents, &kNan, &three, &x) == NUMERIC_NAN);
    (void)QV8NumericRescalingDiv(&kFinest, &kCoarsest, &kFinest, &kMax, &kMax, &x);
    (void)QV8NumericRescalingDiv(&kCoarsest, &kFinest, &kFinest, &kMax, &three, &x);
    return NULL;
}

static const char* formatting(void) {
    static char long_text[1 << 16];
    const Numeric million = value(123456789), one = value(1);
    char text[64];
    EXPECT(QV8NumericNum2Str(&million, &kCents, 0, 2, text, sizeof text) == NUMERIC_OK);
    EXPECT(strcmp(text, "1234567.89") == 0);
    EXPECT(QV8NumericNum2Dgstr(&million, &kCents, 0, 2, text, sizeof text) == NUMERIC_OK);
    EXPECT(strcmp(text, "1,234,567.89") == 0);
    EXPECT(QV8NumericNum2Str(&million, &kCents, 0, 2, text, 4) == NUMERIC_BUFFER_TOO_SMALL);
    EXPECT(QV8NumericNum2Dgstr(&million, &kCents, 0, 2, text, 4) == NUMERIC_BUFFER_TOO_SMALL);
    EXPECT(QV8NumericNum2Str(&kNan, &kCents, 0, 2, text, sizeof text) == NUMERIC_NAN);
    (void)QV8NumericNum2Str(&one, &kInteger, 0, 60000, long_text, sizeof long_text);
    (void)QV8NumericNum2Dgstr(&one, &kInteger, INT32_MIN, INT32_MAX, long_text, sizeof long_text);
    return NULL;
}

static const char* parsing(void) {
    static char long_text[1 << 16];
    Numeric x;
    char* end;
    EXPECT(QV8NumericStr2Num("-123.45", &kCents, &x, &end) == NUMERIC_OK && is(&x, -12345) && *end == '\0');
    EXPECT(QV8NumericDgstr2Num("1,234.5", &kCents, &x, &end) == NUMERIC_OK && is(&x, 123450) && *end == '\0');
    EXPECT(QV8NumericStr2Num("0.125", &kCents, &x, &end) == NUMERIC_INEXACT && is(&x, 12));
    EXPECT(QV8NumericStr2Num("twelve", &kCents, &x, &end) == NUMERIC_SYNTAX_ERROR);
    EXPECT(QV8NumericDgstr2Num("twelve", &kCents, &x, &end) == NUMERIC_SYNTAX_ERROR);
    EXPECT(QV8NumericStr2Num("1e30", &kTenths, &x, &end) == NUMERIC_OK);
    EXPECT(QV8NumericStr2Num("1e40", &kTenths, &x, &end) == NUMERIC_OVERFLOW);
    EXPECT(QV8NumericStr2Num("-1e40", &kTenths, &x, &end) == NUMERIC_UNDERFLOW);
    (void)QV8NumericStr2Num("1e-2147483648", &kFinest, &x, &end);
    memset(long_text, '0', sizeof long_text - 1);
    EXPECT(QV8NumericStr2Num(long_text, &kCents, &x, &end) == NUMERIC_OK && is(&x, 0));
    memset(long_text, '7', sizeof long_text - 1);
    (void)QV8NumericStr2Num(long_text, &kCents, &x, &end);
    (void)QV8NumericDgstr2Num(long_text, &kCents, &x, &end);
    return NULL;
}

static const char* machine_numbers(void) {
    const Numeric cents = value(12345), exact = value(12300);
    Numeric x;
    int64_t as_long;
    int32_t as_int;
    double as_double;
    EXPECT(QV8NumericLong2Num(-5, &kCents, &x) == NUMERIC_OK && is(&x, -500));
    EXPECT(QV8NumericInt2Num(-5, &kCents, &x) == NUMERIC_OK && is(&x, -500));
    EXPECT(QV8NumericNum2Long(&exact, &kCents, &as_long) == NUMERIC_OK && as_long == 123);
    EXPECT(QV8NumericNum2Long(&cents, &kCents, &as_long) == NUMERIC_INEXACT && as_long == 123);
    EXPECT(QV8NumericNum2Int(&cents, &kCents, &as_int) == NUMERIC_INEXACT && as_int == 123);
    EXPECT(QV8NumericNum2Long(&kNan, &kCents, &as_long) == NUMERIC_NAN);
    EXPECT(QV8NumericNum2Int(&kMax, &kCents, &as_int) == NUMERIC_OVERFLOW);
    (void)QV8NumericLong2Num(INT64_MIN, &kFinest, &x);
    (void)QV8NumericInt2Num(INT32_MIN, &kCoarsest, &x);
    EXPECT(QV8NumericDbl2Num(&kCents, &x, 1.5) == NUMERIC_OK && is(&x, 150));
    EXPECT(QV8NumericDbl2Num(&kCents, &x, 1e300) == NUMERIC_OVERFLOW);
    (void)QV8NumericDbl2Num(&kFinest, &x, 5e-324);
    (void)QV8NumericDbl2Num(&kCoarsest, &x, -1e308);
    EXPECT(QV8NumericNum2Dbl(&exact, &kCents, &as_double) == NUMERIC_OK && (int)as_double == 123);
    EXPECT(QV8NumericNum2Dbl(&kNan, &kCents, &as_double) == NUMERIC_NAN);
    (void)QV8NumericNum2Dbl(&kMax, &kFinest, &as_double);
    (void)QV8NumericNum2Dbl(&kMax, &kCoarsest, &as_double);
    return NULL;
}

typedef const char* (*Group)(void);

static const Group kGroups[] = {basics,    same_scale, truncation, machine_integers, rescale,
                                rescaling, formatting, parsing,    machine_numbers};

const char* call_every_function(void) {
    size_t i;
    for (i = 0; i < sizeof kGroups / sizeof kGroups[0]; ++i) {
        const char* failure = kGroups[i]();
        if (failure != NULL) return failure;
    }
    return NULL;
}
