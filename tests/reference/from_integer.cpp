// SPDX-License-Identifier: MIT
// Machine integers to coefficients.
#include <cstdint>

#include "limbs.h"
#include "reference.h"
#include "rounding.h"
#include "scaling.h"

namespace reference {

NumericStatus from_int64(std::int64_t value, const NumericInfo* info, Numeric* out) {
    const bool negative = value < 0;
    const Numeric coefficient{static_cast<std::uint64_t>(value), negative ? -1 : 0};
    if (info->scale == 0) {
        *out = coefficient;  // no mode is looked at
        return NUMERIC_OK;
    }
    Limbs x = magnitude(coefficient);
    Dropped dropped;
    const bool lost = scale(x, info->scale, dropped) != 0;
    const NumericStatus status = round(x, negative, info->rounding_mode, dropped);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    return store(x, negative, lost, status, out);
}

NumericStatus from_int32(std::int32_t value, const NumericInfo* info, Numeric* out) {
    return from_int64(value, info, out);
}

}  // namespace reference
