// SPDX-License-Identifier: MIT
// How an exact result of the hand-made peer comes to the scale it is wanted at.
#ifndef QV8NUMERIC_BENCH_PEERS_SETTLE_H
#define QV8NUMERIC_BENCH_PEERS_SETTLE_H

#include "words256.h"

namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128 {

// The result has `places` digits too many, -38 to 38; a negative number of them is to be added.
template <Dividend kDividend>
inline NumericStatus settle(Numeric* out, U128 magnitude, bool negative, int places, std::uint32_t mode) {
    if (places == 0) return finish(out, magnitude, negative, false);
    if (places < 0) {
        const U256 product = multiply(magnitude, kPower[static_cast<std::size_t>(-places)]);
        return finish(out, high_half(product) != 0 ? kLimit : low_half(product), negative, false);
    }
    bool inexact;
    magnitude =
        divide_rounded<kDividend>(magnitude, kPower[static_cast<std::size_t>(places)], mode, negative, &inexact);
    return finish(out, magnitude, negative, inexact);
}

inline NumericStatus settle(Numeric* out, U256 magnitude, bool negative, int places, std::uint32_t mode) {
    if (high_half(magnitude) == 0) return settle<Dividend::kAny>(out, low_half(magnitude), negative, places, mode);
    if (places <= 0) return finish(out, kLimit, negative, false);
    const U64 first = low(kPower[static_cast<std::size_t>(places < kWordDigits ? places : kWordDigits)]);
    U128 remainder = divide(&magnitude, first), divisor = first;
    if (places > kWordDigits) {
        const U64 second = low(kPower[static_cast<std::size_t>(places - kWordDigits)]);
        remainder += U128{divide(&magnitude, second)} * first;
        divisor *= second;
    }
    if (high_half(magnitude) != 0) return finish(out, kLimit, negative, false);
    const U128 quotient = low_half(magnitude);
    return finish(out, quotient + increase(mode, negative, quotient, remainder, divisor), negative, remainder != 0);
}

}  // namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128

#endif
