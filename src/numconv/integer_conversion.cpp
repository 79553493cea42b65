// SPDX-License-Identifier: MIT
// int64 and int32 from and to a Numeric. The two directions are no mirror images: into a Numeric is exact, rounds by
// the mode and checks the full range; out of it at a scale of its own cuts off, and only rewrites the lowest limb.
#include <utility>

#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

NumericStatus from_integer(int64_t value, const NumericInfo& info, Numeric& out) {
    const Numeric exact{static_cast<uint64_t>(value), value < 0 ? -1 : 0};
    if (info.scale == 0) {  // nothing can round here, and an invalid mode goes unnoticed
        out = exact;
        return NUMERIC_OK;
    }
    return scale_round_narrow(magnitude_of(exact), is_negative(exact), info.scale, info.rounding_mode, 0, out);
}

// limb * 10^places modulo 2^32.
uint32_t scaled_limb(uint32_t lowest, uint64_t places) {
    ExtendedNumeric x = extend({0, lowest});
    unsigned lost = 0;
    scale_up(x, places, lost);
    return limb(x, 0);
}

// The magnitude of value * 10^-scale as the interface has it: the lowest limb is that of the result, cut off towards
// zero; the limbs above it stay those of value. Exact while the value and the result are both below 2^32.
WordPair rescaled_lowest_limb(const Numeric& value, int64_t scale, Fraction& dropped) {
    WordPair magnitude = magnitude_of(value);
    uint32_t lowest = 0;
    if (scale < 0) {
        lowest = scaled_limb(static_cast<uint32_t>(magnitude.low), static_cast<uint64_t>(-scale));
    } else {
        WordPair quotient = magnitude;
        dropped = scale_down(quotient, static_cast<uint64_t>(scale));
        lowest = static_cast<uint32_t>(quotient.low);
    }
    magnitude.low = (magnitude.low & ~uint64_t{UINT32_MAX}) | lowest;
    return magnitude;
}

template <class Integer>
constexpr bool is_within(const Numeric& value) {
    const auto low = static_cast<int64_t>(value.low);
    return value.high == (low < 0 ? -1 : 0) && std::in_range<Integer>(low);
}

template <class Integer>
NumericStatus to_integer(const Numeric& in, const NumericInfo& info, Integer& out) {
    const Numeric value = in;
    out = 0;
    if (is_nan(value)) return NUMERIC_NAN;
    const bool negative = is_negative(value);
    Numeric rescaled = value;
    Fraction dropped = Fraction::nothing;
    if (info.scale != 0) {
        rescaled = from_bits(rescaled_lowest_limb(value, info.scale, dropped));
        if (!is_rounding_mode(info.rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    }
    // At a scale other than 0 it is the magnitude that is held against the range of the value's sign: no negative value
    // passes.
    if (is_negative(rescaled) != negative || !is_within<Integer>(rescaled)) {
        return negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
    }
    out = static_cast<Integer>(rescaled.low);
    return dropped == Fraction::nothing ? NUMERIC_OK : NUMERIC_INEXACT;
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
