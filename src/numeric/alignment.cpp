// SPDX-License-Identifier: MIT
#include "numeric/alignment.h"

#include <algorithm>

#include "numeric/truncation.h"
#include "wide/narrowing.h"
#include "wide/scaling.h"

namespace qv8numeric {
namespace {

// Up to this distance the operand with fewer places takes the scale of the other: 2^127 * 10^38 < 2^254.
constexpr int64_t exact_distance = 38;

// Beyond it, the places by which it is multiplied, so that what the other operand loses stays far below the result's
// last place. A coefficient whose upper half is only a sign is at most 2^64, and 2^64 * 10^48 < 2^224.
constexpr int64_t guard_digits(const Numeric& value) { return value.high == 0 || value.high == -1 ? 48 : 38; }

}  // namespace

Alignment align(const Numeric& a, int32_t a_scale, const Numeric& b, int32_t b_scale) {
    if (is_zero(a)) return {b_scale, 0, 0};
    if (is_zero(b)) return {a_scale, 0, 0};
    const int64_t distance = int64_t{b_scale} - a_scale;
    if (distance < -exact_distance) {
        const int64_t guard = guard_digits(b);
        return {b_scale + guard, distance + guard, guard};
    }
    if (distance > exact_distance) {
        const int64_t guard = guard_digits(a);
        return {a_scale + guard, guard, guard - distance};
    }
    const int64_t scale = std::max(a_scale, b_scale);
    return {scale, scale - a_scale, scale - b_scale};
}

void preprocess(const Numeric& a, const long long& a_shift, const Numeric& b, const long long& b_shift,
                ExtendedNumeric& a_wide, ExtendedNumeric& b_wide, unsigned& discarded) {
    Fraction of_a{}, of_b{};
    a_wide = moved_by(a, a_shift, of_a);
    b_wide = moved_by(b, b_shift, of_b);
    discarded = of_a != Fraction::nothing || of_b != Fraction::nothing ? 1 : 0;
}

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

NumericStatus postprocess(ExtendedNumeric& x, int adjust, const long long& shift, const unsigned& rounding_mode,
                          Numeric& result, unsigned& overflow) {
    if (adjust > 0) x = increment(x);
    if (adjust < 0) x = decrement(x);
    const bool negative = is_negative(x);
    x = negated_if(negative, x);

    const NumericStatus status = scale_and_round(x, negative, shift, rounding_mode, overflow);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    if (!fits(x)) overflow |= 1;
    result = with_sign(low_half(x), negative);
    return adjust != 0 ? NUMERIC_INEXACT : status;
}

}  // namespace qv8numeric
