// SPDX-License-Identifier: MIT
// The product of two values of any scales, exact in 256 bits and rounded once.
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

// From the product's scale to the result's, as the descriptors' own 32 bits count: beyond them the shift wraps.
constexpr int64_t product_shift(int32_t a_scale, int32_t b_scale, int32_t result_scale) {
    return static_cast<int32_t>(int64_t{result_scale} - a_scale - b_scale);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericRescalingMul(const NumericInfo* a_info, const NumericInfo* b_info,
                                                const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                Numeric* result) noexcept {
    if (propagates_nan(*a, *b, *result)) return NUMERIC_NAN;
    if (!are_rounding_modes(*a_info, *b_info, *result_info)) return NUMERIC_INVALID_ARGUMENT;

    // The sign comes from the operands, so a product that rounds to zero still rounds in its own direction.
    const bool negative = is_negative(*a) != is_negative(*b);
    const ExtendedNumeric product = multiply(magnitude_of(*a), magnitude_of(*b));  // below 2^254
    const int64_t shift = product_shift(a_info->scale, b_info->scale, result_info->scale);
    return scale_round_narrow(product, negative, shift, result_info->rounding_mode, 0, *result);
}
