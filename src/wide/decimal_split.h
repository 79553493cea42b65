// SPDX-License-Identifier: MIT
// The decimal digits of a magnitude: how many there are, and a cut between two of them.
#ifndef QV8NUMERIC_WIDE_DECIMAL_SPLIT_H
#define QV8NUMERIC_WIDE_DECIMAL_SPLIT_H

#include <bit>

#include "wide/decimal_powers.h"
#include "wide/scaling.h"

namespace qv8numeric {

// floor(log10(2^bits)) for bits <= 128: 1233/4096 falls short of log10(2) by less than 4.7e-6.
constexpr unsigned whole_log10_of_power_of_two(unsigned bits) { return bits * 1233 >> 12; }
static_assert(whole_log10_of_power_of_two(128) == pair_digits);

// Without leading zeros, so none for 0. With b bits, 2^(b-1) <= x < 2^b, and 10^t <= 2^b < 10^(t+1), x has t or t + 1
// digits: 10^(t-1) <= 2^b / 10 < x.
constexpr unsigned count_digits(uint64_t x) {
    const unsigned fewest = whole_log10_of_power_of_two(static_cast<unsigned>(std::bit_width(x | 1)));
    return fewest + one_if(x >= decimal_power[fewest].power.low);
}

constexpr unsigned count_digits(WordPair x) {
    if (x.high == 0) return count_digits(x.low);
    const unsigned fewest = whole_log10_of_power_of_two(64 + static_cast<unsigned>(std::bit_width(x.high)));
    return fewest + one_if(x >= decimal_power[fewest].power);
}

// x = upper * 10^digits + lower.
template <class Magnitude>
struct DecimalSplit {
    Magnitude upper;
    Magnitude lower;
};

// For x up to 2^63 and 1 .. 19 digits.
constexpr DecimalSplit<uint64_t> split_at(unsigned digits, uint64_t x) {
    const uint64_t upper = divide_by_power(x, digits);
    return {upper, x - upper * decimal_power[digits].power.low};
}

// For x up to 2^127 and 1 .. 38 digits.
constexpr DecimalSplit<WordPair> split_at(unsigned digits, WordPair x) {
    const WordPair upper = divide_by_power(x, digits);
    const WordPair power = decimal_power[digits].power;
    if (digits <= word_digits) return {upper, {0, wrapping_subtract(x.low, wrapping_multiply(upper.low, power.low))}};
    return {upper, wrapping_subtract(x, wrapping_multiply(power, upper.low))};
}

// For x up to 2^127 and 19 digits, which leaves a word on either side: 2^127 / 10^19 < 2^64.
constexpr DecimalSplit<uint64_t> split_into_words(WordPair x) {
    constexpr const DecimalPower& ten = decimal_power[word_digits];
    static_assert(ten.power.low >> 63 == 1);  // normalized, so that one step divides
    const auto [upper, lower] = divide_2by1(x, ten.power.low, ten.long_reciprocal);
    return {upper, lower};
}

}  // namespace qv8numeric

#endif
