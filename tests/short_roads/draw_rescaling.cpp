// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include "draw.h"
#include "operands.h"
#include "reference/rounding.h"
#include "reference/scaling.h"

namespace short_roads {
namespace {

using reference::bit_length;

void draw_modes(Random& random, Call& call) {
    for (NumericInfo& info : call.infos) info.rounding_mode = static_cast<std::uint32_t>(random.below(7));
    while (random.percent(4)) call.infos[random.below(3)].rounding_mode = invalid_mode(random);
}

void draw_any_operands(Random& random, Call& call) {
    for (Numeric& operand : call.operands) operand = shaped_coefficient(random).value;
}

void swap_operands(Call& call) {
    std::swap(call.operands[0], call.operands[1]);
    std::swap(call.infos[0], call.infos[1]);
}

// A sum at the finer of two scales that is near the end of a word, of the range or of the vector, or near a tie.
struct Target {
    Limbs sum;
    int digits;
};

// Once its digits are dropped, the sum is rounded up to the end of a word or of the range, or just not.
Target draw_word_end(Random& random, int most_bits) {
    static constexpr int kEnds[] = {63, 64, 126, 127, 127};
    const int end = random.pick(kEnds);
    const int digits = random.small(0, std::max(0, (most_bits - end) * 1233 / 4096));
    Limbs sum = power_of_two(std::min(end, most_bits - 1));
    nudge(sum, random.between(-1, 0));
    reference::scale_up(sum, digits);
    Limbs half = power_of_ten(digits);
    reference::shift_right(half, 1);
    if (random.percent(80)) reference::add(sum, half);
    nudge(sum, random.between(-1, 1));
    return {sum, digits};
}

Target draw_target(Random& random, int most_bits) {
    if (random.percent(20)) return draw_word_end(random, most_bits);
    if (random.percent(50)) return {near_power_of_two(random, most_bits), random.small(0, kLargestPower)};
    const Shaped tie = near_tie(random, most_bits);
    return {tie.magnitude, tie.digits};
}

// a * 10^d + b is the target, 0 <= d <= 38: the result's scale drops the target's digits.
void draw_exact_sum(Random& random, Call& call) {
    const int d = random.percent(25) ? 0 : random.small(0, 38);
    const Target target = draw_target(random, std::min(126 + bit_length(power_of_ten(d)), 254));
    Limbs a = target.sum;
    reference::Dropped dropped;
    reference::scale_down(a, d, dropped);
    nudge(a, random.between(-1, 1));
    Limbs b = a;
    reference::scale_up(b, d);
    reference::negate(b);
    reference::add(b, target.sum);
    const bool negative = reference::is_negative(b);
    if (negative) reference::negate(b);
    if (!reference::in_range(a) || !reference::in_range(b)) return draw_any_operands(random, call);
    const bool all_negative = random.percent(50);
    call.operands[0] = reference::signed_numeric(a, all_negative);
    call.operands[1] = reference::signed_numeric(b, negative != all_negative);
    call.infos[1].scale = moved(call.infos[0].scale, d);
    call.infos[2].scale = moved(call.infos[1].scale, -target.digits);
    if (random.percent(50)) swap_operands(call);
}

Limbs near_word(Random& random) {
    Limbs x = power_of_two(random.small(63, 64));
    nudge(x, random.between(-1, 1));
    return x;
}

// So far apart that one operand only steers the rounding of the other, around the widths of the guard digits.
void draw_distant_sum(Random& random, Call& call) {
    ShapedNumeric near = shaped_coefficient(random);
    if (random.percent(20)) near.value = coefficient(random, near_word(random));
    call.operands[0] = near.value;
    const Shaped far = shaped(random, random.percent(50) ? 127 : 10);
    call.operands[1] = coefficient(random, far.magnitude);
    call.infos[1].scale = moved(call.infos[0].scale, random.between(36, 130));
    call.infos[2].scale = moved(call.infos[0].scale, random.percent(50) ? -near.digits : random.between(-5, 60));
    if (random.percent(50)) swap_operands(call);
}

Limbs odd_number(Random& random, int most_bits) {
    Limbs x = any_bits(random, most_bits);
    x[0] |= 1;
    return x;
}

// odd * 5^fives * 2^twos
Numeric composed(Random& random, Limbs odd, int fives, int twos) {
    for (int i = 0; i < fives; ++i) reference::multiply(odd, 5);
    reference::shift_left(odd, twos);
    if (random.percent(20)) nudge(odd, random.between(-1, 1));
    return coefficient(random, odd);
}

// A product of exactly half a unit of the result's last place: odd * 5^k * 2^(k - 1), spread over both operands.
void draw_tied_product(Random& random, Call& call) {
    const int k = random.small(1, kLargestPower);
    const int fives = random.small(std::max(0, k - 40), std::min(k, 40));
    const int twos = random.small(std::max(0, k - 41), std::min(k - 1, 40));
    const int room = 127 - (40 * 7 / 3) - 40 + 2 * (kLargestPower - k);
    call.operands[0] = composed(random, odd_number(random, std::clamp(room, 1, 60)), fives, twos);
    call.operands[1] = composed(random, odd_number(random, std::clamp(room, 1, 60)), k - fives, k - 1 - twos);
    call.infos[2].scale = moved(call.infos[0].scale, std::int64_t{call.infos[1].scale} - k);
}

// A product near the end of a word, of the range or of a limb, or near a tie.
void draw_near_product(Random& random, Call& call) {
    const Limbs a = random.percent(70) ? any_bits(random, 127) : near_power_of_two(random, 127);
    if (reference::is_zero(a)) return draw_any_operands(random, call);
    const Target target = draw_target(random, 126 + bit_length(a));
    Limbs b = quotient(target.sum, a);
    nudge(b, random.between(-1, 1));
    call.operands[0] = coefficient(random, a);
    call.operands[1] = coefficient(random, b);
    call.infos[2].scale = moved(call.infos[0].scale, std::int64_t{call.infos[1].scale} - target.digits);
    if (random.percent(50)) swap_operands(call);
}

// A divisor around the end of a word, or with a top limb that makes an estimate of the quotient hard.
Limbs draw_divisor_magnitude(Random& random) {
    static constexpr std::uint32_t kTops[] = {0x80000000, 0x80000001, UINT32_MAX, UINT32_MAX - 1, 0xaaaaaaaa};
    if (random.percent(25)) {
        Limbs x = power_of_two(random.percent(50) ? 63 : 64);
        nudge(x, random.between(-3, 3));
        return x;
    }
    if (random.percent(40)) {
        Limbs x = shaped(random, 127).magnitude;
        x[3] = random.pick(kTops);
        reference::shift_right(x, random.small(1, 127));
        return x;
    }
    return shaped(random, 127).magnitude;
}

// The quotient's scale makes the dividend a * 10^k, or a / 10^-k.
void set_quotient_places(Call& call, std::int64_t k) {
    call.infos[2].scale = moved(call.infos[0].scale, k - call.infos[1].scale);
}

Limbs divided_by_power(Limbs x, std::int64_t k) {
    reference::Dropped dropped;
    reference::scale_down(x, k, dropped);
    return x;
}

// The dividend is near the end of a word once it is multiplied by 10^k.
void draw_near_dividend(Random& random, Call& call) {
    const int k = random.small(0, kLargestPower);
    const int shift = bit_length(power_of_ten(k));
    static constexpr int kEnds[] = {64, 127, 128, 191, 192, 193, 223, 224, 225, 254, 255};
    Limbs a = power_of_two(random.pick(kEnds));
    if (bit_length(a) > 126 + shift) a = power_of_two(std::min(125 + shift, 255));
    a = divided_by_power(a, k);
    nudge(a, random.between(-2, 2));
    call.operands[0] = coefficient(random, a);
    call.operands[1] = coefficient(random, draw_divisor_magnitude(random));
    set_quotient_places(call, k);
}

// The remainder is near 0, half the divisor or all of it; up to k digits of the dividend are dropped first.
void draw_near_remainder(Random& random, Call& call) {
    const Limbs b = draw_divisor_magnitude(random);
    if (reference::is_zero(b) || !reference::in_range(b)) return draw_any_operands(random, call);
    const int k = random.percent(40) ? 0 : random.small(0, std::max(0, (127 - bit_length(b)) * 1233 / 4096));
    Limbs unit = b;
    reference::scale_up(unit, k);
    Limbs remainder = unit;
    reference::shift_right(remainder, 1);
    if (random.percent(20)) remainder = Limbs{};
    if (random.percent(20)) remainder = unit;
    Limbs a = reference::product(any_bits(random, std::max(0, 127 - bit_length(unit))), unit);
    reference::add(a, remainder);
    nudge(a, random.between(-1, 1));
    const int up = random.percent(70) ? 0 : random.small(0, 38);  // near still, but no longer to the unit
    call.operands[0] = coefficient(random, divided_by_power(a, up));
    call.operands[1] = coefficient(random, b);
    set_quotient_places(call, up - k);
}

// odd * 10^k / (2^(k + 1) * 5^j), a tie for any k, j <= k.
void draw_tied_quotient(Random& random, Call& call) {
    const int k = random.small(0, 40);
    const Limbs common = odd_number(random, 20);
    call.operands[0] = coefficient(random, reference::product(common, odd_number(random, 80)));
    call.operands[1] = composed(random, common, random.small(0, std::min(k, 28)), k + 1);
    set_quotient_places(call, k);
}

// A divisor of 10^j: the quotient is an operand cut.
void draw_cut_quotient(Random& random, Call& call) {
    const int j = random.small(0, 38);
    const ShapedNumeric operand = shaped_coefficient(random);
    call.operands[0] = operand.value;
    call.operands[1] = coefficient(random, power_of_ten(j));
    set_quotient_places(call, random.percent(50) ? j - operand.digits : random.between(-40, 40));
}

}  // namespace

void draw_rescaling_sum(Random& random, Call& call) {
    for (NumericInfo& info : call.infos) info.scale = scale(random);
    const std::uint64_t kind = random.below(100);
    if (kind < 10) {
        draw_sum(random, call);
        call.infos[1].scale = call.infos[0].scale;
        call.infos[2].scale = moved(call.infos[0].scale, random.percent(60) ? 0 : random.between(-3, 3));
    } else if (kind < 55) {
        draw_exact_sum(random, call);
    } else if (kind < 72) {
        draw_distant_sum(random, call);
    } else {
        draw_any_operands(random, call);
        call.infos[1].scale = moved(call.infos[0].scale, random.percent(50) ? 0 : scale_distance(random));
        if (random.percent(50)) swap_operands(call);
        const std::int64_t places = scale_distance(random);
        const std::int32_t from = call.infos[random.below(2)].scale;
        call.infos[2].scale = moved(from, random.percent(60) ? -places : places);
    }
    if (random.percent(30)) call.operands[1] = negated(call.operands[1]);
    draw_modes(random, call);
    call.operand_at[1] = 1;
    draw_aliases(random, call);
}

void draw_rescaling_order(Random& random, Call& call) {
    draw_rescaling_sum(random, call);
    call.result_at = 2;
    const std::int64_t d = std::int64_t{call.infos[1].scale} - call.infos[0].scale;
    if (d < 0 || d > 38 || random.percent(50)) return;
    // The same value at both scales, or its neighbour.
    call.operand_at[1] = 1;
    Limbs x = divided_by_power(reference::magnitude(call.operands[0]), d);
    const bool negative = reference::is_negative(call.operands[0]);
    call.operands[0] = reference::signed_numeric(x, negative);
    reference::scale_up(x, d);
    if (random.percent(50)) nudge(x, random.between(-1, 1));
    call.operands[1] = reference::signed_numeric(x, negative);
    if (random.percent(50)) swap_operands(call);
}

void draw_rescaling_product(Random& random, Call& call) {
    for (NumericInfo& info : call.infos) info.scale = scale(random);
    const std::uint64_t kind = random.below(100);
    if (kind < 30) {
        draw_tied_product(random, call);
    } else if (kind < 65) {
        draw_near_product(random, call);
    } else {
        draw_any_operands(random, call);
        const std::int64_t places = scale_distance(random);
        const std::int64_t whole = std::int64_t{call.infos[0].scale} + call.infos[1].scale;
        if (random.percent(90)) call.infos[2].scale = moved(0, random.percent(70) ? whole - places : whole + places);
    }
    draw_modes(random, call);
    draw_aliases(random, call);
}

void draw_rescaling_quotient(Random& random, Call& call) {
    for (NumericInfo& info : call.infos) info.scale = scale(random);
    const std::uint64_t kind = random.below(100);
    if (kind < 20) {
        draw_near_dividend(random, call);
    } else if (kind < 50) {
        draw_near_remainder(random, call);
    } else if (kind < 65) {
        draw_tied_quotient(random, call);
    } else if (kind < 75) {
        draw_cut_quotient(random, call);
    } else {
        draw_any_operands(random, call);
        if (random.percent(50)) call.operands[1] = coefficient(random, draw_divisor_magnitude(random));
        const std::int64_t places = scale_distance(random);
        if (random.percent(90)) set_quotient_places(call, random.percent(50) ? places : -places);
    }
    draw_modes(random, call);
    draw_aliases(random, call);
}

}  // namespace short_roads
