// SPDX-License-Identifier: MIT
#include "walk.h"

#include <string>
#include <vector>

#include "operands.h"
#include "reference/reference.h"
#include "reference/rounding.h"
#include "reference/scaling.h"

namespace short_roads {
namespace {

using reference::bit_length;

// Multiples of 10^k: small ones, and those that come to the end of a word as a quotient or as a product.
std::vector<Limbs> multiples(int k) {
    static constexpr int kEnds[] = {31, 32, 62, 63, 64, 95, 96, 126, 127, 128, 191, 192};
    std::vector<Limbs> list;
    for (std::uint64_t m = 0; m < 4; ++m) list.push_back(reference::from_word(m));
    for (const int end : kEnds) {
        const Limbs quotient_at_end = power_of_two(end);
        Limbs product_at_end = quotient_at_end;
        reference::Dropped dropped;
        reference::scale_down(product_at_end, k, dropped);
        for (const Limbs& at_end : {quotient_at_end, product_at_end}) {
            for (const int delta : {-1, 0, 1}) {
                list.push_back(at_end);
                nudge(list.back(), delta);
            }
        }
    }
    return list;
}

std::vector<Limbs> remainders(const Limbs& unit) {
    Limbs half = unit;
    reference::shift_right(half, 1);
    std::vector<Limbs> list{Limbs{}, reference::from_word(1), half, half, half, unit};
    nudge(list[2], -1);
    nudge(list[4], 1);
    nudge(list[5], -1);
    return list;
}

struct Walker {
    const Visit& visit;
    int k;
    std::uint32_t mode;
    Call call{};

    void set_scales(std::int32_t first, std::int32_t second, std::int32_t third) {
        call.infos[0] = {first, mode};
        call.infos[1] = {second, mode};
        call.infos[2] = {third, mode};
    }

    void now(const char* name) { visit(operation_named(name), call); }

    // x is a coefficient of scale k, and all of its decimals go.
    void cut(const Numeric& x) {
        call = {};
        call.operands[0] = x;
        set_scales(k, 0, 0);
        call.buffer_size = 64;
        now("Num2Str");
        now("Num2Dgstr");
        now("Rescale");
        now("RescalingAdd");
        now("RescalingSub");
        call.operands[1] = reference::low_numeric(reference::from_word(1));
        now("RescalingMul");
        now("RescalingDiv");
        call.operands[1] = reference::low_numeric(reference::from_word(3));
        now("RescalingDiv");
        call.result_at = 0;
        for (const char* name : {"Ceil", "Floor", "Round"}) now(name);
        as_text(x);
    }

    void as_text(const Numeric& x) {
        char text[96];
        const NumericInfo info{k, NUMERIC_ROUND_DOWN};
        reference::to_text(&x, &info, 0, k, text, sizeof text);
        call = {};
        set_scales(0, 0, 0);
        call.text = text;
        now("Str2Num");
        now("Dgstr2Num");
    }

    // x is a divisor's multiple and a remainder: with a divisor of 10^k.
    void divided(const Numeric& x) {
        if (k > 38) return;
        call = {};
        call.operands[0] = x;
        call.operands[1] = reference::low_numeric(power_of_ten(k));
        set_scales(0, 0, 0);
        now("RescalingDiv");
        if (k > 9) return;
        call.result_at = 0;
        call.numbers[0] = static_cast<std::int32_t>(power_of_ten(k)[0]);
        now("Div");
    }

    void integer(const Numeric& x) {
        if (x.high != (static_cast<std::int64_t>(x.low) < 0 ? -1 : 0)) return;
        call = {};
        set_scales(-k, 0, 0);
        call.wide_number = static_cast<std::int64_t>(x.low);
        now("Long2Num");
        call.operands[0] = x;
        set_scales(k, 0, 0);
        now("Num2Long");
        now("Num2Int");
        if (call.wide_number != static_cast<std::int32_t>(call.wide_number)) return;
        call.numbers[0] = static_cast<std::int32_t>(call.wide_number);
        set_scales(-k, 0, 0);
        now("Int2Num");
    }

    void real(const Numeric& x) {
        call = {};
        call.operands[0] = x;
        set_scales(k, 0, 0);
        now("Num2Dbl");
        set_scales(-k, 0, 0);
        now("Num2Dbl");
        const double sign = reference::is_negative(x) ? -1 : 1;
        call.real = sign * nearby_double(reference::magnitude(x), 0);
        now("Dbl2Num");
        call.real = sign * nearby_double(reference::magnitude(x), k);
        set_scales(k - 1, 0, 0);
        now("Dbl2Num");
    }

    // The coefficient as product of two, and as a sum whose operands are up to 38 digits apart.
    void combined(const Limbs& x, bool negative) {
        const int apart = k < 38 ? k : 38;
        Limbs upper = x;
        reference::Dropped dropped;
        reference::scale_down(upper, apart, dropped);
        Limbs whole = upper;
        reference::scale_up(whole, apart);
        Limbs lower = x;
        reference::subtract(lower, whole);
        if (!reference::in_range(upper) || !reference::in_range(lower)) return;
        call = {};
        call.operands[0] = reference::signed_numeric(upper, negative);
        call.operands[1] = reference::signed_numeric(lower, negative);
        set_scales(k - apart, k, 0);
        now("RescalingAdd");
        call.operands[1] = reference::signed_numeric(lower, !negative);
        now("RescalingSub");
        call.operands[0] = reference::signed_numeric(upper, negative);
        call.operands[1] = reference::low_numeric(power_of_ten(apart));
        now("RescalingMul");
    }
};

void walk_around(Walker& walker, const Limbs& x) {
    for (const bool negative : {false, true}) {
        walker.combined(x, negative);
        if (!reference::in_range(x)) continue;
        const Numeric value = reference::signed_numeric(x, negative);
        walker.cut(value);
        walker.divided(value);
        walker.integer(value);
        walker.real(value);
    }
}

}  // namespace

void walk_ties(const Visit& visit) {
    for (int k = 1; k <= kLargestPower; ++k) {
        const Limbs unit = power_of_ten(k);
        for (const Limbs& multiple : multiples(k)) {
            if (bit_length(multiple) + bit_length(unit) > 254) continue;
            for (const Limbs& remainder : remainders(unit)) {
                Limbs x = reference::product(multiple, unit);
                reference::add(x, remainder);
                for (std::uint32_t mode = 0; mode <= 6; ++mode) {
                    Walker walker{visit, k, mode};
                    walk_around(walker, x);
                }
            }
        }
    }
}

}  // namespace short_roads
