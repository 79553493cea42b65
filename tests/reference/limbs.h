// SPDX-License-Identifier: MIT
// 256 bits in eight limbs of 32, the least significant first, and arithmetic on them as one does it on paper.
#ifndef QV8NUMERIC_TESTS_REFERENCE_LIMBS_H
#define QV8NUMERIC_TESTS_REFERENCE_LIMBS_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "value.h"

namespace reference {

using Limbs = std::array<std::uint32_t, 8>;

inline std::uint32_t low_limb(std::uint64_t x) { return static_cast<std::uint32_t>(x); }
inline std::uint32_t high_limb(std::uint64_t x) { return static_cast<std::uint32_t>(x >> 32); }

inline bool is_zero(const Limbs& x) { return x == Limbs{}; }

// Of a number in two's complement.
inline bool is_negative(const Limbs& x) { return x[7] >> 31 != 0; }

// x = x * factor modulo 2^256; what left the top is returned.
inline std::uint32_t multiply(Limbs& x, std::uint32_t factor) {
    std::uint64_t carry = 0;
    for (std::uint32_t& limb : x) {
        const std::uint64_t product = std::uint64_t{limb} * factor + carry;
        limb = low_limb(product);
        carry = high_limb(product);
    }
    return low_limb(carry);
}

// x = x / divisor; the remainder is returned.
inline std::uint32_t divide(Limbs& x, std::uint32_t divisor) {
    std::uint64_t remainder = 0;
    for (std::size_t i = x.size(); i > 0; --i) {
        std::uint32_t& limb = x[i - 1];
        const std::uint64_t dividend = remainder << 32 | limb;
        if (dividend == 0) continue;  // most top limbs are zero; a division takes long
        limb = low_limb(dividend / divisor);
        remainder = dividend % divisor;
    }
    return low_limb(remainder);
}

// x = x + y modulo 2^256; the carry is returned.
inline std::uint32_t add(Limbs& x, const Limbs& y) {
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        const std::uint64_t sum = std::uint64_t{x[i]} + y[i] + carry;
        x[i] = low_limb(sum);
        carry = high_limb(sum);
    }
    return low_limb(carry);
}

inline Limbs from_word(std::uint64_t word) { return {low_limb(word), high_limb(word)}; }

inline std::uint32_t add(Limbs& x, std::uint32_t y) { return add(x, from_word(y)); }

// x = -x in two's complement.
inline void negate(Limbs& x) {
    for (std::uint32_t& limb : x) limb = ~limb;
    add(x, 1);
}

// x = x - y modulo 2^256.
inline void subtract(Limbs& x, Limbs y) {
    negate(y);
    add(x, y);
}

// -1, 0 or 1: the order of two unsigned numbers.
inline int compare(const Limbs& x, const Limbs& y) {
    for (std::size_t i = x.size(); i > 0; --i) {
        if (x[i - 1] != y[i - 1]) return x[i - 1] < y[i - 1] ? -1 : 1;
    }
    return 0;
}

// x * y modulo 2^256.
inline Limbs product(const Limbs& x, const Limbs& y) {
    Limbs sum{};
    for (std::size_t i = 0; i < x.size(); ++i) {
        std::uint64_t carry = 0;
        for (std::size_t j = 0; i + j < sum.size(); ++j) {
            const std::uint64_t t = std::uint64_t{x[i]} * y[j] + sum[i + j] + carry;
            sum[i + j] = low_limb(t);
            carry = high_limb(t);
        }
    }
    return sum;
}

// The position of the highest set bit plus one; 0 for 0.
inline int bit_length(const Limbs& x) {
    int length = 256;
    while (length > 0 && (x[static_cast<std::size_t>(length - 1) / 32] >> (length - 1) % 32 & 1) == 0) --length;
    return length;
}

// The 32 bits of x from bit `position` upwards, with zeros below and above the number. -288 <= position <= 1024.
inline std::uint32_t window(const Limbs& x, int position) {
    const int from = position + 288;  // not negative, so that the division rounds down
    const auto limb = [&x](int index) { return 0 <= index && index < 8 ? x[static_cast<std::size_t>(index)] : 0; };
    const int index = from / 32 - 9;
    const std::uint64_t two_limbs = std::uint64_t{limb(index + 1)} << 32 | limb(index);
    return low_limb(two_limbs >> from % 32);
}

// x = x * 2^count modulo 2^256, 0 <= count <= 256.
inline void shift_left(Limbs& x, int count) {
    const Limbs old = x;
    for (int i = 0; i < 8; ++i) x[static_cast<std::size_t>(i)] = window(old, 32 * i - count);
}

// x = x / 2^count, 0 <= count <= 512.
inline void shift_right(Limbs& x, int count) {
    const Limbs old = x;
    for (int i = 0; i < 8; ++i) x[static_cast<std::size_t>(i)] = window(old, 32 * i + count);
}

// The 128 bits of a coefficient as they are, zeros above.
inline Limbs pattern(const Numeric& x) {
    const auto high = static_cast<std::uint64_t>(x.high);
    return {low_limb(x.low), high_limb(x.low), low_limb(high), high_limb(high)};
}

// The same number in two's complement of 256 bits.
inline Limbs widened(const Numeric& x) {
    Limbs wide = pattern(x);
    for (std::size_t i = 4; i < wide.size(); ++i) wide[i] = is_negative(x) ? UINT32_MAX : 0;
    return wide;
}

inline Limbs magnitude(const Numeric& x) {
    Limbs wide = widened(x);
    if (is_negative(x)) negate(wide);
    return wide;
}

// The low 128 bits.
inline Numeric low_numeric(const Limbs& x) {
    const std::uint64_t high = std::uint64_t{x[3]} << 32 | x[2];
    return {std::uint64_t{x[1]} << 32 | x[0], static_cast<std::int64_t>(high)};
}

// The coefficient of a magnitude and a sign, from the low 128 bits.
inline Numeric signed_numeric(Limbs magnitude, bool negative) {
    if (negative) negate(magnitude);
    return low_numeric(magnitude);
}

}  // namespace reference

#endif
