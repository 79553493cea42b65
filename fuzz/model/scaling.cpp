// SPDX-License-Identifier: MIT
#include "scaling.h"

namespace qv8numeric_fuzz {

// 10^79 is more than twice 2^256: beyond it the quotient is zero and the rest below one half.
Quotient without_places(const Wide& magnitude, std::int64_t places) {
    if (places > 79) return {0, magnitude == 0 ? Rest::kNone : Rest::kBelowHalf};
    return quotient_of(magnitude, power_of_ten(places));
}

// 10^78 exceeds 2^256.
Wide with_places(const Wide& magnitude, std::int64_t places) {
    return magnitude * power_of_ten(places > 78 ? 78 : places);
}

Outcome narrowed(const Wide& magnitude, bool negative, NumericStatus status) {
    if (magnitude >= power_of_two(127)) {
        return {negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW, true, kNan};
    }
    return {status, true, halves(negative ? Wide(-magnitude) : magnitude)};
}

Outcome moved(const Wide& magnitude, bool negative, std::int64_t places, std::uint32_t mode) {
    if (!is_valid_mode(mode)) return kInvalidArgument;
    if (places >= 0) return narrowed(with_places(magnitude, places), negative, NUMERIC_OK);
    const Quotient quotient = without_places(magnitude, -places);
    return narrowed(rounded(quotient, mode, negative), negative,
                    quotient.rest == Rest::kNone ? NUMERIC_OK : NUMERIC_INEXACT);
}

}  // namespace qv8numeric_fuzz
