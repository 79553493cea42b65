// SPDX-License-Identifier: MIT
// Add, subtract and compare for two values of different scales.
#include "numeric/alignment.h"
#include "numeric/same_scale.h"
#include "numeric/truncation.h"
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

// Both operands at one scale in 256 bits, with the sign of what each has lost on the way: -1, 0 or 1.
struct AlignedOperands {
    ExtendedNumeric a;
    ExtendedNumeric b;
    int32_t a_truncated;
    int32_t b_truncated;
    int64_t scale;
};

AlignedOperands aligned(const Numeric& a, int32_t a_scale, const Numeric& b, int32_t b_scale) {
    const Alignment alignment = align(a, a_scale, b, b_scale);
    AlignedOperands operands{};
    unsigned discarded = 0;
    preprocess(a, alignment.a_shift, b, alignment.b_shift, operands.a, operands.b, discarded);
    // Only an operand that was divided can have lost anything, and at most one was.
    operands.a_truncated = truncated_sign(a, discarded != 0 && alignment.a_shift < 0);
    operands.b_truncated = truncated_sign(b, discarded != 0 && alignment.b_shift < 0);
    operands.scale = alignment.common_scale;
    return operands;
}

// What add and subtract differ in.
struct Sum {
    static NumericStatus same_scale(const Numeric& a, const Numeric& b, Numeric& result) {
        return add_same_scale(a, b, result);
    }
    static ExtendedNumeric combine(const ExtendedNumeric& a, const ExtendedNumeric& b) { return add(a, b); }
    static int32_t truncated(const AlignedOperands& operands) { return operands.a_truncated + operands.b_truncated; }
};

struct Difference {
    static NumericStatus same_scale(const Numeric& a, const Numeric& b, Numeric& result) {
        return subtract_same_scale(a, b, result);
    }
    static ExtendedNumeric combine(const ExtendedNumeric& a, const ExtendedNumeric& b) { return subtract(a, b); }
    static int32_t truncated(const AlignedOperands& operands) { return operands.a_truncated - operands.b_truncated; }
};

template <class Operation>
NumericStatus rescaling(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info,
                        const Numeric& a, const Numeric& b, Numeric& result) {
    if (propagates_nan(a, b, result)) return NUMERIC_NAN;
    if (!are_rounding_modes(a_info, b_info, result_info)) return NUMERIC_INVALID_ARGUMENT;
    if (a_info.scale == b_info.scale && a_info.scale == result_info.scale) return Operation::same_scale(a, b, result);

    const AlignedOperands operands = aligned(a, a_info.scale, b, b_info.scale);
    ExtendedNumeric combined = Operation::combine(operands.a, operands.b);
    const bool negative = is_negative(combined);
    const int64_t shift = result_info.scale - operands.scale;
    unsigned overflow = 0;
    const NumericStatus status =
        postprocess(combined, Operation::truncated(operands), shift, result_info.rounding_mode, result, overflow);
    return overflow != 0 ? refuse(negative, result) : status;
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericRescalingAdd(const NumericInfo* a_info, const NumericInfo* b_info,
                                                const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                Numeric* result) noexcept {
    return rescaling<Sum>(*a_info, *b_info, *result_info, *a, *b, *result);
}

extern "C" NumericStatus QV8NumericRescalingSub(const NumericInfo* a_info, const NumericInfo* b_info,
                                                const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                Numeric* result) noexcept {
    return rescaling<Difference>(*a_info, *b_info, *result_info, *a, *b, *result);
}

// The sign of b - a, as for one scale: 1 when a is the smaller.
extern "C" int32_t QV8NumericRescalingCmp(const NumericInfo* a_info, const NumericInfo* b_info, const Numeric* a,
                                          const Numeric* b) noexcept {
    // No digit is rounded here, but an invalid mode is refused, before NaN is looked for.
    if (!is_rounding_mode(a_info->rounding_mode) || !is_rounding_mode(b_info->rounding_mode)) {
        return NUMERIC_INVALID_ARGUMENT;
    }
    if (a_info->scale == b_info->scale) return compare_same_scale(*a, *b);
    // NaN is below every number. Of two at different scales the first counts as the smaller.
    if (is_nan(*a)) return 1;
    if (is_nan(*b)) return -1;

    const AlignedOperands operands = aligned(*a, a_info->scale, *b, b_info->scale);
    const ExtendedNumeric difference = subtract(operands.a, operands.b);
    if (!is_zero(difference)) return is_negative(difference) ? 1 : -1;
    return operands.b_truncated - operands.a_truncated;
}
