// SPDX-License-Identifier: MIT
// The 256-bit intermediate of every operation that changes a scale. Most routines see an unsigned magnitude; addition
// and subtraction of two operands see two's complement.
#ifndef QV8NUMERIC_WIDE_EXTENDED_NUMERIC_H
#define QV8NUMERIC_WIDE_EXTENDED_NUMERIC_H

#include <bit>

#include "wide/coefficient.h"
#include "wide/words.h"

// Four words, least significant first, which are eight 32-bit limbs in the same order.
struct ExtendedNumeric {
    std::uint64_t word[4];
};

namespace qv8numeric {

// The width that holds any product of two magnitudes of a width.
template <class Magnitude>
using Doubled = std::conditional_t<std::is_same_v<Magnitude, uint64_t>, WordPair, ExtendedNumeric>;

// Limb i of eight, least significant first; taken by a shift, so that the byte order of the machine plays no part.
constexpr uint32_t limb(const ExtendedNumeric& x, unsigned i) {
    return static_cast<uint32_t>(x.word[i / 2] >> (i % 2 * 32));
}

constexpr ExtendedNumeric extend(WordPair magnitude) { return {{magnitude.low, magnitude.high, 0, 0}}; }

// The same signed value in 256 bits.
constexpr ExtendedNumeric sign_extend(const Numeric& value) {
    const uint64_t sign = is_negative(value) ? UINT64_MAX : 0;
    return {{value.low, static_cast<uint64_t>(value.high), sign, sign}};
}

constexpr WordPair low_half(const ExtendedNumeric& x) { return {x.word[1], x.word[0]}; }
constexpr WordPair high_half(const ExtendedNumeric& x) { return {x.word[3], x.word[2]}; }

constexpr bool is_zero(const ExtendedNumeric& x) { return (x.word[0] | x.word[1] | x.word[2] | x.word[3]) == 0; }
constexpr bool is_odd(const ExtendedNumeric& x) { return (x.word[0] & 1) != 0; }
constexpr Numeric with_sign(const ExtendedNumeric& magnitude, bool negative) {
    return with_sign(low_half(magnitude), negative);
}
constexpr bool is_negative(const ExtendedNumeric& x) { return (x.word[3] >> 63) != 0; }

constexpr ExtendedNumeric join(WordPair high, WordPair low) { return {{low.low, low.high, high.low, high.high}}; }

// a + b modulo 2^256; carry is set to the carry out.
constexpr ExtendedNumeric add(const ExtendedNumeric& a, const ExtendedNumeric& b, uint64_t& carry) {
    const WordPair low = wrapping_add(low_half(a), low_half(b));
    const WordPair high = wrapping_add(high_half(a), high_half(b));
    const WordPair carried = increased_by(high, low < low_half(a));
    carry = one_if(high < high_half(a)) | one_if(carried < high);
    return join(carried, low);
}

constexpr ExtendedNumeric add(const ExtendedNumeric& a, const ExtendedNumeric& b) {
    uint64_t carry = 0;
    return add(a, b, carry);
}

// a - b modulo 2^256.
constexpr ExtendedNumeric subtract(const ExtendedNumeric& a, const ExtendedNumeric& b) {
    const WordPair borrow{0, one_if(low_half(a) < low_half(b))};
    return join(wrapping_subtract(wrapping_subtract(high_half(a), high_half(b)), borrow),
                wrapping_subtract(low_half(a), low_half(b)));
}

constexpr ExtendedNumeric increased_by(const ExtendedNumeric& x, bool one) {
    return add(x, ExtendedNumeric{{one_if(one), 0, 0, 0}});
}
constexpr ExtendedNumeric increment(const ExtendedNumeric& x) { return increased_by(x, true); }
constexpr ExtendedNumeric decrement(const ExtendedNumeric& x) { return subtract(x, ExtendedNumeric{{1, 0, 0, 0}}); }

constexpr ExtendedNumeric negated_if(bool negative, const ExtendedNumeric& x) {
    const uint64_t mask = wrapping_negate(one_if(negative));
    const ExtendedNumeric flipped{{x.word[0] ^ mask, x.word[1] ^ mask, x.word[2] ^ mask, x.word[3] ^ mask}};
    return increased_by(flipped, negative);
}

// a * b, exactly, by a word and by two.
constexpr ExtendedNumeric multiply(WordPair a, uint64_t b) {
    const WordPair low = multiply_words(a.low, b);
    const WordPair high = multiply_add(a.high, b, low.high);
    return {{low.low, high.low, high.high, 0}};
}

constexpr ExtendedNumeric multiply(WordPair a, WordPair b) {
    const ExtendedNumeric low = multiply(a, b.low);
    const WordPair third = multiply_add(a.low, b.high, low.word[1]);
    const WordPair fourth = multiply_add(a.high, b.high, low.word[2], third.high);
    return {{low.word[0], third.low, fourth.low, fourth.high}};
}

// x * factor modulo 2^256; overflow becomes nonzero when anything left the top.
constexpr void multiply_by(ExtendedNumeric& x, uint64_t factor, unsigned& overflow) {
    const WordPair first = multiply_words(x.word[0], factor);
    const WordPair second = multiply_add(x.word[1], factor, first.high);
    const WordPair third = multiply_add(x.word[2], factor, second.high);
    const WordPair fourth = multiply_add(x.word[3], factor, third.high);
    x = {{first.low, second.low, third.low, fourth.low}};
    overflow |= one_if(fourth.high != 0);
}

// The number of bits up to the highest one that is set; 0 for zero.
constexpr unsigned bit_length(const ExtendedNumeric& x) {
    unsigned top = 3;
    while (top > 0 && x.word[top] == 0) --top;
    return top * 64 + static_cast<unsigned>(std::bit_width(x.word[top]));
}

}  // namespace qv8numeric

#endif
