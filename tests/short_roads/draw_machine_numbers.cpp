// SPDX-License-Identifier: MIT
#include <bit>
#include <cmath>

#include "draw.h"
#include "operands.h"
#include "reference/rounding.h"
#include "reference/scaling.h"

namespace short_roads {
namespace {

// A magnitude of at most so many bits with a sign, in the low word.
std::int64_t signed_word(Random& random, const Limbs& magnitude) {
    return static_cast<std::int64_t>(reference::signed_numeric(magnitude, random.percent(50)).low);
}

NumericInfo drawn_info(Random& random, int digits) {
    const std::int64_t distance = random.percent(50) ? digits : scale_distance(random);
    return {moved(0, random.percent(60) ? -distance : distance), mode(random)};
}

double from_bits(std::uint64_t bits) { return std::bit_cast<double>(bits); }

std::uint64_t to_bits(double x) { return std::bit_cast<std::uint64_t>(x); }

// A significand of any 53 bits, of few bits or of nearly all.
std::uint64_t significand(Random& random) {
    const std::uint64_t any = random.bits() >> 11;
    switch (random.below(4)) {
        case 0: return any & ~((std::uint64_t{1} << random.below(53)) - 1);
        case 1: return any | ((std::uint64_t{1} << random.below(53)) - 1);
        case 2: return random.below(1000) << random.below(40);
        default: return any;
    }
}

double with_any_sign(Random& random, double magnitude) { return random.percent(50) ? magnitude : -magnitude; }

double any_double(Random& random) {
    static constexpr std::uint64_t kSpecial[] = {0,
                                                 1,
                                                 0xfffffffffffff,
                                                 0x10000000000000,
                                                 0x7fefffffffffffff,
                                                 0x7ff0000000000000,
                                                 0x7ff0000000000001,
                                                 0x7ff8000000000000};
    if (random.percent(5)) return from_bits(random.pick(kSpecial));
    const std::uint64_t field = random.percent(50) ? random.below(2047) : 1023 - 60 + random.below(200);
    return from_bits((field << 52) | (significand(random) & 0xfffffffffffff));
}

// A coefficient or a coefficient and a half as a double at this scale, as near as doubles come.
double near_coefficient(Random& random, std::int32_t scale) {
    Limbs halves = shaped(random, random.percent(50) ? 66 : 127).magnitude;
    reference::shift_left(halves, 1);
    if (random.percent(50)) nudge(halves, 1);
    const double value = nearby_double(halves, scale) / 2;
    const std::uint64_t bits = to_bits(value);
    return random.percent(60) || !std::isnormal(value) ? value : from_bits(random.percent(50) ? bits + 1 : bits - 1);
}

// Exactly so many units and a half at this scale, or another fraction with few bits. Where the scale is negative the
// fives of the unit are in the double.
double tied_double(Random& random, std::int32_t scale) {
    Limbs odd = reference::from_word(random.bits() >> random.small(12, 63) | 1);
    for (std::int32_t fives = scale; fives < 0; ++fives) reference::multiply(odd, 5);
    return std::ldexp(nearby_double(odd, 0), -scale - (random.percent(70) ? 1 : random.small(-1, 3)));
}

}  // namespace

void draw_from_int64(Random& random, Call& call) {
    const Shaped operand = shaped(random, 63);
    call.wide_number = random.percent(3) ? INT64_MIN : signed_word(random, operand.magnitude);
    call.infos[0] = drawn_info(random, operand.digits);
    if (random.percent(90)) return;
    const int places = random.small(20, 38);  // the product is near the end of the range
    Limbs largest = power_of_two(127);
    reference::Dropped dropped;
    reference::scale_down(largest, places, dropped);
    nudge(largest, random.between(-1, 1));
    call.wide_number = signed_word(random, largest);
    call.infos[0].scale = places;
}

void draw_from_int32(Random& random, Call& call) {
    const Shaped operand = shaped(random, 31);
    call.numbers[0] = random.percent(3) ? INT32_MIN : static_cast<std::int32_t>(signed_word(random, operand.magnitude));
    call.infos[0] = drawn_info(random, operand.digits);
}

void draw_to_integer(Random& random, Call& call) {
    static constexpr int kMostBits[] = {32, 33, 64, 64, 66, 66, 127};
    const Shaped operand = shaped(random, random.pick(kMostBits));
    call.operands[0] = random.percent(2) ? reference::kNan : coefficient(random, operand.magnitude);
    if (call.operands[0].high < 0 && random.percent(50)) call.operands[0] = reference::low_numeric(operand.magnitude);
    call.infos[0] = drawn_info(random, operand.digits);
    call.infos[0].scale = random.percent(20) ? 0 : moved(0, -std::int64_t{call.infos[0].scale});
}

void draw_from_double(Random& random, Call& call) {
    const std::int32_t near_zero = random.small(-30, 90);
    call.infos[0] = {random.percent(80) ? near_zero : scale(random), mode(random)};
    if (random.percent(10)) call.infos[0].scale = random.small(-1400, 1400);
    if (random.percent(10)) call.infos[0].scale = random.small(-300, -40);
    const std::int32_t places = call.infos[0].scale;
    const std::uint64_t kind = random.below(100);
    if (kind < 20 && -22 <= places && places <= 50) {
        call.real = with_any_sign(random, tied_double(random, places));
    } else if (kind < 60 && -300 <= places && places <= 300) {
        call.real = with_any_sign(random, near_coefficient(random, places));
    } else {
        call.real = with_any_sign(random, any_double(random));
    }
}

// A coefficient whose quotient lies next to a double or halfway between two: significand * 2^e * 10^scale, 54 bits.
void draw_to_double(Random& random, Call& call) {
    const std::int32_t near_zero = random.percent(70) ? random.small(0, 90) : random.small(-90, 0);
    call.infos[0] = {random.percent(80) ? near_zero : scale(random), mode(random)};
    if (random.percent(10)) call.infos[0].scale = random.small(-400, 500);
    Limbs x = shaped(random, 127).magnitude;
    if (call.infos[0].scale > 0 && call.infos[0].scale <= 60 && random.percent(60)) {
        x = reference::from_word(significand(random));
        reference::shift_left(x, 1);
        if (random.percent(50)) nudge(x, 1);
        reference::scale_up(x, call.infos[0].scale);
        const int excess = reference::bit_length(x) - random.small(60, 127);
        if (excess > 0) reference::shift_right(x, excess);
        if (excess < 0 && random.percent(50)) reference::shift_left(x, -excess);
        nudge(x, random.between(-1, 1));
    }
    call.operands[0] = random.percent(1) ? reference::kNan : coefficient(random, x);
}

}  // namespace short_roads
