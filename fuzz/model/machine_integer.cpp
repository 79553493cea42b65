// SPDX-License-Identifier: MIT
#include "model.h"
#include "rounding.h"

namespace qv8numeric_fuzz::model {

// Beyond the range is NUMERIC_UNDERFLOW on either side, every negative factor with it; -2^127 is let through.
Outcome multiply(const Numeric& x, std::int32_t factor) {
    if (is_nan(x)) return {NUMERIC_NAN, true, kNan};
    const Wide product = signed_value(x) * factor;
    if (factor < 0 || product >= power_of_two(127) || product < -power_of_two(127)) {
        return {NUMERIC_UNDERFLOW, true, kNan};
    }
    return {NUMERIC_OK, true, halves(product)};
}

// The dividend of a negative x has the upper 32 bits of its pattern above the lower 96 of its magnitude. The mode is
// looked at after the quotient has been written, and not for the divisors 1 and -1.
Outcome divide(const Numeric& x, std::uint32_t mode, std::int32_t divisor) {
    if (is_nan(x) || divisor == 0) return {NUMERIC_NAN, true, kNan};
    if (divisor == 1 || divisor == -1) return {NUMERIC_OK, true, x};
    const Wide top = static_cast<std::uint64_t>(x.high) >> 32;
    const Wide dividend = top * power_of_two(96) + low_bits(magnitude(x), 96);
    const Quotient quotient = quotient_of(dividend, abs(Wide(divisor)));
    const bool negative = is_negative(x) != (divisor < 0);
    const bool valid = is_valid_mode(mode);
    const Wide result = valid ? rounded(quotient, mode, negative) : quotient.value;
    const NumericStatus status = quotient.rest == Rest::kNone ? NUMERIC_OK : NUMERIC_INEXACT;
    return {valid ? status : NUMERIC_INVALID_ARGUMENT, true, halves(negative ? Wide(-result) : result)};
}

}  // namespace qv8numeric_fuzz::model
