// SPDX-License-Identifier: MIT
// A coefficient from one scale to another.
#include "limbs.h"
#include "reference.h"
#include "rounding.h"
#include "scaling.h"
#include "truncation.h"

namespace reference {
namespace {

Limbs signed_limbs(Limbs magnitude, bool negative) {
    if (negative) negate(magnitude);
    return magnitude;
}

// The product modulo 2^256: what leaves the top is not noticed.
Limbs multiplied(const Numeric& src, std::int64_t places) {
    Limbs result = magnitude(src);
    scale_up(result, places);
    return signed_limbs(result, is_negative(src));
}

// A rounded value without its last digits, which are zeros. One that was rounded out of the range is NaN here, and is
// divided as the integer -2^127.
Limbs divided(const Numeric& rounded, std::int64_t places) {
    Limbs result = magnitude(rounded);
    Dropped zeros;
    scale_down(result, places, zeros);
    return signed_limbs(result, is_negative(rounded));
}

// The sign has to be the one from before, so a negative value that became zero is refused; and the upper limbs have to
// be equal to one another, but not to the sign.
bool passes(const Limbs& result, bool negative) {
    const bool sign_kept = (result[3] >> 31 != 0) == negative;
    return sign_kept && result[4] == result[5] && result[5] == result[6] && result[6] == result[7];
}

}  // namespace

NumericStatus rescale(const NumericInfo* from, const NumericInfo* to, const Numeric* src, Numeric* dst) {
    const Numeric value = *src;
    *dst = value;
    if (is_nan(value)) return NUMERIC_NAN;
    const std::int64_t places = distance(from->scale, to->scale);
    if (places == 0) return NUMERIC_OK;
    if (places < 0) {
        if (!is_valid(from) || !is_valid(to)) return NUMERIC_INVALID_ARGUMENT;
        round_to_places(from->scale, to->scale, to->rounding_mode, dst);
    }
    const Limbs result = places > 0 ? multiplied(value, places) : divided(*dst, -places);
    const bool good = passes(result, is_negative(value));
    *dst = good ? low_numeric(result) : kNan;
    return good ? NUMERIC_OK : NUMERIC_OVERFLOW;
}

}  // namespace reference
