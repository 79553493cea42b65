// SPDX-License-Identifier: MIT
// Sums, differences and order of coefficients of one scale, in 256 bits, where nothing can overflow.
#include "limbs.h"
#include "reference.h"
#include "rounding.h"

namespace reference {
namespace {

NumericStatus combine(const Numeric& a, const Numeric& b, bool subtracting, Numeric* out) {
    if (is_nan(a) || is_nan(b)) {
        *out = kNan;
        return NUMERIC_NAN;
    }
    Limbs sum = widened(a);
    subtracting ? subtract(sum, widened(b)) : static_cast<void>(add(sum, widened(b)));
    const bool negative = is_negative(sum);
    if (negative) negate(sum);
    return store(sum, negative, false, NUMERIC_OK, out);
}

}  // namespace

NumericStatus add(const Numeric* a, const Numeric* b, Numeric* out) { return combine(*a, *b, false, out); }

NumericStatus subtract(const Numeric* a, const Numeric* b, Numeric* out) { return combine(*a, *b, true, out); }

// The sign of b - a, the reverse of the usual one. NaN is no special case: its pattern is the smallest integer.
std::int32_t compare(const Numeric* a, const Numeric* b) {
    Limbs difference = widened(*b);
    subtract(difference, widened(*a));
    if (is_zero(difference)) return 0;
    return is_negative(difference) ? -1 : 1;
}

}  // namespace reference
