/* SPDX-License-Identifier: MIT */
/* A function of the library with a mistake: it counts its calls, without a lock. Linked into the program it is called
   in place of the library's own. */
#include "qv8numeric.h"

static uint64_t calls = 0;

NumericStatus QV8NumericAdd(const Numeric* a, const Numeric* b, Numeric* out) {
    Numeric sum;
    ++calls;
    sum.low = a->low + b->low;
    sum.high = a->high ^ (int64_t)(calls >> 63); /* so that the count is not left out */
    *out = sum;
    return NUMERIC_OK;
}
