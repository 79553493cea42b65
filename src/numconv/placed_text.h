// SPDX-License-Identifier: MIT
// Text whose length is known before its first character is written, so that all of it goes straight to its place: that
// of any magnitude of a value, with as many digits behind the point as one power of ten cuts off.
#ifndef QV8NUMERIC_NUMCONV_PLACED_TEXT_H
#define QV8NUMERIC_NUMCONV_PLACED_TEXT_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

#include "numconv/conv_table.h"
#include "numconv/number_format_mode.h"
#include "wide/decimal_split.h"

namespace qv8numeric {

// Of a magnitude in two words, and of one up to 2^63 in one.
inline constexpr auto largest_placed_fraction = static_cast<int32_t>(pair_digits);
inline constexpr auto largest_placed_word_fraction = static_cast<int32_t>(word_digits);

constexpr uint64_t ten_to_the(unsigned k) { return decimal_power[k].power.low; }

// ---- Eight characters as a number of eight bytes, the last character lowest ----

// What they show of the integer digits: digits alone, or two groups of three, each behind a comma.
struct PlainDigits {
    static constexpr NumberFormatMode mode = format_plain;
    static constexpr unsigned per_eight = 8;
    static constexpr uint64_t zeros = 0x30303030'30303030;
};

struct GroupedDigits {
    static constexpr NumberFormatMode mode = format_grouped;
    static constexpr unsigned per_eight = 6;
    static constexpr uint64_t zeros = 0x2c303030'2c303030;
};

template <class Form>
constexpr bool is_grouped() {
    return Form::mode == format_grouped;
}

// x < 10^per_eight with its leading zeros: one look at the table for either half of the digits.
template <class Form>
constexpr uint64_t eight_of(uint64_t x) {
    constexpr auto half = static_cast<uint32_t>(ten_to_the(Form::per_eight / 2));
    const auto digits = static_cast<uint32_t>(x);
    return (uint64_t{conv_table[digits / half]} << 32 | conv_table[digits % half]) + Form::zeros;
}
static_assert(eight_of<PlainDigits>(123456) == 0x30303132'33343536);
static_assert(eight_of<GroupedDigits>(123456) == 0x2c313233'2c343536);

// Seven digits, the last 1 .. 7 of them behind a point.
constexpr uint64_t eight_with_point(uint64_t x, unsigned fraction) {
    const uint64_t digits = eight_of<PlainDigits>(x);
    const uint64_t behind_point = (uint64_t{1} << 8 * fraction) - 1;
    return (digits & ~behind_point) << 8 | uint64_t{'.'} << 8 * fraction | (digits & behind_point);
}
static_assert(eight_with_point(1234567, 2) == 0x31323334'352e3637);

inline void store_eight(char* to, uint64_t characters) {
#if QV8NUMERIC_NATIVE_128  // so the compiler has this function too
    if constexpr (std::endian::native == std::endian::little) characters = __builtin_bswap64(characters);
    std::memcpy(to, &characters, sizeof characters);
#else
    for (unsigned i = 0; i < 8; ++i) to[i] = static_cast<char>(characters >> 8 * (7 - i) & 0xff);
#endif
}

// ---- A run of characters, put eight at a time from the last one to the first ----

class Eights {
  public:
    Eights(char* begin, unsigned size) : begin_(begin), left_(size) {}

    bool are_more() const { return left_ > 8; }

    void put(uint64_t characters) {
        left_ -= 8;
        store_eight(begin_ + left_, characters);
        latest_ = characters;
    }

    // Of the first eight, as many as are left. Eight bytes are written all the same: the others are what stands there
    // already or, behind a run of fewer than eight characters, NULs.
    void put_first(uint64_t characters) {
        store_eight(begin_, characters << 8 * (8 - left_) | latest_ >> 1 >> (8 * left_ - 1));
    }

  private:
    char* begin_;
    unsigned left_;
    uint64_t latest_ = 0;
};

// ---- The digits of a number as a run: zeros in front of them where the run is longer ----

template <class Form>
QV8NUMERIC_INLINE void put_digits(Eights run, uint64_t x) {
    constexpr uint64_t limit = ten_to_the(Form::per_eight);
    for (; run.are_more(); x /= limit) run.put(eight_of<Form>(x % limit));
    run.put_first(eight_of<Form>(x));
}

// Those of upper, at least one, and then `digits` of lower. An eight in which those of lower end is filled from upper.
template <class Form, unsigned digits>
QV8NUMERIC_INLINE void put_digits(Eights run, uint64_t upper, uint64_t lower) {
    constexpr uint64_t limit = ten_to_the(Form::per_eight);
    constexpr unsigned rest = digits % Form::per_eight;
    constexpr uint64_t filled_up = ten_to_the(Form::per_eight - rest);
    for (unsigned i = 0; i < digits / Form::per_eight; ++i, lower /= limit) run.put(eight_of<Form>(lower % limit));
    const uint64_t shared = eight_of<Form>(upper % filled_up * ten_to_the(rest) + lower);
    if (!run.are_more()) return run.put_first(shared);
    run.put(shared);
    put_digits<Form>(run, upper / filled_up);
}

template <class Form>
QV8NUMERIC_INLINE void put_digits(Eights run, WordPair x) {
    if (x.high == 0) return put_digits<Form>(run, x.low);
    const DecimalSplit<uint64_t> words = split_into_words(x);
    put_digits<Form, word_digits>(run, words.upper, words.lower);
}

// ---- The same with a point before the last 1 .. 7 digits ----

inline constexpr unsigned beside_point = 7;

QV8NUMERIC_INLINE void put_with_point(Eights run, uint64_t x, unsigned fraction) {
    constexpr uint64_t limit = ten_to_the(beside_point);
    if (!run.are_more()) return run.put_first(eight_with_point(x, fraction));
    run.put(eight_with_point(x % limit, fraction));
    put_digits<PlainDigits>(run, x / limit);
}

QV8NUMERIC_INLINE void put_with_point(Eights run, WordPair x, unsigned fraction) {
    constexpr uint64_t limit = ten_to_the(beside_point);
    if (x.high == 0) return put_with_point(run, x.low, fraction);
    const DecimalSplit<uint64_t> words = split_into_words(x);
    run.put(eight_with_point(words.lower % limit, fraction));
    put_digits<PlainDigits, word_digits - beside_point>(run, words.upper, words.lower / limit);
}

// ---- The text: a sign, the integer, and a point and the fraction where there is one ----

struct Layout {
    bool negative;
    unsigned integer;   // characters before the point
    unsigned fraction;  // digits behind it

    unsigned behind_sign() const { return integer + one_if(fraction != 0) + fraction; }

    // With its NUL; and eight bytes behind the place of a sign are written for the shortest text.
    bool fits(std::size_t buffer_size) const { return buffer_size > std::max(one_if(negative) + behind_sign(), 8u); }
};

template <class Form, class Magnitude>
constexpr Layout layout_of(Magnitude magnitude, bool negative, unsigned fraction) {
    const unsigned digits = count_digits(magnitude);
    const unsigned integer = digits > fraction ? digits - fraction : 1;
    return {negative, integer + (is_grouped<Form>() ? (integer - 1) / 3 : 0), fraction};
}

// Nothing is written behind the fraction, which may be the end of the buffer.
template <class Magnitude>
QV8NUMERIC_INLINE void put_fraction(char* at, unsigned digits, Magnitude x) {
    if (digits >= 8) return put_digits<PlainDigits>(Eights(at, digits), x);
    const uint64_t characters = eight_of<PlainDigits>(lowest_word(x));
    while (digits > 0) *at++ = static_cast<char>(characters >> 8 * --digits & 0xff);
}

template <class Form, class Magnitude>
QV8NUMERIC_INLINE void put_behind_sign(char* begin, const Layout& layout, Magnitude magnitude) {
    if (layout.fraction == 0) return put_digits<Form>(Eights(begin, layout.integer), magnitude);
    if (!is_grouped<Form>() && layout.fraction <= beside_point) {
        return put_with_point(Eights(begin, layout.behind_sign()), magnitude, layout.fraction);
    }
    const DecimalSplit<Magnitude> split = split_at(layout.fraction, magnitude);
    char* const point = begin + layout.integer;
    put_digits<Form>(Eights(begin, layout.integer), split.upper);
    *point = '.';
    put_fraction(point + 1, layout.fraction, split.lower);
}

// False, with nothing written, where there is no room. Behind the NUL of a shorter text up to eight bytes are NULs
// then.
template <class Form, class Magnitude>
QV8NUMERIC_INLINE bool place_text(Magnitude magnitude, bool negative, int32_t fraction, char* buffer,
                                  std::size_t buffer_size) {
    const Layout layout = layout_of<Form>(magnitude, negative, static_cast<unsigned>(fraction));
    if (!layout.fits(buffer_size)) return false;
    char* const behind_sign = buffer + one_if(negative);
    *buffer = '-';  // or the first digit, which comes next
    put_behind_sign<Form>(behind_sign, layout, magnitude);
    behind_sign[layout.behind_sign()] = '\0';
    return true;
}

}  // namespace qv8numeric

#endif
