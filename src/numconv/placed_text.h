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

inline void store_four(char* to, uint32_t characters) {  // in a form that compilers know as one store
    for (unsigned i = 0; i < 4; ++i) to[i] = static_cast<char>(characters >> 8 * (3 - i) & 0xff);
}

// ---- A run of characters, put eight at a time from the first one to the last ----

class Run {
  public:
    Run(char* begin, unsigned size) : begin_(begin), size_(size) {}

    bool exceeds_eight() const { return size_ > 8; }
    Run without_last_eight() const { return {begin_, size_ - 8}; }

    void put_last(uint64_t characters) const { store_eight(begin_ + size_ - 8, characters); }

    // Of a run of up to eight characters the last ones of these. Eight bytes are written all the same, NULs behind the
    // run: whatever follows it is put later.
    void put_first(uint64_t characters) const { store_eight(begin_, characters << 8 * (8 - size_)); }

  private:
    char* begin_;
    unsigned size_;
};

// ---- The digits of a number as a run: zeros in front of them where the run is longer ----

// For the 20 digits of any word.
template <class Form>
constexpr unsigned most_eights() {
    return (word_digits + Form::per_eight) / Form::per_eight;
}

// Of up to `most` eights.
template <class Form, unsigned most = most_eights<Form>()>
QV8NUMERIC_INLINE void put_digits(Run run, uint64_t x) {
    constexpr uint64_t limit = ten_to_the(Form::per_eight);
    if constexpr (most > 1) {
        if (run.exceeds_eight()) {
            const uint64_t last = eight_of<Form>(x % limit);
            put_digits<Form, most - 1>(run.without_last_eight(), x / limit);
            return run.put_last(last);
        }
    }
    run.put_first(eight_of<Form>(x));
}

// Those of upper, at least one, and then `digits` of lower. The eight in which those begin is filled from upper.
template <class Form, unsigned digits>
QV8NUMERIC_INLINE void put_digits(Run run, uint64_t upper, uint64_t lower) {
    if constexpr (digits >= Form::per_eight) {
        constexpr uint64_t limit = ten_to_the(Form::per_eight);
        const uint64_t last = eight_of<Form>(lower % limit);
        put_digits<Form, digits - Form::per_eight>(run.without_last_eight(), upper, lower / limit);
        run.put_last(last);
    } else {
        constexpr uint64_t filled_up = ten_to_the(Form::per_eight - digits);
        const uint64_t shared = eight_of<Form>(upper % filled_up * ten_to_the(digits) + lower);
        if (!run.exceeds_eight()) return run.put_first(shared);
        put_digits<Form>(run.without_last_eight(), upper / filled_up);
        run.put_last(shared);
    }
}

template <class Form>
QV8NUMERIC_INLINE void put_digits(Run run, WordPair x) {
    if (x.high == 0) return put_digits<Form>(run, x.low);
    const DecimalSplit<uint64_t> words = split_into_words(x);
    put_digits<Form, word_digits>(run, words.upper, words.lower);
}

// ---- The same with a point before the last 1 .. 7 digits ----

inline constexpr unsigned beside_point = 7;

QV8NUMERIC_INLINE void put_with_point(Run run, uint64_t x, unsigned fraction) {
    constexpr uint64_t limit = ten_to_the(beside_point);
    if (!run.exceeds_eight()) return run.put_first(eight_with_point(x, fraction));
    const uint64_t last = eight_with_point(x % limit, fraction);
    put_digits<PlainDigits>(run.without_last_eight(), x / limit);
    run.put_last(last);
}

QV8NUMERIC_INLINE void put_with_point(Run run, WordPair x, unsigned fraction) {
    constexpr uint64_t limit = ten_to_the(beside_point);
    if (x.high == 0) return put_with_point(run, x.low, fraction);
    const DecimalSplit<uint64_t> words = split_into_words(x);
    const uint64_t last = eight_with_point(words.lower % limit, fraction);
    put_digits<PlainDigits, word_digits - beside_point>(run.without_last_eight(), words.upper, words.lower / limit);
    run.put_last(last);
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

// A point and the two or three digits that most fractions have; behind two of them the NUL of the text.
constexpr uint32_t four_with_point(uint64_t x, unsigned fraction) {
    const unsigned unused = 8 * (3 - fraction);
    return (conv_table[x] << unused) + (0x2e303030U >> unused << unused);
}
static_assert(four_with_point(123, 3) == 0x2e313233 && four_with_point(45, 2) == 0x2e343500);

// Fewer than eight.
QV8NUMERIC_INLINE void put_short_fraction(char* point, unsigned digits, uint64_t x) {
    if (digits == 2 || digits == 3) return store_four(point, four_with_point(x, digits));
    const uint64_t characters = eight_of<PlainDigits>(x);
    *point = '.';
    while (digits > 0) *++point = static_cast<char>(characters >> 8 * --digits & 0xff);
}

// The point and the digits behind it. Nothing is written behind them and the NUL, where the buffer may end.
QV8NUMERIC_INLINE void put_fraction(char* point, unsigned digits, uint64_t x) {
    if (digits < 8) return put_short_fraction(point, digits, x);
    *point = '.';
    put_digits<PlainDigits>(Run(point + 1, digits), x);
}

QV8NUMERIC_INLINE void put_fraction(char* point, unsigned digits, WordPair x) {
    if (digits <= word_digits) return put_fraction(point, digits, x.low);
    *point = '.';
    const DecimalSplit<uint64_t> words = split_into_words(x);
    put_digits<PlainDigits, word_digits>(Run(point + 1, digits), words.upper, words.lower);
}

template <class Form, class Magnitude>
QV8NUMERIC_INLINE void put_split(char* begin, unsigned integer, unsigned fraction, Magnitude magnitude) {
    const DecimalSplit<Magnitude> split = split_at(fraction, magnitude);
    put_digits<Form>(Run(begin, integer), split.upper);
    put_fraction(begin + integer, fraction, split.lower);
}

// Of one word, more digits than beside_point.
QV8NUMERIC_ASIDE inline void put_split_aside(char* begin, unsigned integer, unsigned fraction, uint64_t magnitude) {
    put_split<PlainDigits>(begin, integer, fraction, magnitude);
}

template <class Form, class Magnitude>
QV8NUMERIC_INLINE void put_behind_sign(char* begin, const Layout& layout, Magnitude magnitude) {
    const auto [negative, integer, fraction] = layout;
    if (fraction == 0) return put_digits<Form>(Run(begin, integer), magnitude);
    if constexpr (!is_grouped<Form>()) {
        if (fraction <= beside_point) return put_with_point(Run(begin, layout.behind_sign()), magnitude, fraction);
        if constexpr (std::is_same_v<Magnitude, uint64_t>) return put_split_aside(begin, integer, fraction, magnitude);
    }
    put_split<Form>(begin, integer, fraction, magnitude);
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
