// SPDX-License-Identifier: MIT
// The wide numbers behind the public header as integers of any size and back, for tests that compute what to expect.
#ifndef QV8NUMERIC_TESTS_WIDE_VALUES_H
#define QV8NUMERIC_TESTS_WIDE_VALUES_H

#include <algorithm>
#include <boost/multiprecision/cpp_int.hpp>
#include <cstdint>
#include <iterator>
#include <ostream>
#include <random>

#include "values.h"
#include "wide/dropped.h"
#include "wide/extended_numeric.h"

inline bool operator==(const ExtendedNumeric& a, const ExtendedNumeric& b) {
    return std::equal(std::begin(a.word), std::end(a.word), std::begin(b.word));
}

namespace qv8numeric_tests {

// Without expression templates, so that every expression has this one type.
using Integer = boost::multiprecision::number<boost::multiprecision::cpp_int_backend<>, boost::multiprecision::et_off>;

inline Integer power(unsigned base, unsigned exponent) { return pow(Integer{base}, exponent); }
inline Integer two_to(unsigned exponent) { return Integer{1} << exponent; }

inline Integer integer(std::uint64_t word) { return word; }

inline Integer integer(const qv8numeric::WordPair& pair) { return (Integer{pair.high} << 64) + pair.low; }

inline Integer integer(const ExtendedNumeric& x) {
    Integer value = 0;
    for (const unsigned i : {3U, 2U, 1U, 0U}) value = (value << 64) + x.word[i];
    return value;
}

inline Integer integer(const Numeric& value) { return (Integer{value.high} << 64) + value.low; }

// The remainder that is not negative: two's complement for a power of two.
inline Integer modulo(const Integer& value, const Integer& modulus) {
    const Integer remainder = value % modulus;
    return remainder < 0 ? remainder + modulus : remainder;
}

// Bits 64 * i and up of a value that is not negative.
inline std::uint64_t word_of(const Integer& value, unsigned i) {
    return static_cast<std::uint64_t>((value >> 64 * i) & UINT64_MAX);
}

// The value modulo 2^128, and modulo 2^256.
inline qv8numeric::WordPair pair(const Integer& value) {
    const Integer bits = modulo(value, two_to(128));
    return {word_of(bits, 1), word_of(bits, 0)};
}

inline ExtendedNumeric wide(const Integer& value) {
    const Integer bits = modulo(value, two_to(256));
    return {{word_of(bits, 0), word_of(bits, 1), word_of(bits, 2), word_of(bits, 3)}};
}

// Where remainder / divisor stands, for 0 <= remainder < divisor.
inline qv8numeric::Fraction exact_fraction(const Integer& remainder, const Integer& divisor) {
    using enum qv8numeric::Fraction;
    if (remainder == 0) return nothing;
    if (2 * remainder == divisor) return exactly_half;
    return 2 * remainder < divisor ? below_half : above_half;
}

// Put into an output before a call, so that an output left unwritten is seen.
inline constexpr ExtendedNumeric kWidePoison{
    {0x5a5a5a5a5a5a5a5aU, 0x5a5a5a5a5a5a5a5aU, 0x5a5a5a5a5a5a5a5aU, 0x5a5a5a5a5a5a5a5aU}};

// The same values in every run, and more often than chance would have it those that carry, borrow and overflow.
class RandomValues {
  public:
    explicit RandomValues(std::uint64_t seed) : generator_(seed) {}

    std::uint64_t below(std::uint64_t limit) { return generator_() % limit; }

    std::uint64_t word() {
        const std::uint64_t power_of_two = std::uint64_t{1} << below(64);
        switch (below(8)) {
            case 0: return 0;
            case 1: return UINT64_MAX;
            case 2: return power_of_two;
            case 3: return power_of_two - 1;
            case 4: return UINT64_MAX - (power_of_two - 1);
            default: return generator_();
        }
    }

    qv8numeric::WordPair pair() { return {word(), word()}; }

    // Below 2^bits, and every length as likely as any other.
    Integer magnitude(unsigned bits) {
        Integer value = 0;
        for (unsigned i = 0; i < bits; i += 64) value = (value << 64) + word();
        return (value & (two_to(bits) - 1)) >> below(bits);
    }

  private:
    std::mt19937_64 generator_;
};

}  // namespace qv8numeric_tests

inline std::ostream& operator<<(std::ostream& out, const ExtendedNumeric& x) {
    return out << qv8numeric_tests::integer(x);
}

namespace qv8numeric {

inline std::ostream& operator<<(std::ostream& out, const WordPair& pair) {
    return out << qv8numeric_tests::integer(pair);
}

inline std::ostream& operator<<(std::ostream& out, Fraction fraction) {
    constexpr const char* names[] = {"nothing", "below half", "exactly half", "above half"};
    const auto index = static_cast<unsigned>(fraction);
    return index < std::size(names) ? out << names[index] : out << "no fraction: " << index;
}

}  // namespace qv8numeric

#endif
