// SPDX-License-Identifier: MIT
// Rounding to a number of places, and the exported names for it.
#include "numeric/truncation.h"

#include <algorithm>

#include "wide/narrowing.h"

namespace qv8numeric {

NumericStatus numeric_truncation_inline(const NumericInfo& info, const int32_t& target, const int32_t& result_scale,
                                        Numeric& num, const uint32_t& mode) {
    if (is_nan(num)) return NUMERIC_NAN;
    const bool negative = is_negative(num);
    ExtendedNumeric magnitude = extend(magnitude_of(num));

    // The scale at which the one rounding takes place.
    const int64_t rounding_scale = info.scale > target ? target : std::min(info.scale, result_scale);
    unsigned overflow = 0;
    const NumericStatus status = scale_and_round(magnitude, negative, rounding_scale - info.scale, mode, overflow);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;

    (void)scale_by(magnitude, result_scale - rounding_scale, overflow);  // not rounded
    return narrow(magnitude, negative, overflow, status, num);
}

namespace {

// To a multiple of 10^digits: down, rounded, and back.
template <class Magnitude>
QV8NUMERIC_INLINE NumericStatus round_to_multiple(Magnitude magnitude, bool negative, uint64_t digits, uint32_t mode,
                                                  Numeric& num) {
    const Fraction dropped = scale_down(magnitude, digits);
    const NumericStatus status = round_magnitude(magnitude, dropped, negative, mode);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    num = with_sign(scaled_back_up(magnitude, digits), negative);
    return status;
}

QV8NUMERIC_ASIDE NumericStatus round_pair(const NumericInfo& info, int32_t places, uint64_t digits, Numeric& num,
                                          uint32_t mode) {
    const WordPair magnitude = magnitude_of(num);
    if (digits == 0 || digits > pair_digits || !has_room_to_round(magnitude, digits)) {
        return numeric_truncation_inline(info, places, info.scale, num, mode);
    }
    return round_to_multiple(magnitude, is_negative(num), digits, mode, num);
}

// To a number of places at the value's own scale. A word has room for up to 18 digits: 2^63 + 10^18 < 2^64.
NumericStatus round_to(const NumericInfo& info, int32_t places, Numeric& num, uint32_t mode) {
    const int64_t distance = int64_t{info.scale} - places;
    const auto digits = static_cast<uint64_t>(distance < 0 ? 0 : distance);
    if (!fits_int64(num) || digits == 0 || digits >= word_digits) return round_pair(info, places, digits, num, mode);
    return round_to_multiple(magnitude_as<uint64_t>(num), is_negative(num), digits, mode, num);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericCeil(const NumericInfo* info, int32_t places, Numeric* num) noexcept {
    return round_to(*info, places, *num, NUMERIC_ROUND_CEILING);
}

extern "C" NumericStatus QV8NumericFloor(const NumericInfo* info, int32_t places, Numeric* num) noexcept {
    return round_to(*info, places, *num, NUMERIC_ROUND_FLOOR);
}

extern "C" NumericStatus QV8NumericRound(const NumericInfo* info, int32_t places, Numeric* num) noexcept {
    return round_to(*info, places, *num, info->rounding_mode);
}
