// SPDX-License-Identifier: MIT
// The order of two values of different scales.
#include "numeric/alignment.h"
#include "numeric/same_scale.h"
#include "wide/rounding.h"

namespace qv8numeric {
namespace {

QV8NUMERIC_ASIDE int32_t compare_far(const Numeric& a, int32_t a_scale, const Numeric& b, int32_t b_scale) {
    const AlignedOperands operands = aligned(a, a_scale, b, b_scale);
    const ExtendedNumeric difference = subtract(operands.a, operands.b);
    if (!is_zero(difference)) return is_negative(difference) ? 1 : -1;
    return operands.b_truncated - operands.a_truncated;
}

// In two's complement.
struct ThreeWords {
    uint64_t high;
    WordPair low;
};

// value * 10^digits - other, for up to 19 digits: below 2^127 * (10^19 + 1) < 2^191.
constexpr ThreeWords difference(const Numeric& value, uint64_t digits, const Numeric& other) {
    const uint64_t power = decimal_power[digits].power.low;
    const ExtendedNumeric product = multiply(bits_of(value), power);
    const uint64_t excess = is_negative(value) ? power : 0;  // the bits of a negative value are 2^128 above it
    const uint64_t borrow = one_if(low_half(product) < bits_of(other));
    const uint64_t high = wrapping_subtract(wrapping_subtract(product.word[2], excess), borrow);
    return {wrapping_add(high, one_if(is_negative(other))), wrapping_subtract(low_half(product), bits_of(other))};
}

// The sign of -x. Without a branch: the order of two values is as good as random.
constexpr int32_t opposite_sign(const ThreeWords& x) {
    const auto nonzero = static_cast<int32_t>((x.high | x.low.high | x.low.low) != 0);
    return 2 * static_cast<int32_t>(x.high >> 63) - nonzero;
}

// The order of value * 10^digits and other, for 20 to 38 digits. Whatever leaves the range is beyond any other
// coefficient, so nothing has to be wider than one.
int32_t compare_moved_beyond_word(const Numeric& value, uint64_t digits, const Numeric& other) {
    const bool negative = is_negative(value);
    WordPair magnitude = magnitude_of(value);
    unsigned overflow = 0;
    scale_up(magnitude, digits, overflow);
    // Without a branch: around the end of the range wide values are as often beyond it as within.
    const int32_t is_beyond = either(overflow != 0, !fits(magnitude)) ? -1 : 0;
    const int32_t beyond = negative ? 1 : -1;
    const int32_t within = compare_same_scale(with_sign(magnitude, negative), other);
    return (beyond & is_beyond) | (within & ~is_beyond);
}

// The same for up to 38 digits.
int32_t compare_moved(const Numeric& value, uint64_t digits, const Numeric& other) {
    if (digits > word_digits) return compare_moved_beyond_word(value, digits, other);
    if (!fits_int64(value)) return opposite_sign(difference(value, digits, other));
    return compare_same_scale(from_bits(moved_up<WordPair>(value, digits)), other);  // below 2^63 * 10^19 < 2^127
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

// The sign of b - a, as for one scale: 1 when a is the smaller.
extern "C" int32_t QV8NumericRescalingCmp(const NumericInfo* a_info, const NumericInfo* b_info, const Numeric* a,
                                          const Numeric* b) noexcept {
    // No digit is rounded here, but an invalid mode is refused, before NaN is looked for.
    if (!is_rounding_mode(a_info->rounding_mode) || !is_rounding_mode(b_info->rounding_mode)) {
        return NUMERIC_INVALID_ARGUMENT;
    }
    if (a_info->scale == b_info->scale) return compare_same_scale(*a, *b);
    // NaN is below every number. Of two at different scales the first counts as the smaller.
    if (is_nan(*a)) return 1;
    if (is_nan(*b)) return -1;

    const int64_t distance = int64_t{b_info->scale} - a_info->scale;
    if (0 < distance && distance <= pair_digits) return compare_moved(*a, static_cast<uint64_t>(distance), *b);
    if (-int64_t{pair_digits} <= distance && distance < 0) {
        return -compare_moved(*b, static_cast<uint64_t>(-distance), *a);
    }
    return compare_far(*a, a_info->scale, *b, b_info->scale);
}
