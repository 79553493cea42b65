// SPDX-License-Identifier: MIT
// Moves by powers of two: what the two moves of scaling.h are to decimal places, for binary ones.
#ifndef QV8NUMERIC_WIDE_SHIFTING_H
#define QV8NUMERIC_WIDE_SHIFTING_H

#include "wide/dropped.h"
#include "wide/extended_numeric.h"

namespace qv8numeric {

// Bits 64 * i - offset and up of x, with zeros beyond both ends; 0 <= offset < 64.
constexpr uint64_t word_at(const ExtendedNumeric& x, int i, unsigned offset) {
    const auto word = [&](int at) { return 0 <= at && at < 4 ? x.word[at] : 0; };
    return offset == 0 ? word(i) : word(i) << offset | word(i - 1) >> (64 - offset);
}

// x * 2^bits modulo 2^256, for 0 <= bits < 256; what leaves the top is ORed into lost.
constexpr ExtendedNumeric shift_left(const ExtendedNumeric& x, unsigned bits, uint64_t& lost) {
    const int words = static_cast<int>(bits / 64);
    const unsigned offset = bits % 64;
    ExtendedNumeric result{};
    for (int i = 0; i < 4; ++i) result.word[i] = word_at(x, i - words, offset);
    for (int i = 4; i <= 4 + words; ++i) lost |= word_at(x, i - words, offset);
    return result;
}

// x / 2^bits towards zero, for any number of bits; one more step of the chain in dropped, unless bits is 0.
// The code is the topmost 32 bits that fall off: one half is 2^31, as for a division.
constexpr ExtendedNumeric shift_right(const ExtendedNumeric& x, uint64_t bits, Dropped& dropped) {
    if (bits == 0) return x;
    const uint64_t beyond_the_code = 256 + 32;  // from here on the code is 0 and all bits are sticky
    const unsigned amount = static_cast<unsigned>(bits < beyond_the_code ? bits : beyond_the_code);
    // Seen from the other side: x moved left by 64 * words - amount bits, in a frame that lies words lower.
    const int words = static_cast<int>((amount + 63) / 64);
    const unsigned offset = static_cast<unsigned>(words) * 64 - amount;
    const uint64_t fallen = word_at(x, words - 1, offset);
    uint64_t lower = fallen & UINT32_MAX;
    for (int i = 0; i < words - 1; ++i) lower |= word_at(x, i, offset);
    ExtendedNumeric result{};
    for (int i = 0; i < 4; ++i) result.word[i] = word_at(x, i + words, offset);
    drop(dropped, static_cast<uint32_t>(fallen >> 32));
    dropped.sticky |= lower != 0 ? 1 : 0;
    return result;
}

}  // namespace qv8numeric

#endif
