/* SPDX-License-Identifier: MIT */
/* A function of the library with a mistake: its result depends on who called it before. Linked into the program it is
   called in place of the library's own. */
#include "qv8numeric.h"

static uint64_t calls = 0;

NumericStatus QV8NumericAdd(const Numeric* a, const Numeric* b, Numeric* out) {
    out->low = __atomic_add_fetch(&calls, 1, __ATOMIC_RELAXED);
    out->high = a->high & b->high;
    return NUMERIC_OK;
}
