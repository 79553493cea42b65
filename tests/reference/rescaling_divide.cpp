// SPDX-License-Identifier: MIT
// The quotient at the scale of the result, rounded by its remainder.
#include <cstdint>

#include "limbs.h"
#include "long_division.h"
#include "reference.h"
#include "rounding.h"
#include "scaling.h"

namespace reference {
namespace {

// Moves divisor and dividend up until bit 127 of the divisor is set. True when the dividend is too large for that.
bool normalise(Limbs& dividend, Limbs& divisor) {
    bool lost = false;
    if (bit_length(divisor) <= 64) {
        lost = dividend[6] != 0;  // limb 7 is lost as well, and nobody notices: part of the interface
        shift_left(dividend, 64);
        shift_left(divisor, 64);
    }
    const int shift = 128 - bit_length(divisor);
    lost = lost || bit_length(dividend) + shift > 256;
    shift_left(dividend, shift);
    shift_left(divisor, shift);
    return lost;
}

Limbs upper_half(Limbs x) {
    shift_right(x, 128);
    return x;
}

// How a remainder compares with half the divisor, which is even.
std::uint32_t division_code(const Limbs& remainder, Limbs divisor) {
    if (is_zero(remainder)) return 0;
    shift_right(divisor, 1);
    const int order = compare(remainder, divisor);
    return order < 0 ? kHalf - 1 : order == 0 ? kHalf : kHalf + 1;
}

NumericStatus divide_magnitudes(Limbs dividend, Limbs divisor, bool negative, std::int64_t places, std::uint32_t mode,
                                Numeric* result) {
    bool lost = places > 0 && scale_up(dividend, places) != 0;
    lost = normalise(dividend, divisor) || lost;
    // Only now, so that the bits gained below keep what a division by a power of ten drops above.
    Dropped dropped;
    if (places < 0) scale_down(dividend, -places, dropped);
    if (compare(upper_half(dividend), divisor) >= 0) {
        *result = kNan;
        return range_status(negative);
    }
    Limbs quotient = long_division(dividend, divisor);
    next_code(dropped, division_code(dividend, divisor));
    const NumericStatus status = round(quotient, negative, mode, dropped);
    return store(quotient, negative, lost, status, result);
}

}  // namespace

NumericStatus rescaling_divide(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                               const Numeric* a, const Numeric* b, Numeric* result) {
    if (is_nan(*a) || is_nan(*b)) {
        *result = kNan;
        return NUMERIC_NAN;
    }
    if (!is_valid(a_info) || !is_valid(b_info) || !is_valid(result_info)) return NUMERIC_INVALID_ARGUMENT;
    if (is_zero(*b)) {
        *result = kNan;
        return NUMERIC_NAN;
    }
    const std::int64_t places = result_info->scale - distance(b_info->scale, a_info->scale);
    const bool negative = is_negative(*a) != is_negative(*b);
    return divide_magnitudes(magnitude(*a), magnitude(*b), negative, places, result_info->rounding_mode, result);
}

}  // namespace reference
