// SPDX-License-Identifier: MIT
#include "rounding.h"

namespace qv8numeric_fuzz {
namespace {

Rest compared_with_half(const Wide& remainder, const Wide& divisor) {
    if (remainder == 0) return Rest::kNone;
    const int order = Wide(remainder * 2).compare(divisor);
    return order < 0 ? Rest::kBelowHalf : order == 0 ? Rest::kHalf : Rest::kAboveHalf;
}

}  // namespace

Quotient quotient_of(const Wide& dividend, const Wide& divisor) {
    Quotient quotient;
    Wide remainder;
    divide_qr(dividend, divisor, quotient.value, remainder);
    quotient.rest = compared_with_half(remainder, divisor);
    return quotient;
}

// Beyond 1000 bits there is nothing but the rest, and its uppermost bit is clear.
Quotient shift_right(const Wide& dividend, std::int64_t bits) {
    if (dividend == 0) return {0, Rest::kNone};
    if (bits > 1000) return {0, Rest::kBelowHalf};
    const auto shift = static_cast<unsigned>(bits);
    Quotient quotient{dividend >> shift, Rest::kNone};
    const unsigned lowest = lsb(dividend);
    if (lowest >= shift) return quotient;
    const bool half = bit_test(dividend, shift - 1);
    quotient.rest = !half ? Rest::kBelowHalf : lowest == shift - 1 ? Rest::kHalf : Rest::kAboveHalf;
    return quotient;
}

Rest with_more_below(Rest rest, bool more) {
    if (!more) return rest;
    if (rest == Rest::kNone) return Rest::kBelowHalf;
    return rest == Rest::kHalf ? Rest::kAboveHalf : rest;
}

bool rounds_away(std::uint32_t mode, bool negative, bool odd, Rest rest) {
    if (rest == Rest::kNone) return false;
    switch (mode) {
        case NUMERIC_ROUND_UP: return true;
        case NUMERIC_ROUND_CEILING: return !negative;
        case NUMERIC_ROUND_FLOOR: return negative;
        case NUMERIC_ROUND_HALF_UP: return rest >= Rest::kHalf;
        case NUMERIC_ROUND_HALF_DOWN: return rest > Rest::kHalf;
        case NUMERIC_ROUND_HALF_EVEN: return rest > Rest::kHalf || (rest == Rest::kHalf && odd);
        default: return false;  // NUMERIC_ROUND_DOWN
    }
}

Wide rounded(const Quotient& quotient, std::uint32_t mode, bool negative) {
    const bool odd = bit_test(quotient.value, 0);
    return rounds_away(mode, negative, odd, quotient.rest) ? Wide(quotient.value + 1) : quotient.value;
}

}  // namespace qv8numeric_fuzz
