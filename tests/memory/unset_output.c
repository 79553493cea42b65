/* SPDX-License-Identifier: MIT */
/* A function of the library with a mistake: beyond the range it says so and leaves its output alone. Linked into the
   program it is called in place of the library's own. */
#include "qv8numeric.h"

NumericStatus QV8NumericNum2Int(const Numeric* in, const NumericInfo* info, int32_t* out) {
    if (info->rounding_mode > NUMERIC_ROUND_HALF_EVEN) return NUMERIC_INVALID_ARGUMENT;
    if (in->high != 0 || in->low > INT32_MAX) return NUMERIC_OVERFLOW;
    *out = (int32_t)in->low;
    return NUMERIC_OK;
}
