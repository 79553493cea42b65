// SPDX-License-Identifier: MIT
// Coefficients to machine integers. Apart from scale 0 only the lowest limb is scaled, digits are cut off in every
// mode, and every negative value is refused: callers convert magnitudes below 2^32, and what comes out for others is
// part of the interface all the same.
#include <cstdint>

#include "limbs.h"
#include "reference.h"
#include "rounding.h"
#include "scaling.h"

namespace reference {
namespace {

// A machine integer as a coefficient, which is what the range is checked on.
Numeric coefficient(std::int64_t x) { return {static_cast<std::uint64_t>(x), x < 0 ? -1 : 0}; }

bool equal(const Numeric& a, const Numeric& b) { return a.low == b.low && a.high == b.high; }

// The lowest limb of the whole quotient, or of the lowest limb's product, below the limbs as they were.
Limbs lowest_limb_scaled(const Numeric& in, std::int64_t scale, Dropped& dropped) {
    Limbs x = magnitude(in);
    Limbs scaled = scale > 0 ? x : from_word(x[0]);
    reference::scale(scaled, -scale, dropped);
    x[0] = scaled[0];
    return x;
}

// Integer is int64 or int32. The range is checked on the sign of the coefficient and the bits of x: the magnitude of a
// negative coefficient has none of the bits that a negative integer has.
template <typename Integer>
NumericStatus to_integer(const Numeric& in, const NumericInfo& info, Integer* out) {
    *out = 0;
    if (is_nan(in)) return NUMERIC_NAN;
    Limbs x = pattern(in);
    NumericStatus status = NUMERIC_OK;
    if (info.scale != 0) {
        Dropped dropped;
        x = lowest_limb_scaled(in, info.scale, dropped);
        if (!is_valid(info.rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
        if (dropped.anything()) status = NUMERIC_INEXACT;
    }
    const Numeric whole = low_numeric(x);
    const auto integer = static_cast<Integer>(whole.low);
    if (!equal(coefficient(integer), whole) || (integer < 0) != is_negative(in)) return range_status(is_negative(in));
    *out = integer;
    return status;
}

}  // namespace

NumericStatus to_int64(const Numeric* in, const NumericInfo* info, std::int64_t* out) {
    return to_integer(*in, *info, out);
}

NumericStatus to_int32(const Numeric* in, const NumericInfo* info, std::int32_t* out) {
    return to_integer(*in, *info, out);
}

}  // namespace reference
