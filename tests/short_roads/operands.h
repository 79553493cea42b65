// SPDX-License-Identifier: MIT
// Operands near the places where a short road begins or ends.
#ifndef QV8NUMERIC_TESTS_SHORT_ROADS_OPERANDS_H
#define QV8NUMERIC_TESTS_SHORT_ROADS_OPERANDS_H

#include <cstdint>

#include "random.h"
#include "reference/limbs.h"

namespace short_roads {

using reference::Limbs;

inline constexpr int kLargestPower = 76;  // 10^76 < 2^256

const Limbs& power_of_ten(int k);  // 0 <= k <= 76
Limbs power_of_two(int p);         // 0 <= p <= 255

// A magnitude, and the number of its last digits that make it special (any when none do).
struct Shaped {
    Limbs magnitude;
    int digits;
};

// Any number of at most so many bits; each number of bits is as likely as any other.
Limbs any_bits(Random& random, int most_bits);

// m * 10^k or m * 10^k + 10^k / 2, or a neighbour of these. Below 2^most_bits, as are the next two.
Shaped near_tie(Random& random, int most_bits);

// A power of two or a neighbour of it, mostly one where a word, a limb or the range ends.
Limbs near_power_of_two(Random& random, int most_bits);

// Any of these, limbs of all zeros and ones, and small numbers.
Shaped shaped(Random& random, int most_bits);

// x + delta, but never below 0.
void nudge(Limbs& x, std::int64_t delta);

Numeric negated(const Numeric& x);

// With any sign; what is out of range becomes the largest coefficient.
Numeric coefficient(Random& random, const Limbs& magnitude);

// A coefficient of any of the shapes, sometimes NaN.
struct ShapedNumeric {
    Numeric value;
    int digits;
};
ShapedNumeric shaped_coefficient(Random& random);

// x / divisor for 0 < divisor < 2^128 and a quotient below 2^127.
Limbs quotient(Limbs x, Limbs divisor);

// The double nearest to x * 10^-scale, or the next to it; by integers, so that all machines draw the same.
// For -300 <= scale <= 300.
double nearby_double(Limbs x, std::int32_t scale);

std::uint32_t mode(Random& random);          // now and then an invalid one
std::uint32_t invalid_mode(Random& random);  // likely one whose low bits are those of a valid one
std::int32_t scale(Random& random);
std::int32_t moved(std::int32_t scale, std::int64_t distance);  // clamped to int32

// How far apart two scales are: 0 to 100, and more.
std::int64_t scale_distance(Random& random);

}  // namespace short_roads

#endif
