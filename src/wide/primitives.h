// SPDX-License-Identifier: MIT
// The two primitives on the 256-bit magnitude: times a 32-bit factor, and divided by a prepared 32-bit divisor.
#ifndef QV8NUMERIC_WIDE_PRIMITIVES_H
#define QV8NUMERIC_WIDE_PRIMITIVES_H

#include <bit>
#include <initializer_list>

#include "wide/dropped.h"
#include "wide/extended_numeric.h"

namespace qv8numeric {

// Division by a constant as a multiplication by its reciprocal (Granlund and Montgomery, "Division by Invariant
// Integers using Multiplication", 1994), with a bounded correction instead of an exact multiplier. 1 <= d < 2^30.
struct divisor_t {
    unsigned shift;       // s = floor(log2 d)
    unsigned multiplier;  // m = floor(2^(32+s) / d), capped at 2^32 - 1, which powers of two reach: here d = 1
    unsigned divisor;     // d
};

constexpr divisor_t make_divisor(unsigned d) {
    const auto shift = static_cast<unsigned>(std::bit_width(d)) - 1;
    const uint64_t reciprocal = (uint64_t{1} << (32 + shift)) / d;
    return {shift, reciprocal > UINT32_MAX ? UINT32_MAX : static_cast<unsigned>(reciprocal), d};
}

struct LimbQuotient {
    uint32_t quotient;
    uint32_t remainder;
};

// x / d for x < d * 2^32.
// The product: floor(x/2^s) * m <= (x/2^s) * (2^(32+s)/d) = 2^32 * x/d < 2^64.
// The estimate q' is never above x/d, and each of three roundings costs it little: less than m/2^32 <= 1 for the shift,
// at most x/2^s/2^32 < d/2^s < 2 for the multiplier, less than 1 for the last. So q' > x/d - 4, the quotient is at
// most three more, and the remainder to correct is below 4d < 2^32.
constexpr LimbQuotient divide_limb(uint64_t x, const divisor_t& d) {
    auto quotient = static_cast<uint32_t>((x >> d.shift) * d.multiplier >> 32);
    auto remainder = static_cast<uint32_t>(x - uint64_t{d.divisor} * quotient);
    for (int correction = 0; correction < 3 && remainder >= d.divisor; ++correction) {
        ++quotient;
        remainder -= d.divisor;
    }
    return {quotient, remainder};
}

// r = a * m modulo 2^256; what left the top is ORed into overflow. r may be a. A factor of 0 leaves overflow alone.
constexpr void mul_unsigned(const ExtendedNumeric& a, const unsigned& m, ExtendedNumeric& r, unsigned& overflow) {
    uint64_t carry = 0;
    for (unsigned i = 0; i < 4; ++i) {
        const WordPair product = multiply_add(a.word[i], m, carry);
        r.word[i] = product.low;
        carry = product.high;  // below the factor, so below 2^32
    }
    overflow |= static_cast<unsigned>(carry);
}

// q = a / d, from the top limb down; one more step of the chain that code and sticky describe. q may be a.
constexpr void div_unsigned(const ExtendedNumeric& a, const divisor_t& d, ExtendedNumeric& q, unsigned& code,
                            unsigned& sticky) {
    sticky |= code;
    uint32_t remainder = 0;
    const auto next_limb = [&](unsigned i) -> uint32_t {
        const uint64_t dividend = uint64_t{remainder} << 32 | limb(a, i);
        if (dividend == 0) return 0;  // leading limbs of small values: most of them
        const LimbQuotient step = divide_limb(dividend, d);
        remainder = step.remainder;
        return step.quotient;
    };
    for (const unsigned i : {3u, 2u, 1u, 0u}) {
        const uint64_t high = next_limb(2 * i + 1);
        const uint64_t low = next_limb(2 * i);
        q.word[i] = high << 32 | low;
    }
    code = remainder_code(remainder, d.divisor);
}

}  // namespace qv8numeric

#endif
