// SPDX-License-Identifier: MIT
#include "operands.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "reference/long_division.h"
#include "reference/reference.h"
#include "reference/rounding.h"
#include "reference/scaling.h"

namespace short_roads {
namespace {

using reference::bit_length;

const auto kPowersOfTen = [] {
    std::array<Limbs, kLargestPower + 1> powers{};
    powers[0] = reference::from_word(1);
    for (std::size_t k = 1; k < powers.size(); ++k) {
        powers[k] = powers[k - 1];
        reference::multiply(powers[k], 10);
    }
    return powers;
}();

Limbs limited(Limbs x, int most_bits) {
    if (bit_length(x) > most_bits) reference::shift_right(x, bit_length(x) - most_bits);
    return x;
}

Limbs limb_patterns(Random& random) {
    Limbs x{};
    for (std::uint32_t& limb : x) {
        const std::uint32_t values[] = {0,
                                        0,
                                        1,
                                        0x7fffffff,
                                        0x80000000,
                                        0x80000001,
                                        UINT32_MAX,
                                        UINT32_MAX - 1,
                                        reference::low_limb(random.bits())};
        limb = random.pick(values);
    }
    return x;
}

// The largest k with 10^k below 2^most_bits.
int digits_within(int most_bits) { return std::min(most_bits * 1233 / 4096, kLargestPower); }

// What is left of a number below 2^most_bits once k digits were dropped: any number, one near the end of a word, one
// that gains a digit when it is increased, a small one, or the largest there is.
Limbs multiple(Random& random, int k, int most_bits) {
    const int room = std::max(most_bits - bit_length(power_of_ten(k)), 0);
    Limbs x = any_bits(random, room);
    switch (random.below(8)) {
        case 0: x = power_of_two(most_bits); break;
        case 1: x = near_power_of_two(random, room); break;
        case 2: x = power_of_ten(random.small(0, digits_within(room))); break;
        case 3: x = reference::from_word(random.below(10)); break;
        default: return x;
    }
    if (bit_length(x) > room) {
        x = power_of_two(most_bits);
        nudge(x, -1);
        reference::Dropped dropped;
        reference::scale_down(x, k, dropped);
    }
    if (random.percent(50)) nudge(x, -1);
    return x;
}

}  // namespace

const Limbs& power_of_ten(int k) { return kPowersOfTen[static_cast<std::size_t>(k)]; }

Limbs power_of_two(int p) {
    Limbs x{};
    x[static_cast<std::size_t>(p / 32)] = std::uint32_t{1} << p % 32;
    return x;
}

Limbs any_bits(Random& random, int most_bits) {
    Limbs x{};
    for (std::uint32_t& limb : x) limb = reference::low_limb(random.bits());
    reference::shift_right(x, 256 - random.small(0, most_bits));
    return x;
}

void nudge(Limbs& x, std::int64_t delta) {
    const bool down = delta < 0;
    const Limbs step = reference::from_word(static_cast<std::uint64_t>(down ? -delta : delta));
    if (!down) {
        reference::add(x, step);
    } else if (reference::compare(x, step) >= 0) {
        reference::subtract(x, step);
    }
}

Shaped near_tie(Random& random, int most_bits) {
    const int k = random.small(0, digits_within(most_bits));
    Limbs x = multiple(random, k, most_bits);
    reference::scale_up(x, k);
    Limbs half = power_of_ten(k);
    reference::shift_right(half, 1);
    if (random.percent(60)) reference::add(x, half);
    nudge(x, random.between(-1, 1));
    return {limited(x, most_bits), k};
}

Limbs near_power_of_two(Random& random, int most_bits) {
    static constexpr int kEdges[] = {30,  31,  32,  62,  63,  64,  64,  63,  95, 96,
                                     126, 127, 127, 128, 191, 192, 224, 254, 255};
    int p = random.percent(70) ? random.pick(kEdges) : random.small(0, 255);
    if (p > most_bits) p = most_bits;
    Limbs x = power_of_two(std::min(p, 255));
    nudge(x, p == most_bits ? random.between(-3, -1) : random.between(-2, 2));
    return x;
}

Shaped shaped(Random& random, int most_bits) {
    const int k = random.small(0, 40);
    switch (random.below(20)) {
        case 0: return {Limbs{}, k};
        case 1: return {limited(reference::from_word(random.below(200)), most_bits), k};
        case 2:
        case 3: {
            Limbs x = limb_patterns(random);
            reference::shift_right(x, 32 * random.small(1, 7));
            return {limited(x, most_bits), k};
        }
        case 4:
        case 5:
        case 6:
        case 7: return {near_power_of_two(random, most_bits), k};
        case 8:
        case 9:
        case 10:
        case 11:
        case 12:
        case 13: return near_tie(random, random.percent(50) ? most_bits : random.small(1, most_bits));
        default: return {any_bits(random, most_bits), k};
    }
}

Numeric negated(const Numeric& x) { return reference::signed_numeric(reference::pattern(x), true); }

Numeric coefficient(Random& random, const Limbs& magnitude) {
    Limbs x = magnitude;
    if (!reference::in_range(x)) {
        x = power_of_two(127);
        nudge(x, -1);
    }
    return reference::signed_numeric(x, random.percent(50));
}

ShapedNumeric shaped_coefficient(Random& random) {
    if (random.percent(1)) return {reference::kNan, 0};
    const Shaped drawn = shaped(random, 127);
    return {coefficient(random, drawn.magnitude), drawn.digits};
}

Limbs quotient(Limbs x, Limbs divisor) {
    const int shift = 128 - bit_length(divisor);
    reference::shift_left(x, shift);
    reference::shift_left(divisor, shift);
    return reference::long_division(x, divisor);
}

double nearby_double(Limbs x, std::int32_t scale) {
    const int excess = std::max(bit_length(x) - 112, 0);  // of more bits, negative scales are converted wrongly
    reference::shift_right(x, excess);
    const Numeric value = reference::low_numeric(x);
    const NumericInfo info{scale, NUMERIC_ROUND_HALF_EVEN};
    double result = 0;
    reference::to_double(&value, &info, &result);
    return std::ldexp(result, excess);
}

std::uint32_t invalid_mode(Random& random) {
    const std::uint32_t valid = static_cast<std::uint32_t>(random.below(7));
    const std::uint32_t modes[] = {
        7, 8, 9, 8 | valid, 16 | valid, 256 | valid, 1 << 16 | valid, 0x80000000 | valid, UINT32_MAX, 255};
    return random.pick(modes);
}

std::uint32_t mode(Random& random) {
    return random.percent(3) ? invalid_mode(random) : static_cast<std::uint32_t>(random.below(7));
}

std::int32_t moved(std::int32_t scale, std::int64_t distance) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(scale + distance, INT32_MIN, INT32_MAX));
}

std::int32_t scale(Random& random) {
    static constexpr std::int32_t kFar[] = {INT32_MIN, INT32_MIN + 1, -1000000000, -1000,        1000,
                                            65536,     1000000000,    INT32_MAX,   INT32_MAX - 1};
    if (random.percent(60)) return random.small(0, 10);
    if (random.percent(90)) return random.small(-40, 60);
    return random.pick(kFar);
}

std::int64_t scale_distance(Random& random) {
    static constexpr std::int64_t kFar[] = {101, 128, 1000, 1 << 20, INT32_MAX, std::int64_t{1} << 31, UINT32_MAX};
    const std::uint64_t kind = random.below(100);
    if (kind < 15) return 0;
    if (kind < 50) return random.between(1, 19);
    if (kind < 70) return random.between(20, 39);
    if (kind < 84) return random.between(38, 76);
    if (kind < 97) return random.between(70, 100);
    return random.pick(kFar);
}

}  // namespace short_roads
