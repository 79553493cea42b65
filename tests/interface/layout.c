/* SPDX-License-Identifier: MIT */
/* Sizes, offsets and values that programs were compiled with and that therefore never change. C99 and C++ alike, and
   compiled only: nothing here is run. */
#include <stddef.h>

#include "qv8numeric.h"

#define JOIN_TOKENS(a, b) a##b
#define JOIN(a, b) JOIN_TOKENS(a, b)
#define ASSERT(condition) typedef char JOIN(assertion_in_line_, __LINE__)[(condition) ? 1 : -1]

struct after_char_word {
    char first;
    uint64_t second;
};
struct after_char_numeric {
    char first;
    struct Numeric second;
};

ASSERT(sizeof(struct Numeric) == 16);
ASSERT(offsetof(struct Numeric, low) == 0);
ASSERT(offsetof(struct Numeric, high) == 8);
ASSERT(sizeof(((struct Numeric*)0)->low) == 8);
ASSERT(sizeof(((struct Numeric*)0)->high) == 8);
ASSERT(offsetof(struct after_char_numeric, second) == offsetof(struct after_char_word, second));
ASSERT(offsetof(struct after_char_numeric, second) <= 8);

ASSERT(sizeof(struct NumericInfo) == 8);
ASSERT(offsetof(struct NumericInfo, scale) == 0);
ASSERT(offsetof(struct NumericInfo, rounding_mode) == 4);
ASSERT(sizeof(((struct NumericInfo*)0)->scale) == 4);
ASSERT(sizeof(((struct NumericInfo*)0)->rounding_mode) == 4);

ASSERT(sizeof(NumericStatus) == 4 && (NumericStatus)-1 < 0);

ASSERT(NUMERIC_OK == 0);
ASSERT(NUMERIC_NAN == 1);
ASSERT(NUMERIC_INEXACT == 2);
ASSERT(NUMERIC_OVERFLOW == 3);
ASSERT(NUMERIC_UNDERFLOW == 4);
ASSERT(NUMERIC_SYNTAX_ERROR == -1);
ASSERT(NUMERIC_BUFFER_TOO_SMALL == -2);
ASSERT(NUMERIC_INVALID_ARGUMENT == -3);

ASSERT(NUMERIC_ROUND_UP == 0);
ASSERT(NUMERIC_ROUND_DOWN == 1);
ASSERT(NUMERIC_ROUND_CEILING == 2);
ASSERT(NUMERIC_ROUND_FLOOR == 3);
ASSERT(NUMERIC_ROUND_HALF_UP == 4);
ASSERT(NUMERIC_ROUND_HALF_DOWN == 5);
ASSERT(NUMERIC_ROUND_HALF_EVEN == 6);

ASSERT(QV8NUMERIC_VERSION ==
       QV8NUMERIC_VERSION_MAJOR * 10000 + QV8NUMERIC_VERSION_MINOR * 100 + QV8NUMERIC_VERSION_PATCH);

#if defined(__cplusplus)
ASSERT(sizeof(struct Numeric32) == 16);
ASSERT(sizeof(((struct Numeric32*)0)->limb[0]) == 4);
#endif
