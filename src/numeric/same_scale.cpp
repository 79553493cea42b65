// SPDX-License-Identifier: MIT
// Add, subtract and compare for two values of one scale.
#include "numeric/same_scale.h"

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericAdd(const Numeric* a, const Numeric* b, Numeric* out) noexcept {
    if (propagates_nan(*a, *b, *out)) return NUMERIC_NAN;
    return add_same_scale(*a, *b, *out);
}

extern "C" NumericStatus QV8NumericSub(const Numeric* a, const Numeric* b, Numeric* out) noexcept {
    if (propagates_nan(*a, *b, *out)) return NUMERIC_NAN;
    return subtract_same_scale(*a, *b, *out);
}

extern "C" int32_t QV8NumericCmp(const Numeric* a, const Numeric* b) noexcept { return compare_same_scale(*a, *b); }
