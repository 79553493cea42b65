// SPDX-License-Identifier: MIT
// Multiplication and division of a magnitude by a power of ten, eight digits a pass.
#ifndef QV8NUMERIC_TESTS_REFERENCE_SCALING_H
#define QV8NUMERIC_TESTS_REFERENCE_SCALING_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "dropped.h"
#include "limbs.h"

namespace reference {

inline constexpr std::uint32_t kPowersOfTen[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

// At most ten passes of eight digits are made, whatever the number of places: beyond 87 places it is 10^(80 + places
// mod 8) that is applied. Ten passes empty any magnitude, or make any but zero too large.
inline std::int64_t passes_of_eight(std::int64_t places) { return std::min<std::int64_t>(places / 8, 10); }

inline std::uint32_t last_power(std::int64_t places) { return kPowersOfTen[static_cast<std::size_t>(places % 8)]; }

// x = x * 10^places modulo 2^256, places >= 0. Not zero is returned when anything left the top.
inline std::uint32_t scale_up(Limbs& x, std::int64_t places) {
    std::uint32_t lost = 0;
    for (std::int64_t pass = 0; pass < passes_of_eight(places); ++pass) lost |= multiply(x, kPowersOfTen[8]);
    return lost | multiply(x, last_power(places));
}

inline void divide(Limbs& x, std::uint32_t divisor, Dropped& dropped) {
    const std::uint32_t remainder = divide(x, divisor);
    next_code(dropped, remainder_code(remainder, divisor));
}

// x = x / 10^places, places >= 0.
inline void scale_down(Limbs& x, std::int64_t places, Dropped& dropped) {
    for (std::int64_t pass = 0; pass < passes_of_eight(places); ++pass) divide(x, kPowersOfTen[8], dropped);
    if (places % 8 != 0) divide(x, last_power(places), dropped);
}

// By 10^places up, or by 10^-places down.
inline std::uint32_t scale(Limbs& x, std::int64_t places, Dropped& dropped) {
    if (places >= 0) return scale_up(x, places);
    scale_down(x, -places, dropped);
    return 0;
}

// From one scale to another: their difference does not fit 32 bits.
inline std::int64_t distance(std::int32_t from, std::int32_t to) { return std::int64_t{to} - from; }

}  // namespace reference

#endif
