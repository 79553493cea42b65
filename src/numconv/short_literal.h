// SPDX-License-Identifier: MIT
// The literals that nearly all texts are: up to 38 digits with a point among them and an exponent of up to three
// digits.
//
// They are read without the lexer's state, and to the same result: of so few digits it drops none, and no token behind
// them takes part. Whatever might be anything else is declined here, and the lexer starts again from the first
// character.
#ifndef QV8NUMERIC_NUMCONV_SHORT_LITERAL_H
#define QV8NUMERIC_NUMCONV_SHORT_LITERAL_H

#include "numconv/digits.h"
#include "wide/decimal_powers.h"

namespace qv8numeric {

inline constexpr unsigned most_short_digits = pair_digits;

inline const char* behind_sign(const char* text) { return text + one_if(*text == '-' || *text == '+'); }
inline bool is_exponent_marker(char character) { return character == 'E' || character == 'e'; }

// No NUL among seven characters: an eighth can be read, which may be the NUL.
inline bool has_eight(const char* at) {
    return at[0] != 0 && at[1] != 0 && at[2] != 0 && at[3] != 0 && at[4] != 0 && at[5] != 0 && at[6] != 0;
}

// ---- What eight characters begin with: digits, and a point among them ----

struct Front {
    uint64_t number;
    unsigned digits;
    unsigned before_point;
    bool has_point;

    unsigned size() const { return digits + one_if(has_point); }
    unsigned behind_point() const { return digits - before_point; }
};

// For eight characters that are not all digits.
QV8NUMERIC_INLINE Front front_of(uint64_t characters, bool may_have_point) {
    Matched matched = match_digits(characters);
    const unsigned before_point = count_matched(matched);
    const bool has_point = may_have_point && character_of(characters, before_point) == '.';
    if (has_point) matched = without_first_miss(matched);
    const unsigned digits = has_point ? count_matched(matched) : before_point;
    return {number_of(first_values(matched, digits)), digits, before_point, has_point};
}

// ---- A mantissa as far as it has been read ----

struct Mantissa {
    const char* at;                  // the next character
    WordPair digits{0, 0};           // modulo 2^128
    uint64_t count = 0;              // of the digits, zeros that were skipped left out
    const char* fraction = nullptr;  // behind the point, once there is one

    int64_t fraction_digits() const { return fraction == nullptr ? 0 : at - fraction; }
};

QV8NUMERIC_INLINE void append(Mantissa& mantissa, unsigned count, uint64_t number) {
    const WordPair shifted = wrapping_multiply(mantissa.digits, decimal_power[count].power.low);
    mantissa.digits = wrapping_add(shifted, WordPair{0, number});
    mantissa.count += count;
}

inline bool goes_on(const Mantissa& mantissa) {
    return is_decimal_digit(*mantissa.at) || (*mantissa.at == '.' && mantissa.fraction == nullptr);
}

inline void skip_zeros(Mantissa& mantissa) {
    while (*mantissa.at == '0') ++mantissa.at;
}

QV8NUMERIC_INLINE void take_front(Mantissa& mantissa, uint64_t characters) {
    const Front front = front_of(characters, mantissa.fraction == nullptr);
    append(mantissa, front.digits, front.number);
    if (front.has_point) mantissa.fraction = mantissa.at + front.before_point + 1;
    mantissa.at += front.size();
}

// One by one: fewer than seven.
inline void take_last_digits(Mantissa& mantissa) {
    uint64_t number = 0;
    unsigned count = 0;
    for (; goes_on(mantissa); ++mantissa.at) {
        if (*mantissa.at == '.') {
            mantissa.fraction = mantissa.at + 1;
        } else {
            number = number * 10 + digit_value(*mantissa.at);
            ++count;
        }
    }
    append(mantissa, count, number);
}

QV8NUMERIC_INLINE void take_digits(Mantissa& mantissa) {
    while (has_eight(mantissa.at)) {
        const uint64_t characters = load_eight(mantissa.at);
        const Matched matched = match_digits(characters);
        if (matched.misses == 0) {
            append(mantissa, 8, number_of(matched.values));
            mantissa.at += 8;
        } else {
            take_front(mantissa, characters);
            if (!goes_on(mantissa)) return;
        }
    }
    take_last_digits(mantissa);
}

// ---- Groups ----

// A comma and exactly three digits.
inline bool is_group(const char* at) {
    return at[0] == ',' && is_decimal_digit(at[1]) && is_decimal_digit(at[2]) && is_decimal_digit(at[3]) &&
           !is_decimal_digit(at[4]);
}

// Two at a time.
QV8NUMERIC_INLINE void take_groups(Mantissa& mantissa) {
    for (; has_eight(mantissa.at); mantissa.at += 8) {
        const Matched matched = match_two_groups(load_eight(mantissa.at));
        if (matched.misses != 0 || is_decimal_digit(mantissa.at[8])) break;
        append(mantissa, 6, number_of<1'000>(matched.values));
    }
    const char* const at = mantissa.at;
    if (!is_group(at)) return;
    append(mantissa, 3, digit_value(at[1]) * 100 + digit_value(at[2]) * 10 + digit_value(at[3]));
    mantissa.at += 4;
}

// One to three digits before a comma, and the groups. Of anything else nothing is taken.
QV8NUMERIC_INLINE void take_grouped_integer(Mantissa& mantissa) {
    const char* comma = mantissa.at;
    uint64_t number = 0;
    for (; comma - mantissa.at < 3 && is_decimal_digit(*comma); ++comma) number = number * 10 + digit_value(*comma);
    if (comma == mantissa.at || *comma != ',') return;
    skip_zeros(mantissa);
    mantissa.digits = {0, number};
    mantissa.count = static_cast<uint64_t>(comma - mantissa.at);
    mantissa.at = comma;
    take_groups(mantissa);
}

// ---- Behind the mantissa ----

// Takes an exponent of one to three digits, if there is any. False for another one, and before a second marker, which
// would make mantissa digits of it.
inline bool take_exponent(const char*& at, int64_t& exponent) {
    if (!is_exponent_marker(*at)) return true;
    const bool negative = at[1] == '-';
    const char* const begin = behind_sign(at + 1);
    for (at = begin; is_decimal_digit(*at); ++at) {
        if (at - begin == 3) return false;
        exponent = exponent * 10 + digit_value(*at);
    }
    if (negative) exponent = -exponent;
    return at != begin && !is_exponent_marker(*at);
}

}  // namespace qv8numeric

#endif
