// SPDX-License-Identifier: MIT
#include "model.h"
#include "scaling.h"

namespace qv8numeric_fuzz::model {
namespace {

// Operands whose scales differ by more are not aligned exactly.
constexpr std::int64_t kExactDistance = 38;

struct Sum {
    Wide value;
    std::int64_t scale;
    int beyond;  // the sign of what lies below the last place of value: 0, 1 or -1
};

// coarse + fine, where fine has distance > 38 places more. The coarse one gets 38 places, or 48 if its upper half is
// nothing but a sign; below those only the sign of fine is kept.
Sum far_apart(const Wide& coarse, bool coarse_is_short, std::int64_t coarse_scale, const Wide& fine,
              std::int64_t distance) {
    const std::int64_t guard = coarse_is_short ? 48 : 38;
    const Wide raised = coarse * power_of_ten(guard);
    if (distance <= guard) return {raised + fine * power_of_ten(guard - distance), coarse_scale + guard, 0};
    const Quotient kept = without_places(abs(fine), distance - guard);
    const int sign = fine.sign();
    return {raised + (sign < 0 ? Wide(-kept.value) : kept.value), coarse_scale + guard,
            kept.rest == Rest::kNone ? 0 : sign};
}

bool upper_half_is_sign(const Numeric& value) { return value.high == 0 || value.high == -1; }

// a + b_value, where b_value is the value of b or the opposite.
Sum aligned_sum(const NumericInfo& a_info, const NumericInfo& b_info, const Numeric& a, const Numeric& b,
                const Wide& b_value) {
    const Wide a_value = signed_value(a);
    if (a_value == 0) return {b_value, b_info.scale, 0};
    if (b_value == 0) return {a_value, a_info.scale, 0};
    const std::int64_t distance = std::int64_t{b_info.scale} - a_info.scale;
    if (distance > kExactDistance) {
        return far_apart(a_value, upper_half_is_sign(a), a_info.scale, b_value, distance);
    }
    if (distance < -kExactDistance) {
        return far_apart(b_value, upper_half_is_sign(b), b_info.scale, a_value, -distance);
    }
    if (distance >= 0) return {a_value * power_of_ten(distance) + b_value, b_info.scale, 0};
    return {a_value + b_value * power_of_ten(-distance), a_info.scale, 0};
}

// What lies beyond the last place counts as one unit there, for the rounding and for the status.
Outcome brought_to(const NumericInfo& result_info, const Sum& sum) {
    const Wide seen = sum.value + sum.beyond;
    Outcome outcome = moved(abs(seen), seen < 0, result_info.scale - sum.scale, result_info.rounding_mode);
    if (outcome.status == NUMERIC_OK && sum.beyond != 0) outcome.status = NUMERIC_INEXACT;
    return outcome;
}

Outcome sum(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info, const Numeric& a,
            const Numeric& b, int sign_of_b) {
    if (is_nan(a) || is_nan(b)) return kNanOperand;
    if (!is_valid_mode(a_info.rounding_mode) || !is_valid_mode(b_info.rounding_mode)) return kInvalidArgument;
    return brought_to(result_info, aligned_sum(a_info, b_info, a, b, signed_value(b) * sign_of_b));
}

}  // namespace

Outcome rescaling_add(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info,
                      const Numeric& a, const Numeric& b) {
    return sum(a_info, b_info, result_info, a, b, 1);
}

Outcome rescaling_subtract(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info,
                           const Numeric& a, const Numeric& b) {
    return sum(a_info, b_info, result_info, a, b, -1);
}

}  // namespace qv8numeric_fuzz::model
