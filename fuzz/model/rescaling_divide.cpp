// SPDX-License-Identifier: MIT
#include "model.h"
#include "scaling.h"

namespace qv8numeric_fuzz::model {
namespace {

// Above a divisor of one word, bits 192 and up of the dividend go unseen when 192 to 223 of them are zero.
Wide seen(const Wide& dividend, const Wide& divisor) {
    const bool one_word = divisor < power_of_two(64);
    const bool unseen = one_word && low_bits(dividend >> 192, 32) == 0;
    return unseen ? low_bits(dividend, 192) : dividend;
}

}  // namespace

Outcome rescaling_divide(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info,
                         const Numeric& a, const Numeric& b) {
    if (is_nan(a) || is_nan(b)) return kNanOperand;
    for (const NumericInfo* info : {&a_info, &b_info, &result_info}) {
        if (!is_valid_mode(info->rounding_mode)) return kInvalidArgument;
    }
    if (b.low == 0 && b.high == 0) return kNanOperand;

    const bool negative = is_negative(a) != is_negative(b);
    const Wide divisor = magnitude(b);
    const std::int64_t places = std::int64_t{result_info.scale} - a_info.scale + b_info.scale;
    Quotient quotient;
    if (places > 0) {
        const Wide dividend = with_places(magnitude(a), places);
        if (dividend >= power_of_two(256)) return narrowed(dividend, negative, NUMERIC_OK);
        quotient = quotient_of(seen(dividend, divisor), divisor);
    } else {
        // Beyond 10^39 every coefficient is a small part of one unit.
        quotient = quotient_of(magnitude(a), divisor * power_of_ten(-places > 40 ? 40 : -places));
    }
    return narrowed(rounded(quotient, result_info.rounding_mode, negative), negative,
                    quotient.rest == Rest::kNone ? NUMERIC_OK : NUMERIC_INEXACT);
}

}  // namespace qv8numeric_fuzz::model
