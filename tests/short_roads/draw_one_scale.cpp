// SPDX-License-Identifier: MIT
#include "draw.h"
#include "operands.h"
#include "reference/reference.h"
#include "reference/rounding.h"
#include "reference/scaling.h"

namespace short_roads {
namespace {

NumericInfo info(Random& random, std::int32_t scale) { return {scale, mode(random)}; }

// In-place operations: the result lies where the operand does.
void in_place(Call& call) { call.result_at = call.operand_at[0]; }

// Two coefficients whose sum or difference is near the end of a word or of the range.
void draw_near_edge(Random& random, Call& call) {
    Limbs edge = near_power_of_two(random, 128);
    if (random.percent(50)) reference::negate(edge);
    const Numeric first = shaped_coefficient(random).value;
    reference::subtract(edge, reference::widened(first));
    const bool negative = reference::is_negative(edge);
    if (negative) reference::negate(edge);
    call.operands[0] = first;
    call.operands[1] =
        reference::in_range(edge) ? reference::signed_numeric(edge, negative) : coefficient(random, edge);
    if (random.percent(50)) call.operands[1] = negated(call.operands[1]);
}

// Multiplication is modulo 2^256, and what is left passes when its upper four limbs are equal to one another: a product
// just above such a pattern, or above one where only every other limb is the same.
void draw_wrapped_rescale(Random& random, Call& call) {
    const int places = random.small(1, 38);
    Limbs pattern = any_bits(random, 32);
    pattern[5] = random.percent(80) ? pattern[0] : any_bits(random, 32)[0];
    pattern[4] = pattern[6] = pattern[0];
    pattern[7] = pattern[5];
    for (std::size_t i = 0; i < 4; ++i) pattern[i] = 0;
    reference::Dropped dropped;
    reference::scale_down(pattern, places, dropped);
    nudge(pattern, random.between(0, 2));
    call.operands[0] = coefficient(random, pattern);
    call.infos[1].scale = moved(call.infos[0].scale, places);
}

// The product is near the end of a word or of the vector.
void draw_large_rescale(Random& random, Call& call) {
    const int places = random.small(1, kLargestPower);
    Limbs x = near_power_of_two(random, 255);
    reference::Dropped dropped;
    reference::scale_down(x, places, dropped);
    nudge(x, random.between(-1, 1));
    call.operands[0] = coefficient(random, x);
    call.infos[1].scale = moved(call.infos[0].scale, places);
}

// Of the few that pass although they are multiplied by more than 10^38.
void draw_rare_rescale(Random& random, Call& call) {
    static constexpr struct {
        const char* coefficient;
        std::int32_t places;
    } kRare[] = {{"123897535483928329103220953959296061403", 41},
                 {"166600883694731896832553913086626783484", 80},
                 {"107934196843166079644664139084775959480", 88}};
    const auto rare = random.pick(kRare);
    const NumericInfo integer{0, NUMERIC_ROUND_DOWN};
    reference::from_text(rare.coefficient, &integer, &call.operands[0], nullptr);
    call.infos[1].scale = moved(call.infos[0].scale, rare.places + (random.percent(80) ? 0 : random.between(-1, 1)));
}

}  // namespace

void draw_aliases(Random& random, Call& call) {
    if (random.percent(5)) call.operands[1] = call.operands[0];
    const bool same = call.operands[0].low == call.operands[1].low && call.operands[0].high == call.operands[1].high;
    if (same && random.percent(50)) call.operand_at[1] = 0;
    call.result_at = random.percent(50) ? 2 : random.small(0, 1);
}

void draw_one_operand(Random& random, Call& call) {
    call.operands[0] = random.percent(10) ? reference::kNan : shaped_coefficient(random).value;
}

void draw_operand_and_flag(Random& random, Call& call) {
    draw_one_operand(random, call);
    call.flag = random.percent(50) ? 0 : std::uint32_t{1} << random.below(32);
}

void draw_sum(Random& random, Call& call) {
    if (random.percent(60)) {
        draw_near_edge(random, call);
    } else {
        for (Numeric& operand : call.operands) operand = shaped_coefficient(random).value;
    }
    draw_aliases(random, call);
}

void draw_order(Random& random, Call& call) {
    draw_sum(random, call);
    if (random.percent(40)) {  // close to one another
        call.operands[1] = call.operands[0];
        if (random.percent(70)) call.operands[1].low ^= std::uint64_t{1} << random.below(64);
        if (random.percent(20)) call.operands[1].high = ~call.operands[1].high;
        call.operand_at[1] = 1;
    }
    call.result_at = 2;
}

void draw_truncation(Random& random, Call& call) {
    const ShapedNumeric operand = shaped_coefficient(random);
    call.operands[0] = operand.value;
    call.infos[0] = info(random, scale(random));
    const std::int64_t digits = random.percent(60) ? operand.digits : scale_distance(random);
    call.numbers[0] = moved(call.infos[0].scale, random.percent(90) ? -digits : digits);
    in_place(call);
}

void draw_factor(Random& random, Call& call) {
    static constexpr std::int32_t kEdges[] = {0, 1, -1, 2, 3, 10, 100, 1000000000, INT32_MAX, INT32_MIN, 1 << 30};
    const auto any = static_cast<std::int32_t>(any_bits(random, 31)[0]);
    const std::int32_t factor = random.percent(40) ? random.pick(kEdges) : any;
    call.numbers[0] = random.percent(10) ? -(factor / 2) : factor;
    call.operands[0] = shaped_coefficient(random).value;
    if (random.percent(50) && factor > 0) {  // the product is near an edge
        Limbs x = quotient(near_power_of_two(random, 127), reference::from_word(static_cast<std::uint64_t>(factor)));
        nudge(x, random.between(-1, 1));
        call.operands[0] = coefficient(random, x);
    }
    in_place(call);
}

void draw_divisor(Random& random, Call& call) {
    static constexpr std::int32_t kEdges[] = {
        0,       1,       -1,    2,          -2,        3,          7,          10,        100,       1000,
        1 << 16, 1 << 24, 65537, 1000000000, (1 << 30), 1073741825, 1073741823, INT32_MAX, INT32_MIN, -INT32_MAX};
    const auto any = static_cast<std::int32_t>(any_bits(random, 31)[0]);
    const std::int64_t drawn = random.percent(40) ? random.pick(kEdges) : any;
    const std::int64_t divisor = drawn < 0 ? -drawn : drawn;
    const bool negative = divisor > INT32_MAX || random.percent(30);
    call.numbers[0] = static_cast<std::int32_t>(negative ? -divisor : divisor);
    call.infos[0] = info(random, scale(random));
    Limbs x = shaped(random, 127).magnitude;
    if (random.percent(60) && divisor != 0) {  // a remainder near 0, half the divisor or all of it
        const std::int64_t remainders[] = {0, 1, divisor / 2 - 1, divisor / 2, divisor / 2 + 1, divisor - 1};
        x = quotient(x, reference::from_word(static_cast<std::uint64_t>(divisor)));
        reference::multiply(x, static_cast<std::uint32_t>(divisor));
        nudge(x, random.pick(remainders));
    }
    call.operands[0] = coefficient(random, x);
    if (random.percent(2)) call.operands[0] = reference::kNan;
    in_place(call);
}

void draw_rescale(Random& random, Call& call) {
    const ShapedNumeric operand = shaped_coefficient(random);
    call.operands[0] = operand.value;
    call.infos[0] = info(random, scale(random));
    const std::uint64_t kind = random.below(100);
    if (kind < 40) {
        call.infos[1].scale = moved(call.infos[0].scale, -operand.digits);
    } else if (kind < 85) {
        const std::int64_t distance = scale_distance(random);
        call.infos[1].scale = moved(call.infos[0].scale, random.percent(50) ? -distance : distance);
    } else if (kind < 92) {
        draw_large_rescale(random, call);
    } else if (kind < 98) {
        draw_wrapped_rescale(random, call);
    } else {
        draw_rare_rescale(random, call);
    }
    call.infos[1].rounding_mode = mode(random);
    call.result_at = random.percent(50) ? 2 : 0;
}

}  // namespace short_roads
