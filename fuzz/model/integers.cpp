// SPDX-License-Identifier: MIT
#include "model.h"
#include "scaling.h"

namespace qv8numeric_fuzz::model {
namespace {

// value, if it lies in -limit .. limit - 1.
IntegerOutcome fitted(const Wide& value, const Wide& limit, NumericStatus status) {
    if (value >= limit) return {NUMERIC_OVERFLOW, 0};
    if (value < -limit) return {NUMERIC_UNDERFLOW, 0};
    return {status, static_cast<std::int64_t>(value)};
}

// The coefficient's magnitude with its lowest 32 bits replaced by those of the value, cut off.
struct Scaled {
    Wide value;
    bool inexact;
};
Scaled lowest_limb_scaled(const Wide& coefficient, std::int64_t scale) {
    constexpr int kLimb = 32;
    const Wide above = coefficient - low_bits(coefficient, kLimb);
    if (scale > 0) {
        const Quotient quotient = without_places(coefficient, scale);
        return {above + low_bits(quotient.value, kLimb), quotient.rest != Rest::kNone};
    }
    // 10^32 and all powers above are multiples of 2^32.
    const Wide& factor = power_of_ten(scale < -32 ? 32 : -scale);
    return {above + low_bits(low_bits(coefficient, kLimb) * factor, kLimb), false};
}

IntegerOutcome to_integer(const Numeric& in, const NumericInfo& info, const Wide& limit) {
    if (is_nan(in)) return {NUMERIC_NAN, 0};
    if (info.scale == 0) return fitted(signed_value(in), limit, NUMERIC_OK);
    if (!is_valid_mode(info.rounding_mode)) return {NUMERIC_INVALID_ARGUMENT, 0};
    if (is_negative(in)) return {NUMERIC_UNDERFLOW, 0};
    const Scaled scaled = lowest_limb_scaled(magnitude(in), info.scale);
    return fitted(scaled.value, limit, scaled.inexact ? NUMERIC_INEXACT : NUMERIC_OK);
}

}  // namespace

Outcome from_integer(std::int64_t value, const NumericInfo& info) {
    if (info.scale == 0) return {NUMERIC_OK, true, halves(value)};
    return moved(abs(Wide(value)), value < 0, info.scale, info.rounding_mode);
}

IntegerOutcome to_int64(const Numeric& in, const NumericInfo& info) { return to_integer(in, info, power_of_two(63)); }

IntegerOutcome to_int32(const Numeric& in, const NumericInfo& info) { return to_integer(in, info, power_of_two(31)); }

}  // namespace qv8numeric_fuzz::model
