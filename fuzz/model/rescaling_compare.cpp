// SPDX-License-Identifier: MIT
#include "model.h"
#include "rounding.h"

namespace qv8numeric_fuzz::model {
namespace {

// The sign of left - right, where right has distance >= 0 places more.
int order(const Wide& left, const Wide& right, std::int64_t distance) {
    // A whole number times 10^39 is beyond every coefficient.
    if (distance > 39) distance = 39;
    return Wide(left * power_of_ten(distance)).compare(right);
}

}  // namespace

// The sign of b - a.
std::int32_t rescaling_compare(const NumericInfo& a_info, const NumericInfo& b_info, const Numeric& a,
                               const Numeric& b) {
    if (!is_valid_mode(a_info.rounding_mode) || !is_valid_mode(b_info.rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    if (a_info.scale == b_info.scale) return compare(a, b);
    if (is_nan(a)) return 1;
    if (is_nan(b)) return -1;
    const std::int64_t distance = std::int64_t{b_info.scale} - a_info.scale;
    if (distance > 0) return -order(signed_value(a), signed_value(b), distance);
    return order(signed_value(b), signed_value(a), -distance);
}

}  // namespace qv8numeric_fuzz::model
