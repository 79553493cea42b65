// SPDX-License-Identifier: MIT
// int64 and int32 from and to a Numeric. The two directions are no mirror images: into a Numeric is exact, rounds by
// the mode and checks the full range; out of it at a scale of its own cuts off, and only rewrites the lowest limb.
#include <utility>

#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

// ---- Into a Numeric ----

// Down, or up by more than 19 places.
QV8NUMERIC_ASIDE NumericStatus rescale(int64_t value, const NumericInfo& info, Numeric& out) {
    const WordPair magnitude = magnitude_of(sign_extend(value));
    if (info.scale > 0) return scale_round_narrow(magnitude, value < 0, info.scale, info.rounding_mode, 0, out);
    return scale_round_narrow(magnitude.low, value < 0, info.scale, info.rounding_mode, 0, out);
}

NumericStatus from_integer(int64_t value, const NumericInfo& info, Numeric& out) {
    const auto places = static_cast<uint32_t>(info.scale);
    if (places == 0) {  // nothing can round here, and an invalid mode goes unnoticed
        out = sign_extend(value);
        return NUMERIC_OK;
    }
    if (places > word_digits) return rescale(value, info, out);
    if (!is_rounding_mode(info.rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    out = from_bits(moved_up<WordPair>(sign_extend(value), places));  // at most 2^63 * 10^19 < 2^127
    return NUMERIC_OK;
}

// ---- Out of a Numeric ----

// lowest * 10^places modulo 2^32, of which 10^32 is a multiple.
constexpr uint32_t scaled_limb(uint32_t lowest, uint64_t places) {
    if (places >= 32) return 0;
    return static_cast<uint32_t>(wrapping_multiply(lowest, decimal_power[places].power.low));
}

// The magnitude of value * 10^-scale as the interface has it: the lowest limb is that of the result, cut off towards
// zero; the limbs above it stay those of value. Exact while the value and the result are both below 2^32.
constexpr uint64_t rescale_lowest_limb(uint64_t value, int64_t scale, bool& inexact) {
    const auto digits = static_cast<uint64_t>(scale);
    uint64_t lowest = 0;
    if (digits <= word_digits) [[likely]] {
        lowest = divide_by_power(value, digits);
        inexact = lowest * decimal_power[digits].power.low != value;
    } else if (scale < 0) {
        lowest = scaled_limb(static_cast<uint32_t>(value), wrapping_negate(digits));
    } else {
        inexact = value != 0;
    }
    return (value & ~uint64_t{UINT32_MAX}) | static_cast<uint32_t>(lowest);
}

// What no integer can be made of, whatever the scale does to it: NaN, what does not fit before (the upper limbs stay),
// and, at a scale other than 0, a negative value. (There the magnitude is held against the range of negative integers.)
constexpr bool is_refused(const Numeric& value, int32_t scale) {
    return !fits_int64(value) || (is_negative(value) && scale != 0);
}

constexpr NumericStatus refusal(const Numeric& value, const NumericInfo& info) {
    if (is_nan(value)) return NUMERIC_NAN;
    if (info.scale != 0 && !is_rounding_mode(info.rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    return is_negative(value) ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
}

template <class Integer>
NumericStatus to_integer(const Numeric& in, const NumericInfo& info, Integer& out) {
    const Numeric value = in;
    out = 0;
    if (is_refused(value, info.scale)) [[unlikely]]
        return refusal(value, info);
    bool inexact = false;
    uint64_t result = value.low;
    if (info.scale != 0) {
        if (!is_rounding_mode(info.rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
        result = rescale_lowest_limb(result, info.scale, inexact);
    }
    if (!std::in_range<Integer>(static_cast<int64_t>(result))) return refusal(value, info);
    out = static_cast<Integer>(result);
    return inexact ? NUMERIC_INEXACT : NUMERIC_OK;
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericLong2Num(int64_t value, const NumericInfo* info, Numeric* out) noexcept {
    return from_integer(value, *info, *out);
}

extern "C" NumericStatus QV8NumericInt2Num(int32_t value, const NumericInfo* info, Numeric* out) noexcept {
    return from_integer(value, *info, *out);
}

extern "C" NumericStatus QV8NumericNum2Long(const Numeric* in, const NumericInfo* info, int64_t* out) noexcept {
    return to_integer(*in, *info, *out);
}

extern "C" NumericStatus QV8NumericNum2Int(const Numeric* in, const NumericInfo* info, int32_t* out) noexcept {
    return to_integer(*in, *info, *out);
}
