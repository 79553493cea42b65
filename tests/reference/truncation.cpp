// SPDX-License-Identifier: MIT
#include "truncation.h"

#include "reference.h"
#include "rounding.h"
#include "scaling.h"

namespace reference {

NumericStatus round_to_places(std::int32_t scale, std::int32_t places, std::uint32_t mode, Numeric* num) {
    if (is_nan(*num)) return NUMERIC_NAN;
    const bool negative = is_negative(*num);
    const std::int64_t digits = places < scale ? distance(places, scale) : 0;
    Limbs rounded = magnitude(*num);
    Dropped dropped;
    scale_down(rounded, digits, dropped);
    const NumericStatus status = round(rounded, negative, mode, dropped);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    const bool lost = scale_up(rounded, digits) != 0;
    return store(rounded, negative, lost, status, num);
}

NumericStatus ceil(const NumericInfo* info, std::int32_t places, Numeric* num) {
    return round_to_places(info->scale, places, NUMERIC_ROUND_CEILING, num);
}

NumericStatus floor(const NumericInfo* info, std::int32_t places, Numeric* num) {
    return round_to_places(info->scale, places, NUMERIC_ROUND_FLOOR, num);
}

NumericStatus round(const NumericInfo* info, std::int32_t places, Numeric* num) {
    return round_to_places(info->scale, places, info->rounding_mode, num);
}

}  // namespace reference
