// SPDX-License-Identifier: MIT
// Zero, NaN, and the sign of what was cut off a value.
#include "reference.h"
#include "value.h"

namespace reference {

void set_zero(Numeric* out) { *out = kZero; }

void set_nan(Numeric* out) { *out = kNan; }

int is_zero_value(const Numeric* v) { return is_zero(*v) ? 1 : 0; }

int is_nan_value(const Numeric* v) { return is_nan(*v) ? 1 : 0; }

std::int32_t truncated_part(const Numeric& value, std::uint32_t& flag) {
    if (flag == 0) return 0;
    return is_negative(value) ? -1 : 1;
}

}  // namespace reference
