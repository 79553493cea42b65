// SPDX-License-Identifier: MIT
// Text written from its last character back to its first: digits come out of a division in that order, only the end of
// the buffer is known beforehand, and what does not fit leaves the end of the text there.
#ifndef QV8NUMERIC_NUMCONV_BACKWARD_TEXT_H
#define QV8NUMERIC_NUMCONV_BACKWARD_TEXT_H

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "numconv/conv_table.h"
#include "wide/powers.h"
#include "wide/primitives.h"

namespace qv8numeric {

// The text so far is position[0] up to the NUL in the buffer's last byte. A put that finds no room returns false; what
// stands already is then the end of the text that would have been written.
struct BackwardText {
    char* begin;
    char* position;
};

inline bool put(BackwardText& text, char character) {
    if (text.position == text.begin) return false;
    *--text.position = character;
    return true;
}

// The decimal digits of a magnitude, units first. Endless: after the highest digit come zeros.
struct Digits {
    ExtendedNumeric rest;
    uint64_t packed = 0;  // one digit a byte, the next one lowest
    unsigned held = 0;    // digits in packed, leading zeros of their group included
};

inline bool exhausted(const Digits& digits) { return digits.packed == 0 && is_zero(digits.rest); }

// Eight digits with one division and two looks at the table.
inline void refill(Digits& digits) {
    constexpr divisor_t eight_digits = negative_power_of_ten[8];
    unsigned code = 0;
    unsigned sticky = 0;
    div_unsigned(digits.rest, eight_digits, digits.rest, code, sticky);
    const uint32_t group = remainder_of(code, eight_digits.divisor);
    digits.packed = uint64_t{conv_table[group / 10000]} << 32 | conv_table[group % 10000];
    digits.held = 8;
}

inline char next(Digits& digits) {
    if (digits.held == 0) refill(digits);
    const auto character = static_cast<char>('0' + (digits.packed & 0xff));
    digits.packed >>= 8;
    --digits.held;
    return character;
}

inline bool put_exponent(BackwardText& text, int32_t exponent_shift) {
    if (exponent_shift == 0) return true;
    const int64_t exponent = -int64_t{exponent_shift};
    Digits digits{extend({0, static_cast<uint64_t>(exponent < 0 ? -exponent : exponent)})};
    do {
        if (!put(text, next(digits))) return false;
    } while (!exhausted(digits));
    return put(text, exponent < 0 ? '-' : '+') && put(text, 'E');
}

// places digits and the point before them; nothing for no places.
inline bool put_fraction(BackwardText& text, Digits& digits, int64_t places) {
    if (places <= 0) return true;
    for (; places > 0; --places) {
        if (!put(text, exhausted(digits) ? '0' : next(digits))) return false;
    }
    return put(text, '.');
}

// The digits that are left, behind them appended zeros; one 0 when there is no digit, whatever zeros should follow it.
inline bool put_integer(BackwardText& text, Digits& digits, int64_t appended_zeros, bool grouped) {
    unsigned in_group = 0;
    do {
        if (grouped && in_group == 3) {
            if (!put(text, ',')) return false;
            in_group = 0;
        }
        const bool appended = appended_zeros > 0;
        if (!put(text, appended ? '0' : next(digits))) return false;
        if (appended) --appended_zeros;
        ++in_group;
    } while (!exhausted(digits));
    return true;
}

// digits with `places` of them behind the point; negative places append zeros.
inline bool put_number(BackwardText& text, Digits& digits, int64_t places, bool grouped, bool negative) {
    return put_fraction(text, digits, places) && put_integer(text, digits, -places, grouped) &&
           (!negative || put(text, '-'));
}

// Behind the text stands the NUL in the buffer's last byte.
inline BackwardText at_end_of(char* buffer, std::size_t buffer_size) {
    char* const terminator = buffer + buffer_size - 1;
    *terminator = '\0';
    return {buffer, terminator};
}

inline void move_to_front(const BackwardText& text, std::size_t buffer_size) {
    std::memmove(text.begin, text.position, static_cast<std::size_t>(text.begin + buffer_size - text.position));
}

}  // namespace qv8numeric

#endif
