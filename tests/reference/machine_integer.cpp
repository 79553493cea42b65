// SPDX-License-Identifier: MIT
// Multiplication and division of a coefficient by an int32.
//
// Both negate a negative number in place first, but take its top limb as it was before: callers pass magnitudes, and
// what comes out for negative numbers is part of the interface all the same.
#include "limbs.h"
#include "reference.h"
#include "rounding.h"

namespace reference {
namespace {

std::uint32_t magnitude_of(std::int32_t x) {
    const std::int64_t wide = x;
    return static_cast<std::uint32_t>(wide < 0 ? -wide : wide);
}

// The low three limbs of x, or of -x, below the top limb of x.
Limbs with_old_top(const Numeric& x, bool negated) {
    Limbs limbs = pattern(signed_numeric(pattern(x), negated));
    limbs[3] = pattern(x)[3];
    return limbs;
}

}  // namespace

NumericStatus multiply(Numeric* x, std::int32_t m) {
    if (is_nan(*x)) return NUMERIC_NAN;
    if (m == 0) {
        *x = kZero;
        return NUMERIC_OK;
    }
    const bool signs_differ = is_negative(*x) != (m < 0);
    const std::uint32_t factor = magnitude_of(m);
    Limbs product = with_old_top(*x, m < 0);
    multiply(product, factor);
    // The multiplication is that of the bits as an unsigned number: those of a negative one carry factor - 1 too much.
    const bool top_bit = product[3] >> 31 != 0;
    const bool fits = signs_differ ? product[4] == factor - 1 && top_bit : product[4] == 0 && !top_bit;
    *x = fits ? low_numeric(product) : kNan;
    return fits ? NUMERIC_OK : NUMERIC_UNDERFLOW;  // of a positive product too
}

NumericStatus divide(Numeric* x, const NumericInfo* info, std::int32_t d) {
    if (is_nan(*x)) return NUMERIC_NAN;
    if (d == 0) {
        *x = kNan;
        return NUMERIC_NAN;
    }
    const std::uint32_t divisor = magnitude_of(d);
    if (divisor == 1) return NUMERIC_OK;  // x stays, its sign too, and no mode is looked at
    const bool negative = is_negative(*x) != (d < 0);
    Limbs quotient = with_old_top(*x, is_negative(*x));
    Dropped dropped;
    next_code(dropped, remainder_code(divide(quotient, divisor), divisor));
    const NumericStatus status = round(quotient, negative, info->rounding_mode, dropped);
    *x = signed_numeric(quotient, negative);  // for an invalid mode the quotient rounded towards zero
    return status;
}

}  // namespace reference
