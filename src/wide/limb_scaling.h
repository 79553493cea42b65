// SPDX-License-Identifier: MIT
// Moves by powers of ten on limbs, with the two primitives: the general road, for any magnitude and any distance.
#ifndef QV8NUMERIC_WIDE_LIMB_SCALING_H
#define QV8NUMERIC_WIDE_LIMB_SCALING_H

#include <algorithm>

#include "wide/dropped.h"
#include "wide/powers.h"
#include "wide/primitives.h"

namespace qv8numeric {

// Digits go eight at a time, then the rest at once. At most ten passes of eight are made: 10^80 exceeds 2^256, so
// beyond them a nonzero magnitude has long left the top, or has long been divided down to nothing.
struct ScalePasses {
    unsigned eights;
    unsigned rest;
};

constexpr ScalePasses passes_for(uint64_t digits) {
    return {static_cast<unsigned>(std::min<uint64_t>(digits / 8, 10)), static_cast<unsigned>(digits % 8)};
}

// x * 10^digits modulo 2^256; overflow becomes nonzero when anything left the top.
// Beyond 87 digits the power applied is 10^(80 + digits % 8), which already takes every nonzero x out of the top.
QV8NUMERIC_ASIDE constexpr void scale_up_in_limbs(ExtendedNumeric& x, uint64_t digits, unsigned& overflow) {
    const ScalePasses passes = passes_for(digits);
    for (unsigned pass = 0; pass < passes.eights; ++pass) mul_unsigned(x, power_of_ten[8], x, overflow);
    if (passes.rest != 0) mul_unsigned(x, power_of_ten[passes.rest], x, overflow);
}

// x / 10^digits towards zero; the answer is what fell off.
// The divisors are even, so the last pass alone decides below, at or above half, and the rest is sticky.
QV8NUMERIC_ASIDE constexpr Fraction scale_down_in_limbs(ExtendedNumeric& x, uint64_t digits) {
    const ScalePasses passes = passes_for(digits);
    Dropped dropped;
    const auto divide = [&](unsigned k) { div_unsigned(x, negative_power_of_ten[k], x, dropped.code, dropped.sticky); };
    for (unsigned pass = 0; pass < passes.eights; ++pass) divide(8);
    if (passes.rest != 0) divide(passes.rest);
    return fraction_of(dropped);
}

}  // namespace qv8numeric

#endif
