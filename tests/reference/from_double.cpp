// SPDX-License-Identifier: MIT
// Doubles to coefficients: value = vector * 2^binary * 5^scale, where 2^scale of 10^scale is in the power of two.
//
// Which bits get lost depends on the order of the steps, and bits once lost are missed by every later one: the order is
// part of the result.
#include <algorithm>
#include <bit>
#include <cstdint>

#include "binary_fraction.h"
#include "limbs.h"
#include "reference.h"
#include "rounding.h"

namespace reference {
namespace {

struct Conversion {
    Limbs vector{};
    Dropped dropped{};
    bool overflow = false;
};

// All of the shift first, then the divisions.
void shift_then_divide(Conversion& c, std::int64_t shift, std::int64_t fives) {
    shift_right(c.vector, shift, c.dropped);
    for (; fives >= kLargestPower && !is_zero(c.vector); fives -= kLargestPower) {
        divide_by_five(c.vector, kLargestPower, c.dropped);
    }
    if (is_zero(c.vector) && fives > 0) return next_code(c.dropped, 0);  // as would all divisions that are left
    divide_by_five(c.vector, fives, c.dropped);
}

// In turns, so that the product stays within the vector. Without powers left, all of the shift at once.
void shift_and_multiply(Conversion& c, std::int64_t shift, std::int64_t fives) {
    while ((shift > 0 || fives > 0) && !c.overflow) {
        const std::int64_t step = fives > 0 ? std::min<std::int64_t>(shift, 28) : shift;
        const std::int64_t power = std::min(fives, kLargestPower);
        shift_right(c.vector, step, c.dropped);
        c.overflow = multiply(c.vector, power_of_five(power)) != 0;
        shift -= step;
        fives -= power;
    }
}

void divide_and_shift(Conversion& c, std::int64_t shift, std::int64_t fives) {
    while ((shift > 0 || fives > 0) && !c.overflow) {
        const std::int64_t step = std::min<std::int64_t>(shift, 27);
        const std::int64_t power = std::min(fives, kLargestPower);
        divide_by_five(c.vector, power, c.dropped);
        c.overflow = shift_left_loses(c.vector, step);
        shift -= step;
        fives -= power;
    }
}

NumericStatus not_finite(bool negative, bool nan, Numeric* out) {
    *out = kNan;
    return nan ? NUMERIC_NAN : range_status(negative);
}

}  // namespace

NumericStatus from_double(const NumericInfo* info, Numeric* out, double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const bool negative = bits >> 63 != 0;
    const auto exponent = static_cast<std::int64_t>(bits >> 52 & 0x7ff);
    const std::uint64_t fraction = bits & 0xfffffffffffff;
    if (exponent == 0x7ff) return not_finite(negative, fraction != 0, out);
    if (exponent == 0 && fraction == 0) {
        *out = kZero;
        return NUMERIC_OK;
    }
    const bool normal = exponent != 0;
    const std::int64_t scale = info->scale;
    const std::int64_t binary = (normal ? exponent : 1) - 1023 - 52 - 192 + scale;
    Conversion c;
    c.vector = from_word(normal ? fraction | std::uint64_t{1} << 52 : fraction);
    shift_left(c.vector, 192);
    if (binary < 0 && scale <= 0) {
        shift_then_divide(c, -binary, -scale);
    } else if (binary < 0) {
        shift_and_multiply(c, -binary, scale);
    } else if (scale < 0) {
        divide_and_shift(c, binary, -scale);
    } else {
        c.overflow = true;  // the significand stands at bit 192, and nothing would make it smaller
    }
    const NumericStatus status = round(c.vector, negative, info->rounding_mode, c.dropped);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    return store(c.vector, negative, c.overflow, status, out);
}

}  // namespace reference
