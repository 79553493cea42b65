// SPDX-License-Identifier: MIT
// A double from a Numeric.
#include "numconv/binary64.h"
#include "numconv/double_steps.h"
#include "wide/coefficient.h"

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericNum2Dbl(const Numeric* in, const NumericInfo* info, double* out) noexcept {
    constexpr uint64_t nan_bits = UINT64_MAX;
    if (is_zero(*in)) {
        store(0, *out);
        return NUMERIC_OK;
    }
    if (is_nan(*in)) {
        store(nan_bits, *out);
        return NUMERIC_NAN;
    }
    return to_double_in_steps(*in, *info, *out);
}
