// SPDX-License-Identifier: MIT
// 256 bits for the hand-made peer: what products and aligned operands need beyond the compiler's integer.
#ifndef QV8NUMERIC_BENCH_PEERS_WORDS256_H
#define QV8NUMERIC_BENCH_PEERS_WORDS256_H

#include "int128.h"

namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128 {

struct U256 {
    U64 word[4];  // least significant first
};

inline U256 wide(U128 x) { return {{low(x), high(x), 0, 0}}; }
inline U128 low_half(const U256& x) { return static_cast<U128>(x.word[1]) << 64 | x.word[0]; }
inline U128 high_half(const U256& x) { return static_cast<U128>(x.word[3]) << 64 | x.word[2]; }

inline U256 multiply(U128 a, U128 b) {
    const U128 ll = U128{low(a)} * low(b), lh = U128{low(a)} * high(b);
    const U128 hl = U128{high(a)} * low(b), hh = U128{high(a)} * high(b);
    const U128 middle = U128{high(ll)} + low(lh) + low(hl);
    const U128 top = hh + high(lh) + high(hl) + high(middle);
    return {{low(ll), low(middle), low(top), high(top)}};
}

// A signed number times an unsigned word, in 192 bits.
struct Signed192 {
    I128 high;
    U64 low;
};

inline Signed192 multiply_signed(I128 a, U64 b) {
    const U128 bottom = U128{low(static_cast<U128>(a))} * b;
    const auto top = static_cast<std::int64_t>(a >> 64);
    return {top * static_cast<I128>(b) + high(bottom), low(bottom)};
}

// 1 or 0, without a branch.
inline unsigned less(const Signed192& a, const Signed192& b) {
    return unsigned{a.high < b.high} | (unsigned{a.high == b.high} & unsigned{a.low < b.low});
}

// Modulo 2^256.
inline U256 multiply(const U256& a, U64 b) {
    U256 product;
    U128 carry = 0;
    for (int i = 0; i < 4; ++i) {
        carry += U128{a.word[i]} * b;
        product.word[i] = low(carry);
        carry >>= 64;
    }
    return product;
}

inline U256 add(const U256& a, const U256& b) {
    const U128 bottom = low_half(a) + low_half(b);
    const U128 top = high_half(a) + high_half(b) + (bottom < low_half(a) ? 1 : 0);
    return {{low(bottom), high(bottom), low(top), high(top)}};
}

inline U256 subtract(const U256& a, const U256& b) {
    const U128 bottom = low_half(a) - low_half(b);
    const U128 top = high_half(a) - high_half(b) - (low_half(a) < low_half(b) ? 1 : 0);
    return {{low(bottom), high(bottom), low(top), high(top)}};
}

inline unsigned less(const U256& a, const U256& b) {
    const U128 p = high_half(a), q = high_half(b);
    return unsigned{p < q} | (unsigned{p == q} & unsigned{low_half(a) < low_half(b)});
}

// In place; the remainder comes back.
inline U64 divide(U256* n, U64 d) {
    U64 remainder = 0;
    int i = 3;
    while (i > 0 && n->word[i] == 0) --i;
    for (; i >= 0; --i) n->word[i] = divide_2by1(static_cast<U128>(remainder) << 64 | n->word[i], d, &remainder);
    return remainder;
}

// n / d for 2^64 <= d and a quotient below 2^128 (Knuth, algorithm D, with digits of 64 bits). Otherwise `fits` is
// false.
inline U128 divide(const U256& n, U128 d, U128* remainder, bool* fits) {
    *fits = high_half(n) < d;
    if (!*fits) return 0;
    const int shift = __builtin_clzll(high(d));
    const U128 divisor = d << shift;
    U256 rest = n;
    for (int i = 3; shift > 0 && i >= 0; --i) {
        rest.word[i] = rest.word[i] << shift | (i > 0 ? rest.word[i - 1] >> (64 - shift) : 0);
    }
    U128 quotient = 0;
    U128 top = high_half(rest);
    for (int i = 1; i >= 0; --i) {
        // Three words by two: an estimate from the upper two by one is at most two too large.
        U64 digit, digit_rest;
        if (high(top) >= high(divisor)) {
            digit = ~U64{0};
        } else {
            digit = divide_2by1(top, high(divisor), &digit_rest);
        }
        const U256 product = multiply(wide(divisor), digit);
        U256 three{{rest.word[i], low(top), high(top), 0}};
        U256 subtrahend = product;
        while (less(three, subtrahend) != 0) {
            --digit;
            subtrahend = subtract(subtrahend, wide(divisor));
        }
        three = subtract(three, subtrahend);
        top = low_half(three);
        quotient = quotient << 64 | digit;
    }
    *remainder = top >> shift;
    return quotient;
}

}  // namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128

#endif
