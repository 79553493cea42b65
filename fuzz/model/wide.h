// SPDX-License-Identifier: MIT
// The integers that the model computes with: wide enough for every exact intermediate, and on the stack.
#ifndef QV8NUMERIC_FUZZ_WIDE_H
#define QV8NUMERIC_FUZZ_WIDE_H

#include <boost/multiprecision/cpp_int.hpp>
#include <cstdint>

#include "qv8numeric.h"

namespace qv8numeric_fuzz {

// Signed, and never near its limit: the widest value anywhere here is a coefficient times 10^164, below 2^673.
using Wide = boost::multiprecision::number<
    boost::multiprecision::cpp_int_backend<1024, 1024, boost::multiprecision::signed_magnitude,
                                           boost::multiprecision::unchecked, void>,
    boost::multiprecision::et_off>;

inline constexpr int kLargestPower = 164;

const Wide& power_of_ten(std::int64_t exponent);   // 0 <= exponent <= kLargestPower
const Wide& power_of_five(std::int64_t exponent);  // the same
const Wide& power_of_two(std::int64_t exponent);   // 0 <= exponent <= 256

inline constexpr std::uint64_t kSignBit = std::uint64_t{1} << 63;

inline bool is_nan(const Numeric& value) { return value.high == INT64_MIN && value.low == 0; }
inline bool is_negative(const Numeric& value) { return value.high < 0; }
inline constexpr Numeric kNan{0, INT64_MIN};
inline constexpr Numeric kZero{0, 0};

// The integer whose two's complement the halves are. NaN is -2^127.
Wide signed_value(const Numeric& value);
Wide magnitude(const Numeric& value);

// The halves of a value modulo 2^128, whatever its size and sign.
Numeric halves(const Wide& value);

// The lowest 64 bits of value >= 0.
std::uint64_t low_word(const Wide& value);

// value modulo 2^bits, for value >= 0 and bits <= 256.
Wide low_bits(const Wide& value, int bits);

// The number of bits up to the highest that is set; value > 0.
int bit_length(const Wide& value);

}  // namespace qv8numeric_fuzz

#endif
