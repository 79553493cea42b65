// SPDX-License-Identifier: MIT
// The exact product, moved to the scale of the result and rounded.
#include <cstdint>

#include "limbs.h"
#include "reference.h"
#include "rounding.h"
#include "scaling.h"

namespace reference {
namespace {

// result - (a + b) in 32 bits: scales whose sum or difference is beyond an int32 wrap around.
std::int32_t wrapped_distance(std::int64_t a, std::int64_t b, std::int64_t result) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(result - (a + b)));
}

}  // namespace

NumericStatus rescaling_multiply(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                                 const Numeric* a, const Numeric* b, Numeric* result) {
    if (is_nan(*a) || is_nan(*b)) {
        *result = kNan;
        return NUMERIC_NAN;
    }
    if (!is_valid(a_info) || !is_valid(b_info) || !is_valid(result_info)) return NUMERIC_INVALID_ARGUMENT;
    const bool negative = is_negative(*a) != is_negative(*b);
    Limbs x = product(magnitude(*a), magnitude(*b));
    Dropped dropped;
    const bool lost = scale(x, wrapped_distance(a_info->scale, b_info->scale, result_info->scale), dropped) != 0;
    const NumericStatus status = round(x, negative, result_info->rounding_mode, dropped);
    return store(x, negative, lost, status, result);
}

}  // namespace reference
