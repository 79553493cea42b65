// SPDX-License-Identifier: MIT
#include "model.h"
#include "scaling.h"

namespace qv8numeric_fuzz::model {

Outcome round_to_places(std::int32_t scale, std::int32_t places, std::uint32_t mode, const Numeric& num) {
    if (is_nan(num)) return kNanOperand;
    if (!is_valid_mode(mode)) return kInvalidArgument;
    const std::int64_t dropped = std::int64_t{scale} - places;
    if (dropped <= 0) return {NUMERIC_OK, true, num};
    const bool negative = is_negative(num);
    const Quotient quotient = without_places(magnitude(num), dropped);
    return narrowed(with_places(rounded(quotient, mode, negative), dropped), negative,
                    quotient.rest == Rest::kNone ? NUMERIC_OK : NUMERIC_INEXACT);
}

std::int32_t truncated_part(const Numeric& value, std::uint32_t flag) {
    return flag == 0 ? 0 : is_negative(value) ? -1 : 1;
}

}  // namespace qv8numeric_fuzz::model
