// SPDX-License-Identifier: MIT
// Eight characters of text as one number of eight bytes, the first character lowest: which of them are digits, and of
// what number? All eight are looked at side by side; a number that takes several bytes lies in a lane of as many.
#ifndef QV8NUMERIC_NUMCONV_DIGITS_H
#define QV8NUMERIC_NUMCONV_DIGITS_H

#include <bit>
#include <cstring>

#include "wide/words.h"

namespace qv8numeric {

inline bool is_decimal_digit(char character) { return '0' <= character && character <= '9'; }
inline uint32_t digit_value(char character) { return static_cast<uint32_t>(character - '0'); }

inline uint64_t load_eight(const char* from) {
    uint64_t characters = 0;
#if QV8NUMERIC_NATIVE_128  // so the compiler has the function below too
    std::memcpy(&characters, from, sizeof characters);
    if constexpr (std::endian::native == std::endian::big) characters = __builtin_bswap64(characters);
#else
    for (unsigned i = 0; i < 8; ++i) characters |= uint64_t{static_cast<unsigned char>(from[i])} << 8 * i;
#endif
    return characters;
}

constexpr uint64_t in_every_byte(uint64_t byte) { return 0x01010101'01010101 * byte; }

// The bits of character i alone.
constexpr unsigned character_of(uint64_t characters, unsigned i) {
    return static_cast<unsigned>(characters >> 8 * i & 0xff);
}

// ---- Against a pattern: each character is to lie at its pattern's or above by at most so much ----

struct Matched {
    uint64_t values;  // in the bytes that match, how much above
    uint64_t misses;  // the top bit of each byte that does not, and perhaps of bytes behind the first one
};

// The difference is taken as an exclusive or: the pattern's bits that `most` has are clear. A value up to `most` stays
// below 0x80 when 0x7f - most is added; any other then has its top bit set, or had it before, and what it carries over
// goes to bytes behind it.
constexpr Matched match(uint64_t characters, uint64_t pattern, uint64_t most) {
    const uint64_t values = characters ^ pattern;
    return {values, (wrapping_add(values, in_every_byte(0x7f) - most) | values) & in_every_byte(0x80)};
}

constexpr Matched match_digits(uint64_t characters) { return match(characters, in_every_byte('0'), in_every_byte(9)); }

// ",ddd,ddd"
constexpr Matched match_two_groups(uint64_t characters) {
    return match(characters, 0x3030302c'3030302c, 0x09090900'09090900);
}

// How many match from the first one on.
constexpr unsigned count_matched(const Matched& matched) {
    return static_cast<unsigned>(std::countr_zero(matched.misses)) / 8;
}

// Without the first one that misses: the others close up, and the last place misses.
constexpr Matched without_first_miss(const Matched& matched) {
    const uint64_t in_front = (uint64_t{1} << 8 * count_matched(matched)) - 1;
    return {(matched.values & in_front) | (matched.values >> 8 & ~in_front),
            (matched.misses & (matched.misses - 1)) >> 8 | uint64_t{0x80} << 56};
}

// Zeros and then the first `count` of eight values, for a count below eight.
constexpr uint64_t first_values(const Matched& matched, unsigned count) {
    return matched.values << 8 << (56 - 8 * count);
}

// ---- The number of eight digits ----

// Neighbouring lanes become one of twice the bits: the first of them lies lower, and counts `base` times.
template <unsigned bits, uint64_t base>
constexpr uint64_t join_lanes(uint64_t lanes) {
    constexpr uint64_t every_second_lane = UINT64_MAX / ((uint64_t{1} << bits) + 1);
    return wrapping_multiply(lanes, base * (uint64_t{1} << bits) + 1) >> bits & every_second_lane;
}

// Of two numbers of four digits, the first of which counts `base` times.
template <uint64_t base = 10'000>
constexpr uint64_t number_of(uint64_t values) {
    return join_lanes<32, base>(join_lanes<16, 100>(join_lanes<8, 10>(values)));
}
static_assert(number_of(0x0807060504030201) == 12345678);
static_assert(number_of<1'000>(0x0605040003020100) == 123456);

}  // namespace qv8numeric

#endif
