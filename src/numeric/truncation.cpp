// SPDX-License-Identifier: MIT
// Rounding to a number of places, and the exported names for it.
#include "numeric/truncation.h"

#include <algorithm>

#include "wide/narrowing.h"

namespace qv8numeric {

NumericStatus numeric_truncation_inline(const NumericInfo& info, const int32_t& target, const int32_t& result_scale,
                                        Numeric& num, const uint32_t& mode) {
    if (is_nan(num)) return NUMERIC_NAN;
    const bool negative = is_negative(num);
    ExtendedNumeric magnitude = extend(magnitude_of(num));

    // The scale at which the one rounding takes place.
    const int64_t rounding_scale = info.scale > target ? target : std::min(info.scale, result_scale);
    unsigned overflow = 0;
    const NumericStatus status = scale_and_round(magnitude, negative, rounding_scale - info.scale, mode, overflow);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;

    (void)scale_by(magnitude, result_scale - rounding_scale, overflow);  // not rounded
    return narrow(magnitude, negative, overflow, status, num);
}

}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericCeil(const NumericInfo* info, int32_t places, Numeric* num) noexcept {
    return numeric_truncation_inline(*info, places, info->scale, *num, NUMERIC_ROUND_CEILING);
}

extern "C" NumericStatus QV8NumericFloor(const NumericInfo* info, int32_t places, Numeric* num) noexcept {
    return numeric_truncation_inline(*info, places, info->scale, *num, NUMERIC_ROUND_FLOOR);
}

extern "C" NumericStatus QV8NumericRound(const NumericInfo* info, int32_t places, Numeric* num) noexcept {
    return numeric_truncation_inline(*info, places, info->scale, *num, info->rounding_mode);
}
