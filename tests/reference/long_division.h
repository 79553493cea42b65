// SPDX-License-Identifier: MIT
// The division of 256 bits by a divisor of 128 bits whose top bit is set (Knuth, The Art of Computer Programming,
// volume 2, section 4.3.1, algorithm D).
#ifndef QV8NUMERIC_TESTS_REFERENCE_LONG_DIVISION_H
#define QV8NUMERIC_TESTS_REFERENCE_LONG_DIVISION_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "limbs.h"

namespace reference {

// The five limbs of x from limb j upwards.
inline Limbs span_of(const Limbs& x, std::size_t j) {
    Limbs span{};
    std::copy_n(x.begin() + static_cast<std::ptrdiff_t>(j), 5, span.begin());
    return span;
}

inline void put_span(Limbs& x, std::size_t j, const Limbs& span) {
    std::copy_n(span.begin(), 5, x.begin() + static_cast<std::ptrdiff_t>(j));
}

// One limb of the quotient; the span keeps the remainder. The estimate from the top limbs is never too small and at
// most two too large.
inline std::uint32_t quotient_limb(Limbs& span, const Limbs& divisor) {
    const std::uint64_t top = std::uint64_t{span[4]} << 32 | span[3];
    std::uint64_t estimate = std::min<std::uint64_t>(top / divisor[3], UINT32_MAX);
    Limbs part = divisor;
    multiply(part, low_limb(estimate));
    while (compare(part, span) > 0) {
        subtract(part, divisor);
        --estimate;
    }
    subtract(span, part);
    return low_limb(estimate);
}

// The quotient; the dividend keeps the remainder. The dividend's upper four limbs are below the divisor, so that the
// quotient has four limbs.
inline Limbs long_division(Limbs& dividend, const Limbs& divisor) {
    Limbs quotient{};
    for (std::size_t limbs_left = 4; limbs_left > 0; --limbs_left) {
        const std::size_t j = limbs_left - 1;
        Limbs span = span_of(dividend, j);
        quotient[j] = quotient_limb(span, divisor);
        put_span(dividend, j, span);
    }
    return quotient;
}

}  // namespace reference

#endif
