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

const std::array<Wide, kLargestPower + 1> kPowersOfTen = powers<kLargestPower + 1>(10);
const std::array<Wide, kLargestPower + 1> kPowersOfFive = powers<kLargestPower + 1>(5);
const std::array<Wide, 257> kPowersOfTwo = powers<257>(2);

// Boost's limbs are words where the compiler has a 128-bit integer, halves of words elsewhere.
using Limb = boost::multiprecision::limb_type;
constexpr unsigned kLimbBits = sizeof(Limb) * 8;
constexpr unsigned kLimbsPerWord = 64 / kLimbBits;

std::uint64_t word(const Wide& value, unsigned index) {
    const auto& limbs = value.backend();
    std::uint64_t result = 0;
    for (unsigned i = 0; i < kLimbsPerWord; ++i) {
        const unsigned limb = index * kLimbsPerWord + i;
        if (limb < limbs.size()) result |= std::uint64_t{limbs.limbs()[limb]} << (i * kLimbBits);
    }
    return result;
}

template <std::size_t kWords>
Wide of_words(const std::array<std::uint64_t, kWords>& words) {
    Wide value;
    auto& limbs = value.backend();
    constexpr unsigned kLimbs = kWords * kLimbsPerWord;
    limbs.resize(kLimbs, kLimbs);
    for (unsigned i = 0; i < kLimbs; ++i) {
        limbs.limbs()[i] = static_cast<Limb>(words[i / kLimbsPerWord] >> (i % kLimbsPerWord * kLimbBits));
    }
    limbs.normalize();
    return value;
}

// The two's complement of 128 bits.
Numeric opposite(const Numeric& value) {
    const std::uint64_t low = value.low == 0 ? 0 : ~value.low + 1;
    const auto high = static_cast<std::uint64_t>(value.high);
    const std::uint64_t carried = value.low != 0 ? ~high : high == 0 ? 0 : ~high + 1;
    return {low, static_cast<std::int64_t>(carried)};
}

}  // namespace

const Wide& power_of_ten(std::int64_t exponent) { return kPowersOfTen.at(static_cast<std::size_t>(exponent)); }
const Wide& power_of_five(std::int64_t exponent) { return kPowersOfFive.at(static_cast<std::size_t>(exponent)); }
const Wide& power_of_two(std::int64_t exponent) { return kPowersOfTwo.at(static_cast<std::size_t>(exponent)); }

Wide signed_value(const Numeric& value) { return is_negative(value) ? Wide(-magnitude(value)) : magnitude(value); }

Wide magnitude(const Numeric& value) {
    const Numeric absolute = is_negative(value) ? opposite(value) : value;
    return of_words<2>({absolute.low, static_cast<std::uint64_t>(absolute.high)});
}

Numeric halves(const Wide& value) {
    const Numeric absolute{word(value, 0), static_cast<std::int64_t>(word(value, 1))};
    return value < 0 ? opposite(absolute) : absolute;
}

std::uint64_t low_word(const Wide& value) { return word(value, 0); }

Wide low_bits(const Wide& value, int bits) {
    std::array<std::uint64_t, 4> words{};
    for (unsigned i = 0; i < words.size(); ++i) {
        const int kept = bits - 64 * static_cast<int>(i);
        if (kept >= 64) {
            words[i] = word(value, i);
        } else if (kept > 0) {
            words[i] = word(value, i) & ((std::uint64_t{1} << kept) - 1);
        }
    }
    return of_words(words);
}

int bit_length(const Wide& value) { return static_cast<int>(msb(value)) + 1; }

}  // namespace qv8numeric_fuzz
