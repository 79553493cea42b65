// SPDX-License-Identifier: MIT
// The two moves: the only places where a magnitude is multiplied or divided by a power of ten.
#ifndef QV8NUMERIC_WIDE_SCALING_H
#define QV8NUMERIC_WIDE_SCALING_H

#include <algorithm>

#include "wide/dropped.h"
#include "wide/extended_numeric.h"
#include "wide/powers.h"
#include "wide/primitives.h"

namespace qv8numeric {

// Digits are moved eight at a time, then the rest at once. At most ten passes of eight are made: 10^80 exceeds 2^256,
// so beyond them a nonzero magnitude has long left the top, or has long been divided down to nothing.
struct ScalePasses {
    unsigned eights;
    unsigned rest;
};

constexpr ScalePasses passes_for(uint64_t digits) {
    return {static_cast<unsigned>(std::min<uint64_t>(digits / 8, 10)), static_cast<unsigned>(digits % 8)};
}

// x * 10^digits modulo 2^256; overflow becomes nonzero when anything left the top.
// Beyond 87 digits the power applied is 10^(80 + digits % 8), which already takes every nonzero x out of the top.
constexpr void scale_up(ExtendedNumeric& x, uint64_t digits, unsigned& overflow) {
    const ScalePasses passes = passes_for(digits);
    for (unsigned pass = 0; pass < passes.eights; ++pass) mul_unsigned(x, power_of_ten[8], x, overflow);
    if (passes.rest != 0) mul_unsigned(x, power_of_ten[passes.rest], x, overflow);
}

// x / 10^digits towards zero; what falls off joins dropped.
// The divisors are even, so the last pass alone decides below, at or above half, and the rest is sticky.
constexpr void scale_down(ExtendedNumeric& x, uint64_t digits, Dropped& dropped) {
    const ScalePasses passes = passes_for(digits);
    const auto divide = [&](unsigned k) { div_unsigned(x, negative_power_of_ten[k], x, dropped.code, dropped.sticky); };
    for (unsigned pass = 0; pass < passes.eights; ++pass) divide(8);
    if (passes.rest != 0) divide(passes.rest);
}

// x moved by a signed number of places: up when places is positive, down when it is negative.
constexpr void scale_by(ExtendedNumeric& x, int64_t places, unsigned& overflow, Dropped& dropped) {
    if (places >= 0) {
        scale_up(x, static_cast<uint64_t>(places), overflow);
    } else {
        scale_down(x, wrapping_negate(static_cast<uint64_t>(places)), dropped);
    }
}

// A signed value moved by a number of places, in two's complement: its magnitude is, and keeps its sign. Bits that
// leave the top are lost without notice.
constexpr ExtendedNumeric moved_by(const Numeric& value, int64_t places, Dropped& dropped) {
    if (places == 0) return sign_extend(value);
    ExtendedNumeric magnitude = extend(magnitude_of(value));
    unsigned lost = 0;
    scale_by(magnitude, places, lost, dropped);
    return is_negative(value) ? negate(magnitude) : magnitude;
}

}  // namespace qv8numeric

#endif
