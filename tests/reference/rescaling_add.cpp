// SPDX-License-Identifier: MIT
// Sums, differences and order of values of two scales.
#include <cstdint>

#include "limbs.h"
#include "reference.h"
#include "rounding.h"
#include "scaling.h"

namespace reference {
namespace {

// One scale for both operands, and by how many places each has to move to it.
struct Alignment {
    std::int64_t common_scale;
    std::int64_t a_places;
    std::int64_t b_places;
};

// How far the operand with fewer decimals moves when the scales are far apart. A small one leaves room for more.
std::int64_t guard_digits(const Numeric& x) { return x.high == 0 || x.high == -1 ? 48 : 38; }

Alignment alignment(std::int64_t a_scale, std::int64_t b_scale, const Numeric& a, const Numeric& b) {
    if (is_zero(a)) return {b_scale, 0, 0};
    if (is_zero(b)) return {a_scale, 0, 0};
    const std::int64_t d = b_scale - a_scale;
    if (-38 <= d && d <= 0) return {a_scale, 0, -d};
    if (0 < d && d <= 38) return {b_scale, d, 0};
    if (d < 0) {
        const std::int64_t guard = guard_digits(b);
        return {b_scale + guard, d + guard, guard};
    }
    const std::int64_t guard = guard_digits(a);
    return {a_scale + guard, guard, guard - d};
}

// What was cut off an operand, as far as it matters: its sign, or 0 when it was nothing.
struct Aligned {
    Limbs value;
    int cut_off;
};

Aligned aligned(const Numeric& x, std::int64_t places) {
    Limbs value = magnitude(x);
    Dropped dropped;
    scale(value, places, dropped);
    if (is_negative(x)) negate(value);
    const int sign = is_negative(x) ? -1 : 1;
    return {value, dropped.anything() ? sign : 0};
}

// Moves a sum by so many places and rounds it. A cut-off part counts as one unit below the guard digits: enough to
// steer the rounding, and too little to change the sign.
NumericStatus narrow(Limbs sum, int cut_off, std::int64_t places, std::uint32_t mode, Numeric* out) {
    if (cut_off > 0) add(sum, 1);
    if (cut_off < 0) subtract(sum, from_word(1));
    const bool negative = is_negative(sum);
    if (negative) negate(sum);
    Dropped dropped;
    const bool lost = scale(sum, places, dropped) != 0;
    const NumericStatus status = round(sum, negative, mode, dropped);
    return store(sum, negative, lost, cut_off != 0 ? NUMERIC_INEXACT : status, out);
}

NumericStatus combine(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                      const Numeric& a, const Numeric& b, bool subtracting, Numeric* result) {
    if (is_nan(a) || is_nan(b)) {
        *result = kNan;
        return NUMERIC_NAN;
    }
    if (!is_valid(a_info) || !is_valid(b_info) || !is_valid(result_info)) return NUMERIC_INVALID_ARGUMENT;
    const Alignment to = alignment(a_info->scale, b_info->scale, a, b);
    const Aligned first = aligned(a, to.a_places);
    const Aligned second = aligned(b, to.b_places);
    Limbs sum = first.value;
    subtracting ? subtract(sum, second.value) : static_cast<void>(add(sum, second.value));
    const int cut_off = first.cut_off + (subtracting ? -second.cut_off : second.cut_off);
    return narrow(sum, cut_off, result_info->scale - to.common_scale, result_info->rounding_mode, result);
}

}  // namespace

NumericStatus rescaling_add(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                            const Numeric* a, const Numeric* b, Numeric* result) {
    return combine(a_info, b_info, result_info, *a, *b, false, result);
}

NumericStatus rescaling_subtract(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                                 const Numeric* a, const Numeric* b, Numeric* result) {
    return combine(a_info, b_info, result_info, *a, *b, true, result);
}

// The sign of b - a. At one scale NaN is the smallest integer and equal to itself; otherwise a NaN in a is the smaller,
// whatever b is.
std::int32_t rescaling_compare(const NumericInfo* a_info, const NumericInfo* b_info, const Numeric* a,
                               const Numeric* b) {
    if (!is_valid(a_info) || !is_valid(b_info)) return NUMERIC_INVALID_ARGUMENT;
    if (a_info->scale == b_info->scale) return compare(a, b);
    if (is_nan(*a)) return 1;
    if (is_nan(*b)) return -1;
    const Alignment to = alignment(a_info->scale, b_info->scale, *a, *b);
    const Aligned first = aligned(*a, to.a_places);
    const Aligned second = aligned(*b, to.b_places);
    Limbs difference = first.value;
    subtract(difference, second.value);
    if (!is_zero(difference)) return is_negative(difference) ? 1 : -1;
    return second.cut_off - first.cut_off;
}

}  // namespace reference
