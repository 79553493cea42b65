/* SPDX-License-Identifier: MIT */
/* A function of the library with a mistake: it looks at a byte behind the NUL. Linked into the program it is called in
   place of the library's own. */
#include <string.h>

#include "qv8numeric.h"

NumericStatus QV8NumericStr2Num(const char* text, const NumericInfo* info, Numeric* result, char** end) {
    const char* behind = text + strlen(text);
    if (end != NULL) *end = (char*)(uintptr_t)behind;
    if (info->rounding_mode > NUMERIC_ROUND_HALF_EVEN) return NUMERIC_INVALID_ARGUMENT;
    result->low = 0;
    result->high = 0;
    return behind[1] == ',' ? NUMERIC_INEXACT : NUMERIC_OK;
}
