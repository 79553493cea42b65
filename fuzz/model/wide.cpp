// SPDX-License-Identifier: MIT
#include "wide.h"

#include <array>

namespace qv8numeric_fuzz {
namespace {

template <std::size_t kSize>
std::array<Wide, kSize> powers(int base) {
    std::array<Wide, kSize> table;
    table[0] = 1;
    for (std::size_t i = 1; i < kSize; ++i) table[i] = table[i - 1] * base;
    return table;
}

const Wide kWord = std::uint64_t{0xffffffffffffffff};

}  // namespace

const Wide& power_of_ten(std::int64_t exponent) {
    static const auto table = powers<kLargestPower + 1>(10);
    return table.at(static_cast<std::size_t>(exponent));
}

const Wide& power_of_five(std::int64_t exponent) {
    static const auto table = powers<kLargestPower + 1>(5);
    return table.at(static_cast<std::size_t>(exponent));
}

const Wide& power_of_two(std::int64_t exponent) {
    static const auto table = powers<257>(2);
    return table.at(static_cast<std::size_t>(exponent));
}

Wide signed_value(const Numeric& value) {
    Wide wide = value.high;
    wide *= power_of_two(64);
    wide += value.low;
    return wide;
}

Wide magnitude(const Numeric& value) { return abs(signed_value(value)); }

Numeric halves(const Wide& value) {
    Wide pattern = low_bits(abs(value), 128);
    if (value < 0 && pattern != 0) pattern = power_of_two(128) - pattern;
    return {low_word(pattern), static_cast<std::int64_t>(low_word(pattern >> 64))};
}

std::uint64_t low_word(const Wide& value) { return static_cast<std::uint64_t>(value & kWord); }

Wide low_bits(const Wide& value, int bits) { return value & (power_of_two(bits) - 1); }

int bit_length(const Wide& value) { return static_cast<int>(msb(value)) + 1; }

}  // namespace qv8numeric_fuzz
