// SPDX-License-Identifier: MIT
// The power tables, derived at compile time and pinned below entry by entry: a slip in the derivation does not compile.
#ifndef QV8NUMERIC_WIDE_POWERS_H
#define QV8NUMERIC_WIDE_POWERS_H

#include <array>
#include <cstddef>

#include "wide/primitives.h"

namespace qv8numeric {

template <unsigned base, std::size_t count>
constexpr std::array<unsigned, count> powers_of() {
    std::array<unsigned, count> table{};
    unsigned power = 1;
    for (std::size_t k = 0; k < count; ++k, power *= base) table[k] = power;  // up to 10^9 and 5^13 in the end
    return table;
}

template <std::size_t count>
constexpr std::array<divisor_t, count> divisors_of(const std::array<unsigned, count>& powers) {
    std::array<divisor_t, count> table{};
    for (std::size_t k = 0; k < count; ++k) table[k] = make_divisor(powers[k]);
    return table;
}

// 10^0 .. 10^8. 10^8 is the largest step of a change of scale that is taken on limbs.
inline constexpr auto power_of_ten = powers_of<10, 9>();
inline constexpr auto negative_power_of_ten = divisors_of(power_of_ten);

// 5^0 .. 5^12. 5^12 is the largest step of the conversions from and to binary.
inline constexpr auto power_of_five = powers_of<5, 13>();
inline constexpr auto negative_power_of_five = divisors_of(power_of_five);

namespace pinned {

constexpr bool is(const divisor_t& entry, unsigned shift, unsigned multiplier, unsigned divisor) {
    return entry.shift == shift && entry.multiplier == multiplier && entry.divisor == divisor;
}

static_assert(is(negative_power_of_ten[0], 0, 0xFFFFFFFF, 1));
static_assert(is(negative_power_of_ten[1], 3, 0xCCCCCCCC, 10));
static_assert(is(negative_power_of_ten[2], 6, 0xA3D70A3D, 100));
static_assert(is(negative_power_of_ten[3], 9, 0x83126E97, 1000));
static_assert(is(negative_power_of_ten[4], 13, 0xD1B71758, 10000));
static_assert(is(negative_power_of_ten[5], 16, 0xA7C5AC47, 100000));
static_assert(is(negative_power_of_ten[6], 19, 0x8637BD05, 1000000));
static_assert(is(negative_power_of_ten[7], 23, 0xD6BF94D5, 10000000));
static_assert(is(negative_power_of_ten[8], 26, 0xABCC7711, 100000000));

static_assert(is(negative_power_of_five[0], 0, 0xFFFFFFFF, 1));
static_assert(is(negative_power_of_five[1], 2, 0xCCCCCCCC, 5));
static_assert(is(negative_power_of_five[2], 4, 0xA3D70A3D, 25));
static_assert(is(negative_power_of_five[3], 6, 0x83126E97, 125));
static_assert(is(negative_power_of_five[4], 9, 0xD1B71758, 625));
static_assert(is(negative_power_of_five[5], 11, 0xA7C5AC47, 3125));
static_assert(is(negative_power_of_five[6], 13, 0x8637BD05, 15625));
static_assert(is(negative_power_of_five[7], 16, 0xD6BF94D5, 78125));
static_assert(is(negative_power_of_five[8], 18, 0xABCC7711, 390625));
static_assert(is(negative_power_of_five[9], 20, 0x89705F41, 1953125));
static_assert(is(negative_power_of_five[10], 23, 0xDBE6FECE, 9765625));
static_assert(is(negative_power_of_five[11], 25, 0xAFEBFF0B, 48828125));
static_assert(is(negative_power_of_five[12], 27, 0x8CBCCC09, 244140625));

}  // namespace pinned

}  // namespace qv8numeric

#endif
