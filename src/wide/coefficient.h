// SPDX-License-Identifier: MIT
// A Numeric seen as what it is: a signed 128-bit integer in two's complement with one pattern set aside for NaN.
#ifndef QV8NUMERIC_WIDE_COEFFICIENT_H
#define QV8NUMERIC_WIDE_COEFFICIENT_H

#include "qv8numeric.h"
#include "wide/words.h"

namespace qv8numeric {

// -2^127, the one pattern without a counterpart of the other sign: without it the range is symmetric.
inline constexpr Numeric nan_pattern{0, INT64_MIN};

constexpr bool is_nan(const Numeric& value) { return value.high == nan_pattern.high && value.low == nan_pattern.low; }
constexpr bool is_zero(const Numeric& value) { return (value.low | static_cast<uint64_t>(value.high)) == 0; }
constexpr bool is_negative(const Numeric& value) { return value.high < 0; }

// The first thing an operation on two values asks: NaN for either of them is NaN in the result.
constexpr bool propagates_nan(const Numeric& a, const Numeric& b, Numeric& result) {
    if (!is_nan(a) && !is_nan(b)) return false;
    result = nan_pattern;
    return true;
}

// In the range of an int64: the high half is the sign of the low half, all 64 bits of it. NaN is not.
constexpr bool fits_int64(const Numeric& value) { return value.high == -static_cast<int64_t>(value.low >> 63); }

constexpr int64_t to_int64(const Numeric& value) { return static_cast<int64_t>(value.low); }
constexpr Numeric sign_extend(int64_t value) { return {static_cast<uint64_t>(value), value < 0 ? -1 : 0}; }

// The two halves as an unsigned number, and back: the same 128 bits.
constexpr WordPair bits_of(const Numeric& value) { return {static_cast<uint64_t>(value.high), value.low}; }
constexpr Numeric from_bits(WordPair bits) { return {bits.low, static_cast<int64_t>(bits.high)}; }

// As signed numbers, NaN the smallest.
constexpr bool operator<(const Numeric& a, const Numeric& b) {
#if QV8NUMERIC_NATIVE_128
    __extension__ using int128 = __int128;
    return static_cast<int128>(native(bits_of(a))) < static_cast<int128>(native(bits_of(b)));
#else
    return either(a.high < b.high, both(a.high == b.high, a.low < b.low));
#endif
}

// |value|, at most 2^127: the magnitude of the NaN pattern is 2^127.
constexpr WordPair magnitude_of(const Numeric& value) { return negated_if(is_negative(value), bits_of(value)); }

// The same in the width that an operation works in: one word, for values that fit an int64, or two.
template <class Magnitude>
constexpr Magnitude magnitude_as(const Numeric& value) {
    if constexpr (std::is_same_v<Magnitude, uint64_t>) {
        return negated_if(is_negative(value), value.low);
    } else {
        return magnitude_of(value);
    }
}

// A magnitude with its sign put back, modulo 2^128.
constexpr Numeric with_sign(WordPair magnitude, bool negative) { return from_bits(negated_if(negative, magnitude)); }

constexpr Numeric with_sign(uint64_t magnitude, bool negative) { return with_sign(WordPair{0, magnitude}, negative); }

// Limb i of four 32-bit limbs, least significant first.
constexpr uint32_t limb(const Numeric& value, unsigned i) {
    const uint64_t half = i < 2 ? value.low : static_cast<uint64_t>(value.high);
    return static_cast<uint32_t>(half >> (i % 2 * 32));
}

}  // namespace qv8numeric

#endif
