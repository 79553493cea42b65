// SPDX-License-Identifier: MIT
// Rounding a value to a number of places, in place.
#ifndef QV8NUMERIC_NUMERIC_TRUNCATION_H
#define QV8NUMERIC_NUMERIC_TRUNCATION_H

#include "wide/coefficient.h"

namespace qv8numeric {

// Rounds num, given at info's scale, to target places with mode, and writes it back at result_scale. Of info only the
// scale is read. Where num has no more than target places there is one move, from info's scale to result_scale, rounded
// if that is downward. Else num is rounded at target; going on to a smaller result_scale cuts digits off without
// rounding again.
//
// NUMERIC_NAN and NUMERIC_INVALID_ARGUMENT leave num untouched; out of range writes NaN.
NumericStatus numeric_truncation_inline(const NumericInfo& info, const int32_t& target, const int32_t& result_scale,
                                        Numeric& num, const uint32_t& mode);

// The sign of a part that was cut off value, 0 when nothing was.
constexpr int32_t truncated_sign(const Numeric& value, bool truncated) {
    if (!truncated) return 0;
    return is_negative(value) ? -1 : 1;
}

}  // namespace qv8numeric

#endif
