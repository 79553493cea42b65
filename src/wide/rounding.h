// SPDX-License-Identifier: MIT
// The seven modes and the one decision: is the magnitude to be increased by one unit in its last place?
#ifndef QV8NUMERIC_WIDE_ROUNDING_H
#define QV8NUMERIC_WIDE_ROUNDING_H

#include <array>

#include "wide/dropped.h"
#include "wide/extended_numeric.h"
#include "wide/scaling.h"

namespace qv8numeric {

constexpr bool is_rounding_mode(uint32_t mode) { return mode <= NUMERIC_ROUND_HALF_EVEN; }

// Operations on three descriptors refuse a bad mode in any of them, though only the result's is used.
constexpr bool are_rounding_modes(const NumericInfo& a, const NumericInfo& b, const NumericInfo& result) {
    return is_rounding_mode(a.rounding_mode) && is_rounding_mode(b.rounding_mode) &&
           is_rounding_mode(result.rounding_mode);
}

// Where the dropped part stands between one multiple of the unit and the next.
enum class Fraction : unsigned { nothing, below_half, exactly_half, above_half };

constexpr Fraction fraction_of(const Dropped& dropped) {
    if (!dropped.anything()) return Fraction::nothing;
    if (dropped.code < one_half) return Fraction::below_half;
    return dropped.code == one_half && dropped.sticky == 0 ? Fraction::exactly_half : Fraction::above_half;
}

// The kept magnitudes that a mode increases, as a set of four: bit 2 * negative + odd.
enum class Increased : unsigned char {
    never = 0b0000,
    positive = 0b0011,
    odd = 0b1010,
    negative = 0b1100,
    always = 0b1111,
};

inline constexpr auto increased_by_mode = []() {
    using enum Increased;
    return std::array<std::array<Increased, 4>, 7>{{
        //           nothing  below_half  exactly_half  above_half
        /* UP */ {{never, always, always, always}},
        /* DOWN */ {{never, never, never, never}},
        /* CEILING */ {{never, positive, positive, positive}},
        /* FLOOR */ {{never, negative, negative, negative}},
        /* HALF_UP */ {{never, never, always, always}},
        /* HALF_DOWN */ {{never, never, never, always}},
        /* HALF_EVEN */ {{never, never, odd, always}},
    }};
}();

// The decision, for a valid mode. The sign is that of the value, which a magnitude of zero may have too.
constexpr bool rounds_away(uint32_t mode, const Dropped& dropped, bool negative, bool odd) {
    const auto increased = static_cast<unsigned>(increased_by_mode[mode][static_cast<unsigned>(fraction_of(dropped))]);
    const unsigned kept = (negative ? 2u : 0u) + (odd ? 1u : 0u);
    return (increased >> kept & 1) != 0;
}

// Rounds a magnitude from what was dropped below it. NUMERIC_INEXACT when that was anything at all, increased or not;
// NUMERIC_INVALID_ARGUMENT for an invalid mode, with the magnitude untouched.
constexpr NumericStatus round_magnitude(ExtendedNumeric& magnitude, const Dropped& dropped, bool negative,
                                        uint32_t mode) {
    if (!is_rounding_mode(mode)) return NUMERIC_INVALID_ARGUMENT;
    if (!dropped.anything()) return NUMERIC_OK;
    if (rounds_away(mode, dropped, negative, is_odd(magnitude))) magnitude = increment(magnitude);
    return NUMERIC_INEXACT;
}

// Moves a magnitude by a number of places and rounds it there, once. overflow collects what left the top.
constexpr NumericStatus scale_and_round(ExtendedNumeric& magnitude, bool negative, int64_t places, uint32_t mode,
                                        unsigned& overflow) {
    Dropped dropped;
    scale_by(magnitude, places, overflow, dropped);
    return round_magnitude(magnitude, dropped, negative, mode);
}

}  // namespace qv8numeric

#endif
